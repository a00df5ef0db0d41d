#include "jobmanager.h"

#include "jobstore.h"

void JobManager::updateJobsFileInfo(int robot, bool newestFirst, const QString &beginning,
                                    const QString &part)
{
    const auto order = newestFirst ? JobStore::Order::NewestFirst : JobStore::Order::ByName;
    m_names.clear();
    for (const JobStore::File &job : JobStore::getInstance()->list(robot, order)) {
        if (job.name.startsWith(beginning) && job.name.contains(part))
            m_names.append(job.name);
    }
}

bool JobManager::isValidFileName(const QString &name)
{
    return JobStore::isValidName(name);
}
