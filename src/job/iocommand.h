#pragma once

#include "command.h"

#include <QString>

/// Sets a digital output.
class IOCommand : public Command {
public:
    IOCommand() : Command(DigitalOut) { }

    template <class Self, class Visitor> static void visit(Self &self, Visitor &&visitor)
    {
        visitor("reserved1", self.reserved1);
        visitor("reserved2", self.reserved2);
        visitor("ioName", self.ioName);
        visitor("ioPort", self.ioPort);
        visitor("ioValue", self.ioValue);
        visitor("reserved3", self.reserved3);
        visitor("reserved4", self.reserved4);
        visitor("reservedText", self.reservedText);
        visitor("reserved5", self.reserved5);
        visitor("reserved6", self.reserved6);
        visitor("reserved7", self.reserved7);
    }

    int reserved1 = -1;
    int reserved2 = -1;
    QString ioName;
    int ioPort = -1; ///< from 1
    double ioValue = -1.0;
    unsigned char reserved3 = 0;
    int reserved4 = 0;
    QString reservedText;
    int reserved5 = 0;
    int reserved6 = 0;
    double reserved7 = 0.0;
};
