// Selection by pick, window, crossing window, fence and polygon.

#include <gtest/gtest.h>

#include <set>
#include <string>

#include "interaction/trackers/selection_tracker.h"
#include "tests/support/desk.h"
#include "tests/support/entity_text.h"

namespace {

using qdr::test::addFromText;
using qdr::test::Desk;

class Selection : public testing::Test {
 protected:
  Selection() {
    m_entities['a'] = addFromText(*desk.drawing, "line 20 20 60 20");
    m_entities['b'] = addFromText(*desk.drawing, "line 20 40 160 40");
    m_entities['c'] = addFromText(*desk.drawing, "circle 100 70 10");
    m_entities['x'] = addFromText(*desk.drawing, "line 20 20 60 20");
    m_entities['x']->setInVisable();
    desk.paint();
  }

  // The letters of the entities that GetEntities brings together.
  std::string selected() {
    std::set<CQdrDbEntity*> entities;
    desk.handler().GetEntities(35, &entities);
    std::string letters;
    for (const auto& [letter, entity] : m_entities)
      if (entities.contains(entity)) letters += letter;
    return letters;
  }

  Desk desk;
  std::map<char, CQdrDbEntity*> m_entities;
};

TEST_F(Selection, ByEveryMode) {
  const std::vector<qdr::Pixel> before = desk.pixels();
  // Windows span world (10, 10) to (70, 50): pixels (10, 90) to (70, 50).
  const auto window = [this](int x1, int y1, int x2, int y2) {
    desk.script().click(x1, y1).move((x1 + x2) / 2, (y1 + y2) / 2).click(x2, y2);
  };
  struct Row {
    const char* name;
    std::function<void()> play;
    const char* expected;
  };
  const Row rows[] = {
      {"a pick", [&] { desk.script().click(40, 80); }, "a"},
      {"to the right takes what lies inside", [&] { window(10, 90, 70, 50); }, "a"},
      {"to the left takes what it crosses too", [&] { window(70, 50, 10, 90); }, "ab"},
      {"W to the left",
       [&] {
         desk.script().type(L"w");
         window(70, 50, 10, 90);
       },
       "a"},
      {"C to the right",
       [&] {
         desk.script().type(L"C");
         window(10, 90, 70, 50);
       },
       "ab"},
      {"a fence takes what it crosses",
       [&] {
         desk.script().type(L"f");
         window(40, 70, 100, 20);
       },
       "bc"},
      {"a polygon takes what lies inside, closed by C",
       [&] {
         desk.script().type(L"p").click(80, 10).click(130, 10).click(130, 50).click(80, 50);
         desk.script().type(L"c");
       },
       "c"},
      {"several together",
       [&] {
         desk.script().click(40, 80).click(110, 30);
         window(170, 55, 150, 70);
       },
       "abc"},
  };
  for (const Row& row : rows) {
    row.play();
    desk.script().type(L"\r");
    EXPECT_EQ(selected(), row.expected) << row.name;
    desk.paint();
    EXPECT_EQ(desk.pixels(), before) << row.name;
  }
  EXPECT_FALSE(desk.script().isExhaustedUnannounced());
}

TEST_F(Selection, EscEmptiesOnlyTheRunningWindow) {
  desk.script().click(40, 80).click(10, 90).move(70, 50).key(VK_ESCAPE);
  EXPECT_EQ(selected(), "a");
  desk.script().key(VK_ESCAPE);
  std::set<CQdrDbEntity*> none;
  EXPECT_EQ(desk.handler().GetEntities(35, &none), -1);
}

TEST_F(Selection, OrthoAndGridAreOffWhileItLives) {
  desk.drawing->m_vars.snapOrtho = 1;
  desk.drawing->m_vars.snapGrid = 1;
  {
    const CQdrDbSelectionTracker tracker(desk.handler().GetDispWindow(), desk.drawing.get(), L' ');
    EXPECT_EQ(desk.drawing->m_vars.snapOrtho, 0);
    EXPECT_EQ(desk.drawing->m_vars.snapGrid, 0);
  }
  EXPECT_EQ(desk.drawing->m_vars.snapOrtho, 1);
  EXPECT_EQ(desk.drawing->m_vars.snapGrid, 1);
}

TEST_F(Selection, ARequestToCancelDropsWhatWasHeld) {
  std::set<CQdrDbEntity*> entities;
  desk.script().click(40, 80).call([this] { desk.handler().RequestCancel(); }).move(1, 1);
  EXPECT_EQ(desk.handler().GetEntities(35, &entities), qdr::kInputCancel);
}

TEST_F(Selection, DeletedEntitiesLeaveWhatIsHeld) {
  std::set<CQdrDbEntity*> entities;
  desk.script()
      .click(40, 80)
      .call([this] { desk.drawing->m_blockTable.getCurrentRecord()->ClearEntity(); })
      .key(VK_RETURN);
  EXPECT_EQ(desk.handler().GetEntities(35, &entities), qdr::kInputLost);
  EXPECT_TRUE(entities.empty());
}

TEST_F(Selection, RubberWindowsLeaveThePixelsAlone) {
  const std::vector<qdr::Pixel> before = desk.pixels();
  desk.script().click(120, 20).move(150, 60).move(90, 90);
  desk.script().call([this] { desk.paint(); }).move(130, 10).key(VK_ESCAPE);
  selected();
  EXPECT_EQ(desk.pixels(), before);
}

}  // namespace
