#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>

#include "entities/line.h"
#include "tests/support/drawing_bytes.h"
#include "tests/tools/program.h"

namespace {

using qdr_test::Answer;

class Program : public testing::Test {
 protected:
  void SetUp() override {
    folder = std::filesystem::temp_directory_path() / ("qdr_tools_" + std::to_string(getpid()));
    std::filesystem::create_directories(folder);
    CQdrDbDatabase database(false);
    auto* line = new CQdrDbLine(&database);
    line->setStartPoint({-1.0, 2.0});
    line->setEndPoint({3.0, 8.0});
    CQdrDbObjectId id;
    database.addEntity(line, id);
    bytes = qdr_test::savedBytes(database);
  }
  void TearDown() override { std::filesystem::remove_all(folder); }

  std::string written(const char* name, const std::string& content) const {
    const std::filesystem::path path = folder / name;
    std::ofstream(path, std::ios::binary) << content;
    return path.string();
  }

  std::filesystem::path folder;
  std::string bytes;
};

TEST_F(Program, ExitCodes) {
  const std::string sound = written("sound.kov", bytes);
  const std::string cut = written("cut.kov", bytes.substr(0, bytes.size() - 8));
  const std::string tiny = written("tiny.kov", "no drawing");
  const std::string absent = (folder / "absent.kov").string();
  struct Row {
    std::string arguments;
    int exitCode;
    std::string says;
  };
  const Row rows[] = {
      {"check " + sound, 0, sound + ": sound, 19 records, 1 entities, 0 faults\n"},
      {"check " + cut, 1,
       "line " +
           std::to_string(qdr_test::numberAt<std::uint64_t>(bytes, qdr_test::kFirstEntity + 4)) +
           ": cut: the file ends inside end"},
      {"check " + tiny, 1, "header: cut"},
      {"check " + absent, 3, "qdr: " + absent + ": "},
      {"check", 2, "FILE"},
      {"", 2, "subcommand"},
      {"check --what " + sound, 2, "--what"},
      {"info " + sound, 0, "  line: 1\n"},
      {"info " + tiny, 1, "too short"},
      {"info " + absent, 3, "qdr: " + absent + ": "},
      {"--help", 0, "check"},
  };
  for (const Row& row : rows) {
    const Answer answer = qdr_test::runQdr(row.arguments);
    EXPECT_EQ(answer.exitCode, row.exitCode) << row.arguments << "\n" << answer.out;
    EXPECT_NE(answer.out.find(row.says), std::string::npos) << row.arguments << "\n" << answer.out;
  }
}

TEST_F(Program, JsonAnswers) {
  std::string broken = bytes;
  qdr_test::putNumber(broken, qdr_test::kFirstEntity + 17, std::uint64_t{1} << 50);
  const Answer check = qdr_test::runQdr("check --json " + written("broken.kov", broken));
  EXPECT_EQ(check.exitCode, 1);
  EXPECT_NE(check.out.find("\"kind\": \"missing reference\""), std::string::npos) << check.out;
  const std::string offset = std::to_string(qdr_test::kFirstEntity + 17);
  EXPECT_NE(check.out.find("\"offset\": " + offset), std::string::npos) << check.out;
  const Answer info = qdr_test::runQdr("info --json " + written("plan.kov", bytes));
  EXPECT_EQ(info.exitCode, 0);
  // The box of the line from (-1, 2) to (3, 8).
  const std::string box =
      "\"extents\": {\n    \"max\": [\n      3.0,\n      8.0\n    ],\n"
      "    \"min\": [\n      -1.0,\n      2.0\n    ]\n  }";
  EXPECT_NE(info.out.find(box), std::string::npos) << info.out;
}

}  // namespace
