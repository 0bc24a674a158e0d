#include "geometry/internal/curve_intersection.h"
#include "geometry/internal/curve_nearness.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>
#include <string>
#include <vector>

namespace {

using qdr::makeSegment;
using qdr::Meeting;
using qdr::TravelSegment;
using qdr::Vec;

TravelSegment segment(double x1, double y1, double x2, double y2, double bulge = 0) {
  return makeSegment({x1, y1}, {x2, y2}, bulge);
}

TEST(TravelSegments, ArcsKnowTheirDirection) {
  const TravelSegment below = segment(-2, 0, 2, 0, 1);
  const TravelSegment above = segment(-2, 0, 2, 0, -1);
  EXPECT_NEAR(below.pointAt(0.5).y, -2, 1e-12);
  EXPECT_NEAR(above.pointAt(0.5).y, 2, 1e-12);
  EXPECT_NEAR(above.paramOf({-std::sqrt(2.0), std::sqrt(2.0)}), 0.25, 1e-12);
  EXPECT_NEAR(above.paramOf({-std::sqrt(2.0), -std::sqrt(2.0)}), -0.25, 1e-12);
  EXPECT_NEAR(above.paramOf({std::sqrt(2.0), -std::sqrt(2.0)}), 1.25, 1e-12);
  EXPECT_NEAR(above.bulgeTo({-2, 0}, {0, 2}), -std::tan(std::acos(-1.0) / 8), 1e-12);
  EXPECT_NEAR(below.bulgeTo({-2, 0}, {0, 2}), std::tan(3 * std::acos(-1.0) / 8), 1e-12);
  const auto [first, second] = above.halves();
  EXPECT_NEAR(first.bulge, -std::tan(std::acos(-1.0) / 8), 1e-12);
  EXPECT_NEAR(first.end.y, 2, 1e-12);
  EXPECT_EQ(second.start.y, first.end.y);
  EXPECT_NEAR(segment(-2, 0, 0, 0, std::tan(3 * std::acos(-1.0) / 8)).middle().y,
              -1 - std::sqrt(2.0), 1e-12)
      << "three quarters about (-1, -1), the middle opposite to the chord";
  EXPECT_EQ(above.box().maxY, 2);
  EXPECT_EQ(above.box().minY, 0);
}

TEST(CurveIntersection, MeetingsByHand) {
  struct Row {
    const char* name;
    TravelSegment a;
    TravelSegment b;
    std::vector<Vec> expected;
  };
  const TravelSegment half = segment(-2, 0, 2, 0, 1);  // lower half of radius 2
  const std::vector<Row> rows = {
      {"lines", segment(0, 0, 4, 4), segment(0, 4, 4, 0), {{2, 2}}},
      {"lines that stop short", segment(0, 0, 1.9, 1.9), segment(0, 4, 4, 0), {}},
      {"lines that end on each other", segment(0, 0, 2, 2), segment(0, 4, 4, 0), {{2, 2}}},
      {"lines along each other", segment(0, 0, 4, 0), segment(1, 0, 5, 0), {}},
      {"line through an arc",
       segment(-3, -1, 3, -1),
       half,
       {{-std::sqrt(3.0), -1}, {std::sqrt(3.0), -1}}},
      {"line across the open half", segment(-3, 1, 3, 1), half, {}},
      {"line that touches", segment(-3, -2, 3, -2), half, {{0, -2}}},
      {"line that touches but for rounding", segment(-3, -2 - 5e-8, 3, -2 - 5e-8), half, {{0, -2}}},
      {"line just beside", segment(-3, -2 - 5e-7, 3, -2 - 5e-7), half, {}},
      {"arcs, an end among them", half, segment(0, -2, 4, -2, -1), {{2, 0}, {0, -2}}},
      {"arcs that touch from outside", half, segment(-2, -4, 2, -4, -1), {{0, -2}}},
      {"arcs of one circle", half, segment(-2, 0, 0, -2, std::tan(std::acos(-1.0) / 8)), {}},
  };
  for (const Row& row : rows) {
    const Meeting meeting = meetSegments(row.a, row.b);
    ASSERT_EQ(meeting.count, static_cast<int>(row.expected.size())) << row.name;
    for (int k = 0; k < meeting.count; ++k) {
      EXPECT_NEAR(meeting.points[k].x, row.expected[k].x, 1e-6) << row.name;
      EXPECT_NEAR(meeting.points[k].y, row.expected[k].y, 1e-6) << row.name;
    }
  }
}

TEST(CurveIntersection, NeighboursMeetWhereTheirVertexIsMirrored) {
  // The line leaves the half circle at (2, 0) and crosses it again at (0, -2).
  const TravelSegment half = segment(-2, 0, 2, 0, 1);
  const Meeting chord = meetNeighbours(half, segment(2, 0, -1, -3), {2, 0});
  ASSERT_EQ(chord.count, 1);
  EXPECT_NEAR(chord.points[0].x, 0, 1e-12);
  EXPECT_NEAR(chord.points[0].y, -2, 1e-12);
  EXPECT_EQ(meetNeighbours(half, segment(2, 0, 5, -3), {2, 0}).count, 0);
}

std::vector<TravelSegment> randomSegments(unsigned seed, std::size_t count) {
  std::mt19937 random(seed);
  std::uniform_real_distribution<double> place(-20, 20);
  std::uniform_real_distribution<double> step(-4, 4);
  std::vector<TravelSegment> segments;
  for (std::size_t i = 0; i < count; ++i) {
    const Vec start(place(random), place(random));
    const double bulge = i % 3 == 0 ? 0.0 : step(random);
    segments.push_back(makeSegment(start, start + Vec(step(random), step(random)), bulge));
  }
  return segments;
}

TEST(CurveIntersection, NearestPlaceIsNearerThanAnySample) {
  const std::vector<TravelSegment> segments = randomSegments(5, 120);
  for (std::size_t i = 0; i + 1 < segments.size(); ++i) {
    const TravelSegment& a = segments[i];
    const TravelSegment& b = segments[i + 1];
    const qdr::NearPlace nearest = nearestPlace(a, b);
    double sampled = std::numeric_limits<double>::infinity();
    for (int k = 0; k <= 200; ++k)
      for (int m = 0; m <= 200; ++m)
        sampled = std::min(sampled, qdr::distanceSqrd(a.pointAt(k / 200.0), b.pointAt(m / 200.0)));
    const double found = std::sqrt(nearest.distanceSqrd);
    EXPECT_LE(found, std::sqrt(sampled) + 1e-9) << i;
    // Samples lie at most half a step of either curve away from any place of it.
    EXPECT_GE(found, std::sqrt(sampled) - (a.length() + b.length()) / 400) << i;
    EXPECT_NEAR(std::sqrt(qdr::distanceSqrdTo(b, nearest.place)), found, 1e-6) << i;
    const double least = std::sqrt(nearest.distanceSqrd);
    EXPECT_TRUE(isNearer(a, b, least + 1e-6)) << i;
    EXPECT_FALSE(isNearer(a, b, least * (1 - 1e-9))) << i;
  }
}

TEST(CurveIntersection, AnArcAboutTheEndOfAnotherKeepsItsRadius) {
  // A rounding arc about a vertex: no common normal leads out of its centre.
  const TravelSegment above = segment(2, 0, -2, 0, 1);
  const TravelSegment down = segment(0, 0, 0, -9);
  EXPECT_NEAR(nearestPlace(above, down).distanceSqrd, 4, 1e-12);
  EXPECT_FALSE(isNearer(above, down, 1.999));
  EXPECT_TRUE(isNearer(above, down, 2.001));
  EXPECT_NEAR(nearestPlace(above, segment(0, 0, 0, 0.5)).distanceSqrd, 2.25, 1e-12);
  EXPECT_EQ(nearestPlace(above, segment(0, 0, 0, 9)).distanceSqrd, 0);
}

TEST(CurveIntersection, AllMeetingsAreThoseOfTwoLoopsInTheirOrder) {
  for (unsigned seed = 1; seed <= 20; ++seed) {
    const std::vector<TravelSegment> segments = randomSegments(seed, 60 + 5 * seed);
    const auto found = allMeetings(segments);
    std::size_t next = 0;
    for (std::uint32_t i = 0; i < segments.size(); ++i) {
      for (std::uint32_t j = i + 1; j < segments.size(); ++j) {
        const Meeting expected = meetSegments(segments[i], segments[j]);
        if (expected.count == 0) continue;
        ASSERT_LT(next, found.size()) << seed;
        ASSERT_EQ(found[next].first, i) << seed;
        ASSERT_EQ(found[next].second, j) << seed;
        ASSERT_EQ(found[next].meeting.count, expected.count) << seed;
        EXPECT_EQ(found[next].meeting.points[0].x, expected.points[0].x) << seed;
        ++next;
      }
    }
    EXPECT_EQ(next, found.size()) << seed;
    EXPECT_GT(next, 20u) << seed;
  }
}

}  // namespace
