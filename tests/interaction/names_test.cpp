// Typed names of commands, prompts, names of classes, typed answers.

#include <gtest/gtest.h>

#include <string>

#include "interaction/command_names.h"
#include "interaction/object_name_handler.h"
#include "interaction/point_parser.h"
#include "interaction/prompt_handler.h"
#include "platform/headless/headless_platform.h"
#include "platform/headless/memory_files.h"

namespace {

class Names : public testing::Test {
 protected:
  Names() {
    m_platform.files = &m_files;
    m_installed = std::make_unique<qdr::ScopedPlatform>(m_platform.context());
  }

  qdr::MemoryFiles m_files;
  qdr::HeadlessPlatform m_platform;
  std::unique_ptr<qdr::ScopedPlatform> m_installed;
};

TEST_F(Names, CommandFile) {
  m_files.put(L"/d/QdrDb.cmd",
              "; comment\n"
              "\n"
              "7 Line \t L;behind the record\n"
              "8 line erase;\n"  // "line" keeps its first number
              "9 lost\n"         // without the closing ';' the record is empty
              "12;\n"            // a number without names
              "\t 5\tTab\tname;\n");
  qdr::CommandNames names;
  EXPECT_EQ(names.addFile(L"/d/QdrDb.cmd"), 5);
  struct Row {
    const wchar_t* typed;
    unsigned long number;
  };
  const Row rows[] = {{L"line", 7}, {L"LINE", 7}, {L"l", 7},    {L"Erase", 8}, {L"lost", 0},
                      {L"12", 0},   {L"tab", 5},  {L"NAME", 5}, {L"", 0},      {L"behind", 0}};
  for (const Row& row : rows)
    EXPECT_EQ(names.numberOf(row.typed), row.number) << CString(row.typed).text().c_str();
  EXPECT_EQ(qdr::CommandNames().addFile(L"/d/absent"), 0);
}

TEST_F(Names, PathOfTheCommandFileIsCutAtTheBuffer) {
  m_platform.system.module = L"/data/program";
  EXPECT_EQ(qdr::pathBesideHost(L"QdrDb.cmd"), L"/data/QdrDb.cmd");
  EXPECT_TRUE(qdr::pathBesideHostFits(L"QdrDb.cmd"));
  m_platform.system.module = L"/" + std::wstring(140, L'x') + L"/program";
  EXPECT_FALSE(qdr::pathBesideHostFits(L"QdrDb.cmd"));
  EXPECT_LE(qdr::pathBesideHost(L"QdrDb.cmd").GetLength(), 127);
}

TEST_F(Names, PromptRowsCountLinesThatAreNeitherEmptyNorComments) {
  m_files.put(L"/d/en.msg", "; comment\nfirst:;x\n\n;\nno end\nlast: ;\n");
  const CQdrPromptHandler prompts(L"/d/en.msg");
  ASSERT_EQ(prompts.promptCount(), 5);
  const wchar_t* expected[] = {L"", L"first:", L"", L"", L"last: "};
  for (int row = 0; row < 5; ++row)
    EXPECT_EQ(prompts.getPrompt(row), expected[row]) << row;
  EXPECT_THROW(prompts.getPrompt(5), CInvalidArgException);
  EXPECT_THROW(prompts.getPrompt(-1), CInvalidArgException);
}

TEST_F(Names, MissingMessageFileIsTold) {
  const CQdrPromptHandler prompts(L"/d/absent");
  EXPECT_EQ(prompts.promptCount(), 1);
  ASSERT_EQ(m_platform.ui.boxes().size(), 1u);
  EXPECT_EQ(m_platform.ui.boxes()[0].text, L"Loading message file fail.");
  EXPECT_EQ(CQdrPromptHandler(L"").promptCount(), 0);
}

TEST_F(Names, KindsOfPrompts) {
  const CQdrPromptHandler prompts(L"");
  struct Row {
    int first;
    int last;
    int kind;
  };
  const Row rows[] = {{1, 6, 3},   {7, 9, 1},   {10, 13, 3}, {14, 14, 1}, {15, 15, 4}, {16, 17, 0},
                      {18, 19, 3}, {20, 20, 0}, {21, 26, 3}, {27, 28, 1}, {29, 29, 2}, {30, 30, 3},
                      {31, 31, 0}, {32, 32, 4}, {33, 34, 1}, {35, 37, 0}, {38, 38, 3}, {39, 39, 1},
                      {40, 40, 0}, {41, 41, 1}, {42, 46, 0}, {47, 47, 2}, {48, 50, 0}, {51, 51, 2},
                      {52, 53, 0}, {54, 54, 2}, {55, 73, 0}};
  for (const Row& row : rows)
    for (int id = row.first; id <= row.last; ++id)
      EXPECT_EQ(prompts.getPromptKind(static_cast<QdrDb::PromptId>(id)), row.kind) << id;
}

TEST_F(Names, ClassNamesFollowTheClassNumbers) {
  CQdrObjectNameHandler names;
  EXPECT_EQ(names.getName(6), L"Line");
  EXPECT_EQ(names.getName(31), L"TextTable");
  EXPECT_EQ(names.getName(42), L"BlockTableRecord");
  EXPECT_EQ(names.getName(54), L"Not Selected");
  EXPECT_EQ(names.getPolyType(1), L"Composite");
  EXPECT_THROW(names.getName(55), CInvalidArgException);
  EXPECT_THROW(names.getPolyType(2), CInvalidArgException);
  EXPECT_EQ(names.LoadName(L"ignored"), 110);
  EXPECT_EQ(names.getName(6), L"Line");
}

TEST(PointParser, ReadsPointsThenPolarThenNumbers) {
  struct Row {
    const wchar_t* typed;
    qdr::InputResult code;
    double x;
    double y;
  };
  const CQdrGePoint2d start(1, 1);
  const Row rows[] = {
      {L"10,20", qdr::kInputPoint, 10, 20},
      {L"-1.5,2e1", qdr::kInputPoint, -1.5, 20},
      {L"5,", qdr::kInputPoint, 5, 0},
      {L"A,7", qdr::kInputPoint, 0, 7},
      {L"10<90", qdr::kInputPoint, 1, 11},  // from the start
      {L"0<90", qdr::kInputText, 0, 0},     // no distance, no point
      {L",5", qdr::kInputNumber, 0, 0},     // a comma in front does not count
      {L"<45", qdr::kInputNumber, 0, 0},
      {L"25", qdr::kInputNumber, 25, 0},
      {L"--3", qdr::kInputNumber, 0, 0},
      {L"1E3", qdr::kInputText, 0, 0},  // a letter makes it a text
      {L"HELLO", qdr::kInputText, 0, 0},
  };
  for (const Row& row : rows) {
    const qdr::TypedAnswer answer = qdr::parseTyped(row.typed, start);
    const std::string name = qdr::toUtf8(row.typed);
    EXPECT_EQ(answer.code, row.code) << name;
    const bool number = row.code == qdr::kInputNumber;
    EXPECT_NEAR(number ? answer.number : answer.point.x, row.x, 1e-12) << name;
    EXPECT_NEAR(answer.point.y, row.y, 1e-12) << name;
  }
}

}  // namespace
