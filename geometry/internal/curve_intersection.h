#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "geometry/internal/travel_segment.h"

namespace qdr {

/// Up to two places where two curves meet.
struct Meeting {
  int count = 0;
  Vec points[2];

  void add(const Vec& p) { points[count++] = p; }
};

/// Where two segments meet, ends included within kCurveTolerance. Curves that lie along each other
/// do not meet; circles that touch, and a line that touches a circle, meet once.
Meeting meetSegments(const TravelSegment& a, const TravelSegment& b);

/// Where the infinite lines and full circles of two segments meet.
Meeting meetExtended(const TravelSegment& a, const TravelSegment& b);

/// Where two neighbours meet besides `vertex`, which they share: that place mirrored in the common
/// axis of their curves. At most one place, and none for two lines.
Meeting meetNeighbours(const TravelSegment& a, const TravelSegment& b, const Vec& vertex);

/// Whether a place of the infinite line or full circle belongs to the segment.
bool holdsPlace(const TravelSegment& segment, const Vec& p);

/// Where two of many segments meet.
struct SegmentMeeting {
  std::uint32_t first;  // the smaller index
  std::uint32_t second;
  Meeting meeting;
};

/// All places where two of the segments meet, each pair once, in the order of two loops.
std::vector<SegmentMeeting> allMeetings(std::span<const TravelSegment> segments);

/// Where a segment meets a full circle.
Meeting meetCircle(const TravelSegment& segment, const Vec& center, double radius);

}  // namespace qdr
