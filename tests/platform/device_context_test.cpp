#include "platform/device_context.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <random>

#include "tests/platform/canvas.h"

namespace {

__extension__ using Int128 = __int128;

struct MappingRow {
  const char* name;
  LONG windowOrg, windowExt, viewportOrg, viewportExt;
  LONG logical, device;  // checked from logical to device
  LONG back;             // and from that device value to logical
};

TEST(Mapping, RoundsHalvesAwayFromZeroPerAxis) {
  const MappingRow rows[] = {
      {"identity", 0, 1, 0, 1, -7, -7, -7},
      {"origins shift", 10, 1, 3, 1, 12, 5, 12},
      {"scaled down, half up", 0, 2, 0, 1, 3, 2, 4},             // 1.5 -> 2
      {"scaled down, half below zero", 0, 2, 0, 1, -3, -2, -4},  // -1.5 -> -2
      {"negative extent turns", 0, 100, 600, -600, 25, 450, 25},
      {"negative extent, half", 0, 4, 0, -2, 1, -1, 2},  // -0.5 -> -1; back -1 * 4 / -2
      {"window extent 0 is identity", 0, 0, 0, 50, 9, 9, 9},
      {"viewport extent 0 is identity", 0, 50, 0, 0, 9, 9, 9},
      {"thirds", 0, 3, 0, 1, 4, 1, 3},                                 // 1.33 -> 1
      {"half by a ratio with no exact double", 0, 10, 0, 3, 5, 2, 7},  // 1.5 -> 2; 6.67 -> 7
      {"beyond 32 bits stops at the limit", 0, 1, 0, 1000, 2147483647, 2147483647, 2147484},
      {"largest distance", INT32_MIN, 2, 0, 1, INT32_MAX, 2147483647, 2147483646},
  };
  for (const MappingRow& row : rows) {
    CDC dc;
    dc.SetMapMode(MM_ISOTROPIC);
    dc.SetWindowOrg(row.windowOrg, 0);
    dc.SetWindowExt(row.windowExt, 1);
    dc.SetViewportOrg(row.viewportOrg, 0);
    dc.SetViewportExt(row.viewportExt, 1);
    POINT point{row.logical, 5};
    dc.LPtoDP(&point);
    EXPECT_EQ(point.x, row.device) << row.name;
    EXPECT_EQ(point.y, 5) << row.name;
    dc.DPtoLP(&point);
    EXPECT_EQ(point.x, row.back) << row.name;
  }
}

// The reference works in 128-bit integers throughout.
TEST(Mapping, EqualsExactArithmeticOverTheWholeRange) {
  std::mt19937_64 random(20260704);
  const auto any = [&random] { return static_cast<std::int32_t>(random()) >> (random() % 31); };
  for (int i = 0; i < 200000; ++i) {
    qdr::AxisMap map;
    const std::int32_t wo = any(), vo = any(), we = any(), ve = any(), value = any();
    map.setOrigins(wo, vo);
    map.setExtents(we, ve);
    Int128 expected = Int128{value} - wo;
    if (we != 0 && ve != 0) {
      const Int128 top = expected * ve * (we < 0 ? -1 : 1);
      const Int128 bottom = we < 0 ? -Int128{we} : we;
      expected = (2 * (top < 0 ? -top : top) + bottom) / (2 * bottom) * (top < 0 ? -1 : 1);
    }
    expected += vo;
    if (expected > INT32_MAX) expected = INT32_MAX;
    if (expected < INT32_MIN) expected = INT32_MIN;
    ASSERT_EQ(map.toDevice(value), static_cast<std::int32_t>(expected))
        << wo << ' ' << vo << ' ' << we << ' ' << ve << ' ' << value;
    // The roads of points and lines, with an axis that is no square beside this one.
    const qdr::AxisMap plain;
    const CPoint mapped(static_cast<std::int32_t>(expected), we);
    ASSERT_EQ(qdr::AxisMap::toDevice(map, plain, value, we), mapped);
    const qdr::AxisMap::Ends ends =
        qdr::AxisMap::toDevice(plain, map, {CPoint(vo, wo), CPoint(we, value)});
    ASSERT_EQ(ends.from, CPoint(vo, map.toDevice(wo)));
    ASSERT_EQ(ends.to, CPoint(we, static_cast<std::int32_t>(expected)));
  }
}

TEST(Mapping, TextModePutsExtentsBack) {
  CDC dc;
  EXPECT_EQ(dc.SetMapMode(MM_ISOTROPIC), MM_TEXT);
  EXPECT_EQ(dc.SetWindowExt(10, 20), CSize(1, 1));
  EXPECT_EQ(dc.SetWindowOrg(3, 4), CPoint(0, 0));
  EXPECT_EQ(dc.SetMapMode(MM_TEXT), MM_ISOTROPIC);
  EXPECT_EQ(dc.GetWindowExt(), CSize(1, 1));
  EXPECT_EQ(dc.GetWindowOrg(), CPoint(3, 4));
}

TEST(State, StartsAsToldAndSettersAnswerTheOldValue) {
  CDC dc;
  EXPECT_EQ(dc.SetROP2(R2_XORPEN), R2_COPYPEN);
  EXPECT_EQ(dc.SetROP2(0), 0);
  EXPECT_EQ(dc.GetROP2(), R2_XORPEN);
  EXPECT_EQ(dc.SetBkColor(0x123456), kWhite);
  EXPECT_EQ(dc.GetBkColor(), 0x123456u);
  EXPECT_EQ(dc.SetBkMode(TRANSPARENT), OPAQUE);
  EXPECT_EQ(dc.SetTextColor(kRed), 0u);
  EXPECT_EQ(dc.SetTextAlign(TA_CENTER), 0u);
  EXPECT_EQ(dc.SetPolyFillMode(WINDING), ALTERNATE);
  EXPECT_EQ(dc.MoveTo(5, 6), CPoint(0, 0));
  LOGPEN pen;
  dc.GetCurrentPen()->GetLogPen(&pen);
  EXPECT_EQ(pen.lopnColor, 0u);
  EXPECT_EQ(pen.lopnWidth.x, 1);
  EXPECT_EQ(dc.GetCurrentBrush()->data().lbColor, kWhite);
}

TEST(Selection, AnswersThePreviousObjectOfItsKind) {
  CDC dc;
  CPen pen(PS_SOLID, 7, kGreen);
  CBrush brush(kRed);
  CPen* stock = dc.SelectObject(&pen);
  EXPECT_EQ(stock, GetStockObject(BLACK_PEN));
  EXPECT_EQ(dc.SelectGdiObject(&brush), GetStockObject(WHITE_BRUSH));
  EXPECT_EQ(dc.GetCurrentObject(OBJ_PEN), &pen);
  EXPECT_EQ(dc.SelectObject(stock), &pen);
  EXPECT_EQ(dc.GetCurrentObject(OBJ_BRUSH), &brush);
}

TEST(Selection, ObjectDestroyedWhileSelectedGivesItsPlaceToTheStockObject) {
  Canvas canvas(4, 1);
  CDC second;
  {
    CPen red(PS_SOLID, 1, kRed);
    canvas.dc.SelectObject(&red);
    second.SelectObject(&red);
    canvas.dc.LineTo(2, 0);
  }
  EXPECT_EQ(canvas.dc.GetCurrentPen(), GetStockObject(BLACK_PEN));
  EXPECT_EQ(second.GetCurrentPen(), GetStockObject(BLACK_PEN));
  canvas.dc.MoveTo(0, 0);
  canvas.dc.LineTo(1, 0);
  EXPECT_EQ(canvas.rows()[0], ".r..");
}

TEST(Selection, PenChangedWhileSelectedDrawsAsItIs) {
  Canvas canvas(3, 1);
  CPen pen(PS_SOLID, 1, kRed);
  canvas.dc.SelectObject(&pen);
  canvas.dc.LineTo(1, 0);
  pen.CreatePen(PS_SOLID, 1, kBlue);
  canvas.dc.LineTo(2, 0);
  EXPECT_EQ(canvas.rows()[0], "rb.");
}

struct WidthRow {
  const char* name;
  int width;
  int viewportExtent;  // over a window extent of 10
  int rows;            // height of a level line in pixels
};

TEST(Pen, WidthScalesWithTheMappingAndKeepsOnePixel) {
  const WidthRow rows[] = {
      {"zero is one pixel", 0, 50, 1},
      {"below zero is one pixel", -2, 50, 1},
      {"scaled up", 2, 20, 4},
      {"scaled down", 50, 1, 5},
      {"never less than a pixel", 3, 1, 1},
      {"mirrored axes", 3, -10, 3},
  };
  for (const WidthRow& row : rows) {
    Canvas canvas(30, 30);
    canvas.dc.SetWindowExt(10, 10);
    canvas.dc.SetViewportExt(row.viewportExtent, row.viewportExtent);
    canvas.dc.SetViewportOrg(15, 15);
    CPen pen(PS_SOLID | PS_GEOMETRIC, row.width, kWhite);
    canvas.dc.SelectObject(&pen);
    canvas.dc.MoveTo(-100, 0);
    canvas.dc.LineTo(100, 0);
    int height = 0;
    for (const std::string& line : canvas.rows())
      height += line[15] == '#';
    EXPECT_EQ(height, row.rows) << row.name;
  }
}

TEST(Position, MovesWithLinesAndArcsButNotWithPolylines) {
  Canvas canvas(10, 10);
  canvas.dc.MoveTo(1, 1);
  canvas.dc.LineTo(4, 5);
  EXPECT_EQ(canvas.dc.GetCurrentPosition(), CPoint(4, 5));
  const POINT points[] = {{0, 0}, {9, 9}};
  canvas.dc.Polyline(points, 2);
  EXPECT_EQ(canvas.dc.GetCurrentPosition(), CPoint(4, 5));
  canvas.dc.AngleArc(5, 5, 3, 0, 90);  // ends at (5 + 3 cos 90, 5 + 3 sin 90)
  EXPECT_EQ(canvas.dc.GetCurrentPosition(), CPoint(5, 8));
  canvas.dc.SetMapMode(MM_ISOTROPIC);
  canvas.dc.SetWindowOrg(100, 0);  // the position stays logical when the mapping moves
  EXPECT_EQ(canvas.dc.MoveTo(0, 0), CPoint(5, 8));
}

TEST(WithoutSurface, NothingIsDrawnAndNothingFails) {
  CDC dc;
  EXPECT_FALSE(dc.LineTo(5, 5));
  EXPECT_EQ(dc.GetCurrentPosition(), CPoint(5, 5));
  EXPECT_EQ(dc.GetPixel(0, 0), CLR_INVALID);
  dc.FillSolidRect(0, 0, 5, 5, kRed);
  EXPECT_EQ(dc.GetBkColor(), kRed);
  EXPECT_FALSE(dc.BitBlt(0, 0, 1, 1, &dc, 0, 0, SRCCOPY));
}

// Height 10: a character is 6 wide, 8 above the baseline and 2 below it.
struct TextRow {
  const char* name;
  unsigned align;
  int escapement;
  CRect box;  // of the pixels of two characters written at (50, 50), right and bottom outside
};

TEST(Text, FramesStandUnderAlignmentAndAngle) {
  const TextRow rows[] = {
      {"left top", TA_LEFT | TA_TOP, 0, {50, 50, 63, 61}},
      {"right baseline", TA_RIGHT | TA_BASELINE, 0, {38, 42, 51, 53}},
      {"centre bottom", TA_CENTER | TA_BOTTOM, 0, {44, 40, 57, 51}},
      {"a quarter turn up", TA_LEFT | TA_BASELINE, 900, {42, 38, 53, 51}},
      {"a quarter turn down", TA_LEFT | TA_BASELINE, -900, {48, 50, 59, 63}},
  };
  for (const TextRow& row : rows) {
    Canvas canvas(100, 100);
    LOGFONT data;
    data.lfHeight = 10;
    data.lfEscapement = row.escapement;
    CFont font;
    font.CreateFontIndirectW(&data);
    canvas.dc.SelectObject(&font);
    canvas.dc.SetTextColor(kWhite);
    canvas.dc.SetTextAlign(row.align);
    EXPECT_TRUE(canvas.dc.TextOut(50, 50, L"ab"));
    EXPECT_EQ(canvas.raster.takeDirty(), row.box) << row.name;
    EXPECT_EQ(canvas.dc.GetTextExtent(L"ab"), CSize(12, 10)) << row.name;
  }
}

TEST(Text, TurnsWithTheSignOfTheYAxis) {
  // With y upward a quarter turn of -90 degrees runs up the device: pixels above the start only.
  Canvas canvas(40, 40);
  canvas.dc.SetMapMode(MM_ISOTROPIC);
  canvas.dc.SetViewportOrg(0, 39);
  canvas.dc.SetViewportExt(1, -1);
  LOGFONT data;
  data.lfHeight = 10;
  data.lfEscapement = -900;
  CFont font;
  font.CreateFontIndirectW(&data);
  canvas.dc.SelectObject(&font);
  canvas.dc.SetTextAlign(TA_BASELINE);
  canvas.dc.TextOut(20, 20, L"ab");
  EXPECT_EQ(canvas.raster.takeDirty(), CRect(12, 7, 23, 20));
}

}  // namespace
