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

const char *RobotCell::setServo(bool on, int owner)
{
    if (!on) {
        stopAll();
        m_switches.emptyLine();
    } else if (isHeldByAnother(owner)) {
        return armword::kControlHeld;
    } else {
        m_switches.queue(owner);
    }
    m_servo = on;
    return nullptr;
}

const char *RobotCell::setMode(int mode, int owner)
{
    if (isHeldByAnother(owner))
        return armword::kControlHeld;
    if (mode != m_mode)
        stopAll();
    m_mode = mode;
    return nullptr;
}

void RobotCell::setType(int robot, int type)
{
    if (arm(robot).model().type() != type)
        at(robot).arm.setType(type);
}

void RobotCell::letSwitchGo(int owner)
{
    m_switches.letGo(owner);
    release(owner);
}

std::vector<int> RobotCell::expireSwitches(double now)
{
    const std::vector<int> lapsed = m_switches.expire(now);
    for (const int owner : lapsed)
        release(owner);
    return lapsed;
}

const char *RobotCell::objection(int owner)
{
    if (!m_servo || !holdsSwitch(owner))
        return armword::kNotEnabled;
    m_switches.queue(owner);
    return isHeldByAnother(owner) ? armword::kControlHeld : nullptr;
}

template <typename Point> const char *RobotCell::begin(int robot, const Point &point, int owner)
{
    if (const char *word = objection(owner))
        return word;
    const char *word = at(robot).arm.runTo(point);
    if (!word)
        at(robot).owner = owner;
    return word;
}

const char *RobotCell::runTo(int robot, const Joints &joints, int owner)
{
    return begin(robot, joints, owner);
}

const char *RobotCell::runTo(int robot, const Pose &pose, int owner)
{
    return begin(robot, pose, owner);
}

const char *RobotCell::jog(int robot, const Jog &jog, int owner)
{
    if (m_mode != kTeach)
        return armword::kNotTeaching;
    if (const char *word = objection(owner))
        return word;
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

bool RobotCell::isMoving(int robot, int owner) const
{
    return arm(robot).isMoving() && m_robots.at(static_cast<size_t>(robot - 1)).owner == owner;
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
