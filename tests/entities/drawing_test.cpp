// What entities show: small pictures of all classes, and the operations behind them.

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "database/database.h"
#include "entities/display_units.h"
#include "entities/drawn_box.h"
#include "entities/point.h"
#include "entities/polyline.h"
#include "tests/support/desk.h"
#include "tests/support/entity_text.h"
#include "tests/support/sketch.h"

namespace {

// An entity and what is set on it before it is drawn.
struct Shape {
  const char* text;
  int fill = -1;        ///< fill mode of a polyline; a point is filled from 0 on
  int mode = 0;         ///< shape of a point
  int wideVertex = -1;  ///< a vertex that gets a start width
  double width = 0.5;   ///< of that vertex
  bool opened = false;  ///< a polyline is opened last
  int weight = -1;
  const wchar_t* linetype = nullptr;
};

CQdrDbEntity* add(CQdrDbDatabase& database, const Shape& shape) {
  CQdrDbEntity* entity = qdr::test::addFromText(database, shape.text);
  // The fill of a point has the colour of its record, which is white for that of the layer.
  entity->setColor(1);
  entity->setLineWeight(static_cast<QdrDb::LineWeight>(shape.weight));
  if (shape.linetype) entity->setLineType(shape.linetype);
  if (entity->classType() == QdrDb::eClassPoint) {
    auto& point = static_cast<CQdrDbPoint&>(*entity);
    point.SetPdMode(shape.mode);
    point.SetFillMode(shape.fill >= 0);
  }
  if (entity->classType() != QdrDb::eClassPolyline) return entity;
  auto& polyline = static_cast<CQdrDbPolyline&>(*entity);
  polyline.SetFill(shape.fill >= 0);
  polyline.SetFillMode(shape.fill);
  if (shape.wideVertex >= 0) polyline.SetWidthsAt(shape.wideVertex, shape.width, 0.5);
  if (shape.opened) polyline.SetClosed(false);
  return entity;
}

struct Scene {
  const char* name;
  std::vector<Shape> shapes;
  const char* picture;
};

const Scene kScenes[] = {
    {"curves, box, rectangle and cobweb",
     {{"line 1 1 9 5"},
      {"arc 16 1 7 30 150"},
      {"circle 30 6 5"},
      {"ellipse 43 6 4 3 0.5"},
      {"ellipsearc 57 3 6 0 0.8 0 140"},
      {"box 70 1 8 6 30"},
      {"rect 77 10 84 5"},
      {"cobweb 91 6 2 5 5 90"}},
     R"(
|.................................................................................................|
|............................#####........................................................#####...|
|...........................#.....#...........##...........................#..#######....#..#..#..|
|..........................#.......#.......###.##........................##.#.#.....#...#...#...#.|
|..............#####......#.........#.....##....#.......#####..........##...#.#.....#..##..###..##|
|............##.....##....#.........#....##.....#.....###...###......##......##.....#..#.##.#.##.#|
|...........#........##...#.........#...##.....##.............##....#........########..#..#####..#|
|........#.##..........#..#.........#...#.....##...............##....#........#........#..##.##..#|
|......##..............#..#.........#...#....##.................#....#......##.........#..####...#|
|....##....................#.......#....##.###..................#.....#...##............#.#...#.#.|
|..##.......................#.....#......##...........................#.##...............#.....#..|
|.#..........................#####.....................................#..................#####...|
)"},
    {"chains",
     {{"polyline 1 2 0 9 2 -1 9 10 0 1 10 0"},
      {"loop 16 2 0 22 2 1 22 10 0 16 10 0.5"},
      {"spline 0.49 29 2 39 2 39 10"},
      {"cspline 42 2 0 46 10 0 50 2 0 54 10 1 58 2 0"},
      {"spiral 12 68 6 5.4 0.4 2 0"}},
     R"(
|...........................................................................|
|...................................................................###.....|
|..########......#########....................##.......#.........###...#....|
|......##.......#........##.............#....#..#......##..........###..#...|
|.....##.......##.........##............#...##..#.....#.#.........#...#..#..|
|.....#........#...........#............#...#....#....#.##........#.##.#.#..|
|.....#........#...........#............#...#....#....#..#........#.#.#.#.#.|
|.....#........#...........#............#...#....##..#...##.......#.#..#.#..|
|.....##.......##.........##...........##..#......#..#....#.......#.###..#..|
|......##.......#........##...........##...#......#.##....##.......##...#...|
|.########.......#########....#########....#.......##................###....|
|...........................................................................|
)"},
    {"start widths hide, pens are wide, fills cut arcs off and end with the closing",
     {{.text = "polyline 1 1 0 8 1 0 8 8 0 1 8 0", .wideVertex = 1},
      {.text = "loop 11 1 0 18 1 0 18 8 0 11 8 0", .wideVertex = 0},
      {.text = "polyline 21 1 0 28 1 1 28 8 0 21 8 0", .wideVertex = 2},
      {.text = "line 31 2 38 2", .weight = 300},
      {.text = "loop 31 5 0 38 5 0 38 8 0 31 8 0", .fill = 0},
      {.text = "loop 41 1 0 48 1 1 48 8 0 41 8 0", .fill = 0},
      {.text = "loop 55 1 0 62 1 0 62 8 0 55 8 0", .fill = 0, .opened = true},
      {.text = "polyline 65 1 0 68 1 0 68 8 0", .wideVertex = 1, .width = 0.0}},
     R"(
|......................................................................|
|..#######..########............########..##########.....#######.......|
|.......#...#......#...#........########..##.......##..........#.....#.|
|......#....#......#....#.......########..###.......#..........#.....#.|
|.....#.....#......#.....#......########..####......#..........#.....#.|
|....#......#......#......#...............#####.....##.........#.....#.|
|...#.......#......#.......#...##########.######....#..........#.....#.|
|..#........#......#........#..##########.#######..##..........#.....#.|
|.#.........########..########.##########.##########....########..####.|
)"},
    {"hatch brushes 0 to 5, and one that is none",
     {{"loop 1 1 0 10 1 0 10 10 0 1 10 0", 1},
      {"loop 13 1 0 22 1 0 22 10 0 13 10 0", 2},
      {"loop 25 1 0 34 1 0 34 10 0 25 10 0", 3},
      {"loop 37 1 0 46 1 0 46 10 0 37 10 0", 4},
      {"loop 49 1 0 58 1 0 58 10 0 49 10 0", 5},
      {"loop 61 1 0 70 1 0 70 10 0 61 10 0", 6},
      {"loop 73 1 0 82 1 0 82 10 0 73 10 0", 7}},
     R"(
|....................................................................................|
|.##########..##########..##########..##########..##########..##########..##########.|
|.#........#..#......#.#..##.......#..#.......##..#..#.....#..#....#..##..#........#.|
|.#........#..#......#.#..#.#......#..#......#.#..#..#.....#..#.....##.#..#........#.|
|.##########..#......#.#..#..#.....#..#.....#..#..##########..#.....##.#..#........#.|
|.#........#..#......#.#..#...#....#..#....#...#..#..#.....#..#....#..##..#........#.|
|.#........#..#......#.#..#....#...#..#...#....#..#..#.....#..##..#....#..#........#.|
|.#........#..#......#.#..#.....#..#..#..#.....#..#..#.....#..#.##.....#..#........#.|
|.#........#..#......#.#..#......#.#..#.#......#..#..#.....#..#.##.....#..#........#.|
|.#........#..#......#.#..#.......##..##.......#..#..#.....#..##..#....#..#........#.|
|.##########..##########..##########..##########..##########..##########..##########.|
)"},
    {"points: 0, which is the mode 3 of the drawing, to 7; 8 to 14, no 15; filled",
     {{"point 4 21 3", -1, 0},   {"point 12 21 3", -1, 1},  {"point 20 21 3", -1, 2},
      {"point 28 21 3", -1, 3},  {"point 36 21 3", -1, 4},  {"point 44 21 3", -1, 5},
      {"point 52 21 3", -1, 6},  {"point 60 21 3", -1, 7},  {"point 4 13 3", -1, 8},
      {"point 12 13 3", -1, 9},  {"point 20 13 3", -1, 10}, {"point 28 13 3", -1, 11},
      {"point 36 13 3", -1, 12}, {"point 44 13 3", -1, 13}, {"point 52 13 3", -1, 14},
      {"point 60 13 3", -1, 15}, {"point 4 5 3", 0, 1},     {"point 12 5 3", 0, 2},
      {"point 20 5 3", 0, 4},    {"point 28 5 3", 0, 6},    {"point 36 5 3", 0, 7},
      {"point 44 5 3", 0, 8},    {"point 52 5 3", 0, 12},   {"point 60 5 3", 0, 14}},
     R"(
|.................................................................|
|.#........####......#....#..........#....######.....#....#######.|
|..#...#..#....#.....#.....#...#....##....#....#....#.#...#....#..|
|...#.#...#....#.....#......#.#.....#.#...#....#...#...#...#...#..|
|....#....#....#..######.....#.....#..#...#....#..#.....#..#..#...|
|...#.#...#....#.....#......#.#....#...#..#....#...#...#....#.#...|
|..#...#...####......#.....#...#..#....#..######....#.#.....##....|
|.#.......................#.......#######............#.......#....|
|.................................................................|
|..####...#..#.....####...#####...######..######.....#............|
|.#....#...#.#.#..#..#.#..##...#..##.#.#..##...#....###...........|
|.#.####....###...#..#.#..#.#.##..#.####..#.#.##...#.#.#..........|
|.#.#.##..######..######..#..#.#..######..#..#.#..#######.........|
|.#.####....###...#..#.#..#.#.##..#.####..#.#.##...#.#.#..........|
|..####....#.#.#...####....#####..######..######....###...........|
|.........#...............#.......#.......#..........#............|
|.................................................................|
|..####......#.......#.......#....#######..####...######.....#....|
|.######.....#......##......###...######..######..######....###...|
|.######.....#......###....#####...#####..######..######...#####..|
|.######..######...####...#######..####...######..######..#######.|
|.######.....#.....#####...#####....###...######..######...#####..|
|..####......#....######....###.....##.....####...######....###...|
|.................#######....#.......#.......................#....|
|.................................................................|
)"},
    {"dashes of 4 and gaps of 2",
     {{.text = "line 1 1 14 1", .linetype = L"Hidden"},
      {.text = "polyline 1 3 0 14 3 0 14 9 0", .linetype = L"Hidden"},
      {.text = "loop 18 2 0 27 2 0 27 9 0 18 9 0", .linetype = L"Hidden"},
      {.text = "circle 38 6 5", .linetype = L"Hidden"},
      {.text = "rect 46 10 58 2", .linetype = L"Hidden"},
      {.text = "polyline 62 5 -1 70 5 0", .linetype = L"Hidden"}},
     R"(
|.....................................####...............................|
|..............................................####..####................|
|..................##..####........#.......#..............#.......####...|
|..............#...#........#.....#.........#.............#.....#........|
|..................#........#.....#.........#..#..........#....##.....##.|
|...........................#.....#.........#..#..........#....#.......#.|
|..............#............#...............#..#.......................#.|
|..............#...#...........................#.........................|
|.####..####..##...#...............##............####..####..............|
|..................####..####........#....#..............................|
|.####..####..#........................###...............................|
)"},
};

TEST(Drawing, ShowsItsPicture) {
  for (const Scene& scene : kScenes) {
    CQdrDbDatabase database(true);
    database.m_vars.linetypeScale = 4.0;
    std::vector<CQdrDbEntity*> entities;
    for (const Shape& shape : scene.shapes)
      entities.push_back(add(database, shape));
    const std::string expected = scene.picture + 1;  // behind the line feed
    const auto height = static_cast<int>(std::ranges::count(expected, '\n'));
    const auto width = static_cast<int>(expected.find('\n')) - 2;
    EXPECT_EQ(qdr::test::pictureOf(entities, width, height), expected) << scene.name;
  }
}

// One pixel of the desk is one unit.
TEST(Drawing, MarkersSizedInPixelsStayInTheirBoxes) {
  for (const char* text : {"point 50 50 0", "cobweb 50 50 30 10 3 180"}) {
    qdr::test::Desk desk;
    desk.drawing->m_vars.pointMode = 5;
    desk.drawing->m_vars.pointSize = 20;
    const qdr::DrawnBox box = qdr::drawnBox(*qdr::test::addFromText(*desk.drawing, text));
    desk.paint();
    const std::vector<qdr::Pixel> after = desk.pixels();
    int drawn = 0;
    for (std::size_t i = 0; i < after.size(); ++i) {
      const auto x = static_cast<double>(i % 200);
      const auto y = 100 - static_cast<double>(i / 200);
      if (qdr::colorOf(after[i]) != 0xffffff) continue;
      ++drawn;
      EXPECT_TRUE(x >= box.minX - box.pixels && x <= box.maxX + box.pixels) << text << " x " << x;
      EXPECT_TRUE(y >= box.minY - box.pixels && y <= box.maxY + box.pixels) << text << " y " << y;
    }
    EXPECT_GT(drawn, 0) << text;
  }
}

struct Operations {
  Shape shape;
  /// In device coordinates, y = 20 - world y; a thin solid pen of the colour is left out.
  std::vector<std::string> lines;
};

// Curves have an eighth of a turn from place to place: 4 sin(45) = 2.83, 2 sin(45) = 1.41.
const Operations kOperations[] = {
    {{"line 1 2 5 7"}, {"LineTo 1,18 5,13"}},
    {{.text = "line 1 2 5 7", .weight = 50, .linetype = L"Hidden"},
     {"LineTo 1,18 5,13 pen dashes 100,50 width 50 0x0000ff"}},
    {{"arc 5 5 4 0 90"}, {"Polyline 9,15 8,12 5,11"}},
    {{"circle 5 5 4"}, {"AngleArc 9,15 centre 5,15 radius 4,-4 from 0 sweep 360"}},
    {{"ellipse 6 6 4 0 0.5"}, {"Polyline 10,14 9,13 6,12 3,13 2,14 3,15 6,16 9,15 10,14"}},
    {{"ellipsearc 6 6 4 0 0.5 0 90"}, {"Polyline 10,14 9,13 6,12"}},
    // An arc is one call; that of a negative bulge runs backward.
    {{"polyline 1 1 0 5 1 -1 9 1 0 9 5 0"},
     {"LineTo 1,19 5,19", "LineTo 9,19 8,18", "LineTo 8,18 7,17", "LineTo 7,17 6,18",
      "LineTo 6,18 5,19", "LineTo 9,19 9,15"}},
    {{"loop 1 1 0 9 1 0 9 9 1", 3},
     {"LineTo 1,19 9,19", "LineTo 9,19 9,11", "LineTo 9,11 5,9", "LineTo 5,9 1,11",
      "LineTo 1,11 -1,15", "LineTo -1,15 1,19",
      "Polygon 1,19 9,19 9,11 mode 2 brush hatch 2 0x0000ff"}},
    {{"spline 0.5 1 1 9 1 9 9"},
     {"LineTo 1,19 5,19", "LineTo 5,19 8,18", "LineTo 8,18 9,15", "LineTo 9,15 9,11"}},
    // Half a unit from sample to sample where there is no view.
    {{"cspline 1.2 1 0 3.2 1 0"}, {"Polyline 1,19 2,19 2,19 3,19 3,19"}},
    {{"spiral 4 6 6 2.25 0.75 2 0"}, {"LineTo 7,14 6,13", "LineTo 6,13 4,14"}},
    {{"box 1 1 6 4 0"},
     {"LineTo 1,19 7,19", "LineTo 7,19 7,15", "LineTo 7,15 1,15", "LineTo 1,15 1,19"}},
    {{"rect 1 9 5 2"}, {"Rectangle 1,11 5,18 brush hollow"}},
    {{"point 4 4 2", 0, 8}, {"Ellipse 2,14 6,18 brush solid 0x0000ff"}},
    // The square is drawn a second time before the cross.
    {{"point 4 4 2", -1, 12},
     {"Rectangle 2,14 6,18 brush hollow", "LineTo 2,16 6,16", "LineTo 4,14 4,18",
      "Rectangle 2,14 6,18 brush hollow", "LineTo 2,14 6,18", "LineTo 2,18 6,14"}},
    {{"point 4 4 0", -1, 0}, {"SetPixel 4,16 0x0000ff"}},
    // The marker has no size without a view.
    {{"cobweb 9 9 2 5 2 0"},
     {"AngleArc 11,11 centre 9,11 radius 2,-2 from 0 sweep 360",
      "AngleArc 14,11 centre 9,11 radius 5,-5 from 0 sweep 360", "LineTo 9,11 14,11",
      "LineTo 9,11 4,11", "Ellipse 11,11 11,11 brush hollow"}},
};

class DrawingOperations : public testing::Test {
 protected:
  DrawingOperations() {
    _wArcRes = 8;
    m_database.m_vars.pointMode = 0;
  }
  ~DrawingOperations() override { _wArcRes = m_formerResolution; }

  CQdrDbDatabase m_database{true};
  const unsigned short m_formerResolution = _wArcRes;
};

TEST_F(DrawingOperations, AreThoseOfTheClass) {
  for (const Operations& row : kOperations) {
    std::vector<std::string> lines = qdr::test::operationsOf(*add(m_database, row.shape));
    for (std::string& line : lines)
      for (const std::string usual : {" pen solid 0 0x0000ff", " rop 13"})
        if (const auto at = line.find(usual); at != std::string::npos) line.erase(at, usual.size());
    EXPECT_EQ(lines, row.lines) << row.shape.text;
  }
}

}  // namespace
