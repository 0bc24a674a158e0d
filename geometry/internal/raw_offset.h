#pragma once

#include <vector>

#include "geometry/internal/travel_segment.h"
#include "geometry/vec.h"

namespace qdr {

/// Vertices of a chain and the bulge of the segment that starts at each.
struct VertexChain {
  std::vector<Vec> points;
  std::vector<double> bulges;

  std::size_t size() const { return points.size(); }
  void add(const Vec& point, double bulge) {
    points.push_back(point);
    bulges.push_back(bulge);
  }
};

/// What an offset is asked for. `direction` is +1 for the left of the travel, -1 for the right.
struct OffsetRequest {
  double distance = 0.0;
  int direction = 1;
  bool closed = false;
};

/// Boxes of the places on the source about which a raw offset lacks part of the border of the
/// distance: merged vertices, arcs not above the distance, and vertices that are passed neither in
/// a sharp corner nor by an arc.
using BorderGaps = std::vector<Box>;

// Each of the following appends the gaps that it leaves, when it is given a place for them.

/// The chain without the vertices that lie within 0.05 of the one kept before them.
VertexChain withoutNearVertices(const VertexChain& chain, BorderGaps* gaps = nullptr);

/// The chain as the raw offset wants it: arcs that turn toward the offset side and are no larger
/// than the distance become their chords, and a segment that its neighbour crosses a second time is
/// split between crossing and vertex.
VertexChain preparedForOffset(const VertexChain& chain, const OffsetRequest& request,
                              BorderGaps* gaps = nullptr);

/// Every segment moved by the distance and joined to its follower; crossings with itself stay in.
/// A closed chain repeats its first vertex at the end. The chain itself when no segment can be
/// offset.
VertexChain rawOffset(const VertexChain& chain, const OffsetRequest& request,
                      BorderGaps* gaps = nullptr);

/// Whether the raw offset goes round the vertex between two segments in a sharp corner, on the side
/// where the parallels part: not with a connector, an arc, or without one of the two.
bool joinsSharply(const TravelSegment& segment, const TravelSegment& follower, double distance);

}  // namespace qdr
