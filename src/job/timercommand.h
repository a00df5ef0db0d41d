#pragma once

#include "command.h"
#include "commandcondition.h"

#include <memory>

/// A pause.
class TimerCommand : public Command {
public:
    TimerCommand() : Command(Timer) { }

    template <class Self, class Visitor> static void visit(Self &self, Visitor &&visitor)
    {
        visitor("duration", self.duration);
        visitor("durationText", self.durationText);
        visitor("reserved1", self.reserved1);
    }

    double duration = 0.0; ///< seconds
    QString durationText = QStringLiteral("0");
    int reserved1 = 0;
};

/// A wait on a condition. It is constructed as a timer; who builds it sets its type to Wait.
class WaitCommand : public TimerCommand {
public:
    template <class Self, class Visitor> static void visit(Self &self, Visitor &&visitor)
    {
        TimerCommand::visit(self, visitor);
        visitor("reserved2", self.reserved2);
        visitor("reserved3", self.reserved3);
        visitor("condition", self.condition);
    }

    int reserved2 = 0;
    unsigned char reserved3 = 0;
    std::unique_ptr<CommandCondition> condition;
};
