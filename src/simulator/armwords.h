#pragma once

/// What a controller says in a status message when an arm does not move or stops by itself. The
/// pendant has a text for each; docs/link-protocol.md lists them.
namespace armword {

constexpr char kNotEnabled[] = "notEnabled"; ///< servo off or enabling switch not held
constexpr char kControlHeld[] = "controlHeld"; ///< another pendant has control
constexpr char kNotRenewed[] = "notRenewed"; ///< a held enabling switch was not heard of in time
constexpr char kNotTeaching[] = "notTeaching"; ///< jogging is for teach mode
constexpr char kOutOfReach[] = "outOfReach"; ///< no position of the axes leads there
constexpr char kAxisLimit[] = "axisLimit"; ///< an axis would leave its range
constexpr char kNoSuchAxis[] = "noSuchAxis"; ///< the arm has fewer axes

} // namespace armword
