// Message 1124: ortho and grid snap of a pick under way, and the coordinates in the status pane.

#include <cmath>
#include <numbers>

#include "database/database.h"
#include "entities/display_units.h"
#include "geometry/point2d.h"
#include "geometry/vector2d.h"
#include "interaction/display/display_table_record.h"
#include "interaction/grid_rounding.h"
#include "platform/window.h"

namespace {

// The last position of the one-point form, of whatever drawing.
CQdrGePoint2d& lastSnapped() {
  static CQdrGePoint2d point;
  return point;
}

// A coordinate on the grid, one step further on when it has left the last one by more than half.
double followed(double value, double last, double spacing) {
  const double whole = std::trunc(value / spacing) * spacing;
  const double moved = value - last;
  return std::abs(moved) > spacing / 2.0 ? whole + std::copysign(spacing, moved) : whole;
}

CString cartesian(const CQdrGePoint2d& point) {
  CString text;
  text.Format(L"%.6f, %.6f", point.x, point.y);
  return text;
}

CString polar(const CQdrGeVector2d& vector) {
  double degrees = std::atan2(vector.y, vector.x) * 180.0 / std::numbers::pi;
  if (degrees < 0.0) degrees += 360.0;
  CString text;
  text.Format(L"%.6f < %.6f", vector.length(), degrees);
  return text;
}

CString onePoint(const QdrDbDrawingVars_tag& vars, const CQdrDbDisplayTableRecord& view,
                 const CPoint& device) {
  CQdrGePoint2d world = view.GetLogicalPoint(device);
  if (vars.snapGrid != 0 && qdr::isGridStep(vars.gridSpacing)) {
    const CQdrGePoint2d last = lastSnapped();
    world.set(followed(world.x, last.x, vars.gridSpacing),
              followed(world.y, last.y, vars.gridSpacing));
    lastSnapped() = world;
  }
  return cartesian(world);
}

// Writes what grid snap and ortho make of the current point back into it.
CString twoPoints(const QdrDbDrawingVars_tag& vars, const CPoint& start, CPoint& current) {
  const CQdrGePoint2d from = qdr::toWorld(start);
  CQdrGePoint2d to = qdr::toWorld(current);
  if (vars.snapGrid != 0 && qdr::isGridStep(vars.gridSpacing)) {
    to = qdr::roundedToGrid(to, vars.gridSpacing);
    current = qdr::toLogical(to);
  }
  if (vars.snapOrtho != 0) {
    const bool steep = std::abs(to.y - from.y) > std::abs(to.x - from.x);
    to.set(steep ? from.x : to.x, steep ? to.y : from.y);
    // The start's own coordinate: a way through the world and back could miss it by one.
    (steep ? current.x : current.y) = steep ? start.x : start.y;
  }
  return vars.polarReadout != 0 ? polar(to - from) : cartesian(to);
}

}  // namespace

void CQdrDbDatabase::SetCoordinate(CWnd*, CWnd* pane, std::uintptr_t wParam, std::intptr_t lParam) {
  const auto* first = reinterpret_cast<const CPoint*>(wParam);
  auto* current = reinterpret_cast<CPoint*>(lParam);
  const CQdrDbDisplayTableRecord* const view = m_displayTable.getCurrentRecord();
  if (!first || (!current && !view)) return;
  const CString text =
      current ? twoPoints(m_vars, *first, *current) : onePoint(m_vars, *view, *first);
  if (pane) pane->SetWindowText(text);
}
