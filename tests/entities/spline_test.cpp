// Edits of the two kinds of spline.

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <memory>
#include <vector>

#include "database/undo/undo_operations.h"
#include "entities/arc.h"
#include "entities/cspline.h"
#include "entities/drawn_box.h"
#include "entities/rect.h"
#include "entities/spline.h"
#include "geometry/tolerance.h"
#include "tests/support/desk.h"
#include "tests/support/entity_text.h"
#include "tests/support/sketch.h"

namespace {

using qdr::test::addAs;
using qdr::test::bytesOf;
using qdr::test::entityFromText;

void expectNear(const CQdrGePoint2d& actual, const CQdrGePoint2d& expected, const char* what) {
  EXPECT_LT(actual.distanceTo(expected), 1e-9)
      << what << ": (" << actual.x << ", " << actual.y << ")";
}

bool draws(CQdrDbEntity& entity, const CQdrGePoint2d& near) {
  for (const CQdrGePoint2d& point : qdr::test::drawnPoints(entity))
    if (point.distanceTo(near) < 2 * qdr::test::kSketchPixel) return true;
  return false;
}

class Splines : public testing::Test {
 protected:
  tagUndoEditEntity step(CQdrDbEntity& entity, qdr::UndoCode code, int index) {
    tagUndoEditEntity record;
    record.continued = 0;
    record.operation = code;
    record.entityId = entity.objectId();
    record.index = index;
    return record;
  }

