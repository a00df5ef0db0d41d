#pragma once

#include "simulator/arm.h"

#include <vector>

/// The four robots of a controller and what they may do: drives, mode, and whose motion each of
/// them carries out.
///
/// A motion belongs to the pendant that asked for it. It goes on only while the drives are powered
/// and that pendant holds its enabling switch; whatever ends one of them ends the motion at once,
/// and so does a change of the mode. Nothing starts again by itself.
class RobotCell {
public:
    static constexpr int kRobots = 4;
    static constexpr int kTeach = 0; ///< the mode in which each tool stays below 250 mm/s

    /// A motion that ended by itself before it was done.
    struct Stopped {
        int owner;
        int robot;
        const char *word;
    };

    RobotCell();

    bool servo() const { return m_servo; }
    void setServo(bool on);
    /// 0 teach, 1 automatic, 2 remote.
    int mode() const { return m_mode; }
    void setMode(int mode);

    /// `robot` is 1 to 4.
    const Arm &arm(int robot) const { return m_robots.at(static_cast<size_t>(robot - 1)).arm; }
    void setType(int robot, int type);

    // `owner` is the number of the pendant's session. They return null or a word of armwords.h.
    const char *runTo(int robot, const Joints &joints, int owner, bool holdsDeadman);
    const char *runTo(int robot, const Pose &pose, int owner, bool holdsDeadman);
    const char *jog(int robot, const Jog &jog, int owner, bool holdsDeadman);
    /// Stops what belongs to that pendant.
    void release(int owner);
    void stopAll();
    bool isMoving() const;

    /// Lets the arms move for that time.
    std::vector<Stopped> step(double seconds);

private:
    struct Robot {
        Arm arm;
        int owner = 0;
    };
    Robot &at(int robot) { return m_robots.at(static_cast<size_t>(robot - 1)); }
    template <typename Point>
    const char *begin(int robot, const Point &point, int owner, bool holdsDeadman);

    std::array<Robot, kRobots> m_robots;
    bool m_servo = false;
    int m_mode = kTeach;
};
