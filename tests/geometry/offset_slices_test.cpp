#include "geometry/internal/offset_slices.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <random>
#include <string>
#include <vector>

#include "geometry/internal/curve_nearness.h"
#include "geometry/internal/part_judge.h"
#include "geometry/tolerance.h"

namespace {

using qdr::CurvePart;
using qdr::OffsetClip;
using qdr::OffsetCurve;
using qdr::PartJudge;
using qdr::TravelSegment;
using qdr::Vec;
using qdr::VertexChain;

/// A source with both of its raw offsets, as the clipping takes them.
struct RawOffsets {
  RawOffsets(const VertexChain& chain, double dist, bool isClosed)
      : source(chain), distance(dist), closed(isClosed) {
    const VertexChain merged = withoutNearVertices(source, &gaps);
    const qdr::OffsetRequest left{distance, 1, closed};
    const qdr::OffsetRequest right{distance, -1, closed};
    raw = rawOffset(preparedForOffset(merged, left, &gaps), left, &gaps);
    other = rawOffset(preparedForOffset(merged, right), right, &gaps);
  }

  OffsetClip clip(double widening = 0.0) const {
    return {source.points, source.bulges, closed, raw, other, distance, &gaps, widening};
  }

  VertexChain source;
  double distance;
  bool closed;
  VertexChain raw;
  VertexChain other;
  qdr::BorderGaps gaps;
};

/// Seeded chains of five kinds, every second one with arcs.
class ChainMaker {
 public:
  explicit ChainMaker(unsigned seed)
      : m_random(seed), m_kind(seed % 5), m_withArcs(seed % 2 == 0) {}

  VertexChain make() {
    VertexChain chain;
    const int count = 4 + static_cast<int>(between(0, 30));
    for (int i = 0; i < count; ++i)
      addVertex(i, count, chain);
    return chain;
  }

  double between(double low, double high) {
    return std::uniform_real_distribution<double>(low, high)(m_random);
  }

 private:
  void add(double x, double y, VertexChain& chain) {
    chain.add({x, y}, m_withArcs && between(0, 1) < 0.6 ? between(-1.2, 1.2) : 0.0);
  }

  void addVertex(int i, int count, VertexChain& chain) {
    const double angle = 2 * std::acos(-1.0) * i / count;
    const double radius = between(4, 12);
    if (m_kind == 0) add(radius * std::cos(angle), radius * std::sin(angle), chain);
    if (m_kind == 1) add(between(0, 15), between(0, 15), chain);
    if (m_kind == 2) add(0.7 * i, i % 2 == 0 ? 0.0 : between(1, 4), chain);
    if (m_kind == 3) add(std::floor(between(0, 6)), std::floor(between(0, 6)), chain);
    // Many teeth before one long back: more segments are near it than any list holds.
    if (m_kind == 4 && i == 0) add(-1, -1, chain);
    if (m_kind == 4) {
      for (int k = 0; k < 6; ++k)
        add(0.4 * (6 * i + k), k % 2 == 0 ? 0.0 : between(0.3, 1), chain);
      if (i == count - 1) add(0.4 * 6 * count, -1, chain);
    }
  }

  std::mt19937 m_random;
  unsigned m_kind;
  bool m_withArcs;
};

TEST(OffsetSlices, EveryPairLookedAtGivesTheSamePieces) {
  std::size_t pieces = 0;
  for (unsigned seed = 1; seed <= 600; ++seed) {
    ChainMaker maker(seed);
    const VertexChain chain = maker.make();
    const RawOffsets offsets(chain, maker.between(0.1, 2.5), seed % 3 != 0);
    const auto found = qdr::ClippedOffset(offsets.clip()).parts();
    const auto plain = qdr::ClippedOffset(offsets.clip(1e9)).parts();
    ASSERT_EQ(found.size(), plain.size()) << "seed " << seed;
    for (std::size_t k = 0; k < found.size(); ++k) {
      EXPECT_TRUE(std::equal(found[k].points.begin(), found[k].points.end(),
                             plain[k].points.begin(), plain[k].points.end(),
                             [](const Vec& a, const Vec& b) { return a.x == b.x && a.y == b.y; }))
          << "seed " << seed << " piece " << k;
      EXPECT_EQ(found[k].bulges, plain[k].bulges) << "seed " << seed << " piece " << k;
    }
    pieces += found.size();
  }
  EXPECT_GT(pieces, 1000u);
}

double distanceTo(const std::vector<TravelSegment>& source, const Vec& p) {
  double least = std::numeric_limits<double>::infinity();
  for (const TravelSegment& segment : source)
    least = std::min(least, distanceSqrdTo(segment, p));
  return std::sqrt(least);
}

/// The least distance of 41 samples of a part from the source, and the greatest.
std::pair<double, double> sampledDistances(const TravelSegment& part,
                                           const std::vector<TravelSegment>& source) {
  double least = std::numeric_limits<double>::infinity();
  double most = 0.0;
  for (int k = 0; k <= 40; ++k) {
    const double d = distanceTo(source, part.pointAt(k / 40.0));
    least = std::min(least, d);
    most = std::max(most, d);
  }
  return {least, most};
}

TEST(OffsetSlices, PartsAreJudgedAsTheirSamplesAre) {
  int clear = 0;
  int buried = 0;
  for (unsigned seed = 1; seed <= 60; ++seed) {
    ChainMaker maker(seed);
    const VertexChain chain = maker.make();
    const RawOffsets offsets(chain, maker.between(0.1, 2.5), true);
    const OffsetClip clip = offsets.clip();
    const OffsetCurve curve(offsets.raw);
    PartJudge judge(clip, curve);
    const auto source = qdr::segmentsOf(chain.points, chain.bulges, true);
    const double limit = offsets.distance - qdr::kJoinTolerance;
    for (std::size_t i = 0; i < curve.size(); ++i) {
      const double from = maker.between(0, 0.6);
      const double to = from + maker.between(0.05, 0.4);
      const CurvePart part{i, from, to, curve.segments[i].pointAt(from),
                           curve.segments[i].pointAt(to)};
      const TravelSegment segment = curve.segmentOf(part);
      const auto [least, most] = sampledDistances(segment, source);
      const std::string name = "seed " + std::to_string(seed) + " segment " + std::to_string(i);
      if (judge.isClear(part)) {
        ++clear;
        EXPECT_GE(least, limit - 1e-9) << name;
      } else {
        // A place too near is at most half a step away from a sample.
        EXPECT_LT(least, limit + segment.length() / 80 + 1e-9) << name;
      }
      if (!judge.isBuried(part)) continue;
      ++buried;
      EXPECT_LT(most, limit + 1e-9) << name;
    }
  }
  EXPECT_GT(clear, 200);
  EXPECT_GT(buried, 200);
}

}  // namespace
