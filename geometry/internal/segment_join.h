#pragma once

#include "geometry/internal/travel_segment.h"

namespace qdr {

/// One offset segment on its way into the raw offset. The segment stays uncut while it is joined
/// on both sides; only its marks move, and its bulge is formed from them at the end.
struct OffsetPart {
  OffsetPart() = default;
  OffsetPart(const TravelSegment& offsetSegment, const Vec& sourceStart)
      : segment(offsetSegment),
        vertex(sourceStart),
        from(offsetSegment.start),
        to(offsetSegment.end) {}

  TravelSegment segment;
  Vec vertex;  // the source's vertex where this part begins
  Vec from;    // where the part starts in the raw offset, on the segment's line or circle
  Vec to;
  bool isCutAtStart = false;
  bool isCutAtEnd = false;
  bool startsSigned = false;  // the bulge takes `signAtStart` unless the end is cut
  double signAtStart = 0.0;
  bool hasConnector = false;  // a segment from `to` to the follower's start
  double connectorBulge = 0.0;

  /// Bulge between the marks; marks against the travel give a reversed arc.
  double bulge() const;
};

/// Joins a part to its follower: sets the end of one, the start of the other and what lies between.
///
/// (1) Ends within 1e-06 of each other meet as they are.
/// (2) Lines meet at their common place, or beyond both ends in a sharp corner; every other pair of
///     places, and parallel lines, give a straight connector.
/// (3) With an arc, the meeting nearest the source's vertex becomes the new vertex unless it lies
///     on exactly one of the two; then a straight connector follows, between two arcs a rounding
///     arc about the source's vertex. Without any meeting a rounding arc follows.
/// (4) An arc behind a line that is joined by a rounding arc takes the sign of the turn, not its
///     own, unless its end is cut afterwards.
void joinParts(OffsetPart& part, OffsetPart& follower);

}  // namespace qdr
