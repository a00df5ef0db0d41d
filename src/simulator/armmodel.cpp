#include "simulator/armmodel.h"

#include "simulator/angles.h"

#include <algorithm>
#include <cmath>
#include <kdl/chainfksolverpos_recursive.hpp>
#include <kdl/chainiksolverpos_lma.hpp>

using angles::kPi;
using angles::toRadians;

namespace {

constexpr double kMetre = 1000.0; // mm; the chains are in metres
constexpr size_t kRedundant = 2;

constexpr double kSolvedTo = 1e-4; // mm and radians, of a solution that counts
constexpr double kNudge = 0.002; // radians
constexpr int kSearches = 40;
constexpr int kIterations = 120;

/// Above -180 degrees, at most 180.
double wrapped(double angle)
{
    double turned = std::remainder(angle, 2 * kPi);
    if (turned <= -kPi + 1e-6)
        turned += 2 * kPi;
    return turned;
}

/// Numbers from 0 to 1 that are the same in every run.
class Spread {
public:
    double next()
    {
        m_state = m_state * 1664525u + 1013904223u;
        return m_state / 4294967296.0;
    }

private:
    unsigned m_state = 20240229u;
};

} // namespace

KDL::Frame toFrame(const Pose &pose)
{
    return {KDL::Rotation::RPY(pose[3], pose[4], pose[5]),
            KDL::Vector(pose[0], pose[1], pose[2]) / kMetre};
}

Pose toPose(const KDL::Frame &frame)
{
    double a = 0;
    double b = 0;
    double c = 0;
    frame.M.GetRPY(a, b, c);
    return {{frame.p.x() * kMetre, frame.p.y() * kMetre, frame.p.z() * kMetre, wrapped(a), b,
             wrapped(c), 0.0}};
}

// ---- the chains ---------------------------------------------------------------------------------

/// One axis: what it turns about or runs along, what lies between it and the next one, and its
/// limits and home in degrees or mm.
struct ArmModel::Axis {
    KDL::Joint::JointType kind;
    KDL::Frame link;
    double low;
    double high;
    double home;
};

void ArmModel::add(const Axis &axis)
{
    const bool isLinear = axis.kind == KDL::Joint::TransX || axis.kind == KDL::Joint::TransY
        || axis.kind == KDL::Joint::TransZ;
    const auto i = static_cast<size_t>(axes());
    const auto value = [isLinear](double given) { return isLinear ? given : toRadians(given); };
    m_isLinear.at(i) = isLinear;
    m_low.at(i) = value(axis.low);
    m_high.at(i) = value(axis.high);
    m_home.at(i) = value(axis.home);
    m_chain.addSegment(KDL::Segment(KDL::Joint(axis.kind), axis.link));
}

void ArmModel::buildSix()
{
    using KDL::Frame;
    using KDL::Joint;
    using KDL::Vector;
    // Stretched up, the forearm along X; the flange's z axis points away from the arm.
    const Frame flange(KDL::Rotation::RotY(kPi / 2) * KDL::Rotation::RotZ(kPi), Vector(0.1, 0, 0));
    m_chain.addSegment(KDL::Segment(Joint(Joint::None), Frame(Vector(0, 0, 0.3))));
    add({Joint::RotZ, Frame(Vector(0.15, 0, 0.2)), -170, 170, 0});
    add({Joint::RotY, Frame(Vector(0, 0, 0.7)), -90, 130, 0});
    add({Joint::RotY, Frame(Vector(0.4, 0, 0.12)), -110, 150, 0});
    add({Joint::RotX, Frame(Vector(0.35, 0, 0)), -185, 185, 0});
    add({Joint::RotY, Frame(), -125, 125, 90});
    add({Joint::RotX, flange, -360, 360, 0});
}

void ArmModel::buildFour()
{
    using KDL::Frame;
    using KDL::Joint;
    using KDL::Vector;
    const Frame flange = m_type == 2 ? Frame(KDL::Rotation::RotX(kPi)) : Frame();
    add({Joint::RotZ, Frame(Vector(0.75, 0, 0)), -170, 170, -40});
    add({Joint::RotZ, Frame(Vector(0.65, 0, 0)), -150, 150, 80});
    add({Joint::TransZ, Frame(), 0, 1600, 800});
    add({Joint::RotZ, flange, -360, 360, -40});
}

