#include "tests/support/sketch.h"

#include "entities/display_units.h"
#include "entities/entity.h"
#include "platform/device_context.h"
#include "platform/headless/recording_surface.h"

namespace {

constexpr double kHalfSide = 20.0;
constexpr int kPixels = 400;
constexpr COLORREF kWhite = 0xffffff;

static_assert(kPixels * qdr::test::kSketchPixel == 2 * kHalfSide);

// Shows the world from (left, top) on at so many pixels a unit, upward.
void mapView(CDC& dc, double left, double top, double side, int pixels) {
  dc.SetMapMode(MM_ANISOTROPIC);
  dc.SetWindowOrg(qdr::toLogical(left), qdr::toLogical(top));
  dc.SetWindowExt(qdr::toLogical(side), -qdr::toLogical(side));
  dc.SetViewportExt(pixels, pixels);
}

// A white picture that is selected into a context while it lives.
struct Canvas {
  Canvas(int width, int height) {
    dc.CreateCompatibleDC(nullptr);
    bitmap.CreateCompatibleBitmap(&dc, width, height);
    former = dc.SelectObject(&bitmap);
    dc.FillSolidRect(0, 0, width, height, kWhite);
  }
  ~Canvas() { dc.SelectObject(former); }
  Canvas(const Canvas&) = delete;
  Canvas& operator=(const Canvas&) = delete;

  bool isDrawn(int x, int y) { return qdr::colorOf(bitmap.pixels()->row(y)[x]) != kWhite; }

  CDC dc;
  CBitmap bitmap;
  CBitmap* former = nullptr;
};

}  // namespace

namespace qdr::test {

std::string pictureOf(const std::vector<CQdrDbEntity*>& entities, int width, int height) {
  Canvas canvas(width, height);
  mapView(canvas.dc, 0.0, height, width, width);
  for (CQdrDbEntity* entity : entities)
    entity->Draw(&canvas.dc);
  std::string picture;
  for (int y = 0; y < height; ++y) {
    picture += '|';
    for (int x = 0; x < width; ++x)
      picture += canvas.isDrawn(x, y) ? '#' : '.';
    picture += "|\n";
  }
  return picture;
}

std::vector<std::string> operationsOf(CQdrDbEntity& entity) {
  constexpr int kSide = 20;
  RecordingSurface surface(CSize(kSide, kSide));
  CDC dc(&surface);
  mapView(dc, 0.0, kSide, kSide, kSide);
  entity.Draw(&dc);
  return surface.lines();
}

std::vector<CQdrGePoint2d> drawnPoints(CQdrDbEntity& entity) {
  Canvas canvas(kPixels, kPixels);
  mapView(canvas.dc, -kHalfSide, kHalfSide, 2 * kHalfSide, kPixels);
  entity.Draw(&canvas.dc);
  std::vector<CQdrGePoint2d> points;
  for (int y = 0; y < kPixels; ++y)
    for (int x = 0; x < kPixels; ++x)
      if (canvas.isDrawn(x, y))
        points.emplace_back(-kHalfSide + x * kSketchPixel, kHalfSide - y * kSketchPixel);
  return points;
}

}  // namespace qdr::test
