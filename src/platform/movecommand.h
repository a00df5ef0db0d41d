#pragma once

#include "command.h"

#include <QString>

struct RobotPos;

/// A move of the robot to a position, joint (MovJ) or linear (MovL). The parameters are the
/// interpreter's own; the fields keep the order in which it reads them.
class MoveCommand : public Command {
public:
    explicit MoveCommand(Type kind);

    /// All fields under their names, and "position" when there is one.
    Json::Value toJson() const override;

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
    int positionId = 0; ///< number of the position in the job; 0: it is in none
    const RobotPos *position = nullptr; ///< not owned; the job keeps its positions
    QString reservedText;
    QString frameName = QStringLiteral("UF");
    int reserved3 = 0;
    int reserved4 = 0;
    int reserved5 = 1;
    double reserved6 = 0.0;
};
