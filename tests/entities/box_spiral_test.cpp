// Edits of boxes and spirals.

#include <gtest/gtest.h>

#include <memory>
#include <vector>

#include "entities/box.h"
#include "entities/cspline.h"
#include "entities/line.h"
#include "entities/polyline.h"
#include "entities/spiral.h"
#include "geometry/angle.h"
#include "geometry/tolerance.h"
#include "tests/support/entity_text.h"

namespace {

using qdr::test::addAs;
using qdr::test::bytesOf;

void expectNear(const CQdrGePoint2d& actual, const CQdrGePoint2d& expected, const char* what) {
  EXPECT_LT(actual.distanceTo(expected), 1e-9)
      << what << ": (" << actual.x << ", " << actual.y << ")";
}

class BoxesAndSpirals : public testing::Test {
 protected:
  CQdrDbDatabase m_database{true};
  CQdrUndoHandler& m_undo = m_database.m_undoHandler;
};

TEST_F(BoxesAndSpirals, SettersOfABoxWorkAlongItsAxes) {
  CQdrDbBox box({1, 2}, CQdrGeVector2d(6, 4));
  expectNear(box.GetDiagonPoint(), {7, 6}, "not turned");
  box.SetRotation(qdr::kHalfPi);
  expectNear(box.getGripPoint(2), {1, 8}, "the width goes up");
  box.SetDiagonalPoint({-4, 5});
  EXPECT_NEAR(box.Width(), 3, 1e-12);
  EXPECT_NEAR(box.Height(), 5, 1e-12);
  box.Set({0, 0}, CQdrGeVector2d(1, 2));
  EXPECT_EQ(box.Rotation(), qdr::kHalfPi);
  EXPECT_TRUE(box.IsClosedCurve());
}

TEST_F(BoxesAndSpirals, ABoxIsOffsetOnAllSides) {
  auto* box = addAs<CQdrDbBox>(m_database, "box 1 2 6 4 0");
  CQdrDbEntity* result = nullptr;
  ASSERT_TRUE(box->getOffset({4, 4}, result, 1));
  const std::unique_ptr<CQdrDbEntity> smaller(result);
  expectNear(smaller->getGripPoint(0), {2, 3}, "base point");
  expectNear(smaller->getGripPoint(4), {6, 5}, "opposite corner");
  EXPECT_FALSE(box->getOffset({4, 4}, result, 2.5));
  EXPECT_EQ(result, nullptr);
}

TEST_F(BoxesAndSpirals, ABoxCrossesAWindowOverItsSideAndNotAroundIt) {
  auto* box = addAs<CQdrDbBox>(m_database, "box 0 0 10 10 0");
  EXPECT_TRUE(box->checkInsideOrCross({8, 2}, {12, 3}));
  EXPECT_FALSE(box->checkInsideOrCross({2, 2}, {8, 8}));
  EXPECT_TRUE(box->checkInside({-1, -1}, {11, 11}));
  EXPECT_FALSE(box->checkInside({-1, -1}, {9, 11}));
}

TEST_F(BoxesAndSpirals, AStoredSpiralKeepsItsShapeUntilItIsBuiltAnew) {
  CQdrDbSpiral growing(4, {0, 0}, 20, 0.75, 2, 0, 2.0);
  growing.setDatabase(&m_database);
  CQdrDbSpiral read(&m_database);
  qdr::test::readFrom(read, bytesOf(growing));
  const std::size_t count = growing.geometry().polyline().points().size();
  expectNear(read.getGripPoint(3), growing.getGripPoint(3), "stored polyline");
  EXPECT_EQ(read.geometry().polyline().points().size(), count);
  read.SetCenter({5, 0});
  expectNear(read.getGripPoint(3), growing.getGripPoint(3) + CQdrGeVector2d(5, 0),
             "moving builds nothing");
  read.updatePoly();
  EXPECT_NE(read.geometry().polyline().points().size(), count);
}

TEST_F(BoxesAndSpirals, SettersOfASpiralKeepItsRadiiInOrder) {
  CQdrDbSpiral spiral(4, {0, 0}, 4.25, 0.75, 2, 0, 1);
  spiral.SetMaxRadius(0.5);
  EXPECT_EQ(spiral.MaxRadius(), 4.25);
  spiral.SetMaxRadius(2.25);
  // Radii 1, 1.5 and 2, a quarter turn each.
  expectNear(spiral.getGripPoint(3), {-2, 0}, "the polyline ends at the radius");
  spiral.SetStartAngle(qdr::kHalfPi);
  expectNear(spiral.getGripPoint(3), {0, -2}, "and turns with its start");
}

TEST_F(BoxesAndSpirals, AReversedSpiralStartsOutside) {
  auto* spiral = addAs<CQdrDbSpiral>(m_database, "spiral 4 0 0 4.25 0.75 2 0");
  spiral->Reverse();
  expectNear(spiral->getGripPoint(1), {-4, 0}, "first point");
  expectNear(spiral->getGripPoint(3), {1, 0}, "last point");
  EXPECT_EQ(spiral->IsVertex({-4, 0}, 0.001), 0);
  EXPECT_EQ(spiral->IsVertex({1, 0}, 0.001), 6);
  EXPECT_EQ(spiral->IsVertex({9, 9}, 0.001), -1);
}

TEST_F(BoxesAndSpirals, ASpiralHasNoOffset) {
  auto* spiral = addAs<CQdrDbSpiral>(m_database, "spiral 4 0 0 4.25 0.75 2 0");
  CQdrDbEntity* result = spiral;
  EXPECT_FALSE(spiral->getOffset({9, 9}, result, 1));
}

TEST_F(BoxesAndSpirals, GripsOfAnEmptySpiralLieInItsCentre) {
  CQdrDbSpiral spiral(0, {3, 4}, 0, 5, 0, 0, 1);
  for (int grip = 0; grip < 4; ++grip)
    expectNear(spiral.getGripPoint(grip), {3, 4}, "no polyline");
  EXPECT_FALSE(spiral.Explode());
}

TEST_F(BoxesAndSpirals, ExplodesIntoTheChords) {
  auto* spiral = addAs<CQdrDbSpiral>(m_database, "spiral 4 0 0 4.25 0.75 2 0");
  spiral->setColor(3);
  const std::size_t before = m_database.m_blockTable.getCurrentRecord()->getEntitySet().size();
  ASSERT_TRUE(spiral->Explode());
  // Six chords; the last point hands the sixth over once more, which records a seventh step.
  EXPECT_EQ(m_database.m_blockTable.getCurrentRecord()->getEntitySet().size(), before + 6);
  ASSERT_EQ(m_undo.m_undoList.size(), 7u);
  EXPECT_EQ(m_undo.m_undoList[0].entityId.getPObject(), m_undo.m_undoList[1].entityId.getPObject());
  for (std::size_t i = 0; i < 7; ++i)
    EXPECT_EQ(m_undo.m_undoList[i].continued, i == 6 ? 0 : 1) << "newest first, step " << i;
  const auto* first = static_cast<CQdrDbLine*>(m_undo.m_undoList[6].entityId.getPObject());
  ASSERT_EQ(first->classType(), QdrDb::eClassLine);
  expectNear(first->StartPoint(), {1, 0}, "start of the first chord");
  expectNear(first->EndPoint(), {0, 1.5}, "its end, a quarter turn and half a unit on");
  EXPECT_EQ(first->ColorIndex(), 3);
  EXPECT_TRUE(m_undo.Undo());
  EXPECT_TRUE(first->isErased());
}

TEST_F(BoxesAndSpirals, BecomePolylinesAndPolylinesCubics) {
  auto* box = addAs<CQdrDbBox>(m_database, "box 1 2 6 4 0");
  box->setColor(3);
  CQdrDbPolyline polyline(&m_database);
  box->ConvertToPolyline(polyline);
  EXPECT_TRUE(polyline.IsClosed());
  ASSERT_EQ(polyline.NumVerts(), 4);
  EXPECT_EQ(polyline.ColorIndex(), 3);
  expectNear(polyline.getGripPoint(2), {7, 6}, "corner");

  const CQdrDbCSpline cubic(polyline);
  EXPECT_TRUE(cubic.IsClosed());
  EXPECT_EQ(cubic.NumCtrlVerts(), 4);
  EXPECT_EQ(cubic.ColorIndex(), 3);

  addAs<CQdrDbSpiral>(m_database, "spiral 4 0 0 4.25 0.75 2 0")->ConvertToPolyline(polyline);
  EXPECT_FALSE(polyline.IsClosed());
  EXPECT_EQ(polyline.NumVerts(), 7);
  expectNear(polyline.getGripPoint(6), {-4, 0}, "end");
}

}  // namespace
