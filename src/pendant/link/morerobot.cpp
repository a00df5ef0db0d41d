#include "morerobot.h"

#include "robot.h"

int MoreRobot::g_CurRobot = 1;
int MoreRobot::g_RobotAll_ONE = 1;

MoreRobot *MoreRobot::getInstance()
{
    // Never deleted: pages may ask for it until the very end of the program.
    static MoreRobot *const instance = new MoreRobot;
    return instance;
}

int MoreRobot::getCurrentRobot()
{
    return g_CurRobot;
}

void MoreRobot::setCurrentRobot(int robot)
{
    if (robot < 1 || robot > kRobots || robot == g_CurRobot)
        return;
    g_CurRobot = robot;
    Robot::getInstance()->selectRobot(robot);
    emit getInstance()->currentRobotChanged(robot);
}
