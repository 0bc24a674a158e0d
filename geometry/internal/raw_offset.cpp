#include "geometry/internal/raw_offset.h"

#include <algorithm>
#include <cmath>

#include "geometry/internal/bulge.h"
#include "geometry/internal/curve_intersection.h"
#include "geometry/internal/segment_join.h"
#include "geometry/internal/travel_segment.h"
#include "geometry/tolerance.h"

namespace qdr {

namespace {

/// An arc that the offset would shrink to nothing becomes its chord.
TravelSegment straightenedIfSwallowed(const TravelSegment& segment, const OffsetRequest& request) {
  const bool turnsToward = segment.bulge * request.direction > 0.0;
  if (!turnsToward || segment.radius > request.distance) return segment;
  return makeSegment(segment.start, segment.end, 0.0);
}

/// Parameter on `earlier` of the crossing with its follower that is not their shared vertex; -1
/// when there is none. On an arc the parameter runs counter-clockwise.
double secondCrossing(const TravelSegment& earlier, const TravelSegment& later) {
  const Meeting meeting = meetNeighbours(earlier, later, earlier.end);
  if (meeting.count == 0) return -1.0;
  const double travelled = earlier.paramOf(meeting.points[0]);
  const double t = earlier.bulge < 0.0 ? 1.0 - travelled : travelled;
  const bool isShared = !(t > kSharedVertexParam && t < 1.0 - kSharedVertexParam);
  return isShared ? -1.0 : t;
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

/// The segments to offset: of a closed chain up to the return to its start.
struct SourceRange {
  std::size_t count = 0;
  bool isLoop = false;  // the last one ends where the first begins
};

SourceRange sourceRange(const VertexChain& chain, bool closed) {
  const std::vector<Vec>& points = chain.points;
  const bool repeatsStart = areWithin(points.back(), points.front(), kRepeatTolerance);
  const bool returns = closed && !repeatsStart;
  SourceRange range;
  range.count = points.size() - (returns ? 0 : 1);
  range.isLoop =
      returns || (points.size() > 2 && areWithin(points.back(), points.front(), kPointTolerance));
  return range;
}

/// The chain itself, bit for bit, with the closing segment as one of its own.
VertexChain unmoved(const VertexChain& chain, bool closed) {
  VertexChain copy = chain;
  if (closed && !areWithin(chain.points.back(), chain.points.front(), kRepeatTolerance))
    copy.add(chain.points.front(), 0.0);
  return copy;
}

/// Joins the parts one after the other and writes each out once both of its ends are known.
class PartWriter {
 public:
  PartWriter(std::size_t room, const OffsetRequest& request, BorderGaps* gaps)
      : m_request(request), m_gaps(gaps) {
    m_raw.points.reserve(room);
    m_raw.bulges.reserve(room);
  }

  void add(OffsetPart part) {
    if (m_count++ > 0) {
      joinParts(m_last, part);
      noteGap(m_last, part);
      write(m_last);
    }
    m_last = part;
  }

  bool isEmpty() const { return m_count == 0; }

  VertexChain finish(bool isLoop) {
    isLoop = isLoop && m_count > 1;
    if (isLoop) {
      joinParts(m_last, m_first);
      noteGap(m_last, m_first);
    }
    write(m_last);
    m_raw.add(isLoop ? m_first.from : m_last.to, 0.0);
    m_raw.points.front() = m_first.from;
    m_raw.bulges.front() = m_first.bulge();
    return std::move(m_raw);
  }

 private:
  /// On the side where the parallels part a connector cuts the corner. A short one does no harm.
  void noteGap(const OffsetPart& part, const OffsetPart& follower) {
    if (!m_gaps || !part.hasConnector ||
        areWithin(part.segment.end, follower.segment.start, kMergeTolerance))
      return;
    const double turn =
        cross(part.segment.tangentAtEnd(), follower.segment.tangentAtStart()) * m_request.direction;
    if (!(turn > 0.0) || part.connectorBulge != 0.0) m_gaps->push_back(boxOfPoint(follower.vertex));
  }

  /// An arc run over backward is missing; parts of one that is long and nearly flat are lines.
  static bool isLacking(const OffsetPart& part, double bulge) {
    constexpr double kLongChord = 2.0 * kJoinTolerance / kBulgeTolerance;
    const bool isFlat = std::abs(bulge) < 2.0 * kBulgeTolerance;
    return bulge * part.segment.bulge < 0.0 ||
           (isFlat && !areWithin(part.segment.start, part.segment.end, kLongChord));
  }

  Box sourceBoxOf(const TravelSegment& moved) const {
    const double shift = m_request.distance * m_request.direction;
    const double ratio = 1.0 + (moved.bulge > 0.0 ? shift : -shift) / moved.radius;
    TravelSegment source = moved;
    source.radius *= ratio;
    source.start = moved.center + (moved.start - moved.center) * ratio;
    source.end = moved.center + (moved.end - moved.center) * ratio;
    return source.box();
  }

  void write(const OffsetPart& part) {
    if (m_raw.size() == 0) m_first = part;
    const double bulge = part.bulge();
    m_raw.add(part.from, bulge);
    if (m_gaps && part.segment.isArc() && isLacking(part, bulge))
      m_gaps->push_back(sourceBoxOf(part.segment));
    if (part.hasConnector) m_raw.add(part.to, part.connectorBulge);
  }

  const OffsetRequest& m_request;
  BorderGaps* m_gaps;
  VertexChain m_raw;
  OffsetPart m_first;
  OffsetPart m_last;
  std::size_t m_count = 0;
};

}  // namespace

VertexChain withoutNearVertices(const VertexChain& chain, BorderGaps* gaps) {
  VertexChain kept;
  kept.points.reserve(chain.size());
  kept.bulges.reserve(chain.size());
  for (std::size_t i = 0; i < chain.size(); ++i) {
    if (i == 0 || !areWithin(chain.points[i], kept.points.back(), kMergeTolerance)) {
      kept.add(chain.points[i], chain.bulges[i]);
    } else if (gaps && !(distanceSqrd(chain.points[i], kept.points.back()) == 0.0)) {
      gaps->push_back(boxOfChord(chain.points[i], kept.points.back()));
    }
  }
  return kept;
}

VertexChain preparedForOffset(const VertexChain& chain, const OffsetRequest& request,
                              BorderGaps* gaps) {
  const bool hasArcs = std::any_of(chain.bulges.begin(), chain.bulges.end(), isArcBulge);
  if (request.distance == 0.0 || !hasArcs || chain.size() < 2) return chain;
  const std::size_t count = chain.size() - (request.closed ? 0 : 1);
  const auto sourceAt = [&](std::size_t i) {
    const TravelSegment segment = segmentAt(chain.points, chain.bulges, i);
    if (gaps && segment.isArc() && segment.radius <= request.distance)
      gaps->push_back(segment.box());
    return straightenedIfSwallowed(segment, request);
  };

  VertexChain prepared;
  prepared.points.reserve(chain.size());
  prepared.bulges.reserve(chain.size());
  const TravelSegment first = sourceAt(0);
  TravelSegment segment = first;
  for (std::size_t i = 0; i + 1 < count; ++i) {
    const TravelSegment follower = sourceAt(i + 1);
    appendSplitAtCrossing(segment, follower, prepared);
    segment = follower;
  }
  if (request.closed) {
    appendSplitAtCrossing(segment, first, prepared);
  } else {
    prepared.add(segment.start, segment.bulge);
    prepared.add(chain.points.back(), chain.bulges.back());
  }
  return prepared;
}

bool joinsSharply(const TravelSegment& segment, const TravelSegment& follower, double distance) {
  const Vec& vertex = follower.start;
  const bool isMerged = areWithin(segment.start, vertex, kMergeTolerance) ||
                        areWithin(follower.end, vertex, kMergeTolerance);
  if (isMerged) return false;
  const double turn = cross(segment.tangentAtEnd(), follower.tangentAtStart());
  const OffsetRequest request{distance, turn > 0.0 ? -1 : 1, false};
  TravelSegment moved;
  TravelSegment movedFollower;
  if (!offsetSegment(segment, request, moved) || !offsetSegment(follower, request, movedFollower))
    return false;
  OffsetPart part(moved, segment.start);
  OffsetPart next(movedFollower, vertex);
  joinParts(part, next);
  return part.isCutAtEnd;
}

VertexChain rawOffset(const VertexChain& chain, const OffsetRequest& request, BorderGaps* gaps) {
  if (chain.size() < 2) return chain;
  if (request.distance == 0.0) return unmoved(chain, request.closed);
  const SourceRange range = sourceRange(chain, request.closed);
  PartWriter writer(chain.size() + chain.size() / 2 + 2, request, gaps);
  for (std::size_t i = 0; i < range.count; ++i) {
    const TravelSegment segment = segmentAt(chain.points, chain.bulges, i);
    TravelSegment moved;
    if (offsetSegment(segment, request, moved)) writer.add({moved, segment.start});
  }
  return writer.isEmpty() ? chain : writer.finish(range.isLoop);
}

}  // namespace qdr
