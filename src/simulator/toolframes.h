#pragma once

#include <array>

/// The tools that a robot of the simulated controller has, each its tip as seen from the flange.
namespace toolframes {

constexpr int kTools = 9;
using Frame = std::array<double, 6>; ///< x, y, z in mm; a, b, c in radians

/// `robot` is 1 to 4, `tool` 1 to 9.
Frame frameOf(int robot, int tool);

} // namespace toolframes
