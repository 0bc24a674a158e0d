#include <algorithm>
#include <cstring>

#include "platform/gdi_objects.h"

CBitmap::CBitmap() : CGdiObject(OBJ_BITMAP) {}

CBitmap::~CBitmap() = default;

bool CBitmap::CreateCompatibleBitmap(const CDC* dc, int width, int height) {
  if (!dc) return false;
  std::shared_ptr<qdr::PixelBuffer> pixels = qdr::PixelBuffer::create(width, height);
  if (!pixels) return false;
  m_pixels = std::move(pixels);
  contentChanged();
  return true;
}

CSize CBitmap::size() const {
  return m_pixels ? CSize(m_pixels->width(), m_pixels->height()) : CSize(0, 0);
}

namespace {

// A packed bitmap whose parts all lie within its bytes.
struct PackedBitmap {
  int width = 0;
  int height = 0;
  bool topDown = false;
  unsigned bits = 0;
  std::size_t rowBytes = 0;
  const std::uint8_t* palette = nullptr;
  std::size_t paletteSize = 0;
  const std::uint8_t* rows = nullptr;
};

bool isKnownDepth(unsigned bits) {
  return bits == 1 || bits == 4 || bits == 8 || bits == 24 || bits == 32;
}

bool parsePacked(const std::uint8_t* bytes, std::size_t size, PackedBitmap& bitmap) {
  BITMAPINFOHEADER header;
  if (!bytes || size < sizeof(header)) return false;
  std::memcpy(&header, bytes, sizeof(header));
  if (header.biSize < sizeof(header) || header.biSize > size) return false;
  if (header.biCompression != 0 || !isKnownDepth(header.biBitCount)) return false;
  if (header.biWidth <= 0 || header.biHeight == 0 || header.biHeight == INT32_MIN) return false;

  bitmap.width = header.biWidth;
  bitmap.topDown = header.biHeight < 0;
  bitmap.height = bitmap.topDown ? -header.biHeight : header.biHeight;
  bitmap.bits = header.biBitCount;
  bitmap.rowBytes = (static_cast<std::size_t>(bitmap.width) * bitmap.bits + 31) / 32 * 4;
  const std::size_t full = bitmap.bits <= 8 ? std::size_t{1} << bitmap.bits : 0;
  const std::size_t used = header.biClrUsed;
  bitmap.paletteSize = used && bitmap.bits <= 8 ? std::min(used, full) : std::max(used, full);

  std::size_t left = size - header.biSize;
  if (bitmap.paletteSize > left / sizeof(RGBQUAD)) return false;
  left -= bitmap.paletteSize * sizeof(RGBQUAD);
  if (static_cast<std::size_t>(bitmap.height) > left / bitmap.rowBytes) return false;
  bitmap.palette = bytes + header.biSize;
  bitmap.rows = bitmap.palette + bitmap.paletteSize * sizeof(RGBQUAD);
  return true;
}

qdr::Pixel pixelAt(const PackedBitmap& bitmap, const std::uint8_t* row, std::size_t x) {
  const auto blueGreenRed = [](const std::uint8_t* at) {
    return 0xff000000u | static_cast<qdr::Pixel>(at[2] << 16 | at[1] << 8 | at[0]);
  };
  if (bitmap.bits >= 24) return blueGreenRed(row + x * (bitmap.bits / 8));
  const std::size_t bit = x * bitmap.bits;
  const unsigned shift = 8u - bitmap.bits - static_cast<unsigned>(bit % 8);
  const std::size_t index = (row[bit / 8] >> shift) & ((1u << bitmap.bits) - 1);
  if (index >= bitmap.paletteSize) return 0xff000000u;
  return blueGreenRed(bitmap.palette + index * sizeof(RGBQUAD));
}

}  // namespace

bool CBitmap::CreateDIBitmap(const void* packed, std::size_t size) {
  PackedBitmap bitmap;
  if (!parsePacked(static_cast<const std::uint8_t*>(packed), size, bitmap)) return false;
  std::shared_ptr<qdr::PixelBuffer> pixels = qdr::PixelBuffer::create(bitmap.width, bitmap.height);
  if (!pixels) return false;
  for (int y = 0; y < bitmap.height; ++y) {
    const int fileRow = bitmap.topDown ? y : bitmap.height - 1 - y;
    const std::uint8_t* source = bitmap.rows + static_cast<std::size_t>(fileRow) * bitmap.rowBytes;
    qdr::Pixel* target = pixels->row(y);
    for (int x = 0; x < bitmap.width; ++x)
      target[x] = pixelAt(bitmap, source, static_cast<std::size_t>(x));
  }
  m_pixels = std::move(pixels);
  contentChanged();
  return true;
}
