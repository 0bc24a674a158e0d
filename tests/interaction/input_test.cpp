// The blocking inputs and the input line with its log.

#include <gtest/gtest.h>

#include "entities/line.h"
#include "interaction/command_id.h"
#include "tests/support/desk.h"
#include "tests/support/entity_text.h"

namespace {

using qdr::test::addFromText;
using qdr::test::Desk;

class Input : public testing::Test {
 protected:
  ~Input() override { EXPECT_FALSE(desk.script().isExhaustedUnannounced()); }

  void expectIdle() {
    EXPECT_EQ(desk.handler().depth(), 0);
    EXPECT_EQ(CWnd::GetCapture(), nullptr);
  }

  Desk desk;
  CQdrCommandHandler& handler = desk.handler();
};

TEST_F(Input, PicksAPointAndKeepsItAsTheLast) {
  desk.script().click(30, 40);
  CQdrGePoint2d point;
  EXPECT_EQ(handler.GetGePoint(3, point), qdr::kInputPick);
  EXPECT_EQ(point, CQdrGePoint2d(30, 60));
  EXPECT_EQ(desk.drawing->m_lastPoint, CQdrGePoint2d(30, 60));
  EXPECT_EQ(desk.status(), L"30.000000, 60.000000");
  expectIdle();
}

TEST_F(Input, TypedPointsAndUnusableLines) {
  struct Row {
    const char* name;
    const wchar_t* typed;
    CQdrGePoint2d expected;
  };
  const Row rows[] = {
      {"a point", L"12.5,-3\r", {12.5, -3}},
      {"blank ends as Enter does", L"1,2 ", {1, 2}},
      {"empty takes the last point", L"\r", {7, 8}},
      {"a single number is no point", L"25\r", {7, 8}},
      {"nothing behind the comma", L"25,\r", {7, 8}},
  };
  for (const Row& row : rows) {
    desk.drawing->m_lastPoint.set(7, 8);
    desk.script().type(row.typed);
    CQdrGePoint2d point;
    EXPECT_EQ(handler.GetGePoint(3, point), qdr::kInputPick) << row.name;
    EXPECT_EQ(point, row.expected) << row.name;
    EXPECT_EQ(desk.drawing->m_lastPoint, row.expected) << row.name;
  }
}

TEST_F(Input, KeywordsEndAtOnceInAnyCase) {
  desk.script().type(L"xc");
  CQdrGePoint2d point;
  wchar_t key = 0;
  EXPECT_EQ(handler.GetGePoint(21, point, L"CQ", key), qdr::kInputKeyword);
  EXPECT_EQ(key, L'C');
  EXPECT_EQ(desk.inputLine(), L"P21:xc");
}

TEST_F(Input, CancelsAndLosses) {
  CQdrGePoint2d point;
  desk.script().key(VK_ESCAPE);
  EXPECT_EQ(handler.GetGePoint(3, point), qdr::kInputCancel);
  desk.script().key(3);
  EXPECT_EQ(handler.GetGePoint(3, point), qdr::kInputCancel);
  desk.script().rclick();
  EXPECT_EQ(handler.GetGePoint(3, point), qdr::kInputCancel);
  desk.script().call([this] { handler.RequestCancel(); }).move(1, 1);
  EXPECT_EQ(handler.GetGePoint(3, point), qdr::kInputCancel);
  // A lost capture leaves the raw loop with its result as it stands.
  desk.script().loseCapture();
  EXPECT_EQ(handler.GetGePoint(3, point), qdr::kInputPick);
  desk.script().loseCapture();
  wchar_t key = 0;
  EXPECT_EQ(handler.GetKeyWord(47, L"YN", key), qdr::kInputCancel);
  expectIdle();
}

TEST_F(Input, MinimisedViewCancelsWithoutCapture) {
  desk.resize(0, 0);
  CQdrGePoint2d point;
  double value = 0.0;
  CString text;
  wchar_t key = 0;
  CQdrDbEntity* entity = nullptr;
  EXPECT_EQ(handler.GetGePoint(3, point), 0);
  EXPECT_EQ(handler.GetReal(7, 0, value), 0);
  EXPECT_EQ(handler.GetString(29, text), 0);
  EXPECT_EQ(handler.GetKeyWord(47, L"Y", key), 0);
  EXPECT_EQ(handler.GetEntity(35, entity, nullptr), 0);
  EXPECT_EQ(desk.script().delivered(), 0u);
}

TEST_F(Input, QuitUnwindsEveryInput) {
  desk.script().quit();
  desk.script().announceEnd();
  CQdrGePoint2d point;
  EXPECT_EQ(handler.GetGePoint(3, point), 0);
  EXPECT_TRUE(handler.isQuitting());
  CString text;
  EXPECT_EQ(handler.GetString(29, text), 0);
  unsigned long option = 0;
  EXPECT_EQ(handler.DoCommand(QdrDb::eCommandLine, option), nullptr);
  expectIdle();
}

TEST_F(Input, RealNumbers) {
  struct Row {
    const char* name;
    const wchar_t* typed;
    double expected;
  };
  const Row rows[] = {
      {"a number", L"2.5\r", 2.5},
      {"empty is 1", L"\r", 1.0},
      {"negative is 1", L"-4\r", 1.0},
      {"zero is 1", L"0\r", 1.0},
      {"backspace", L"12\b3\r", 13.0},
      {"blank ends it", L"7 ", 7.0},
      {"backspace on nothing", L"\b6\r", 6.0},
  };
  for (const Row& row : rows) {
    desk.script().type(row.typed);
    double value = 0.0;
    EXPECT_EQ(handler.GetReal(9, 0, value), qdr::kInputPick) << row.name;
    EXPECT_EQ(value, row.expected) << row.name;
  }
  desk.script().type(L"E");
  double value = 0.0;
  EXPECT_EQ(handler.GetReal(9, L'E', value), qdr::kInputKeyword);
}

TEST_F(Input, TextsEndAtABlankAndAtTheirRoom) {
  desk.script().type(L"plate 4");
  CString text;
  EXPECT_EQ(handler.GetString(29, text), qdr::kInputPick);
  EXPECT_EQ(text, L"plate");
  CString rest;
  desk.script().type(std::wstring(400, L'x') + L"\r");
  EXPECT_EQ(handler.GetString(29, rest), qdr::kInputPick);
  EXPECT_EQ(rest.GetLength(), 259);  // the 4 of before and 258 more: all there is room for
}

TEST_F(Input, KeywordAnswers) {
  wchar_t key = 0;
  desk.script().type(L"qy");
  EXPECT_EQ(handler.GetKeyWord(47, L"YN", key), qdr::kInputPick);
  EXPECT_EQ(key, L'Y');
  desk.script().type(L"\r");
  EXPECT_EQ(handler.GetKeyWord(47, L"YN", key), qdr::kInputCancel);
}

TEST_F(Input, DistancesAndAngles) {
  CQdrGePoint2d from(10, 10);
  desk.script().click(13, 86);  // world (13, 14)
  EXPECT_DOUBLE_EQ(handler.GetDistance(9, &from), 5.0);
  desk.script().type(L"7.5\r");
  EXPECT_DOUBLE_EQ(handler.GetDistance(9, &from), 7.5);
  desk.script().type(L"3M\r");  // a text counts by the number it begins with
  EXPECT_DOUBLE_EQ(handler.GetDistance(9, &from), 3.0);
  // A typed point is no answer to a distance.
  desk.script().type(L"1,2\r");
  EXPECT_DOUBLE_EQ(handler.GetDistance(9, &from), -1.0);
  desk.script().key(VK_ESCAPE);
  EXPECT_DOUBLE_EQ(handler.GetDistance(9, &from), -1.0);
  desk.script().type(L"90\r");
  EXPECT_DOUBLE_EQ(handler.GetAngle(7, &from), std::acos(0.0));
  desk.script().click(10, 80);  // straight up
  EXPECT_DOUBLE_EQ(handler.GetAngle(7, &from), std::acos(0.0));
  desk.script().key(VK_ESCAPE);
  EXPECT_DOUBLE_EQ(handler.GetAngle(7, nullptr), 0.0);
}

TEST_F(Input, PicksEntities) {
  CQdrDbEntity* const line = addFromText(*desk.drawing, "line 0 50 100 50");
  addFromText(*desk.drawing, "line 50 0 50 100");
  CQdrDbEntity* entity = nullptr;
  CQdrGePoint2d at;
  // Empty space first, then the crossing of both: the older one is found.
  desk.script().click(120, 20).click(50, 50);
  EXPECT_EQ(handler.GetEntity(35, entity, &at), qdr::kInputPick);
  EXPECT_EQ(entity, line);
  EXPECT_EQ(at, CQdrGePoint2d(50, 50));
  EXPECT_EQ(desk.drawing->m_lastEntity, line);
  desk.script().key('L');
  EXPECT_EQ(handler.GetEntity(35, entity, nullptr), qdr::kInputPick);
  EXPECT_EQ(entity, line);
  desk.script().type(L"\r");
  EXPECT_EQ(handler.GetEntity(35, entity, nullptr), qdr::kInputCancel);
}

TEST_F(Input, LogIsATranscriptWithItsErrors) {
  desk.script().type(L"5,6\r");
  CQdrGePoint2d point;
  handler.GetGePoint(3, point);
  EXPECT_EQ(desk.inputLine(), L"P3:5,6");
  EXPECT_TRUE(handler.setMsg());
  EXPECT_EQ(desk.log(), L"P3:5,6");
  desk.script().type(L"abc\r");
  handler.GetGePoint(4, point);
  EXPECT_FALSE(handler.setMsg());
  EXPECT_EQ(desk.log(), L"P3:5,6\nP4:abc\ninvalid");
  EXPECT_EQ(handler.currentPrompt(), 0);
  EXPECT_EQ(handler.getStrings(), CString(desk.log()));
}

TEST_F(Input, TypedCommandsAtIdle) {
  const auto type = [this](const wchar_t* text) {
    for (; *text; ++text)
      handler.GetDispWindow()->SendMessage(WM_CHAR, static_cast<WPARAM>(*text));
  };
  EXPECT_FALSE(handler.onKeyDown('A', 1, 0));
  EXPECT_TRUE(handler.onKeyDown(VK_RETURN, 1, 0));  // nothing to repeat yet
  type(L"CIRCLE");
  EXPECT_TRUE(handler.onKeyDown(VK_SPACE, 1, 0));
  EXPECT_TRUE(handler.onKeyDown(VK_RETURN, 1, 0));
  EXPECT_EQ(desk.commands(), (std::vector<unsigned>{40003, 40003}));
  type(L"nonsense");
  EXPECT_FALSE(handler.onKeyDown(VK_RETURN, 1, 0));
  EXPECT_EQ(desk.log(), L"unknown nonsense");  // in the place of the whole log
  type(L"li");
  handler.onKeyDown(VK_ESCAPE, 1, 0);
  EXPECT_EQ(desk.log(), L"unknown nonsense\nli Cancel");
  handler.onKeyDown(VK_ESCAPE, 1, 0);
  EXPECT_EQ(desk.log(), L"unknown nonsense\nli Cancel\nCancel");
}

TEST_F(Input, BlankStaysInTheLineOfAText) {
  handler.SetPrompt(29);
  EXPECT_TRUE(handler.onKeyDown(VK_SPACE, 1, 0));
  EXPECT_EQ(handler.currentPrompt(), 29);
}

}  // namespace
