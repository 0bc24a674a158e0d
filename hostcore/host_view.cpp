// Painting, size and window of the view.

#include <algorithm>

#include "database/database.h"
#include "entities/display_units.h"
#include "hostcore/drawing_host.h"
#include "hostcore/internal/drawing_view.h"
#include "hostcore/visible_box.h"
#include "interaction/display/display_table_record.h"
#include "interaction/trackers/display_trecker.h"

namespace {

// Shown around all that is visible, as a part of it.
constexpr double kMargin = 0.04;

CRect logicalRect(const CQdrGePoint2d& a, const CQdrGePoint2d& b) {
  CRect rect(qdr::toLogical(a), qdr::toLogical(b));
  rect.NormalizeRect();
  return rect;
}

}  // namespace

namespace qdr {

// Also while an input waits: the paint of the display draws the marks of running inputs again.
void DrawingHost::repaint() {
  guarded([&] { display().Draw(&m_screen.dc()); });
}

void DrawingHost::onPaint() {
  repaint();
}

void DrawingHost::viewResized() {
  CRect client;
  m_view->GetClientRect(&client);
  if (client.IsRectEmpty()) return;
  guarded([&] {
    m_screen.resize(CSize(client.Width(), client.Height()));
    display().Onsize(client.Width(), client.Height());
    display().MakeUpDisplayWindow(&m_screen.dc());
  });
  repaint();
}

void DrawingHost::zoomAt(CPoint point, double scale) {
  guarded([&] { display().ScaleUpDown(&m_screen.dc(), point, scale); });
}

// A window of a few pixels is refused by the zoom of the display record, so the limits carry it.
HostAnswer DrawingHost::showWindow(const CQdrGePoint2d& min, const CQdrGePoint2d& max) {
  if (isBusy()) return {HostFault::busy, L"a command is running"};
  const CRect rect = logicalRect(min, max);
  if (rect.IsRectEmpty()) return {HostFault::refused, L"the window is empty"};
  guarded([&] {
    QdrDbDrawingVars_tag& vars = database().m_vars;
    const QdrXY limitsMin = vars.limitsMin;
    const QdrXY limitsMax = vars.limitsMax;
    vars.limitsMin.set(toWorld(rect.left), toWorld(rect.top));
    vars.limitsMax.set(toWorld(rect.right), toWorld(rect.bottom));
    display().ZoomAll();
    vars.limitsMin = limitsMin;
    vars.limitsMax = limitsMax;
    display().MakeUpDisplayWindow(&m_screen.dc());
  });
  repaint();
  return {};
}

HostAnswer DrawingHost::showExtents() {
  if (isBusy()) return {HostFault::busy, L"a command is running"};
  VisibleBox box;
  guarded([&] { box = visibleBox(display()); });
  if (box.isEmpty()) {
    zoomAll();
    return {};
  }
  const double side = std::max(box.max.x - box.min.x, box.max.y - box.min.y);
  box.widen(side * kMargin);
  return showWindow(box.min, box.max);
}

void DrawingHost::zoomIn() {
  display().ZoomIn(&m_screen.dc());
}

void DrawingHost::zoomOut() {
  display().ZoomOut(&m_screen.dc());
}

void DrawingHost::zoomPrevious() {
  display().ZoomPrev(&m_screen.dc());
}

void DrawingHost::zoomExtents() {
  display().ZoomExt();
  display().MakeUpDisplayWindow(&m_screen.dc());
  repaint();
}

void DrawingHost::zoomAll() {
  display().ZoomAll();
  display().MakeUpDisplayWindow(&m_screen.dc());
  repaint();
}

void DrawingHost::trackView(wchar_t mode) {
  CQdrGePoint2d start;
  if (handler().GetGePoint(QdrDb::ePromptFirstCorner, start) != kInputPick) return;
  handler().SetPrompt(QdrDb::ePromptOppositeCorner);
  CQdrDbDisplayTrecker tracker(m_view.get(), &database(), mode);
  tracker.Track(m_view.get(), display().GetDecivePoint(start));
  repaint();
}

}  // namespace qdr
