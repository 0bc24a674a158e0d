// What the menu on a grip does to every class, undo and redo.

#include <functional>

#include "entities/cobweb.h"
#include "entities/spline.h"
#include "geometry/line2d.h"
#include "interaction/dlg_get_value.h"
#include "interaction/explode_entity.h"
#include "interaction/trackers/grip_menu.h"
#include "tests/interaction/grip_desk.h"

namespace {

using qdr::test::Entity;
using qdr::test::gripsOf;
using qdr::test::kEntities;
using qdr::test::sameShape;

class GripMenu : public qdr::test::GripDesk {};

TEST_F(GripMenu, TheMenuTransformsEveryClass) {
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

TEST_F(GripMenu, TheMenuCopiesEveryClass) {
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

// Commands on vertices and segments. The click answers a command that asks for a point.
TEST_F(GripMenu, TheMenuEditsVertices) {
  struct Row {
    const char* before;
    int grip;
    unsigned command;
    const char* after;  // null when nothing changes and nothing is recorded
    CQdrGePoint2d click = {};
  };
  const char* const chain = "polyline 20 20 0 60 20 1 60 60 0 20 60 0";
  const char* const loop = "loop 20 20 0 60 20 0.5 60 60 0 20 60 0";
  const char* const spline = "spline 0.4 20 20 60 80 100 20";
  const char* const broken = "cspline 20 20 0 60 80 1 100 20 0";
  constexpr const char* kQuarter = "0.41421356237309503";
  const std::string bent = std::string("polyline 20 20 ") + kQuarter + " 60 20 1 60 60 0 20 60 0";
  const Row rows[] = {
      {chain, 0, qdr::kGripLineArc, bent.c_str()},
      {chain, 1, qdr::kGripLineArc, "polyline 20 20 0 60 20 0 60 60 0 20 60 0"},
      {chain, 2, qdr::kGripLineArc, "polyline 20 20 0 60 20 0 60 60 0 20 60 0"},
      {chain, 4, qdr::kGripLineArc, nullptr},  // the last vertex begins no segment
      {chain, 1, qdr::kGripDeleteVertex, "polyline 20 20 0 60 60 0 20 60 0"},
      {chain, 2, qdr::kGripDeleteVertex, nullptr},  // the middle of an arc is no vertex
      {chain, 0, qdr::kGripDeleteVertex, "polyline 60 20 1 60 60 0 20 60 0"},
      {"polyline 20 20 0 60 20 0", 0, qdr::kGripDeleteVertex, nullptr},
      {chain,
       0,
       qdr::kGripInsertVertex,
       "polyline 20 20 0 40 10 0 60 20 1 60 60 0 20 60 0",
       {40, 10}},
      {chain,
       4,
       qdr::kGripInsertVertex,
       "polyline 20 20 0 60 20 1 60 60 0 20 60 0 10 80 0",
       {10, 80}},
      {chain, 0, qdr::kGripReverse, "polyline 20 60 0 60 60 -1 60 20 0 20 20 0"},
      {loop, 3, qdr::kGripChangeStart, "loop 60 60 0 20 60 0 20 20 0 60 20 0.5"},
      {loop, 0, qdr::kGripChangeStart, nullptr},
      {loop, 2, qdr::kGripChangeStart, nullptr},
      {spline, 1, qdr::kGripDeleteVertex, "spline 0.4 20 20 100 20"},
      {spline, 1, qdr::kGripInsertVertex, "spline 0.4 20 20 60 80 80 90 100 20", {80, 90}},
      {"spline 0.4 20 20 60 80", 1, qdr::kGripDeleteVertex, nullptr},
      {broken, 1, qdr::kGripDeleteVertex, "cspline 20 20 0 100 20 0"},
      {broken, 0, qdr::kGripInsertVertex, "cspline 20 20 0 30 70 0 60 80 1 100 20 0", {30, 70}},
      {broken, 0, qdr::kGripReverse, "cspline 100 20 0 60 80 1 20 20 0"},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(std::string(row.before) + ", grip " + std::to_string(row.grip) + ", command " +
                 std::to_string(row.command));
    CQdrDbEntity* const entity = added(row.before);
    CQdrDbEntityTracker& tracker = grip(entity);
    const CPoint click = deviceOf(row.click);
    if (row.command == qdr::kGripInsertVertex) desk.script().click(click.x, click.y);
    desk.ui().choose(row.command);
    tracker.TrackMenu(window(), deviceOf(entity->getGripPoint(row.grip)));
    EXPECT_TRUE(sameShape(*entity, *made(row.after ? row.after : row.before)));
    const std::vector<qdr::Pixel> shown = desk.pixels();
    desk.paint();
    EXPECT_EQ(desk.pixels() == shown, true) << "the screen is that of a paint";
    EXPECT_EQ(undo.m_undoList.empty(), row.after == nullptr);
    if (row.after) {
      EXPECT_TRUE(undo.Undo());
      EXPECT_TRUE(sameShape(*entity, *made(row.before)));
      EXPECT_TRUE(undo.m_undoList.empty()) << "one step";
      EXPECT_TRUE(undo.Redo());
      EXPECT_TRUE(sameShape(*entity, *made(row.after)));
    }
    putAway(entity);
  }
  EXPECT_TRUE(desk.ui().faults().empty());
}

TEST_F(GripMenu, AVertexThatIsNotGivenIsNotInserted) {
  CQdrDbEntity* const chain = added("polyline 20 20 0 60 20 0");
  CQdrDbEntityTracker& tracker = grip(chain);
  desk.ui().choose(qdr::kGripInsertVertex);
  desk.script().move(40, 40).key(VK_ESCAPE);
  tracker.TrackMenu(window(), CPoint(20, 80));
  EXPECT_EQ(gripsOf(*chain).size(), 2u);
  EXPECT_TRUE(undo.m_undoList.empty());
  // Nor when the polyline is gone before the point is there.
  desk.ui().choose(qdr::kGripInsertVertex);
  desk.script()
      .call([this] { desk.drawing->m_blockTable.getCurrentRecord()->ClearEntity(); })
      .click(40, 40);
  tracker.TrackMenu(window(), CPoint(20, 80));
  EXPECT_TRUE(desk.handler().trackers().empty());
}

// The values of the dialogs are texts; a width of a polyline comes back with its vertex.
TEST_F(GripMenu, TheMenuAsksForValues) {
  const auto answer = [this](const wchar_t* value) {
    desk.ui().answer<CDlgGetValue>([value](CDlgGetValue& dialog) {
      dialog.setValue(value);
      return IDOK;
    });
  };
  auto* const spline = static_cast<CQdrDbSpline*>(added("spline 0.4 20 20 60 80 100 20"));
  for (const auto& [typed, fit] :
       {std::pair{L"0.25", 0.25}, {L"1", 0.99}, {L"-3", 0.4}, {L"x", 0.4}}) {
    answer(typed);
    desk.ui().choose(qdr::kGripChangeParam);
    grip(spline).TrackMenu(window(), deviceOf({60, 80}));
    EXPECT_EQ(spline->GetFitParam(), fit);
    EXPECT_EQ(undo.Undo(), fit != 0.4);
    EXPECT_EQ(spline->GetFitParam(), 0.4);
    desk.handler().ClearTracker(true);
  }
  putAway(spline);
  struct Row {
    const char* before;
    const wchar_t* parts;
    const char* after;
  };
  const Row rows[] = {
      {"line 20 20 80 50", L"3", "polyline 20 20 0 40 30 0 60 40 0 80 50 0"},
      {"circle 60 50 20", L"4",
       "loop 80 50 0.41421356237309503 60 70 0.41421356237309503 40 50 0.41421356237309503 60 30 "
       "0.41421356237309503"},
      {"arc 60 50 20 0 180", L"2",
       "polyline 80 50 0.41421356237309503 60 70 0.41421356237309503 40 50 0"},
      {"line 20 20 80 50", L"0", nullptr},
      {"line 20 20 80 50", L"2000000000", nullptr},
  };
  CQdrDbBlockTableRecord& space = *desk.drawing->m_blockTable.getCurrentRecord();
  for (const Row& row : rows) {
    SCOPED_TRACE(row.before);
    CQdrDbEntity* const entity = added(row.before);
    const std::size_t before = space.getNumEntity();
    answer(row.parts);
    desk.ui().choose(qdr::kGripDivide);
    grip(entity).TrackMenu(window(), deviceOf(entity->getGripPoint(1)));
    EXPECT_EQ(entity->isErased(), row.after != nullptr);
    if (!row.after) {
      EXPECT_EQ(space.getNumEntity(), before);
      putAway(entity);
      continue;
    }
    CQdrDbEntity* const divided = qdr::asEntity(*space.getEntitySet().rbegin());
    EXPECT_TRUE(sameShape(*divided, *made(row.after)));
    ASSERT_EQ(desk.handler().trackers().size(), 1u);
    EXPECT_EQ(desk.handler().trackers()[0]->GetEntity(), divided);
    EXPECT_TRUE(undo.Undo());
    EXPECT_TRUE(!entity->isErased() && divided->isErased());
    EXPECT_TRUE(undo.m_undoList.empty());
    EXPECT_TRUE(undo.Redo());
    EXPECT_TRUE(entity->isErased() && !divided->isErased());
    putAway(divided);
  }
  EXPECT_TRUE(desk.ui().faults().empty());
}

TEST_F(GripMenu, TheMenuExplodes) {
  CQdrDbBlockTableRecord& space = *desk.drawing->m_blockTable.getCurrentRecord();
  for (const auto& [text, parts] : {std::pair{"polyline 20 20 0 60 20 1 60 60 0 20 60 0", 3u},
                                    {"spline 0.4 20 20 60 80 100 20", 3u}}) {
    SCOPED_TRACE(text);
    CQdrDbEntity* const entity = added(text);
    const std::size_t before = space.getNumEntity();
    desk.ui().choose(qdr::kGripExplode);
    grip(entity).TrackMenu(window(), deviceOf(entity->getGripPoint(0)));
    EXPECT_TRUE(entity->isErased());
    EXPECT_EQ(space.getNumEntity(), before + parts);
    EXPECT_TRUE(desk.handler().trackers().empty());
    EXPECT_TRUE(undo.Undo());
    EXPECT_FALSE(entity->isErased());
    EXPECT_TRUE(undo.m_undoList.empty()) << "one step";
    EXPECT_TRUE(undo.Redo());
    EXPECT_TRUE(entity->isErased());
    putAway(entity);
  }
  const Entity outside = made("polyline 20 20 0 60 20 0");
  EXPECT_FALSE(qdr::explodeEntity(*outside));
  EXPECT_FALSE(qdr::explodeEntity(*added("circle 60 50 20")));
}

}  // namespace
