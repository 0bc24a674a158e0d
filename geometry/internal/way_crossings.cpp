#include "geometry/internal/way_crossings.h"

#include <algorithm>
#include <cmath>

#include "geometry/circ_arc2d.h"
#include "geometry/internal/bulge.h"
#include "geometry/polyline2d.h"
#include "geometry/tolerance.h"
#include "geometry/vec.h"

namespace qdr {

namespace {

/// Arcs of more than this bulge may count as whole circles, far from their chord.
constexpr double kWholeCircleBulge = 1000.0;

/// Whether the arc over a chord that has both ends on one side of a line, no nearer than
/// `clearance`, certainly stays on that side. A place that counts as on the arc is no farther from
/// the chord than the height of the arc, with what the angles allow beyond its ends and, for a
/// line that touches it, the root of the tolerance.
bool staysClear(const Vec& chord, double bulge, double clearance, double tol) {
  const double size = std::abs(bulge);
  if (!(size < kWholeCircleBulge)) return false;
  // The height is half the chord times the bulge, the radius (1 + b^2) / (4 b) chords; the sum of
  // the sides stands for the chord, which spares a root, and the bulge is multiplied through.
  const double longest = std::abs(chord.x) + std::abs(chord.y);
  const double reach = size * size / 2.0 + kAngleTolerance * (1.0 + size * size) / 2.0;
  return (clearance - std::sqrt(tol)) * size > longest * reach;
}

void addCrossings(const CQdrGePolyline2d& chain, int i, const CQdrGeLine2d& way, double tol,
                  std::vector<CQdrGePoint2d>& crossings) {
  constexpr auto kMode = CQdrGeEntity2d::kExtendNone;
  CQdrGeLine2d line;
  CQdrGeCircArc2d arc;
  CQdrGePoint2d first, second;
  int count = 0;
  if (chain.getLineSegAt(i, line)) {
    count = line.intersectWith(way, first, kMode, tol) ? 1 : 0;
  } else if (chain.getArcSegAt(i, arc)) {
    if (!arc.intersectWith(way, count, first, second, kMode, tol)) count = 0;
  }
  if (count > 0) crossings.push_back(first);
  if (count > 1) crossings.push_back(second);
}

}  // namespace

std::vector<CQdrGePoint2d> crossingsWithWay(const CQdrGePolyline2d& chain, const CQdrGeLine2d& way,
                                            double tol) {
  std::vector<CQdrGePoint2d> crossings;
  const std::vector<CQdrGePoint2d>& points = chain.points();
  if (points.empty()) return crossings;
  const Vec origin = toVec(way.startPoint());
  const Vec end = toVec(way.endPoint());
  const Vec along = (end - origin).normal(0.0);
  const double size = std::abs(origin.x) + std::abs(origin.y) + std::abs(end.x) + std::abs(end.y);
  const double margin = tol + kCertainMargin + kRoundingRatio * size;
  // Distances from the infinite line, positive to its left.
  Vec from = toVec(points.front());
  double offFrom = cross(along, from - origin);
  for (std::size_t i = 0; i < points.size(); ++i) {
    const Vec to = toVec(points[i + 1 < points.size() ? i + 1 : 0]);
    const double offTo = cross(along, to - origin);
    const double bulge = chain.bulges()[i];
    const double clearance = std::min(std::abs(offFrom), std::abs(offTo)) - margin;
    const bool isBeside = (offFrom > 0.0) == (offTo > 0.0) && clearance > 0.0;
    if (!isBeside || (isArcBulge(bulge) && !staysClear(to - from, bulge, clearance, tol)))
      addCrossings(chain, static_cast<int>(i), way, tol, crossings);
    from = to;
    offFrom = offTo;
  }
  return crossings;
}

}  // namespace qdr
