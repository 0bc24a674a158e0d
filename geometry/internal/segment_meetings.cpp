#include <algorithm>

#include "geometry/box_index.h"
#include "geometry/internal/clearance.h"
#include "geometry/internal/curve_intersection.h"
#include "geometry/tolerance.h"

namespace qdr {

namespace {

/// Counts the meetings of each first segment, puts them there, and sorts those few by the second.
std::vector<SegmentMeeting> inOrderOfPairs(const std::vector<SegmentMeeting>& meetings,
                                           std::size_t segments) {
  std::vector<std::size_t> ends(segments + 1, 0);
  for (const SegmentMeeting& meeting : meetings)
    ++ends[meeting.first + 1];
  for (std::size_t i = 0; i < segments; ++i)
    ends[i + 1] += ends[i];
  std::vector<SegmentMeeting> sorted(meetings.size());
  // While it is filled, ends[i] runs from the start of the run of segment i to its end.
  for (const SegmentMeeting& meeting : meetings)
    sorted[ends[meeting.first]++] = meeting;
  auto from = sorted.begin();
  for (std::size_t i = 0; i < segments; ++i) {
    const auto to = sorted.begin() + static_cast<std::ptrdiff_t>(ends[i]);
    std::sort(from, to,
              [](const SegmentMeeting& a, const SegmentMeeting& b) { return a.second < b.second; });
    from = to;
  }
  return sorted;
}

}  // namespace

std::vector<SegmentMeeting> allMeetings(std::span<const TravelSegment> segments) {
  const BoxIndex index(boxesOf(segments, kCurveTolerance), BoxIndex::Order::hilbert);
  std::vector<SegmentMeeting> meetings;
  const auto overlap = [](const Box& a, const Box& b) { return a.overlaps(b); };
  forEachNearPair(index, index, overlap, [&](std::size_t i, std::size_t j) {
    if (i >= j) return true;
    const Meeting meeting = meetSegments(segments[i], segments[j]);
    if (meeting.count > 0)
      meetings.push_back({static_cast<std::uint32_t>(i), static_cast<std::uint32_t>(j), meeting});
    return true;
  });
  return inOrderOfPairs(meetings, segments.size());
}

}  // namespace qdr
