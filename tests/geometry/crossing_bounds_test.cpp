// What keeps crossings, of which there may be as many as pairs of segments, from filling the
// memory.

#include <gtest/gtest.h>

#include "geometry/internal/chain_crossings.h"
#include "geometry/internal/offset_cuts.h"
#include "geometry/internal/part_judge.h"
#include "geometry/internal/raw_offset.h"
#include "geometry/polyline2d.h"
#include "geometry/tolerance.h"

namespace {

constexpr auto kNone = CQdrGeEntity2d::kExtendNone;

// `count` strokes up and down, or to and fro, one unit apart.
CQdrGePolyline2d comb(int count, bool upright) {
  CQdrGePolyline2d chain;
  for (int i = 0; i < count; ++i) {
    const double ends[] = {-1.0, 100.0};
    for (int k = 0; k < 2; ++k) {
      const double along = ends[(i + k) % 2];
      chain.appendVertex(upright ? CQdrGePoint2d(i, along) : CQdrGePoint2d(along, i + 0.5));
    }
  }
  return chain;
}

TEST(CrossingBounds, TheFirstHitsAreKept) {
  for (const int count : {5, 20}) {  // by the plain walk, and by the index
    const CQdrGePolyline2d chain = comb(count, true);
    const CQdrGePolyline2d other = comb(count, false);
    const auto all = qdr::hitsWith(chain, other, kNone, qdr::kCurveTolerance);
    EXPECT_EQ(all.size(), static_cast<std::size_t>(count * count));
    const auto some = qdr::hitsWith(chain, other, kNone, qdr::kCurveTolerance, 7);
    ASSERT_EQ(some.size(), 7u);
    for (std::size_t i = 0; i < some.size(); ++i) {
      EXPECT_EQ(some[i].segment, all[i].segment);
      EXPECT_EQ(some[i].point, all[i].point);
    }
  }
}

// All segments of the source run over one another, and so do those of both raw offsets with the
// half circles between them: each is met at its ends by all the others, but cut there once.
TEST(CrossingBounds, CutsOfSegmentsOverOneAnotherCountOnce) {
  const double distance = 3.0;
  qdr::VertexChain source;
  for (int i = 0; i < 200; ++i)
    source.add({i % 2 * 100.0, 0.0}, 0.0);
  const auto raw = qdr::rawOffset(source, {distance, 1, false});
  const auto other = qdr::rawOffset(source, {distance, -1, false});
  const qdr::OffsetClip clip{source.points, source.bulges, false, raw, other, distance};
  const qdr::OffsetCurve curve(raw);
  const qdr::PartJudge judge(clip, curve);
  const auto found = qdr::cutsOf(clip, curve, judge);
  EXPECT_FALSE(found.areTooMany);
  EXPECT_GT(found.cuts.size(), curve.size());
  EXPECT_LT(found.cuts.size(), 8 * curve.size());
  EXPECT_TRUE(qdr::cutsOf(clip, curve, judge, 10).areTooMany);
}

}  // namespace
