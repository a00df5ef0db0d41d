#pragma once

#include "command.h"

#include <QString>

struct RobotPos;

/// A move of the robot to a position, joint (MovJ) or linear (MovL). The parameters are the
/// interpreter's own.
class MoveCommand : public Command {
public:
    using Command::Command;

    template <class Self, class Visitor> static void visit(Self &self, Visitor &&visitor)
    {
        visitor("moveParamA", self.moveParamA);
        visitor("moveKind", self.moveKind);
        visitor("moveParamB", self.moveParamB);
        visitor("moveParamC", self.moveParamC);
        visitor("moveParamD", self.moveParamD);
        visitor("moveParamE", self.moveParamE);
        visitor("moveParamF", self.moveParamF);
        visitor("moveParamG", self.moveParamG);
        visitor("moveParamH", self.moveParamH);
        visitor("moveParamI", self.moveParamI);
        visitor("reserved1", self.reserved1);
        visitor("reserved2", self.reserved2);
        visitor("positionId", self.positionId);
        visitor("reservedText", self.reservedText);
        visitor("frameName", self.frameName);
        visitor("reserved3", self.reserved3);
        visitor("reserved4", self.reserved4);
        visitor("reserved5", self.reserved5);
        visitor("reserved6", self.reserved6);
    }

    double moveParamA = 0.0;
    int moveKind = 0; ///< 2: joint move, 1: linear move, 0: left to the type
    double moveParamB = 0.0;
    double moveParamC = 0.0;
    double moveParamD = 0.0;
    double moveParamE = 0.0;
    double moveParamF = 0.0;
    double moveParamG = 0.0;
    double moveParamH = 0.0;
    double moveParamI = 0.0;
    int reserved1 = 0;
    int reserved2 = 0;
    int positionId = 0; ///< id word of the position in the job; 0: it is in none
    const RobotPos *position = nullptr; ///< not owned; the job keeps its positions
    QString reservedText;
    QString frameName = QStringLiteral("UF");
    int reserved3 = 0;
    int reserved4 = 0;
    int reserved5 = 1;
    double reserved6 = 0.0;
};
