#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include "tests/platform/canvas.h"

namespace {

__extension__ using Int128 = __int128;

// The definition of the thin line, one pixel at a time in exact arithmetic: along the longer axis
// every coordinate from start to end without the end; across, the nearest pixel to the ideal line,
// the smaller coordinate when two are equally near.
bool isOnLine(CPoint from, CPoint to, int x, int y) {
  Int128 dx = Int128{to.x} - from.x;
  Int128 dy = Int128{to.y} - from.y;
  Int128 u = x - Int128{from.x};
  Int128 v = y - Int128{from.y};
  const bool steep = (dy < 0 ? -dy : dy) > (dx < 0 ? -dx : dx);
  if (steep) {
    std::swap(dx, dy);
    std::swap(u, v);
  }
  if (dx < 0 ? (u > 0 || u <= dx) : (u < 0 || u >= dx)) return false;
  // |v - u dy / dx| <= 1/2, the upper bound open: -dx <= 2 (v dx - u dy) < dx for positive dx.
  const Int128 sign = dx < 0 ? -1 : 1;
  const Int128 offset = 2 * (v * dx - u * dy) * sign;
  return -dx * sign <= offset && offset < dx * sign;
}

std::string clippedLine(CPoint from, CPoint to, const CRect& clip, int width, int height) {
  Canvas canvas(width, height);
  CRgn region;
  region.CreateRectRgn(clip.left, clip.top, clip.right, clip.bottom);
  canvas.dc.SelectClipRgn(&region);
  CPen pen(PS_SOLID, 1, kWhite);
  canvas.dc.SelectObject(&pen);
  canvas.dc.MoveTo(from);
  canvas.dc.LineTo(to);
  std::string all;
  for (const std::string& row : canvas.rows())
    all += row + "\n";
  return all;
}

std::string exactLine(CPoint from, CPoint to, const CRect& clip, int width, int height) {
  std::string all;
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x)
      all += clip.PtInRect(CPoint(x, y)) && isOnLine(from, to, x, y) ? '#' : '.';
    all += "\n";
  }
  return all;
}

TEST(ThinLine, ClippedLinesHaveExactlyThePixelsOfTheWholeOnes) {
  std::mt19937 random(4711);
  constexpr int kWidth = 24;
  constexpr int kHeight = 18;
  for (int i = 0; i < 20000; ++i) {
    // A third of the lines near the picture, a third far off, a third over all of 32 bits.
    const int shift = i % 3 == 0 ? 26 : i % 3 == 1 ? 14 : 0;
    const auto any = [&] { return static_cast<std::int32_t>(random()) >> shift; };
    CPoint from(any(), any());
    CPoint to(any(), any());
    // Few far lines cross so small a picture by chance: lead half of them through it.
    if (shift < 26 && i % 2 == 0 && from.x > INT32_MIN / 2 && from.y > INT32_MIN / 2)
      to = {static_cast<int>(random() % kWidth) - from.x,
            static_cast<int>(random() % kHeight) - from.y};
    const CRect clip(static_cast<int>(random() % 12), static_cast<int>(random() % 9),
                     static_cast<int>(12 + random() % 14), static_cast<int>(9 + random() % 10));
    ASSERT_EQ(clippedLine(from, to, clip, kWidth, kHeight),
              exactLine(from, to, clip, kWidth, kHeight))
        << from.x << ',' << from.y << " to " << to.x << ',' << to.y << " round " << i;
  }
}

// Longer than any step of the arithmetic may reach at once, level and steep, from inside and from
// far off.
TEST(ThinLine, LongLinesStayExactToTheirEnds) {
  std::mt19937 random(815);
  constexpr int kLength = 70000;
  for (int i = 0; i < 24; ++i) {
    const bool isSteep = i % 2 == 0;
    const int far = i % 3 == 0 ? 2000000000 : 0;
    const int near = static_cast<int>(random() % 3);
    const int across = static_cast<int>(random() % 5) - 1;
    const CPoint a(-far, near);
    const CPoint b(kLength + far - static_cast<int>(random() % 100), across);
    CPoint from = i % 4 < 2 ? a : b;
    CPoint to = i % 4 < 2 ? b : a;
    if (isSteep) {
      std::swap(from.x, from.y);
      std::swap(to.x, to.y);
    }
    const int width = isSteep ? 3 : kLength;
    const int height = isSteep ? kLength : 3;
    Canvas canvas(width, height);
    CPen pen(PS_SOLID, 1, kWhite);
    canvas.dc.SelectObject(&pen);
    canvas.dc.MoveTo(from);
    canvas.dc.LineTo(to);
    int wrong = 0;
    for (int y = 0; y < height; ++y)
      for (int x = 0; x < width; ++x)
        wrong += (canvas.pixels->row(y)[x] == qdr::pixelOf(kWhite)) != isOnLine(from, to, x, y);
    EXPECT_EQ(wrong, 0) << from.x << ',' << from.y << " to " << to.x << ',' << to.y;
  }
}

