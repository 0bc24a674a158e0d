#pragma once

#include "entities/polyline.h"

namespace qdr {

/// What a grip of a polyline takes hold of: a vertex, or the middle of the arc behind it.
struct GripPlace {
  int vertex = -1;
  bool isMiddle = false;
};

inline bool hasMiddle(const CQdrDbPolyline& polyline, int vertex) {
  return polyline.SegType(vertex) == CQdrGePolyline2d::kArcSeg;
}

/// Grips run along the chain; each arc has one behind that of its vertex. Vertex -1 for no grip.
inline GripPlace placeOf(const CQdrDbPolyline& polyline, int grip) {
  for (int vertex = 0; vertex < polyline.NumVerts(); ++vertex) {
    if (grip-- == 0) return {vertex, false};
    if (hasMiddle(polyline, vertex) && grip-- == 0) return {vertex, true};
  }
  return {};
}

}  // namespace qdr
