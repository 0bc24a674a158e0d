#include "platform/device_surface.h"

namespace qdr {

int IDeviceSurface::deviceCaps(int index) const {
  const CSize sides = size();
  switch (index) {
    case HORZRES:
    case PHYSICALWIDTH:
      return sides.cx;
    case VERTRES:
    case PHYSICALHEIGHT:
      return sides.cy;
    default:
      return 0;
  }
}

COLORREF IDeviceSurface::getPixel(CPoint) const {
  return CLR_INVALID;
}

bool IDeviceSurface::drawImage(const DeviceState&, const ImageTransfer&) {
  return false;
}

bool IDeviceSurface::drawText(const DeviceState&, const DeviceText&) {
  return false;
}

}  // namespace qdr
