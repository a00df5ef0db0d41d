#include "jobtext.h"

#include "commandfields.h"
#include "robotpos.h"

#include <array>
#include <charconv>

namespace {

/// The shortest form that reads back as the same number, as in a job's file.
QString numberText(double value)
{
    std::array<char, 32> digits;
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), value).ptr;
    return QString::fromLatin1(digits.data(), static_cast<int>(end - digits.data()));
}

QString named(const char *name, int value)
{
    return QStringLiteral(" %1=%2").arg(QLatin1String(name)).arg(value);
}

QString named(const char *name, double value)
{
    return QStringLiteral(" %1=").arg(QLatin1String(name)) + numberText(value);
}

QString named(const char *name, const QString &value)
{
    return QStringLiteral(" %1=").arg(QLatin1String(name)) + value;
}

QString moveText(const MoveCommand &move)
{
    const QString target =
        move.positionId == 0 ? QStringLiteral("?") : RobotPos::nameOf(move.positionId);
    return QLatin1Char(' ') + target + named("A", move.moveParamA) + named("B", move.moveParamB)
        + named("C", move.moveParamC) + named("D", move.moveParamD);
}

QString conditionPart(const std::unique_ptr<CommandCondition> &condition)
{
    return QLatin1Char(' ') + (condition ? conditionText(*condition) : QStringLiteral("?"));
}

/// " OT#2 = 1"; the name already ends in its own separator.
QString outputText(const IOCommand &output)
{
    return QLatin1Char(' ') + output.ioName + QString::number(output.ioPort) + QStringLiteral(" = ")
        + numberText(output.ioValue);
}

QString assignmentText(const VARCommand &assignment)
{
    return QLatin1Char(' ') + assignment.varName + QStringLiteral(" = ") + assignment.varValue;
}

QString palText(const PALCommand &pal)
{
    const QString craft = named("craft", pal.craftNumber);
    switch (pal.type) {
    case Command::PalStart:
        return craft + named("function", pal.palFunction) + named("total", pal.totalName)
            + named("layer", pal.layerName) + named("stack", pal.stackName);
    case Command::PalStep:
        return craft + named("step", pal.stepFlag);
    case Command::PalToEntry:
        return QLatin1Char(' ') + pal.moveName + craft + named("xy", pal.xyPathOptimization)
            + named("z", pal.zPathOptimization);
    case Command::PalToAuxiliary:
    case Command::PalToWorkpiece:
        return QLatin1Char(' ') + pal.moveName + craft;
    case Command::PalOff:
        return QLatin1Char(' ') + pal.palOffName + craft;
    default:
        return craft;
    }
}

/// What follows the command's word.
QString restOf(const Command &command)
{
    switch (command.type) {
    case Command::Timer:
        if (const auto *timer = dynamic_cast<const TimerCommand *>(&command))
            return QLatin1Char(' ') + numberText(timer->duration) + QStringLiteral(" s");
        break;
    case Command::Wait:
        if (const auto *wait = dynamic_cast<const WaitCommand *>(&command))
            return conditionPart(wait->condition);
        break;
    case Command::WhileBegin:
        if (const auto *head = dynamic_cast<const WHILECommand *>(&command))
            return conditionPart(head->condition);
        break;
    default:
        break;
    }
    if (const auto *move = dynamic_cast<const MoveCommand *>(&command))
        return moveText(*move);
    if (const auto *output = dynamic_cast<const IOCommand *>(&command))
        return outputText(*output);
    if (const auto *assignment = dynamic_cast<const VARCommand *>(&command))
        return assignmentText(*assignment);
    if (const auto *pal = dynamic_cast<const PALCommand *>(&command))
        return palText(*pal);
    return {};
}

} // namespace

QString conditionText(const CommandCondition &condition)
{
    const auto index = static_cast<std::size_t>(condition.comparison);
    const QString comparison =
        index < condition.comparisons.size() ? condition.comparisons[index] : QStringLiteral("?");
    return condition.operandName + QLatin1Char(' ') + comparison + QLatin1Char(' ')
        + condition.rightValue;
}

QString statementOf(const Command &command)
{
    const char *word = wordOf(command.type);
    return word ? QLatin1String(word) + restOf(command) : QStringLiteral("?");
}
