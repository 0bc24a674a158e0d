#include "geometry/internal/offset_cuts.h"

#include <algorithm>
#include <cstdint>
#include <set>
#include <tuple>

#include "geometry/internal/curve_intersection.h"
#include "geometry/tolerance.h"

namespace qdr {

namespace {

// A block of meetings is worth a search for repeats from this size on.
constexpr std::size_t kManyMeetings = 64;

bool isNearer(const Vec& a, const Vec& b, double reach) {
  return distanceSqrd(a, b) <= reach * reach;
}

// A cut again at the same place changes nothing.
bool isSameCut(const Cut& a, const Cut& b) {
  return a.place.segment == b.place.segment && a.place.param == b.place.param &&
         a.place.point.x == b.place.point.x && a.place.point.y == b.place.point.y &&
         a.isWeak == b.isWeak;
}

class CutCollector {
 public:
  CutCollector(const OffsetClip& clip, const OffsetCurve& curve,
               std::span<const Standing> standings, std::size_t most)
      : m_clip(clip), m_curve(curve), m_standings(standings), m_most(most) {}

  CurveCuts run();

 private:
  /// Where a segment meets one of the other side.
  struct OtherMeeting {
    std::size_t segment;
    Meeting meeting;
  };

  bool isNearVertex(const Vec& p);
  void addCut(const Vec& p, bool isWeak);
  void addCuts(const Meeting& meeting);
  void addSelfCuts(std::size_t j);
  void addEndCuts();
  void finishSegment();
  void endOthers(std::size_t first);
  BoxIndex indexOfUnburied() const;
  void findOtherMeetings(const BoxIndex& unburied);

  const OffsetClip& m_clip;
  const OffsetCurve& m_curve;
  std::span<const Standing> m_standings;
  std::size_t m_most;
  std::vector<OtherMeeting> m_others;
  std::size_t m_nextOther = 0;
  CurveCuts m_found;

