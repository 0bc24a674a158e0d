// Grips of every class: what a drag changes, undo and redo, and what a command tracks while it
// makes an entity.

#include "entities/arc.h"
#include "entities/line.h"
#include "interaction/trackers/box_tracker.h"
#include "interaction/trackers/ellipse_arc_tracker.h"
#include "interaction/trackers/ellipse_tracker.h"
#include "interaction/trackers/polyline_tracker.h"
#include "interaction/trackers/spline_tracker.h"
#include "tests/interaction/grip_desk.h"

namespace {

using qdr::test::bytesOf;
using qdr::test::Entity;
using qdr::test::gripsOf;
using qdr::test::kEntities;
using qdr::test::sameShape;

class GripsOfClasses : public qdr::test::GripDesk {};

TEST_F(GripsOfClasses, DragsChangeWhatTheGripSays) {
  struct Row {
    const char* before;
    int grip;
    CQdrGePoint2d to;
    const char* after;
  };
  const char* const box = "box 40 30 60 40 0";
  const char* const ellipse = "ellipse 60 50 40 0 0.5";
  const char* const arc = "ellipsearc 60 50 40 0 0.5 20 200";
  const char* const chain = "polyline 20 20 0 60 20 1 60 60 0 20 60 0";
  const char* const spiral = "spiral 8 60 50 40 10 12 0";
  const char* const web = "cobweb 60 50 10 30 4 0";
  const Row rows[] = {
      {box, 0, {50, 40}, "box 50 40 60 40 0"},
      {box, 1, {75, 20}, "box 40 20 60 50 0"},
      {box, 2, {40, 90}, "box 40 30 60 40 90"},
      {box, 3, {120, 50}, "box 40 30 80 40 0"},
      {box, 4, {70, 50}, "box 40 30 30 20 0"},
      {box, 5, {70, 10}, "box 40 30 60 -20 0"},
      {box, 6, {70, 50}, "box 70 30 30 20 0"},
      {box, 7, {20, 50}, "box 20 30 80 40 0"},
      {"box 60 20 50 30 90", 1, {80, 45}, "box 80 20 50 50 90"},
      {"box 60 20 50 30 90", 3, {45, 90}, "box 60 20 70 30 90"},
      {"box 60 20 -50 30 0", 2, {60, 70}, "box 60 20 -50 30 -90"},
      {ellipse, 0, {70, 40}, "ellipse 70 40 40 0 0.5"},
      {ellipse, 1, {60, 90}, "ellipse 60 50 0 40 0.5"},
      {ellipse, 2, {60, 80}, "ellipse 60 50 40 0 0.75"},
      {ellipse, 3, {60, 20}, "ellipse 60 50 0 30 0.6666666666666667"},
      {ellipse, 4, {90, 50}, "ellipse 60 50 40 0 0.75"},
      {ellipse, 2, {60, 50}, ellipse},  // no axis of length 0
      {arc, 1, {60, 90}, "ellipsearc 60 50 0 40 0.5 20 200"},
      {arc, 3, {60, 20}, "ellipsearc 60 50 0 30 0.6666666666666667 20 200"},
      {arc, 5, {80, 70}, "ellipsearc 60 50 40 0 0.5 45 200"},
      {arc, 6, {60, 20}, "ellipsearc 60 50 40 0 0.5 20 270"},
      {"ellipsearc 60 50 0 40 0.5 20 200", 5, {40, 70}, "ellipsearc 60 50 0 40 0.5 45 200"},
      {chain, 0, {30, 30}, "polyline 30 30 0 70 30 1 70 70 0 30 70 0"},
      {chain, 1, {70, 10}, "polyline 20 20 0 70 10 1 60 60 0 20 60 0"},
      {chain, 2, {70, 40}, "polyline 20 20 0 60 20 0.5 60 60 0 20 60 0"},
      {chain, 2, {40, 40}, "polyline 20 20 0 60 20 -1 60 60 0 20 60 0"},
      {chain, 2, {60, 40}, "polyline 20 20 0 60 20 0 60 60 0 20 60 0"},
      {chain, 4, {20, 80}, "polyline 20 20 0 60 20 1 60 60 0 20 80 0"},
      {"loop 20 20 0 60 20 0 60 60 1", 3, {60, 20}, "loop 20 20 0 60 20 0 60 60 -1"},
      // A first vertex that lies on the last is not taken for it.
      {"polyline 20 20 0 60 20 0 60 60 0 20 20 0",
       3,
       {20, 30},
       "polyline 20 20 0 60 20 0 60 60 0 20 30 0"},
      {"spline 0.4 20 20 60 80 100 20", 0, {30, 10}, "spline 0.4 30 10 70 70 110 10"},
      {"spline 0.4 20 20 60 80 100 20", 1, {70, 90}, "spline 0.4 20 20 70 90 100 20"},
      {"cspline 20 20 0 60 80 1 100 20 0", 1, {70, 90}, "cspline 20 20 0 70 90 1 100 20 0"},
      {"cspline 20 20 0 60 80 1 100 20 0", 2, {90, 10}, "cspline 20 20 0 60 80 1 90 10 0"},
      {spiral, 0, {70, 40}, "spiral 8 70 40 40 10 12 0"},
      {spiral, 1, {75, 50}, "spiral 8 60 50 40 15 12 0"},
      {spiral, 1, {60, 5}, spiral},  // beyond the maximum radius
      // It begins at the chord of radius 10.5, and one turn on it is to be at 18.
      {spiral, 2, {78, 50}, "spiral 8 60 50 40 10 7.5 0"},
      {spiral, 2, {65, 50}, spiral},  // no pitch below 0
      {spiral, 3, {60, 95}, "spiral 8 60 50 45 10 12 0"},
      {web, 0, {70, 40}, "cobweb 70 40 10 30 4 0"},
      {web, 3, {60, 65}, "cobweb 60 50 15 30 4 0"},
      {web, 4, {60, 75}, "cobweb 60 50 10 25 4 0"},
      {web, 9, {60, 90}, "cobweb 60 50 10 30 4 90"},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(std::string(row.before) + ", grip " + std::to_string(row.grip));
    CQdrDbEntity* const entity = added(row.before);
    EXPECT_EQ(dragTo(grip(entity), row.grip, row.to), qdr::kInputPick);
    EXPECT_TRUE(sameShape(*entity, *made(row.after)));
    EXPECT_TRUE(undo.Undo());
    EXPECT_TRUE(sameShape(*entity, *made(row.before)));
    EXPECT_TRUE(undo.m_undoList.empty()) << "one step";
    EXPECT_TRUE(undo.Redo());
    EXPECT_TRUE(sameShape(*entity, *made(row.after)));
    putAway(entity);
  }
}

// Whatever the grip: the way there and back, and nothing at all after Esc.
TEST_F(GripsOfClasses, EveryGripCanBeDraggedAndTakenBack) {
  for (const char* text : kEntities) {
    CQdrDbEntity* const entity = added(text);
    CQdrDbEntityTracker& tracker = grip(entity);
    const std::size_t count = gripsOf(*entity).size();
    for (int handle = 0; handle < static_cast<int>(count); ++handle) {
      SCOPED_TRACE(std::string(text) + ", grip " + std::to_string(handle));
      const CQdrGePoint2d to = entity->getGripPoint(handle) + CQdrGeVector2d(8, -6);
      const std::string before = bytesOf(*entity);
      const std::vector<qdr::Pixel> marked = desk.pixels();
      desk.script().move(deviceOf(to).x, deviceOf(to).y).move(100, 20).key(VK_ESCAPE);
      EXPECT_EQ(tracker.Track(window(), deviceOf(entity->getGripPoint(handle)), handle),
                qdr::kInputCancel);
      EXPECT_EQ(bytesOf(*entity), before);
      EXPECT_EQ(desk.pixels(), marked);
      EXPECT_TRUE(undo.m_undoList.empty());

      EXPECT_EQ(dragTo(tracker, handle, to), qdr::kInputPick);
      const std::vector<qdr::Pixel> shown = desk.pixels();
      desk.paint();
      EXPECT_EQ(desk.pixels(), shown) << "the screen is that of a paint";
      EXPECT_FALSE(sameShape(*entity, *made(text)));
      EXPECT_TRUE(undo.Undo());
      EXPECT_TRUE(sameShape(*entity, *made(text)));
      EXPECT_TRUE(undo.m_undoList.empty());
      forgetSteps();
      desk.paint();
    }
    desk.handler().ClearTracker(true);
    putAway(entity);
  }
}

TEST_F(GripsOfClasses, APointHasNoTracker) {
  const Entity point = made("point 20 20 3");
  EXPECT_EQ(desk.handler().CreateTracker(window(), point.get(), QdrDb::eTransformNone, false),
            nullptr);
}

// What the mouse makes of an entity before a command has it.
TEST_F(GripsOfClasses, CommandsSeeTheShapeUnderTheMouse) {
  const auto expectShape = [this](CQdrDbEntityTracker& tracker, const char* before,
                                  const char* after, CPoint mouse) {
    SCOPED_TRACE(after);
    const Entity entity = made(before);
    tracker.CheckCreateOption(entity.get(), mouse);
    EXPECT_TRUE(sameShape(*entity, *made(after)));
  };
  CQdrBoxTracker box(window());
  expectShape(box, "box 10 10 1 1 0", "box 10 10 40 20 0", CPoint(5000, 3000));
  CQdrEllipseTracker ellipse(window());
  expectShape(ellipse, "ellipse 50 50 20 0 1", "ellipse 50 50 0 40 0.5", CPoint(5000, 9000));
  CQdrEllipseArcTracker arc(window());
  const char* const whole = "ellipsearc 50 50 20 0 1 0 360";
  expectShape(arc, whole, "ellipsearc 50 50 0 40 0.5 0 360", CPoint(5000, 9000));
  arc.SetStartAngleFlag(true);
  expectShape(arc, "ellipsearc 50 50 0 40 0.5 0 360", "ellipsearc 50 50 0 40 0.5 0 90",
              CPoint(2000, 5000));
}

TEST_F(GripsOfClasses, PolygonsFollowTheMouse) {
  struct Row {
    unsigned option;
    CQdrGePoint2d start;
    const char* after;
  };
  // The mouse is at (60, 40).
  const Row rows[] = {
      {10004, {40, 40}, "loop 40 40 0 60 40 0 60 60 0 40 60 0"},
      {20004, {40, 40}, "loop 60 40 0 40 60 0 20 40 0 40 20 0"},
      {30004, {40, 40}, "loop 60 60 0 20 60 0 20 20 0 60 20 0"},
      {10000, {40, 40}, "polyline 1 2 0 3 4 0"},
      {20000, {40, 40}, "polyline 1 2 0 3 4 0"},
      {30000, {40, 40}, "polyline 1 2 0 3 4 0"},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.option);
    CQdrPolylineTracker tracker(window());
    tracker.SetOption(row.option);
    tracker.SetStartPoint(row.start, true);
    const Entity polygon = made("polyline 1 2 0 3 4 0");
    CPoint mouse(6000, 4000);
    tracker.CheckCreateOption(polygon.get(), mouse);
    EXPECT_TRUE(sameShape(*polygon, *made(row.after)));
  }
}

