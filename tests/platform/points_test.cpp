#include "platform/points.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

struct Conversion {
  const char* name;
  double value;
  std::int32_t expected;
};

TEST(TruncToInt, IsTheOneConversion) {
  const Conversion rows[] = {
      {.name = "toward zero from below", .value = -1.9, .expected = -1},
      {.name = "toward zero from above", .value = 1.9, .expected = 1},
      {.name = "not a number", .value = std::nan(""), .expected = 0},
      {.name = "beyond the top", .value = 1e300, .expected = 2147483647},
      {.name = "beyond the bottom", .value = -3e9, .expected = -2147483647 - 1},
      {.name = "last below the top", .value = 2147483646.9, .expected = 2147483646},
      {.name = "infinite",
       .value = std::numeric_limits<double>::infinity(),
       .expected = 2147483647},
  };
  for (const Conversion& row : rows)
    EXPECT_EQ(qdr::truncToInt(row.value), row.expected) << row.name;
}

TEST(Rect, ContainsLeftAndTopButNotRightAndBottom) {
  const CRect rect(0, 0, 10, 5);
  EXPECT_TRUE(rect.PtInRect(CPoint(0, 0)));
  EXPECT_FALSE(rect.PtInRect(CPoint(10, 0)));
  EXPECT_FALSE(rect.PtInRect(CPoint(0, 5)));
  EXPECT_FALSE(CRect(10, 0, 0, 5).PtInRect(CPoint(5, 2)));
}

TEST(Rect, NormalizesAndHalvesInIntegers) {
  CRect rect(10, 7, 1, 2);
  EXPECT_TRUE(rect.IsRectEmpty());
  rect.NormalizeRect();
  EXPECT_EQ(rect, CRect(1, 2, 10, 7));
  EXPECT_EQ(rect.CenterPoint(), CPoint(5, 4));
  EXPECT_FALSE(rect.IsRectEmpty());
  EXPECT_TRUE(CRect(0, 0, 5, 0).IsRectEmpty());
}

}  // namespace