void ArmModel::buildGantry(bool wrist)
{
    using KDL::Frame;
    using KDL::Joint;
    add({Joint::TransX, Frame(), 0, 3000, 500});
    if (m_family == Family::One)
        return;
    add({Joint::TransY, Frame(), -1500, 1500, 0});
    add({Joint::TransZ, Frame(), 0, 2000, 1000});
    if (!wrist)
        return;
    add({Joint::RotY, Frame(), -85, 85, 0});
    add({Joint::RotX, Frame(KDL::Rotation::RotX(kPi)), -170, 170, 0});
}

void ArmModel::buildSeven()
{
    using KDL::Frame;
    using KDL::Joint;
    using KDL::Vector;
    const Frame flange(KDL::Rotation::RotZ(kPi), Vector(0, 0, 0.12));
    m_chain.addSegment(KDL::Segment(Joint(Joint::None), Frame(Vector(0, 0, 0.4))));
    add({Joint::RotZ, Frame(), -170, 170, 0});
    add({Joint::RotY, Frame(Vector(0, 0, 0.6)), -120, 120, 30});
    add({Joint::RotZ, Frame(), -170, 170, 0});
    add({Joint::RotY, Frame(Vector(0, 0, 0.55)), -140, 140, 80});
    add({Joint::RotZ, Frame(), -170, 170, 0});
    add({Joint::RotY, Frame(), -120, 120, 70});
    add({Joint::RotZ, flange, -360, 360, 0});
}

ArmModel::ArmModel(int type) : m_type(type)
{
    switch (type) {
    case 2:
    case 3:
    case 4:
    case 8:
        m_family = Family::Four;
        buildFour();
        break;
    case 5:
        m_family = Family::One;
        buildGantry(false);
        break;
    case 6:
        m_family = Family::Five;
        buildGantry(true);
        break;
    case 9:
    case 10:
    case 11:
        m_family = Family::Three;
        buildGantry(false);
        break;
    case 12:
        m_family = Family::Seven;
        buildSeven();
        break;
    default:
        m_family = Family::Six;
        buildSix();
        break;
    }
}

bool ArmModel::isWithinLimits(const Joints &joints) const
{
    constexpr double kSlack = 1e-9;
    for (size_t i = 0; i < static_cast<size_t>(axes()); ++i) {
        // written so that a value which is no number is outside
        if (!(joints[i] >= m_low[i] - kSlack && joints[i] <= m_high[i] + kSlack))
            return false;
    }
    return true;
}

bool ArmModel::isInColumn(const Pose &pose) const
{
    constexpr double kRadius = 250.0; // mm
    constexpr double kHeight = 700.0;
    return (m_family == Family::Six || m_family == Family::Seven) && pose[2] < kHeight
        && std::hypot(pose[0], pose[1]) < kRadius;
}

int ArmModel::poseValues() const
{
    return axes();
}

size_t ArmModel::poseIndex(int shown) const
{
    // The four-axis arms have their one angle, c, on the fourth place of what is shown.
    return m_family == Family::Four && shown == 3 ? 5 : static_cast<size_t>(shown);
}

// ---- forward and inverse ------------------------------------------------------------------------

Pose ArmModel::pose(const Joints &joints) const
{
    KDL::JntArray values(m_chain.getNrOfJoints());
    for (unsigned i = 0; i < values.rows(); ++i)
        values(i) = m_isLinear[i] ? joints[i] / kMetre : joints[i];
    KDL::ChainFkSolverPos_recursive forward(m_chain);
    KDL::Frame frame;
    forward.JntToCart(values, frame);
    Pose pose = toPose(frame);
    if (m_family == Family::Seven)
        pose[kElbow] = joints[kRedundant];
    return pose;
}

KDL::Frame ArmModel::target(const Pose &pose) const
{
    Pose own = pose;
    switch (m_family) {
    case Family::Four:
        own[3] = m_type == 2 ? kPi : 0.0;
        own[4] = 0.0;
        break;
    case Family::One:
        own[1] = own[2] = own[3] = own[4] = own[5] = 0.0;
        break;
    case Family::Five:
        own[5] = 0.0;
        break;
    case Family::Three:
        own[3] = own[4] = own[5] = 0.0;
        break;
    case Family::Six:
    case Family::Seven:
        break;
    }
    return toFrame(own);
}

