#pragma once

#include <algorithm>
#include <limits>

#include "geometry/vec.h"

namespace qdr {

/// Axis-parallel box, its sides included. The default box is empty: nothing overlaps it, and
/// adding to it gives what was added. A box with a NaN side overlaps nothing.
struct Box {
  double minX = std::numeric_limits<double>::infinity();
  double minY = std::numeric_limits<double>::infinity();
  double maxX = -std::numeric_limits<double>::infinity();
  double maxY = -std::numeric_limits<double>::infinity();

  void add(const Vec& p) {
    minX = std::min(minX, p.x);
    minY = std::min(minY, p.y);
    maxX = std::max(maxX, p.x);
    maxY = std::max(maxY, p.y);
  }

  void add(const Box& box) {
    minX = std::min(minX, box.minX);
    minY = std::min(minY, box.minY);
    maxX = std::max(maxX, box.maxX);
    maxY = std::max(maxY, box.maxY);
  }

  Box inflated(double margin) const {
    return {minX - margin, minY - margin, maxX + margin, maxY + margin};
  }

  bool overlaps(const Box& box) const {
    // Without branches: in an index about every second test fails, in no order to foresee.
    return (minX <= box.maxX) & (box.minX <= maxX) & (minY <= box.maxY) & (box.minY <= maxY);
  }

  bool holds(const Box& box) const {
    return minX <= box.minX && box.maxX <= maxX && minY <= box.minY && box.maxY <= maxY;
  }

  /// Square of the least distance between two boxes; 0 when they overlap.
  double distanceSqrd(const Box& box) const {
    const double dx = std::max(0.0, std::max(minX - box.maxX, box.minX - maxX));
    const double dy = std::max(0.0, std::max(minY - box.maxY, box.minY - maxY));
    return dx * dx + dy * dy;
  }
};

inline Box boxOfPoint(const Vec& p) {
  return {p.x, p.y, p.x, p.y};
}

inline Box boxOfChord(const Vec& p, const Vec& q) {
  return {std::min(p.x, q.x), std::min(p.y, q.y), std::max(p.x, q.x), std::max(p.y, q.y)};
}

}  // namespace qdr
