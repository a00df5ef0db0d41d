#include "simulator/arm.h"

#include "simulator/angles.h"
#include "simulator/armwords.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double kStep = 0.01; // seconds between two positions on the way
constexpr double kInstant = 1e-9; // seconds
constexpr double kJogTip = 100.0; // mm/s
constexpr double kJogTurn = angles::toRadians(15.0); // per second
constexpr int kFirstAngle = 3; // of a pose

} // namespace

Arm::Arm(int type) : m_model(type), m_joints(m_model.home()) { }

void Arm::setType(int type)
{
    stop();
    m_model = ArmModel(type);
    m_joints = m_model.home();
}

const char *Arm::runTo(const Joints &joints)
{
    Joints target{};
    std::copy_n(joints.begin(), m_model.axes(), target.begin());
    if (!m_model.isWithinLimits(target))
        return armword::kAxisLimit;
    m_target = target;
    m_motion = Motion::Run;
    return nullptr;
}

const char *Arm::runTo(const Pose &pose)
{
    const std::optional<Joints> joints = m_model.solve(pose, m_joints);
    return joints ? runTo(*joints) : armword::kOutOfReach;
}

const char *Arm::jog(const Jog &jog)
{
    const int axes = jog.coordinate == 0 ? m_model.axes() : m_model.poseValues();
    if (jog.axis > axes)
        return armword::kNoSuchAxis;
    m_jogLeft = kJogLasts;
    if (m_motion == Motion::Jog && m_jog == jog)
        return nullptr;
    m_jog = jog;
    m_jogPose = pose();
    m_motion = Motion::Jog;
    return nullptr;
}

void Arm::stop()
{
    m_motion = Motion::None;
}

const char *Arm::step(double seconds, const ArmSpeed &speed)
{
    // what rounding leaves of the time is too short to tell a motion from it
    while (seconds > kInstant && isMoving()) {
        const double part = std::min(seconds, kStep);
        if (const char *word = advance(part, speed)) {
            stop();
            return word;
        }
        seconds -= part;
    }
    return nullptr;
}

const char *Arm::advance(double seconds, const ArmSpeed &speed)
{
    if (m_motion == Motion::Run) {
        run(seconds, speed);
        return nullptr;
    }
    m_jogLeft -= seconds;
    if (m_jogLeft <= 0) {
        stop();
        return nullptr;
    }
    const ArmSpeed slow{std::min(speed.tip, kJogTip), std::min(speed.turn, kJogTurn)};
    return m_jog.coordinate == 0 ? jogAxis(seconds, slow) : jogPose(seconds, slow);
}

/// The part of the way to `wanted` that no axis is too slow for; 1 at most.
double Arm::share(const Joints &wanted, double seconds, const ArmSpeed &speed) const
{
    double part = 1.0;
    for (size_t i = 0; i < wanted.size(); ++i) {
        const double most =
            (m_model.isLinear(static_cast<int>(i)) ? speed.tip : speed.turn) * seconds;
        const double way = std::abs(wanted[i] - m_joints[i]);
        if (way > most)
            part = std::min(part, most / way);
    }
    return part;
}

/// How far the flange or the tip that moves most comes from one pose to the other, in mm.
double Arm::way(const Pose &from, const Pose &to) const
{
    const KDL::Vector moved(to[0] - from[0], to[1] - from[1], to[2] - from[2]);
    const KDL::Rotation before = toFrame(from).M;
    const KDL::Rotation after = toFrame(to).M;
    double farthest = moved.Norm();
    for (const KDL::Vector &tip : m_tips)
        farthest = std::max(farthest, (moved + after * tip - before * tip).Norm());
    return farthest;
}

/// As far on the straight way of the axes to `wanted` as axes, flange and tips may come in that
/// time.
Joints Arm::limited(const Joints &wanted, double seconds, const ArmSpeed &speed) const
{
    const Pose from = pose();
    double part = share(wanted, seconds, speed);
    for (;;) {
        Joints reached = wanted;
        if (part < 1.0) {
            for (size_t i = 0; i < reached.size(); ++i)
                reached[i] = m_joints[i] + part * (wanted[i] - m_joints[i]);
        }
        const double farthest = way(from, m_model.pose(reached));
        const double most = speed.tip * seconds;
        if (farthest <= most)
            return reached;
        // a little short of it, so that the bend of the way does not make this endless
        part *= 0.999 * most / farthest;
    }
}

void Arm::run(double seconds, const ArmSpeed &speed)
{
    m_joints = limited(m_target, seconds, speed);
    if (m_joints == m_target)
        stop();
}

const char *Arm::jogAxis(double seconds, const ArmSpeed &speed)
{
    const auto axis = static_cast<size_t>(m_jog.axis - 1);
    const double limit = m_jog.direction > 0 ? m_model.high()[axis] : m_model.low()[axis];
    Joints wanted = m_joints;
    wanted[axis] = limit;
    m_joints = limited(wanted, seconds, speed);
    return m_joints[axis] == limit ? armword::kAxisLimit : nullptr;
}

// Near a stretched arm or a wrist that points straight, and where a long tool swings, the way gets
// shorter until axes and tips keep up with it. Where not even a ten-thousandth of it can be gone,
// there is no way on.
const char *Arm::jogPose(double seconds, const ArmSpeed &speed)
{
    constexpr double kLeast = 1e-4;
    constexpr double kShort =
        0.98; // of what is allowed, so that the bend of the way does not matter
    const size_t index = m_model.poseIndex(m_jog.axis - 1);
    const bool turns = index >= kFirstAngle;
    const double whole = m_jog.direction * (turns ? speed.turn : speed.tip) * seconds;
    const Pose from = pose();
    for (double part = 1.0; part > kLeast;) {
        Pose wanted = m_jogPose;
        wanted[index] += part * whole;
        const std::optional<Joints> joints = m_model.follow(wanted, m_joints);
        if (!joints) {
            part /= 2;
            continue;
        }
        const double farthest = way(from, m_model.pose(*joints));
        const double allowed = std::min(share(*joints, seconds, speed),
                                        speed.tip * seconds / std::max(farthest, 1e-9));
        // what is asked for in full speed is not refused for a rounding
        if (allowed >= 1.0 - 1e-6) {
            m_joints = *joints;
            m_jogPose = wanted;
            return nullptr;
        }
        part *= kShort * allowed;
    }
    return armword::kOutOfReach;
}
