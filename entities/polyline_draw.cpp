// What a polyline shows: its segments, and its fill.

#include "entities/internal/chain_drawing.h"
#include "entities/polyline.h"
#include "platform/device_context.h"

void CQdrDbPolyline::Draw(CDC* dc) {
  if (!dc || !isVisiable() || NumVerts() == 0) return;
  CPen* former = setPen(dc);
  std::vector<CPoint> area;
  qdr::drawChain(*dc, m_polyline, qdr::StartWidths::kHideSegments, IsFill() ? &area : nullptr);
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
