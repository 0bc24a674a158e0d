#include "hostcore/page.h"

#include <exception>

#include "database/database.h"
#include "interaction/display/display_table_record.h"
#include "platform/device_context.h"

namespace {

constexpr const wchar_t* kPrintColor = L"255";

}  // namespace

namespace qdr {

void drawPage(DrawingHost& host, IDeviceSurface& surface, COLORREF background) {
  CDC dc(&surface);
  const CRect& window = host.display().logicalWindow();
  const CSize size = surface.size();
  dc.SetMapMode(MM_ISOTROPIC);
  dc.SetWindowOrg(window.left, window.top);
  dc.SetWindowExt(window.Width(), window.Height());
  // The negative extent turns y upward.
  dc.SetViewportOrg(0, size.cy);
  dc.SetViewportExt(size.cx, -size.cy);
  dc.FillSolidRect(window, background);
  host.display().DrawEntities(&dc);
}

HostAnswer print(DrawingHost& host, IDeviceSurface& surface) {
  if (host.isBusy()) return {HostFault::busy, L"a command is running"};
  if (!surface.isPrinting()) return {HostFault::refused, L"the surface does not print"};
  CQdrDbColorTable& colors = host.database().m_colorTable;
  const bool hadColor = colors.has(kPrintColor);
  CDC dc(&surface);
  bool printed = true;
  try {
    host.display().MakeUpDisplayWindow(&dc);
    host.display().Draw(&dc);
  } catch (const std::exception&) {
    printed = false;
  }
  // The pass makes the record of its colour when the drawing has none.
  if (!hadColor) colors.removeRecord(kPrintColor);
  host.display().MakeUpDisplayWindow(&host.screen().dc());
  host.repaint();
  return printed ? HostAnswer() : HostAnswer{HostFault::refused, L"the page cannot be drawn"};
}

}  // namespace qdr
