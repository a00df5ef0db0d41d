#pragma once

#include "simulator/arm.h"
#include "simulator/enablingswitches.h"

#include <vector>

/// The four robots of a controller and what they may do: drives, mode, and whose motion each of
/// them carries out.
///
/// A motion belongs to the pendant that asked for it. It goes on only while the drives are powered
/// and that pendant holds its enabling switch; whatever ends one of them ends the motion at once,
/// and so does a change of the mode. Nothing starts again by itself.
///
/// There is one set of drives, so one pendant at a time has control of all robots: the one that has
/// held its switch longest. Switching the drives off is everybody's right, and takes control from
/// whoever had it: then it goes to the first that presses its switch, or that holds it and switches
/// the drives on or asks for a motion.
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

    // `owner` is the number of a pendant's session. What returns a text returns null or a word of
    // armwords.h.

    bool servo() const { return m_servo; }
    const char *setServo(bool on, int owner);
    /// 0 teach, 1 automatic, 2 remote.
    int mode() const { return m_mode; }
    const char *setMode(int mode, int owner);

    /// `robot` is 1 to 4.
    const Arm &arm(int robot) const { return m_robots.at(static_cast<size_t>(robot - 1)).arm; }
    void setType(int robot, int type);

    // The enabling switches; `now` is in seconds. See EnablingSwitches.
    void setSwitchLasts(double seconds) { m_switches.setLasts(seconds); }
    bool holdSwitch(int owner, double now) { return m_switches.hold(owner, now); }
    void letSwitchGo(int owner);
    std::vector<int> expireSwitches(double now);
    bool holdsSwitch(int owner) const { return m_switches.isHeld(owner); }
    /// The pendant that has control; 0: none.
    int holder() const { return m_switches.holder(); }
    bool isHeldByAnother(int owner) const { return holder() != 0 && holder() != owner; }

    const char *runTo(int robot, const Joints &joints, int owner);
    const char *runTo(int robot, const Pose &pose, int owner);
    const char *jog(int robot, const Jog &jog, int owner);
    /// Stops what belongs to that pendant.
    void release(int owner);
    void stopAll();
    bool isMoving() const;
    /// Whether that robot carries out a motion of that pendant.
    bool isMoving(int robot, int owner) const;

    /// Lets the arms move for that time.
    std::vector<Stopped> step(double seconds);

private:
    struct Robot {
        Arm arm;
        int owner = 0;
    };
    Robot &at(int robot) { return m_robots.at(static_cast<size_t>(robot - 1)); }
    /// What stands against a motion of that pendant.
    const char *objection(int owner);
    template <typename Point> const char *begin(int robot, const Point &point, int owner);

    std::array<Robot, kRobots> m_robots;
    EnablingSwitches m_switches;
    bool m_servo = false;
    int m_mode = kTeach;
};
