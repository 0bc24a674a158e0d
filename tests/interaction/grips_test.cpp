// Grips of every class: what a drag and the menu change, undo and redo, and what a command tracks
// while it makes an entity.

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>

#include "entities/arc.h"
#include "entities/cobweb.h"
#include "entities/line.h"
#include "entities/polyline.h"
#include "entities/rect.h"
#include "entities/spline.h"
#include "geometry/angle.h"
#include "geometry/line2d.h"
#include "interaction/trackers/box_tracker.h"
#include "interaction/trackers/cspline_tracker.h"
#include "interaction/trackers/ellipse_arc_tracker.h"
#include "interaction/trackers/ellipse_tracker.h"
#include "interaction/trackers/grip_menu.h"
#include "interaction/trackers/polyline_tracker.h"
#include "interaction/trackers/spline_tracker.h"
#include "tests/support/desk.h"
#include "tests/support/entity_text.h"

namespace {

using qdr::test::bytesOf;
using qdr::test::Desk;

using Entity = std::unique_ptr<CQdrDbEntity>;

// Of every class that has a tracker, in the view of the desk.
const char* const kEntities[] = {
    "line 20 20 80 60",
    "arc 60 50 30 20 200",
    "circle 60 50 30",
    "rect 20 80 60 40",
    "box 40 30 60 40 0",
    "box 60 20 50 30 70",
    "ellipse 60 50 40 0 0.5",
    "ellipsearc 60 50 40 10 0.5 20 200",
    "polyline 20 20 0 60 20 1 60 60 0 20 60 0",
    "loop 20 20 0 60 20 0 60 60 1",
    "spline 0.4 20 20 60 80 100 20 140 80",
    "cspline 20 20 0 60 80 1 100 20 0 140 80 0",
    "spiral 8 60 50 40 10 12 0",
    "cobweb 60 50 10 30 5 15",
};

class GripsOfClasses : public testing::Test {
 protected:
  ~GripsOfClasses() override { EXPECT_FALSE(desk.script().isExhaustedUnannounced()); }

  Entity made(const std::string& text) { return qdr::test::entityFromText(*desk.drawing, text); }

  CQdrDbEntity* added(const std::string& text) {
    CQdrDbEntity* const entity = made(text).release();
    CQdrDbObjectId id;
    desk.drawing->addEntity(entity, id);
    return entity;
  }

  CQdrDbEntityTracker& grip(CQdrDbEntity* entity) {
    desk.paint();
    desk.handler().DoDragEntity(entity, CPoint(0, 0));
    return *desk.handler().trackers().back();
  }

  // Takes the entity out of sight, so that the next one stands alone.
  void putAway(CQdrDbEntity* entity) {
    desk.handler().ClearTracker(true);
    entity->setErased();
    undo.m_undoList.clear();
    undo.m_redoList.clear();
  }

  CPoint deviceOf(const CQdrGePoint2d& world) { return desk.record().GetDecivePoint(world); }
  CWnd* window() { return desk.handler().GetDispWindow(); }

  int dragTo(CQdrDbEntityTracker& tracker, int handle, const CQdrGePoint2d& to) {
    desk.script().move(deviceOf(to).x, deviceOf(to).y).up();
    return tracker.Track(window(), deviceOf(tracker.GetEntity()->getGripPoint(handle)), handle);
  }

  Desk desk;
  CQdrUndoHandler& undo = desk.drawing->m_undoHandler;
};

std::vector<CQdrGePoint2d> gripsOf(CQdrDbEntity& entity) {
  std::vector<CQdrGePoint2d>* grips = nullptr;
  entity.getGripPointVec(grips);
  return *grips;
}

// Grips and box tell all that a drag can change.
testing::AssertionResult sameShape(CQdrDbEntity& actual, CQdrDbEntity& expected) {
  constexpr double kNear = 1e-6;
  std::vector<CQdrGePoint2d> a = gripsOf(actual);
  std::vector<CQdrGePoint2d> b = gripsOf(expected);
  for (auto [entity, points] : {std::pair{&actual, &a}, std::pair{&expected, &b}}) {
    const CQdrDbRect box = entity->GetOutRect();
    points->push_back(box.LeftTop());
    points->push_back(box.RightBottom());
  }
  if (a.size() != b.size()) return testing::AssertionFailure() << a.size() << " points";
  for (std::size_t i = 0; i < a.size(); ++i) {
    // The corners of the box of a drawn polygon are whole hundredths.
    const double tol = i + 2 < a.size() ? kNear : 0.02;
    if (!(a[i].distanceTo(b[i]) <= tol))
      return testing::AssertionFailure() << "point " << i << ": (" << a[i].x << ", " << a[i].y
                                         << ") for (" << b[i].x << ", " << b[i].y << ")";
  }
  return testing::AssertionSuccess();
}

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
      undo.m_redoList.clear();
      desk.paint();
    }
    desk.handler().ClearTracker(true);
    putAway(entity);
  }
}

