#include "geometry/internal/offset_recut.h"

#include <algorithm>

#include "geometry/internal/near_points.h"
#include "geometry/tolerance.h"

namespace qdr {

namespace {

/// A clear stretch of a fallen slice.
struct ClearRun {
  Slice slice;
  double length = 0.0;
  bool meetsFrom = false;  // starts where the fallen slice starts
  bool meetsTo = false;
  bool followsBorder = false;  // somewhere at just the distance from the source
};

/// Where a raw offset lacks part of the border.
class GapMap {
 public:
  /// Everywhere when null.
  GapMap(const BorderGaps* gaps, double distance)
      : m_isEverywhere(!gaps),
        m_reach(distance + kJoinTolerance),
        m_index(gaps ? *gaps : BorderGaps(), BoxIndex::Order::hilbert) {}

  bool isNear(const Box& box) const {
    return m_isEverywhere ||
           !m_index.forEachWithin(box, m_reach, [](std::size_t) { return false; });
  }

 private:
  bool m_isEverywhere;
  double m_reach;
  BoxIndex m_index;
};

class SliceRecutter {
 public:
  SliceRecutter(const OffsetCurve& curve, PartJudge& judge, const BorderGaps* gaps)
      : m_curve(curve), m_judge(judge), m_gaps(gaps, judge.distance()) {}

  void recut(const Slice& fallen);
  std::vector<ClearRun> take() { return std::move(m_runs); }

 private:
  bool isWorthless(const CurvePart& part) const;
  void recutPart(const CurvePart& part);
  void addClear(const CurvePart& part);
  bool isDebris() const;
  void endRun();

  bool startsSlice(const CurvePart& part) const {
    return part.segment == m_fallen.from.segment && part.from == m_fallen.from.param;
  }

  const OffsetCurve& m_curve;
  PartJudge& m_judge;
  GapMap m_gaps;
  std::vector<ClearRun> m_runs;
  ClearRun m_run;
  bool m_isRunning = false;
  Slice m_fallen;
  std::vector<double> m_params;
};

/// Whether nothing of the part can belong to a result. At the ends of the slice, which lie on the
/// border, only what is longer than the least length counts.
bool SliceRecutter::isWorthless(const CurvePart& part) const {
  if (m_judge.standings()[part.segment].kind == Standing::clear) return false;
  const double share = kMergeTolerance / m_curve.segments[part.segment].length();
  const bool isAtFrom = startsSlice(part);
  const bool isAtTo = m_fallen.to.param == 0.0
                          ? (part.to == 1.0 && part.segment + 1 == m_fallen.to.segment)
                          : part.segment == m_fallen.to.segment;
  CurvePart inner = part;
  if (isAtFrom) inner.from += share;
  if (isAtTo) inner.to -= share;
  if (!(inner.from < inner.to)) return m_judge.isBuried(part);
  if (isAtFrom) inner.start = m_curve.segments[part.segment].pointAt(inner.from);
  if (isAtTo) inner.end = m_curve.segments[part.segment].pointAt(inner.to);
  return m_judge.isBuried(inner);
}

bool SliceRecutter::isDebris() const {
  return m_run.length < kMergeTolerance || !m_run.followsBorder ||
         (!m_run.meetsFrom && m_judge.isInsideCorner(m_run.slice.from.point)) ||
         (!m_run.meetsTo && m_judge.isInsideCorner(m_run.slice.to.point)) ||
         !m_gaps.isNear(m_curve.boxOf(m_run.slice));
}

void SliceRecutter::endRun() {
  if (m_isRunning && !isDebris()) m_runs.push_back(m_run);
  m_isRunning = false;
}

void SliceRecutter::addClear(const CurvePart& part) {
  if (!m_isRunning) {
    const bool isAtFrom = startsSlice(part);
    m_run = {};
    m_run.slice.from = isAtFrom ? m_fallen.from : m_curve.placeAt(part.segment, part.from);
    m_run.meetsFrom = isAtFrom;
    m_isRunning = true;
  }
  m_run.slice.to = m_curve.placeAt(part.segment, part.to);
  m_run.followsBorder = m_run.followsBorder || m_judge.followsBorder(part);
  m_run.length += m_curve.lengthOf(part);
}

void SliceRecutter::recutPart(const CurvePart& part) {
  if (isWorthless(part)) return endRun();
  m_params.clear();
  if (m_judge.standings()[part.segment].kind != Standing::clear)
    m_judge.addBorderParams(part, m_params);
  std::sort(m_params.begin(), m_params.end());
  m_params.push_back(part.to);
  // What rounding leaves between two equal places tells nothing.
  const double leastShare = kPointTolerance / m_curve.segments[part.segment].length();
  CurvePart next = part;
  for (const double t : m_params) {
    if (!(t > next.from + leastShare)) continue;
    next.to = t;
    next.end = t < part.to ? m_curve.segments[part.segment].pointAt(t) : part.end;
    if (m_judge.isClear(next)) {
      addClear(next);
    } else {
      endRun();
    }
    next.from = t;
    next.start = next.end;
  }
}

void SliceRecutter::recut(const Slice& fallen) {
  if (!m_gaps.isNear(m_curve.boxOf(fallen))) return;
  if (m_curve.lengthOf(fallen) < kMergeTolerance) return;
  m_fallen = fallen;
  m_curve.forEachPart(fallen, [&](const CurvePart& part) { recutPart(part); });
  if (m_isRunning) {
    m_run.meetsTo = true;
    m_run.slice.to = fallen.to;
  }
  endRun();
}

/// Counts the slices that end at each node and takes the runs that no full node makes surplus.
std::vector<Slice> withoutSurplus(std::vector<ClearRun> runs, const std::vector<Slice>& kept) {
  std::stable_sort(runs.begin(), runs.end(),
                   [](const ClearRun& a, const ClearRun& b) { return a.length > b.length; });
  std::vector<Vec> ends;
  ends.reserve(2 * (kept.size() + runs.size()));
  for (const Slice& slice : kept)
    ends.insert(ends.end(), {slice.from.point, slice.to.point});
  for (const ClearRun& run : runs)
    ends.insert(ends.end(), {run.slice.from.point, run.slice.to.point});
  const std::vector<std::size_t> nodes = NearPoints(ends).nodes();
  std::vector<int> meeting(ends.size(), 0);
  for (std::size_t k = 0; k < 2 * kept.size(); ++k)
    ++meeting[nodes[k]];

  std::vector<Slice> taken;
  for (std::size_t r = 0; r < runs.size(); ++r) {
    int& atFrom = meeting[nodes[2 * (kept.size() + r)]];
    int& atTo = meeting[nodes[2 * (kept.size() + r) + 1]];
    const bool isSurplus = (runs[r].meetsFrom && atFrom >= 2) || (runs[r].meetsTo && atTo >= 2);
    if (isSurplus) continue;
    ++atFrom;
    ++atTo;
    taken.push_back(runs[r].slice);
  }
  return taken;
}

}  // namespace

std::vector<Slice> keptOfFallen(const OffsetCurve& curve, PartJudge& judge, const BorderGaps* gaps,
                                const std::vector<Slice>& fallen, const std::vector<Slice>& kept) {
  if (fallen.empty() || (gaps && gaps->empty())) return {};
  SliceRecutter recutter(curve, judge, gaps);
  for (const Slice& slice : fallen)
    recutter.recut(slice);
  std::vector<ClearRun> runs = recutter.take();
  if (runs.empty()) return {};
  return withoutSurplus(std::move(runs), kept);
}

}  // namespace qdr
