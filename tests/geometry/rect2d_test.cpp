#include "geometry/rect2d.h"

#include <cmath>
#include <string>
#include <vector>

#include "geometry/angle.h"
#include "geometry/circ_arc2d.h"
#include "geometry/ellip_arc2d.h"
#include "tests/geometry/geometry_support.h"

namespace {

using Points = std::vector<CQdrGePoint2d>;

void expectCorners(const CQdrGeRect2d& rect, const Points& expected, const std::string& name) {
  Points corners;
  rect.getVertex(corners);
  ASSERT_EQ(corners.size(), 4u);
  for (std::size_t i = 0; i < 4; ++i) {
    EXPECT_TRUE(isNear(corners[i], expected[i], 1e-6)) << name << ", corner " << i;
  }
  EXPECT_TRUE(isNear(rect.getDiagonPoint(), expected[2], 1e-6)) << name;
}

TEST(Rect2d, CornersRunFromTheBasePointAlongTheWidth) {
  struct Row {
    std::string name;
    CQdrGeRect2d rect;
    Points corners;
  };
  const std::vector<Row> rows = {
      {"upright", {{1, 1}, 4, 2, 0}, {{1, 1}, {5, 1}, {5, 3}, {1, 3}}},
      {"diagonal is (width, height)", {{1, 1}, {4, 2}, 0}, {{1, 1}, {5, 1}, {5, 3}, {1, 3}}},
      {"turned about the base", {{1, 1}, 4, 2, qdr::kHalfPi}, {{1, 1}, {1, 5}, {-1, 5}, {-1, 1}}},
      {"negative width", {{1, 1}, -4, 2, 0}, {{1, 1}, {-3, 1}, {-3, 3}, {1, 3}}},
  };
  for (const Row& row : rows)
    expectCorners(row.rect, row.corners, row.name);
}

TEST(Rect2d, SettersKeepTheDiagonalPointInStep) {
  CQdrGeRect2d rect({1, 1}, 4, 2, 0);
  rect.setRotation(qdr::kHalfPi);
  rect.setRotation(qdr::kHalfPi);  // the second time changes nothing
  expectCorners(rect, {{1, 1}, {1, 5}, {-1, 5}, {-1, 1}}, "rotation");
  rect.setBasePoint({11, 1});
  expectCorners(rect, {{11, 1}, {11, 5}, {9, 5}, {9, 1}}, "base");
  rect.setWidth(6);
  rect.setHeight(3);
  expectCorners(rect, {{11, 1}, {11, 7}, {8, 7}, {8, 1}}, "size");
  EXPECT_TRUE(isNear(rect.centerPoint(), CQdrGePoint2d(9.5, 4)));
  rect.setDiagonPoint({13, 5});
  EXPECT_NEAR(rect.width(), 4, 1e-9);
  EXPECT_NEAR(rect.height(), -2, 1e-9);
  EXPECT_TRUE(isNear(rect.diagonal(), CQdrGeVector2d(4, -2)));
}

TEST(Rect2d, TransformsKeepItARectangle) {
  CQdrGeRect2d rect({1, 1}, 4, 2, 0);
  rect.mirror(lineOf(0, 0, 0, 1));
  expectCorners(rect, {{-1, 1}, {-5, 1}, {-5, 3}, {-1, 3}}, "mirror");
  rect.scaleBy(2, 3, {0, 0});
  expectCorners(rect, {{-2, 3}, {-10, 3}, {-10, 9}, {-2, 9}}, "uneven scale");
  rect = CQdrGeRect2d({1, 1}, 4, 2, 0);
  rect.rotateBy(qdr::kHalfPi, {0, 0}).translateBy({1, 0});
  expectCorners(rect, {{0, 1}, {0, 5}, {-2, 5}, {-2, 1}}, "turn and move");
  rect.transformBy(CQdrGeMatrix2d::slant(0.5, {0, 0}, {1, 0}));
  EXPECT_NEAR(std::cos(rect.rotation()), std::sin(0.5), 1e-9);  // the width side is followed
}

TEST(Rect2d, MeasuresAlongItsBoundary) {
  CQdrGeRect2d rect({1, 1}, 4, 2, 0);
  EXPECT_NEAR(rect.length(), 12, 1e-9);
  EXPECT_TRUE(isNear(rect.pointAtParam(0.5), CQdrGePoint2d(5, 3)));
  EXPECT_TRUE(isNear(rect.pointAtDist(5), CQdrGePoint2d(5, 2)));
  EXPECT_NEAR(rect.paramAtPoint({1, 2}, 0.001), 11.0 / 12, 1e-9);
  EXPECT_NEAR(rect.distanceTo(CQdrGePoint2d(3, 1.5), 0), 0.5, 1e-9);
  EXPECT_TRUE(rect.isInsidePoint({3, 2}));
  EXPECT_FALSE(rect.isInsidePoint({6, 2}));
  EXPECT_EQ(rect.curvatureAtParam(0.3), 0);
  int count = 0;
  Points hits;
  EXPECT_TRUE(
      rect.intersectWith(lineOf(0, 2, 9, 2), count, hits, CQdrGeEntity2d::kExtendNone, 0.001));
  EXPECT_EQ(count, 2);
  hits.clear();
  EXPECT_TRUE(rect.intersectWith(CQdrGeCircArc2d({3, 3}, 1), count, hits,
                                 CQdrGeEntity2d::kExtendNone, 0.001));
  EXPECT_EQ(count, 2);
  hits.clear();
  EXPECT_TRUE(rect.intersectWith(CQdrGeEllipArc2d(CQdrGeCircArc2d({5, 3}, 1)), count, hits,
                                 CQdrGeEntity2d::kExtendNone, 0.001));
  EXPECT_EQ(count, 2);
}

TEST(Rect2d, OffsetMovesEverySide) {
  struct Row {
    std::string name;
    CQdrGeRect2d rect;
    CQdrGePoint2d side;
    double dist;
    bool done;
    Points corners;
  };
  const std::vector<Row> rows = {
      {"outward", {{1, 1}, 4, 2, 0}, {9, 2}, 1, true, {{0, 0}, {6, 0}, {6, 4}, {0, 4}}},
      {"outward beyond a corner",
       {{1, 1}, 4, 2, 0},
       {6, 0.5},
       1,
       true,
       {{0, 0}, {6, 0}, {6, 4}, {0, 4}}},
      {"inward",
       {{1, 1}, 4, 2, 0},
       {3, 1.4},
       0.5,
       true,
       {{1.5, 1.5}, {4.5, 1.5}, {4.5, 2.5}, {1.5, 2.5}}},
      {"inward beyond the middle",
       {{1, 1}, 4, 2, 0},
       {3, 1.4},
       1.5,
       false,
       {{1, 1}, {5, 1}, {5, 3}, {1, 3}}},
      {"negative width", {{5, 1}, -4, 2, 0}, {9, 2}, 1, true, {{6, 0}, {0, 0}, {0, 4}, {6, 4}}},
      {"turned", {{1, 1}, 4, 2, qdr::kHalfPi}, {9, 2}, 1, true, {{2, 0}, {2, 6}, {-2, 6}, {-2, 0}}},
  };
  for (Row row : rows) {
    EXPECT_EQ(row.rect.offset(row.side, row.dist), row.done) << row.name;
    expectCorners(row.rect, row.corners, row.name);
  }
}

TEST(Rect2d, StoredAs44Bytes) {
  const CQdrGeRect2d rect({1, 2}, 4, 3, 0.25);
  const std::string bytes = bytesOf(rect);
  EXPECT_EQ(bytes.size(), 44u);
  CQdrGeRect2d back;
  readBytes(back, bytes);
  EXPECT_TRUE(back.isEqualTo(rect, 0));
  EXPECT_TRUE(isNear(back.getDiagonPoint(), rect.getDiagonPoint()));
}

}  // namespace
