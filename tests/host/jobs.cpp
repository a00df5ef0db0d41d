// The smallest host: it makes jobs and has no place to keep them.

#include "commandinsert.h"
#include "jobedit.h"
#include "jobmanager.h"
#include "jobname.h"
#include "morerobot.h"
#include "movecommand.h"
#include "snackbarmessage.h"
#include "varcommand.h"

CommandInsert::CommandInsert(QObject *parent) : QObject(parent) { }

CommandInsert *CommandInsert::getInstance()
{
    static CommandInsert *const instance = new CommandInsert;
    return instance;
}

void CommandInsert::choose(int count)
{
    m_count = count;
    emit cycleIndexChosen(count);
}

/// There is no keypad to ask with: as if it had been cancelled.
void CommandInsert::setCycleIndex() { }

void CommandInsert::setCycleIndexOnce()
{
    choose(1);
}

void CommandInsert::setCycleIndexEver()
{
    choose(kEndless);
}

bool JobManager::isValidFileName(const QString &name)
{
    return jobname::isValid(name);
}

void JobManager::updateJobsFileInfo(int, bool, const QString &, const QString &)
{
    m_names.clear();
}

JobEdit::JobEdit(QObject *parent) : QObject(parent) { }

JobEdit::~JobEdit() = default;

void JobEdit::newJob(const QString &name)
{
    m_job = std::make_unique<ProgramJOB>(name);
    m_robot = MoreRobot::getCurrentRobot();
}

void JobEdit::insertCommand(int line, Command *&command)
{
    if (!m_job || !command)
        return;
    m_job->insertCommand(line, std::unique_ptr<Command>(command));
    command = nullptr;
}

/// Positions are not taken, so no page goes on to store its job.
bool JobEdit::setCmdPosValue(Command *, const QString &, bool)
{
    return false;
}

void JobEdit::setCmdVarValue(Command *command)
{
    const auto *assignment = dynamic_cast<const VARCommand *>(command);
    if (m_job && assignment)
        m_job->setVariable(assignment->varName, assignment->varValue);
}

bool JobEdit::storeJob()
{
    SnackbarMessage::showMessage(QStringLiteral("This pendant keeps no jobs"), -1, 3, true);
    return false;
}
