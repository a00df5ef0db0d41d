#pragma once

#include "jobdirectory.h"
#include "jobfault.h"
#include "jobname.h"

#include <QByteArray>
#include <QDateTime>
#include <QHash>
#include <QObject>
#include <QString>
#include <QVector>

/// The job files of the robots, one directory each, and the jobs that could not be stored yet.
///
/// A stored job is handed to the controller, when one is connected, and the controller's word on it
/// is kept for as long as the file stays what it was. How files are reached: JobDirectory.
class JobStore : public QObject {
    Q_OBJECT
public:
    struct File {
        QString name; ///< without the suffix
        QDateTime changed;
        qint64 bytes = 0;
        JobDirectory::Kind kind = JobDirectory::File; ///< what is no file is not opened
    };
    /// A job that is in memory only, because its file could not be written.
    struct Unsaved {
        int robot = 1;
        QString name;
        QByteArray text;
        QString reason; ///< why it could not be written
    };
    /// What the controller says of a job.
    struct Verdict {
        enum State { Unknown, Sent, Accepted, Refused };
        State state = Unknown;
        JobFault fault; ///< of a refused job
    };

    static JobStore *getInstance();

    /// Where `robot1` to `robot4` stand. Without one, below the user's application data. What was
    /// left there by a program that ended while it wrote is cleared.
    void setDirectory(const QString &directory);
    QString directoryOf(int robot) const;
    QString pathOf(int robot, const QString &name) const;

    /// Whether the text may be the name of a job (jobname.h).
    static bool isValidName(const QString &name) { return jobname::isValid(name); }
    static constexpr int kMaxNameBytes = jobname::kMaxBytes;

    /// What stands in the robot's directory under the names of jobs, by name; empty for another
    /// robot than 1 to 4.
    QVector<File> files(int robot) const;
    /// One of them; its time is invalid when there is none.
    File file(int robot, const QString &name) const;

    enum class Order { ByName, NewestFirst };
    /// The files and the jobs that are in memory only; those have no time and count as the newest.
    QVector<File> list(int robot, Order order) const;

    /// Writes the file so that a crash leaves the old one or the new one, and hands the job to the
    /// controller. Empty when it stands; else why not, and the job is kept among the unsaved.
    QString save(int robot, const QString &name, const QByteArray &text);
    /// Nothing with `error` filled when the file cannot be read.
    QByteArray read(int robot, const QString &name, QString *error) const;
    /// Empty when the file is gone; else why not. Of a link, the link itself goes; a folder or a
    /// device is not removed.
    QString remove(int robot, const QString &name);

    const QVector<Unsaved> &unsaved() const { return m_unsaved; }
    /// Tries once more to store an unsaved job. Empty when it stands; else why not.
    QString saveAgain(int robot, const QString &name);
    void drop(int robot, const QString &name);

    /// Hands a stored job to the controller again. Empty when it is on its way; else why not.
    QString send(int robot, const QString &name);
    Verdict verdict(int robot, const QString &name) const;

signals:
    /// A file, an unsaved job or a verdict came, went or changed.
    void changed();
    /// A job was stored ("storeJob"), could not be ("storeFailed"), was removed ("removeJob"), or
    /// one that is in memory only was given up ("dropJob").
    void fileChanged(int robot, const QString &operation, const QString &name);

private:
    explicit JobStore(QObject *parent = nullptr);

    void note(int robot, const char *operation, const QString &name);
    void takeVerdict(int robot, const QString &name, const JobFault &fault);
    void forgetSent();
    JobDirectory directoryFor(int robot, bool make = false) const;
    int indexOfUnsaved(int robot, const QString &name) const;
    QString hand(int robot, const QString &name, const QByteArray &text);

    QString m_directory;
    QVector<Unsaved> m_unsaved;
    QHash<QString, Verdict> m_verdicts; ///< by path
};
