// What a polyline adds to its geometry: making, fill, edits and their undo steps.

#include "entities/polyline.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <memory>

#include "database/undo/undo_operations.h"
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

const char* const kSquare = "loop 0 0 0 10 0 0 10 10 0 0 10 0";
const char* const kCorner = "polyline 0 0 0 10 0 0 10 10 0";
const char* const kHalfDown = "polyline 0 0 1 10 0 0";  // over (5, -5)
const char* const kHalfUp = "polyline 0 0 -1 10 0 0";   // over (5, 5)
const char* const kDome = "loop 0 0 0 10 0 1";          // closes over (5, 5)
const char* const kLens = "loop -5 5 0.41421356237309503 0 0 0.41421356237309503";

// The vertices with six digits; behind an "@" the degrees that an arc turns through.
std::string verticesOf(const CQdrDbPolyline& polyline) {
  const auto rounded = [](double value) { return std::abs(value) < 1e-9 ? 0.0 : value; };
  std::string text;
  for (int i = 0; i < polyline.NumVerts(); ++i) {
    CQdrGePoint2d point;
    polyline.GetPointAt(i, point);
    char vertex[80];
    std::snprintf(vertex, sizeof vertex, "%s%.6g,%.6g", i > 0 ? " " : "", rounded(point.x),
                  rounded(point.y));
    text += vertex;
    const double turn = qdr::toDegrees(4.0 * std::atan(polyline.GetBulgeAt(i)));
    if (rounded(turn) == 0.0) continue;
    std::snprintf(vertex, sizeof vertex, "@%.6g", turn);
    text += vertex;
  }
  return text;
}

// Grips and box are those of a copy, which makes its own.
void expectFreshGrips(CQdrDbPolyline& polyline, const char* row) {
  CQdrDbPolyline copy(polyline);
  std::vector<CQdrGePoint2d>* grips = nullptr;
  std::vector<CQdrGePoint2d>* fresh = nullptr;
  polyline.getGripPointVec(grips);
  copy.getGripPointVec(fresh);
  EXPECT_TRUE(std::ranges::equal(*grips, *fresh)) << row;
  EXPECT_TRUE(*polyline.GetEntityRect() == *copy.GetEntityRect()) << row;
}

class Polyline : public testing::Test {
 protected:
  std::vector<CQdrDbEntity*> addAll(const std::vector<const char*>& texts) {
    std::vector<CQdrDbEntity*> entities;
    for (const char* text : texts)
      entities.push_back(addFromText(m_database, text));
    return entities;
  }

  // What an edit leaves, and nothing changed where none is expected; then back and forth twice,
  // since a step that loses something on its way shows the second time.
  void expectEdit(CQdrDbPolyline& polyline, const std::string& before, bool done,
                  const char* expected, const char* row) {
    EXPECT_EQ(done, expected != nullptr) << row;
    const std::string after = bytesOf(polyline);
    if (!expected) {
      EXPECT_EQ(after, before) << row;
      return;
    }
    EXPECT_EQ(verticesOf(polyline), expected) << row;
    for (int round = 0; round < 2; ++round) {
      EXPECT_TRUE(m_undo.Undo()) << row;
      EXPECT_EQ(bytesOf(polyline), before) << row << ", undo " << round;
      expectFreshGrips(polyline, row);
      EXPECT_TRUE(m_undo.Redo()) << row;
      EXPECT_EQ(bytesOf(polyline), after) << row << ", redo " << round;
      expectFreshGrips(polyline, row);
    }
  }

