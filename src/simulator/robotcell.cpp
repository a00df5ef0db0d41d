#include "simulator/robotcell.h"

#include "simulator/angles.h"
#include "simulator/armwords.h"
#include "simulator/toolframes.h"

#include <algorithm>

namespace {

constexpr ArmSpeed kTeachSpeed{240.0, angles::toRadians(30.0)};
constexpr ArmSpeed kFullSpeed{1000.0, angles::toRadians(120.0)};

} // namespace

RobotCell::RobotCell()
{
    for (int robot = 1; robot <= kRobots; ++robot) {
        std::vector<KDL::Vector> tips;
        for (int tool = 1; tool <= toolframes::kTools; ++tool) {
            const toolframes::Frame frame = toolframes::frameOf(robot, tool);
            tips.emplace_back(frame[0], frame[1], frame[2]);
        }
        at(robot).arm.setTips(std::move(tips));
    }
}

void RobotCell::setServo(bool on)
{
    if (!on)
        stopAll();
    m_servo = on;
}

void RobotCell::setMode(int mode)
{
    if (mode != m_mode)
        stopAll();
    m_mode = mode;
}

void RobotCell::setType(int robot, int type)
{
    if (arm(robot).model().type() != type)
        at(robot).arm.setType(type);
}

template <typename Point>
const char *RobotCell::begin(int robot, const Point &point, int owner, bool holdsDeadman)
{
    if (!m_servo || !holdsDeadman)
        return armword::kNotEnabled;
    const char *word = at(robot).arm.runTo(point);
    if (!word)
        at(robot).owner = owner;
    return word;
}

const char *RobotCell::runTo(int robot, const Joints &joints, int owner, bool holdsDeadman)
{
    return begin(robot, joints, owner, holdsDeadman);
}

const char *RobotCell::runTo(int robot, const Pose &pose, int owner, bool holdsDeadman)
{
    return begin(robot, pose, owner, holdsDeadman);
}

const char *RobotCell::jog(int robot, const Jog &jog, int owner, bool holdsDeadman)
{
    if (m_mode != kTeach)
        return armword::kNotTeaching;
    if (!m_servo || !holdsDeadman)
        return armword::kNotEnabled;
    const char *word = at(robot).arm.jog(jog);
    if (!word)
        at(robot).owner = owner;
    return word;
}

void RobotCell::release(int owner)
{
    for (Robot &robot : m_robots) {
        if (robot.owner == owner)
            robot.arm.stop();
    }
}

void RobotCell::stopAll()
{
    for (Robot &robot : m_robots)
        robot.arm.stop();
}

bool RobotCell::isMoving() const
{
    return std::any_of(m_robots.begin(), m_robots.end(),
                       [](const Robot &robot) { return robot.arm.isMoving(); });
}

std::vector<RobotCell::Stopped> RobotCell::step(double seconds)
{
    const ArmSpeed &speed = m_mode == kTeach ? kTeachSpeed : kFullSpeed;
    std::vector<Stopped> stopped;
    for (int robot = 1; robot <= kRobots; ++robot) {
        if (const char *word = at(robot).arm.step(seconds, speed))
            stopped.push_back({at(robot).owner, robot, word});
    }
    return stopped;
}
