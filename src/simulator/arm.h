#pragma once

#include "simulator/armmodel.h"

#include <utility>
#include <vector>

/// How fast an arm may go.
struct ArmSpeed {
    double tip; ///< mm/s at the flange and at every tip, also the most of a linear axis
    double turn; ///< rad/s of a turning axis
};

/// A jog: one axis, forwards or backwards, for as long as it is asked for again and again.
struct Jog {
    int axis = 0; ///< 1 to 7; 0: none
    int direction = 0; ///< +1 or -1
    int coordinate = 0; ///< 0 an axis of the arm, 1 a value of its pose

    bool operator==(const Jog &other) const
    {
        return axis == other.axis && direction == other.direction && coordinate == other.coordinate;
    }
};

/// One simulated arm: where it is, and where it is going. It moves in step() alone, by simulated
/// time. The calls that begin a motion, and step(), return null or the word of what stands against
/// it, from armwords.h.
class Arm {
public:
    /// A jog that is not asked for again within this time ends, in seconds.
    static constexpr double kJogLasts = 0.6;

    explicit Arm(int type = 1);
    /// Becomes an arm of another kinematic type, at its home position.
    void setType(int type);
    /// The tips, as seen from the flange in mm, that are held to the speed as the flange is. A
    /// controller that is not told which tool is in use names them all.
    void setTips(std::vector<KDL::Vector> tips) { m_tips = std::move(tips); }

    const ArmModel &model() const { return m_model; }
    const Joints &joints() const { return m_joints; }
    Pose pose() const { return m_model.pose(m_joints); }

    const char *runTo(const Joints &joints);
    const char *runTo(const Pose &pose);
    /// Begins a jog or, when it is the one under way, goes on with it.
    const char *jog(const Jog &jog);
    void stop();
    bool isMoving() const { return m_motion != Motion::None; }

    const char *step(double seconds, const ArmSpeed &speed);

private:
    enum class Motion { None, Run, Jog };

    const char *advance(double seconds, const ArmSpeed &speed);
    void run(double seconds, const ArmSpeed &speed);
    const char *jogAxis(double seconds, const ArmSpeed &speed);
    const char *jogPose(double seconds, const ArmSpeed &speed);
    Joints limited(const Joints &wanted, double seconds, const ArmSpeed &speed) const;
    double share(const Joints &wanted, double seconds, const ArmSpeed &speed) const;
    double way(const Pose &from, const Pose &to) const;

    ArmModel m_model;
    Joints m_joints;
    std::vector<KDL::Vector> m_tips;
    Motion m_motion = Motion::None;
    Joints m_target{}; ///< of a run
    Jog m_jog; ///< under way
    Pose m_jogPose{}; ///< where a jog of the pose has come to
    double m_jogLeft = 0; ///< seconds
};
