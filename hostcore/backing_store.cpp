#include "hostcore/backing_store.h"

#include <algorithm>

namespace {

std::shared_ptr<qdr::PixelBuffer> pixelsOf(CSize size) {
  return qdr::PixelBuffer::create(std::max<LONG>(size.cx, 1), std::max<LONG>(size.cy, 1));
}

std::shared_ptr<qdr::PixelBuffer> firstPixels(CSize size) {
  std::shared_ptr<qdr::PixelBuffer> pixels = pixelsOf(size);
  return pixels ? pixels : qdr::PixelBuffer::create(1, 1);
}

}  // namespace

namespace qdr {

BackingStore::BackingStore(CSize size) : m_raster(firstPixels(size)), m_dc(&m_raster) {}

void BackingStore::resize(CSize size) {
  const PixelBuffer& former = pixels();
  if (former.width() == size.cx && former.height() == size.cy) return;
  const std::shared_ptr<PixelBuffer> next = pixelsOf(size);
  if (!next) return;
  const int width = std::min(former.width(), next->width());
  const int height = std::min(former.height(), next->height());
  for (int y = 0; y < height; ++y)
    std::copy_n(former.row(y), width, next->row(y));
  m_raster.setPixels(next);
}

}  // namespace qdr
