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

class SliceRecutter {
 public:
  SliceRecutter(const OffsetCurve& curve, PartJudge& judge) : m_curve(curve), m_judge(judge) {}

  void recut(const Slice& fallen);
  std::vector<ClearRun> take() { return std::move(m_runs); }

 private:
  bool isWorthless(std::size_t i, double from, double to) const;
  void recutPart(std::size_t i, double from, double to);
  void addClear(std::size_t i, double from, double to);
  bool isDebris() const;
  void endRun();

  const OffsetCurve& m_curve;
  PartJudge& m_judge;
  std::vector<ClearRun> m_runs;
  ClearRun m_run;
  bool m_isRunning = false;
  Slice m_fallen;
  std::vector<double> m_params;
};

/// Whether nothing of the part can belong to a result. At the ends of the slice, which lie on the
/// border, only what is longer than the least length counts.
bool SliceRecutter::isWorthless(std::size_t i, double from, double to) const {
  if (m_judge.standings()[i].kind == Standing::clear) return false;
  const double share = kMergeTolerance / m_curve.segments[i].length();
  const bool isAtFrom = i == m_fallen.from.segment && from == m_fallen.from.param;
  const bool isAtTo = m_fallen.to.param == 0.0 ? (to == 1.0 && i + 1 == m_fallen.to.segment)
                                               : i == m_fallen.to.segment;
  const double inner = isAtFrom ? from + share : from;
  const double outer = isAtTo ? to - share : to;
  const bool isLong = inner < outer;
  return isLong ? m_judge.isBuried(i, inner, outer) : m_judge.isBuried(i, from, to);
}

bool SliceRecutter::isDebris() const {
  if (m_run.length < kMergeTolerance || !m_run.followsBorder) return true;
  return (!m_run.meetsFrom && m_judge.isInsideCorner(m_run.slice.from.point)) ||
         (!m_run.meetsTo && m_judge.isInsideCorner(m_run.slice.to.point));
}

void SliceRecutter::endRun() {
  if (m_isRunning && !isDebris()) m_runs.push_back(m_run);
  m_isRunning = false;
}

void SliceRecutter::addClear(std::size_t i, double from, double to) {
  if (!m_isRunning) {
    const bool isAtFrom = i == m_fallen.from.segment && from == m_fallen.from.param;
    m_run = {};
    m_run.slice.from = isAtFrom ? m_fallen.from : m_curve.placeAt(i, from);
    m_run.meetsFrom = isAtFrom;
    m_isRunning = true;
  }
  m_run.slice.to = m_curve.placeAt(i, to);
  m_run.followsBorder = m_run.followsBorder || m_judge.followsBorder(i, from, to);
  m_run.length += m_curve.segments[i].length() * (to - from);
}

void SliceRecutter::recutPart(std::size_t i, double from, double to) {
  if (isWorthless(i, from, to)) return endRun();
  m_params.assign(1, from);
  if (m_judge.standings()[i].kind != Standing::clear)
    m_judge.addBorderParams(i, from, to, m_params);
  m_params.push_back(to);
  std::sort(m_params.begin(), m_params.end());
  for (std::size_t k = 0; k + 1 < m_params.size(); ++k) {
    if (!(m_params[k + 1] > m_params[k])) continue;
    if (m_judge.isClear(i, m_params[k], m_params[k + 1])) {
      addClear(i, m_params[k], m_params[k + 1]);
    } else {
      endRun();
    }
  }
}

void SliceRecutter::recut(const Slice& fallen) {
  if (m_curve.lengthOf(fallen) < kMergeTolerance) return;
  m_fallen = fallen;
  m_curve.forEachPart(fallen,
                      [&](std::size_t i, double from, double to) { recutPart(i, from, to); });
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

bool isAnyNear(const BoxIndex& index, const Box& box, double reach) {
  return !index.forEachWithin(box, reach, [](std::size_t) { return false; });
}

}  // namespace

std::vector<Slice> keptOfFallen(const OffsetCurve& curve, PartJudge& judge, const BorderGaps* gaps,
                                const std::vector<Slice>& fallen, const std::vector<Slice>& kept) {
  if (fallen.empty() || (gaps && gaps->empty())) return {};
  const BoxIndex gapIndex(gaps ? *gaps : BorderGaps(), BoxIndex::Order::hilbert);
  const double reach = judge.distance() + kJoinTolerance;
  SliceRecutter recutter(curve, judge);
  for (const Slice& slice : fallen) {
    if (!gaps || isAnyNear(gapIndex, curve.boxOf(slice), reach)) recutter.recut(slice);
  }
  std::vector<ClearRun> runs = recutter.take();
  if (runs.empty()) return {};
  return withoutSurplus(std::move(runs), kept);
}

}  // namespace qdr
