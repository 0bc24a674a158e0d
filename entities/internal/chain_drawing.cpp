#include "entities/internal/chain_drawing.h"

#include <cmath>

#include "entities/display_units.h"
#include "entities/entity.h"
#include "geometry/circ_arc2d.h"
#include "geometry/polyline2d.h"
#include "geometry/tolerance.h"
#include "platform/device_context.h"

namespace {

// A bulge alone tells an arc from a line here, however short the chord.
bool drawsAsArc(double bulge) {
  return std::abs(bulge) > qdr::kBulgeTolerance;
}

// Leaves the position at the far end of the segment. The polygon runs counter-clockwise, so a
// negative bulge is drawn backward.
void drawArc(CDC& dc, const CQdrGePoint2d& from, const CQdrGePoint2d& to, double bulge) {
  CQdrGeCircArc2d arc;
  arc.set(from, to, bulge, true);
  std::vector<CPoint> polygon;
  arc.getGrVertexArray(polygon, _wArcRes, _dDispScale);
  if (polygon.empty()) return;
  dc.MoveTo(polygon.front());
  for (std::size_t i = 1; i < polygon.size(); ++i)
    dc.LineTo(polygon[i]);
  if (bulge < 0.0) dc.MoveTo(polygon.front());
}

}  // namespace

namespace qdr {

void drawChain(CDC& dc, const CQdrGePolyline2d& chain, StartWidths widths,
               std::vector<CPoint>* area) {
  const std::vector<CQdrGePoint2d>& points = chain.points();
  const std::vector<double>& bulges = chain.bulges();
  if (points.empty()) return;
  dc.MoveTo(toLogical(points.front()));
  if (area) area->push_back(toLogical(points.front()));
  for (std::size_t i = 1; i < points.size(); ++i) {
    if (widths == StartWidths::kHideSegments && chain.startWidths()[i] > 0.0) continue;
    if (drawsAsArc(bulges[i - 1])) {
      drawArc(dc, points[i - 1], points[i], bulges[i - 1]);
      continue;
    }
    dc.LineTo(toLogical(points[i]));
    if (area) area->push_back(toLogical(points[i]));
  }
  if (!chain.isClosed()) return;
  if (drawsAsArc(bulges.back()))
    drawArc(dc, points.back(), points.front(), bulges.back());
  else
    dc.LineTo(toLogical(points.front()));
}

void drawPoints(CDC& dc, CQdrDbEntity& entity, const std::vector<CPoint>& points) {
  CPen* former = entity.setPen(&dc);
  dc.Polyline(points.data(), static_cast<int>(points.size()));
  entity.RemovePen(&dc, former);
}

}  // namespace qdr
