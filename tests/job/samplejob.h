#pragma once

// A palletising job with everything that the wizard puts into one: both loops, the wait, moves to
// three positions, output, timers, and the palletising commands.

#include "commandfields.h"
#include "jobfile.h"
#include "robotpos.h"

#include <memory>

namespace sample {

template <class Kind> Kind &append(ProgramJOB &job, int type)
{
    job.insertCommand(job.lineCount() + 1, commandOf(type));
    return dynamic_cast<Kind &>(*job.command(job.lineCount()));
}

inline std::unique_ptr<CommandCondition> condition(int kind, const QString &name, int port,
                                                   const QString &value)
{
    auto made = std::make_unique<CommandCondition>();
    made->operandKind = kind;
    made->operandName = name;
    made->operandPort = port;
    made->rightValue = value;
    return made;
}

inline std::unique_ptr<CommandCondition> input(int port, int value)
{
    return condition(CommandCondition::DigitalInput, QStringLiteral("DIN%1").arg(port), port,
                     QString::number(value));
}

inline MoveCommand &appendMove(ProgramJOB &job, int type, int number)
{
    auto &move = append<MoveCommand>(job, type);
    move.moveParamA = move.moveParamB = move.moveParamC = 10.0;
    move.moveKind = 2;
    move.positionId = RobotPos::wordOf('P', number);
    move.position = job.getPosition('P', number);
    return move;
}

inline PALCommand &appendPal(ProgramJOB &job, int type)
{
    auto &pal = append<PALCommand>(job, type);
    pal.craftNumber = 2;
    if (type == Command::PalToEntry || type == Command::PalToAuxiliary
        || type == Command::PalToWorkpiece)
        pal.moveName = QStringLiteral("MovL");
    return pal;
}

inline IOCommand &appendOutput(ProgramJOB &job, int port, int value)
{
    auto &output = append<IOCommand>(job, Command::DigitalOut);
    output.ioName = QStringLiteral("OT#");
    output.ioPort = port;
    output.ioValue = value;
    return output;
}

inline void appendTimer(ProgramJOB &job)
{
    append<TimerCommand>(job, Command::Timer).duration = 1.0;
}

/// 21 lines; loops from 2 to 21 and from 6 to 13, the wait in 8, outputs in 10 and 17.
inline std::unique_ptr<ProgramJOB> job(const QString &name = QStringLiteral("STACK1"))
{
    auto made = std::make_unique<ProgramJOB>(name);
    ProgramJOB &job = *made;
    for (int number = 1; number <= 3; ++number) {
        RobotPos position;
        position.id = RobotPos::wordOf('P', number);
        position.values[7] = 10.5 * number;
        job.addPosition(position);
    }
    appendPal(job, Command::PalHead);
    append<WHILECommand>(job, Command::WhileBegin).condition = condition(
        CommandCondition::BooleanVariable, QStringLiteral("B001"), 0, QStringLiteral("0"));
    appendPal(job, Command::PalStart).totalName = QStringLiteral("GI001");
    appendPal(job, Command::PalStep).stepFlag = 1;
    appendMove(job, Command::MovJ, 1);
    append<WHILECommand>(job, Command::WhileBegin).condition = input(3, 1);
    appendMove(job, Command::MovJ, 2);
    append<WaitCommand>(job, Command::Wait).condition = input(5, 1);
    appendMove(job, Command::MovL, 3);
    appendOutput(job, 2, 1);
    appendTimer(job);
    appendMove(job, Command::MovL, 2);
    append<WHILECommand>(job, Command::WhileEnd);
    appendPal(job, Command::PalToEntry).xyPathOptimization = 1;
    appendPal(job, Command::PalToAuxiliary);
    appendPal(job, Command::PalToWorkpiece);
    appendOutput(job, 2, 0);
    appendTimer(job);
    appendPal(job, Command::PalToAuxiliary);
    appendPal(job, Command::PalOff).palOffName = QStringLiteral("B001");
    append<WHILECommand>(job, Command::WhileEnd);
    return made;
}

/// The lines of the sample that tests change.
enum Line {
    Head = 1,
    Outer = 2,
    Start = 3,
    Move = 5,
    Inner = 6,
    Wait = 8,
    Output = 10,
    Timer = 11,
    InnerEnd = 13,
    Entry = 14,
    Off = 20,
    OuterEnd = 21
};

template <class Kind> Kind &at(ProgramJOB &job, int line)
{
    return dynamic_cast<Kind &>(*job.command(line));
}

} // namespace sample
