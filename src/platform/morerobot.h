#pragma once

#include <QObject>

/// Which of the robots 1 to 4 the pendant is working with.
class MoreRobot : public QObject {
    Q_OBJECT
public:
    static constexpr int kRobots = 4;

    static MoreRobot *getInstance();

    /// The robot's number, 1 to 4.
    static int getCurrentRobot();
    /// Switches to another robot; a number outside 1 to 4 changes nothing.
    static void setCurrentRobot(int robot);

    static int g_CurRobot; ///< the current robot, 1 to 4
    static int g_RobotAll_ONE; ///< the robot that "all robots" stands for, 1 to 4

signals:
    void currentRobotChanged(int robot);

private:
    MoreRobot() = default;
};
