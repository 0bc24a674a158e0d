// The small picture of a drawing that its header carries.

#include <array>
#include <cstring>
#include <memory>

#include "database/color_index.h"
#include "database/database.h"
#include "database/entity_access.h"
#include "platform/device_context.h"
#include "platform/frame.h"
#include "platform/gdi_objects.h"

namespace {

constexpr int kWidth = qdr::kThumbnailWidth;
constexpr int kHeight = qdr::kThumbnailHeight;
constexpr std::size_t kColors = 256;

// A packed bitmap: header, colours, rows.
struct PackedBitmap {
  BITMAPINFOHEADER header;
  std::array<RGBQUAD, kColors> colors;
  std::uint8_t rows[kWidth * kHeight];
};
static_assert(sizeof(PackedBitmap) == 20264);
static_assert(sizeof(PackedBitmap) <= qdr::kThumbnailBytes);

std::array<RGBQUAD, kColors> palette() {
  std::array<RGBQUAD, kColors> colors;
  for (std::size_t i = 0; i < kColors; ++i) {
    const std::uint32_t value = _dwColorIndex[i];
    colors[i] = {static_cast<std::uint8_t>(value >> 16), static_cast<std::uint8_t>(value >> 8),
                 static_cast<std::uint8_t>(value), 0};
  }
  return colors;
}

// The window fills the picture with y downward, as the rows of a device run: the picture stands on
// its head.
void mapWindow(CDC& dc, const CRect& window) {
  dc.SetMapMode(MM_ISOTROPIC);
  dc.SetWindowOrg(window.left, window.top);
  dc.SetWindowExt(window.Width(), window.Height());
  dc.SetViewportOrg(0, 0);
  dc.SetViewportExt(kWidth, kHeight);
}

void drawMembers(CDC& dc, const std::set<CQdrDbObjectId>& members) {
  for (const CQdrDbObjectId& id : members) {
    if (CQdrDbEntity* entity = qdr::asEntity(id)) qdr::drawEntity(*entity, &dc);
  }
}

}  // namespace

void CQdrDbDatabase::DrawThumnail() {
  CQdrDbDisplayTableRecord* display = m_displayTable.getCurrentRecord();
  if (!qdr::activeView() || !display) return;
  CDC dc;
  CBitmap bitmap;
  if (!dc.CreateCompatibleDC(nullptr) || !bitmap.CreateCompatibleBitmap(&dc, kWidth, kHeight)) {
    return;
  }
  CBitmap* former = dc.SelectObject(&bitmap);
  const CRect window = display->logicalWindow();
  mapWindow(dc, window);
  dc.FillSolidRect(window, 0);
  drawMembers(dc, display->getDisplayedIdSet());

  auto picture = std::make_unique<PackedBitmap>();
  picture->header.biWidth = kWidth;
  picture->header.biHeight = kHeight;
  picture->header.biBitCount = 8;
  picture->colors = palette();
  dc.GetDIBits(bitmap, 0, kHeight, picture->rows, picture->header, picture->colors.data());
  dc.SelectObject(former);
  std::memset(m_header.thumbnail, 0, sizeof m_header.thumbnail);
  std::memcpy(m_header.thumbnail, picture.get(), sizeof *picture);
}
