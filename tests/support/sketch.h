#pragma once

#include <vector>

#include "geometry/point2d.h"

class CQdrDbEntity;

namespace qdr::test {

/// Side of one pixel of a sketch in world units.
inline constexpr double kSketchPixel = 0.1;

/// World coordinates of the middles of the pixels that an entity draws, on white, in a picture of
/// the square from (-20, -20) to (20, 20).
std::vector<CQdrGePoint2d> drawnPoints(CQdrDbEntity& entity);

}  // namespace qdr::test
