// Drawing commands, the erasure, and what they leave on the screen.

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

#include "entities/arc.h"
#include "entities/circle.h"
#include "entities/entity_cast.h"
#include "entities/line.h"
#include "entities/rect.h"
#include "tests/support/desk.h"
#include "tests/support/entity_text.h"

namespace {

using qdr::entityAs;
using qdr::test::addFromText;
using qdr::test::Desk;

constexpr double kPi = std::numbers::pi;

class Commands : public testing::Test {
 protected:
  ~Commands() override { EXPECT_FALSE(desk.script().isExhaustedUnannounced()); }

  CQdrDbLine* line(unsigned long option = 0) {
    return entityAs<CQdrDbLine>(desk.run(QdrDb::eCommandLine, option));
  }
  CQdrDbArc* arc(unsigned long option = 0) {
    return entityAs<CQdrDbArc>(desk.run(QdrDb::eCommandArc, option));
  }

  Desk desk;
};

void expectNear(const CQdrGePoint2d& actual, double x, double y, double tolerance = 1e-9) {
  EXPECT_NEAR(actual.x, x, tolerance);
  EXPECT_NEAR(actual.y, y, tolerance);
}

TEST_F(Commands, LineByPicksAndTypedPoints) {
  desk.script().click(10, 90).click(60, 50);
  const CQdrDbLine* const picked = line();
  ASSERT_NE(picked, nullptr);
  expectNear(picked->StartPoint(), 10, 10);
  expectNear(picked->EndPoint(), 60, 50);
  EXPECT_EQ(desk.drawing->m_lastPoint, CQdrGePoint2d(60, 50));
  EXPECT_EQ(desk.handler().lastEntity(), picked);

  // A mode word goes on from the last point; polar answers count from there.
  desk.script().type(L"10<90\r");
  const CQdrDbLine* const typed = line(1);
  ASSERT_NE(typed, nullptr);
  expectNear(typed->StartPoint(), 60, 50);
  expectNear(typed->EndPoint(), 60, 60);

  desk.script().type(L"0,0\r").type(L"3.25,4.125\r");
  const CQdrDbLine* const exact = line();
  ASSERT_NE(exact, nullptr);
  expectNear(exact->EndPoint(), 3.25, 4.125);
}

TEST_F(Commands, CircleByRadiusOrPoint) {
  struct Row {
    const char* name;
    const wchar_t* typed;
    double radius;  // 0: nothing is made
  };
  const Row rows[] = {
      {"a number", L"12.5\r", 12.5}, {"a text by its number", L"7X\r", 7.0},
      {"zero cancels", L"0\r", 0.0}, {"negative cancels", L"-3\r", 0.0},
      {"a point", L"50,53\r", 3.0},  {"empty cancels", L"\r", 0.0},
  };
  for (const Row& row : rows) {
    desk.script().type(L"50,50\r").type(row.typed);
    const auto* const made = entityAs<CQdrDbCircle>(desk.run(QdrDb::eCommandCircle));
    ASSERT_EQ(made != nullptr, row.radius > 0.0) << row.name;
    if (!made) continue;
    EXPECT_DOUBLE_EQ(made->Radius(), row.radius) << row.name;
  }
  desk.script().click(50, 50).move(60, 50).click(80, 50);
  const auto* const picked = entityAs<CQdrDbCircle>(desk.run(QdrDb::eCommandCircle));
  ASSERT_NE(picked, nullptr);
  EXPECT_DOUBLE_EQ(picked->Radius(), 30.0);
}

TEST_F(Commands, RectTakesATypedCornerExactly) {
  desk.script().click(10, 80).type(L"33.125,7.5\r");
  const auto* const rect = entityAs<CQdrDbRect>(desk.run(QdrDb::eCommandRect));
  ASSERT_NE(rect, nullptr);
  expectNear(rect->LeftTop(), 10, 20);
  expectNear(rect->RightBottom(), 33.125, 7.5);
}

TEST_F(Commands, ArcThroughThreePoints) {
  desk.script().type(L"10,0\r").type(L"0,10\r").type(L"-10,0\r");
  unsigned long option = 0;
  CQdrDbEntity* const made = desk.handler().DoCommand(QdrDb::eCommandArc, option);
  EXPECT_EQ(option, 100u);
  CQdrDbObjectId id;
  desk.drawing->addEntity(made, id);
  const auto* const arc = entityAs<CQdrDbArc>(made);
  ASSERT_NE(arc, nullptr);
  expectNear(arc->Center(), 0, 0);
  EXPECT_NEAR(arc->Radius(), 10, 1e-9);
  EXPECT_NEAR(arc->EndAngle() - arc->StartAngle(), kPi, 1e-9);
  EXPECT_EQ(desk.drawing->m_lastPoint, arc->EndPoint());
}

TEST_F(Commands, ArcByItsCentre) {
  desk.script().type(L"c").type(L"50,50\r").type(L"60,50\r").type(L"90\r");
  unsigned long option = 0;
  const auto* const made =
      entityAs<CQdrDbArc>(desk.handler().DoCommand(QdrDb::eCommandArc, option));
  ASSERT_NE(made, nullptr);
  EXPECT_EQ(option, 200u);
  expectNear(made->Center(), 50, 50);
  EXPECT_NEAR(made->Radius(), 10, 1e-9);
  EXPECT_NEAR(made->StartAngle(), 0, 1e-9);
  EXPECT_NEAR(made->EndAngle(), kPi / 2, 1e-9);
  delete made;

  desk.script().type(L"50,50\r").type(L"20\r").type(L"30\r").click(50, 30);
  const CQdrDbArc* const byRadius = arc(300);
  ASSERT_NE(byRadius, nullptr);
  EXPECT_NEAR(byRadius->Radius(), 20, 1e-9);
  EXPECT_NEAR(byRadius->StartAngle(), kPi / 6, 1e-9);
  EXPECT_NEAR(byRadius->EndAngle(), kPi / 2, 1e-9);
}

TEST_F(Commands, ArcAlongTheTangentOfTheLastLine) {
  desk.script().type(L"0,0\r").type(L"10,0\r");
  ASSERT_NE(line(), nullptr);
  // Leaves (10, 0) eastward and ends at (20, 10): a quarter about (10, 10).
  desk.script().type(L"20,10\r");
  const CQdrDbArc* const made = arc(400);
  ASSERT_NE(made, nullptr);
  expectNear(made->Center(), 10, 10, 1e-6);
  EXPECT_NEAR(made->Radius(), 10, 1e-6);
}

TEST_F(Commands, ArcsGoOnFromTheEndThatWasDrawn) {
  desk.script().type(L"0,0\r").type(L"10,0\r");
  ASSERT_NE(line(), nullptr);
  // Eastward and down to (20, -10): clockwise about (10, -10), so stored with its ends exchanged.
  desk.script().type(L"20,-10\r");
  const CQdrDbArc* const first = arc(400);
  ASSERT_NE(first, nullptr);
  expectNear(first->Center(), 10, -10, 1e-6);
  expectNear(first->StartPoint(), 20, -10, 1e-6);
  EXPECT_EQ(desk.drawing->m_lastPoint, CQdrGePoint2d(20, -10));
  // Southward from there to (30, -20): counter-clockwise about (30, -10).
  desk.script().type(L"30,-20\r");
  const CQdrDbArc* const second = arc(400);
  ASSERT_NE(second, nullptr);
  expectNear(second->Center(), 30, -10, 1e-6);
  expectNear(second->EndPoint(), 30, -20, 1e-6);
}

TEST_F(Commands, ArcTakesTypedPointsExactly) {
  desk.script().type(L"10.125,0.003\r").type(L"0,10\r").click(20, 90);
  const CQdrDbArc* const made = arc();
  ASSERT_NE(made, nullptr);
  EXPECT_NEAR(made->Center().distanceTo(CQdrGePoint2d(10.125, 0.003)), made->Radius(), 1e-9);
}

TEST_F(Commands, AnAnswerWithoutAShapeLeavesThePlaceholder) {
  desk.script().type(L"5,5\r").type(L"25\r");
  const CQdrDbLine* const made = line();
  ASSERT_NE(made, nullptr);
  expectNear(made->EndPoint(), 6, 6);
  desk.script().type(L"5,5\r").type(L"WORD\r");
  const auto* const rect = entityAs<CQdrDbRect>(desk.run(QdrDb::eCommandRect));
  ASSERT_NE(rect, nullptr);
  expectNear(rect->RightBottom(), 6, 6);
}

TEST_F(Commands, TheEntityThatAnArcGoesOnFromMayBeDeleted) {
  desk.script().type(L"0,0\r").type(L"10,0\r");
  ASSERT_NE(line(), nullptr);
  desk.script()
      .move(50, 50)
      .call([this] { desk.drawing->m_blockTable.getCurrentRecord()->ClearEntity(); })
      .move(60, 50)
      .key(VK_ESCAPE);
  EXPECT_EQ(arc(400), nullptr);
  EXPECT_EQ(desk.handler().lastEntity(), nullptr);
}

TEST_F(Commands, CancelLeavesNoTrace) {
  desk.paint();
  const std::vector<qdr::Pixel> before = desk.pixels();
  const QdrDb::CommandID ids[] = {QdrDb::eCommandLine, QdrDb::eCommandCircle, QdrDb::eCommandRect};
  for (const QdrDb::CommandID id : ids) {
    desk.script().click(20, 20).move(50, 60).move(90, 30).key(VK_ESCAPE);
    EXPECT_EQ(desk.run(id), nullptr) << id;
    EXPECT_EQ(desk.pixels(), before) << "Esc, command " << id;
    desk.script().click(20, 20).move(50, 60).rclick();
    EXPECT_EQ(desk.run(id), nullptr) << id;
    EXPECT_EQ(desk.pixels(), before) << "right button, command " << id;
    desk.script().click(20, 20).move(50, 60).loseCapture();
    EXPECT_EQ(desk.run(id), nullptr) << id;
    EXPECT_EQ(desk.pixels(), before) << "lost capture, command " << id;
  }
  EXPECT_TRUE(desk.drawing->m_undoHandler.m_undoList.empty());
  EXPECT_EQ(desk.handler().depth(), 0);
}

TEST_F(Commands, RubberShapesLeaveTheDrawingAsItWas) {
  addFromText(*desk.drawing, "line 0 0 200 100");
  addFromText(*desk.drawing, "circle 100 50 30");
  desk.paint();
  const std::vector<qdr::Pixel> before = desk.pixels();
  std::vector<qdr::Pixel> during;
  desk.script()
      .click(20, 20)
      .move(150, 70)
      .call([&] { during = desk.pixels(); })
      .move(90, 10)
      .move(150, 70)
      .call([&] { EXPECT_EQ(desk.pixels(), during); })
      .key(VK_ESCAPE);
  desk.run(QdrDb::eCommandCircle);
  EXPECT_NE(during, before);
  EXPECT_EQ(desk.pixels(), before);
}

TEST_F(Commands, PaintEqualsAFreshlyLoadedDrawing) {
  desk.script().click(10, 90).click(60, 50).click(100, 50).click(130, 50);
  ASSERT_NE(line(), nullptr);
  ASSERT_NE(desk.run(QdrDb::eCommandCircle), nullptr);
  desk.paint();
  const std::vector<qdr::Pixel> drawn = desk.pixels();
  Desk other;
  addFromText(*other.drawing, "line 10 10 60 50");
  addFromText(*other.drawing, "circle 100 50 30");
  other.paint();
  EXPECT_EQ(drawn, other.pixels());
}

TEST_F(Commands, EraseIsOneStepThatUndoTakesBack) {
  CQdrDbEntity* const first = addFromText(*desk.drawing, "line 10 10 60 10");
  CQdrDbEntity* const second = addFromText(*desk.drawing, "circle 100 50 10");
  CQdrDbEntity* const kept = addFromText(*desk.drawing, "line 0 95 200 95");
  desk.paint();
  // A window to the right around both, then Enter.
  desk.script().click(5, 95).move(80, 30).click(120, 20).type(L"\r");
  desk.run(QdrDb::eCommandErase);
  EXPECT_TRUE(first->isErased());
  EXPECT_TRUE(second->isErased());
  EXPECT_FALSE(kept->isErased());
  EXPECT_TRUE(desk.drawing->m_undoHandler.Undo());
  EXPECT_FALSE(first->isErased() || second->isErased());
  EXPECT_TRUE(desk.drawing->m_undoHandler.Redo());
  EXPECT_TRUE(first->isErased() && second->isErased());
  EXPECT_FALSE(desk.drawing->m_undoHandler.Redo());
}

TEST_F(Commands, EraseTakesTheGripsAsItsSelection) {
  CQdrDbEntity* const entity = addFromText(*desk.drawing, "line 10 10 60 10");
  desk.handler().DoDragEntity(entity, CPoint(0, 0));
  desk.run(QdrDb::eCommandErase);
  EXPECT_TRUE(entity->isErased());
  EXPECT_TRUE(desk.handler().trackers().empty());
}

TEST_F(Commands, DrawingCommandsDropTheGripsAndUnknownIdsDoNothing) {
  CQdrDbEntity* const entity = addFromText(*desk.drawing, "line 10 10 60 10");
  desk.handler().DoDragEntity(entity, CPoint(0, 0));
  EXPECT_EQ(desk.run(static_cast<QdrDb::CommandID>(22)), nullptr);
  EXPECT_EQ(desk.handler().trackers().size(), 1u);
  EXPECT_EQ(desk.run(static_cast<QdrDb::CommandID>(21)), nullptr);
  EXPECT_TRUE(desk.handler().trackers().empty());
}

}  // namespace
