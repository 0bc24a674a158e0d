#pragma once

#include <memory>

#include "platform/device_context.h"
#include "platform/export.h"
#include "platform/software_raster.h"

namespace qdr {

/// The picture of a view: pixels in memory and the device context that draws on them. A window
/// shows it and paints nothing itself, so raster operations always find what they drew before.
class QDR_API BackingStore {
 public:
  /// A side below 1 counts as 1.
  explicit BackingStore(CSize size);

  CDC& dc() { return m_dc; }
  const PixelBuffer& pixels() const { return *m_raster.sharedPixels(); }
  CSize size() const { return m_raster.size(); }

  /// Another size; what both sizes hold stays where it is. Without memory the size stays.
  void resize(CSize size);

  /// The box of what was drawn since the last call.
  CRect takeDirty() { return m_raster.takeDirty(); }

 private:
  SoftwareRaster m_raster;
  CDC m_dc;
};

}  // namespace qdr
