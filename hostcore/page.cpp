#include "hostcore/page.h"

#include "interaction/display/display_table_record.h"
#include "platform/device_context.h"

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

}  // namespace qdr
