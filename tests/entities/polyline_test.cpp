// What a polyline adds to its geometry: drawing and fill, making, edits and their undo steps.

#include "entities/polyline.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <memory>

#include "entities/arc.h"
#include "entities/circle.h"
#include "entities/drawn_box.h"
#include "entities/line.h"
#include "geometry/angle.h"
#include "tests/support/entity_text.h"
#include "tests/support/sketch.h"

namespace {

using qdr::kCurveTolerance;
using qdr::test::addAs;
using qdr::test::addFromText;
using qdr::test::bytesOf;

// Bulges of a quarter and of an eighth of a turn.
const double kQuarter = std::tan(qdr::kPi / 8);
const double kEighth = std::tan(qdr::kPi / 16);

struct Vertex {
  double x;
  double y;
  double bulge = 0.0;
};
using Vertices = std::vector<Vertex>;

const char* const kSquare = "loop 0 0 0 10 0 0 10 10 0 0 10 0";
const char* const kCorner = "polyline 0 0 0 10 0 0 10 10 0";
const char* const kHalfDown = "polyline 0 0 1 10 0 0";  // over (5, -5)
const char* const kHalfUp = "polyline 0 0 -1 10 0 0";   // over (5, 5)
const char* const kDome = "loop 0 0 0 10 0 1";          // closes over (5, 5)
const char* const kLens = "loop -5 5 0.41421356237309503 0 0 0.41421356237309503";

void expectVertices(const CQdrDbPolyline& actual, const Vertices& expected, const char* row) {
  ASSERT_EQ(actual.NumVerts(), static_cast<int>(expected.size())) << row;
  for (int i = 0; i < actual.NumVerts(); ++i) {
    const Vertex& wanted = expected[static_cast<std::size_t>(i)];
    CQdrGePoint2d point;
    actual.GetPointAt(i, point);
    EXPECT_NEAR(point.x, wanted.x, 1e-9) << row << ", vertex " << i;
    EXPECT_NEAR(point.y, wanted.y, 1e-9) << row << ", vertex " << i;
    EXPECT_NEAR(actual.GetBulgeAt(i), wanted.bulge, 1e-9) << row << ", vertex " << i;
  }
}

class Polyline : public testing::Test {
 protected:
  std::vector<CQdrDbEntity*> addAll(const std::vector<const char*>& texts) {
    std::vector<CQdrDbEntity*> entities;
    for (const char* text : texts)
      entities.push_back(addFromText(m_database, text));
    return entities;
  }

  // Back and forth twice: a step that loses something on its way shows the second time.
  void expectUndo(CQdrDbPolyline& polyline, const std::string& before, const char* row) {
    const std::string after = bytesOf(polyline);
    for (int round = 0; round < 2; ++round) {
      EXPECT_TRUE(m_undo.Undo()) << row;
      EXPECT_EQ(bytesOf(polyline), before) << row << ", undo " << round;
      EXPECT_TRUE(m_undo.Redo()) << row;
      EXPECT_EQ(bytesOf(polyline), after) << row << ", redo " << round;
    }
  }

