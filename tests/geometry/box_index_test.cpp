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
const std::size_t kCounts[] = {0, 1, 7, 8, 9, 63, 64, 65, 511, 513, 1500};

TEST(BoxIndex, AnswersAreThoseOfThePlainWalk) {
  for (const std::size_t count : kCounts) {
    std::mt19937 random(static_cast<unsigned>(count) + 1);
    const std::vector<Box> boxes = randomBoxes(random, count);
    const BoxIndex given(boxes, BoxIndex::Order::given);
    const BoxIndex hilbert(boxes, BoxIndex::Order::hilbert);
    ASSERT_EQ(given.size(), count);
    for (const Box& area : randomBoxes(random, 60)) {
      const Names expected = plainWalk(boxes, [&](const Box& b) { return b.overlaps(area); });
      EXPECT_EQ(overlapping(given, area), expected) << count;
      Names found = overlapping(hilbert, area);
      EXPECT_EQ(found, overlapping(BoxIndex(boxes, BoxIndex::Order::hilbert), area)) << count;
      std::sort(found.begin(), found.end());
      EXPECT_EQ(found, expected) << count;
    }
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

TEST(BoxIndex, BoxesOfNoExtentAndFarAwayAreFound) {
  const double huge = std::numeric_limits<double>::max();
  const std::vector<Box> boxes = {{3, 3, 3, 3}, {3, 3, 3, 3}, {-huge, -huge, huge, huge}, Box()};
  const BoxIndex index(boxes, BoxIndex::Order::hilbert);
  Names found = overlapping(index, {3, 3, 3, 3});
  std::sort(found.begin(), found.end());
  EXPECT_EQ(found, (Names{0, 1, 2}));
}

}  // namespace
