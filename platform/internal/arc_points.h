#pragma once

#include <vector>

#include "platform/device_surface.h"

namespace qdr {

/// A piece of an arc that can be seen: the points along it at equal angles, the angle walked before
/// it and along it, both not below 0.
struct ArcPiece {
  struct Point {
    double x = 0;
    double y = 0;
  };
  std::vector<Point> points;
  double angleBefore = 0;
  double sweep = 0;
};

/// The point of the arc at an angle in radians.
ArcPiece::Point pointOfArc(const DeviceArc& arc, double angle);

/// That point as device integers, halves away from zero.
CPoint devicePointOfArc(const DeviceArc& arc, double angle);

/// The parts of the arc inside `reach` as chords that leave it by at most an eighth of a device
/// unit, at most ten of them. The number of chords follows what is seen, not the radius.
std::vector<ArcPiece> visibleArc(const DeviceArc& arc, const CRect& reach);

}  // namespace qdr