TEST_F(GripsOfClasses, SegmentsOfAChainFollowTheMouse) {
  CQdrPolylineTracker tracker(window());
  tracker.SetStartPoint({20, 20}, true);
  CPoint mouse(4000, 4000);
  CQdrDbLine line({20, 20}, {21, 21});
  tracker.CheckCreateOption(&line, mouse);
  EXPECT_EQ(line.EndPoint(), CQdrGePoint2d(40, 40));
  CQdrDbArc arc({20, 20}, {21, 21}, 1.0);
  tracker.SetArcPoint({40, 20});
  tracker.CheckCreateOption(&arc, mouse);
  EXPECT_LT(arc.Center().distanceTo({30, 30}), 1e-9);  // on the circle of the square
  CQdrDbLine former({0, 20}, {20, 20});
  tracker.SetPrevEntity(&former);
  tracker.SetOption(CQdrPolylineTracker::eTangent);
  tracker.CheckCreateOption(&arc, mouse);
  EXPECT_LT(arc.Center().distanceTo({20, 40}), 1e-9);  // leaves along x
}

// The command adds the vertices; what the mouse shows goes when it is clicked.
TEST_F(GripsOfClasses, CurvesOfManyPicksAreLeftToTheirCommand) {
  for (const char* text : {"spline 0.4 20 20 60 80", "cspline 20 20 0 60 80 0"}) {
    SCOPED_TRACE(text);
    const Entity entity = made(text);
    desk.paint();
    const std::vector<qdr::Pixel> before = desk.pixels();
    const std::unique_ptr<CQdrDbEntityTracker> tracker(
        desk.handler().CreateTracker(window(), entity.get(), QdrDb::eTransformNone, true));
    tracker->SetStartPoint({60, 80}, true);
    std::vector<qdr::Pixel> during;
    desk.script().move(120, 60).call([&] { during = desk.pixels(); }).click(100, 80);
    EXPECT_EQ(tracker->Track(window(), CPoint(0, 0)), qdr::kInputPick);
    EXPECT_NE(during, before);
    EXPECT_EQ(desk.pixels(), before);
    EXPECT_TRUE(sameShape(*entity, *made(text)));
    EXPECT_EQ(desk.drawing->m_lastPoint, CQdrGePoint2d(100, 20));
    desk.script().type(L"\r");
    EXPECT_EQ(tracker->Track(window(), CPoint(0, 0)), qdr::kInputEnter);
    EXPECT_EQ(desk.pixels(), before);
  }
  CQdrSplineTracker tracker(window());
  tracker.AddCtrlPoint({10, 10});
  tracker.AddCtrlPoint({20, 10});
  tracker.AddCtrlPoint({30, 10});
  tracker.RemoveCtrlPointAt(1);
  tracker.RemoveCtrlPointAt(7);
  const Entity spline = made("spline 0.4 1 1");
  CPoint mouse(4000, 5000);
  tracker.CheckCreateOption(spline.get(), mouse);
  EXPECT_TRUE(sameShape(*spline, *made("spline 0.4 10 10 30 10 40 50")));
}

// A box that is made is turned last, and Enter leaves it as it is.
TEST_F(GripsOfClasses, TheTurnOfABoxMayBeLeftOut) {
  const Entity box = made("box 20 20 60 40 0");
  CQdrBoxTracker tracker(window(), box.get(), QdrDb::eTransformRotate, false);
  tracker.SetStartPoint({20, 20}, true);
  desk.script().move(20, 30).type(L"\r");
  EXPECT_EQ(tracker.Track(window(), CPoint(0, 0)), qdr::kInputEnter);
  EXPECT_TRUE(sameShape(*box, *made("box 20 20 60 40 0")));
  desk.script().click(20, 30);
  EXPECT_EQ(tracker.Track(window(), CPoint(0, 0)), qdr::kInputPick);
  EXPECT_TRUE(sameShape(*box, *made("box 20 20 60 40 90")));
  EXPECT_TRUE(undo.m_undoList.empty()) << "it is not in the drawing";
}

}  // namespace
