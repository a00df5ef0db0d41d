#pragma once

#include "simulator/armmodel.h"

#include <optional>

class ParameterStore;

/// User coordinates: nine frames per robot, each from three taught points.
namespace userframe {

/// The frame with its origin at `origin`, its X axis towards `alongX`, and `alongY` on the side of
/// its XY plane where Y is positive. Nothing when the points lie on one line or on one place: less
/// than 1 mm, or half a degree, apart.
std::optional<Pose> fromPoints(const KDL::Vector &origin, const KDL::Vector &alongX,
                               const KDL::Vector &alongY);

/// The frame that is switched on for a robot; that of the base when none ever was, or when it was
/// never calculated.
Pose current(const ParameterStore &store, int robot);

} // namespace userframe