  CQdrDbDatabase m_database{true};
  CQdrUndoHandler& m_undo = m_database.m_undoHandler;
};

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
  CQdrDbPolyline assigned(&m_database);
  assigned = again;
  EXPECT_TRUE(assigned.IsFill());
  EXPECT_EQ(assigned.FillMode(), -2);
  EXPECT_EQ(CQdrDbPolyline(again).FillMode(), -2);
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
  EXPECT_EQ(verticesOf(CQdrDbPolyline(*line, false)), "1,2 3,4");
  EXPECT_EQ(verticesOf(CQdrDbPolyline(*line, true)), "3,4 1,2");
  EXPECT_EQ(verticesOf(CQdrDbPolyline(*arc, false)), "5,0@90 0,5");
  EXPECT_EQ(verticesOf(CQdrDbPolyline(*arc, true)), "0,5@-90 5,0");
  const CQdrDbPolyline round(*circle, 4, false);
  EXPECT_EQ(verticesOf(round), "6,1@90 1,6@90 -4,1@90 1,-4@90");
  EXPECT_TRUE(round.IsClosed());
  EXPECT_EQ(round.ColorIndex(), 3);
  EXPECT_EQ(verticesOf(CQdrDbPolyline(*circle, 2, true)), "6,1@-180 -4,1@-180");
  EXPECT_EQ(CQdrDbPolyline(*circle, 0, false).NumVerts(), 0);
  EXPECT_EQ(CQdrDbPolyline(4ul, &m_database).NumVerts(), 0);
}

TEST_F(Polyline, OnlyArcSegmentsHaveAMiddleGrip) {
  // A flat bulge, a chord of no length, and the bulge behind the end of an open chain.
  const struct {
    const char* text;
    std::size_t grips;
  } rows[] = {{kHalfDown, 3},
              {"polyline 0 0 0.001 10 0 0", 2},
              {"polyline 0 0 1 0 0.0005 0", 2},
              {"polyline 0 0 0 10 0 1", 2},
              {kDome, 3}};
  for (const auto& row : rows) {
    std::vector<CQdrGePoint2d>* grips = nullptr;
    addAs<CQdrDbPolyline>(m_database, row.text)->getGripPointVec(grips);
    EXPECT_EQ(grips->size(), row.grips) << row.text;
  }
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
    const char* left;  ///< null where nothing is trimmed
    const char* rest = nullptr;
  };
  const char* const below = "line 5 -1 5 1";
  const char* const right = "line 9 5 11 5";
  const char* const down = "line 5 -9 5 -1";
  const char* const up = "line 5 9 5 1";
  const char* const bent = "polyline 0 0 0 4 0 0.5 10 0 0 10 10 0";
  const Row rows[] = {
      {"start within a segment", kCorner, {below}, {2, 0}, "5,0 10,0 10,10"},
      {"start with whole segments", bent, {right}, {2, 0}, "10,5 10,10"},
      {"start up to a vertex", kCorner, {"line 10 0 12 -3"}, {2, 0}, "10,0 10,10"},
      {"end with whole segments", kCorner, {below}, {10, 5}, "0,0 5,0"},
      {"end from a vertex on", kCorner, {"line 10 0 12 -3"}, {10, 5}, "0,0 10,0"},
      {"middle", kCorner, {right, below}, {10, 1}, "0,0 5,0", "10,5 10,10"},
      {"start of an arc", kHalfDown, {down}, {1, -4}, "5,-5@90 10,0"},
      {"end of an arc", kHalfDown, {down}, {9, -4}, "0,0@90 5,-5"},
      {"start of a backward arc", kHalfUp, {up}, {1, 4}, "5,5@-90 10,0"},
      {"end of a backward arc", kHalfUp, {up}, {9, 4}, "0,0@-90 5,5"},
      {"loops open where they start", kSquare, {below}, {1, 0}, "5,0 10,0 10,10 0,10 0,0"},
      {"middle of a loop", kSquare, {below, right}, {10, 1}, "0,0 5,0", "10,5 10,10 0,10 0,0"},
      {"a loop keeps its closing arc", kDome, {up}, {9, 3}, "5,5@90 0,0"},
      {"nothing crosses", kSquare, {"line 30 0 30 9"}, {1, 0}, nullptr},
      {"a touched end leaves no length", kCorner, {"line 0 0 0 9"}, {5, 0}, "0,0 0,0"},
      {"nor does it before a middle",
       kCorner,
       {"line 0 0 0 9", below},
       {2, 0},
       "0,0 0,0",
       "5,0 10,0 10,10"},
  };
  for (const Row& row : rows) {
    std::vector<CQdrDbEntity*> boundaries = addAll(row.boundaries);
    auto* polyline = addAs<CQdrDbPolyline>(m_database, row.text);
    polyline->SetWidthsAt(0, 0.0, 2.0);
    const std::string before = bytesOf(*polyline);
    const std::unique_ptr<CQdrDbEntity> rest(polyline->Trim(row.pick, boundaries, kCurveTolerance));
    ASSERT_EQ(rest != nullptr, row.rest != nullptr) << row.name;
    if (rest) {
      EXPECT_EQ(verticesOf(static_cast<CQdrDbPolyline&>(*rest)), row.rest) << row.name;
    }
    EXPECT_EQ(polyline->IsClosed(), !row.left && row.text == kSquare) << row.name;
    expectEdit(*polyline, before, row.left != nullptr, row.left, row.name);
  }
}

