#include "jobmanager.h"

#include <algorithm>

namespace {

/// What has no file yet is the newest.
bool isNewer(const JobStore::File &one, const JobStore::File &other)
{
    if (!one.changed.isValid() || !other.changed.isValid())
        return !one.changed.isValid() && other.changed.isValid();
    return one.changed > other.changed;
}

} // namespace

void JobManager::updateJobsFileInfo(int robot, bool newestFirst, const QString &beginning,
                                    const QString &part)
{
    JobStore *store = JobStore::getInstance();
    QVector<JobStore::File> jobs = store->files(robot);
    for (const JobStore::Unsaved &job : store->unsaved()) {
        if (job.robot != robot)
            continue;
        const auto found =
            std::find_if(jobs.begin(), jobs.end(),
                         [&](const JobStore::File &file) { return file.name == job.name; });
        if (found != jobs.end() && found->kind != JobDirectory::File)
            found->changed = {}; // what is in its way is not its file
        if (found == jobs.end())
            jobs.append({job.name, QDateTime(), job.text.size(), JobDirectory::File});
    }
    m_jobs.clear();
    for (const JobStore::File &job : jobs) {
        if (job.name.startsWith(beginning) && job.name.contains(part))
            m_jobs.append(job);
    }
    std::stable_sort(m_jobs.begin(), m_jobs.end(),
                     [=](const JobStore::File &one, const JobStore::File &other) {
                         return newestFirst ? isNewer(one, other) : one.name < other.name;
                     });
}

bool JobManager::jobExists(const QString &name) const
{
    return std::any_of(m_jobs.begin(), m_jobs.end(),
                       [&](const JobStore::File &job) { return job.name == name; });
}