KDL::Chain ArmModel::chainFor(const Pose &pose) const
{
    if (m_family != Family::Seven)
        return m_chain;
    KDL::Chain held;
    size_t joint = 0;
    for (const KDL::Segment &segment : m_chain.segments) {
        const bool moves = segment.getJoint().getType() != KDL::Joint::None;
        if (moves && joint == kRedundant)
            held.addSegment(KDL::Segment(KDL::Joint(KDL::Joint::None), segment.pose(pose[kElbow])));
        else
            held.addSegment(segment);
        joint += moves ? 1 : 0;
    }
    return held;
}

std::optional<Joints> ArmModel::solveFrom(const KDL::Chain &chain, const KDL::Frame &frame,
                                          const Pose &pose, const Joints &seed,
                                          const Joints &near) const
{
    const bool held = m_family == Family::Seven;
    const auto axisOf = [held](unsigned i) { return held && i >= kRedundant ? i + 1u : i; };
    KDL::JntArray start(chain.getNrOfJoints());
    for (unsigned i = 0; i < start.rows(); ++i) {
        const unsigned axis = axisOf(i);
        start(i) = m_isLinear[axis] ? seed[axis] / kMetre : seed[axis];
    }
    KDL::ChainIkSolverPos_LMA inverse(chain, 1e-9, kIterations, 1e-14);
    KDL::JntArray solution(chain.getNrOfJoints());
    // How it ended says less than where: what counts is how far the pose is missed.
    inverse.CartToJnt(start, frame, solution);

    Joints joints{};
    if (held)
        joints[kRedundant] = pose[kElbow];
    for (unsigned i = 0; i < solution.rows(); ++i) {
        const unsigned axis = axisOf(i);
        double value = m_isLinear[axis] ? solution(i) * kMetre : solution(i);
        if (!m_isLinear[axis]) {
            // the turn that is nearest to where the axis stands, or else one within its limits
            value = near[axis] + std::remainder(value - near[axis], 2 * kPi);
            if (value > m_high[axis])
                value -= 2 * kPi;
            else if (value < m_low[axis])
                value += 2 * kPi;
        }
        joints[axis] = value;
    }
    if (!isWithinLimits(joints) || isInColumn(pose))
        return std::nullopt;
    const KDL::Twist missed = KDL::diff(toFrame(this->pose(joints)), frame);
    if (!(missed.vel.Norm() * kMetre < kSolvedTo && missed.rot.Norm() < kSolvedTo))
        return std::nullopt;
    return joints;
}

std::optional<Joints> ArmModel::follow(const Pose &pose, const Joints &start) const
{
    const KDL::Chain chain = chainFor(pose);
    const KDL::Frame frame = target(pose);
    if (const std::optional<Joints> found = solveFrom(chain, frame, pose, start, start))
        return found;
    // An arm that is stretched exactly has no direction back: it is found from beside.
    Joints beside = start;
    for (size_t i = 0; i < static_cast<size_t>(axes()); ++i)
        beside[i] += m_isLinear[i] ? 0.0 : kNudge;
    return solveFrom(chain, frame, pose, beside, start);
}

std::optional<Joints> ArmModel::solve(const Pose &pose, const Joints &start) const
{
    const KDL::Chain chain = chainFor(pose);
    const KDL::Frame frame = target(pose);
    if (const std::optional<Joints> found = solveFrom(chain, frame, pose, start, start))
        return found;
    // The home position turned towards the point, then positions all over the range.
    Joints seed = m_home;
    if (!m_isLinear[0])
        seed[0] = std::clamp(std::atan2(pose[1], pose[0]), m_low[0], m_high[0]);
    Spread spread;
    for (int search = 0; search < kSearches; ++search) {
        if (const std::optional<Joints> found = solveFrom(chain, frame, pose, seed, start))
            return found;
        for (size_t i = 0; i < static_cast<size_t>(axes()); ++i)
            seed[i] = m_low[i] + spread.next() * (m_high[i] - m_low[i]);
    }
    return std::nullopt;
}
