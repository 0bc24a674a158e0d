#include "geometry/internal/offset_slices.h"

#include <algorithm>
#include <cstdint>

#include "geometry/box_index.h"
#include "geometry/internal/bulge.h"
#include "geometry/internal/clearance.h"
#include "geometry/internal/curve_intersection.h"
#include "geometry/tolerance.h"

namespace qdr {

namespace {

/// A place on the raw offset: segment, parameter and point. The end of a segment is given as the
/// start of the next one; the end of the last segment as one past it.
struct RawPlace {
  std::size_t segment = 0;
  double param = 0.0;
  Vec point;
};

/// A place where the raw offset is cut. A weak one lies near a vertex.
struct Cut {
  RawPlace place;
  bool isWeak = false;
};

bool isEarlier(const Cut& a, const Cut& b) {
  if (a.place.segment != b.place.segment) return a.place.segment < b.place.segment;
  return a.place.param < b.place.param;
}

bool boxesOverlap(const Box& a, const Box& b) {
  return a.overlaps(b);
}

struct Slice {
  RawPlace from;
  RawPlace to;
};

/// Collects slices on the way along the raw offset and keeps those that have not fallen.
class SliceCollector {
 public:
  explicit SliceCollector(const Vec& start) { m_current.from = {0, 0.0, start}; }

  bool hasFallen() const { return m_hasFallen; }
  void fall() { m_hasFallen = true; }

  /// Ends the slice here and begins the next. An empty one is nobody's.
  void cutAt(const RawPlace& place, bool isEmpty) {
    if (!isEmpty && m_hasFallen) m_hasLost = true;
    if (!isEmpty && !m_hasFallen) m_kept.push_back({m_current.from, place});
    m_current.from = place;
    m_hasFallen = false;
  }

  bool hasLost() const { return m_hasLost; }
  const RawPlace& from() const { return m_current.from; }
  const std::vector<Slice>& kept() const { return m_kept; }

 private:
  Slice m_current;
  bool m_hasFallen = false;
  bool m_hasLost = false;
  std::vector<Slice> m_kept;
};

/// One clipping: the raw offset as segments, its crossings segment by segment, and the slices.
class OffsetClipper {
 public:
  explicit OffsetClipper(const OffsetClip& clip);

  std::vector<VertexChain> run();

 private:
  /// Where a segment meets one of the other side.
  struct OtherMeeting {
    std::size_t segment;
    Meeting meeting;
  };

  bool areNeighbours(std::size_t i, std::size_t j) const;
  bool isNearVertex(const Vec& p, std::span<const std::uint32_t> near) const;
  void addCut(std::size_t i, const Vec& p, bool isWeak);
  void addCuts(std::size_t i, const Meeting& meeting, std::span<const std::uint32_t> near);
  void addSelfCuts(std::size_t i, std::size_t j, std::span<const std::uint32_t> near);
  void addEndCuts(std::size_t i, std::span<const std::uint32_t> near);
  BoxIndex indexOfUnburied() const;
  std::vector<OtherMeeting> meetingsWithOther(const BoxIndex& unburied) const;
  void collectCuts();
  bool isPartClear(std::size_t i, double from, double to);
  void walkSegment(std::size_t i, std::span<const Cut> cuts);
  void judgePart(std::size_t i, double from, double to);
  void cutAt(SliceCollector& slices, const RawPlace& place) const;
  double keptLength(const SliceCollector& slices) const;
  VertexChain chainOf(const Slice& slice) const;

  const OffsetClip& m_clip;
  std::vector<TravelSegment> m_raw;
  std::vector<TravelSegment> m_other;
  BoxIndex m_rawIndex;
  bool m_isLoop;
  Clearance m_clearance;
  std::vector<Standing> m_standings;
  std::vector<Cut> m_cuts;
  SliceCollector m_strong;  // cut at strong places only
  SliceCollector m_all;     // cut at weak ones too

