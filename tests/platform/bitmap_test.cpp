#include <gtest/gtest.h>

#include <cstring>
#include <random>

#include "tests/platform/canvas.h"

namespace {

using Rows = std::vector<std::string>;

// A memory context over a bitmap, and letters painted on it.
struct Memory {
  Memory(int width, int height, const Rows& art = {}) {
    EXPECT_TRUE(dc.CreateCompatibleDC(nullptr));
    EXPECT_TRUE(bitmap.CreateCompatibleBitmap(&dc, width, height));
    dc.SelectObject(&bitmap);
    for (std::size_t y = 0; y < art.size(); ++y)
      for (std::size_t x = 0; x < art[y].size(); ++x)
        dc.SetPixel(static_cast<int>(x), static_cast<int>(y), colorOfLetter(art[y][x]));
  }

  static COLORREF colorOfLetter(char letter) {
    switch (letter) {
      case 'r':
        return kRed;
      case 'g':
        return kGreen;
      case 'b':
        return kBlue;
      default:
        return letter == '#' ? kWhite : 0;
    }
  }

  CDC dc;
  CBitmap bitmap;
};

TEST(MemoryContext, DrawsOnTheBitmapSelectedIntoIt) {
  CDC dc;
  CBitmap bitmap;
  ASSERT_TRUE(dc.CreateCompatibleDC(nullptr));
  EXPECT_EQ(dc.GetDeviceCaps(HORZRES), 1);
  ASSERT_TRUE(bitmap.CreateCompatibleBitmap(&dc, 8, 4));
  EXPECT_EQ(dc.SelectObject(&bitmap), nullptr);
  dc.FillSolidRect(0, 0, 8, 4, kRed);
  EXPECT_EQ(dc.GetPixel(7, 3), kRed);
  EXPECT_EQ(dc.GetPixel(8, 3), CLR_INVALID);
  EXPECT_EQ(dc.SelectObject(static_cast<CBitmap*>(nullptr)), &bitmap);
  dc.FillSolidRect(0, 0, 8, 4, kBlue);
  EXPECT_EQ(qdr::colorOf(bitmap.pixels()->row(0)[0]), kRed);

  Canvas canvas(2, 2);
  EXPECT_EQ(canvas.dc.SelectObject(&bitmap), nullptr);
  EXPECT_FALSE(bitmap.CreateCompatibleBitmap(nullptr, 8, 4));
  EXPECT_FALSE(bitmap.CreateCompatibleBitmap(&dc, 0, 4));
  EXPECT_FALSE(bitmap.CreateCompatibleBitmap(&dc, INT32_MAX, INT32_MAX));
  EXPECT_EQ(bitmap.size(), CSize(8, 4));
}

struct BlitRow {
  const char* name;
  CRect to;  // x, y, cx, cy in logical units of the target
  CRect from;
  std::uint32_t rop;
  Rows expected;
};

TEST(Blit, CopiesStretchesMirrorsAndCombines) {
  const Rows art = {"rg.", "b#."};
  const BlitRow rows[] = {
      {"plain", {1, 0, 2, 2}, {0, 0, 2, 2}, SRCCOPY, {"grgg", "gb#g", "gggg"}},
      {"stretched twice", {0, 0, 4, 2}, {0, 0, 2, 2}, SRCCOPY, {"rrgg", "bb##", "gggg"}},
      {"mirrored", {2, 0, -2, 2}, {0, 0, 2, 2}, SRCCOPY, {"grgg", "#bgg", "gggg"}},
      {"or", {0, 0, 2, 2}, {0, 0, 2, 2}, SRCPAINT, {"?ggg", "?#gg", "gggg"}},
      {"exclusive or", {0, 0, 3, 1}, {0, 0, 3, 1}, SRCINVERT, {"?.gg", "gggg", "gggg"}},
      {"beyond the source", {0, 0, 4, 3}, {1, 0, 4, 3}, SRCCOPY, {"g.gg", "#.gg", "gggg"}},
      {"beyond the target", {3, 2, 2, 2}, {0, 0, 2, 2}, SRCCOPY, {"gggg", "gggg", "gggr"}},
      {"white", {0, 1, 4, 1}, {0, 0, 4, 1}, WHITENESS, {"gggg", "####", "gggg"}},
  };
  for (const BlitRow& row : rows) {
    Memory source(3, 2, art);
    Canvas target(4, 3);
    target.dc.FillSolidRect(0, 0, 4, 3, kGreen);
    EXPECT_TRUE(target.dc.StretchBlt(row.to.left, row.to.top, row.to.right, row.to.bottom,
                                     &source.dc, row.from.left, row.from.top, row.from.right,
                                     row.from.bottom, row.rop))
        << row.name;
    EXPECT_EQ(target.rows(), row.expected) << row.name;
  }
  Memory source(3, 2, art);
  Canvas target(4, 3);
  EXPECT_FALSE(target.dc.BitBlt(0, 0, 1, 1, &source.dc, 0, 0, 0x123456));
}

TEST(Blit, MapsThroughBothContexts) {
  Memory source(2, 2, {"rg", "b#"});
  Canvas target(2, 2);
  for (CDC* dc : {&source.dc, &target.dc}) {
    dc->SetMapMode(MM_ISOTROPIC);
    dc->SetWindowOrg(50, 50);
    dc->SetWindowExt(20, 20);
    dc->SetViewportOrg(0, 2);
    dc->SetViewportExt(2, -2);
  }
  // The whole window upward in both: nothing turns over.
  EXPECT_TRUE(target.dc.BitBlt(50, 50, 20, 20, &source.dc, 50, 50, SRCCOPY));
  EXPECT_EQ(target.rows(), (Rows{"rg", "b#"}));
  source.dc.SetMapMode(MM_TEXT);
  source.dc.SetWindowOrg(0, 0);
  source.dc.SetViewportOrg(0, 0);
  EXPECT_TRUE(target.dc.StretchBlt(50, 50, 20, 20, &source.dc, 0, 0, 2, 2, SRCCOPY));
  EXPECT_EQ(target.rows(), (Rows{"b#", "rg"}));
}

TEST(Blit, OntoItselfMovesOverlappingPixels) {
  Canvas canvas(5, 1);
  canvas.dc.SetPixel(0, 0, kRed);
  canvas.dc.SetPixel(1, 0, kGreen);
  canvas.dc.SetPixel(2, 0, kBlue);
  EXPECT_TRUE(canvas.dc.BitBlt(1, 0, 4, 1, &canvas.dc, 0, 0, SRCCOPY));
  EXPECT_EQ(canvas.rows(), (Rows{"rrgb."}));
}

TEST(Readout, TakesTheNearestEntryAndTheLowerOneOnATie) {
  Memory memory(3, 2);
  memory.dc.SetPixel(0, 0, kRed);
  memory.dc.SetPixel(1, 0, 0x0000f0);  // nearer to red than to black
  memory.dc.SetPixel(2, 0, 0x000002);  // 2 from black and 2 from red 4: the tie
  memory.dc.SetPixel(0, 1, kWhite);
  RGBQUAD palette[256] = {};
  palette[3] = {0, 0, 255, 0};
  palette[5] = {0, 0, 255, 0};
  palette[7] = {0, 0, 4, 0};
  palette[9] = {255, 255, 255, 0};
  BITMAPINFOHEADER header;
  header.biWidth = 3;
  header.biHeight = 2;
  header.biBitCount = 8;
  std::uint8_t bits[8];
  std::memset(bits, 77, sizeof(bits));
  ASSERT_EQ(memory.dc.GetDIBits(memory.bitmap, 0, 2, bits, header, palette), 2);
  // Bottom row first, rows padded to four bytes. 0x0000f0 is 15 from 255 and 240 from 0.
  const std::uint8_t expected[8] = {9, 0, 0, 0, 3, 3, 0, 0};
  EXPECT_EQ(std::memcmp(bits, expected, 8), 0);

  header.biHeight = -2;
  ASSERT_EQ(memory.dc.GetDIBits(memory.bitmap, 0, 1, bits, header, palette), 1);
  EXPECT_EQ(bits[0], 3);
  header.biWidth = 4;
  EXPECT_EQ(memory.dc.GetDIBits(memory.bitmap, 0, 2, bits, header, palette), 0);
}

TEST(Readout, EqualsAFullSearchForEveryPixel) {
  std::mt19937 random(5);
  Memory memory(64, 64);
  RGBQUAD palette[256];
  const auto byte = [&random] { return static_cast<std::uint8_t>(random() & 0xe0); };
  for (RGBQUAD& entry : palette)
    entry = {byte(), byte(), byte(), 0};
  for (int y = 0; y < 64; ++y)
    for (int x = 0; x < 64; ++x)
      memory.dc.SetPixel(x, y, random() & 0xf0f0f0);
  BITMAPINFOHEADER header;
  header.biWidth = 64;
  header.biHeight = -64;
  header.biBitCount = 8;
  std::vector<std::uint8_t> bits(64 * 64);
  ASSERT_EQ(memory.dc.GetDIBits(memory.bitmap, 0, 64, bits.data(), header, palette), 64);
  for (int i = 0; i < 64 * 64; ++i) {
    const COLORREF color = memory.dc.GetPixel(i % 64, i / 64);
    const auto distance = [&](int entry) {
      const int r = palette[entry].rgbRed - static_cast<int>(color & 0xff);
      const int g = palette[entry].rgbGreen - static_cast<int>(color >> 8 & 0xff);
      const int b = palette[entry].rgbBlue - static_cast<int>(color >> 16 & 0xff);
      return r * r + g * g + b * b;
    };
    for (int entry = 0; entry < 256; ++entry) {
      ASSERT_GE(distance(entry), distance(bits[i]));
      ASSERT_TRUE(entry >= bits[i] || distance(entry) > distance(bits[i]));
    }
  }
}

// A packed bitmap of 2 by 2 with 4 bits: entry 1 red, entry 2 white; bottom row first.
std::vector<std::uint8_t> packedBitmap() {
  BITMAPINFOHEADER header;
  header.biWidth = 2;
  header.biHeight = 2;
  header.biBitCount = 4;
  header.biClrUsed = 3;
  const RGBQUAD palette[3] = {{0, 0, 0, 0}, {0, 0, 255, 0}, {255, 255, 255, 0}};
  const std::uint8_t rows[8] = {0x10, 0, 0, 0, 0x21, 0, 0, 0};
  std::vector<std::uint8_t> bytes(sizeof(header) + sizeof(palette) + sizeof(rows));
  std::memcpy(bytes.data(), &header, sizeof(header));
  std::memcpy(bytes.data() + sizeof(header), palette, sizeof(palette));
  std::memcpy(bytes.data() + sizeof(header) + sizeof(palette), rows, sizeof(rows));
  return bytes;
}

TEST(PackedBitmap, ReadsRowsAndPalette) {
  CBitmap bitmap;
  const std::vector<std::uint8_t> bytes = packedBitmap();
  ASSERT_TRUE(bitmap.CreateDIBitmap(bytes.data(), bytes.size()));
  ASSERT_EQ(bitmap.size(), CSize(2, 2));
  EXPECT_EQ(qdr::colorOf(bitmap.pixels()->row(0)[0]), kWhite);
  EXPECT_EQ(qdr::colorOf(bitmap.pixels()->row(0)[1]), kRed);
  EXPECT_EQ(qdr::colorOf(bitmap.pixels()->row(1)[0]), kRed);
  EXPECT_EQ(qdr::colorOf(bitmap.pixels()->row(1)[1]), 0u);
}

TEST(PackedBitmap, AlteredBytesNeverReachBeyondTheEndAndFailureKeepsThePicture) {
  const std::vector<std::uint8_t> good = packedBitmap();
  CBitmap bitmap;
  ASSERT_TRUE(bitmap.CreateDIBitmap(good.data(), good.size()));
  for (std::size_t size = 0; size < good.size(); ++size) {
    const std::vector<std::uint8_t> cut(good.begin(),
                                        good.begin() + static_cast<std::ptrdiff_t>(size));
    EXPECT_FALSE(bitmap.CreateDIBitmap(cut.data(), cut.size())) << size;
    EXPECT_EQ(bitmap.size(), CSize(2, 2));
  }
  // The sanitizers watch these: any byte of the header, any value.
  std::mt19937 random(17);
  for (int i = 0; i < 20000; ++i) {
    std::vector<std::uint8_t> altered = good;
    for (int change = 0; change < 3; ++change)
      altered[random() % 44] = static_cast<std::uint8_t>(random());
    CBitmap other;
    if (other.CreateDIBitmap(altered.data(), altered.size())) {
      EXPECT_FALSE(other.isEmpty());
    }
  }
}

}  // namespace
