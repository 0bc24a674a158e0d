// Edits of the three basic curves: rectangle tests, trim, extend, offset.

#include <gtest/gtest.h>

#include <memory>
#include <vector>

#include "database/undo/undo_operations.h"
#include "entities/arc.h"
#include "entities/circle.h"
#include "entities/line.h"
#include "geometry/angle.h"
#include "geometry/tolerance.h"
#include "tests/support/entity_text.h"

namespace {

using qdr::kCurveTolerance;
using qdr::test::addAs;
using qdr::test::addFromText;
using qdr::test::entityFromText;

class CurveEdits : public testing::Test {
 protected:
  std::vector<CQdrDbEntity*> addAll(const std::vector<const char*>& texts) {
    std::vector<CQdrDbEntity*> entities;
    for (const char* text : texts)
      entities.push_back(addFromText(m_database, text));
    return entities;
  }

  CQdrDbDatabase m_database{true};
  CQdrUndoHandler& m_undo = m_database.m_undoHandler;
};

void expectNear(const CQdrGePoint2d& actual, const CQdrGePoint2d& expected, const char* what) {
  EXPECT_LT(actual.distanceTo(expected), 1e-9)
      << what << ": (" << actual.x << ", " << actual.y << ")";
}

TEST_F(CurveEdits, RectangleTests) {
  struct Row {
    const char* name;
    const char* text;
    CQdrGePoint2d corner1;
    CQdrGePoint2d corner2;
    bool crosses;
    bool inside;
  };
  const Row rows[] = {
      {"line inside", "line 1 1 3 3", {0, 0}, {4, 4}, true, true},
      {"corners the other way", "line 1 1 3 3", {4, 4}, {0, 0}, true, true},
      {"line through, no end inside", "line -5 2 5 2", {0, 0}, {4, 4}, true, false},
      {"line apart", "line 5 0 5 4", {0, 0}, {4, 4}, false, false},
      {"start inside", "line 1 1 9 1", {0, 0}, {4, 4}, true, false},
      // The middle (5, 1) and the start are outside; the way to the end crosses a side.
      {"end inside", "line 9 1 1 1", {0, 0}, {4, 4}, true, false},
      {"half circle with its ends inside and its top out",
       "arc 2 1 2 0 180",
       {-1, 0},
       {5, 2},
       true,
       false},
      {"arc inside", "arc 2 1 2 0 180", {-1, 0}, {5, 4}, true, true},
      {"arc around the rectangle", "arc 2 2 9 0 180", {0, 0}, {4, 4}, false, false},
      {"circle inside", "circle 2 2 1", {0, 0}, {4, 4}, true, true},
      {"circle with the left grip out", "circle 0.5 2 1", {0, 0}, {4, 4}, true, false},
      {"circle around, centre inside", "circle 2 2 9", {0, 0}, {4, 4}, true, false},
      {"circle around, centre outside", "circle 6 2 9", {0, 0}, {4, 4}, false, false},
  };
  for (const Row& row : rows) {
    CQdrDbEntity* entity = addFromText(m_database, row.text);
    EXPECT_EQ(entity->checkInsideOrCross(row.corner1, row.corner2), row.crosses) << row.name;
    EXPECT_EQ(entity->checkInside(row.corner1, row.corner2), row.inside) << row.name;
  }
}

TEST_F(CurveEdits, TrimsALine) {
  // The line runs from (0, 0) to (10, 0) and is crossed at x = 3 and x = 7.
  struct Row {
    const char* name;
    double pick;
    double start;
    double end;
    bool rest;
  };
  const Row rows[] = {
      {"before the first crossing", 1, 3, 10, false},
      {"exactly on the first crossing", 3, 3, 10, false},
      {"between the crossings", 5, 0, 3, true},
      {"exactly on the last crossing", 7, 0, 7, false},
      {"behind the last crossing", 9, 0, 7, false},
  };
  std::vector<CQdrDbEntity*> boundaries = addAll({"line 7 -1 7 1", "line 3 -1 3 1"});
  for (const Row& row : rows) {
    auto* line = addAs<CQdrDbLine>(m_database, "line 0 0 10 0");
    const std::unique_ptr<CQdrDbEntity> rest(
        line->Trim({row.pick, 0.5}, boundaries, kCurveTolerance));
    expectNear(line->StartPoint(), {row.start, 0}, row.name);
    expectNear(line->EndPoint(), {row.end, 0}, row.name);
    ASSERT_EQ(rest != nullptr, row.rest) << row.name;
    if (rest) {
      expectNear(static_cast<CQdrDbLine&>(*rest).StartPoint(), {7, 0}, row.name);
      expectNear(static_cast<CQdrDbLine&>(*rest).EndPoint(), {10, 0}, row.name);
    }

    EXPECT_EQ(m_undo.m_undoList.front().continued, 0) << row.name;
    EXPECT_TRUE(m_undo.Undo());
    expectNear(line->StartPoint(), {0, 0}, row.name);
    expectNear(line->EndPoint(), {10, 0}, row.name);
    EXPECT_TRUE(m_undo.Redo());
    expectNear(line->StartPoint(), {row.start, 0}, row.name);
    expectNear(line->EndPoint(), {row.end, 0}, row.name);
  }
}

TEST_F(CurveEdits, TrimWithoutCrossingsChangesNothing) {
  std::vector<CQdrDbEntity*> apart = addAll({"line 20 0 20 9"});
  std::vector<CQdrDbEntity*> touchedOnce = addAll({"line 0 -9 0 0"});
  for (const char* text : {"line 0 0 10 0", "arc 0 0 5 0 90", "circle 0 0 5"}) {
    CQdrDbEntity* entity = addFromText(m_database, text);
    EXPECT_EQ(entity->Trim({1, 1}, apart, kCurveTolerance), nullptr) << text;
  }
  CQdrDbEntity* circle = addFromText(m_database, "circle 0 0 5");
  EXPECT_EQ(circle->Trim({1, 1}, touchedOnce, kCurveTolerance), nullptr);
  EXPECT_FALSE(circle->isErased());
  EXPECT_TRUE(m_undo.m_undoList.empty());
}

TEST_F(CurveEdits, TrimsAnArc) {
  // The upper half of the circle of radius 5 is crossed at 45 and 135 degrees.
  struct Row {
    const char* name;
    double pickDegrees;
    double start;
    double end;
    bool rest;
  };
  const Row rows[] = {
      {"start goes", 20, 45, 180, false},
      {"end goes", 160, 0, 135, false},
      {"middle goes", 90, 0, 45, true},
  };
  std::vector<CQdrDbEntity*> boundaries = addAll({"line 0 0 9 9", "line 0 0 -9 9"});
  for (const Row& row : rows) {
    auto* arc = addAs<CQdrDbArc>(m_database, "arc 0 0 5 0 180");
    const CQdrGePoint2d pick =
        CQdrGePoint2d() + CQdrGeVector2d(qdr::toRadians(row.pickDegrees)) * 4.0;
    const std::unique_ptr<CQdrDbEntity> rest(arc->Trim(pick, boundaries, kCurveTolerance));
    EXPECT_NEAR(qdr::toDegrees(arc->StartAngle()), row.start, 1e-9) << row.name;
    EXPECT_NEAR(qdr::toDegrees(arc->EndAngle()), row.end, 1e-9) << row.name;
    ASSERT_EQ(rest != nullptr, row.rest) << row.name;
    if (rest) {
      const auto& behind = static_cast<CQdrDbArc&>(*rest);
      EXPECT_NEAR(qdr::toDegrees(behind.StartAngle()), 135, 1e-9);
      EXPECT_NEAR(qdr::toDegrees(behind.EndAngle()), 180, 1e-9);
    }
    EXPECT_TRUE(m_undo.Undo());
    EXPECT_NEAR(qdr::toDegrees(arc->StartAngle()), 0, 1e-9) << row.name;
    EXPECT_NEAR(qdr::toDegrees(arc->EndAngle()), 180, 1e-9) << row.name;
  }
}

TEST_F(CurveEdits, TrimsACircle) {
  // Crossed at 45 and 135 degrees. What is left is an arc, the circle is marked erased.
  struct Row {
    const char* name;
    CQdrGePoint2d pick;
    double start;
    double end;
  };
  const Row rows[] = {
      {"between the crossings", {0, 4}, 135, 45},
      {"past the last crossing", {0, -4}, 45, 135},
      {"before the first crossing", {4, 1}, 45, 135},
  };
  std::vector<CQdrDbEntity*> boundaries = addAll({"line 0 0 9 9", "line 0 0 -9 9"});
  for (const Row& row : rows) {
    CQdrDbEntity* circle = addFromText(m_database, "circle 0 0 5");
    circle->setColor(2);
    const std::unique_ptr<CQdrDbEntity> left(circle->Trim(row.pick, boundaries, kCurveTolerance));
    ASSERT_TRUE(left) << row.name;
    ASSERT_EQ(left->classType(), QdrDb::eClassArc);
    const auto& arc = static_cast<CQdrDbArc&>(*left);
    EXPECT_NEAR(qdr::toDegrees(arc.StartAngle()), row.start, 1e-9) << row.name;
    EXPECT_NEAR(qdr::toDegrees(arc.EndAngle()), row.end, 1e-9) << row.name;
    EXPECT_EQ(arc.ColorIndex(), 2);
    EXPECT_TRUE(circle->isErased()) << row.name;
    EXPECT_TRUE(m_undo.Undo());
    EXPECT_FALSE(circle->isErased()) << row.name;
  }
}

TEST_F(CurveEdits, ExtendsALine) {
  struct Row {
    const char* name;
    const char* boundary;
    double pick;
    bool extends;
    double start;
    double end;
  };
  const Row rows[] = {
      {"end from its half", "line 15 -1 15 1", 8, true, 0, 15},
      {"end from the very middle", "line 15 -1 15 1", 5, true, 0, 15},
      {"start from its half", "line -4 -1 -4 1", 2, true, -4, 10},
      {"a crossing on the line does not count", "line 6 -1 6 1", 8, false, 0, 10},
      {"only the boundary itself, not its extension", "line 15 3 15 5", 8, false, 0, 10},
      {"the nearest of two", "circle 20 0 3", 8, true, 0, 17},
  };
  for (const Row& row : rows) {
    std::vector<CQdrDbEntity*> boundaries = addAll({row.boundary});
    auto* line = addAs<CQdrDbLine>(m_database, "line 0 0 10 0");
    EXPECT_EQ(line->Extend({row.pick, 0}, boundaries, kCurveTolerance), row.extends) << row.name;
    expectNear(line->StartPoint(), {row.start, 0}, row.name);
    expectNear(line->EndPoint(), {row.end, 0}, row.name);
    if (!row.extends) continue;
    EXPECT_TRUE(m_undo.Undo());
    expectNear(line->StartPoint(), {0, 0}, row.name);
    expectNear(line->EndPoint(), {10, 0}, row.name);
  }
}

TEST_F(CurveEdits, ExtendsAnArcAlongItsCircle) {
  struct Row {
    const char* name;
    const char* boundary;
    double pickDegrees;
    double start;
    double end;
  };
  // The line through the centre crosses the circle at 135 and at 315 degrees.
  const Row rows[] = {
      {"end to the nearer direction", "line -9 9 9 -9", 80, 0, 135},
      {"start to the nearer direction", "line -9 9 9 -9", 10, 315, 90},
  };
  for (const Row& row : rows) {
    std::vector<CQdrDbEntity*> boundaries = addAll({row.boundary});
    auto* arc = addAs<CQdrDbArc>(m_database, "arc 0 0 5 0 90");
    const CQdrGePoint2d pick =
        CQdrGePoint2d() + CQdrGeVector2d(qdr::toRadians(row.pickDegrees)) * 5.0;
    EXPECT_TRUE(arc->Extend(pick, boundaries, kCurveTolerance)) << row.name;
    EXPECT_NEAR(qdr::toDegrees(arc->StartAngle()), row.start, 1e-9) << row.name;
    EXPECT_NEAR(qdr::toDegrees(arc->EndAngle()), row.end, 1e-9) << row.name;
    EXPECT_TRUE(m_undo.Undo());
    EXPECT_NEAR(qdr::toDegrees(arc->StartAngle()), 0, 1e-9) << row.name;
    EXPECT_NEAR(qdr::toDegrees(arc->EndAngle()), 90, 1e-9) << row.name;
  }
  std::vector<CQdrDbEntity*> boundaries = addAll({"line -9 9 9 -9"});
  EXPECT_FALSE(addFromText(m_database, "circle 0 0 5")->Extend({5, 0}, boundaries, 0.001));
}

TEST_F(CurveEdits, Offsets) {
  struct Row {
    const char* text;
    CQdrGePoint2d side;
    double distance;
    const char* expected;  ///< null when there is no offset
  };
  const Row rows[] = {
      {"line 0 0 10 0", {5, 9}, 2, "line 0 2 10 2"},
      {"line 0 0 10 0", {5, 9}, 0, "line 0 9 10 9"},
      {"circle 1 1 5", {1, 1}, 2, "circle 1 1 3"},
      {"circle 1 1 5", {9, 9}, 2, "circle 1 1 7"},
      {"arc 1 1 5 0 90", {1, 1}, 2, "arc 1 1 3 0 90"},
      {"circle 1 1 5", {9, 9}, 5, nullptr},
  };
  for (const Row& row : rows) {
    CQdrDbEntity* entity = addFromText(m_database, row.text);
    entity->setColor(4);
    CQdrDbEntity* result = entity;
    EXPECT_EQ(entity->getOffset(row.side, result, row.distance), row.expected != nullptr);
    const std::unique_ptr<CQdrDbEntity> parallel(result);
    ASSERT_EQ(parallel != nullptr, row.expected != nullptr) << row.text;
    if (!parallel) continue;
    EXPECT_EQ(parallel->ColorIndex(), 4);
    const auto wanted = entityFromText(m_database, row.expected);
    for (int i = 0; i < 3; ++i)
      expectNear(parallel->getGripPoint(i), wanted->getGripPoint(i), row.text);
  }
}

TEST_F(CurveEdits, CrossesByTheShapeOfTheOther) {
  struct Row {
    const char* one;
    const char* other;
    int mode;
    int count;
  };
  const Row rows[] = {
      {"line 0 0 10 0", "line 5 -5 5 5", 0, 1},   {"line 0 0 10 0", "line 12 -5 12 5", 0, 0},
      {"line 0 0 10 0", "line 12 -5 12 5", 1, 1},  // this one extended
      {"line 0 0 10 0", "line 5 1 5 5", 2, 1},     // the other one extended
      {"line 0 0 10 0", "line 5 1 5 5", 1, 0},    {"line 0 0 10 0", "line 12 1 12 5", 3, 1},
      {"line 0 0 10 0", "line 5 -5 5 5", 4, 0},  // no such mode
      {"line -9 0 9 0", "circle 0 0 5", 0, 2},    {"line -9 0 0 0", "circle 0 0 5", 0, 1},
      {"circle 0 0 5", "line -9 0 9 0", 0, 2},    {"circle 0 0 5", "circle 6 0 5", 0, 2},
      {"arc 0 0 5 0 90", "circle 6 0 5", 0, 1},   {"line -9 0 9 0", "point 0 0 1", 0, 0},
      {"line -9 0 9 0", "rect -1 1 1 -1", 0, 0},  // no curve offers itself
      {"rect -1 1 1 -1", "line -9 0 9 0", 0, 2},  {"rect -1 1 1 -1", "circle 0 0 1.2", 0, 8},
      {"point 0 0 1", "line -9 0 9 0", 0, 0},
  };
  for (const Row& row : rows) {
    const auto one = entityFromText(m_database, row.one);
    const auto other = entityFromText(m_database, row.other);
    int count = -1;
    std::vector<CQdrGePoint2d> points;
    EXPECT_EQ(one->intersectWith(*other, count, points, row.mode, kCurveTolerance), row.count > 0)
        << row.one << " with " << row.other << ", mode " << row.mode;
    EXPECT_EQ(count, row.count) << row.one << " with " << row.other << ", mode " << row.mode;
    EXPECT_EQ(points.size(), static_cast<std::size_t>(row.count)) << row.one;
  }
}

TEST_F(CurveEdits, ArcsComeFromChordsAndPoints) {
  CQdrDbArc half({0, 0}, {10, 0}, 1.0);
  expectNear(half.Center(), {5, 0}, "half circle");
  EXPECT_NEAR(half.Radius(), 5.0, 1e-12);
  expectNear(half.StartPoint(), {0, 0}, "a positive bulge runs from the first point");
  expectNear(half.getGripPoint(2), {5, -5}, "and bows to the right");
  CQdrDbArc other({0, 0}, {10, 0}, -1.0);
  expectNear(other.StartPoint(), {10, 0}, "a negative one runs from the second point");
  expectNear(other.getGripPoint(2), {5, 5}, "and bows to the left");
  CQdrDbArc through({5, 0}, {0, 5}, {-5, 0});
  expectNear(through.getGripPoint(2), {0, 5}, "the arc passes the second point");
}

TEST_F(CurveEdits, AMirroredCircleKeepsItsAngles) {
  auto* circle = addAs<CQdrDbCircle>(m_database, "circle 2 3 4");
  circle->Mirror(CQdrGeLine2d::kYAxis);
  circle->setGripPoints();
  EXPECT_EQ(circle->geometry().startAng(), 0.0);
  EXPECT_EQ(circle->geometry().endAng(), qdr::kTwoPi);
  EXPECT_EQ(circle->isOn({-2, 7}, kCurveTolerance), 1);
}

}  // namespace
