#include "geometry/internal/part_judge.h"

#include "geometry/internal/raw_offset.h"
#include "geometry/tolerance.h"

namespace qdr {

namespace {

/// From how many near source segments on a part asks only those that can reach it.
constexpr std::size_t kManyNear = 128;

}  // namespace

PartJudge::PartJudge(const OffsetClip& clip, const OffsetCurve& curve)
    : m_curve(curve),
      m_distance(clip.distance),
      m_isSourceClosed(clip.sourceClosed),
      m_clearance(segmentsOf(clip.sourcePoints, clip.sourceBulges, clip.sourceClosed),
                  clip.distance - kJoinTolerance),
      m_standings(m_clearance.standingsOf(curve.segments, curve.index)) {}

void PartJudge::findNear(std::size_t i) {
  m_nearOf = i;
  m_clearance.findNear(m_curve.segments[i], m_near);
  m_spans.clear();
  if (m_near.size() < kManyNear) return;
  for (const std::uint32_t j : m_near) {
    // With the whole distance, not its limit, the spans are wide enough for any rounding.
    const ParamSpan span = nearSpan(m_curve.segments[i], m_clearance.source(j), m_distance);
    if (span.from <= span.to) m_spans.push_back({span, 0.0, j});
  }
  std::sort(m_spans.begin(), m_spans.end(),
            [](const NearSource& a, const NearSource& b) { return a.span.from < b.span.from; });
  double reachedTo = 0.0;
  for (NearSource& near : m_spans)
    near.reachedTo = reachedTo = std::max(reachedTo, near.span.to);
  if (m_spans.empty()) m_near.clear();
}

bool PartJudge::isClear(std::size_t i, double from, double to) {
  const Standing& standing = m_standings[i];
  if (standing.kind == Standing::buried) return false;
  const bool isWhole = from == 0.0 && to == 1.0;
  if (isWhole) return standing.kind == Standing::clear;
  if (standing.kind == Standing::broken && from <= standing.witness && standing.witness <= to)
    return false;
  const TravelSegment part = m_curve.segments[i].part(from, to);
  // A short part of a flat arc is straight: it may come nearer than the arc.
  if (standing.kind == Standing::clear && part.isArc() == m_curve.segments[i].isArc()) return true;
  const Box box = part.box();
  return !anyNear(i, from, to, [&](std::uint32_t j) { return m_clearance.isBroken(part, box, j); });
}

bool PartJudge::isBuried(std::size_t i, double from, double to) {
  const Standing& standing = m_standings[i];
  if (standing.kind != Standing::broken) return standing.kind == Standing::buried;
  const TravelSegment part = m_curve.segments[i].part(from, to);
  if (m_clearance.isBuried(part, standing.source)) return true;
  return anyNear(i, from, to, [&](std::uint32_t j) { return m_clearance.isBuried(part, j); });
}

bool PartJudge::followsBorder(std::size_t i, double from, double to) const {
  for (const double share : {0.25, 0.5, 0.75}) {
    const Vec place = m_curve.segments[i].pointAt(from + (to - from) * share);
    const double reach = m_distance + kJoinTolerance;
    const bool isNear = m_clearance.isAnyWithin(place, reach, [&](std::size_t j) {
      return distanceSqrdTo(m_clearance.source(j), place) < reach * reach;
    });
    if (isNear) return true;
  }
  return false;
}

bool PartJudge::isInsideCorner(const Vec& p) const {
  return m_clearance.isAnyWithin(p, m_distance + kPointTolerance, [&](std::size_t j) {
    const std::size_t next = j + 1 < m_clearance.size() ? j + 1 : 0;
    const bool isLast = next == 0 && !m_isSourceClosed;
    const TravelSegment& segment = m_clearance.source(j);
    const double gap = qdr::distance(segment.end, p) - m_distance;
    return !isLast && gap >= -kPointTolerance && gap <= kPointTolerance &&
           joinsSharply(segment, m_clearance.source(next), m_distance);
  });
}

void PartJudge::addBorderParams(std::size_t i, double from, double to,
                                std::vector<double>& params) {
  anyNear(i, from, to, [&](std::uint32_t j) {
    for (const double t : borderParams(m_curve.segments[i], m_clearance.source(j), m_distance)) {
      if (t > from && t < to) params.push_back(t);
    }
    return false;
  });
}

}  // namespace qdr
