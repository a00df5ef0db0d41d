#pragma once

#include "jobfault.h"
#include "simulator/ports.h"

class Command;

/// What of a command the controller would not carry out, seen by itself: without the loops around
/// it. No fault when there is nothing; the line is left at 0.
JobFault checkCommand(const Command &command, const Ports &ports);

/// What a variable that is given a value when the job begins may be named, and be given. No fault
/// when both are right.
JobFault checkStartValue(const QString &variable, const QString &value);

/// Which variables a name may stand for.
enum class VariableKind { Integer, LocalBoolean, GlobalBoolean, Boolean };

/// Whether that is the name of a variable of that kind: a prefix and three digits.
bool isVariable(const QString &name, VariableKind kind);
