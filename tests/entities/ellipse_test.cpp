// Edits of ellipses and elliptic arcs.

#include <gtest/gtest.h>

#include <memory>
#include <vector>

#include "entities/circle.h"
#include "entities/ellipse.h"
#include "entities/ellipse_arc.h"
#include "geometry/angle.h"
#include "geometry/tolerance.h"
#include "tests/support/entity_text.h"

namespace {

using qdr::kCurveTolerance;
using qdr::test::addAs;
using qdr::test::addFromText;
using qdr::test::bytesOf;

class Ellipses : public testing::Test {
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

void expectAngles(const CQdrDbEllipseArc& arc, double start, double end, const char* what) {
  EXPECT_NEAR(qdr::toDegrees(arc.StartAngle()), start, 1e-9) << what;
  EXPECT_NEAR(qdr::toDegrees(arc.EndAngle()), end, 1e-9) << what;
}

TEST_F(Ellipses, SettersOfTheMajorAxisLeaveTheMinorRadius) {
  CQdrDbEllipse ellipse({1, 2}, CQdrGeVector2d(4, 0), 0.5);
  ellipse.SetMajorRadius(8);
  EXPECT_DOUBLE_EQ(ellipse.MinorRadius(), 2);
  EXPECT_DOUBLE_EQ(ellipse.RadiusRatio(), 0.25);
  ellipse.SetVecMajorAxis(CQdrGeVector2d(0, 3));
  expectNear(ellipse.getGripPoint(1), {1, 5}, "the end of the major vector");
  expectNear(ellipse.getGripPoint(2), {-1, 2}, "the minor axis keeps its right angle");
  ellipse.SetVecMajorAxis(CQdrGeVector2d(0, 0));
  expectNear(ellipse.getGripPoint(1), {1, 5}, "a vector without direction says nothing");
  ellipse.SetRadiusRatio(2);
  EXPECT_DOUBLE_EQ(ellipse.MinorRadius(), 6);
}

TEST_F(Ellipses, ACircleMakesAnEllipseOfItsLooks) {
  auto* circle = addAs<CQdrDbCircle>(m_database, "circle 3 4 5");
  circle->setColor(2);
  const CQdrDbEllipse ellipse(*circle);
  EXPECT_EQ(ellipse.ColorIndex(), 2);
  expectNear(ellipse.getGripPoint(1), {8, 4}, "major axis along x");
  expectNear(ellipse.getGripPoint(4), {3, -1}, "both radii are the circle's");
}

TEST_F(Ellipses, RectangleTests) {
  struct Row {
    const char* name;
    const char* text;
    CQdrGePoint2d corner1;
    CQdrGePoint2d corner2;
    bool crosses;
    bool inside;
  };
  const Row rows[] = {
      {"inside", "ellipse 0 0 4 0 0.5", {-5, -3}, {5, 3}, true, true},
      {"one end of an axis out", "ellipse 0 0 4 0 0.5", {-5, -3}, {3, 3}, true, false},
      {"around the rectangle, its centre in it",
       "ellipse 0 0 4 0 0.5",
       {-1, -1},
       {1, 1},
       false,
       false},
      {"an end of an axis alone inside", "ellipse 0 0 4 0 0.5", {3, -1}, {9, 1}, true, false},
      // The ends of its axes are +-(2, 1.5) and +-(-0.75, 1); it reaches out to
      // sqrt(2 * 2 + 0.75 * 0.75) = 2.136 in x and sqrt(1.5 * 1.5 + 1) = 1.803 in y.
      {"bows out between the ends of its axes",
       "ellipse 0 0 2 1.5 0.5",
       {-2.01, -1.6},
       {2.01, 1.6},
       true,
       false},
      {"arc inside", "ellipsearc 0 0 4 0 0.5 0 90", {-1, -1}, {5, 3}, true, true},
      {"only ends of axes that are not on the arc",
       "ellipsearc 0 0 4 0 0.5 10 80",
       {-5, -1},
       {-3, 1},
       false,
       false},
      {"an end of an axis on the arc",
       "ellipsearc 0 0 4 0 0.5 10 170",
       {-1, 1},
       {1, 3},
       true,
       false},
      {"arc with its top out", "ellipsearc 0 0 4 0 0.5 0 180", {-5, -1}, {5, 1}, true, false},
  };
  for (const Row& row : rows) {
    CQdrDbEntity* entity = addFromText(m_database, row.text);
    EXPECT_EQ(entity->checkInsideOrCross(row.corner1, row.corner2), row.crosses) << row.name;
    EXPECT_EQ(entity->checkInside(row.corner1, row.corner2), row.inside) << row.name;
  }
}

TEST_F(Ellipses, TrimsAnEllipse) {
  // The major axis points up; the lines cross at 45 and 135 degrees of the drawing, which is at 315
  // and 45 degrees from that axis. The ellipse starts at the top.
  struct Row {
    const char* name;
    CQdrGePoint2d pick;
    double start;
    double end;
  };
  const Row rows[] = {
      {"the top", {0, 3.9}, 45, 315},
      {"the bottom", {0, -3.9}, 315, 45},
  };
  std::vector<CQdrDbEntity*> boundaries = addAll({"line 0 0 9 9", "line 0 0 -9 9"});
  for (const Row& row : rows) {
    CQdrDbEntity* ellipse = addFromText(m_database, "ellipse 0 0 0 4 0.5");
    ellipse->setColor(2);
    const std::unique_ptr<CQdrDbEntity> left(ellipse->Trim(row.pick, boundaries, kCurveTolerance));
    ASSERT_TRUE(left) << row.name;
    ASSERT_EQ(left->classType(), QdrDb::eClassEllipseArc);
    expectAngles(static_cast<CQdrDbEllipseArc&>(*left), row.start, row.end, row.name);
    EXPECT_EQ(left->ColorIndex(), 2);
    EXPECT_TRUE(ellipse->isErased());
    EXPECT_TRUE(m_undo.Undo());
    EXPECT_FALSE(ellipse->isErased());
  }
  std::vector<CQdrDbEntity*> one = addAll({"line 0 0 9 0"});
  CQdrDbEntity* whole = addFromText(m_database, "ellipse 0 0 0 4 0.5");
  EXPECT_EQ(whole->Trim({1, 1}, one, kCurveTolerance), nullptr);
  EXPECT_FALSE(whole->isErased());
}

TEST_F(Ellipses, TrimsAnArc) {
  struct Row {
    const char* name;
    CQdrGePoint2d pick;
    double start;
    double end;
    bool rest;
  };
  const Row rows[] = {
      {"start goes", {4, 0.2}, 45, 180, false},
      {"end goes", {-4, 0.2}, 0, 135, false},
      {"middle goes", {0, 2}, 0, 45, true},
  };
  std::vector<CQdrDbEntity*> boundaries = addAll({"line 0 0 9 9", "line 0 0 -9 9"});
  for (const Row& row : rows) {
    auto* arc = addAs<CQdrDbEllipseArc>(m_database, "ellipsearc 0 0 4 0 0.5 0 180");
    const std::string before = bytesOf(*arc);
    const std::unique_ptr<CQdrDbEntity> rest(arc->Trim(row.pick, boundaries, kCurveTolerance));
    expectAngles(*arc, row.start, row.end, row.name);
    ASSERT_EQ(rest != nullptr, row.rest) << row.name;
    if (rest) expectAngles(static_cast<CQdrDbEllipseArc&>(*rest), 135, 180, "the far part");
    const std::string after = bytesOf(*arc);
    EXPECT_TRUE(m_undo.Undo());
    EXPECT_EQ(bytesOf(*arc), before) << row.name;
    EXPECT_TRUE(m_undo.Redo());
    EXPECT_EQ(bytesOf(*arc), after) << row.name;
  }
}

TEST_F(Ellipses, ExtendsAnArcAlongItsEllipse) {
  // The major axis points up. The line through the centre crosses at 135 and 315 degrees of the
  // drawing: 45 and 225 degrees from the axis.
  struct Row {
    const char* name;
    const char* text;
    CQdrGePoint2d pick;
    bool extends;
    double start;
    double end;
  };
  const Row rows[] = {
      {"end", "ellipsearc 0 0 0 4 0.5 270 0", {0, 4}, true, 270, 45},
      {"start", "ellipsearc 0 0 0 4 0.5 270 0", {2, 0.1}, true, 225, 0},
      {"crossings on the arc do not count",
       "ellipsearc 0 0 0 4 0.5 30 240",
       {0, 4},
       false,
       30,
       240},
  };
  std::vector<CQdrDbEntity*> boundaries = addAll({"line -9 9 9 -9"});
  for (const Row& row : rows) {
    auto* arc = addAs<CQdrDbEllipseArc>(m_database, row.text);
    const double formerEnd = qdr::toDegrees(arc->EndAngle());
    EXPECT_EQ(arc->Extend(row.pick, boundaries, kCurveTolerance), row.extends) << row.name;
    expectAngles(*arc, row.start, row.end, row.name);
    if (!row.extends) continue;
    EXPECT_TRUE(m_undo.Undo());
    expectAngles(*arc, 270, formerEnd, row.name);
  }
}

TEST_F(Ellipses, OffsetsByBothRadii) {
  CQdrDbEntity* ellipse = addFromText(m_database, "ellipse 1 1 5 0 0.6");
  CQdrDbEntity* result = nullptr;
  ASSERT_TRUE(ellipse->getOffset({9, 1}, result, 2));
  const std::unique_ptr<CQdrDbEntity> grown(result);
  expectNear(grown->getGripPoint(1), {8, 1}, "major");
  expectNear(grown->getGripPoint(2), {1, 6}, "minor");
  EXPECT_FALSE(ellipse->getOffset({1, 1}, result, 3));
  EXPECT_EQ(result, nullptr);
}

TEST_F(Ellipses, AnArcTellsItsEndsInTheDrawing) {
  const CQdrDbEllipseArc arc({1, 2}, CQdrGeVector2d(0, 4), 0.5, 0, qdr::kHalfPi);
  expectNear(arc.StartPoint(), {1, 6}, "start");
  expectNear(arc.EndPoint(), {-1, 2}, "end");
}

}  // namespace
