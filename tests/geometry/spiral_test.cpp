#include "geometry/spiral.h"

#include <cmath>
#include <limits>
#include <string>
#include <vector>

#include "geometry/angle.h"
#include "tests/geometry/geometry_support.h"

namespace {

std::vector<double> radiiOf(const CQdrGeSpiral& spiral) {
  std::vector<double> radii;
  for (const CQdrGePoint2d& p : spiral.polyline().points()) {
    radii.push_back(p.distanceTo(spiral.center()));
  }
  return radii;
}

TEST(Spiral, RadiusGrowsByThePitchPerTurn) {
  struct Row {
    std::string name;
    int divNum;
    double maxRadius, minRadius, pitch, scale;
    std::vector<double> radii;
  };
  const std::vector<Row> rows = {
      {"from the center", 4, 5.5, 0, 4, 1, {0, 1, 2, 3, 4, 5}},
      {"from the minimum radius", 4, 5.5, 1.5, 4, 1, {2, 3, 4, 5}},
      // Pitch 2 in the first turn, then 3 and 4 by steps of (4 - 2) / 2, then 6 by (8 - 4) / 2:
      // at half turns 0.5 * 2, 1 * 2, 1.5 * 3, 2 * 4, 2.5 * 6.
      {"growing pitch", 2, 16, 0, 2, 2, {0, 1, 2, 4.5, 8, 15}},
      // Pitch 4, then 3 and 2: 1.5 * 3 = 4.5, then 2 * 2 = 4 is less and ends the walk.
      {"shrinking pitch", 2, 16, 0, 4, 0.5, {0, 2, 4, 4.5}},
      {"no pitch", 4, 5, 0, 0, 1, {0}},
      {"negative pitch", 4, 5, 0, -1, 1, {0}},
      {"no chords", 0, 5, 0, 1, 2, {0}},
      {"negative chords", -3, 5, 0, 1, 2, {0}},
      {"no pitch and a minimum radius", 4, 5, 1, 0, 1, {}},
      {"maximum below minimum", 4, 1, 2, 1, 1, {}},
      {"pitch that is no number", 4, 5, 0, std::nan(""), 1, {}},
  };
  for (const Row& row : rows) {
    const CQdrGePoint2d center(10, 20);
    const CQdrGeSpiral spiral(row.divNum, center, row.maxRadius, row.minRadius, row.pitch, 0.3,
                              row.scale);
    const std::vector<double> radii = radiiOf(spiral);
    ASSERT_EQ(radii.size(), row.radii.size()) << row.name;
    for (std::size_t i = 0; i < radii.size(); ++i) {
      EXPECT_NEAR(radii[i], row.radii[i], 1e-9) << row.name << ", vertex " << i;
      const double step = qdr::kTwoPi / row.divNum;
      const CQdrGeVector2d expected = CQdrGeVector2d(0.3 + double(i) * step) * row.radii[i];
      EXPECT_TRUE(row.divNum < 1 || isNear(spiral.polyline().points()[i], center + expected, 1e-9))
          << row.name << ", vertex " << i;
    }
  }
}

TEST(Spiral, SettersKeepTheirBoundsAndLeaveThePolyline) {
  CQdrGeSpiral spiral(8, {0, 0}, 10, 2, 1, 0);
  spiral.setMaxRadius(2);
  EXPECT_EQ(spiral.maxRadius(), 10);
  spiral.setMinRadius(10);
  EXPECT_EQ(spiral.minRadius(), 2);
  spiral.setOffsetDist(8);
  EXPECT_EQ(spiral.offsetDist(), 1);
  const double length = spiral.length();
  spiral.setMaxRadius(5);
  spiral.setMinRadius(1);
  spiral.setOffsetDist(3.9);
  spiral.setCenter({3, 3});
  spiral.setStartAngle(1);
  spiral.setDivNum(16);
  EXPECT_EQ(spiral.length(), length);
  spiral.setGePolyline();
  EXPECT_TRUE(spiral.isEqualTo(CQdrGeSpiral(16, {3, 3}, 5, 1, 3.9, 1), 1e-12));
  EXPECT_TRUE(spiral.polyline() == CQdrGeSpiral(16, {3, 3}, 5, 1, 3.9, 1).polyline());
}

TEST(Spiral, TransformsFieldsWithThePolyline) {
  CQdrGeSpiral spiral(8, {1, 0}, 10, 2, 1, 0.5);
  spiral.scaleBy(2, {0, 0}).rotateBy(0.25, {0, 0});
  EXPECT_TRUE(isNear(spiral.center(), CQdrGePoint2d(2 * std::cos(0.25), 2 * std::sin(0.25))));
  EXPECT_NEAR(spiral.maxRadius(), 20, 1e-9);
  EXPECT_NEAR(spiral.minRadius(), 4, 1e-9);
  EXPECT_NEAR(spiral.offsetDist(), 2, 1e-9);
  EXPECT_NEAR(spiral.startAng(), 0.75, 1e-9);
  CQdrGeSpiral built(spiral);
  built.setGePolyline();
  EXPECT_TRUE(spiral.polyline().isEqualTo(built.polyline(), 1e-9));

  CQdrGePolyline2d reversed = spiral.polyline();
  reversed.reverse();
  spiral.reverse();
  EXPECT_TRUE(spiral.polyline() == reversed);
  EXPECT_NEAR(spiral.maxRadius(), 20, 1e-9);
}

TEST(Spiral, StoredAs56BytesWithoutScaleAndPolyline) {
  const CQdrGeSpiral spiral(8, {1, 2}, 10, 2, 1, 0.5, 1.25);
  const std::string bytes = bytesOf(spiral);
  ASSERT_EQ(bytes.size(), 56u);
  EXPECT_EQ(bytes[32], 8);
  CQdrGeSpiral back;
  readBytes(back, bytes);
  EXPECT_EQ(back.scale(), 1);
  EXPECT_TRUE(back.polyline() == CQdrGeSpiral(8, {1, 2}, 10, 2, 1, 0.5).polyline());

  // What an owner stores before the first use stands: nothing is built that would take long.
  CQdrGeSpiral endless(spiral);
  endless.setMaxRadius(1e300);
  endless.setOffsetDist(1e-300);
  readBytes(back, bytesOf(endless));
  back.storeGePolyline(spiral.polyline());
  EXPECT_TRUE(back.polyline() == spiral.polyline());
}

}  // namespace
