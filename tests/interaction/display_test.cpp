// Views: mapping, zoom and pan, grid, extents, the coordinates of message 1124.

#include <gtest/gtest.h>

#include "tests/support/desk.h"
#include "tests/support/entity_text.h"

namespace {

using qdr::test::addFromText;
using qdr::test::Desk;

const qdr::Pixel kGridPixel = qdr::pixelOf(0x646464);
const qdr::Pixel kAxisPixel = qdr::pixelOf(0x0000b4);

class Display : public testing::Test {
 protected:
  CDC* dc() { return desk.drawing->m_pDC; }
  QdrDbDrawingVars_tag& vars() { return desk.drawing->m_vars; }

  // Columns, or rows, of the view in which a colour covers at least a quarter of the pixels.
  std::vector<int> dotted(qdr::Pixel color, bool columns) const {
    const std::vector<qdr::Pixel> all = desk.pixels();
    std::vector<int> found;
    for (int i = 0; i < (columns ? 200 : 100); ++i) {
      int count = 0;
      for (int j = 0; j < (columns ? 100 : 200); ++j)
        count += all[static_cast<std::size_t>(columns ? j * 200 + i : i * 200 + j)] == color;
      if (count >= (columns ? 25 : 50)) found.push_back(i);
    }
    return found;
  }