TEST_F(GripsOfClasses, TheMenuTransformsEveryClass) {
  const CQdrGeVector2d way(30, 20);
  const auto own = [](CQdrDbEntity& entity) { return static_cast<CQdrDbCobweb*>(&entity); };
  struct Row {
    const char* name;
    unsigned command;
    std::function<void(CQdrDbEntity&, const CQdrGePoint2d&)> apply;
    std::function<void(CQdrDbCobweb&, const CQdrGePoint2d&)> applyToWeb;
  };
  const auto along = [](const CQdrGePoint2d& from, const CQdrGeVector2d& direction) {
    return CQdrGeLine2d(from, from + direction);
  };
  const double scale = way.length() / desk.drawing->m_vars.dragScaleUnit;
  const Row rows[] = {
      {"move", qdr::kGripMove, [&](auto& e, auto&) { e.TranslateBy(way); },
       [&](auto& w, auto&) { w.translateBy(way); }},
      {"rotate", qdr::kGripRotate, [&](auto& e, auto& at) { e.RotateBy(way.angle(), at); },
       [&](auto& w, auto& at) { w.rotateBy(way.angle(), at); }},
      {"scale", qdr::kGripScale, [&](auto& e, auto& at) { e.ScaleBy(scale, at); },
       [&](auto& w, auto& at) { w.scaleBy(scale, at); }},
      {"mirror by line", qdr::kGripMirrorByLine,
       [&](auto& e, auto& at) { e.Mirror(along(at, way)); },
       [&](auto& w, auto& at) { w.mirror(along(at, way)); }},
      {"mirror x", qdr::kGripMirrorX,
       [&](auto& e, auto& at) {
         e.Mirror(along(at, {1, 0}));
       },
       [&](auto& w, auto& at) {
         w.mirror(along(at, {1, 0}));
       }},
      {"mirror y", qdr::kGripMirrorY,
       [&](auto& e, auto& at) {
         e.Mirror(along(at, {0, 1}));
       },
       [&](auto& w, auto& at) {
         w.mirror(along(at, {0, 1}));
       }},
  };
  for (const char* text : kEntities) {
    for (const Row& row : rows) {
      SCOPED_TRACE(std::string(text) + ": " + row.name);
      CQdrDbEntity* const entity = added(text);
      CQdrDbEntityTracker& tracker = grip(entity);
      // Pixels are whole, and so is the way of the mouse from where the grip really is.
      const CQdrGePoint2d at = entity->getGripPoint(0);
      const Entity expected = made(text);
      if (entity->classType() == QdrDb::eClassCobweb) {
        row.applyToWeb(*own(*expected), at);
      } else {
        row.apply(*expected, at);
        expected->setGripPoints();
      }
      desk.ui().choose(row.command);
      const bool tracked = row.command != qdr::kGripMirrorX && row.command != qdr::kGripMirrorY;
      const CPoint to = deviceOf(at + way);
      if (tracked) desk.script().click(to.x, to.y);
      tracker.TrackMenu(window(), deviceOf(at));
      EXPECT_TRUE(sameShape(*entity, *expected));
      EXPECT_TRUE(undo.Undo());
      EXPECT_TRUE(sameShape(*entity, *made(text)));
      EXPECT_TRUE(undo.Redo());
      EXPECT_TRUE(sameShape(*entity, *expected));
      putAway(entity);
    }
  }
  EXPECT_TRUE(desk.ui().faults().empty());
}

TEST_F(GripsOfClasses, TheMenuCopiesEveryClass) {
  CQdrDbBlockTableRecord& space = *desk.drawing->m_blockTable.getCurrentRecord();
  for (const char* text : kEntities) {
    SCOPED_TRACE(text);
    CQdrDbEntity* const entity = added(text);
    CQdrDbEntityTracker& tracker = grip(entity);
    const CQdrGePoint2d at = entity->getGripPoint(0);
    const CPoint from = deviceOf(at);
    const std::size_t before = space.getNumEntity();
    desk.ui().choose(qdr::kGripCopy);
    desk.script().click(from.x + 20, from.y - 10);
    tracker.TrackMenu(window(), from);
    ASSERT_EQ(space.getNumEntity(), before + 1);
    CQdrDbEntity* const copy = qdr::asEntity(*space.getEntitySet().rbegin());
    EXPECT_EQ(copy->classType(), entity->classType());
    EXPECT_LT(copy->getGripPoint(0).distanceTo(at + CQdrGeVector2d(20, 10)), 1e-6);
    EXPECT_TRUE(sameShape(*entity, *made(text)));
    EXPECT_TRUE(undo.Undo());
    EXPECT_TRUE(copy->isErased());
    EXPECT_TRUE(undo.Redo());
    EXPECT_FALSE(copy->isErased());
    copy->setErased();
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
