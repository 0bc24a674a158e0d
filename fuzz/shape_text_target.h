#pragma once

#include <algorithm>
#include <cmath>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "fuzz/demand.h"
#include "geometry/polyline2d.h"
#include "geometry/tolerance.h"
#include "tools/polyline_text.h"

namespace qdr_fuzz {

/// Shapes of more vertices are read, but not measured, crossed and offset: each of these may look
/// at every pair of segments.
inline constexpr int kMostVertices = 100;

/// Reads a shape. What was read can be written and read again; false when the text is none.
inline bool readShape(std::string_view text, CQdrGePolyline2d& shape) {
  if (const auto fault = qdr_tools::parsePolyline(text, shape)) {
    const auto lines = std::count(text.begin(), text.end(), '\n');
    demand(fault->line >= 1 && fault->line <= static_cast<std::size_t>(lines) + 1);
    demand(fault->column >= 1 && fault->column <= text.size() + 1 && !fault->reason.empty());
    return false;
  }
  CQdrGePolyline2d again;
  demand(!qdr_tools::parsePolyline(qdr_tools::polylineText(shape), again));
  demand(again.numVerts() == shape.numVerts() && again.isClosed() == shape.isClosed());
  return shape.numVerts() <= kMostVertices;
}

inline void measure(const CQdrGePolyline2d& shape, const CQdrGePoint2d& place) {
  CQdrGePoint2d min;
  CQdrGePoint2d max;
  shape.getMinMaxpoint(min, max);
  demand(min.x <= max.x && min.y <= max.y);
  demand(shape.length() >= 0);
  shape.isInsidePoint(place);
  const CQdrGePoint2d closest = shape.closestPointTo(place, qdr::kCurveTolerance);
  shape.paramAtPoint(closest, qdr::kSameHitTolerance);
}

inline void cross(const CQdrGePolyline2d& first, const CQdrGePolyline2d& second) {
  using Entity = CQdrGeEntity2d;
  for (const auto mode :
       {Entity::kExtendNone, Entity::kExtendThis, Entity::kExtendArg, Entity::kExtendBoth}) {
    int count = 0;
    std::vector<CQdrGePoint2d> points;
    first.intersectWith(second, count, points, mode, qdr::kCurveTolerance);
    demand(count == static_cast<int>(points.size()));
    std::map<double, CQdrGePoint2d> keyed;
    first.intersectWith(second, count, keyed, mode, qdr::kCurveTolerance);
  }
}

inline void offset(const CQdrGePolyline2d& shape, const CQdrGePoint2d& side, double distance) {
  std::vector<void*> found;
  const int count = shape.offset(side, distance, found, true);
  demand(count == static_cast<int>(found.size()));
  for (void* piece : found) {
    const std::unique_ptr<CQdrGePolyline2d> owned(static_cast<CQdrGePolyline2d*>(piece));
    demand(owned->numVerts() >= 2);
  }
  CQdrGePolyline2d longest = shape;
  if (!longest.offset(side, distance)) demand(longest == shape);
}

/// Takes "SHAPE;OTHER;PLACE;DISTANCE": measures the shape from the place, crosses it with the other
/// one, and offsets it to the side of the place. What is missing or none is left out.
inline void tryShapes(std::string_view text) {
  std::string_view fields[4];
  for (std::string_view& field : fields) {
    field = text.substr(0, text.find(';'));
    text.remove_prefix(std::min(field.size() + 1, text.size()));
  }
  CQdrGePolyline2d shape;
  CQdrGePolyline2d other;
  if (!readShape(fields[0], shape)) return;
  cross(shape, shape);
  if (readShape(fields[1], other)) cross(shape, other);
  CQdrGePoint2d place;
  if (qdr_tools::parsePoint(fields[2], place)) return;
  measure(shape, place);
  CQdrGePoint2d distance;
  const std::string written = std::string(fields[3]) + ",0";
  if (!qdr_tools::parsePoint(written, distance)) offset(shape, place, std::abs(distance.x));
}

}  // namespace qdr_fuzz