TEST_F(Polyline, Extends) {
  struct Row {
    const char* name;
    const char* text;
    const char* boundary;
    CQdrGePoint2d pick;
    const char* expected;  ///< null where nothing is extended
  };
  const char* const quarter = "polyline 0 0 0.41421356237309503 5 -5 0";
  const char* const backward = "polyline 5 -5 -0.41421356237309503 0 0 0";
  const Row rows[] = {
      {"end", kCorner, "line 5 15 15 15", {10, 8}, "0,0 10,0 10,15"},
      {"end from the very middle", kCorner, "line 5 15 15 15", {10, 0}, "0,0 10,0 10,15"},
      {"start", kCorner, "line -5 -1 -5 1", {1, 0}, "-5,0 10,0 10,10"},
      {"not backward over its own segment", kCorner, "line 5 -5 15 -5", {10, 8}, nullptr},
      {"not by another segment", kCorner, "line -5 -1 -5 1", {10, 8}, nullptr},
      {"not to a crossing on it", kCorner, "line 9 5 11 5", {10, 8}, nullptr},
      {"end of an arc", quarter, "line 9 0 12 0", {4, -5}, "0,0@180 10,0"},
      {"start of a backward arc", backward, "line 9 0 12 0", {4, -5}, "10,0@-180 0,0"},
      {"no loop", kSquare, "line -5 -1 -5 1", {1, 0}, nullptr},
  };
  for (const Row& row : rows) {
    std::vector<CQdrDbEntity*> boundaries = addAll({row.boundary});
    auto* polyline = addAs<CQdrDbPolyline>(m_database, row.text);
    const std::string before = bytesOf(*polyline);
    const bool done = polyline->Extend(row.pick, boundaries, kCurveTolerance);
    expectEdit(*polyline, before, done, row.expected, row.name);
  }
}