  CQdrDbDatabase m_database{true};
  CQdrUndoHandler& m_undo = m_database.m_undoHandler;
};

TEST_F(Polyline, DrawsItsSegments) {
  struct Row {
    const char* name;
    const char* text;
    void (*prepare)(CQdrDbPolyline& polyline);
    std::vector<CQdrGePoint2d> drawn;
    std::vector<CQdrGePoint2d> empty;
  };
  const auto nothing = [](CQdrDbPolyline&) {};
  const auto fill = [](CQdrDbPolyline& polyline) { polyline.SetFill(true); };
  const Row rows[] = {
      {"an open chain stays open", kCorner, nothing, {{5, 0}, {10, 5}}, {{5, 5}}},
      {"a backward arc leaves the pen at its end",
       "polyline 0 0 -1 10 0 0 10 10 0",
       nothing,
       {{5, 5}, {10, 5}},
       {{5, -5}, {3, 3}}},
      {"a closing arc", kDome, nothing, {{5, 0}, {5, 5}}, {{5, -5}}},
      {"a start width hides the segment before it, and the pen stays",
       "polyline 0 0 0 10 0 0 10 10 0 0 10 0",
       [](CQdrDbPolyline& polyline) { polyline.SetWidthsAt(1, 0.5, 0.5); },
       {{5, 5}, {5, 10}},
       {{5, 0}, {10, 5}}},
      {"widths of 0 hide nothing",
       kCorner,
       [](CQdrDbPolyline& polyline) { polyline.SetWidthsAt(1, 0.0, 3.0); },
       {{5, 0}},
       {}},
      {"the closing segment ignores widths",
       kSquare,
       [](CQdrDbPolyline& polyline) { polyline.SetWidthsAt(0, 1.0, 1.0); },
       {{0, 5}},
       {}},
      {"the fill cuts arcs off, from straight end to straight end",
       "loop 0 0 0 10 0 1 10 10 0 0 10 0",
       fill,
       {{3, 3}, {15, 5}},
       {{8, 8}, {13, 5}}},
      {"opening hides the fill",
       kSquare,
       [](CQdrDbPolyline& polyline) {
         polyline.SetFill(true);
         polyline.SetClosed(false);
       },
       {{5, 0}},
       {{5, 5}, {0, 5}}},
  };
  for (const Row& row : rows) {
    auto* polyline = addAs<CQdrDbPolyline>(m_database, row.text);
    row.prepare(*polyline);
    const std::vector<CQdrGePoint2d> pixels = qdr::test::drawnPoints(*polyline);
    const auto shows = [&](const CQdrGePoint2d& place) {
      return std::ranges::any_of(pixels, [&](const CQdrGePoint2d& pixel) {
        return pixel.distanceTo(place) < 2 * qdr::test::kSketchPixel;
      });
    };
    for (const CQdrGePoint2d& place : row.drawn)
      EXPECT_TRUE(shows(place)) << row.name << ": " << place.x << ", " << place.y;
    for (const CQdrGePoint2d& place : row.empty)
      EXPECT_FALSE(shows(place)) << row.name << ": " << place.x << ", " << place.y;
  }
}

TEST_F(Polyline, HatchesInsteadOfFilling) {
  auto* polyline = addAs<CQdrDbPolyline>(m_database, kSquare);
  const auto pixels = [&] { return qdr::test::drawnPoints(*polyline).size(); };
  const std::size_t outline = pixels();
  polyline->SetFill(true);
  const std::size_t solid = pixels();
  polyline->SetFillMode(3);
  EXPECT_GT(pixels(), outline);
  EXPECT_LT(pixels(), solid / 2);
  polyline->SetFillMode(7);  // the platform has six hatches
  EXPECT_EQ(pixels(), outline);
}

TEST_F(Polyline, StoresAFillWhileClosed) {
  auto* open = addAs<CQdrDbPolyline>(m_database, kCorner);
  open->SetFill(true);
  open->SetClosed(true);
  EXPECT_FALSE(open->IsFill());
  open->SetFill(true);
  open->SetClosed(false);
  EXPECT_FALSE(open->IsFill());
  open->SetFillMode(-2);
  const std::string bytes = bytesOf(*open);
  EXPECT_EQ(bytes.substr(bytes.size() - 5), std::string("\x01\xfe\xff\xff\xff"));
  CQdrDbPolyline again(&m_database);
  qdr::test::readFrom(again, bytes);
  again.SetClosed(true);
  EXPECT_TRUE(again.IsFill());
  EXPECT_EQ(again.FillMode(), -2);
}

TEST_F(Polyline, ItsBoxHoldsArcsOverTheShortestChords) {
  // Radius 0.0005 * (1 + 20000^2) / (4 * 20000) = 2.5: nearly a whole circle, up to 5 away.
  auto* polyline = addAs<CQdrDbPolyline>(m_database, "polyline 0 0 20000 0.0005 0 0");
  const qdr::DrawnBox box = qdr::drawnBox(*polyline);
  ASSERT_TRUE(box.known);
  for (const CQdrGePoint2d& pixel : qdr::test::drawnPoints(*polyline)) {
    EXPECT_GE(pixel.y, box.minY - box.pixels * qdr::test::kSketchPixel);
    EXPECT_LE(pixel.y, box.maxY + box.pixels * qdr::test::kSketchPixel);
  }
}

TEST_F(Polyline, ItsBoxHoldsWhereItIsPicked) {
  // Radius 1000 * 1.01 / 0.4 = 2525. An arc is picked up to 0.001 radians beyond its end, here
  // along its tangent at 2 atan(0.1).
  auto* polyline = addAs<CQdrDbPolyline>(m_database, "polyline 0 0 0.1 1000 0 0");
  const CQdrGePoint2d beyond =
      CQdrGePoint2d(1000, 0) + CQdrGeVector2d(2 * std::atan(0.1)) * (0.0009 * 2525);
  ASSERT_EQ(polyline->isOn(beyond, 0.01), 1);
  const qdr::DrawnBox box = qdr::drawnBox(*polyline);
  EXPECT_GE(box.maxX, beyond.x);
  EXPECT_GE(box.maxY, beyond.y);
}

TEST_F(Polyline, ComesFromOtherCurves) {
  auto* line = addAs<CQdrDbLine>(m_database, "line 1 2 3 4");
  auto* arc = addAs<CQdrDbArc>(m_database, "arc 0 0 5 0 90");
  auto* circle = addAs<CQdrDbCircle>(m_database, "circle 1 1 5");
  circle->setColor(3);
  expectVertices(CQdrDbPolyline(*line, false), {{1, 2}, {3, 4}}, "line");
  expectVertices(CQdrDbPolyline(*line, true), {{3, 4}, {1, 2}}, "line reversed");
  expectVertices(CQdrDbPolyline(*arc, false), {{5, 0, kQuarter}, {0, 5}}, "arc");
  expectVertices(CQdrDbPolyline(*arc, true), {{0, 5, -kQuarter}, {5, 0}}, "arc reversed");
  const CQdrDbPolyline round(*circle, 4, false);
  expectVertices(round, {{6, 1, kQuarter}, {1, 6, kQuarter}, {-4, 1, kQuarter}, {1, -4, kQuarter}},
                 "circle");
  EXPECT_TRUE(round.IsClosed());
  EXPECT_EQ(round.ColorIndex(), 3);
  expectVertices(CQdrDbPolyline(*circle, 2, true), {{6, 1, -1}, {-4, 1, -1}}, "clockwise");
  EXPECT_EQ(CQdrDbPolyline(*circle, 0, false).NumVerts(), 0);
  EXPECT_EQ(CQdrDbPolyline(4ul, &m_database).NumVerts(), 0);
}

TEST_F(Polyline, PropertiesLeadToAllVertices) {
  auto* polyline = addAs<CQdrDbPolyline>(m_database, kHalfDown);
  const PropertyGroups groups = polyline->getProperty()[QdrDb::eClassPolyline];
  const std::vector<Property>& shape = groups.at(L"Shape");
  ASSERT_EQ(shape.size(), 6u);
  const int types[] = {2, 4, 3, 3, 4, 4};
  for (std::size_t i = 0; i < shape.size(); ++i)
    EXPECT_EQ(shape[i].m_type, types[i]) << i;
  const CQdrGePolyline2d& chain = polyline->geometry();
  EXPECT_EQ(shape[0].m_data, 2u);
  EXPECT_EQ(shape[1].m_data, reinterpret_cast<std::uintptr_t>(&chain.bulges()));
  EXPECT_EQ(shape[3].m_data, reinterpret_cast<std::uintptr_t>(&chain.points()));
  EXPECT_EQ(shape[4].m_data, reinterpret_cast<std::uintptr_t>(&chain.startWidths()));
  EXPECT_EQ(shape[5].m_data, reinterpret_cast<std::uintptr_t>(&chain.endWidths()));
}

TEST_F(Polyline, Trims) {
  struct Row {
    const char* name;
    const char* text;
    std::vector<const char*> boundaries;
    CQdrGePoint2d pick;
    Vertices left;
    Vertices rest = {};
  };
  const char* const below = "line 5 -1 5 1";
  const char* const right = "line 9 5 11 5";
  const Row rows[] = {
      {"start within the first segment", kCorner, {below}, {2, 0}, {{5, 0}, {10, 0}, {10, 10}}},
      {"start with whole segments",
       "polyline 0 0 0 4 0 0.5 10 0 0 10 10 0",
       {right},
       {2, 0},
       {{10, 5}, {10, 10}}},
      {"start up to a vertex", kCorner, {"line 10 0 12 -3"}, {2, 0}, {{10, 0}, {10, 10}}},
      {"end with whole segments", kCorner, {below}, {10, 5}, {{0, 0}, {5, 0}}},
      {"middle", kCorner, {right, below}, {10, 1}, {{0, 0}, {5, 0}}, {{10, 5}, {10, 10}}},
      {"start of an arc", kHalfDown, {"line 5 -9 5 -1"}, {1, -4}, {{5, -5, kQuarter}, {10, 0}}},
      {"end of an arc", kHalfDown, {"line 5 -9 5 -1"}, {9, -4}, {{0, 0, kQuarter}, {5, -5}}},
      {"start of a backward arc", kHalfUp, {"line 5 9 5 1"}, {1, 4}, {{5, 5, -kQuarter}, {10, 0}}},
      {"end of a backward arc", kHalfUp, {"line 5 9 5 1"}, {9, 4}, {{0, 0, -kQuarter}, {5, 5}}},
      {"a loop opens where it starts",
       kSquare,
       {below},
       {1, 0},
       {{5, 0}, {10, 0}, {10, 10}, {0, 10}, {0, 0}}},
      {"middle of a loop",
       kSquare,
       {below, right},
       {10, 1},
       {{0, 0}, {5, 0}},
       {{10, 5}, {10, 10}, {0, 10}, {0, 0}}},
      {"a loop keeps its closing arc", kDome, {"line 5 9 5 1"}, {9, 3}, {{5, 5, kQuarter}, {0, 0}}},
  };
  for (const Row& row : rows) {
    std::vector<CQdrDbEntity*> boundaries = addAll(row.boundaries);
    auto* polyline = addAs<CQdrDbPolyline>(m_database, row.text);
    polyline->SetWidthsAt(0, 0.0, 2.0);
    const std::string before = bytesOf(*polyline);
    const std::unique_ptr<CQdrDbEntity> rest(polyline->Trim(row.pick, boundaries, kCurveTolerance));
    expectVertices(*polyline, row.left, row.name);
    EXPECT_FALSE(polyline->IsClosed()) << row.name;
    ASSERT_EQ(rest != nullptr, !row.rest.empty()) << row.name;
    if (rest) expectVertices(static_cast<CQdrDbPolyline&>(*rest), row.rest, row.name);
    expectUndo(*polyline, before, row.name);
  }
  std::vector<CQdrDbEntity*> apart = addAll({"line 30 0 30 9"});
  auto* polyline = addAs<CQdrDbPolyline>(m_database, kSquare);
  EXPECT_EQ(polyline->Trim({1, 0}, apart, kCurveTolerance), nullptr);
  EXPECT_TRUE(polyline->IsClosed());
}

TEST_F(Polyline, Extends) {
  struct Row {
    const char* name;
    const char* text;
    const char* boundary;
    CQdrGePoint2d pick;
    Vertices expected;  ///< none where nothing is extended
  };
  const char* const quarter = "polyline 0 0 0.41421356237309503 5 -5 0";
  const char* const backward = "polyline 5 -5 -0.41421356237309503 0 0 0";
  const Row rows[] = {
      {"end", kCorner, "line 5 15 15 15", {10, 8}, {{0, 0}, {10, 0}, {10, 15}}},
      {"start", kCorner, "line -5 -1 -5 1", {1, 0}, {{-5, 0}, {10, 0}, {10, 10}}},
      {"not backward over its own segment", kCorner, "line 5 -5 15 -5", {10, 8}, {}},
      {"not by another segment", kCorner, "line -5 -1 -5 1", {10, 8}, {}},
      {"not to a crossing on it", kCorner, "line 9 5 11 5", {10, 8}, {}},
      {"end of an arc", quarter, "line 9 0 12 0", {4, -5}, {{0, 0, 1}, {10, 0}}},
      {"start of a backward arc", backward, "line 9 0 12 0", {4, -5}, {{10, 0, -1}, {0, 0}}},
      {"no loop", kSquare, "line -5 -1 -5 1", {1, 0}, {}},
  };
  for (const Row& row : rows) {
    std::vector<CQdrDbEntity*> boundaries = addAll({row.boundary});
    auto* polyline = addAs<CQdrDbPolyline>(m_database, row.text);
    const std::string before = bytesOf(*polyline);
    EXPECT_EQ(polyline->Extend(row.pick, boundaries, kCurveTolerance), !row.expected.empty())
        << row.name;
    if (row.expected.empty()) {
      EXPECT_EQ(bytesOf(*polyline), before) << row.name;
      continue;
    }
    expectVertices(*polyline, row.expected, row.name);
    expectUndo(*polyline, before, row.name);
  }
}

TEST_F(Polyline, FilletsOneCorner) {
  // A line and a half circle of radius 5 meet at a right angle in the origin; the fillet of radius
  // 2.4 touches both from outside the circle: (x - 5)^2 + 2.4^2 = 7.4^2 gives its centre (-2, 2.4).
  const double lean = std::atan2(2.4, 7.0);
  const Vertex onArc{5 - 35 / 7.4, 12 / 7.4};
  const double byLine = std::tan((qdr::kHalfPi - lean) / 4);
  const double restOfArc = std::tan((qdr::kPi - lean) / 4);
  // In the lens of two quarter circles about (0, 5) and (-5, 0) the fillet of radius 1 lies inside
  // both: its centre (-t, t) keeps t^2 + (5 - t)^2 = 4^2, and the cosine of its sweep is -9/16.
  const double t = (10 - std::sqrt(28.0)) / 4;
  const Vertex inLens{-1.25 * t, 5 + 1.25 * (t - 5)};
  const double tip = std::tan(std::acos(-9.0 / 16) / 4);
  const double restOfLens = std::tan(std::atan2(5 - t, t) / 4);
  struct Row {
    const char* name;
    const char* text;
    int segment;
    double place;
    double radius;
    Vertices expected;  ///< none where nothing changes
  };
  const Row rows[] = {
      {"the middle belongs to the start",
       kCorner,
       1,
       0.5,
       2,
       {{0, 0}, {8, 0, kQuarter}, {10, 2}, {10, 10}}},
      {"beyond it the end", kCorner, 0, 0.51, 2, {{0, 0}, {8, 0, kQuarter}, {10, 2}, {10, 10}}},
      {"clockwise",
       "polyline 0 0 0 10 0 0 10 -10 0",
       1,
       0.1,
       2,
       {{0, 0}, {8, 0, -kQuarter}, {10, -2}, {10, -10}}},
      {"no corner behind an open end", kCorner, 1, 0.51, 2, {}},
      {"round the seam",
       kSquare,
       0,
       0.5,
       2,
       {{2, 0}, {10, 0}, {10, 10}, {0, 10}, {0, 2, kQuarter}}},
      {"as long as the segment",
       kCorner,
       1,
       0.1,
       10,
       {{0, 0}, {0, 0, kQuarter}, {10, 10}, {10, 10}}},
      {"longer than the segment", kCorner, 1, 0.1, 10.1, {}},
      {"straight on", "polyline 0 0 0 5 0 0 10 0 0", 1, 0.1, 1, {}},
      {"straight back", "polyline 0 0 0 5 0 0 1 0 0", 1, 0.1, 1, {}},
      {"beyond the segments", kCorner, 7, 0.1, 1, {}},
      {"line and arc",
       "polyline -10 0 0 0 0 -1 10 0 0",
       1,
       0.2,
       2.4,
       {{-10, 0}, {-2, 0, byLine}, {onArc.x, onArc.y, -restOfArc}, {10, 0}}},
      {"arc and line",
       "polyline 10 0 1 0 0 0 -10 0 0",
       1,
       0.2,
       2.4,
       {{10, 0, restOfArc}, {onArc.x, onArc.y, -byLine}, {-2, 0}, {-10, 0}}},
      {"two arcs",
       kLens,
       1,
       0.5,
       1,
       {{-5, 5, restOfLens}, {inLens.x, inLens.y, tip}, {-inLens.y, -inLens.x, restOfLens}}},
      {"larger than the arcs around it", kLens, 1, 0.5, 5, {}},
  };
  for (const Row& row : rows) {
    auto* polyline = addAs<CQdrDbPolyline>(m_database, row.text);
    const std::string before = bytesOf(*polyline);
    EXPECT_EQ(polyline->Fillet(row.segment, row.place, row.radius), !row.expected.empty())
        << row.name;
    if (row.expected.empty()) {
      EXPECT_EQ(bytesOf(*polyline), before) << row.name;
      continue;
    }
    expectVertices(*polyline, row.expected, row.name);
    expectUndo(*polyline, before, row.name);
  }
}

TEST_F(Polyline, FilletsAllCornersInOneStep) {
  auto* square = addAs<CQdrDbPolyline>(m_database, kSquare);
  const std::string before = bytesOf(*square);
  EXPECT_EQ(square->Fillet(2.0), 4);
  expectVertices(*square,
                 {{2, 0},
                  {8, 0, kQuarter},
                  {10, 2},
                  {10, 8, kQuarter},
                  {8, 10},
                  {2, 10, kQuarter},
                  {0, 8},
                  {0, 2, kQuarter}},
                 "square");
  expectUndo(*square, before, "square");
  auto* corner = addAs<CQdrDbPolyline>(m_database, kCorner);
  EXPECT_EQ(corner->Fillet(2.0), 1);
}

TEST_F(Polyline, TellsWhatTakesAFillet) {
  struct Row {
    const char* name;
    CQdrGeLine2d first;
    CQdrGeLine2d second;
    bool answer;
    int side;
    CQdrGePoint2d center;
    double startDegrees;
  };
  const auto line = [](double x1, double y1, double x2, double y2) {
    return CQdrGeLine2d(CQdrGePoint2d(x1, y1), CQdrGePoint2d(x2, y2));
  };
  const Row rows[] = {
      {"end to start", line(0, 0, 10, 0), line(10, 0, 10, 10), true, 1, {8, 2}, 270},
      {"end to end", line(0, 0, 10, 0), line(10, -9, 10, 0), true, -1, {8, -2}, 0},
      {"start to start", line(10, 0, 0, 0), line(10, 0, 10, 10), true, 1, {8, 2}, 270},
      {"nowhere", line(0, 0, 10, 0), line(10, 1, 10, 10), false, 1, {}, 0},
      {"nearly parallel", line(0, 0, 10, 0), line(10, 0, 20, 0.05), false, 1, {}, 0},
  };
  for (const Row& row : rows) {
    CQdrGeCircArc2d fillet;
    int side = 0;
    EXPECT_EQ(CQdrDbPolyline::IsFilletable(row.first, row.second, 2.0, fillet, side), row.answer)
        << row.name;
    EXPECT_EQ(side, row.side) << row.name;
    if (!row.answer) continue;
    EXPECT_LT(fillet.center().distanceTo(row.center), 1e-9) << row.name;
    EXPECT_NEAR(fillet.bulge(), kQuarter, 1e-9) << row.name;
    EXPECT_NEAR(std::cos(fillet.startAng() - qdr::toRadians(row.startDegrees)), 1, 1e-9)
        << row.name;
  }
}

TEST_F(Polyline, DividesASegment) {
  struct Row {
    const char* name;
    const char* text;
    int parts;
    int segment;
    Vertices expected;  ///< none where nothing is divided
  };
  const double s = std::sqrt(12.5);  // 5 at 45 degrees
  const Row rows[] = {
      {"line", kCorner, 4, 0, {{0, 0}, {2.5, 0}, {5, 0}, {7.5, 0}, {10, 0}, {10, 10}}},
      {"arc", kHalfDown, 2, 0, {{0, 0, kQuarter}, {5, -5, kQuarter}, {10, 0}}},
      {"backward arc",
       kHalfUp,
       4,
       0,
       {{0, 0, -kEighth}, {5 - s, s, -kEighth}, {5, 5, -kEighth}, {5 + s, s, -kEighth}, {10, 0}}},
      {"closing arc",
       kDome,
       4,
       1,
       {{0, 0}, {10, 0, kEighth}, {5 + s, s, kEighth}, {5, 5, kEighth}, {5 - s, s, kEighth}}},
      {"no part", kCorner, 0, 0, {}},
      {"no segment behind the last vertex", kCorner, 2, 2, {}},
  };
  for (const Row& row : rows) {
    auto* polyline = addAs<CQdrDbPolyline>(m_database, row.text);
    polyline->SetWidthsAt(row.segment, 0.5, 0.25);
    const std::string before = bytesOf(*polyline);
    EXPECT_EQ(polyline->DivideSegment(row.parts, row.segment, true), !row.expected.empty())
        << row.name;
    if (row.expected.empty()) continue;
    expectVertices(*polyline, row.expected, row.name);
    double startWidth = 0.0;
    double endWidth = 0.0;
    polyline->GetWidthsAt(row.segment + 1, startWidth, endWidth);
    EXPECT_EQ(startWidth, 0.5) << row.name;
    EXPECT_EQ(endWidth, 0.25) << row.name;
    expectUndo(*polyline, before, row.name);
  }
}

TEST_F(Polyline, ExplodesIntoLinesAndArcs) {
  auto* open = addAs<CQdrDbPolyline>(m_database, "polyline 0 0 0 10 0 1 10 10 0");
  open->setColor(4);
  const auto& members = m_database.m_blockTable.getCurrentRecord()->getEntitySet();
  const std::size_t memberCount = members.size();
  EXPECT_TRUE(open->Explode());
  // The last of the two entities is handed over twice.
  ASSERT_EQ(members.size(), memberCount + 2);
  ASSERT_EQ(m_undo.m_undoList.size(), 3u);
  EXPECT_TRUE(m_undo.m_undoList[0].entityId == m_undo.m_undoList[1].entityId);
  auto* line = static_cast<CQdrDbLine*>(m_undo.m_undoList[2].entityId.getPObject());
  auto* arc = static_cast<CQdrDbArc*>(m_undo.m_undoList[1].entityId.getPObject());
  ASSERT_EQ(line->classType(), QdrDb::eClassLine);
  ASSERT_EQ(arc->classType(), QdrDb::eClassArc);
  EXPECT_EQ(line->ColorIndex(), 4);
  EXPECT_LT(line->EndPoint().distanceTo({10, 0}), 1e-9);
  EXPECT_LT(arc->getGripPoint(2).distanceTo({15, 5}), 1e-9);
  EXPECT_TRUE(m_undo.Undo());
  EXPECT_TRUE(line->isErased());
  EXPECT_TRUE(arc->isErased());
  EXPECT_TRUE(m_undo.Redo());
  EXPECT_FALSE(line->isErased());
  EXPECT_FALSE(arc->isErased());
  EXPECT_FALSE(addAs<CQdrDbPolyline>(m_database, "polyline 1 1 0")->Explode());
}

TEST_F(Polyline, OffsetsToOneAndToAllSides) {
  auto* polyline = addAs<CQdrDbPolyline>(m_database, kCorner);
  polyline->setColor(5);
  CQdrDbEntity* result = nullptr;
  ASSERT_TRUE(polyline->getOffset({5, 5}, result, 1.0));
  const std::unique_ptr<CQdrDbEntity> inner(result);
  expectVertices(static_cast<CQdrDbPolyline&>(*inner), {{0, 1}, {9, 1}, {9, 10}}, "inner");
  EXPECT_EQ(inner->ColorIndex(), 5);

  std::vector<CQdrDbEntity*> results;
  EXPECT_EQ(polyline->Offset({5, 5}, results, 1.0, false), 1);
  EXPECT_EQ(polyline->Offset({5, 5}, results, 1.0, true), 3);
  for (CQdrDbEntity* entity : results) {
    EXPECT_EQ(entity->ColorIndex(), 5);
    delete entity;
  }
  auto* point = addAs<CQdrDbPolyline>(m_database, "polyline 1 1 0");
  EXPECT_FALSE(point->getOffset({5, 5}, result, 1.0));
  EXPECT_EQ(result, nullptr);
}

TEST_F(Polyline, CollectsCrossingsByTheirPlace) {
  auto* square = addAs<CQdrDbPolyline>(m_database, kSquare);
  std::map<double, CQdrGePoint2d> crossings;
  int count = 0;
  EXPECT_TRUE(square->intersectWith(*addFromText(m_database, "line 5 -1 5 1"), count, crossings, 0,
                                    kCurveTolerance));
  EXPECT_TRUE(square->intersectWith(*addFromText(m_database, "circle 10 5 1"), count, crossings, 0,
                                    kCurveTolerance));
  EXPECT_EQ(count, 3);
  const double expected[] = {5.0 / 40, 14.0 / 40, 16.0 / 40};
  int i = 0;
  for (const auto& [param, point] : crossings)
    EXPECT_NEAR(param, expected[i++], 1e-7);
}

}  // namespace
