#include "platform/pixel_buffer.h"

#include <algorithm>
#include <new>

namespace qdr {

namespace {

constexpr std::int64_t kMaxPixels = std::int64_t{1} << 28;
constexpr Pixel kBlack = 0xff000000u;

}  // namespace

std::shared_ptr<PixelBuffer> PixelBuffer::create(int width, int height) {
  if (width <= 0 || height <= 0) return nullptr;
  const std::int64_t area = std::int64_t{width} * height;
  if (area > kMaxPixels) return nullptr;
  std::unique_ptr<Pixel[]> storage(new (std::nothrow) Pixel[static_cast<std::size_t>(area)]);
  if (!storage) return nullptr;
  std::fill_n(storage.get(), area, kBlack);
  std::shared_ptr<PixelBuffer> buffer = borrow(storage.get(), width, height, width);
  buffer->m_storage = std::move(storage);
  return buffer;
}

std::shared_ptr<PixelBuffer> PixelBuffer::borrow(Pixel* pixels, int width, int height, int stride) {
  std::shared_ptr<PixelBuffer> buffer(new PixelBuffer);
  buffer->m_pixels = pixels;
  buffer->m_width = width;
  buffer->m_height = height;
  buffer->m_stride = stride;
  return buffer;
}

}  // namespace qdr
