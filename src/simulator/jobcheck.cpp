#include "simulator/jobcheck.h"

#include "commandfields.h"

#include <algorithm>

namespace {

constexpr int kMostCrafts = 9;
constexpr int kDigits = 3; // of a variable's number

/// The variables of the controller: a prefix and a number from 1.
struct Variables {
    const char *prefix;
    int last;
    VariableKind kind;
};
constexpr Variables kVariables[] = {
    {"I", 100, VariableKind::Integer},
    {"GI", 990, VariableKind::Integer},
    {"B", 100, VariableKind::LocalBoolean},
    {"GB", 990, VariableKind::GlobalBoolean},
};

/// What a condition's left side may be, by its kind.
struct Operand {
    int kind;
    VariableKind variable;
    bool isOnOff; ///< 0 and 1 are its only values
};
constexpr Operand kOperands[] = {
    {CommandCondition::IntegerVariable, VariableKind::Integer, false},
    {CommandCondition::BooleanVariable, VariableKind::LocalBoolean, true},
    {CommandCondition::GlobalBooleanVariable, VariableKind::GlobalBoolean, true},
};

JobFault fault(JobFault::Kind kind, const QString &detail = {})
{
    return {kind, 0, detail};
}

bool isNone(const QString &variable)
{
    return variable == QLatin1String("[-]");
}

/// What a new condition or assignment names.
bool isDefault(const QString &variable)
{
    return variable == QLatin1String("I000");
}

bool isWhole(const QString &text, bool isOnOff)
{
    const int value = text.toInt();
    return text == QString::number(value) && (!isOnOff || value == 0 || value == 1);
}

JobFault checkCondition(const CommandCondition *condition, const Ports &ports)
{
    if (!condition || condition->comparison < 0
        || condition->comparison >= static_cast<int>(condition->comparisons.size()))
        return fault(JobFault::Condition);
    if (condition->operandKind == CommandCondition::DigitalInput) {
        const QString port = QStringLiteral("DIN%1").arg(condition->operandPort);
        if (condition->operandPort < 1 || condition->operandPort > ports.digitalIn)
            return fault(JobFault::Port, port);
        return condition->operandName == port && isWhole(condition->rightValue, true)
            ? JobFault()
            : fault(JobFault::Condition);
    }
    for (const Operand &operand : kOperands) {
        if (operand.kind != condition->operandKind)
            continue;
        if (!isVariable(condition->operandName, operand.variable)
            && (operand.isOnOff || !isDefault(condition->operandName)))
            return fault(JobFault::Variable, condition->operandName);
        return isWhole(condition->rightValue, operand.isOnOff) ? JobFault()
                                                               : fault(JobFault::Condition);
    }
    return fault(JobFault::Condition);
}

JobFault checkMove(const MoveCommand &move)
{
    return move.position ? JobFault() : fault(JobFault::Position, QStringLiteral("-"));
}

JobFault checkTimer(const TimerCommand &timer)
{
    return timer.duration >= 0.0 ? JobFault() : fault(JobFault::Value, QStringLiteral("duration"));
}

JobFault checkLoop(const WHILECommand &loop, const Ports &ports)
{
    if (loop.type == Command::WhileBegin)
        return checkCondition(loop.condition.get(), ports);
    return loop.condition ? fault(JobFault::Condition) : JobFault();
}

JobFault checkOutput(const IOCommand &output, const Ports &ports)
{
    if (output.ioName != QLatin1String("OT#") || output.ioPort < 1
        || output.ioPort > ports.digitalOut)
        return fault(JobFault::Port, output.ioName + QString::number(output.ioPort));
    return output.ioValue == 0.0 || output.ioValue == 1.0
        ? JobFault()
        : fault(JobFault::Value, QStringLiteral("ioValue"));
}

JobFault checkValue(const QString &variable, const QString &value, bool isOnOff)
{
    if (!isVariable(variable, isOnOff ? VariableKind::Boolean : VariableKind::Integer)
        && (isOnOff || !isDefault(variable)))
        return fault(JobFault::Variable, variable);
    return isWhole(value, isOnOff) ? JobFault()
                                   : fault(JobFault::Value, QStringLiteral("varValue"));
}

JobFault checkPal(const PALCommand &pal)
{
    if (pal.craftNumber < 1 || pal.craftNumber > kMostCrafts)
        return fault(JobFault::Value, QStringLiteral("craftNumber"));
    if (pal.palFunction != 0 && pal.palFunction != 1)
        return fault(JobFault::Value, QStringLiteral("palFunction"));
    for (const QString &name : {pal.totalName, pal.layerName, pal.stackName}) {
        if (!isNone(name) && !isVariable(name, VariableKind::Integer))
            return fault(JobFault::Variable, name);
    }
    if (!isNone(pal.palOffName) && !isVariable(pal.palOffName, VariableKind::Boolean))
        return fault(JobFault::Variable, pal.palOffName);
    const bool isMove = pal.type == Command::PalToEntry || pal.type == Command::PalToAuxiliary
        || pal.type == Command::PalToWorkpiece;
    if (isMove && pal.moveName != QLatin1String("MovJ") && pal.moveName != QLatin1String("MovL"))
        return fault(JobFault::Value, QStringLiteral("moveName"));
    return {};
}

} // namespace

bool isVariable(const QString &name, VariableKind kind)
{
    return std::any_of(std::begin(kVariables), std::end(kVariables), [&](const Variables &row) {
        const QLatin1String prefix(row.prefix);
        const bool isOfKind = row.kind == kind
            || (kind == VariableKind::Boolean && row.kind != VariableKind::Integer);
        if (!isOfKind || !name.startsWith(prefix) || name.size() != prefix.size() + kDigits)
            return false;
        const QString digits = name.mid(prefix.size());
        const bool areDigits = std::all_of(digits.begin(), digits.end(), [](QChar digit) {
            return digit >= QLatin1Char('0') && digit <= QLatin1Char('9');
        });
        const int number = digits.toInt();
        return areDigits && number >= 1 && number <= row.last;
    });
}

JobFault checkStartValue(const QString &variable, const QString &value)
{
    return checkValue(variable, value, isVariable(variable, VariableKind::Boolean));
}

JobFault checkCommand(const Command &command, const Ports &ports)
{
    if (const auto *move = dynamic_cast<const MoveCommand *>(&command))
        return checkMove(*move);
    if (const auto *loop = dynamic_cast<const WHILECommand *>(&command))
        return checkLoop(*loop, ports);
    if (const auto *output = dynamic_cast<const IOCommand *>(&command))
        return checkOutput(*output, ports);
    if (const auto *assignment = dynamic_cast<const VARCommand *>(&command))
        return checkValue(assignment->varName, assignment->varValue,
                          assignment->type == Command::SetBoolean);
    if (const auto *pal = dynamic_cast<const PALCommand *>(&command))
        return checkPal(*pal);
    if (const auto *wait = dynamic_cast<const WaitCommand *>(&command)) {
        const JobFault time = checkTimer(*wait);
        return time ? time : checkCondition(wait->condition.get(), ports);
    }
    if (const auto *timer = dynamic_cast<const TimerCommand *>(&command))
        return checkTimer(*timer);
    return {};
}
