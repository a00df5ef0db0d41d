#pragma once

/// The controller counts in radians; texts for the screen have the same in degrees.
namespace angles {

constexpr double kPi = 3.14159265358979323846;

constexpr double toDegrees(double radians)
{
    return radians * (180.0 / kPi);
}
constexpr double toRadians(double degrees)
{
    return degrees * (kPi / 180.0);
}

} // namespace angles
