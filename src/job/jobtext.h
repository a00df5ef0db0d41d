#pragma once

#include <QString>

class Command;
struct CommandCondition;

/// A command as an engineer reads it in a job: its word and what it acts on, without the fields
/// that are the interpreter's own. It is text of the job language and the same in every language of
/// the screen.
///
///     MovJ P1 A=10 B=10 C=10 D=0
///     WHILE B001 == 0
///     WAIT DIN3 == 1
///     DOUT OT#2 = 1
///     PalToEntry MovJ craft=2 xy=1 z=0
QString statementOf(const Command &command);

/// "DIN3 == 1". A comparison that is none reads as "?".
QString conditionText(const CommandCondition &condition);
