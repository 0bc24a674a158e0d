#pragma once

#include <vector>

#include "geometry/point2d.h"
#include "geometry/vector2d.h"

namespace qdr {

/// The cubic spans through a list of points: span i has its chord and the tangents at its ends,
/// both in its own parameter.
struct CubicSpans {
  std::vector<CQdrGeVector2d> chords;
  std::vector<CQdrGeVector2d> startTangents;
  std::vector<CQdrGeVector2d> endTangents;
};

/// The spans of the curve through two points or more; of a closed one the last leads back to the
/// first point. The tangents are those of two Jacobi sweeps over the system that makes the second
/// derivative continuous, with a first row of 2, 2 in an open curve: they are part of the curve's
/// shape, not an approximation to be bettered.
CubicSpans cubicSpans(const std::vector<CQdrGePoint2d>& points, bool isClosed);

}  // namespace qdr
