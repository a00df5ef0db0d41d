#pragma once

#include "iocommand.h"
#include "movecommand.h"
#include "palcommand.h"
#include "timercommand.h"
#include "varcommand.h"
#include "whilecommand.h"

#include <memory>
#include <string_view>
#include <type_traits>

/// The word that opens a command's line in a job, "MovJ"; null for a type that is no command.
const char *wordOf(int type);
/// A command of that type, or of that word, with the fields of a new one; null when there is none.
std::unique_ptr<Command> commandOf(int type);
std::unique_ptr<Command> commandOf(std::string_view word);

/// Calls `visitor(name, field)` for each field of a command in declared order. A field is an int, a
/// double, an unsigned char, a QString or a std::unique_ptr<CommandCondition>, const when the
/// command is. The command's class is told by its type; a type that is none, or one that is not of
/// the command's class, has no fields.
template <class AnyCommand, class Visitor> void visitFields(AnyCommand &command, Visitor &&visitor)
{
    constexpr bool isConst = std::is_const_v<AnyCommand>;
    const auto visitAs = [&](auto *kind) {
        using Kind = std::remove_pointer_t<decltype(kind)>;
        using Target = std::conditional_t<isConst, const Kind, Kind>;
        if (auto *target = dynamic_cast<Target *>(&command))
            Kind::visit(*target, visitor);
    };
    switch (command.type) {
    case Command::MovJ:
    case Command::MovL:
        return visitAs(static_cast<MoveCommand *>(nullptr));
    case Command::Timer:
        return visitAs(static_cast<TimerCommand *>(nullptr));
    case Command::Wait:
        return visitAs(static_cast<WaitCommand *>(nullptr));
    case Command::WhileBegin:
    case Command::WhileEnd:
        return visitAs(static_cast<WHILECommand *>(nullptr));
    case Command::DigitalOut:
        return visitAs(static_cast<IOCommand *>(nullptr));
    case Command::SetInteger:
    case Command::SetBoolean:
        return visitAs(static_cast<VARCommand *>(nullptr));
    case Command::PalStart:
    case Command::PalStep:
    case Command::PalToEntry:
    case Command::PalToAuxiliary:
    case Command::PalToWorkpiece:
    case Command::PalHead:
    case Command::PalOff:
        return visitAs(static_cast<PALCommand *>(nullptr));
    }
}