  // What the parts of one segment may be too near to, found once for all of them.
  std::size_t m_nearSourceOf = static_cast<std::size_t>(-1);
  std::vector<std::uint32_t> m_nearSource;
};

OffsetClipper::OffsetClipper(const OffsetClip& clip)
    : m_clip(clip),
      m_raw(segmentsOf(clip.raw.points, clip.raw.bulges, false)),
      m_other(segmentsOf(clip.other.points, clip.other.bulges, false)),
      m_rawIndex(boxesOf(m_raw, kCurveTolerance), BoxIndex::Order::given),
      m_isLoop(distanceSqrd(clip.raw.points.front(), clip.raw.points.back()) == 0.0),
      m_clearance(segmentsOf(clip.sourcePoints, clip.sourceBulges, clip.sourceClosed),
                  clip.distance - kJoinTolerance),
      m_standings(m_clearance.standingsOf(m_raw, m_rawIndex)),
      m_strong(clip.raw.points.front()),
      m_all(clip.raw.points.front()) {}

bool OffsetClipper::areNeighbours(std::size_t i, std::size_t j) const {
  const std::size_t apart = i < j ? j - i : i - j;
  return apart == 1 || (m_isLoop && apart == m_raw.size() - 1);
}

/// `near` holds every segment with a vertex near segment `i`.
bool OffsetClipper::isNearVertex(const Vec& p, std::span<const std::uint32_t> near) const {
  constexpr double kReachSqrd = kMergeTolerance * kMergeTolerance;
  return std::any_of(near.begin(), near.end(), [&](std::uint32_t j) {
    return distanceSqrd(p, m_raw[j].start) <= kReachSqrd ||
           distanceSqrd(p, m_raw[j].end) <= kReachSqrd;
  });
}

void OffsetClipper::addCut(std::size_t i, const Vec& p, bool isWeak) {
  const TravelSegment& segment = m_raw[i];
  const double t = std::clamp(segment.paramOf(p), 0.0, 1.0);
  Cut cut{{i, t, p}, isWeak};
  const double toleranceSqrd = kPointTolerance * kPointTolerance;
  if (distanceSqrd(p, segment.end) <= toleranceSqrd) {
    cut.place = {i + 1, 0.0, segment.end};
  } else if (distanceSqrd(p, segment.start) <= toleranceSqrd) {
    cut.place = {i, 0.0, segment.start};
  } else if (distanceSqrdTo(segment, p) > toleranceSqrd) {
    cut.place.point = segment.pointAt(t);  // far from the origin rounding takes it off
  }
  m_cuts.push_back(cut);
}

void OffsetClipper::addCuts(std::size_t i, const Meeting& meeting,
                            std::span<const std::uint32_t> near) {
  for (int k = 0; k < meeting.count; ++k)
    addCut(i, meeting.points[k], isNearVertex(meeting.points[k], near));
}

void OffsetClipper::addSelfCuts(std::size_t i, std::size_t j, std::span<const std::uint32_t> near) {
  if (i == j || m_standings[j].kind == Standing::buried) return;
  // In one order, so that both segments are cut at one place.
  const TravelSegment& a = m_raw[std::min(i, j)];
  const TravelSegment& b = m_raw[std::max(i, j)];
  if (!areNeighbours(i, j)) return addCuts(i, meetSegments(a, b), near);
  const bool closesLoop = std::max(i, j) - std::min(i, j) > 1;
  const Meeting meeting = meetNeighbours(a, b, closesLoop ? a.start : a.end);
  // Near a vertex a crossing of neighbours is the one that they share.
  if (meeting.count > 0 && !isNearVertex(meeting.points[0], near))
    addCut(i, meeting.points[0], false);
}

/// Round the ends of an open source the distance ends in a circle, which no raw offset follows.
void OffsetClipper::addEndCuts(std::size_t i, std::span<const std::uint32_t> near) {
  if (m_clip.sourceClosed || m_isLoop) return;
  const double reachSqrd = m_clip.distance * m_clip.distance;
  for (const Vec& end : {m_clip.sourcePoints.front(), m_clip.sourcePoints.back()}) {
    if (m_rawIndex.boxAt(i).distanceSqrd(boxOfPoint(end)) > reachSqrd) continue;
    addCuts(i, meetCircle(m_raw[i], end, m_clip.distance), near);
  }
}

/// Boxes of the segments that are cut, with the margin within which vertices count as near. Only
/// segments that are not buried are cut, and only by such: at a place too near to the source a cut
/// decides nothing, because the slices on both of its sides fall.
BoxIndex OffsetClipper::indexOfUnburied() const {
  std::vector<Box> boxes = boxesOf(m_raw, kMergeTolerance);
  for (std::size_t i = 0; i < boxes.size(); ++i) {
    if (m_standings[i].kind == Standing::buried) boxes[i] = Box();
  }
  return BoxIndex(std::move(boxes), BoxIndex::Order::given);
}

std::vector<OffsetClipper::OtherMeeting> OffsetClipper::meetingsWithOther(
    const BoxIndex& unburied) const {
  const BoxIndex other(boxesOf(m_other, 0.0), BoxIndex::Order::given);
  std::vector<OtherMeeting> meetings;
  forEachNearPair(unburied, other, boxesOverlap, [&](std::size_t i, std::size_t j) {
    const Meeting meeting = meetSegments(m_raw[i], m_other[j]);
    if (meeting.count > 0) meetings.push_back({i, meeting});
    return true;
  });
  return meetings;
}

/// Leaves the cuts in the order of places: segment after segment, sorted along each.
void OffsetClipper::collectCuts() {
  const BoxIndex unburied = indexOfUnburied();
  const std::vector<OtherMeeting> others = meetingsWithOther(unburied);
  auto other = others.begin();
  std::vector<std::uint32_t> near;
  std::size_t current = 0;
  const auto finishSegment = [&] {
    const auto first = static_cast<std::ptrdiff_t>(m_cuts.size());
    for (const std::uint32_t j : near)
      addSelfCuts(current, j, near);
    for (; other != others.end() && other->segment == current; ++other)
      addCuts(current, other->meeting, near);
    addEndCuts(current, near);
    std::stable_sort(m_cuts.begin() + first, m_cuts.end(), isEarlier);
    near.clear();
  };
  forEachNearPair(unburied, m_rawIndex, boxesOverlap, [&](std::size_t i, std::size_t j) {
    if (i != current && !near.empty()) finishSegment();
    current = i;
    near.push_back(static_cast<std::uint32_t>(j));
    return true;
  });
  if (!near.empty()) finishSegment();
}

bool OffsetClipper::isPartClear(std::size_t i, double from, double to) {
  const Standing& standing = m_standings[i];
  if (standing.kind == Standing::buried) return false;
  const bool isWhole = from == 0.0 && to == 1.0;
  if (isWhole) return standing.kind == Standing::clear;
  if (standing.kind == Standing::broken && from <= standing.witness && standing.witness <= to)
    return false;
  const TravelSegment part = m_raw[i].part(from, to);
  // A short part of a flat arc is straight: it may come nearer than the arc.
  if (standing.kind == Standing::clear && part.isArc() == m_raw[i].isArc()) return true;
  if (m_nearSourceOf != i) m_clearance.findNear(m_raw[i], m_nearSource);
  m_nearSourceOf = i;
  return m_clearance.isKeptBy(part, m_nearSource);
}

/// Takes one segment of the raw offset through both collectors. A part between two cuts is judged
/// once, and only while one of the slices that it belongs to still stands.
void OffsetClipper::walkSegment(std::size_t i, std::span<const Cut> cuts) {
  double from = 0.0;
  for (const Cut& cut : cuts) {
    judgePart(i, from, cut.place.param);
    from = cut.place.param;
    cutAt(m_all, cut.place);
    if (!cut.isWeak) cutAt(m_strong, cut.place);
  }
  judgePart(i, from, 1.0);
}

void OffsetClipper::judgePart(std::size_t i, double from, double to) {
  const bool isDecided = m_strong.hasFallen() && m_all.hasFallen();
  if (isDecided || !(to > from) || isPartClear(i, from, to)) return;
  m_strong.fall();
  m_all.fall();
}

/// Crossings that rounding has parted leave an empty slice, a collapsed raw offset is one.
void OffsetClipper::cutAt(SliceCollector& slices, const RawPlace& place) const {
  const RawPlace& from = slices.from();
  const auto isAtFrom = [&](const Vec& p) {
    return distanceSqrd(p, from.point) <= kPointTolerance * kPointTolerance;
  };
  bool isEmpty = isAtFrom(place.point);
  for (std::size_t i = from.segment; isEmpty && i < place.segment; ++i)
    isEmpty = isAtFrom(m_raw[i].end);
  slices.cutAt(place, isEmpty);
}

double OffsetClipper::keptLength(const SliceCollector& slices) const {
  double sum = 0.0;
  for (const Slice& slice : slices.kept()) {
    for (std::size_t i = slice.from.segment; i < slice.to.segment; ++i)
      sum += m_raw[i].length();
    sum -= slice.from.param > 0.0 ? m_raw[slice.from.segment].length() * slice.from.param : 0.0;
    sum += slice.to.param > 0.0 ? m_raw[slice.to.segment].length() * slice.to.param : 0.0;
  }
  return sum;
}

VertexChain OffsetClipper::chainOf(const Slice& slice) const {
  VertexChain chain;
  const auto addPart = [&](std::size_t i, double from, double to, const Vec& start) {
    const TravelSegment& segment = m_raw[i];
    const bool isWhole = from == 0.0 && to == 1.0;
    chain.add(start, isWhole ? segment.bulge : bulgeOfSweep(segment.sweep() * (to - from)));
  };
  const std::size_t count = slice.to.segment - slice.from.segment + 2;
  chain.points.reserve(count);
  chain.bulges.reserve(count);
  double from = slice.from.param;
  Vec start = slice.from.point;
  for (std::size_t i = slice.from.segment; i < slice.to.segment; ++i) {
    addPart(i, from, 1.0, start);
    from = 0.0;
    start = m_raw[i].end;
  }
  if (slice.to.param > from) addPart(slice.to.segment, from, slice.to.param, start);
  chain.add(slice.to.point, 0.0);
  return chain;
}

std::vector<VertexChain> OffsetClipper::run() {
  collectCuts();
  std::size_t next = 0;
  for (std::size_t i = 0; i < m_raw.size(); ++i) {
    const std::size_t first = next;
    while (next < m_cuts.size() && m_cuts[next].place.segment == i)
      ++next;
    walkSegment(i, std::span(m_cuts).subspan(first, next - first));
  }
  const RawPlace end{m_raw.size(), 0.0, m_clip.raw.points.back()};
  cutAt(m_strong, end);
  cutAt(m_all, end);

  const bool hasWeak =
      std::any_of(m_cuts.begin(), m_cuts.end(), [](const Cut& cut) { return cut.isWeak; });
  const bool weakCutsHelp =
      hasWeak && m_strong.hasLost() && keptLength(m_all) > keptLength(m_strong);
  std::vector<VertexChain> chains;
  for (const Slice& slice : (weakCutsHelp ? m_all : m_strong).kept())
    chains.push_back(chainOf(slice));
  return chains;
}

}  // namespace

std::vector<VertexChain> clippedOffset(const OffsetClip& clip) {
  if (clip.raw.size() < 2) return {};
  if (clip.distance == 0.0) return {clip.raw};
  return OffsetClipper(clip).run();
}

}  // namespace qdr
