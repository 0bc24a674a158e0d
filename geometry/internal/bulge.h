#pragma once

#include <cmath>

#include "geometry/angle.h"
#include "geometry/tolerance.h"
#include "geometry/vector2d.h"

/// A bulge is the tangent of a quarter of the angle that a segment turns through; positive turns
/// counter-clockwise.
namespace qdr {

inline bool isArcBulge(double bulge) {
  return std::abs(bulge) > kBulgeTolerance;
}

/// Signed sweep in (-2 pi, 2 pi).
/// (1) sweepOfBulge(-b) == -sweepOfBulge(b)   (2) bulge 0 gives 0   (3) bulge 1 gives pi
inline double sweepOfBulge(double bulge) {
  return 4.0 * std::atan(bulge);
}

/// The reverse of sweepOfBulge.
inline double bulgeOfSweep(double sweep) {
  return std::tan(sweep / 4.0);
}

/// Bulge of the segment from `from` to `to` that leaves in the direction `tangent`. kBulgeTolerance
/// when the tangent lies along the chord, forward or back: no finite arc other than a flat one
/// fits there.
inline double tangentBulge(const CQdrGeVector2d& from, const CQdrGeVector2d& tangent,
                           const CQdrGeVector2d& to) {
  const CQdrGeVector2d chord = to - from;
  const double sine = tangent.x * chord.y - tangent.y * chord.x;
  const double cosine = tangent.x * chord.x + tangent.y * chord.y;
  if (std::abs(sine) <= kCollinearRatio * std::abs(cosine)) return kBulgeTolerance;
  return std::tan(std::atan2(sine, cosine) / 2.0);
}

/// Direction, not normalised, in which the segment with this chord and bulge arrives at its end.
inline CQdrGeVector2d arrivalTangent(const CQdrGeVector2d& chord, double bulge) {
  const double turn = sweepOfBulge(bulge) / 2.0;
  const double c = std::cos(turn);
  const double s = std::sin(turn);
  return {chord.x * c - chord.y * s, chord.x * s + chord.y * c};
}

}  // namespace qdr
