#pragma once

#include "command.h"

#include <QString>

/// Gives a variable a value: an integer one (SetInteger) or a boolean one (SetBoolean).
class VARCommand : public Command {
public:
    using Command::Command;

    template <class Self, class Visitor> static void visit(Self &self, Visitor &&visitor)
    {
        visitor("varName", self.varName);
        visitor("reserved1", self.reserved1);
        visitor("reserved2", self.reserved2);
        visitor("reserved3", self.reserved3);
        visitor("reserved4", self.reserved4);
        visitor("varValue", self.varValue);
    }

    QString varName = QStringLiteral("I000");
    int reserved1 = 0;
    int reserved2 = 0;
    double reserved3 = 0.0;
    unsigned char reserved4 = 0;
    QString varValue = QStringLiteral("0");
};
