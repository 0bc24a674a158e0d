#include "database/sym_point.h"

#include <gtest/gtest.h>

#include <string>

#include "entities/rect.h"
#include "platform/headless/memory_file.h"

namespace {

using namespace std::string_literals;

TEST(SymPoint, StartsAtTheOriginWithThePenDown) {
  CQdrDbSymPoint point;
  EXPECT_TRUE(point.GetPenMode());
  EXPECT_EQ(point.GetPoint(), CQdrGePoint2d::kOrigin);
  point.Set(CQdrGePoint2d(3.0, 4.0), 0);
  EXPECT_FALSE(point.GetPenMode());
  CQdrDbRect box = point.GetOutRect();
  EXPECT_EQ(box.LeftTop(), CQdrGePoint2d(3.0, 4.0));
  EXPECT_EQ(box.RightBottom(), CQdrGePoint2d(3.0, 4.0));
}

TEST(SymPoint, FillsTwentyOneBytes) {
  CQdrDbSymPoint point(CQdrGePoint2d(1.0, -2.0), -1);
  point.tag = 5;
  qdr::MemoryFile out;
  point.save(&out);
  ASSERT_TRUE(out.Close());
  const std::string expected = "\0\0\0\0\0\0\xf0\x3f"s + "\0\0\0\0\0\0\0\xc0"s + "\x05\0\0\0\xff"s;
  EXPECT_EQ(out.bytes(), expected);
  CQdrDbSymPoint read(CQdrGePoint2d(), 0);
  qdr::MemoryFile in(expected);
  read.read(&in);
  EXPECT_EQ(read.x, 1.0);
  EXPECT_EQ(read.y, -2.0);
  EXPECT_EQ(read.tag, 5);
  EXPECT_TRUE(read.GetPenMode());
}

}  // namespace
