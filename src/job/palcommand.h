#pragma once

#include "command.h"

#include <QString>

/// An instruction around palletising: PALSTART and all that begin with Pal. Each kind reads some
/// of the fields; all kinds carry all of them.
class PALCommand : public Command {
public:
    using Command::Command;

    template <class Self, class Visitor> static void visit(Self &self, Visitor &&visitor)
    {
        visitor("craftNumber", self.craftNumber);
        visitor("palFunction", self.palFunction);
        visitor("reserved1", self.reserved1);
        visitor("reserved2", self.reserved2);
        visitor("stepFlag", self.stepFlag);
        visitor("xyPathOptimization", self.xyPathOptimization);
        visitor("zPathOptimization", self.zPathOptimization);
        visitor("moveName", self.moveName);
        visitor("moveParamA", self.moveParamA);
        visitor("reserved3", self.reserved3);
        visitor("moveParamB", self.moveParamB);
        visitor("moveParamC", self.moveParamC);
        visitor("moveKind", self.moveKind);
        visitor("palOffName", self.palOffName);
        visitor("totalName", self.totalName);
        visitor("layerName", self.layerName);
        visitor("stackName", self.stackName);
    }

    int craftNumber = 1; ///< process number, 1 to 9
    int palFunction = 0; ///< 0: palletising, 1: de-palletising
    int reserved1 = 0;
    int reserved2 = 0;
    int stepFlag = 0;
    int xyPathOptimization = 0; ///< 1: on
    int zPathOptimization = 0; ///< 1: on
    QString moveName = QStringLiteral("MovC");
    double moveParamA = 0.0;
    int reserved3 = 0;
    double moveParamB = 0.0;
    double moveParamC = 0.0;
    int moveKind = 0; ///< 2: joint move, 1: linear move
    QString palOffName = QStringLiteral("[-]"); ///< of a variable; "[-]": none
    QString totalName = QStringLiteral("[-]");
    QString layerName = QStringLiteral("[-]");
    QString stackName = QStringLiteral("[-]");
};
