#include "tests/hostcore/stage_pictures.h"

namespace qdr::test {

std::vector<Pixel> pixelsOf(ScriptStage& stage) {
  const PixelBuffer& pixels = stage.host().screen().pixels();
  std::vector<Pixel> all;
  for (int y = 0; y < pixels.height(); ++y)
    all.insert(all.end(), pixels.row(y), pixels.row(y) + pixels.width());
  return all;
}

std::vector<CPoint> differences(const std::vector<Pixel>& a, const std::vector<Pixel>& b,
                                int width) {
  std::vector<CPoint> places;
  for (std::size_t i = 0; i < a.size() && i < b.size(); ++i) {
    const int at = static_cast<int>(i);
    if (a[i] != b[i]) places.emplace_back(at % width, at / width);
  }
  return places;
}

}  // namespace qdr::test
