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
  std::span<const Standing> standings() const { return m_standings; }

  bool isClear(std::size_t i, double from, double to);

  /// Whether one source segment alone proves that no place of the part is clear.
  bool isBuried(std::size_t i, double from, double to);

  /// Whether somewhere inside the part the distance from the source is just `distance`.
  bool followsBorder(std::size_t i, double from, double to) const;

  /// Whether `p` lies on the circle of the distance about a vertex that the raw offset passes in a
  /// sharp corner: what ends there lies inside the corner.
  bool isInsideCorner(const Vec& p) const;

  /// Appends parameters of segment `i` between `from` and `to` at which it crosses the border of
  /// the distance from the source.
  void addBorderParams(std::size_t i, double from, double to, std::vector<double>& params);

 private:
  struct NearSource {
    ParamSpan span;
    double reachedTo;  // how far this one and those before it reach
    std::uint32_t source;
  };

  void findNear(std::size_t i);

  /// Calls visit(j) for the source segments that may be near the part until one answers true.
  template <class Visit>
  bool anyNear(std::size_t i, double from, double to, Visit&& visit) {
    if (m_nearOf != i) findNear(i);
    if (m_spans.empty()) return std::any_of(m_near.begin(), m_near.end(), visit);
    auto k = std::upper_bound(m_spans.begin(), m_spans.end(), to,
                              [](double t, const NearSource& near) { return t < near.span.from; });
    while (k != m_spans.begin() && (--k)->reachedTo >= from) {
      if (k->span.to >= from && visit(k->source)) return true;
    }
    return false;
  }

  const OffsetCurve& m_curve;
  double m_distance;
  bool m_isSourceClosed;
  Clearance m_clearance;
  std::vector<Standing> m_standings;

  std::size_t m_nearOf = static_cast<std::size_t>(-1);
  std::vector<std::uint32_t> m_near;
  std::vector<NearSource> m_spans;  // by their start; only where many are near
};

}  // namespace qdr
