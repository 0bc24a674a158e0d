#include <algorithm>

#include "geometry/box_index.h"
#include "geometry/internal/clearance.h"
#include "geometry/internal/curve_intersection.h"
#include "geometry/internal/curve_order.h"
#include "geometry/tolerance.h"

namespace qdr {

namespace {

/// A meeting by the second of its segments, and where it stands.
struct MeetingPlace {
  std::uint32_t second;
  std::uint32_t place;
};

/// Counts the meetings of each first segment, puts their places there and sorts those few by the
/// second. The meetings themselves, wide as they are, move once.
std::vector<SegmentMeeting> inOrderOfPairs(const std::vector<SegmentMeeting>& meetings,
                                           std::size_t segments) {
  std::vector<std::uint32_t> ends(segments + 1, 0);
  for (const SegmentMeeting& meeting : meetings)
    ++ends[meeting.first + 1];
  for (std::size_t i = 0; i < segments; ++i)
    ends[i + 1] += ends[i];
  std::vector<MeetingPlace> places(meetings.size());
  // While it is filled, ends[i] runs from the start of the run of segment i to its end.
  for (std::size_t k = 0; k < meetings.size(); ++k)
    places[ends[meetings[k].first]++] = {meetings[k].second, static_cast<std::uint32_t>(k)};
  const auto isEarlier = [](const MeetingPlace& a, const MeetingPlace& b) {
    return a.second < b.second;
  };
  std::uint32_t from = 0;
  for (std::size_t i = 0; i < segments; ++i) {
    if (ends[i] - from > 1) std::sort(places.begin() + from, places.begin() + ends[i], isEarlier);
    from = ends[i];
  }
  std::vector<SegmentMeeting> sorted;
  sorted.reserve(meetings.size());
  for (const MeetingPlace& place : places)
    sorted.push_back(meetings[place.place]);
  return sorted;
}

}  // namespace

std::vector<SegmentMeeting> allMeetings(std::span<const TravelSegment> segments) {
  // Along the curve what is near in the plane is near in memory, segments and boxes alike.
  const std::vector<std::uint32_t> names = curveOrder(boxesOf(segments, kCurveTolerance));
  std::vector<TravelSegment> alongCurve;
  alongCurve.reserve(segments.size());
  for (const std::uint32_t name : names)
    alongCurve.push_back(segments[name]);
  const BoxIndex index(boxesOf(alongCurve, kCurveTolerance), BoxIndex::Order::given);

  std::vector<SegmentMeeting> meetings;
  meetings.reserve(2 * segments.size());
  index.forEachOverlappingPair([&](std::size_t i, std::size_t j) {
    const bool isSwapped = names[i] > names[j];
    const TravelSegment& a = alongCurve[isSwapped ? j : i];
    const TravelSegment& b = alongCurve[isSwapped ? i : j];
    const Meeting meeting = meetSegments(a, b);
    if (meeting.count > 0)
      meetings.push_back({std::min(names[i], names[j]), std::max(names[i], names[j]), meeting});
  });
  return inOrderOfPairs(meetings, segments.size());
}

}  // namespace qdr
