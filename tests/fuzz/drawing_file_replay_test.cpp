#include <gtest/gtest.h>

#include <algorithm>

#include "fuzz/drawing_file_target.h"
#include "fuzz/drawing_view_target.h"
#include "tests/fuzz/corpus.h"

namespace {

std::vector<std::string> corpus() {
  return qdr_test::corpusOf("drawing_file");
}

TEST(DrawingFileReplay, SeedsAreSound) {
  const std::vector<std::string> seeds = corpus();
  ASSERT_GE(seeds.size(), 3u);
  for (const std::string& seed : seeds) {
    qdr::DrawingVisitor nobody;
    EXPECT_EQ(qdr::scanDrawing(qdr_fuzz::withFixedBlocks(seed), nobody).faults, 0u);
    qdr_fuzz::tryDrawing(seed);
  }
}

TEST(DrawingFileReplay, FilesCutAtEveryByte) {
  for (const std::string& seed : corpus()) {
    for (std::size_t size = 0; size < seed.size(); ++size) {
      qdr_fuzz::tryDrawing(std::string_view(seed).substr(0, size));
    }
  }
}

// Every place in turn holds the largest number of two or four bytes: counts, classes, numbers,
// texts without an end.
TEST(DrawingFileReplay, LargestNumbersAnywhere) {
  for (const std::string& seed : corpus()) {
    for (std::size_t at = 0; at + 4 <= seed.size(); at += 2) {
      std::string bytes = seed;
      const std::size_t width = at % 4 == 0 ? 4 : 2;
      std::fill_n(bytes.begin() + static_cast<std::ptrdiff_t>(at), width, static_cast<char>(0xFF));
      qdr_fuzz::tryDrawing(bytes);
    }
  }
}

TEST(DrawingFileReplay, RandomDamage) {
  const unsigned seedNumber = 20260131;
  SCOPED_TRACE(seedNumber);
  std::minstd_rand random(seedNumber);
  const std::vector<std::string> seeds = corpus();
  for (int round = 0; round < 2000; ++round) {
    qdr_fuzz::tryDrawing(qdr_test::damaged(seeds[random() % seeds.size()], random));
  }
}

TEST(DrawingViewReplay, SeedsAndDamagedOnes) {
  const unsigned seedNumber = 20260307;
  SCOPED_TRACE(seedNumber);
  std::minstd_rand random(seedNumber);
  const std::vector<std::string> seeds = corpus();
  for (const std::string& seed : seeds)
    qdr_fuzz::tryView(seed);
  for (int round = 0; round < 200; ++round)
    qdr_fuzz::tryView(qdr_test::damaged(seeds[random() % seeds.size()], random));
}

}  // namespace
