#include "geometry/internal/part_judge.h"

#include "geometry/internal/curve_nearness.h"
#include "geometry/internal/raw_offset.h"
#include "geometry/tolerance.h"

namespace qdr {

PartJudge::PartJudge(const OffsetClip& clip, const OffsetCurve& curve)
    : m_curve(curve),
      m_distance(clip.distance),
      m_isSourceClosed(clip.sourceClosed),
      m_clearance(segmentsOf(clip.sourcePoints, clip.sourceBulges, clip.sourceClosed),
                  clip.distance - kJoinTolerance, clip.widening),
      m_standings(m_clearance.standingsOf(curve.segments, curve.index)) {}

void PartJudge::findSpans(std::size_t i) {
  m_spansOf = i;
  m_spans.clear();
  for (const std::uint32_t j : m_clearance.nearOf(m_curve.segments[i])) {
    // With the whole distance, not its limit, the spans are wide enough for any rounding.
    const ParamSpan span = nearSpan(m_curve.segments[i], m_clearance.source(j), m_distance);
    if (span.from <= span.to) m_spans.push_back({span, 0.0, j});
  }
  std::sort(m_spans.begin(), m_spans.end(),
            [](const NearSource& a, const NearSource& b) { return a.span.from < b.span.from; });
  double reachedTo = 0.0;
  for (NearSource& near : m_spans)
    near.reachedTo = reachedTo = std::max(reachedTo, near.span.to);
}

bool PartJudge::isClear(const CurvePart& part) {
  const Standing& standing = m_standings.standings[part.segment];
  if (standing.kind == Standing::buried) return false;
  if (part.isWhole()) return standing.kind == Standing::clear;
  if (standing.kind == Standing::broken && part.from <= standing.witness &&
      standing.witness <= part.to)
    return false;
  const TravelSegment segment = m_curve.segmentOf(part);
  // A short part of a flat arc is straight: it may come nearer than the arc.
  const bool isStraightened = segment.isArc() != m_curve.segments[part.segment].isArc();
  if (standing.kind == Standing::clear && !isStraightened) return true;
  const Vec middle = segment.middle();
  if (standing.kind == Standing::broken && m_clearance.isWithin(middle, standing.source))
    return false;
  const BoundedPart bounded(segment, middle);
  // What is told of the arc holds for a chord that is no farther from it than this.
  const double rise = kBulgeTolerance * bounded.reach;
  if (isStraightened && rise > kJoinTolerance / 2.0) return !m_clearance.isBroken(bounded);
  return !anyNear(part, [&](std::uint32_t j) { return m_clearance.isBroken(bounded, j); });
}

bool PartJudge::isBuried(const CurvePart& part) {
  constexpr int kMostSplits = 4;
  const Standing& standing = m_standings.standings[part.segment];
  if (standing.kind != Standing::broken) return standing.kind == Standing::buried;
  return isBuried(part, m_curve.segmentOf(part), standing.source, kMostSplits);
}

/// Under one source segment, or half by half. A middle that is clear decides.
bool PartJudge::isBuried(const CurvePart& part, const TravelSegment& segment, std::uint32_t source,
                         int splits) {
  if (m_clearance.isBuried(segment, source)) return true;
  if (splits == 0) return false;
  const Vec middle = segment.middle();
  if (!m_clearance.isWithin(middle, source)) {
    const bool isClear = !anyNear(part, [&](std::uint32_t j) {
      source = j;
      return m_clearance.isWithin(middle, j);
    });
    if (isClear) return false;
  }
  const auto [first, second] = segment.halves();
  return isBuried(part, first, source, splits - 1) && isBuried(part, second, source, splits - 1);
}

bool PartJudge::followsBorder(const CurvePart& part) const {
  for (const double share : {0.25, 0.5, 0.75}) {
    const Vec place =
        m_curve.segments[part.segment].pointAt(part.from + (part.to - part.from) * share);
    const double reach = m_distance + kJoinTolerance;
    const bool isNear = m_clearance.isAnyWithin(place, reach, [&](std::size_t j) {
      return isPlaceNearer(m_clearance.source(j), place, reach);
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

void PartJudge::addBorderParams(const CurvePart& part, std::vector<double>& params) {
  const TravelSegment& segment = m_curve.segments[part.segment];
  anyNear(part, [&](std::uint32_t j) {
    for (const double t : borderParams(segment, m_clearance.source(j), m_distance)) {
      if (t > part.from && t < part.to) params.push_back(t);
    }
    return false;
  });
}

}  // namespace qdr
