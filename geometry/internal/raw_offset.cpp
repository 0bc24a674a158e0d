#include "geometry/internal/raw_offset.h"

#include <cmath>

#include "geometry/internal/bulge.h"
#include "geometry/internal/curve_intersection.h"
#include "geometry/internal/segment_join.h"
#include "geometry/internal/travel_segment.h"
#include "geometry/tolerance.h"

namespace qdr {

namespace {

bool isWithin(const Vec& a, const Vec& b, double tol) {
  return distanceSqrd(a, b) <= tol * tol;
}

VertexChain withoutNearVertices(const VertexChain& chain) {
  VertexChain kept;
  kept.points.reserve(chain.size() + 1);
  kept.bulges.reserve(chain.size() + 1);
  for (std::size_t i = 0; i < chain.size(); ++i) {
    if (i > 0 && isWithin(chain.points[i], kept.points.back(), kMergeTolerance)) continue;
    kept.add(chain.points[i], chain.bulges[i]);
  }
  return kept;
}

/// An arc that the offset would shrink to nothing becomes its chord.
TravelSegment straightenedIfSwallowed(const TravelSegment& segment, const OffsetRequest& request) {
  const bool turnsToward = segment.bulge * request.direction > 0.0;
  if (!turnsToward || segment.radius > request.distance) return segment;
  return makeSegment(segment.start, segment.end, 0.0);
}

/// Parameter on `earlier` of the crossing with its follower that is not their shared vertex; -1
/// when there is none. On an arc the parameter runs counter-clockwise.
double secondCrossing(const TravelSegment& earlier, const TravelSegment& later) {
  if (!earlier.isArc() && !later.isArc()) return -1.0;
  const Meeting meeting = meetSegments(earlier, later);
  for (int k = 0; k < meeting.count; ++k) {
    const double travelled = earlier.paramOf(meeting.points[k]);
    const double t = earlier.bulge < 0.0 ? 1.0 - travelled : travelled;
    if (t > kSharedVertexParam && t < 1.0 - kSharedVertexParam) return t;
  }
  return -1.0;
}

/// Appends `segment` as one vertex, or as two when `follower` crosses it away from their vertex:
/// the split lies between the crossing and the vertex.
void appendSplitAtCrossing(const TravelSegment& segment, const TravelSegment& follower,
                           VertexChain& chain) {
  const double t = secondCrossing(segment, follower);
  if (t < 0.0) {
    chain.add(segment.start, segment.bulge);
    return;
  }
  const double travelled = segment.bulge < 0.0 ? 1.0 - t / 2.0 : (t + 1.0) / 2.0;
  const double sweep = segment.sweep();
  chain.add(segment.start, bulgeOfSweep(sweep * travelled));
  chain.add(segment.pointAt(travelled), bulgeOfSweep(sweep * (1.0 - travelled)));
}

/// The segment moved sideways; its length stays 0 when it cannot be offset.
bool offsetSegment(const TravelSegment& segment, const OffsetRequest& request,
                   TravelSegment& moved) {
  const double shift = request.distance * request.direction;
  if (!segment.isArc()) {
    const Vec chord = segment.end - segment.start;
    const double size = chord.length();
    if (!(size > kTinySegment)) return false;
    const Vec normal = chord.perpVector() * (shift / size);
    moved = segment;
    moved.start += normal;
    moved.end += normal;
    return true;
  }
  if (request.distance >= segment.radius) return false;
  const double radius = segment.radius - (segment.bulge > 0.0 ? shift : -shift);
  const double ratio = radius / segment.radius;
  moved = segment;
  moved.radius = radius;
  moved.start = segment.center + (segment.start - segment.center) * ratio;
  moved.end = segment.center + (segment.end - segment.center) * ratio;
  return true;
}

/// The chain as a list of segments to offset; a closed chain ends where it starts.
std::vector<TravelSegment> sourceSegments(const VertexChain& chain, bool closed, bool& isLoop) {
  VertexChain source = chain;
  if (closed) source.add(source.points.front(), source.bulges.front());
  const std::size_t size = source.size();
  if (closed && size > 1 &&
      isWithin(source.points[size - 1], source.points[size - 2], kRepeatTolerance)) {
    source.points.pop_back();
    source.bulges.pop_back();
  }
  isLoop =
      source.size() > 2 && isWithin(source.points.back(), source.points.front(), kPointTolerance);
  return segmentsOf(source.points, source.bulges, false);
}

/// The chain itself, bit for bit, with the closing segment as one of its own.
VertexChain unmoved(const VertexChain& chain, bool closed) {
  VertexChain copy = chain;
  if (closed && !isWithin(chain.points.back(), chain.points.front(), kRepeatTolerance))
    copy.add(chain.points.front(), 0.0);
  return copy;
}

/// The joined segments as vertices: each where its marks are, what its join puts behind it.
VertexChain emitJoined(const std::vector<OffsetPart>& parts, bool isLoop) {
  VertexChain raw;
  raw.points.reserve(parts.size() + parts.size() / 2 + 1);
  raw.bulges.reserve(parts.size() + parts.size() / 2 + 1);
  for (const OffsetPart& part : parts) {
    raw.add(part.from, part.bulge());
    if (part.hasConnector) raw.add(part.to, part.connectorBulge);
  }
  raw.add(isLoop ? parts.front().from : parts.back().to, 0.0);
  return raw;
}

}  // namespace

VertexChain preparedForOffset(const VertexChain& chain, const OffsetRequest& request) {
  const VertexChain kept = withoutNearVertices(chain);
  if (request.distance == 0.0) return kept;
  std::vector<TravelSegment> segments = segmentsOf(kept.points, kept.bulges, request.closed);
  for (TravelSegment& segment : segments)
    segment = straightenedIfSwallowed(segment, request);

  VertexChain prepared;
  prepared.points.reserve(kept.size() + 1);
  prepared.bulges.reserve(kept.size() + 1);
  for (std::size_t i = 0; i < segments.size(); ++i) {
    const bool hasFollower = i + 1 < segments.size();
    if (hasFollower || (request.closed && segments.size() > 1)) {
      appendSplitAtCrossing(segments[i], segments[hasFollower ? i + 1 : 0], prepared);
    } else {
      prepared.add(segments[i].start, segments[i].bulge);
    }
  }
  if (!request.closed && !kept.points.empty()) prepared.add(kept.points.back(), kept.bulges.back());
  return prepared;
}

VertexChain rawOffset(const VertexChain& chain, const OffsetRequest& request) {
  if (chain.size() < 2) return chain;
  if (request.distance == 0.0) return unmoved(chain, request.closed);
  bool isLoop = false;
  const std::vector<TravelSegment> source = sourceSegments(chain, request.closed, isLoop);
  std::vector<OffsetPart> parts;
  parts.reserve(source.size());
  for (const TravelSegment& segment : source) {
    TravelSegment moved;
    if (offsetSegment(segment, request, moved)) parts.emplace_back(moved, segment.start);
  }
  if (parts.empty()) return chain;
  for (std::size_t k = 0; k + 1 < parts.size(); ++k)
    joinParts(parts[k], parts[k + 1]);
  isLoop = isLoop && parts.size() > 1;
  if (isLoop) joinParts(parts.back(), parts.front());
  return emitJoined(parts, isLoop);
}

}  // namespace qdr
