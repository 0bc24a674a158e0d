#include "geometry/entity2d.h"

#include "geometry/circ_arc2d.h"
#include "geometry/line2d.h"
#include "geometry/polyline2d.h"
#include "tests/geometry/geometry_support.h"

namespace {

using Entity = CQdrGeEntity2d;

TEST(Entity2d, AssignsOnlyWhatIsOfItsClass) {
  CQdrGeLine2d line = lineOf(0, 0, 1, 1);
  const CQdrGeCircArc2d arc({5, 5}, 3);
  Entity& target = line;
  target = static_cast<const Entity&>(arc);
  target = arc;
  EXPECT_TRUE(line == lineOf(0, 0, 1, 1)) << "a line takes no arc";
  EXPECT_TRUE(target.isKindOf(QdrGe::kLine));
  target = static_cast<const Entity&>(lineOf(2, 3, 4, 5));
  EXPECT_TRUE(line == lineOf(2, 3, 4, 5));
  target = target;
  EXPECT_TRUE(line == lineOf(2, 3, 4, 5));
}

TEST(Entity2d, TakesAnArcAsArcOrAsPolyline) {
  const CQdrGeCircArc2d half({5, 5}, 3, 0, 3.141592653589793);
  CQdrGeCircArc2d arc;
  CQdrGePolyline2d chain;
  static_cast<Entity&>(arc) = half;
  static_cast<Entity&>(chain) = half;
  EXPECT_TRUE(arc == half);
  ASSERT_EQ(chain.numVerts(), 2);
  EXPECT_NEAR(chain.getBulgeAt(0), 1, 1e-12);
}

TEST(Entity2d, ModesAreSeenFromEitherSide) {
  EXPECT_EQ(qdr::swappedMode(Entity::kExtendThis), Entity::kExtendArg);
  EXPECT_EQ(qdr::swappedMode(Entity::kExtendArg), Entity::kExtendThis);
  EXPECT_EQ(qdr::swappedMode(Entity::kExtendBoth), Entity::kExtendBoth);
  EXPECT_FALSE(qdr::isIntersectMode(static_cast<Entity::Intersect>(4)));
  EXPECT_FALSE(qdr::isIntersectMode(static_cast<Entity::Intersect>(-1)));
}

}  // namespace
