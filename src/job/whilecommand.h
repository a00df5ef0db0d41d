#pragma once

#include "command.h"
#include "commandcondition.h"

#include <memory>

/// Head (with a condition) or end (without one) of a loop.
class WHILECommand : public Command {
public:
    using Command::Command;

    template <class Self, class Visitor> static void visit(Self &self, Visitor &&visitor)
    {
        visitor("condition", self.condition);
    }

    std::unique_ptr<CommandCondition> condition;
};
