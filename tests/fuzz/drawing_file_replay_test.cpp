#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>

#include "fuzz/drawing_file_target.h"

namespace {

// The seed corpus, smallest file first.
std::vector<std::string> corpus() {
  std::vector<std::string> seeds;
  const std::filesystem::path folder =
      std::filesystem::path(QDR_SOURCE_DIR) / "fuzz" / "corpus" / "drawing_file";
  for (const auto& entry : std::filesystem::directory_iterator(folder)) {
    std::ifstream file(entry.path(), std::ios::binary);
    seeds.emplace_back(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
  }
  std::ranges::sort(seeds, {}, &std::string::size);
  return seeds;
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
    std::string bytes = seeds[random() % seeds.size()];
    for (std::size_t hits = 1 + random() % 6; hits > 0; --hits) {
      const std::size_t at = random() % bytes.size();
      switch (random() % 4) {
        case 0:
          bytes[at] = static_cast<char>(random());
          break;
        case 1:
          bytes.erase(at, 1 + random() % 64);
          break;
        case 2:
          bytes.insert(at, bytes.substr(random() % bytes.size(), 1 + random() % 400));
          break;
        default:
          bytes[at] = static_cast<char>(random() % 32);
          break;
      }
      if (bytes.empty()) break;
    }
    qdr_fuzz::tryDrawing(bytes);
  }
}

}  // namespace