TEST(ThinLine, ExtremesOf32BitsStayExact) {
  const CRect all(0, 0, 16, 16);
  const CPoint ends[][2] = {
      {{INT32_MIN, INT32_MIN}, {INT32_MAX, INT32_MAX}},
      {{INT32_MAX, INT32_MIN + 15}, {INT32_MIN + 15, INT32_MAX}},
      {{INT32_MIN, 7}, {INT32_MAX, 8}},
      {{3, INT32_MAX}, {4, INT32_MIN}},
  };
  for (const auto& line : ends) {
    EXPECT_EQ(clippedLine(line[0], line[1], all, 16, 16), exactLine(line[0], line[1], all, 16, 16));
    EXPECT_NE(clippedLine(line[0], line[1], all, 16, 16).find('#'), std::string::npos);
  }
}

TEST(ThinLine, LeavesOutTheLastPixelAndTiesGoToTheSmallerCoordinate) {
  Canvas canvas(5, 3);
  CPen pen(PS_SOLID, 1, kWhite);
  canvas.dc.SelectObject(&pen);
  canvas.dc.MoveTo(0, 0);
  canvas.dc.LineTo(4, 2);  // y = x / 2: at 1 and 3 a tie
  EXPECT_EQ(canvas.rows(), (std::vector<std::string>{"##...", "..##.", "....."}));
  canvas.dc.FillSolidRect(0, 0, 5, 3, 0);
  canvas.dc.MoveTo(4, 2);
  canvas.dc.LineTo(0, 0);
  EXPECT_EQ(canvas.rows(), (std::vector<std::string>{".#...", "..##.", "....#"}));
}

struct DashRow {
  const char* name;
  std::vector<DWORD> lengths;
  int style;
  int width;
  int scale;  // pixels per logical unit
  std::vector<POINT> points;
  const char* row;  // of the first line of pixels
};

TEST(Dashes, WalkAsTheListSays) {
  constexpr int kUser = PS_GEOMETRIC | PS_USERSTYLE;
  const DashRow rows[] = {
      {"on and off in turn", {3, 2}, kUser, 0, 1, {{0, 0}, {12, 0}}, "###..###..##...."},
      {"an odd list repeats", {3, 1, 2}, kUser, 0, 1, {{0, 0}, {15, 0}}, "###.##...#..###."},
      {"a sum of 0 is solid", {0, 0}, kUser, 0, 1, {{0, 0}, {8, 0}}, "########........"},
      {"no list is solid", {}, kUser, 0, 1, {{0, 0}, {8, 0}}, "########........"},
      {"a length of 0 is a dot", {0, 3}, kUser, 0, 1, {{0, 0}, {9, 0}}, "#..#..#........."},
      {"lengths scale with the mapping", {2, 1}, kUser, 0, 2, {{0, 0}, {7, 0}}, "####..####..##.."},
      {"finer than a pixel is solid", {1, 1}, kUser, 0, -4, {{0, 0}, {48, 0}}, "############...."},
      {"dots are three pixels", {}, PS_DOT, 1, 1, {{0, 0}, {12, 0}}, "###...###......."},
      {"dots hold at width 0", {}, PS_DOT, 0, 2, {{0, 0}, {6, 0}}, "###...###......."},
      {"dash and dot", {}, PS_DASHDOT, 1, 1, {{0, 0}, {16, 0}}, "#########......#"},
      {"runs on over the points of a polyline",
       {3, 2},
       kUser,
       0,
       1,
       {{0, 0}, {4, 0}, {12, 0}},
       "###..###..##...."},
      {"walks back and forth once each pixel",
       {4, 4},
       kUser,
       0,
       1,
       {{0, 0}, {6, 0}, {0, 0}},
       "#####..........."},  // back at pixel 4 the walk is 6 + 2 long: on again
  };
  for (const DashRow& row : rows) {
    Canvas canvas(16, 1);
    canvas.dc.SetMapMode(MM_ISOTROPIC);
    canvas.dc.SetWindowExt(row.scale < 0 ? -row.scale : 1, 1);
    canvas.dc.SetViewportExt(row.scale < 0 ? 1 : row.scale, 1);
    const LOGBRUSH brush{BS_SOLID, kWhite, 0};
    CPen pen;
    if (row.style == kUser) {
      pen.CreatePen(row.style, row.width, &brush, static_cast<int>(row.lengths.size()),
                    row.lengths.data());
    } else {
      pen.CreatePen(row.style, row.width, kWhite);
    }
    canvas.dc.SelectObject(&pen);
    canvas.dc.Polyline(row.points.data(), static_cast<int>(row.points.size()));
    EXPECT_EQ(canvas.rows()[0], row.row) << row.name;
  }
}

