#pragma once

#include <cmath>

#include "geometry/point2d.h"
#include "geometry/vector2d.h"

/// Positions and displacements inside algorithms: 16 bytes without a table, where a point has 32.
namespace qdr {

using Vec = CQdrGeVector2d;

constexpr Vec toVec(const CQdrGePoint2d& p) {
  return {p.x, p.y};
}

constexpr CQdrGePoint2d toPoint(const Vec& v) {
  return {v.x, v.y};
}

constexpr double dot(const Vec& a, const Vec& b) {
  return a.x * b.x + a.y * b.y;
}

/// Positive when `b` points to the left of `a`.
constexpr double cross(const Vec& a, const Vec& b) {
  return a.x * b.y - a.y * b.x;
}

constexpr double distanceSqrd(const Vec& a, const Vec& b) {
  return (a - b).lengthSqrd();
}

inline double distance(const Vec& a, const Vec& b) {
  return std::sqrt(distanceSqrd(a, b));
}

/// Whether two places are no farther apart than `reach`.
constexpr bool areWithin(const Vec& a, const Vec& b, double reach) {
  return distanceSqrd(a, b) <= reach * reach;
}

}  // namespace qdr
