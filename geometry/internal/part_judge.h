#pragma once

#include <algorithm>
#include <cstdint>
#include <vector>

#include "geometry/internal/clearance.h"
#include "geometry/internal/distance_border.h"
#include "geometry/internal/offset_curve.h"
#include "geometry/internal/offset_slices.h"

namespace qdr {

/// Judges parts of the segments of a raw offset by their distance from the source. What is near a
/// segment is found once for all of its parts; where that is much, each part is asked only about
/// what can reach it.
class PartJudge {
 public:
  /// A part is clear that keeps `distance` less 0.002 from the source.
  PartJudge(const OffsetClip& clip, const OffsetCurve& curve);

  double distance() const { return m_distance; }
  std::span<const Standing> standings() const { return m_standings.standings; }
  const Clearance& clearance() const { return m_clearance; }

  /// Whether one look proves a place of segment `i` nearer than the limit to the source.
  bool isSunk(std::size_t i, const Vec& p) const {
    const Standing& standing = m_standings.standings[i];
    return standing.kind != Standing::clear && m_clearance.isWithin(p, standing.source);
  }

  bool isClear(const CurvePart& part);

  /// Whether no place of the part is clear. True only when it is proved with few looks.
  bool isBuried(const CurvePart& part);

  /// Whether somewhere inside the part the distance from the source is just `distance`.
  bool followsBorder(const CurvePart& part) const;

  /// Whether `p` lies on the circle of the distance about a vertex that the raw offset passes in a
  /// sharp corner: what ends there lies inside the corner.
  bool isInsideCorner(const Vec& p) const;

  /// Appends parameters inside the part at which its segment crosses the border of the distance
  /// from the source.
  void addBorderParams(const CurvePart& part, std::vector<double>& params);

 private:
  struct NearSource {
    ParamSpan span;
    double reachedTo;  // how far this one and those before it reach
    std::uint32_t source;
  };

  void findSpans(std::size_t i);

  /// Calls visit(j) for the source segments that may be near the part until one answers true.
  template <class Visit>
  bool anyNear(const CurvePart& part, Visit&& visit) {
    const std::span<const std::uint32_t> few = m_standings.nearOf(part.segment);
    if (!few.empty()) return std::any_of(few.begin(), few.end(), visit);
    if (m_spansOf != part.segment) findSpans(part.segment);
    auto k = std::upper_bound(m_spans.begin(), m_spans.end(), part.to,
                              [](double t, const NearSource& near) { return t < near.span.from; });
    while (k != m_spans.begin() && (--k)->reachedTo >= part.from) {
      if (k->span.to >= part.from && visit(k->source)) return true;
    }
    return false;
  }

  bool isBuried(const CurvePart& part, const TravelSegment& segment, std::uint32_t source,
                int splits);

  const OffsetCurve& m_curve;
  double m_distance;
  bool m_isSourceClosed;
  Clearance m_clearance;
  Standings m_standings;

  // Where many source segments are near one segment: what each can reach of it, by its start.
  std::size_t m_spansOf = static_cast<std::size_t>(-1);
  std::vector<NearSource> m_spans;
};

}  // namespace qdr
