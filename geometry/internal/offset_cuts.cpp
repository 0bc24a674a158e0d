#include "geometry/internal/offset_cuts.h"

#include <algorithm>
#include <cstdint>
#include <optional>
#include <tuple>

#include "geometry/internal/curve_intersection.h"
#include "geometry/internal/curve_nearness.h"
#include "geometry/internal/near_points.h"
#include "geometry/tolerance.h"

namespace qdr {

namespace {

constexpr std::size_t kFewCuts = std::size_t{1} << 16;

/// Two cuts at one place are as one.
bool isSameCut(const Cut& a, const Cut& b) {
  return a.place.segment == b.place.segment && a.place.param == b.place.param &&
         a.place.point.x == b.place.point.x && a.place.point.y == b.place.point.y &&
         a.isWeak == b.isWeak;
}

class CutCollector {
 public:
  CutCollector(const OffsetClip& clip, const OffsetCurve& curve, const PartJudge& judge,
               std::size_t most)
      : m_clip(clip), m_curve(curve), m_judge(judge), m_most(most) {}

  CurveCuts run();

 private:
  bool isNearVertex(const Vec& p);
  bool isBuried(std::size_t i) const { return m_judge.standings()[i].kind == Standing::buried; }
  void addCut(std::size_t i, const Vec& p, bool isWeak);
  void addCuts(std::size_t i, const Meeting& meeting);
  void cutBoth(std::size_t i, std::size_t j);
  void cutRoundEnds();
  void cutAtOther();
  void cutAtItself();
  void sortCuts();