  CQdrDbDatabase m_database{true};
  CQdrUndoHandler& m_undo = m_database.m_undoHandler;
};

TEST_F(Splines, AnyFitParameterIsStored) {
  EXPECT_EQ(CQdrDbSpline().GetFitParam(), 0.49);
  auto* spline = addAs<CQdrDbSpline>(m_database, "spline 0.5 0 0 10 0 10 10");
  spline->SetFitParam(0.25);
  // The arc runs from a quarter of the side before the corner.
  expectNear(spline->geometry().polyline().points()[1], {7.5, 0}, "start of the arc");
}

TEST_F(Splines, TheStoredChainIsTakenAsItStands) {
  const auto original = entityFromText(m_database, "spline 0.5 0 0 10 0 10 10");
  std::string bytes = bytesOf(*original);
  // Behind body and control points come count and flag of the chain, then its vertices.
  constexpr std::size_t kFirstX = 39 + 8 + 4 + 3 * 20 + 4 + 1;
  const double stored = -2;
  std::memcpy(&bytes[kFirstX], &stored, sizeof stored);
  CQdrDbSpline spline(&m_database);
  qdr::test::readFrom(spline, bytes);
  expectNear(spline.geometry().polyline().points()[0], {-2, 0}, "as stored");
  expectNear(spline.getGripPoint(0), {0, 0}, "grips are control points");
  EXPECT_EQ(bytesOf(spline).substr(8), bytes.substr(8));

  // The step that stands for a reversal builds the chain anew and turns nothing.
  CQdrDbObjectId id;
  auto* inDrawing = new CQdrDbSpline(spline);
  m_database.addEntity(inDrawing, id);
  tagUndoEditEntity reversed = step(*inDrawing, qdr::kUndoReversed, 0);
  m_undo.AddUndo(reversed);
  EXPECT_TRUE(m_undo.Undo());
  expectNear(inDrawing->geometry().polyline().points()[0], {0, 0}, "built anew");
}

TEST_F(Splines, AClosedSplineDrawsItsClosingSegment) {
  auto* spline = addAs<CQdrDbSpline>(m_database, "spline 0.5 0 0 10 0 10 10");
  EXPECT_FALSE(spline->IsClosedCurve());
  EXPECT_FALSE(draws(*spline, {5, 5}));
  spline->SetClosed(true);
  EXPECT_TRUE(spline->IsClosedCurve());
  EXPECT_TRUE(draws(*spline, {5, 5}));
}

TEST_F(Splines, AWindowTakesASplineByItsControlVertices) {
  auto* spline = addAs<CQdrDbSpline>(m_database, "spline 0.5 0 0 10 0 10 10");
  EXPECT_TRUE(spline->checkInsideOrCross({9.5, -1}, {11, 0.5})) << "the corner is cut off";
  EXPECT_TRUE(spline->checkInside({-1, -1}, {11, 11}));
  EXPECT_FALSE(spline->checkInside({-1, -1}, {9, 11}));
  EXPECT_FALSE(CQdrDbSpline().checkInside({-1, -1}, {9, 11})) << "what is nowhere is not inside";
  spline->SetFitParam(0.49);
  spline->SetCtrlVertexes({{0, 0}, {0, 10}, {0.1, 0}});
  EXPECT_GE(qdr::drawnBox(*spline).maxY, 10) << "whoever looks for it looks there";
}

TEST_F(Splines, ExplodesIntoLinesAndArcs) {
  auto* spline = addAs<CQdrDbSpline>(m_database, "spline 0.5 0 0 10 0 10 10");
  ASSERT_TRUE(spline->Explode());
  // Line, arc, line, and the last line once more.
  ASSERT_EQ(m_undo.m_undoList.size(), 4u);
  auto* arc = static_cast<CQdrDbArc*>(m_undo.m_undoList[2].entityId.getPObject());
  ASSERT_EQ(arc->classType(), QdrDb::eClassArc);
  expectNear(arc->Center(), {5, 5}, "centre");
  EXPECT_NEAR(arc->Radius(), 5, 1e-9);
}

TEST_F(Splines, Offsets) {
  const auto spline = entityFromText(m_database, "spline 0.3 0 0 10 0 10 10");
  CQdrDbEntity* result = nullptr;
  ASSERT_TRUE(spline->getOffset({5, 5}, result, 1));
  const std::unique_ptr<CQdrDbEntity> parallel(result);
  expectNear(parallel->getGripPoint(1), {9, 1}, "corner");
  EXPECT_EQ(static_cast<CQdrDbSpline&>(*parallel).GetFitParam(), 0.3);

  const auto straight = entityFromText(m_database, "cspline 0 0 0 10 0 0");
  ASSERT_TRUE(straight->getOffset({5, 5}, result, 1));
  const std::unique_ptr<CQdrDbEntity> beside(result);
  expectNear(beside->getGripPoint(1), {10, 1}, "end");

  CQdrDbCSpline none(&m_database);
  result = &none;
  EXPECT_FALSE(none.getOffset({5, 5}, result, 1));
  EXPECT_EQ(result, nullptr);
}

TEST_F(Splines, ACubicWithoutACurveDrawsNothing) {
  auto* spline = addAs<CQdrDbCSpline>(m_database, "cspline 3 4 0");
  EXPECT_TRUE(qdr::test::drawnPoints(*spline).empty());
  const CQdrDbRect box = spline->GetOutRect();
  expectNear(box.LeftTop(), {0, 0}, "box");
  expectNear(box.RightBottom(), {0, 0}, "box");
}

TEST_F(Splines, ACubicIsSampledByTheView) {
  qdr::test::Desk desk;
  CQdrDbObjectId id;
  auto* spline = new CQdrDbCSpline({{10, 10}, {60, 40}, {110, 10}});
  desk.drawing->addEntity(spline, id);
  desk.paint();
  // A pixel of the desk is one unit.
  EXPECT_DOUBLE_EQ(spline->geometry().resolution(), 4.0);
}

TEST_F(Splines, TheBoxOfACubicHoldsEverySampling) {
  // The middle of a steep arch lies above every control vertex.
  auto* coarse = addAs<CQdrDbCSpline>(m_database, "cspline 0 0 0 3 9 0 6 9 0 9 0 0");
  const qdr::DrawnBox box = qdr::drawnBox(*coarse);
  CQdrGeCSpline2d fine(coarse->geometry());
  fine.setResolution(0.001);
  CQdrGePolyline2d samples;
  ASSERT_TRUE(fine.getGePolyline(samples));
  CQdrGePoint2d min;
  CQdrGePoint2d max;
  samples.getMinMaxpoint(min, max);
  EXPECT_GT(max.y, 9.0);
  EXPECT_LE(max.y, box.maxY);
  EXPECT_GE(min.x, box.minX);
}

TEST_F(Splines, AClosedCubicDropsAVertexThatLiesOnTheFirst) {
  auto* spline = addAs<CQdrDbCSpline>(m_database, "cspline 0 0 0 9 0 0 9 9 0 0 0 0");
  EXPECT_TRUE(spline->IsClosedCurve()) << "its ends meet";
  EXPECT_FALSE(spline->IsClosed());
  spline->SetClosed(true);
  EXPECT_EQ(spline->NumCtrlVerts(), 3);
  const std::string bytes = bytesOf(*spline);
  // Flag and count, then all points, then all options.
  EXPECT_EQ(bytes[39], 1);
  EXPECT_EQ(bytes[40], 3);
  EXPECT_EQ(bytes.size(), 39u + 1 + 4 + 3 * 20 + 3);
  CQdrDbCSpline again(&m_database);
  qdr::test::readFrom(again, bytes);
  EXPECT_TRUE(again.IsClosed());
  EXPECT_EQ(again.NumCtrlVerts(), 3);
}

TEST_F(Splines, Reverses) {
  auto* spline = addAs<CQdrDbSpline>(m_database, "spline 0.5 0 0 10 0 10 10");
  auto* cubic = addAs<CQdrDbCSpline>(m_database, "cspline 0 0 0 10 0 1 10 10 0 10 20 0");
  spline->Reverse();
  cubic->Reverse();
  expectNear(spline->getGripPoint(0), {10, 10}, "spline");
  expectNear(cubic->getGripPoint(0), {10, 20}, "cubic");
  EXPECT_EQ(cubic->GetCtrlOption(2), 1);
}

}  // namespace