TEST(Dashes, RunOnOverLinesUntilAMoveOrAnotherPen) {
  Canvas canvas(16, 1);
  const DWORD lengths[] = {3, 2};
  const LOGBRUSH brush{BS_SOLID, kWhite, 0};
  CPen pen(PS_USERSTYLE, 0, &brush, 2, lengths);
  CPen other(PS_USERSTYLE, 0, &brush, 2, lengths);
  canvas.dc.SelectObject(&pen);
  canvas.dc.LineTo(4, 0);
  canvas.dc.LineTo(7, 0);
  canvas.dc.MoveTo(7, 0);
  canvas.dc.LineTo(11, 0);
  canvas.dc.SelectObject(&other);
  canvas.dc.LineTo(16, 0);
  EXPECT_EQ(canvas.rows()[0], "###..#####.###..");
}

TEST(Dashes, OfARunAreThoseOfAPolyline) {
  const DWORD lengths[] = {7, 3, 0, 4};
  const LOGBRUSH brush{BS_SOLID, kWhite, 0};
  const POINT points[] = {{2, 3}, {40, 3}, {40, 21}, {9, 21}, {9, -8}, {60, -8}, {60, 30}};
  for (const int width : {1, 3}) {
    Canvas run(64, 32);
    Canvas whole(64, 32);
    CPen pen(PS_GEOMETRIC | PS_USERSTYLE | PS_ENDCAP_FLAT | PS_JOIN_MITER, width, &brush, 4,
             lengths);
    run.dc.SelectObject(&pen);
    whole.dc.SelectObject(&pen);
    run.dc.MoveTo(points[0]);
    for (std::size_t i = 1; i < std::size(points); ++i)
      run.dc.LineTo(points[i].x, points[i].y);
    whole.dc.Polyline(points, static_cast<int>(std::size(points)));
    // Of a wide pen a run has no joins, so it is compared away from the vertices.
    for (const CPoint& at : {CPoint(20, 3), CPoint(25, 21), CPoint(60, 12), CPoint(40, 12)})
      for (int step = -5; step <= 5; ++step)
        for (const CPoint& p : {CPoint(at.x + step, at.y), CPoint(at.x, at.y + step)})
          EXPECT_EQ(run.dc.GetPixel(p.x, p.y), whole.dc.GetPixel(p.x, p.y))
              << width << ": " << p.x << ',' << p.y;
    if (width == 1) {
      EXPECT_EQ(run.rows(), whole.rows());
    }
  }
}

// 7 on and 5 off: pixel x lies x + 2^31 steps from the start, and 2^31 = 178956970 * 12 + 8.
TEST(Dashes, KeepTheirPhaseOverTheWholeOf32Bits) {
  Canvas canvas(16, 1);
  const DWORD lengths[] = {7, 5};
  const LOGBRUSH brush{BS_SOLID, kWhite, 0};
  CPen pen(PS_USERSTYLE, 0, &brush, 2, lengths);
  canvas.dc.SelectObject(&pen);
  canvas.dc.MoveTo(INT32_MIN, 0);
  canvas.dc.LineTo(INT32_MAX, 0);
  EXPECT_EQ(canvas.rows()[0], "....#######.....");
}

