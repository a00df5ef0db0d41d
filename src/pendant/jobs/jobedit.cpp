#include "jobedit.h"

#include "eventlog.h"
#include "jobfile.h"
#include "jobstore.h"
#include "morerobot.h"
#include "movecommand.h"
#include "snackbarmessage.h"
#include "varcommand.h"

#include <QStringList>
#include <cmath>

namespace {

constexpr int kJointValues = 7;

/// Seven finite numbers, or nothing.
std::optional<std::array<double, kJointValues>> sevenNumbers(const QString &text)
{
    const QStringList pieces = text.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    if (pieces.size() != kJointValues)
        return std::nullopt;
    std::array<double, kJointValues> values = {};
    for (int i = 0; i < kJointValues; ++i) {
        bool isNumber = false;
        const double value = pieces.at(i).toDouble(&isNumber);
        if (!isNumber || !std::isfinite(value))
            return std::nullopt;
        values[static_cast<std::size_t>(i)] = value;
    }
    return values;
}

} // namespace

JobEdit::JobEdit(QObject *parent) : QObject(parent) { }

JobEdit::~JobEdit() = default;

void JobEdit::newJob(const QString &name)
{
    m_job = std::make_unique<ProgramJOB>(name);
    m_robot = MoreRobot::getCurrentRobot();
    EventLog::getInstance()->record(QStringLiteral("job"), {QStringLiteral("newJob"), name});
}

void JobEdit::insertCommand(int line, Command *&command)
{
    if (!m_job || !command)
        return;
    m_job->insertCommand(line, std::unique_ptr<Command>(command));
    command = nullptr;
}

bool JobEdit::setCmdPosValue(Command *command, const QString &text, bool isJoint)
{
    auto *move = dynamic_cast<MoveCommand *>(command);
    const auto values = sevenNumbers(text);
    if (!m_job || !move || !values || !RobotPos::isWord(move->positionId))
        return false;
    RobotPos position;
    position.id = move->positionId;
    position.kind = static_cast<unsigned char>(move->positionId >> 16);
    const std::size_t first = isJoint ? position.values.size() - values->size() : 0;
    std::copy(values->begin(), values->end(), position.values.begin() + static_cast<int>(first));
    const RobotPos *taken = m_job->addPosition(position);
    if (!taken)
        return false;
    move->position = taken;
    return true;
}

void JobEdit::setCmdVarValue(Command *command)
{
    const auto *assignment = dynamic_cast<const VARCommand *>(command);
    if (m_job && assignment)
        m_job->setVariable(assignment->varName, assignment->varValue);
}

bool JobEdit::storeJob()
{
    if (!m_job)
        return false;
    const QString reason =
        JobStore::getInstance()->save(m_robot, m_job->name(), jobfile::write(*m_job));
    if (reason.isEmpty())
        return true;
    SnackbarMessage::showStanding(
        tr("程序 %1 未能保存：%2。程序仍在内存中，请在作业列表中重新保存或放弃")
            .arg(m_job->name(), reason),
        3);
    return false;
}