  // The segment that is being cut, all segments with a place or a vertex near it, and, once they
  // are asked for, the vertices near it.
  std::size_t m_current = 0;
  std::vector<std::uint32_t> m_near;
  std::vector<Vec> m_nearVertices;
  bool m_knowsVertices = false;
};

bool CutCollector::isNearVertex(const Vec& p) {
  if (!m_knowsVertices) {
    m_knowsVertices = true;
    m_nearVertices.clear();
    // The place may lie off the segment by rounding: twice the reach finds all that count.
    constexpr double kReachSqrd = 4.0 * kMergeTolerance * kMergeTolerance;
    const TravelSegment& segment = m_curve.segments[m_current];
    for (const std::uint32_t j : m_near) {
      for (const Vec& vertex : {m_curve.segments[j].start, m_curve.segments[j].end}) {
        if (distanceSqrdTo(segment, vertex) <= kReachSqrd) m_nearVertices.push_back(vertex);
      }
    }
  }
  return std::any_of(m_nearVertices.begin(), m_nearVertices.end(),
                     [&](const Vec& vertex) { return isNearer(p, vertex, kMergeTolerance); });
}

void CutCollector::addCut(const Vec& p, bool isWeak) {
  const std::size_t i = m_current;
  const TravelSegment& segment = m_curve.segments[i];
  const double t = std::clamp(segment.paramOf(p), 0.0, 1.0);
  Cut cut{{i, t, p}, isWeak};
  if (isNearer(p, segment.end, kPointTolerance)) {
    cut.place = {i + 1, 0.0, segment.end};
  } else if (isNearer(p, segment.start, kPointTolerance)) {
    cut.place = {i, 0.0, segment.start};
  } else if (distanceSqrdTo(segment, p) > kPointTolerance * kPointTolerance) {
    cut.place.point = segment.pointAt(t);  // far from the origin rounding takes it off
  }
  m_found.cuts.push_back(cut);
}

void CutCollector::addCuts(const Meeting& meeting) {
  for (int k = 0; k < meeting.count; ++k)
    addCut(meeting.points[k], isNearVertex(meeting.points[k]));
}

void CutCollector::addSelfCuts(std::size_t j) {
  const std::size_t i = m_current;
  if (i == j || m_standings[j].kind == Standing::buried) return;
  // In one order, so that both segments are cut at one place.
  const TravelSegment& a = m_curve.segments[std::min(i, j)];
  const TravelSegment& b = m_curve.segments[std::max(i, j)];
  if (!m_curve.areNeighbours(i, j)) {
    const Meeting meeting = meetSegments(a, b);
    if (meeting.count == 0 && lieAlong(a, b)) {
      m_found.liesAlong.resize(m_curve.size());
      m_found.liesAlong[i] = true;
    }
    return addCuts(meeting);
  }
  const bool closesLoop = std::max(i, j) - std::min(i, j) > 1;
  const Meeting meeting = meetNeighbours(a, b, closesLoop ? a.start : a.end);
  // Near a vertex a crossing of neighbours is the one that they share.
  if (meeting.count > 0 && !isNearVertex(meeting.points[0])) addCut(meeting.points[0], false);
}

/// Round the ends of an open source the distance ends in a circle, which no raw offset follows.
void CutCollector::addEndCuts() {
  if (m_clip.sourceClosed || m_curve.isLoop) return;
  const double reachSqrd = m_clip.distance * m_clip.distance;
  for (const Vec& end : {m_clip.sourcePoints.front(), m_clip.sourcePoints.back()}) {
    if (m_curve.index.boxAt(m_current).distanceSqrd(boxOfPoint(end)) > reachSqrd) continue;
    addCuts(meetCircle(m_curve.segments[m_current], end, m_clip.distance));
  }
}

void CutCollector::finishSegment() {
  std::vector<Cut>& cuts = m_found.cuts;
  const auto first = static_cast<std::ptrdiff_t>(cuts.size());
  m_knowsVertices = false;
  for (const std::uint32_t j : m_near)
    addSelfCuts(j);
  for (; m_nextOther < m_others.size() && m_others[m_nextOther].segment == m_current; ++m_nextOther)
    addCuts(m_others[m_nextOther].meeting);
  addEndCuts();
  std::stable_sort(cuts.begin() + first, cuts.end(),
                   [](const Cut& a, const Cut& b) { return isEarlier(a.place, b.place); });
  cuts.erase(std::unique(cuts.begin() + first, cuts.end(), isSameCut), cuts.end());
  m_found.areTooMany = m_found.areTooMany || cuts.size() > m_most;
  m_near.clear();
}

/// Boxes of the segments that are cut, with the margin within which vertices count as near.
BoxIndex CutCollector::indexOfUnburied() const {
  std::vector<Box> boxes = boxesOf(m_curve.segments, kMergeTolerance);
  for (std::size_t i = 0; i < boxes.size(); ++i) {
    if (m_standings[i].kind == Standing::buried) boxes[i] = Box();
  }
  return BoxIndex(std::move(boxes), BoxIndex::Order::given);
}

// An object, not a function: the walk through the index takes it in.
constexpr auto boxesOverlap = [](const Box& a, const Box& b) { return a.overlaps(b); };

// The meetings from `first` on are all those of one segment. Where many segments of the other side
// run over one another, most are repeats; the first of each stays.
void CutCollector::endOthers(std::size_t first) {
  m_found.areTooMany = m_found.areTooMany || m_others.size() > m_most;
  if (m_others.size() - first < kManyMeetings) return;
  const auto key = [](const Meeting& meeting) {
    const Vec& p = meeting.points[0];
    const Vec& q = meeting.points[meeting.count - 1];
    return std::tuple(meeting.count, p.x, p.y, q.x, q.y);
  };
  std::set<decltype(key(Meeting()))> known;
  const auto isRepeat = [&](const OtherMeeting& other) {
    return !known.insert(key(other.meeting)).second;
  };
  const auto begin = m_others.begin() + static_cast<std::ptrdiff_t>(first);
  m_others.erase(std::remove_if(begin, m_others.end(), isRepeat), m_others.end());
}

void CutCollector::findOtherMeetings(const BoxIndex& unburied) {
  const std::vector<TravelSegment> others =
      segmentsOf(m_clip.other.points, m_clip.other.bulges, false);
  const BoxIndex index(boxesOf(others, 0.0), BoxIndex::Order::given);
  std::size_t first = 0;
  forEachNearPair(unburied, index, boxesOverlap, [&](std::size_t i, std::size_t j) {
    const Meeting meeting = meetSegments(m_curve.segments[i], others[j]);
    if (meeting.count == 0) return true;
    if (first < m_others.size() && m_others[first].segment != i) {
      endOthers(first);
      first = m_others.size();
    }
    m_others.push_back({i, meeting});
    return !m_found.areTooMany;
  });
  endOthers(first);
}

CurveCuts CutCollector::run() {
  const BoxIndex unburied = indexOfUnburied();
  findOtherMeetings(unburied);
  forEachNearPair(unburied, m_curve.index, boxesOverlap, [&](std::size_t i, std::size_t j) {
    if (i != m_current && !m_near.empty()) finishSegment();
    m_current = i;
    if (!m_found.areTooMany) m_near.push_back(static_cast<std::uint32_t>(j));
    return !m_found.areTooMany;
  });
  if (!m_near.empty()) finishSegment();
  return std::move(m_found);
}

}  // namespace

bool lieAlong(const TravelSegment& a, const TravelSegment& b) {
  if (a.isArc() != b.isArc()) return false;
  if (a.isArc()) {
    return isNearer(a.center, b.center, kPointTolerance) &&
           std::abs(a.radius - b.radius) <= kPointTolerance &&
           (a.isWithinSweep(b.start) || a.isWithinSweep(b.end) || b.isWithinSweep(a.start));
  }
  const Vec chord = a.end - a.start;
  const double left = cross(chord, b.start - a.start);
  const double right = cross(chord, b.end - a.start);
  const double reachSqrd = kPointTolerance * kPointTolerance * chord.lengthSqrd();
  if (!(left * left <= reachSqrd && right * right <= reachSqrd)) return false;
  const double reach = std::sqrt(reachSqrd);
  const double from = dot(chord, b.start - a.start);
  const double to = dot(chord, b.end - a.start);
  return std::max(from, to) > reach && std::min(from, to) < chord.lengthSqrd() - reach;
}

CurveCuts cutsOf(const OffsetClip& clip, const OffsetCurve& curve,
                 std::span<const Standing> standings, std::size_t most) {
  return CutCollector(clip, curve, standings, most).run();
}

}  // namespace qdr
