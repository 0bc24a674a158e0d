#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <random>

#include "tests/platform/canvas.h"

namespace {

using Rows = std::vector<std::string>;

struct Shape {
  const char* name;
  std::function<void(CDC&)> draw;
};

const std::vector<Shape>& shapes() {
  static const POINT star[] = {{20, 2}, {32, 38}, {2, 14}, {38, 14}, {8, 38}, {20, 2}};
  static const POINT comb[] = {{3, 3}, {30, 3}, {30, 3}, {3, 3}, {3, 20}, {40, 20}, {5, 20}};
  static const std::vector<Shape> all = {
      {"line", [](CDC& dc) { dc.MoveTo(2, 3), dc.LineTo(35, 21); }},
      {"chain of lines", [](CDC& dc) { dc.MoveTo(2, 3), dc.LineTo(30, 9), dc.LineTo(4, 30); }},
      {"crossing polyline", [](CDC& dc) { dc.Polyline(star, 6); }},
      {"retraced polyline", [](CDC& dc) { dc.Polyline(comb, 7); }},
      {"polygon", [](CDC& dc) { dc.Polygon(star, 5); }},
      {"rectangle", [](CDC& dc) { dc.Rectangle(5, 6, 30, 25); }},
      {"rectangle of one column", [](CDC& dc) { dc.Rectangle(5, 6, 6, 25); }},
      {"ellipse", [](CDC& dc) { dc.Ellipse(5, 6, 36, 25); }},
      {"arc with lead", [](CDC& dc) { dc.MoveTo(2, 2), dc.AngleArc(20, 20, 12, 30, 200); }},
      {"circle", [](CDC& dc) { dc.MoveTo(32, 20), dc.AngleArc(20, 20, 12, 0, 360); }},
      {"circle beyond the edge", [](CDC& dc) { dc.AngleArc(40, 20, 31, 10, -340); }},
      {"text", [](CDC& dc) { dc.TextOut(3, 10, L"abc"); }},
  };
  return all;
}

struct Tool {
  const char* name;
  int style;
  int width;
  std::vector<DWORD> dashes;
  std::uint32_t brush;
};

const std::vector<Tool>& tools() {
  static const std::vector<Tool> all = {
      {"thin, hollow", PS_SOLID, 1, {}, BS_HOLLOW},
      {"thin, solid brush", PS_SOLID, 0, {}, BS_SOLID},
      {"dotted, hatched", PS_DOT, 1, {}, BS_HATCHED},
      {"dashed", PS_GEOMETRIC | PS_USERSTYLE, 1, {5, 2, 0, 2}, BS_HOLLOW},
      {"wide round, solid brush", PS_GEOMETRIC, 4, {}, BS_SOLID},
      {"wide square and mitred",
       PS_GEOMETRIC | PS_ENDCAP_SQUARE | PS_JOIN_MITER,
       3,
       {},
       BS_HATCHED},
      {"wide flat and bevelled, dashed",
       PS_GEOMETRIC | PS_USERSTYLE | PS_ENDCAP_FLAT | PS_JOIN_BEVEL,
       5,
       {7, 3},
       BS_SOLID},
  };
  return all;
}

void paint(Canvas& canvas, const Shape& shape, const Tool& tool, int rop2, COLORREF color) {
  const LOGBRUSH ink{BS_SOLID, color, 0};
  CPen pen;
  if (tool.dashes.empty()) {
    pen.CreatePen(tool.style, tool.width, color);
  } else {
    pen.CreatePen(tool.style, tool.width, &ink, static_cast<int>(tool.dashes.size()),
                  tool.dashes.data());
  }
  const LOGBRUSH fill{tool.brush, color, HS_DIAGCROSS};
  CBrush brush;
  brush.CreateBrushIndirect(&fill);
  canvas.dc.SelectObject(&pen);
  canvas.dc.SelectObject(&brush);
  canvas.dc.SetTextColor(color);
  canvas.dc.SetBkColor(color);
  canvas.dc.SetROP2(rop2);
  canvas.dc.MoveTo(0, 0);
  shape.draw(canvas.dc);
}

void fillWithNoise(Canvas& canvas, std::mt19937& random) {
  for (int y = 0; y < canvas.pixels->height(); ++y)
    for (int x = 0; x < canvas.pixels->width(); ++x)
      canvas.pixels->row(y)[x] = 0xff000000u | (random() & 0xffffff);
}

TEST(ExclusiveOr, TouchesEachPixelOnceAndTheSameCallErases) {
  std::mt19937 random(99);
  for (const Shape& shape : shapes()) {
    for (const Tool& tool : tools()) {
      Canvas copied(44, 42);
      paint(copied, shape, tool, R2_COPYPEN, kWhite);
      Canvas canvas(44, 42);
      paint(canvas, shape, tool, R2_XORPEN, kWhite);
      // On black each pixel touched once is white; one touched twice would be black again.
      const bool oneCall = shape.name != std::string("chain of lines");
      if (oneCall) {
        EXPECT_EQ(canvas.rows(), copied.rows()) << shape.name << ", " << tool.name;
      }
      EXPECT_GT(canvas.count(kWhite), 0) << shape.name << ", " << tool.name;

      for (const int rop2 : {R2_XORPEN, R2_NOTXORPEN}) {
        fillWithNoise(canvas, random);
        const std::vector<qdr::Pixel> before = canvas.copy();
        paint(canvas, shape, tool, rop2, 0x4080c0);
        EXPECT_NE(canvas.copy(), before) << shape.name << ", " << tool.name;
        paint(canvas, shape, tool, rop2, 0x4080c0);
        EXPECT_EQ(canvas.copy(), before) << shape.name << ", " << tool.name << ", " << rop2;
      }
    }
  }
}

TEST(RasterOperation, CombinesEveryBitOfPenAndPixel) {
  const COLORREF d = 0x00ff0f;
  const COLORREF p = 0x0ff0f0;
  const struct {
    int rop2;
    COLORREF expected;
  } rows[] = {{R2_BLACK, 0},
              {R2_MASKPENNOT, d & ~p & 0xffffff},
              {R2_NOT, ~d & 0xffffff},
              {R2_XORPEN, d ^ p},
              {R2_NOP, d},
              {R2_NOTXORPEN, ~(d ^ p) & 0xffffff},
              {R2_COPYPEN, p},
              {R2_WHITE, 0xffffff}};
  for (const auto& row : rows) {
    Canvas canvas(4, 4);
    canvas.dc.FillSolidRect(0, 0, 4, 4, d);
    CPen pen(PS_SOLID, 1, p);
    CBrush brush(p);
    canvas.dc.SelectObject(&pen);
    canvas.dc.SelectObject(&brush);
    canvas.dc.SetROP2(row.rop2);
    canvas.dc.LineTo(1, 0);
    EXPECT_EQ(canvas.dc.GetPixel(0, 0), row.expected) << row.rop2;
    canvas.dc.Rectangle(1, 1, 4, 4);
    EXPECT_EQ(canvas.dc.GetPixel(2, 2), row.expected) << row.rop2 << " brush";
    EXPECT_EQ(canvas.pixels->row(2)[2] >> 24, 0xffu) << row.rop2 << " top byte";
  }
}

TEST(Clipping, HidesAndNeverChangesAShape) {
  const CRect window(9, 7, 27, 23);
  CRgn region;
  region.CreateRectRgn(window.left, window.top, window.right, window.bottom);
  for (const Shape& shape : shapes()) {
    for (const Tool& tool : tools()) {
      Canvas whole(44, 42);
      paint(whole, shape, tool, R2_COPYPEN, kWhite);
      Canvas clipped(44, 42);
      clipped.dc.SelectClipRgn(&region);
      paint(clipped, shape, tool, R2_COPYPEN, kWhite);
      for (int y = 0; y < 42; ++y)
        for (int x = 0; x < 44; ++x)
          if (!window.PtInRect(CPoint(x, y))) whole.pixels->row(y)[x] = 0xff000000u;
      EXPECT_EQ(clipped.rows(), whole.rows()) << shape.name << ", " << tool.name;
    }
  }
}

TEST(Polygon, FillModesDifferWhereAContourCrossesItself) {
  // The inner square is wound twice in the same sense.
  const POINT points[] = {{0, 0}, {8, 0}, {8, 6}, {2, 6}, {2, 2}, {6, 2}, {6, 4}, {0, 4}};
  const auto filled = [&points](int mode) {
    Canvas canvas(9, 7);
    CBrush brush(kWhite);
    canvas.dc.SelectObject(&brush);
    canvas.dc.SelectStockObject(NULL_PEN);
    canvas.dc.SetPolyFillMode(mode);
    canvas.dc.Polygon(points, 8);
    return canvas.rows();
  };
  EXPECT_EQ(filled(ALTERNATE), (Rows{"########.", "########.", "##....##.", "##....##.",
                                     "..######.", "..######.", "........."}));
  EXPECT_EQ(filled(WINDING), (Rows{"########.", "########.", "########.", "########.", "..######.",
                                   "..######.", "........."}));
}

TEST(Polygon, FillsUnderItsOutlineAndHugeCoordinatesStayExact) {
  Canvas canvas(6, 5);
  CPen pen(PS_SOLID, 1, kRed);
  CBrush brush(kGreen);
  canvas.dc.SelectObject(&pen);
  canvas.dc.SelectObject(&brush);
  const POINT triangle[] = {{0, 0}, {4, 0}, {0, 4}};
  canvas.dc.Polygon(triangle, 3);
  EXPECT_EQ(canvas.rows(), (Rows{"rrrrr.", "rggr..", "rgr...", "rr....", "r....."}));

  // Below the line from one corner of the coordinate range to the other: x <= y in the picture.
  Canvas huge(4, 4);
  huge.dc.SelectObject(&brush);
  huge.dc.SelectStockObject(NULL_PEN);
  const POINT half[] = {{INT32_MIN, INT32_MIN}, {INT32_MAX, INT32_MAX}, {INT32_MIN, INT32_MAX}};
  huge.dc.Polygon(half, 3);
  EXPECT_EQ(huge.rows(), (Rows{"....", "g...", "gg..", "ggg."}));
}

TEST(Rectangle, TakesCornersInEitherOrderAndHollowFillsNothing) {
  for (const CRect& rect : {CRect(1, 1, 5, 4), CRect(5, 4, 1, 1), CRect(1, 4, 5, 1)}) {
    Canvas canvas(6, 5);
    CPen pen(PS_SOLID, 1, kWhite);
    canvas.dc.SelectObject(&pen);
    canvas.dc.SelectStockObject(HOLLOW_BRUSH);
    canvas.dc.Rectangle(rect);
    EXPECT_EQ(canvas.rows(), (Rows{"......", ".####.", ".#..#.", ".####.", "......"}));
  }
}

TEST(Ellipse, FillsItsBoxUpToTheRightAndBottomSide) {
  Canvas canvas(8, 6);
  CPen pen(PS_SOLID, 1, kRed);
  CBrush brush(kGreen);
  canvas.dc.SelectObject(&pen);
  canvas.dc.SelectObject(&brush);
  canvas.dc.Ellipse(0, 0, 7, 5);
  // Half axes 3.5 and 2.5 about (3, 2): the rows reach 3.5 sqrt(1 - (dy / 2.5)^2) = 3.5, 3.2, 2.1.
  EXPECT_EQ(canvas.rows(),
            (Rows{".rrrrr..", "rgggggr.", "rgggggr.", "rgggggr.", ".rrrrr..", "........"}));
}

// Every pixel of a thin circle lies within three quarters of a pixel of it, and every direction
// has one.
TEST(AngleArc, RunsAlongTheCircleAndOnlyOverItsSweep) {
  constexpr int kRadius = 40;
  const struct {
    const char* name;
    float start, sweep;
    int quadrants[4];  // drawn parts of the circle by quadrant, y downward here
  } rows[] = {
      {"full", 0, 360, {1, 1, 1, 1}},
      {"quarter", 0, 90, {1, 0, 0, 0}},
      {"backward", 0, -90, {0, 0, 0, 1}},
      {"three quarters", 90, 270, {0, 1, 1, 1}},
      {"more than a turn", 45, 800, {1, 1, 1, 1}},
  };
  for (const auto& row : rows) {
    Canvas canvas(101, 101);
    CPen pen(PS_SOLID, 1, kWhite);
    canvas.dc.SelectObject(&pen);
    const double start = row.start / 180 * M_PI;
    canvas.dc.MoveTo(static_cast<int>(std::lround(50 + kRadius * std::cos(start))),
                     static_cast<int>(std::lround(50 + kRadius * std::sin(start))));
    canvas.dc.AngleArc(50, 50, kRadius, row.start, row.sweep);
    int inQuadrant[4] = {};
    bool near = true;
    for (int y = 0; y < 101; ++y) {
      for (int x = 0; x < 101; ++x) {
        if (canvas.dc.GetPixel(x, y) != kWhite) continue;
        const int dx = x - 50, dy = y - 50;
        near = near && std::fabs(std::hypot(dx, dy) - kRadius) < 0.75;
        if (dx != 0 && dy != 0) ++inQuadrant[dx > 0 ? (dy > 0 ? 0 : 3) : (dy > 0 ? 1 : 2)];
      }
    }
    EXPECT_TRUE(near) << row.name;
    for (int q = 0; q < 4; ++q) {
      // A quarter of an 8-connected circle has r sqrt 2 pixels; the axes are not counted.
      const int expected = row.quadrants[q] ? static_cast<int>(kRadius * M_SQRT2) : 0;
      EXPECT_NEAR(inQuadrant[q], expected, 3) << row.name << ", quadrant " << q;
    }
  }
}

TEST(HugeShapes, CostOnlyWhatIsSeen) {
  Canvas canvas(64, 64);
  const POINT huge[] = {{INT32_MIN, INT32_MIN},
                        {INT32_MAX, INT32_MIN + 1},
                        {-5, INT32_MAX},
                        {INT32_MIN, 9},
                        {INT32_MAX, INT32_MAX}};
  for (const Tool& tool : tools()) {
    for (const int rop2 : {R2_COPYPEN, R2_XORPEN}) {
      for (const int extent : {1, INT32_MAX}) {
        const Shape all{"all", [&huge, extent](CDC& dc) {
                          dc.SetViewportExt(extent, -extent);
                          dc.Polyline(huge, 5);
                          dc.Polygon(huge, 5);
                          dc.Rectangle(INT32_MIN, INT32_MIN, INT32_MAX, INT32_MAX);
                          dc.Ellipse(INT32_MIN, INT32_MIN, INT32_MAX, INT32_MAX);
                          dc.AngleArc(INT32_MIN, 0, INT32_MAX, -1e30f, 1e30f);
                          dc.AngleArc(0, 0, INT32_MIN, 5, 300);
                          dc.FillSolidRect(CRect(INT32_MIN, INT32_MIN, INT32_MAX, INT32_MAX), kRed);
                          dc.TextOut(INT32_MAX, INT32_MIN, L"x");
                        }};
        paint(canvas, all, tool, rop2, kBlue);
        EXPECT_EQ(canvas.count(kRed) > 0, true);
      }
    }
  }
}

TEST(WidePen, CapsAndJoinsFollowTheStyle) {
  const auto picture = [](int style, const std::vector<POINT>& points) {
    Canvas canvas(11, 9);
    CPen pen(PS_GEOMETRIC | style, 3, kWhite);
    canvas.dc.SelectObject(&pen);
    canvas.dc.Polyline(points.data(), static_cast<int>(points.size()));
    return canvas.rows();
  };
  const std::vector<POINT> bar = {{3, 4}, {7, 4}};
  EXPECT_EQ(picture(PS_ENDCAP_FLAT, bar)[4], "...####....");    // 3 up to 7, the end left out
  EXPECT_EQ(picture(PS_ENDCAP_SQUARE, bar)[4], "..#######..");  // from 1.5 up to 8.5
  EXPECT_EQ(picture(PS_ENDCAP_ROUND, bar)[4], "..#######..");
  const std::vector<POINT> corner = {{2, 6}, {7, 6}, {7, 1}};
  EXPECT_EQ(picture(PS_ENDCAP_FLAT | PS_JOIN_MITER, corner)[7], "..#######..");
  // The bevel runs from (7, 7.5) to (8.5, 6): row 7 ends at 7.5.
  // The bevel runs from (7, 7.5) to (8.5, 6): row 7 ends at 7.5.
  EXPECT_EQ(picture(PS_ENDCAP_FLAT | PS_JOIN_BEVEL, corner)[7], "..######...");
}

}  // namespace
