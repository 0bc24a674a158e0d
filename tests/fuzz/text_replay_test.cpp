// The seeds of the targets that take text, whole, cut and damaged.

#include <gtest/gtest.h>

#include "fuzz/script_target.h"
#include "fuzz/shape_text_target.h"
#include "fuzz/text_files_target.h"
#include "tests/fuzz/corpus.h"

namespace {

constexpr unsigned kSeedNumber = 20260214;

// Every seed cut at each of so many places, and so many damaged ones.
template <class Target>
void replay(const std::string& name, std::size_t cuts, int rounds, Target&& target) {
  SCOPED_TRACE(kSeedNumber);
  std::minstd_rand random(kSeedNumber);
  const std::vector<std::string> seeds = qdr_test::corpusOf(name);
  ASSERT_GE(seeds.size(), 3u);
  for (const std::string& seed : seeds) {
    const std::size_t step = std::max<std::size_t>(seed.size() / cuts, 1);
    for (std::size_t size = 0; size <= seed.size(); size += step)
      target(std::string_view(seed).substr(0, size));
  }
  for (int round = 0; round < rounds; ++round)
    target(qdr_test::damaged(seeds[random() % seeds.size()], random));
}

TEST(ScriptReplay, SeedsPlayToTheirEnd) {
  for (const std::string& seed : qdr_test::corpusOf("script")) {
    const qdr::ScriptOutcome outcome = qdr_fuzz::tryScript(seed);
    EXPECT_TRUE(outcome) << "line " << outcome.line << ": " << qdr::toUtf8(outcome.reason) << "\n"
                         << seed;
  }
}

TEST(ScriptReplay, CutAndDamaged) {
  replay("script", 10, 100, qdr_fuzz::tryScript);
}

TEST(ShapeTextReplay, SeedsCutAndDamaged) {
  replay("shape_text", 100, 1000, qdr_fuzz::tryShapes);
}

TEST(TextFilesReplay, SeedsCutAndDamaged) {
  replay("text_files", 20, 100, qdr_fuzz::tryTextFiles);
}

}  // namespace