TEST(Dashes, WideDashesAreStrokesOfTheirOwn) {
  Canvas canvas(16, 3);
  const DWORD lengths[] = {4, 4};
  const LOGBRUSH brush{BS_SOLID, kWhite, 0};
  CPen pen(PS_GEOMETRIC | PS_USERSTYLE | PS_ENDCAP_FLAT, 3, &brush, 2, lengths);
  canvas.dc.SelectObject(&pen);
  canvas.dc.MoveTo(0, 1);
  canvas.dc.LineTo(14, 1);
  const std::string row = "####....####....";
  EXPECT_EQ(canvas.rows(), (std::vector<std::string>{row, row, row}));
}

// Billions of one-pixel dashes lie under so wide a pen; their round caps close the gaps.
TEST(Dashes, GapsUnderAVeryWidePenAreClosedByItsCaps) {
  Canvas canvas(16, 16);
  const DWORD lengths[] = {1, 1};
  const LOGBRUSH brush{BS_SOLID, kWhite, 0};
  CPen pen(PS_GEOMETRIC | PS_USERSTYLE, INT32_MAX, &brush, 2, lengths);
  canvas.dc.SelectObject(&pen);
  canvas.dc.SetROP2(R2_XORPEN);
  canvas.dc.MoveTo(INT32_MIN, 0);
  canvas.dc.LineTo(INT32_MAX, 0);
  EXPECT_EQ(canvas.count(kWhite), 256);
}

// Round caps of width 12 close a gap of 1: the two dashes beside it show as one.
TEST(Dashes, AGapThatTheCapsCloseIsNoGap) {
  const std::vector<DWORD> listed = {2, 1, 2, 20, 4, 1};
  const std::vector<DWORD> shown = {5, 20, 4, 1};
  std::vector<qdr::Pixel> pictures[2];
  for (int i = 0; i < 2; ++i) {
    Canvas canvas(120, 40);
    const std::vector<DWORD>& lengths = i == 0 ? listed : shown;
    const LOGBRUSH brush{BS_SOLID, kWhite, 0};
    CPen pen(PS_GEOMETRIC | PS_USERSTYLE, 12, &brush, static_cast<int>(lengths.size()),
             lengths.data());
    canvas.dc.SelectObject(&pen);
    canvas.dc.MoveTo(10, 10);
    canvas.dc.LineTo(110, 30);
    EXPECT_GT(canvas.count(kWhite), 0);
    EXPECT_GT(canvas.count(0), 40 * 20);
    pictures[i] = canvas.copy();
  }
  EXPECT_EQ(pictures[0], pictures[1]);
}

// The vertex lies so far above the picture that only the tip of its mitre comes down into it.
TEST(WideLines, AMitreReachesIntoThePictureFromFarOff) {
  Canvas canvas(80, 10);
  const LOGBRUSH brush{BS_SOLID, kWhite, 0};
  CPen pen(PS_GEOMETRIC | PS_ENDCAP_FLAT | PS_JOIN_MITER, 20, &brush, 0);
  canvas.dc.SelectObject(&pen);
  // The sides meet at 2 atan(1 / 5), so the tip lies 10 / sin(atan(1 / 5)) = 51 below the vertex,
  // at (39.5, 5.5) for the even width; in row 0 it is 2 * 5.5 / 5 = 2.2 wide.
  const POINT points[] = {{20, -145}, {40, -45}, {60, -145}};
  canvas.dc.Polyline(points, 3);
  EXPECT_EQ(canvas.rows()[0].substr(36, 9), "...##....");
  EXPECT_EQ(canvas.rows()[8], std::string(80, '.'));
}

TEST(Dashes, AFinePatternOverAHugeLineCostsOnlyWhatIsSeen) {
  Canvas canvas(16, 16);
  const DWORD lengths[] = {1, 1};
  const LOGBRUSH brush{BS_SOLID, kWhite, 0};
  for (const int width : {0, 5}) {
    CPen pen(PS_GEOMETRIC | PS_USERSTYLE, width, &brush, 2, lengths);
    canvas.dc.SelectObject(&pen);
    canvas.dc.MoveTo(INT32_MIN, INT32_MIN);
    canvas.dc.LineTo(INT32_MAX, INT32_MAX);
    canvas.dc.AngleArc(0, 0, INT32_MAX, 0, 360);
    canvas.dc.AngleArc(8 - 2000000000, 8, 2000000000, 0, 360);
  }
  EXPECT_GT(canvas.count(kWhite), 0);
}

}  // namespace
