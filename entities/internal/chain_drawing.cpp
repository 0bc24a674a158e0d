#include "entities/internal/chain_drawing.h"

#include <cmath>

#include "entities/display_units.h"
#include "geometry/circ_arc2d.h"
#include "geometry/polyline2d.h"
#include "geometry/tolerance.h"
#include "platform/device_context.h"

namespace {

// Leaves the position at the far end of the segment. A bulge alone tells an arc from a line here,
// however short the chord.
void drawSegment(CDC& dc, const CQdrGePoint2d& from, const CQdrGePoint2d& to, double bulge) {
  if (!(std::abs(bulge) > qdr::kBulgeTolerance)) {
    dc.LineTo(qdr::toLogical(to));
    return;
  }
  CQdrGeCircArc2d arc;
  arc.set(from, to, bulge, true);
  std::vector<CPoint> polygon;
  arc.getGrVertexArray(polygon, _wArcRes, _dDispScale);
  if (polygon.empty()) return;
  dc.MoveTo(polygon.front());
  for (std::size_t i = 1; i < polygon.size(); ++i)
    dc.LineTo(polygon[i]);
  // The polygon runs counter-clockwise, so a negative bulge is drawn backward.
  if (bulge < 0.0) dc.MoveTo(polygon.front());
}

}  // namespace

namespace qdr {

void drawChain(CDC& dc, const CQdrGePolyline2d& chain) {
  const std::vector<CQdrGePoint2d>& points = chain.points();
  if (points.empty()) return;
  dc.MoveTo(toLogical(points.front()));
  for (std::size_t i = 1; i < points.size(); ++i)
    drawSegment(dc, points[i - 1], points[i], chain.bulges()[i - 1]);
  if (chain.isClosed()) drawSegment(dc, points.back(), points.front(), chain.bulges().back());
}

}  // namespace qdr