TEST_F(Polyline, FilletsOneCorner) {
  // A line and a half circle of radius 5 meet at a right angle in the origin; the fillet of radius
  // 2.4 touches both from outside the circle: (x - 5)^2 + 2.4^2 = 7.4^2 gives its centre (-2, 2.4),
  // seen from that of the circle at atan(2.4 / 7) = 18.9246 degrees over its axis.
  const char* const outside = "-10,0 -2,0@71.0754 0.27027,1.62162@-161.075 10,0";
  const char* const outsideBack = "10,0@161.075 0.27027,1.62162@-71.0754 -2,0 -10,0";
  // In the lens of two quarter circles about (0, 5) and (-5, 0) the fillet of radius 1 lies inside
  // both: its centre (-t, t) keeps t^2 + (5 - t)^2 = 4^2, so t = (10 - sqrt(28)) / 4 = 1.17712; the
  // cosine of its sweep is -9/16, and the circles are touched at atan((5 - t) / t) = 72.8856.
  const char* const inLens = "-5,5@72.8856 -1.47141,0.221405@124.229 -0.221405,1.47141@72.8856";
  struct Row {
    const char* name;
    const char* text;
    int segment;
    double place;
    double radius;
    const char* expected;  ///< null where nothing changes
  };
  const Row rows[] = {
      {"the middle belongs to the start", kCorner, 1, 0.5, 2, "0,0 8,0@90 10,2 10,10"},
      {"beyond it the end", kCorner, 0, 0.51, 2, "0,0 8,0@90 10,2 10,10"},
      {"clockwise", "polyline 0 0 0 10 0 0 10 -10 0", 1, 0.1, 2, "0,0 8,0@-90 10,-2 10,-10"},
      {"no corner behind an open end", kCorner, 1, 0.51, 2, nullptr},
      {"no corner before an open start", kCorner, 0, 0.5, 2, nullptr},
      {"round the seam", kSquare, 0, 0.5, 2, "2,0 10,0 10,10 0,10 0,2@90"},
      {"as long as the segment", kCorner, 1, 0.1, 10, "0,0 0,0@90 10,10 10,10"},
      {"longer than the segment", kCorner, 1, 0.1, 10.1, nullptr},
      {"straight on", "polyline 0 0 0 5 0 0 10 0 0", 1, 0.1, 1, nullptr},
      {"straight back", "polyline 0 0 0 5 0 0 1 0 0", 1, 0.1, 1, nullptr},
      {"beyond the segments", kCorner, 7, 0.1, 1, nullptr},
      {"line and arc", "polyline -10 0 0 0 0 -1 10 0 0", 1, 0.2, 2.4, outside},
      {"arc and line", "polyline 10 0 1 0 0 0 -10 0 0", 1, 0.2, 2.4, outsideBack},
      {"two arcs", kLens, 1, 0.5, 1, inLens},
      {"larger than the arcs around it", kLens, 1, 0.5, 5, nullptr},
  };
  for (const Row& row : rows) {
    auto* polyline = addAs<CQdrDbPolyline>(m_database, row.text);
    const std::string before = bytesOf(*polyline);
    const bool done = polyline->Fillet(row.segment, row.place, row.radius);
    expectEdit(*polyline, before, done, row.expected, row.name);
  }
}

TEST_F(Polyline, FilletsAllCornersInOneStep) {
  auto* square = addAs<CQdrDbPolyline>(m_database, kSquare);
  const std::string before = bytesOf(*square);
  EXPECT_EQ(square->Fillet(2.0), 4);
  expectEdit(*square, before, true, "2,0 8,0@90 10,2 10,8@90 8,10 2,10@90 0,8 0,2@90", "square");
  auto* corner = addAs<CQdrDbPolyline>(m_database, kCorner);
  EXPECT_EQ(corner->Fillet(2.0), 1);
}

TEST_F(Polyline, TheLogRefreshesEveryOneThatItPlays) {
  CQdrDbPolyline* const two[] = {addAs<CQdrDbPolyline>(m_database, kSquare),
                                 addAs<CQdrDbPolyline>(m_database, kCorner)};
  for (const int step : {0, 1, 2, 3}) {
    tagUndoEditEntity record;
    record.continued = step == 0 ? 0 : 1;
    record.operation = qdr::kUndoVertex;
    record.entityId = two[step % 2]->objectId();
    record.index = step;
    record.point = {20.0 + step, 30.0};
    m_undo.AddUndo(record);
  }
  EXPECT_TRUE(m_undo.Undo());
  for (CQdrDbPolyline* polyline : two)
    expectFreshGrips(*polyline, "after one undo of both");
  EXPECT_EQ(verticesOf(*two[0]), "20,30 10,0 22,30 0,10");
}