  const OffsetClip& m_clip;
  const OffsetCurve& m_curve;
  const PartJudge& m_judge;
  std::size_t m_most;
  CurveCuts m_found;
  std::size_t m_sortAt = kFewCuts;  // from this number of cuts on repeats go
  std::optional<NearPoints> m_vertices;
};

/// The vertices are put into a grid when the first crossing asks for them.
bool CutCollector::isNearVertex(const Vec& p) {
  if (!m_vertices) {
    constexpr double kReach = kMergeTolerance * (1.0 + kJoinTolerance);
    m_vertices.emplace(m_clip.raw.points, kReach);
  }
  bool isNearAny = false;
  m_vertices->forEachNear(p, [&](std::size_t k) {
    isNearAny = isNearAny || areWithin(p, m_clip.raw.points[k], kMergeTolerance);
  });
  return isNearAny;
}

void CutCollector::addCut(std::size_t i, const Vec& p, bool isWeak) {
  std::vector<Cut>& cuts = m_found.cuts;
  const TravelSegment& segment = m_curve.segments[i];
  if (areWithin(p, segment.end, kPointTolerance)) {
    cuts.push_back({{i + 1, 0.0, segment.end}, isWeak});
  } else if (areWithin(p, segment.start, kPointTolerance)) {
    cuts.push_back({{i, 0.0, segment.start}, isWeak});
  } else {
    const double t = std::clamp(segment.paramOf(p), 0.0, 1.0);
    // Far from the origin rounding takes it off.
    const bool isOn = isPlaceNearer(segment, p, kPointTolerance);
    cuts.push_back({{i, t, isOn ? p : segment.pointAt(t)}, isWeak});
  }
  if (cuts.size() >= m_sortAt) sortCuts();
}

void CutCollector::addCuts(std::size_t i, const Meeting& meeting) {
  for (int k = 0; k < meeting.count; ++k) {
    const Vec& p = meeting.points[k];
    if (!m_judge.isSunk(i, p)) addCut(i, p, isNearVertex(p));
  }
}

/// Both at one place, where two segments of the raw offset meet.
void CutCollector::cutBoth(std::size_t i, std::size_t j) {
  const TravelSegment& a = m_curve.segments[i];
  const TravelSegment& b = m_curve.segments[j];
  const bool areNeighbours = m_curve.areNeighbours(i, j);
  const bool closesLoop = j - i > 1;
  const Meeting meeting =
      areNeighbours ? meetNeighbours(a, b, closesLoop ? a.start : a.end) : meetSegments(a, b);
  for (int k = 0; k < meeting.count; ++k) {
    const Vec& p = meeting.points[k];
    if (m_judge.isSunk(i, p) || m_judge.isSunk(j, p)) continue;
    const bool isWeak = isNearVertex(p);
    // Near a vertex a crossing of neighbours is the one that they share.
    if (areNeighbours && isWeak) continue;
    addCut(i, p, isWeak);
    addCut(j, p, isWeak);
  }
  if (meeting.count == 0 && !areNeighbours && lieAlong(a, b)) {
    m_found.liesAlong.resize(m_curve.size());
    m_found.liesAlong[i] = m_found.liesAlong[j] = true;
  }
}

/// Round the ends of an open source the distance ends in a circle, which no raw offset follows.
void CutCollector::cutRoundEnds() {
  if (m_clip.sourceClosed || m_curve.isLoop) return;
  for (const Vec& end : {m_clip.sourcePoints.front(), m_clip.sourcePoints.back()}) {
    const Box box = boxOfPoint(end).inflated(m_clip.distance + kPointTolerance);
    m_curve.index.forEachOverlap(box, [&](std::size_t i) {
      if (!isBuried(i)) addCuts(i, meetCircle(m_curve.segments[i], end, m_clip.distance));
      return true;
    });
  }
}

void CutCollector::cutAtOther() {
  const VertexChain& other = m_clip.other;
  std::vector<Box> boxes;
  boxes.reserve(other.size() + other.size() / 4 + 4);
  for (std::size_t j = 0; j + 1 < other.size(); ++j)
    boxes.push_back(segmentAt(other.points, other.bulges, j).box().inflated(m_clip.widening));
  const BoxIndex index(std::move(boxes), BoxIndex::Order::given);
  constexpr auto overlap = [](const Box& a, const Box& b) { return a.overlaps(b); };
  forEachNearPair(m_curve.index, index, overlap, [&](std::size_t i, std::size_t j) {
    if (isBuried(i)) return false;
    addCuts(i, meetSegments(m_curve.segments[i], segmentAt(other.points, other.bulges, j)));
    return !m_found.areTooMany;
  });
}

void CutCollector::cutAtItself() {
  constexpr auto overlap = [](const Box& a, const Box& b) { return a.overlaps(b); };
  forEachNearPair(m_curve.index, m_curve.index, overlap, [&](std::size_t i, std::size_t j) {
    if (m_found.areTooMany || isBuried(i)) return false;
    if (j > i && !isBuried(j)) cutBoth(i, j);
    return true;
  });
}

/// Segment after segment by counting, then along each, every cut once. Where many segments run over
/// one another most cuts are repeats.
void CutCollector::sortCuts() {
  std::vector<Cut>& cuts = m_found.cuts;
  std::vector<std::uint32_t> ends(m_curve.size() + 2, 0);
  for (const Cut& cut : cuts)
    ++ends[cut.place.segment + 1];
  for (std::size_t i = 0; i + 1 < ends.size(); ++i)
    ends[i + 1] += ends[i];
  std::vector<Cut> sorted(cuts.size());
  // While it is filled, ends[i] runs from the start of the run of segment i to its end.
  for (const Cut& cut : cuts)
    sorted[ends[cut.place.segment]++] = cut;
  const auto isBefore = [](const Cut& a, const Cut& b) {
    return std::tie(a.place.param, a.isWeak, a.place.point.x, a.place.point.y) <
           std::tie(b.place.param, b.isWeak, b.place.point.x, b.place.point.y);
  };
  auto from = sorted.begin();
  for (std::size_t i = 0; i <= m_curve.size(); ++i) {
    const auto to = sorted.begin() + ends[i];
    if (to - from > 1) std::sort(from, to, isBefore);
    from = to;
  }
  sorted.erase(std::unique(sorted.begin(), sorted.end(), isSameCut), sorted.end());
  cuts = std::move(sorted);
  m_found.areTooMany = m_found.areTooMany || cuts.size() > m_most;
  m_sortAt = std::max(cuts.size() + kFewCuts, std::min(2 * cuts.size(), m_most + 1));
}

CurveCuts CutCollector::run() {
  cutAtOther();
  cutAtItself();
  cutRoundEnds();
  sortCuts();
  return std::move(m_found);
}

}  // namespace

bool lieAlong(const TravelSegment& a, const TravelSegment& b) {
  if (a.isArc() != b.isArc()) return false;
  if (a.isArc()) {
    return areWithin(a.center, b.center, kPointTolerance) &&
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

bool runAlike(const TravelSegment& a, const TravelSegment& b) {
  return a.isArc() ? a.bulge * b.bulge > 0.0 : dot(a.end - a.start, b.end - b.start) > 0.0;
}

CurveCuts cutsOf(const OffsetClip& clip, const OffsetCurve& curve, const PartJudge& judge,
                 std::size_t most) {
  return CutCollector(clip, curve, judge, most).run();
}

}  // namespace qdr
