#pragma once

#include <array>
#include <kdl/chain.hpp>
#include <kdl/frames.hpp>
#include <optional>

constexpr int kAxes = 7;
constexpr size_t kElbow = 6; ///< place of the redundant angle in a pose

/// Axis values of an arm: radians, or mm for a linear axis; 0 past its last axis.
using Joints = std::array<double, kAxes>;
/// Where the middle of the flange is: x, y, z in mm; a, b, c in radians, turned about the fixed X,
/// then Y, then Z axis of the base; and the angle of the redundant axis of a seven-axis arm.
struct Pose {
    std::array<double, kAxes> values{};

    double &operator[](size_t i) { return values[i]; }
    double operator[](size_t i) const { return values[i]; }
};

/// In metres, as the kinematics are.
KDL::Frame toFrame(const Pose &pose);
/// The seventh value is 0. An angle of half a turn is always told as +180 degrees.
Pose toPose(const KDL::Frame &frame);

/// The kinematics of the arms by kinematic type.
///
/// | Type | Arm | What of a pose it follows |
/// | 1, 7 | six axes, articulated | x y z a b c |
/// | 2 | four axes, two links and a column, flange down | x y z c, with a = 180 degrees, b = 0 |
/// | 3, 4, 8 | the same with its flange frame up | x y z c, with a = b = 0 |
/// | 5 | one linear axis along X | x |
/// | 6 | gantry with a two-axis wrist | x y z a b, with c = 0 |
/// | 9, 10, 11 | gantry | x y z |
/// | 12 | seven axes, articulated; the third is the redundant one | all seven |
class ArmModel {
public:
    /// `type` is 1 to 12.
    explicit ArmModel(int type);

    int type() const { return m_type; }
    int axes() const { return static_cast<int>(m_chain.getNrOfJoints()); }
    bool isLinear(int axis) const { return m_isLinear.at(static_cast<size_t>(axis)); }
    const Joints &home() const { return m_home; }
    const Joints &low() const { return m_low; }
    const Joints &high() const { return m_high; }
    bool isWithinLimits(const Joints &joints) const;

    /// Places of a pose that this arm follows, in the order in which its axes are shown.
    int poseValues() const;
    size_t poseIndex(int shown) const;

    Pose pose(const Joints &joints) const;
    /// Joints within the limits that bring the flange to `pose`, as near to `start` as a solution
    /// is found; of the pose only what the arm follows counts. Nothing when it is out of reach.
    std::optional<Joints> solve(const Pose &pose, const Joints &start) const;
    /// The same for a pose close to that of `start`, without a search.
    std::optional<Joints> follow(const Pose &pose, const Joints &start) const;

private:
    enum class Family { Six, Four, One, Five, Three, Seven };

    struct Axis;
    void add(const Axis &axis);
    void buildSix();
    void buildFour();
    void buildGantry(bool wrist);
    void buildSeven();
    /// Whether a pose lies in the column that an articulated arm itself stands on.
    bool isInColumn(const Pose &pose) const;
    KDL::Frame target(const Pose &pose) const;
    std::optional<Joints> solveFrom(const KDL::Chain &chain, const KDL::Frame &frame,
                                    const Pose &pose, const Joints &seed, const Joints &near) const;
    /// The chain to solve for a pose: that of a seven-axis arm has its redundant axis held.
    KDL::Chain chainFor(const Pose &pose) const;

    int m_type;
    Family m_family;
    KDL::Chain m_chain;
    Joints m_low{};
    Joints m_high{};
    Joints m_home{};
    std::array<bool, kAxes> m_isLinear{};
};
