// Zoom and pan of a display record.

#include <algorithm>
#include <cstdlib>

#include "database/database.h"
#include "entities/display_units.h"
#include "geometry/vector2d.h"
#include "interaction/display/display_table_record.h"
#include "interaction/display/held_window.h"

namespace {

constexpr double kSmallestWindow = 1.0;  // world units
constexpr double kLargestWindow = 1e7;
constexpr double kPanStep = 0.01;  // of the window, for one unit of a vector

}  // namespace

void CQdrDbDisplayTableRecord::offsetWindow(double dx, double dy) {
  m_logicalWindow = qdr::movedWindow(m_logicalWindow, dx, dy);
}

void CQdrDbDisplayTableRecord::ScaleUpDown(CDC* dc, CPoint focus, double scale, bool) {
  if (!(scale > 0.0)) return;
  const double width = qdr::toWorld(m_logicalWindow.Width());
  const double height = qdr::toWorld(m_logicalWindow.Height());
  if (scale < 1.0 && (width < kSmallestWindow || height < kSmallestWindow)) return;
  if (scale > 1.0 && (width > kLargestWindow || height > kLargestWindow)) return;
  m_prevWindow = m_logicalWindow;
  const double x = m_logicalWindow.left + focus.x * m_scaleX;
  const double y = m_logicalWindow.bottom - focus.y * m_scaleY;
  m_logicalWindow = qdr::heldWindow(
      x + (m_logicalWindow.left - x) * scale, y + (m_logicalWindow.top - y) * scale,
      x + (m_logicalWindow.right - x) * scale, y + (m_logicalWindow.bottom - y) * scale);
  MakeUpDisplayWindow(dc);
  Draw(dc);
}

// Both draw a second time, as views rely on.
void CQdrDbDisplayTableRecord::ZoomIn(CDC* dc) {
  if (!m_database) return;
  ScaleUpDown(dc, m_cursorPoint, 1.0 - m_database->m_vars.zoomStep);
  Draw(dc);
}

void CQdrDbDisplayTableRecord::ZoomOut(CDC* dc) {
  if (!m_database) return;
  ScaleUpDown(dc, m_cursorPoint, 1.0 + m_database->m_vars.zoomStep);
  Draw(dc);
}

// ScaleUpDown stores the window it finds as the previous one: a second call changes nothing.
void CQdrDbDisplayTableRecord::ZoomPrev(CDC* dc) {
  m_logicalWindow = m_prevWindow;
  ScaleUpDown(dc, m_cursorPoint, 1.0);
  Draw(dc);
}

void CQdrDbDisplayTableRecord::ZoomWindow(CDC* dc, CRect rect) {
  if (!m_database) return;
  const double least = m_database->m_vars.pickBoxSize * _dDispScale;
  if (rect.Width() < least && rect.Height() < least) return;
  m_prevWindow = m_logicalWindow;
  // A rectangle without a width or a height takes the proportions of the view from the other side.
  m_logicalWindow = CRect(rect.left, rect.top, std::max(rect.right, rect.left + 1),
                          std::max(rect.bottom, rect.top + 1));
  MakeUpDisplayWindow(dc);
  Draw(dc);
}

void CQdrDbDisplayTableRecord::setLogicalWindow(const QdrXY& min, const QdrXY& max) {
  const CRect window = qdr::heldWindow(min.x * _dDispScale, min.y * _dDispScale,
                                       max.x * _dDispScale, max.y * _dDispScale);
  if (window.IsRectEmpty()) return;  // limits without an area show nothing
  m_logicalWindow = m_prevWindow = window;
}

void CQdrDbDisplayTableRecord::ZoomExt() {
  if (!m_database) return;
  getExtend();
  setLogicalWindow(m_database->m_vars.extentMin, m_database->m_vars.extentMax);
}

void CQdrDbDisplayTableRecord::ZoomAll() {
  if (!m_database) return;
  setLogicalWindow(m_database->m_vars.limitsMin, m_database->m_vars.limitsMax);
}

void CQdrDbDisplayTableRecord::Onsize(int cx, int cy) {
  const double dx = (static_cast<double>(cx) - m_clientRect.Width()) * m_scaleX / 2.0;
  const double dy = (static_cast<double>(cy) - m_clientRect.Height()) * m_scaleY / 2.0;
  const CRect window = qdr::heldWindow(m_logicalWindow.left - dx, m_logicalWindow.top - dy,
                                       m_logicalWindow.right + dx, m_logicalWindow.bottom + dy);
  if (!window.IsRectEmpty()) m_logicalWindow = window;
}

void CQdrDbDisplayTableRecord::MoveWindow(CDC* dc, const CPoint& point) {
  offsetWindow((static_cast<double>(point.x) - m_cursorPoint.x) * m_scaleX,
               (static_cast<double>(point.y) - m_cursorPoint.y) * m_scaleY);
  MakeUpDisplayWindow(dc);
  Draw(dc);
}

void CQdrDbDisplayTableRecord::PanWindow(CDC* dc, int dx, int dy) {
  offsetWindow(dx, dy);
  MakeUpDisplayWindow(dc);
  Draw(dc);
}

void CQdrDbDisplayTableRecord::PanWindow(CDC* dc, const CQdrGeVector2d& steps) {
  if (steps.x == 0.0 && steps.y == 0.0) return;
  if (steps.x == 0.0) {
    PanWindow(dc, 0, qdr::toLogical(kPanStep * m_displayWindow.Height() * steps.y));
  } else {
    PanWindow(dc, qdr::toLogical(kPanStep * m_displayWindow.Width() * steps.x), 0);
  }
}

void CQdrDbDisplayTableRecord::RealPanWindow(CDC* dc, int dx, int dy) {
  if (!dc) return;
  offsetWindow(dx, dy);
  m_displayWindow = CRect(qdr::truncToInt(qdr::toWorld(m_logicalWindow.left)),
                          qdr::truncToInt(qdr::toWorld(m_logicalWindow.top)),
                          qdr::truncToInt(qdr::toWorld(m_logicalWindow.right)),
                          qdr::truncToInt(qdr::toWorld(m_logicalWindow.bottom)));
  publishWindow();
  mapTo(dc);
  Draw(dc);
}