TEST_F(Polyline, TellsWhatTakesAFillet) {
  struct Row {
    const char* name;
    const char* first;
    const char* second;
    int side;  ///< 0 where there is none
    CQdrGePoint2d center;
    double startDegrees;
  };
  const Row rows[] = {
      {"end to start", "line 0 0 10 0", "line 10 0 10 10", 1, {8, 2}, 270},
      {"end to end", "line 0 0 10 0", "line 10 -9 10 0", -1, {8, -2}, 0},
      {"start to start", "line 10 0 0 0", "line 10 0 10 10", 1, {8, 2}, 270},
      {"nowhere", "line 0 0 10 0", "line 10 1 10 10", 0, {}, 0},
      {"nearly parallel", "line 0 0 10 0", "line 10 0 20 0.05", 0, {}, 0},
  };
  for (const Row& row : rows) {
    CQdrGeCircArc2d fillet;
    int side = 0;
    const CQdrGeLine2d& first = addAs<CQdrDbLine>(m_database, row.first)->geometry();
    const CQdrGeLine2d& second = addAs<CQdrDbLine>(m_database, row.second)->geometry();
    EXPECT_EQ(CQdrDbPolyline::IsFilletable(first, second, 2.0, fillet, side), row.side != 0)
        << row.name;
    EXPECT_EQ(side, row.side == 0 ? 1 : row.side) << row.name;
    if (row.side == 0) continue;
    EXPECT_LT(fillet.center().distanceTo(row.center), 1e-9) << row.name;
    EXPECT_NEAR(fillet.bulge(), std::tan(qdr::kPi / 8), 1e-9) << row.name;
    EXPECT_NEAR(std::cos(fillet.startAng() - qdr::toRadians(row.startDegrees)), 1, 1e-9)
        << row.name;
  }
  // The corners of FilletsOneCorner, given as curves.
  CQdrGeCircArc2d fillet;
  int side = 0;
  const CQdrGeCircArc2d over({5, 0}, 5, 0, qdr::kPi);
  const CQdrGeLine2d toOrigin(CQdrGePoint2d(-10, 0), CQdrGePoint2d(0, 0));
  EXPECT_TRUE(CQdrDbPolyline::IsFilletable(toOrigin, over, 2.4, fillet, side));
  EXPECT_LT(fillet.center().distanceTo({-2, 2.4}), 1e-9);
  EXPECT_EQ(side, 1);
  const CQdrGeCircArc2d below({0, 5}, 5, qdr::kPi, 1.5 * qdr::kPi);
  const CQdrGeCircArc2d above({-5, 0}, 5, 0, qdr::kHalfPi);
  EXPECT_TRUE(CQdrDbPolyline::IsFilletable(below, above, 1, fillet, side));
  EXPECT_LT(fillet.center().distanceTo({-1.17712, 1.17712}), 1e-5);
  EXPECT_EQ(side, 1);
  EXPECT_FALSE(CQdrDbPolyline::IsFilletable(below, above, 5, fillet, side));
}

TEST_F(Polyline, DividesASegment) {
  struct Row {
    const char* name;
    const char* text;
    int parts;
    int segment;
    const char* expected;  ///< null where nothing is divided
  };
  // 5 at 45 degrees is sqrt(12.5) = 3.53553 along either axis.
  const Row rows[] = {
      {"line", kCorner, 4, 0, "0,0 2.5,0 5,0 7.5,0 10,0 10,10"},
      {"arc", kHalfDown, 2, 0, "0,0@90 5,-5@90 10,0"},
      {"backward arc", kHalfUp, 4, 0,
       "0,0@-45 1.46447,3.53553@-45 5,5@-45 8.53553,3.53553@-45 10,0"},
      {"closing arc", kDome, 4, 1, "0,0 10,0@45 8.53553,3.53553@45 5,5@45 1.46447,3.53553@45"},
      {"no part", kCorner, 0, 0, nullptr},
      {"no segment behind the last vertex", kCorner, 2, 2, nullptr},
  };
  for (const Row& row : rows) {
    auto* polyline = addAs<CQdrDbPolyline>(m_database, row.text);
    polyline->SetWidthsAt(row.segment, 0.5, 0.25);
    const std::string before = bytesOf(*polyline);
    const bool done = polyline->DivideSegment(row.parts, row.segment, true);
    double startWidth = 0.0;
    double endWidth = 0.0;
    polyline->GetWidthsAt(row.segment + 1, startWidth, endWidth);
    EXPECT_TRUE(!done || (startWidth == 0.5 && endWidth == 0.25)) << row.name;
    expectEdit(*polyline, before, done, row.expected, row.name);
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
  EXPECT_EQ(verticesOf(static_cast<CQdrDbPolyline&>(*inner)), "0,1 9,1 9,10");
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
