// Grips: what a drag changes and records, the menu, snaps and cursor keys.

#include <gtest/gtest.h>

#include "database/undo/undo_operations.h"
#include "entities/arc.h"
#include "entities/circle.h"
#include "entities/line.h"
#include "entities/rect.h"
#include "interaction/trackers/entity_tracker.h"
#include "interaction/trackers/grip_menu.h"
#include "tests/support/desk.h"
#include "tests/support/entity_text.h"

namespace {

using qdr::test::addAs;
using qdr::test::addFromText;
using qdr::test::bytesOf;
using qdr::test::Desk;

class Grips : public testing::Test {
 protected:
  ~Grips() override { EXPECT_FALSE(desk.script().isExhaustedUnannounced()); }

  CQdrDbEntityTracker& grip(CQdrDbEntity* entity) {
    desk.paint();
    desk.handler().DoDragEntity(entity, CPoint(0, 0));
    return *desk.handler().trackers().back();
  }

  // Presses the button over a grip and plays the rest of the script.
  int drag(CQdrDbEntityTracker& tracker, CPoint device) {
    return tracker.Track(desk.handler().GetDispWindow(), device);
  }

  Desk desk;
  CQdrUndoHandler& undo = desk.drawing->m_undoHandler;
};

TEST_F(Grips, DragsAreUndoneAndDoneAgain) {
  struct Row {
    const char* name;
    const char* before;
    CPoint from;
    CPoint to;
    const char* after;
  };
  const Row rows[] = {
      {"start of a line", "line 20 20 80 60", {20, 80}, {30, 90}, "line 30 10 80 60"},
      {"end of a line", "line 20 20 80 60", {80, 40}, {90, 10}, "line 20 20 90 90"},
      {"whole line by its middle", "line 20 20 80 60", {50, 60}, {60, 50}, "line 30 30 90 70"},
      {"radius of a circle", "circle 50 50 20", {70, 50}, {80, 50}, "circle 50 50 30"},
      {"circle by its centre", "circle 50 50 20", {50, 50}, {55, 45}, "circle 55 55 20"},
      {"end of an arc", "arc 50 50 20 0 180", {30, 50}, {50, 80}, "arc 50 50 20 0 270"},
      {"top side of a rectangle", "rect 20 80 60 40", {40, 20}, {90, 10}, "rect 20 90 60 40"},
      {"right bottom corner", "rect 20 80 60 40", {60, 60}, {70, 70}, "rect 20 80 70 30"},
  };
  for (const Row& row : rows) {
    CQdrDbEntity* const entity = addFromText(*desk.drawing, row.before);
    CQdrDbEntity* const expected = addFromText(*desk.drawing, row.after);
    CQdrDbEntityTracker& tracker = grip(entity);
    desk.script().move(row.to.x, row.to.y).up();
    EXPECT_EQ(drag(tracker, row.from), qdr::kInputPick) << row.name;
    const auto sameGrips = [](CQdrDbEntity* a, CQdrDbEntity* b) {
      std::vector<CQdrGePoint2d>* gripsA = nullptr;
      std::vector<CQdrGePoint2d>* gripsB = nullptr;
      a->getGripPointVec(gripsA);
      b->getGripPointVec(gripsB);
      for (std::size_t i = 0; i < gripsB->size(); ++i)
        if (gripsA->at(i).distanceTo(gripsB->at(i)) > 1e-9) return false;
      return true;
    };
    EXPECT_TRUE(sameGrips(entity, expected)) << row.name;
    const std::string dragged = bytesOf(*entity);
    CQdrDbEntity* const original = addFromText(*desk.drawing, row.before);
    EXPECT_TRUE(undo.Undo()) << row.name;
    EXPECT_TRUE(sameGrips(entity, original)) << row.name;
    EXPECT_TRUE(undo.Redo()) << row.name;
    EXPECT_TRUE(sameGrips(entity, expected)) << row.name;
    EXPECT_EQ(bytesOf(*entity).size(), dragged.size());
    desk.handler().ClearTracker(true);
  }
}

TEST_F(Grips, CancelledDragsChangeAndRecordNothing) {
  CQdrDbEntity* const line = addFromText(*desk.drawing, "line 20 20 80 60");
  const std::string before = bytesOf(*line);
  CQdrDbEntityTracker& tracker = grip(line);
  const std::vector<qdr::Pixel> marked = desk.pixels();
  desk.script().move(40, 40).key(VK_ESCAPE);
  EXPECT_EQ(drag(tracker, CPoint(20, 80)), qdr::kInputCancel);
  desk.script().move(40, 40).rclick();
  EXPECT_EQ(drag(tracker, CPoint(20, 80)), qdr::kInputCancel);
  desk.script().move(40, 40).loseCapture();
  EXPECT_EQ(drag(tracker, CPoint(20, 80)), qdr::kInputLost);
  EXPECT_EQ(bytesOf(*line), before);
  EXPECT_TRUE(undo.m_undoList.empty());
  EXPECT_EQ(desk.pixels(), marked);
}

TEST_F(Grips, MarksAreOnTheScreenOnlyWhileTheyLive) {
  CQdrDbEntity* const line = addFromText(*desk.drawing, "line 20 20 80 60");
  desk.paint();
  const std::vector<qdr::Pixel> plain = desk.pixels();
  desk.handler().DoDragEntity(line, CPoint(0, 0));
  desk.handler().DoDragEntity(line, CPoint(0, 0));
  EXPECT_EQ(desk.handler().trackers().size(), 1u);
  EXPECT_NE(desk.pixels(), plain);
  desk.handler().ClearTracker(true);
  EXPECT_EQ(desk.pixels(), plain);
}

TEST_F(Grips, AGripIsEightPixelsWideAtAnyZoom) {
  CQdrDbEntity* const line = addFromText(*desk.drawing, "line 20 20 80 60");
  for (const double zoom : {1.0, 0.5, 4.0}) {
    if (zoom != 1.0) desk.record().ScaleUpDown(desk.drawing->m_pDC, CPoint(0, 100), zoom);
    CQdrDbEntityTracker& tracker = grip(line);
    const CPoint at = desk.record().GetDecivePoint(CQdrGePoint2d(20, 20));
    EXPECT_EQ(tracker.HitTest(CPoint(at.x - 3, at.y)), 1) << zoom;
    EXPECT_EQ(tracker.HitTest(CPoint(at.x + 3, at.y)), 1) << zoom;
    EXPECT_EQ(tracker.HitTest(CPoint(at.x - 6, at.y)), -1) << zoom;
    EXPECT_EQ(tracker.HitTest(CPoint(at.x + 6, at.y)), -1) << zoom;
    desk.handler().ClearTracker(true);
  }
}

TEST_F(Grips, ATypedPointEndsADrag) {
  auto* const line = addAs<CQdrDbLine>(*desk.drawing, "line 20 20 80 60");
  CQdrDbEntityTracker& tracker = grip(line);
  desk.script().move(40, 40).type(L"12.5,33\r");
  EXPECT_EQ(drag(tracker, CPoint(20, 80)), qdr::kInputPoint);
  EXPECT_EQ(line->StartPoint(), CQdrGePoint2d(12.5, 33));
  EXPECT_TRUE(undo.Undo());
  EXPECT_EQ(line->StartPoint(), CQdrGePoint2d(20, 20));
}

TEST_F(Grips, CursorKeysMoveAndEnterTakes) {
  auto* const line = addAs<CQdrDbLine>(*desk.drawing, "line 20 20 80 60");
  CQdrDbEntityTracker& tracker = grip(line);
  desk.script().move(40, 40).arrow(VK_LEFT).arrow(VK_UP).type(L"\r");
  EXPECT_EQ(drag(tracker, CPoint(20, 80)), qdr::kInputPick);
  EXPECT_EQ(line->StartPoint(), CQdrGePoint2d(39, 61));
  desk.script().move(60, 40).type(L"\r");
  EXPECT_EQ(drag(tracker, CPoint(39, 39)), qdr::kInputCancel);
  EXPECT_EQ(line->StartPoint(), CQdrGePoint2d(39, 61));
}

TEST_F(Grips, OrthoAndGridActThroughTheHost) {
  auto* const line = addAs<CQdrDbLine>(*desk.drawing, "line 20 20 80 60");
  CQdrDbEntityTracker& tracker = grip(line);
  desk.drawing->m_vars.snapOrtho = 1;
  desk.script().move(95, 47).up();
  drag(tracker, CPoint(80, 40));
  EXPECT_EQ(line->EndPoint(), CQdrGePoint2d(95, 60));  // along x, the longer way
  desk.drawing->m_vars.snapOrtho = 0;
  desk.drawing->m_vars.snapGrid = 1;
  desk.drawing->m_vars.gridSpacing = 10.0;
  desk.script().move(93, 34).up();
  drag(tracker, CPoint(95, 40));
  EXPECT_EQ(line->EndPoint(), CQdrGePoint2d(90, 70));  // from (93, 66)
}

TEST_F(Grips, TypedPointsAreExactWhateverTheGrid) {
  desk.drawing->m_vars.snapGrid = 1;
  desk.drawing->m_vars.gridSpacing = 10.0;
  auto* const line = addAs<CQdrDbLine>(*desk.drawing, "line 20 20 80 60");
  CQdrDbEntityTracker& tracker = grip(line);
  desk.script().move(40, 40).type(L"12.3456,33\r");
  EXPECT_EQ(drag(tracker, CPoint(20, 80)), qdr::kInputPoint);
  EXPECT_EQ(line->StartPoint(), CQdrGePoint2d(12.3456, 33));
  EXPECT_EQ(desk.drawing->m_lastPoint, CQdrGePoint2d(12.3456, 33));
  EXPECT_TRUE(undo.Undo());
  EXPECT_LT(line->StartPoint().distanceTo(CQdrGePoint2d(20, 20)), 1e-9);

  // The line of a mirror is not rounded either: what is undone is what was done.
  line->set(CQdrGePoint2d(23.456, 20), CQdrGePoint2d(80, 61.5));
  desk.ui().choose(qdr::kGripMirrorY);
  tracker.TrackMenu(desk.handler().GetDispWindow(), CPoint(23, 80));
  EXPECT_LT(line->EndPoint().distanceTo(CQdrGePoint2d(-33.088, 61.5)), 1e-9);
  EXPECT_TRUE(undo.Undo());
  EXPECT_LT(line->EndPoint().distanceTo(CQdrGePoint2d(80, 61.5)), 1e-9);
}

TEST_F(Grips, ADragThatHasNotMovedChangesNothing) {
  auto* const line = addAs<CQdrDbLine>(*desk.drawing, "line 20 20 80 60");
  CQdrDbEntityTracker& tracker = grip(line);
  desk.script().move(22, 80).up();  // over the box of the grip, two pixels beside its centre
  EXPECT_EQ(drag(tracker, CPoint(22, 80)), qdr::kInputPick);
  EXPECT_EQ(line->StartPoint(), CQdrGePoint2d(20, 20));
  EXPECT_TRUE(undo.m_undoList.empty());
}

TEST_F(Grips, ADragEndsWhereverItIsLetGo) {
  auto* const line = addAs<CQdrDbLine>(*desk.drawing, "line 20 20 80 60");
  CQdrDbEntityTracker& tracker = grip(line);
  desk.script().move(5, 95).move(-30, 95).up();
  EXPECT_EQ(drag(tracker, CPoint(20, 80)), qdr::kInputPick);
  EXPECT_EQ(line->StartPoint(), CQdrGePoint2d(5, 5));
}

TEST_F(Grips, TheScreenAfterAnEditIsThatOfAPaint) {
  CQdrDbEntity* const line = addFromText(*desk.drawing, "line 20 20 80 60");
  CQdrDbEntityTracker& tracker = grip(line);
  desk.script().move(40, 30).move(35, 90).up();
  drag(tracker, CPoint(20, 80));
  std::vector<qdr::Pixel> shown = desk.pixels();
  desk.paint();
  EXPECT_EQ(shown, desk.pixels()) << "drag";
  desk.ui().choose(qdr::kGripMirrorX);
  tracker.TrackMenu(desk.handler().GetDispWindow(), CPoint(80, 40));
  shown = desk.pixels();
  desk.paint();
  EXPECT_EQ(shown, desk.pixels()) << "mirror";
}

TEST_F(Grips, APaintDuringADragKeepsItsMarks) {
  CQdrDbEntity* const line = addFromText(*desk.drawing, "line 20 20 80 60");
  addFromText(*desk.drawing, "circle 50 50 20");
  desk.drawing->m_vars.snapGrip = 1;
  CQdrDbEntityTracker& tracker = grip(line);
  desk.paint();
  const std::vector<qdr::Pixel> before = desk.pixels();
  std::vector<qdr::Pixel> during;
  desk.script()
      .move(70, 50)  // a grip of the circle, with its mark
      .call([&] {
        during = desk.pixels();
        desk.paint();
        EXPECT_EQ(desk.pixels(), during);
        // A zoom moves the marks with the drawing, and back.
        desk.record().ScaleUpDown(desk.drawing->m_pDC, CPoint(0, 100), 2.0);
        desk.record().ScaleUpDown(desk.drawing->m_pDC, CPoint(0, 100), 0.5);
        EXPECT_EQ(desk.pixels(), during);
      })
      .key(VK_ESCAPE);
  drag(tracker, CPoint(20, 80));
  EXPECT_NE(during, before);
  EXPECT_EQ(desk.pixels(), before);
}

TEST_F(Grips, AnEntityDeletedDuringItsDragEndsIt) {
  auto* const line = addAs<CQdrDbLine>(*desk.drawing, "line 20 20 80 60");
  CQdrDbEntityTracker& tracker = grip(line);
  desk.script()
      .move(40, 30)
      .call([this] { desk.drawing->m_blockTable.getCurrentRecord()->ClearEntity(); })
      .up();
  EXPECT_EQ(drag(tracker, CPoint(20, 80)), qdr::kInputCancel);
  EXPECT_TRUE(desk.handler().trackers().empty());
  EXPECT_TRUE(desk.handler().GetSelectedEntity().empty());
}

TEST_F(Grips, MenuCommands) {
  auto* const line = addAs<CQdrDbLine>(*desk.drawing, "line 20 20 80 60");
  CWnd* const window = desk.handler().GetDispWindow();
  const auto choose = [&](unsigned command, CPoint at) {
    CQdrDbEntityTracker& tracker = grip(line);
    desk.ui().choose(command);
    const int chosen = tracker.TrackMenu(window, at);
    desk.handler().ClearTracker(true);
    return chosen;
  };
  desk.script().move(30, 70).click(30, 70);
  EXPECT_EQ(choose(qdr::kGripMove, CPoint(20, 80)), static_cast<int>(qdr::kGripMove));
  EXPECT_EQ(line->StartPoint(), CQdrGePoint2d(30, 30));
  EXPECT_TRUE(undo.Undo());
  choose(qdr::kGripMirrorX, CPoint(20, 80));
  EXPECT_LT(line->EndPoint().distanceTo(CQdrGePoint2d(80, -20)), 1e-9);
  EXPECT_TRUE(undo.Undo());
  EXPECT_LT(line->EndPoint().distanceTo(CQdrGePoint2d(80, 60)), 1e-9);
  const std::size_t before = desk.drawing->m_blockTable.getCurrentRecord()->getNumEntity();
  desk.script().click(30, 70);
  choose(qdr::kGripCopy, CPoint(20, 80));
  EXPECT_EQ(desk.drawing->m_blockTable.getCurrentRecord()->getNumEntity(), before + 1);
  choose(qdr::kGripErase, CPoint(20, 80));
  EXPECT_TRUE(line->isErased());
  EXPECT_TRUE(undo.Undo());
  EXPECT_FALSE(line->isErased());
  EXPECT_TRUE(desk.ui().faults().empty());
}

TEST_F(Grips, MenuGreysWhatDoesNotApply) {
  CQdrDbEntity* const line = addFromText(*desk.drawing, "line 20 20 80 60");
  CQdrDbEntityTracker& tracker = grip(line);
  desk.ui().choose(0);
  tracker.TrackMenu(desk.handler().GetDispWindow(), CPoint(20, 80));
  const auto enabled = [this](unsigned id) {
    for (const qdr::MenuItem& item : desk.ui().lastPopup())
      if (item.id == id) return item.enabled;
    return false;
  };
  EXPECT_TRUE(enabled(qdr::kGripDivide));
  EXPECT_FALSE(enabled(qdr::kGripExplode));
  EXPECT_TRUE(enabled(qdr::kGripErase));
}

TEST_F(Grips, GoWithTheEntityThatIsDeleted) {
  CQdrDbEntity* const line = addFromText(*desk.drawing, "line 20 20 80 60");
  grip(line);
  desk.drawing->m_blockTable.getCurrentRecord()->ClearEntity();
  EXPECT_TRUE(desk.handler().trackers().empty());
}

class Snaps : public Grips {
 protected:
  CQdrGePoint2d pickWith(const wchar_t* keys, int x, int y) {
    desk.script().type(keys).click(x, y);
    CQdrGePoint2d point;
    desk.handler().GetGePoint(3, point);
    return point;
  }
};

TEST_F(Snaps, OneShotSnapsByTheirKeys) {
  addFromText(*desk.drawing, "line 0 50 200 50");
  addFromText(*desk.drawing, "line 100 0 100 100");
  addFromText(*desk.drawing, "circle 40 50 20");
  desk.paint();
  const std::vector<qdr::Pixel> before = desk.pixels();
  EXPECT_LT(pickWith(L"i", 104, 47).distanceTo(CQdrGePoint2d(100, 50)), 1e-9);
  EXPECT_LT(pickWith(L"c", 40, 30).distanceTo(CQdrGePoint2d(40, 50)), 1e-9);  // over its top
  EXPECT_LT(pickWith(L"n", 152, 51).distanceTo(CQdrGePoint2d(152, 50)), 1e-9);
  EXPECT_EQ(pickWith(L"", 104, 47), CQdrGePoint2d(104, 53));  // spent
  EXPECT_EQ(desk.pixels(), before) << "marks are gone";
}

TEST_F(Snaps, ALineAndNothingElseHasNoIntersection) {
  addFromText(*desk.drawing, "arc 50 50 20 0 180");
  EXPECT_EQ(pickWith(L"i", 50, 31), CQdrGePoint2d(50, 69));
}

TEST_F(Snaps, GripsAndGridNodes) {
  addFromText(*desk.drawing, "line 20 20 80 60");
  desk.drawing->m_vars.snapGrip = 1;
  // The pick box reaches the line, the truncated pick its end.
  EXPECT_EQ(pickWith(L"", 80, 40), CQdrGePoint2d(80, 60));
  desk.drawing->m_vars.snapGrip = 0;
  desk.drawing->m_vars.gridVisible = 1;
  desk.drawing->m_vars.snapGridPoint = 1;
  desk.drawing->m_vars.gridSpacing = 40.0;  // nodes stand every 40 / (1 + 1)
  EXPECT_EQ(pickWith(L"", 143, 34), CQdrGePoint2d(140, 60));
}

TEST_F(Snaps, RoundsAPickHalfWayTowardZero) {
  desk.drawing->m_vars.snapGrid = 1;
  desk.drawing->m_vars.gridSpacing = 10.0;
  EXPECT_EQ(pickWith(L"", 25, 75), CQdrGePoint2d(20, 20));
  EXPECT_EQ(pickWith(L"", 26, 74), CQdrGePoint2d(30, 30));
  desk.drawing->m_vars.gridSpacing = 0.0;
  EXPECT_EQ(pickWith(L"", 26, 74), CQdrGePoint2d(26, 26));
}

}  // namespace
