#include <gtest/gtest.h>

#include <algorithm>

#include "database/database.h"
#include "entities/line.h"
#include "platform/frame.h"
#include "platform/headless/headless_platform.h"
#include "tests/support/drawing_bytes.h"

namespace {

using qdr_test::numberAt;

constexpr std::size_t kThumbnail = 1286;
constexpr std::size_t kPalette = kThumbnail + 40;
constexpr std::size_t kRows = kPalette + 4 * 256;

class Thumbnail : public testing::Test {
 protected:
  Thumbnail() {
    // Along the lower edge of the window, which is that of the limits, (0, 0) to (420, 297).
    auto* line = new CQdrDbLine(&database);
    line->setStartPoint({0.0, 0.0});
    line->setEndPoint({420.0, 0.0});
    CQdrDbObjectId id;
    database.addEntity(line, id);
    database.m_header.thumbnail[7] = 0x77;
    database.m_header.thumbnail[qdr::kThumbnailBytes - 1] = 0x77;
  }
  ~Thumbnail() override { qdr::setMainFrame(nullptr); }

  std::uint8_t pixel(const std::string& bytes, std::size_t row, std::size_t column) const {
    return numberAt<std::uint8_t>(bytes, kRows + 160 * row + column);
  }

  qdr::HeadlessPlatform headless;
  qdr::ScopedPlatform scope{headless.context()};
  CQdrDbDatabase database{false};
};

TEST_F(Thumbnail, StaysWithoutAView) {
  const std::string bytes = qdr_test::savedBytes(database);
  EXPECT_EQ(numberAt<std::uint8_t>(bytes, kThumbnail + 7), 0x77);
}

TEST_F(Thumbnail, IsAPackedBitmapOfTheWindow) {
  CFrameWnd frame;
  CView view;
  frame.SetActiveView(&view);
  qdr::setMainFrame(&frame);
  const std::string bytes = qdr_test::savedBytes(database);
  EXPECT_EQ(numberAt<std::uint32_t>(bytes, kThumbnail), 40u);
  EXPECT_EQ(numberAt<std::int32_t>(bytes, kThumbnail + 4), 160);
  EXPECT_EQ(numberAt<std::int32_t>(bytes, kThumbnail + 8), 120);
  EXPECT_EQ(numberAt<std::uint16_t>(bytes, kThumbnail + 12), 1);
  EXPECT_EQ(numberAt<std::uint16_t>(bytes, kThumbnail + 14), 8);
  // Colour 1 is red: blue, green, red, 0.
  EXPECT_EQ(numberAt<std::uint32_t>(bytes, kPalette + 4), 0x00FF0000u);
  // The rows of the device run with y, the rows of the bitmap from the bottom of the device: the
  // lower edge of the window is the last row. White is colour 0, black colour 255.
  EXPECT_EQ(pixel(bytes, 119, 0), 0);
  EXPECT_EQ(pixel(bytes, 119, 159), 0);
  EXPECT_EQ(pixel(bytes, 118, 80), 255);
  EXPECT_EQ(pixel(bytes, 0, 80), 255);
  const auto tail = bytes.substr(kRows + 160 * 120, qdr::kThumbnailBytes - 20264);
  EXPECT_TRUE(std::ranges::all_of(tail, [](char byte) { return byte == 0; }));
}

}  // namespace
