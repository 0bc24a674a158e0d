#pragma once

#include "geometry/point2d.h"

namespace qdr {

/// A coordinate moved to the nearest multiple of `spacing`; half way goes toward zero. A spacing
/// not above 0 changes nothing.
double roundedToGrid(double value, double spacing);
CQdrGePoint2d roundedToGrid(const CQdrGePoint2d& point, double spacing);

}  // namespace qdr
