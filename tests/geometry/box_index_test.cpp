#include "geometry/box_index.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <random>
#include <utility>
#include <vector>

namespace {

using qdr::Box;
using qdr::BoxIndex;
using Names = std::vector<std::size_t>;

std::vector<Box> randomBoxes(std::mt19937& random, std::size_t count) {
  std::uniform_real_distribution<double> place(-100.0, 100.0);
  std::uniform_real_distribution<double> size(0.0, 12.0);
  std::vector<Box> boxes;
  for (std::size_t i = 0; i < count; ++i) {
    const double x = i % 10 == 9 ? 7.0 : place(random);  // some in one column
    const double y = place(random);
    boxes.push_back({x, y, x + size(random), y + (i % 13 == 0 ? 0.0 : size(random))});
    if (i % 17 == 4) boxes.back().maxX = std::nan("");
    if (i % 19 == 4) boxes.back().maxY = std::numeric_limits<double>::infinity();
  }
  return boxes;
}

/// Sides on a few whole numbers, far from the origin: most overlaps are of sides that just touch.
std::vector<Box> latticeBoxes(std::mt19937& random, std::size_t count) {
  std::uniform_int_distribution<int> place(0, 9);
  std::vector<Box> boxes;
  for (std::size_t i = 0; i < count; ++i) {
    const double x = 1e9 + place(random);
    const double y = -1e9 + place(random);
    boxes.push_back({x, y, x + place(random) / 3, y + place(random) / 3});
    if (i % 50 == 3) boxes.back() = {-1e300, y, 1e300, y};
    if (i % 70 == 3) boxes.back().maxY = std::numeric_limits<double>::infinity();
    if (i % 70 == 5) boxes.back().minX = -std::numeric_limits<double>::infinity();
  }
  return boxes;
}

Names overlapping(const BoxIndex& index, const Box& area) {
  Names names;
  index.forEachOverlap(area, [&](std::size_t i) {
    names.push_back(i);
    return true;
  });
  return names;
}

template <class Test>
Names plainWalk(const std::vector<Box>& boxes, const Test& test) {
  Names names;
  for (std::size_t i = 0; i < boxes.size(); ++i) {
    if (test(boxes[i])) names.push_back(i);
  }
  return names;
}

// Counts about every change of the number of levels.
const std::size_t kCounts[] = {0, 1, 7, 8, 9, 31, 32, 33, 63, 65, 256, 257, 513, 1024, 1025, 5000};

void expectPlainAnswers(const std::vector<Box>& boxes, const std::vector<Box>& areas) {
  const BoxIndex given(boxes, BoxIndex::Order::given);
  const BoxIndex hilbert(boxes, BoxIndex::Order::hilbert);
  ASSERT_EQ(given.size(), boxes.size());
  ASSERT_EQ(hilbert.size(), boxes.size());
  for (const Box& area : areas) {
    const Names expected = plainWalk(boxes, [&](const Box& b) { return b.overlaps(area); });
    EXPECT_EQ(overlapping(given, area), expected) << boxes.size();
    Names found = overlapping(hilbert, area);
    EXPECT_EQ(found, overlapping(BoxIndex(boxes, BoxIndex::Order::hilbert), area));
    std::sort(found.begin(), found.end());
    EXPECT_EQ(found, expected) << boxes.size();
    if (!area.overlaps(area)) continue;  // not a number
    const Names near =
        plainWalk(boxes, [&](const Box& b) { return b.overlaps(b) && b.distanceSqrd(area) < 1.0; });
    Names within;
    hilbert.forEachWithin(area, 1.0, [&](std::size_t i) {
      within.push_back(i);
      return true;
    });
    std::sort(within.begin(), within.end());
    EXPECT_EQ(within, near) << boxes.size();
  }
}

TEST(BoxIndex, AnswersAreThoseOfThePlainWalk) {
  for (const std::size_t count : kCounts) {
    std::mt19937 random(static_cast<unsigned>(count) + 1);
    expectPlainAnswers(randomBoxes(random, count), randomBoxes(random, 60));
    expectPlainAnswers(latticeBoxes(random, count), latticeBoxes(random, 60));
  }
}

TEST(BoxIndex, ReachIsEuclideanAndStrict) {
  const BoxIndex index({{0, 0, 1, 1}, {4, 5, 6, 6}, {4, 1, 6, 2}}, BoxIndex::Order::given);
  const auto within = [&](double reach) {
    Names names;
    index.forEachWithin({-1, -1, 1, 1}, reach, [&](std::size_t i) {
      names.push_back(i);
      return true;
    });
    return names;
  };
  EXPECT_EQ(within(3.0), (Names{0}));
  EXPECT_EQ(within(3.001), (Names{0, 2}));
  EXPECT_EQ(within(5.0), (Names{0, 2})) << "3 across and 4 up";
  EXPECT_EQ(within(5.001), (Names{0, 1, 2}));
}

TEST(BoxIndex, AVisitMayEndTheWalk) {
  const BoxIndex index(std::vector<Box>(100, Box{0, 0, 1, 1}), BoxIndex::Order::given);
  std::size_t visits = 0;
  EXPECT_FALSE(index.forEachOverlap({0, 0, 1, 1}, [&](std::size_t i) {
    ++visits;
    return i < 41;
  }));
  EXPECT_EQ(visits, 42u);
  EXPECT_TRUE(index.forEachOverlap({2, 2, 3, 3}, [](std::size_t) { return false; }));
}

TEST(BoxIndex, PairsComeInTheOrderOfTwoLoops) {
  for (const std::size_t count : kCounts) {
    std::mt19937 random(static_cast<unsigned>(count) + 7);
    const std::vector<Box> a = randomBoxes(random, count);
    const std::vector<Box> b = randomBoxes(random, 90);
    std::vector<std::pair<std::size_t, std::size_t>> found, expected;
    const auto overlap = [](const Box& p, const Box& q) { return p.overlaps(q); };
    qdr::forEachNearPair(BoxIndex(a, BoxIndex::Order::given), BoxIndex(b, BoxIndex::Order::given),
                         overlap, [&](std::size_t i, std::size_t j) {
                           found.emplace_back(i, j);
                           return true;
                         });
    for (std::size_t i = 0; i < a.size(); ++i) {
      for (const std::size_t j : plainWalk(b, [&](const Box& q) { return a[i].overlaps(q); }))
        expected.emplace_back(i, j);
    }
    EXPECT_EQ(found, expected) << count;
  }
}

TEST(BoxIndex, PairsOfOneIndexComeOnceEach) {
  for (const std::size_t count : {0u, 1u, 8u, 9u, 65u, 600u}) {
    std::mt19937 random(count);
    const std::vector<Box> boxes = randomBoxes(random, count);
    std::vector<std::pair<std::size_t, std::size_t>> found, expected;
    BoxIndex(boxes, BoxIndex::Order::given)
        .forEachOverlappingPair([&](std::size_t i, std::size_t j) { found.emplace_back(i, j); });
    std::sort(found.begin(), found.end());
    for (std::size_t i = 0; i < count; ++i) {
      for (std::size_t j = i + 1; j < count; ++j) {
        if (boxes[i].overlaps(boxes[j])) expected.emplace_back(i, j);
      }
    }
    EXPECT_EQ(found, expected) << count;
  }
}

TEST(BoxIndex, BoxesOfNoExtentAndFarAwayAreFound) {
  const double huge = std::numeric_limits<double>::max();
  const std::vector<Box> boxes = {{3, 3, 3, 3}, {3, 3, 3, 3}, {-huge, -huge, huge, huge}, Box()};
  const double inf = std::numeric_limits<double>::infinity();
  expectPlainAnswers(boxes,
                     {{3, 3, 3, 3}, {4, 3, 5, 3}, {-huge, 0, huge, 1}, {-inf, 0, inf, 1}, Box()});
  expectPlainAnswers({boxes[0], boxes[3]}, {{3, 3, 3, 3}, {4, 3, 5, 3}, {-huge, 0, huge, 9}});
}

}  // namespace
