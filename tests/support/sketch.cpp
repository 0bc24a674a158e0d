#include "tests/support/sketch.h"

#include "entities/display_units.h"
#include "entities/entity.h"
#include "platform/device_context.h"

namespace {

constexpr double kHalfSide = 20.0;
constexpr int kPixels = 400;
constexpr COLORREF kWhite = 0xffffff;

static_assert(kPixels * qdr::test::kSketchPixel == 2 * kHalfSide);

}  // namespace

namespace qdr::test {

std::vector<CQdrGePoint2d> drawnPoints(CQdrDbEntity& entity) {
  CDC dc;
  dc.CreateCompatibleDC(nullptr);
  CBitmap bitmap;
  bitmap.CreateCompatibleBitmap(&dc, kPixels, kPixels);
  CBitmap* former = dc.SelectObject(&bitmap);
  dc.FillSolidRect(0, 0, kPixels, kPixels, kWhite);
  const int side = toLogical(2 * kHalfSide);
  dc.SetMapMode(MM_ANISOTROPIC);
  dc.SetWindowOrg(toLogical(-kHalfSide), toLogical(kHalfSide));
  dc.SetWindowExt(side, -side);
  dc.SetViewportExt(kPixels, kPixels);
  entity.Draw(&dc);

  std::vector<CQdrGePoint2d> points;
  const PixelBuffer& picture = *bitmap.pixels();
  for (int y = 0; y < kPixels; ++y)
    for (int x = 0; x < kPixels; ++x)
      if (colorOf(picture.row(y)[x]) != kWhite)
        points.emplace_back(-kHalfSide + x * kSketchPixel, kHalfSide - y * kSketchPixel);
  dc.SelectObject(former);
  return points;
}

}  // namespace qdr::test
