#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <iterator>

#include "tests/tools/program.h"

namespace {

using qdr_test::Answer;
using qdr_test::runQdr;

class Shape : public testing::Test {
 protected:
  void SetUp() override {
    folder = std::filesystem::temp_directory_path() / ("qdr_shape_" + std::to_string(getpid()));
    std::filesystem::create_directories(folder);
  }
  void TearDown() override { std::filesystem::remove_all(folder); }

  std::string path(const char* name) const { return (folder / name).string(); }
  static std::string bytesOf(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }

  std::filesystem::path folder;
};

TEST_F(Shape, AnswersAndExitCodes) {
  const std::string text = path("square.txt");
  std::ofstream(text) << "# a square\n0,0 10,0\n10,10 0,10 close\n";
  const std::string absent = path("absent.txt");
  struct Row {
    const char* name;
    std::string arguments;
    int exitCode;
    std::string out;
  };
  const Row rows[] = {
      {"left of a counter-clockwise square is inside", "offset @" + text + " -d 2 -s left", 0,
       "2,2 8,2 8,8 2,8 2,2\n"},
      {"right is outside", "offset '0,0 10,0 10,10' -d 1 -s right", 0, "0,-1 11,-1 11,10\n"},
      {"side by a place", "offset '0,0 10,0' -d 1 -s -3,-2", 0, "0,-1 10,-1\n"},
      {"both sides, the wanted one first", "offset '0,0 10,0' -d 1 -s 5,5 --both", 0,
       "0,1 10,1\n0,-1 10,-1\n"},
      // Radius 5 about (5, 0), upper half counter-clockwise from (10, 0): left is its inside.
      {"an arc stays one", "offset '10,0(1) 0,0' -d 2 -s left", 0, "8,0(1) 2,0\n"},
      // Radius 10 * 5 / 8 = 6.25 about (5, 3.75); the ends move by 1 in 6.25 toward it.
      {"left of an arc above a half turn", "offset '10,0(2) 0,0' -d 1 -s left", 0,
       "9.2,0.6(2) 0.8,0.6\n"},
      {"nothing remains", "offset @" + text + " -d 6 -s left", 1,
       "qdr: shape: nothing of the offset remains\n"},
      {"crossing", "cross '0,0 10,10' '0,10 10,0'", 0, "5,5\n"},
      {"no crossing short of the end", "cross '0,0 4,0' '5,-1 5,1'", 1,
       "qdr: shape: no crossing\n"},
      {"the first goes on", "cross '0,0 4,0' '5,-1 5,1' --extend first", 0, "5,0\n"},
      {"the second does not", "cross '0,0 4,0' '5,-1 5,1' --extend second", 1, "no crossing\n"},
      // A quarter circle of radius 4 over its chord, tan(pi / 8): 2 pi + sqrt(32) around it, and
      // pi 16 / 4 - 4 * 4 / 2 within.
      {"area counts arcs", "measure '4,0(0.41421356237309503) 0,4 close'", 0,
       "vertices: 2\nclosed: true\nlength: 11.9400395567\narea: 4.56637061436\n"
       "min: 0,0\nmax: 4,4\n"},
      {"a place inside", "measure @" + text + " --at 9,5", 0,
       "inside: true\nclosest: 10,5\ndistance: 1\nparameter: 0.375\n"},
      {"a negative first coordinate", "measure '-3,0 1,3'", 0, "length: 5\n"},
      {"no file", "measure @" + absent, 3, "qdr: " + absent + ": "},
      {"a picture that cannot be saved", "measure '0,0 1,0' -o " + path("no/such.svg"), 3,
       "such.svg: "},
      {"no kind of picture", "measure '0,0 1,0' -o plan.gif", 2, ".png or .svg"},
      {"negative distance", "offset '0,0 1,0' -d -1 -s left", 2, "the distance is out of range"},
      {"no number", "offset '0,0 1,0' -d nan -s left", 2, "the distance is out of range"},
      {"bad side", "offset '0,0 1,0' -d 1 -s up", 2, "side: line 1, column 1: expected the x"},
      {"no such verb", "shift '0,0 1,0'", 2, "A subcommand is required"},
  };
  for (const Row& row : rows) {
    const Answer answer = runQdr("shape " + row.arguments);
    EXPECT_EQ(answer.exitCode, row.exitCode) << row.name << "\n" << answer.out;
    EXPECT_NE(answer.out.find(row.out), std::string::npos) << row.name << "\n" << answer.out;
  }
}

TEST_F(Shape, TextFaultsTellTheirPlace) {
  struct Row {
    const char* text;
    const char* fault;
  };
  const Row rows[] = {
      {"", "line 1, column 1: a shape has at least two vertices"},
      {"1,1 close", "line 1, column 10: a shape has at least two vertices"},
      {"0,0 5", "line 1, column 6: expected ','"},
      {"0,0 5,", "line 1, column 7: expected the y coordinate"},
      {"0,0\n# 9,9\n  5;5", "line 3, column 4: expected ','"},
      {"0,0(0.5 1,1", "line 1, column 8: expected ')'"},
      {"0,0() 1,1", "line 1, column 5: expected the bulge"},
      {"0,0(1)1,1", "line 1, column 7: expected a space behind the vertex"},
      {"0,0 inf,1", "line 1, column 5: the x coordinate out of range"},
      {"0,0 1,1e13", "line 1, column 7: the y coordinate out of range"},
      {"0,0 1e999,1", "line 1, column 5: the x coordinate out of range"},
      {"0,0 1,1 close 2,2", "line 1, column 15: nothing may stand behind 'close'"},
  };
  for (const Row& row : rows) {
    const Answer answer = runQdr("shape measure -", std::string("printf '") + row.text + "' | ");
    EXPECT_EQ(answer.exitCode, 2) << row.text;
    EXPECT_EQ(answer.out, std::string("qdr: shape: ") + row.fault + "\n") << row.text;
  }
}

// Two combs of 2000 teeth cross in four million places, which do not fit beside the program.
TEST_F(Shape, RunsOutOfMemoryInOrder) {
#if defined(__SANITIZE_ADDRESS__)
  GTEST_SKIP() << "the sanitizer needs more address space than a limit leaves";
#endif
  for (const bool upright : {false, true}) {
    std::ofstream comb(path(upright ? "upright.txt" : "level.txt"));
    for (int i = 0; i < 4000; ++i) {
      const int along = (i + 1) / 2 % 2 * 2002 - 1;
      comb << (upright ? i / 2 : along) << ',' << (upright ? along : i / 2) << '\n';
    }
  }
  const Answer answer =
      runQdr("shape cross @" + path("level.txt") + " @" + path("upright.txt"), "ulimit -v 150000;");
  EXPECT_EQ(answer.exitCode, 4);
  EXPECT_EQ(answer.out, "qdr: memory ran out\n");
}

TEST_F(Shape, JsonKeepsAllDigits) {
  const Answer answer = runQdr("shape cross '0,0 3,0' '1,-1 1.0000000000000002,1' --json");
  EXPECT_EQ(answer.exitCode, 0);
  EXPECT_NE(answer.out.find("\"second\": 0.5"), std::string::npos) << answer.out;
  const Answer offset = runQdr("shape offset '0,0 9,0' -d 0.1234567890123456 -s left --json");
  EXPECT_NE(offset.out.find("\"direction\": \"left\""), std::string::npos) << offset.out;
  EXPECT_NE(offset.out.find("0.1234567890123456,"), std::string::npos) << offset.out;
}

TEST_F(Shape, Pictures) {
  const std::string png = path("a.png");
  const std::string svg = path("a.svg");
  EXPECT_EQ(runQdr("shape offset '0,0 30,0 30,10 0,10 close' -d 1 -s left -o " + png).exitCode, 0);
  // With margins of 6 % of 30 it is 33.6 by 13.6: 900 pixels by 13.6 / 33.6 * 900 = 364.3.
  const std::string bytes = bytesOf(png);
  EXPECT_EQ(bytes.substr(0, 8), "\x89PNG\r\n\x1a\n");
  EXPECT_EQ(bytes.substr(16, 8), std::string("\0\0\x03\x84\0\0\x01\x6c", 8));

  // An offset of which nothing remains still shows its shape.
  EXPECT_EQ(runQdr("shape offset '0,0 1,0 1,1 close' -d 5 -s left -o " + svg).exitCode, 1);
  EXPECT_NE(bytesOf(svg).find("#606060"), std::string::npos);
  EXPECT_EQ(bytesOf(svg).find("#d06020"), std::string::npos);

  // Shapes of no extent, far away, or with a side that is a hair get a page all the same.
  for (const char* shape : {"3,3 3,3", "1e12,1e12 1e12,1e12", "0,0 1e12,0", "0,0(1e12) 1,0"}) {
    const Answer answer = runQdr(std::string("shape measure '") + shape + "' -o " + png);
    EXPECT_EQ(answer.exitCode, 0) << shape << "\n" << answer.out;
  }
}

}  // namespace