  Desk desk;
  CQdrDbDisplayTableRecord& view = desk.record();
};

TEST_F(Display, MapsBetweenPixelsAndTheWorld) {
  EXPECT_EQ(view.GetLogicalPoint(CPoint(30, 40)), CQdrGePoint2d(30, 60));
  EXPECT_EQ(view.GetDecivePoint(CQdrGePoint2d(30.4, 60.4)), CPoint(30, 40));
  EXPECT_EQ(view.GetDecivePoint(CQdrGePoint2d(30.6, 59.4)), CPoint(31, 41));
  CPoint point(3000, 6000);
  dc()->LPtoDP(&point);
  EXPECT_EQ(point, CPoint(30, 40));
  EXPECT_EQ(vars().displayMin.x, 0);
  EXPECT_EQ(vars().displayMax.y, 100);
  CQdrGePoint2d min;
  CQdrGePoint2d max;
  view.getLimits(min, max);
  EXPECT_EQ(min, CQdrGePoint2d(0, 100));  // left bottom of the window, whose top is the smaller y
  EXPECT_EQ(max, CQdrGePoint2d(200, 0));
}

TEST_F(Display, BeforeTheFirstMappingNothingHasASize) {
  CQdrDbDisplayTableRecord fresh(desk.drawing.get());
  EXPECT_EQ(fresh.scaleX(), 0.0);
  EXPECT_EQ(fresh.GetDecivePoint(CQdrGePoint2d(5, 5)), CPoint(0, 0));
  fresh.MakeUpDisplayWindow(dc());  // no view, no client rectangle
  EXPECT_EQ(fresh.scaleX(), 0.0);
}

TEST_F(Display, WindowTakesTheProportionsOfTheView) {
  // 100 x 100 units in 200 x 100 pixels: the width grows by 50 on both sides.
  vars().limitsMax.set(100, 100);
  view.ZoomAll();
  view.MakeUpDisplayWindow(dc());
  EXPECT_EQ(view.logicalWindow(), CRect(-5000, 0, 15000, 10000));
  // 200 x 20 units: the height grows from 20 to 100 about its middle.
  vars().limitsMax.set(200, 20);
  view.ZoomAll();
  view.MakeUpDisplayWindow(dc());
  EXPECT_EQ(view.logicalWindow(), CRect(0, -4000, 20000, 6000));
  EXPECT_EQ(view.displayWindow(), CRect(0, -40, 200, 60));
}

TEST_F(Display, AGrowingViewShowsMoreAtTheSameScale) {
  desk.resize(202, 101);
  view.MakeUpDisplayWindow(dc());
  // The scale 10000 / 101 / 100 is below 1: each side moves out by half of 1% and half a unit.
  EXPECT_EQ(view.logicalWindow(), CRect(-99, -50, 20099, 10050));
  EXPECT_NEAR(view.scaleX(), 100.0, 0.02);
  const CRect settled = view.logicalWindow();
  view.MakeUpDisplayWindow(dc());
  EXPECT_EQ(view.logicalWindow(), settled);
  desk.resize(0, 0);
  view.MakeUpDisplayWindow(dc());
  EXPECT_EQ(view.logicalWindow(), settled);
}

TEST_F(Display, ZoomsAboutAPointWithinItsLimits) {
  const CRect before = view.logicalWindow();
  view.ScaleUpDown(dc(), CPoint(0, 100), 0.5);
  EXPECT_EQ(view.logicalWindow(), CRect(0, 0, 10000, 5000));
  view.ZoomPrev(dc());
  EXPECT_EQ(view.logicalWindow(), before);
  view.ZoomPrev(dc());
  EXPECT_EQ(view.logicalWindow(), before);
  view.ZoomIn(dc());  // by 0.2 about the centre
  EXPECT_EQ(view.logicalWindow(), CRect(2000, 1000, 18000, 9000));
  view.ScaleUpDown(dc(), CPoint(0, 0), 0.0);
  EXPECT_EQ(view.logicalWindow(), CRect(2000, 1000, 18000, 9000));
  view.ZoomWindow(dc(), CRect(0, 0, 499, 499));  // less than the pick box both ways
  EXPECT_EQ(view.logicalWindow(), CRect(2000, 1000, 18000, 9000));
  view.ZoomWindow(dc(), CRect(0, 0, 1000, 500));
  EXPECT_EQ(view.logicalWindow(), CRect(0, 0, 1000, 500));

  for (int i = 0; i < 100; ++i)
    view.ZoomIn(dc());
  EXPECT_GT(view.logicalWindow().Width(), 0);
  EXPECT_LT(view.logicalWindow().Height(), 100);  // below one unit, and no further
  for (int i = 0; i < 200; ++i)
    view.ZoomOut(dc());
  EXPECT_GT(view.logicalWindow().Width(), 0) << "the window stays within 32 bits";
}

TEST_F(Display, WindowsKeepAnArea) {
  // 20 units high and without a width: the proportions of the view give it 40.
  view.ZoomWindow(dc(), CRect(5000, 2000, 5000, 4000));
  EXPECT_EQ(view.logicalWindow(), CRect(3000, 2000, 7000, 4000));
  vars().limitsMax.set(0, 0);
  view.ZoomAll();
  EXPECT_EQ(view.logicalWindow(), CRect(3000, 2000, 7000, 4000));
  for (int i = 0; i < 3; ++i)
    view.PanWindow(dc(), 2'000'000'000, -2'000'000'000);
  EXPECT_EQ(view.logicalWindow(), CRect(1999996000, -2000000000, 2000000000, -1999998000));
  vars().limitsMin.set(-1e9, -1e9);
  vars().limitsMax.set(1e9, 1e9);
  view.ZoomAll();
  view.MakeUpDisplayWindow(dc());
  EXPECT_GT(view.logicalWindow().Width(), 2'000'000'000);
  EXPECT_GT(view.logicalWindow().Height(), 1'000'000'000);
}

TEST_F(Display, Pans) {
  view.PanWindow(dc(), 300, -200);
  EXPECT_EQ(view.logicalWindow(), CRect(300, -200, 20300, 9800));
  view.RealPanWindow(dc(), -300, 200);
  EXPECT_EQ(view.logicalWindow(), CRect(0, 0, 20000, 10000));
  view.PanWindow(dc(), CQdrGeVector2d(0, 2));  // 2% of the height
  EXPECT_EQ(view.logicalWindow(), CRect(0, 200, 20000, 10200));
  view.PanWindow(dc(), CQdrGeVector2d(3, 5));  // with an x only the x counts
  EXPECT_EQ(view.logicalWindow(), CRect(600, 200, 20600, 10200));
  view.MoveWindow(dc(), CPoint(110, 50));
  EXPECT_EQ(view.logicalWindow(), CRect(1600, 200, 21600, 10200));
}

TEST_F(Display, ExtentsHoldTheirCornerAndTheGrips) {
  view.getExtend();
  EXPECT_EQ(vars().extentMin.x, 0);
  EXPECT_EQ(vars().extentMax.x, 29);
  EXPECT_EQ(vars().extentMax.y, 21);
  addFromText(*desk.drawing, "circle 100 50 30");
  CQdrDbEntity* const gone = addFromText(*desk.drawing, "line -900 0 0 0");
  gone->setErased();
  view.getExtend();
  EXPECT_EQ(vars().extentMin.x, 0);
  EXPECT_EQ(vars().extentMax.x, 130);
  EXPECT_EQ(vars().extentMax.y, 80);
}

TEST_F(Display, GridLinesStandAtMultiplesAndAxesAlways) {
  vars().gridVisible = 1;
  struct Row {
    const char* name;
    double spacing;
    std::uint8_t divisions;
    std::vector<int> columns;  // of grid lines; x = 0 is the axis, drawn over its grid line
    std::vector<int> rows;
  };
  const Row rows[] = {
      // World y = 50 is row 50; y = 0 is row 100, just below the view.
      {"every second spacing", 25.0, 2, {50, 100, 150}, {50}},
      {"no divisions", 25.0, 0, {}, {}},
      {"a step below a logical unit", 0.009, 1, {}, {}},
      {"a negative spacing", -5.0, 1, {}, {}},
  };
  for (const Row& row : rows) {
    vars().gridSpacing = row.spacing;
    vars().gridDivisions = row.divisions;
    desk.paint();
    EXPECT_EQ(dotted(kGridPixel, true), row.columns) << row.name;
    EXPECT_EQ(dotted(kGridPixel, false), row.rows) << row.name;
    EXPECT_EQ(dotted(kAxisPixel, true), std::vector<int>{0}) << row.name;
  }
}

TEST_F(Display, OnePointFormOfTheCoordinates) {
  CStatic pane;
  CPoint device(33, 47);
  const auto shown = [&] {
    desk.drawing->SetCoordinate(nullptr, &pane, reinterpret_cast<WPARAM>(&device), 0);
    CString text;
    pane.GetWindowText(text);
    return text;
  };
  EXPECT_EQ(shown(), L"33.000000, 53.000000");
  desk.drawing->SetCoordinate(nullptr, &pane, 0, 0);
  EXPECT_EQ(shown(), L"33.000000, 53.000000");
}

TEST_F(Display, TwoPointFormWritesOrthoAndGridBack) {
  struct Row {
    const char* name;
    bool ortho;
    bool grid;
    bool polar;
    CPoint current;
    CPoint expected;
    const wchar_t* text;
    CPoint start = {1000, 1000};
  };
  const Row rows[] = {
      {"plain", false, false, false, {1725, 1310}, {1725, 1310}, L"17.250000, 13.100000"},
      {"grid", false, true, false, {1725, 1350}, {2000, 1000}, L"20.000000, 10.000000"},
      {"grid, half way toward zero",
       false,
       true,
       false,
       {-1500, 500},
       {-1000, 0},
       L"-10.000000, 0.000000"},
      {"ortho along x", true, false, false, {1725, 1310}, {1725, 1000}, L"17.250000, 10.000000"},
      {"ortho along y", true, false, false, {1300, 1310}, {1000, 1310}, L"10.000000, 13.100000"},
      {"polar", false, false, true, {1000, 700}, {1000, 700}, L"3.000000 < 270.000000"},
      // 0.29 * 100 is 28.999...: neither coordinate may go through the world and back.
      {"ortho takes the start's own y",
       true,
       false,
       false,
       {57, 30},
       {57, 29},
       L"0.570000, 0.290000",
       {29, 29}},
  };
  CStatic pane;
  vars().gridSpacing = 10.0;
  for (const Row& row : rows) {
    vars().snapOrtho = row.ortho;
    vars().snapGrid = row.grid;
    vars().polarReadout = row.polar;
    CPoint current = row.current;
    CPoint from = row.start;
    desk.drawing->SetCoordinate(nullptr, &pane, reinterpret_cast<WPARAM>(&from),
                                reinterpret_cast<LPARAM>(&current));
    EXPECT_EQ(current, row.expected) << row.name;
    CString text;
    pane.GetWindowText(text);
    EXPECT_EQ(text, row.text) << row.name;
  }
}

}  // namespace
