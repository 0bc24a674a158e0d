#pragma once

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <vector>

namespace qdr_test {

/// The seeds of a fuzz target, smallest file first.
inline std::vector<std::string> corpusOf(const std::string& target) {
  std::vector<std::string> seeds;
  const std::filesystem::path folder =
      std::filesystem::path(QDR_SOURCE_DIR) / "fuzz" / "corpus" / target;
  for (const auto& entry : std::filesystem::directory_iterator(folder)) {
    std::ifstream file(entry.path(), std::ios::binary);
    seeds.emplace_back(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
  }
  std::ranges::sort(seeds, {},
                    [](const std::string& seed) { return std::pair(seed.size(), seed); });
  return seeds;
}

/// Overwrites, takes out and repeats bytes in a few places.
inline std::string damaged(std::string bytes, std::minstd_rand& random) {
  for (std::size_t hits = 1 + random() % 6; hits > 0 && !bytes.empty(); --hits) {
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
  }
  return bytes;
}

}  // namespace qdr_test
