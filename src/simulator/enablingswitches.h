#pragma once

#include <vector>

/// The enabling switches of the pendants, and whose turn it is to move the robots. Times are in
/// seconds of any clock that does not go back.
///
/// A switch is held for as long as its pendant says so again and again. One that is not heard of in
/// time has lapsed: it counts as let go, and stays so, whatever is still said of it, until the
/// pendant has said that it was let go. A pendant that hung does not go on by itself.
///
/// One pendant at a time has control: the one that has stood longest in the line, which a pendant
/// joins when its switch is pressed and leaves when its switch is let go or lapses.
class EnablingSwitches {
public:
    /// From the last word of a held switch to its lapse. With a step of the arms they stand still
    /// within half a second.
    static constexpr double kLasts = 0.45;

    void setLasts(double seconds) { m_lasts = seconds; }

    /// That pendant says that its switch is held. True when it was pressed, false when it was held
    /// before or has lapsed.
    bool hold(int owner, double now);
    /// It says that the switch is let go, or its connection has ended.
    void letGo(int owner);
    bool isHeld(int owner) const;
    /// The pendants whose switches lapse now.
    std::vector<int> expire(double now);

    /// Puts a pendant that holds its switch at the end of the line, unless it stands there.
    void queue(int owner);
    /// Nobody has control, until a switch is pressed or a pendant queues.
    void emptyLine() { m_line.clear(); }
    /// The pendant that has control; 0: none.
    int holder() const { return m_line.empty() ? 0 : m_line.front(); }

private:
    struct Switch {
        int owner;
        double heard; ///< when it was last said to be held
        bool hasLapsed;
    };
    const Switch *find(int owner) const;
    void leaveLine(int owner);

    double m_lasts = kLasts;
    std::vector<Switch> m_switches; ///< those that are held or have lapsed
    std::vector<int> m_line; ///< first who has control
};
