#include "jobstore.h"

#include "eventlog.h"
#include "jobfile.h"
#include "morerobot.h"
#include "robot.h"
#include "wholefile.h"

#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>
#include <algorithm>
#include <iterator>

namespace {

void journal(const char *operation, const QString &name)
{
    EventLog::getInstance()->record(QStringLiteral("job"), {QString::fromLatin1(operation), name});
}

QString writeFile(const QString &path, const QByteArray &text)
{
    const QString directory = QFileInfo(path).path();
    if (!QDir().mkpath(directory))
        return JobStore::tr("目录 %1 不能建立").arg(directory);
    return writeWholeFile(path, text);
}

struct CodeRange {
    char32_t first;
    char32_t last;
};

/// Characters that show nothing though their category says nothing of it. The others that Unicode
/// calls default-ignorable are of the category Format or unassigned.
constexpr CodeRange kInvisible[] = {
    {U'\u034f', U'\u034f'}, // joiner of graphemes
    {U'\u115f', U'\u1160'}, // fillers
    {U'\u17b4', U'\u17b5'}, // vowels without a form
    {U'\u180b', U'\u180f'}, // variation selectors
    {U'\u2800', U'\u2800'}, // braille pattern without a dot
    {U'\u3164', U'\u3164'}, // filler
    {U'\ufe00', U'\ufe0f'}, // variation selectors
    {U'\uffa0', U'\uffa0'}, // filler
    {U'\U000e0100', U'\U000e01ef'}, // variation selectors
};

bool isInvisible(uint character)
{
    return std::any_of(std::begin(kInvisible), std::end(kInvisible), [=](const CodeRange &range) {
        return character >= range.first && character <= range.last;
    });
}

/// Letters, digits, marks, punctuation, symbols and blanks; nothing that is invisible or
/// unassigned.
bool isPlainCharacter(uint character)
{
    if (isInvisible(character))
        return false;
    switch (QChar::category(character)) {
    case QChar::Other_Control:
    case QChar::Other_Format:
    case QChar::Other_Surrogate:
    case QChar::Other_PrivateUse:
    case QChar::Other_NotAssigned:
    case QChar::Separator_Line:
    case QChar::Separator_Paragraph:
        return false;
    default:
        return true;
    }
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
    emit changed();
}

QString JobStore::directoryOf(int robot) const
{
    return QStringLiteral("%1/robot%2").arg(m_directory).arg(robot);
}

QString JobStore::pathOf(int robot, const QString &name) const
{
    return directoryOf(robot) + QLatin1Char('/') + name + QLatin1String(jobfile::kSuffix);
}

bool JobStore::isValidName(const QString &name)
{
    static const QString forbidden = QStringLiteral("/\\:*?\"<>|");
    if (name.isEmpty() || name != name.trimmed() || name.startsWith(QLatin1Char('.'))
        || name.endsWith(QLatin1Char('.')) || name.at(0).isMark())
        return false;
    if (!name.isValidUtf16() || name.toUtf8().size() > kMaxNameBytes
        || name != name.normalized(QString::NormalizationForm_C))
        return false;
    const auto characters = name.toUcs4();
    return std::all_of(characters.begin(), characters.end(), [](uint character) {
        return isPlainCharacter(character)
            && (character > 0xffff || !forbidden.contains(QChar(static_cast<ushort>(character))));
    });
}

QVector<JobStore::File> JobStore::files(int robot) const
{
    QVector<File> found;
    if (robot < 1 || robot > MoreRobot::kRobots)
        return found;
    const QString suffix = QLatin1String(jobfile::kSuffix);
    const QDir directory(directoryOf(robot));
    const QFileInfoList entries =
        directory.entryInfoList({QLatin1Char('*') + suffix}, QDir::Files, QDir::Name);
    for (const QFileInfo &entry : entries) {
        const QString name = entry.fileName().chopped(suffix.size());
        if (entry.fileName().endsWith(suffix) && isValidName(name))
            found.append({name, entry.lastModified(), entry.size()});
    }
    return found;
}

QString JobStore::save(int robot, const QString &name, const QByteArray &text)
{
    const bool hasPlace = robot >= 1 && robot <= MoreRobot::kRobots && isValidName(name);
    const QString reason =
        hasPlace ? writeFile(pathOf(robot, name), text) : tr("名称 %1 不能用作文件名").arg(name);
    const int kept = indexOfUnsaved(robot, name);
    if (kept >= 0)
        m_unsaved.remove(kept);
    if (reason.isEmpty()) {
        journal("storeJob", name);
        m_verdicts.remove(pathOf(robot, name));
        hand(robot, name, text);
    } else {
        journal("storeFailed", name);
        m_unsaved.append({robot, name, text, reason});
    }
    emit changed();
    return reason;
}

QByteArray JobStore::read(int robot, const QString &name, QString *error) const
{
    QFile file(pathOf(robot, name));
    if (!isValidName(name) || !file.open(QIODevice::ReadOnly)) {
        *error = file.errorString();
        return {};
    }
    if (file.size() > jobfile::kMaxBytes) {
        *error = tr("文件太大");
        return {};
    }
    const QByteArray text = file.readAll();
    if (file.error() != QFileDevice::NoError)
        *error = file.errorString();
    return text;
}

QString JobStore::remove(int robot, const QString &name)
{
    QFile file(pathOf(robot, name));
    if (!isValidName(name) || (!file.remove() && file.exists()))
        return file.errorString();
    journal("removeJob", name);
    m_verdicts.remove(pathOf(robot, name));
    emit changed();
    return {};
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
    journal("dropJob", name);
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
