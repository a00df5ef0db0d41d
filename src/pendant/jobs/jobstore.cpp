#include "jobstore.h"

#include "eventlog.h"
#include "jobfile.h"
#include "morerobot.h"
#include "robot.h"

#include <QStandardPaths>
#include <algorithm>

namespace {

QString folderOf(int robot)
{
    return QStringLiteral("robot%1").arg(robot);
}

QString fileNameOf(const QString &name)
{
    return name + QLatin1String(jobfile::kSuffix);
}

bool isRobot(int robot)
{
    return robot >= 1 && robot <= MoreRobot::kRobots;
}

/// What has no file yet is the newest.
bool isNewer(const JobStore::File &one, const JobStore::File &other)
{
    if (!one.changed.isValid() || !other.changed.isValid())
        return !one.changed.isValid() && other.changed.isValid();
    return one.changed > other.changed;
}

} // namespace

JobStore::JobStore(QObject *parent)
    : QObject(parent),
      m_directory(QStandardPaths::writableLocation(QStandardPaths::AppLocalDataLocation)
                  + QStringLiteral("/jobs"))
{
    connect(Robot::getInstance(), &Robot::jobChecked, this, &JobStore::takeVerdict);
    connect(Robot::getInstance(), &Robot::linkChanged, this, &JobStore::forgetSent);
}

JobStore *JobStore::getInstance()
{
    static JobStore *const instance = new JobStore;
    return instance;
}

void JobStore::setDirectory(const QString &directory)
{
    m_directory = directory;
    for (int robot = 1; robot <= MoreRobot::kRobots; ++robot)
        directoryFor(robot).clearLeftOvers();
    emit changed();
}

QString JobStore::directoryOf(int robot) const
{
    return m_directory + QLatin1Char('/') + folderOf(robot);
}

JobDirectory JobStore::directoryFor(int robot, bool make) const
{
    return {m_directory, folderOf(robot), make};
}

QString JobStore::pathOf(int robot, const QString &name) const
{
    return directoryOf(robot) + QLatin1Char('/') + fileNameOf(name);
}

QVector<JobStore::File> JobStore::files(int robot) const
{
    QVector<File> found;
    if (!isRobot(robot))
        return found;
    const QString suffix = QLatin1String(jobfile::kSuffix);
    const QVector<JobDirectory::Entry> entries = directoryFor(robot).entries(suffix);
    for (const JobDirectory::Entry &entry : entries) {
        const QString name = entry.fileName.chopped(suffix.size());
        if (isValidName(name))
            found.append({name, entry.changed, entry.bytes, entry.kind});
    }
    return found;
}

JobStore::File JobStore::file(int robot, const QString &name) const
{
    if (!isRobot(robot) || !isValidName(name))
        return {};
    const JobDirectory::Entry entry = directoryFor(robot).entry(fileNameOf(name));
    return {name, entry.changed, entry.bytes, entry.kind};
}

QVector<JobStore::File> JobStore::list(int robot, Order order) const
{
    QVector<File> jobs = files(robot);
    for (const Unsaved &job : m_unsaved) {
        if (job.robot != robot)
            continue;
        const auto found = std::find_if(jobs.begin(), jobs.end(),
                                        [&](const File &file) { return file.name == job.name; });
        if (found != jobs.end() && found->kind != JobDirectory::File)
            found->changed = {}; // what is in its way is not its file
        if (found == jobs.end())
            jobs.append({job.name, QDateTime(), job.text.size(), JobDirectory::File});
    }
    std::stable_sort(jobs.begin(), jobs.end(), [order](const File &one, const File &other) {
        return order == Order::NewestFirst ? isNewer(one, other) : one.name < other.name;
    });
    return jobs;
}

QString JobStore::save(int robot, const QString &name, const QByteArray &text)
{
    const bool hasPlace = isRobot(robot) && isValidName(name);
    const QString reason = hasPlace ? directoryFor(robot, true).write(fileNameOf(name), text)
                                    : tr("名称 %1 不能用作文件名").arg(name);
    const int kept = indexOfUnsaved(robot, name);
    if (kept >= 0)
        m_unsaved.remove(kept);
    if (reason.isEmpty()) {
        note(robot, "storeJob", name);
        m_verdicts.remove(pathOf(robot, name));
        hand(robot, name, text);
    } else {
        note(robot, "storeFailed", name);
        m_unsaved.append({robot, name, text, reason});
    }
    emit changed();
    return reason;
}

QByteArray JobStore::read(int robot, const QString &name, QString *error) const
{
    if (isRobot(robot) && isValidName(name))
        return directoryFor(robot).read(fileNameOf(name), jobfile::kMaxBytes, error);
    *error = tr("名称 %1 不能用作文件名").arg(name);
    return {};
}

QString JobStore::remove(int robot, const QString &name)
{
    if (!isRobot(robot) || !isValidName(name))
        return tr("名称 %1 不能用作文件名").arg(name);
    const QString reason = directoryFor(robot).remove(fileNameOf(name));
    if (!reason.isEmpty())
        return reason;
    note(robot, "removeJob", name);
    m_verdicts.remove(pathOf(robot, name));
    emit changed();
    return {};
}

void JobStore::note(int robot, const char *operation, const QString &name)
{
    EventLog::getInstance()->record(QStringLiteral("job"), {QString::fromLatin1(operation), name});
    emit fileChanged(robot, QString::fromLatin1(operation), name);
}

int JobStore::indexOfUnsaved(int robot, const QString &name) const
{
    const auto found = std::find_if(m_unsaved.begin(), m_unsaved.end(), [&](const Unsaved &job) {
        return job.robot == robot && job.name == name;
    });
    return found == m_unsaved.end() ? -1 : static_cast<int>(found - m_unsaved.begin());
}

QString JobStore::saveAgain(int robot, const QString &name)
{
    const int index = indexOfUnsaved(robot, name);
    if (index < 0)
        return {};
    const QByteArray text = m_unsaved.at(index).text;
    return save(robot, name, text);
}

void JobStore::drop(int robot, const QString &name)
{
    const int index = indexOfUnsaved(robot, name);
    if (index < 0)
        return;
    m_unsaved.remove(index);
    note(robot, "dropJob", name);
    emit changed();
}

QString JobStore::send(int robot, const QString &name)
{
    QString error;
    const QByteArray text = read(robot, name, &error);
    if (error.isEmpty())
        error = hand(robot, name, text);
    emit changed();
    return error;
}

QString JobStore::hand(int robot, const QString &name, const QByteArray &text)
{
    const QString reason = Robot::getInstance()->sendJob(robot, name, text);
    if (reason.isEmpty())
        m_verdicts[pathOf(robot, name)] = {Verdict::Sent, {}};
    return reason;
}

/// What a lost controller was still to say will not come.
void JobStore::forgetSent()
{
    if (Robot::getInstance()->isConnected())
        return;
    bool isChanged = false;
    for (Verdict &verdict : m_verdicts) {
        if (verdict.state != Verdict::Sent)
            continue;
        verdict.state = Verdict::Unknown;
        isChanged = true;
    }
    if (isChanged)
        emit changed();
}

JobStore::Verdict JobStore::verdict(int robot, const QString &name) const
{
    return m_verdicts.value(pathOf(robot, name));
}

void JobStore::takeVerdict(int robot, const QString &name, const JobFault &fault)
{
    const auto found = m_verdicts.find(pathOf(robot, name));
    if (found == m_verdicts.end())
        return; // a job that was not handed over from here
    found->state = fault ? Verdict::Refused : Verdict::Accepted;
    found->fault = fault;
    emit changed();
}
