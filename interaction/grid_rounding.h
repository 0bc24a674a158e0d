#pragma once

#include "geometry/point2d.h"

namespace qdr {

/// True for a distance that nodes of a grid can stand at: finite and above 0.
bool isGridStep(double step);

/// A coordinate moved to the nearest multiple of `spacing`; half way goes toward zero. A spacing
/// that is no grid step changes nothing.
double roundedToGrid(double value, double spacing);
CQdrGePoint2d roundedToGrid(const CQdrGePoint2d& point, double spacing);

}  // namespace qdr
