// What a polyline shows: its segments, and its fill.

#include <cmath>

#include "entities/display_units.h"
#include "entities/polyline.h"
#include "geometry/circ_arc2d.h"
#include "geometry/tolerance.h"
#include "platform/device_context.h"

namespace {

// Here a bulge alone tells an arc from a line, however short the chord.
bool drawsAsArc(double bulge) {
  return std::abs(bulge) > qdr::kBulgeTolerance;
}

}  // namespace

// Leaves the position at the far end of the segment.
void CQdrDbPolyline::drawArc(CDC& dc, const CQdrGePoint2d& from, const CQdrGePoint2d& to,
                             double bulge) const {
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

void CQdrDbPolyline::Draw(CDC* dc) {
  const std::vector<CQdrGePoint2d>& points = m_polyline.points();
  if (!dc || !isVisiable() || points.empty()) return;
  const std::vector<double>& bulges = m_polyline.bulges();
  const bool fills = IsFill();
  CPen* former = setPen(dc);
  dc->MoveTo(qdr::toLogical(points[0]));
  std::vector<CPoint> area;
  if (fills) area.push_back(qdr::toLogical(points[0]));
  for (std::size_t i = 1; i < points.size(); ++i) {
    // A hidden segment leaves the position where it was: a straight one behind it starts there.
    if (m_polyline.startWidths()[i] > 0.0) continue;
    if (drawsAsArc(bulges[i - 1])) {
      drawArc(*dc, points[i - 1], points[i], bulges[i - 1]);
      continue;
    }
    // The fill takes the ends of straight segments alone, so it cuts arcs off.
    dc->LineTo(qdr::toLogical(points[i]));
    if (fills) area.push_back(qdr::toLogical(points[i]));
  }
  if (IsClosed()) {
    if (drawsAsArc(bulges.back()))
      drawArc(*dc, points.back(), points.front(), bulges.back());
    else
      dc->LineTo(qdr::toLogical(points.front()));
  }
  FillArea(dc, area);
  RemovePen(dc, former);
}

void CQdrDbPolyline::FillArea(CDC* dc, std::vector<CPoint>& points) {
  if (!dc || !IsFill() || points.empty()) return;
  LOGBRUSH data;
  data.lbColor = dc->GetCurrentPen()->color();
  if (m_fillMode != 0) {
    data.lbStyle = BS_HATCHED;
    data.lbHatch = static_cast<std::uintptr_t>(m_fillMode) - 1;
  }
  CBrush brush;
  if (!brush.CreateBrushIndirect(&data)) return;
  CBrush* former = dc->SelectObject(&brush);
  const int formerMode = dc->SetPolyFillMode(WINDING);
  dc->Polygon(points.data(), static_cast<int>(points.size()));
  dc->SetPolyFillMode(formerMode);
  dc->SelectObject(former);
}
