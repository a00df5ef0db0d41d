#pragma once

#include <QString>
#include <QStringList>

/// The job list of a robot, as it was when it was last reread.
class JobManager {
public:
    /// Rereads the list of `robot`: newest first or by name, those whose names begin with
    /// `beginning` and contain `part`; empty texts leave none out. Jobs that are in memory only are
    /// in the list as well.
    void updateJobsFileInfo(int robot, bool newestFirst, const QString &beginning,
                            const QString &part);
    /// The names of the jobs, in the order of the list.
    const QStringList &names() const { return m_names; }

    /// Whether the list holds that name.
    bool jobExists(const QString &name) const { return m_names.contains(name); }

    /// Whether the text may be the name of a job's file.
    static bool isValidFileName(const QString &name);

private:
    QStringList m_names;
};
