#pragma once

#include "shell/coordinates.h"

#include <QString>
#include <array>

/// What the program wizard has collected for a palletising job.
class ProgramInformation {
public:
    /// The rows of `points`.
    enum Point { Live, Get, Upper, Safe, Points };
    static constexpr int kGrippers = 4;

    /// Every number becomes 0 and every text of `points` a null text; the name stays.
    void clear();

    QString name; ///< of the job
    int craftNumber = 0; ///< process number, 1 to 9
    int functionNumber = 0; ///< 1: palletising, 2: depalletising
    /// Joint values J1 to J7 as the controller writes them. Live is where the robot was last; a
    /// point that was not marked has empty texts.
    std::array<PositionTexts, Points> points;
    int getEnablePort = 0; ///< digital input of the pick permission; 0: none
    int getEnableValue = 0;
    int reserved1 = 0;
    int reserved2 = 0;
    std::array<int, kGrippers> tongsPort = {}; ///< digital outputs of the gripper valves; 0: none
    std::array<int, kGrippers> tongsValue = {};
    int reserved3 = 0;
    int reserved4 = 0;
    int reserved5 = 0;
    int reserved6 = 0;
    int reserved7 = 0;
    int reserved8 = 0;
    int reserved9 = 0;
    int reserved10 = 0;
    /// Digital inputs that tell of a successful grip; 0: none.
    std::array<int, kGrippers> tongsSucceedPort = {};
    std::array<int, kGrippers> tongsSucceedValue = {};
};
