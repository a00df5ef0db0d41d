#pragma once

#include "programjob.h"

#include <QObject>
#include <memory>

/// The job editor: builds one job, command by command, and stores it as a file of the robot that
/// was the current one when the job was begun.
class JobEdit : public QObject {
    Q_OBJECT
public:
    explicit JobEdit(QObject *parent = nullptr);
    ~JobEdit() override;

    /// Begins a new, empty job of the given name, which becomes the current job. The one before is
    /// dropped, unless it was stored or is kept as unsaved.
    void newJob(const QString &name);
    /// The job that is being built; null before the first newJob().
    ProgramJOB *currentJob() const { return m_job.get(); }

    /// Puts the command in front of that line of the current job, lines counting from 1; past the
    /// end it is appended. The command belongs to the job from then on, and `command` becomes null.
    /// Without a current job nothing happens.
    void insertCommand(int line, Command *&command);

    /// Gives a move command the position of its `positionId`, new to the job, from seven numbers
    /// with blanks between them: joint values when `isJoint`, else Cartesian ones. False when
    /// there is no current job, the command is no move, the text is not seven finite numbers, or
    /// the job has that position already.
    bool setCmdPosValue(Command *command, const QString &text, bool isJoint);

    /// Registers the value of an assignment with the job: the value that its variable starts with.
    void setCmdVarValue(Command *command);

    /// Writes the current job to its file. When that fails it says so in a message that stays until
    /// it is touched, keeps the job in memory, and the job list offers to store it again.
    bool storeJob();

private:
    std::unique_ptr<ProgramJOB> m_job;
    int m_robot = 1; ///< whose job it is
};
