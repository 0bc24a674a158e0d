// Window, view and device context of a display record, and the mapping between world and device.

#include <cmath>

#include "database/database.h"
#include "entities/display_units.h"
#include "interaction/display/display_table_record.h"
#include "interaction/display/held_window.h"
#include "platform/device_context.h"
#include "platform/window.h"

namespace {

constexpr double kSameAspect = 0.001;
constexpr COLORREF kWhite = 0xffffff;

// Device capabilities by index.
constexpr int kPageWidthMillimetres = 4;
constexpr int kPageHeightMillimetres = 6;
constexpr int kPhysicalWidth = 110;
constexpr int kPhysicalHeight = 111;
constexpr int kPhysicalOffsetX = 112;
constexpr int kPhysicalOffsetY = 113;

// The client rectangle of the last pass over a screen, of whatever record.
CRect g_lastClientRect;

// Moves opposite sides of a window outward by these ways.
void widen(CRect& window, double dx, double dy) {
  window =
      qdr::heldWindow(window.left - dx, window.top - dy, window.right + dx, window.bottom + dy);
}

CRect pageClient(const CDC& dc) {
  const int left = dc.GetDeviceCaps(kPhysicalOffsetX);
  const int top = dc.GetDeviceCaps(kPhysicalOffsetY);
  return {left, top, dc.GetDeviceCaps(kPhysicalWidth) - 2 * left,
          dc.GetDeviceCaps(kPhysicalHeight) - 2 * top};
}

// The page in millimetres, with the margins that prints have.
CRect pageWindow(const CDC& dc) {
  return {1, 2, dc.GetDeviceCaps(kPageWidthMillimetres) + 2,
          dc.GetDeviceCaps(kPageHeightMillimetres) + 5};
}

}  // namespace

CQdrGePoint2d CQdrDbDisplayTableRecord::GetLogicalPoint(CPoint device) const {
  return {qdr::toWorld(m_logicalWindow.left + device.x * m_scaleX),
          qdr::toWorld(m_logicalWindow.bottom - device.y * m_scaleY)};
}

CPoint CQdrDbDisplayTableRecord::GetDecivePoint(const CQdrGePoint2d& world) const {
  if (m_scaleX == 0.0 || m_scaleY == 0.0) return {0, 0};
  return {qdr::truncToInt((world.x * _dDispScale - m_logicalWindow.left) / m_scaleX + 0.5),
          qdr::truncToInt((m_logicalWindow.bottom - world.y * _dDispScale) / m_scaleY + 0.5)};
}

void CQdrDbDisplayTableRecord::MakeUpDisplayWindow(CDC* dc) {
  if (!dc) return;
  const CRect displayBefore = m_displayWindow;
  const CRect clientBefore = m_clientRect;
  m_printing = dc->IsPrinting();
  if (m_printing) {
    dc->SetBkColor(kWhite);
    m_clientRect = pageClient(*dc);
    m_displayWindow = pageWindow(*dc);
    if (!m_hasScreenWindow) m_screenWindow = m_logicalWindow;
    m_hasScreenWindow = true;
  } else {
    if (m_view) m_view->GetClientRect(&m_clientRect);
    if (m_hasScreenWindow) m_logicalWindow = m_screenWindow;
    m_hasScreenWindow = false;
  }
  if (m_clientRect.IsRectEmpty() || (!m_printing && m_logicalWindow.IsRectEmpty())) {
    m_clientRect = clientBefore;
    m_displayWindow = displayBefore;
    m_printing = false;
    return;
  }
  dc->SetMapMode(MM_ISOTROPIC);
  m_aspect = static_cast<double>(m_clientRect.Height()) / m_clientRect.Width();
  InitViewCoordinates();
  if (!m_printing) {
    publishWindow();
    m_scaleX = static_cast<double>(m_logicalWindow.Width()) / m_clientRect.Width();
    m_scaleY = static_cast<double>(m_logicalWindow.Height()) / m_clientRect.Height();
    m_cursorPoint = m_clientRect.CenterPoint();
  }
  mapTo(dc);
  if (!m_printing) return;
  m_displayWindow = displayBefore;
  m_clientRect = clientBefore;
  m_printing = false;
}

// The negative extent turns y upward.
void CQdrDbDisplayTableRecord::mapTo(CDC* dc) const {
  dc->SetWindowOrg(m_logicalWindow.left, m_logicalWindow.top);
  dc->SetViewportOrg(m_clientRect.left, m_clientRect.bottom);
  dc->SetWindowExt(m_logicalWindow.Width(), m_logicalWindow.Height());
  dc->SetViewportExt(m_clientRect.Width(), -m_clientRect.Height());
}

// Keeps the window in the settings, so that it is saved, and in the limits. The limits take its
// left bottom and right top, so their first y is the greater one.
void CQdrDbDisplayTableRecord::publishWindow() {
  if (m_database) {
    m_database->m_vars.displayMin.set(m_displayWindow.left, m_displayWindow.top);
    m_database->m_vars.displayMax.set(m_displayWindow.right, m_displayWindow.bottom);
  }
  setLimits(CQdrGePoint2d(m_displayWindow.left, m_displayWindow.bottom),
            CQdrGePoint2d(m_displayWindow.right, m_displayWindow.top));
}

void CQdrDbDisplayTableRecord::InitViewCoordinates() {
  CRect window = m_logicalWindow;
  if (m_printing) {
    window = CRect(qdr::toLogical(m_displayWindow.left), qdr::toLogical(m_displayWindow.top),
                   qdr::toLogical(m_displayWindow.right), qdr::toLogical(m_displayWindow.bottom));
  }
  fitWindow(window);
  if (m_view && !m_printing) keepScale(window);
  m_logicalWindow = window;
  m_displayWindow = CRect(
      qdr::truncToInt(qdr::toWorld(window.left)), qdr::truncToInt(qdr::toWorld(window.top)),
      qdr::truncToInt(qdr::toWorld(window.right)), qdr::truncToInt(qdr::toWorld(window.bottom)));
}

// Widens the window to the proportions of the client rectangle, about its centre; a print grows at
// its bottom alone, so that it stays aligned at its top.
void CQdrDbDisplayTableRecord::fitWindow(CRect& window) const {
  const double width = window.Width();
  const double height = window.Height();
  const double ratio = height / width;
  if (!(std::abs(ratio - m_aspect) > kSameAspect)) return;
  if (m_aspect < ratio) {
    widen(window, (height / m_aspect - width) / 2.0, 0.0);
    return;
  }
  const double delta = width * m_aspect - height;
  if (m_printing) {
    window.bottom = qdr::truncToInt(window.bottom + delta);
  } else {
    widen(window, 0.0, delta / 2.0);
  }
}

// A view that has changed its size shows more or less of the drawing and not the same larger or
// smaller. The first order of the change suffices, since a drag of the frame comes in small steps.
void CQdrDbDisplayTableRecord::keepScale(CRect& window) {
  if (m_scaleX > 0.0 && !(m_clientRect == g_lastClientRect)) {
    const double width = window.Width();
    const double height = window.Height();
    const double scale = width / m_clientRect.Width() / m_scaleX;
    const double round = scale > 1.0 ? 0.5 : -0.5;
    widen(window, -((width * scale - width) / 2.0 + round),
          -((height * scale - height) / 2.0 + round));
  }
  m_view->GetClientRect(&g_lastClientRect);
}
