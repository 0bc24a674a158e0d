#include <algorithm>
#include <cmath>
#include <functional>
#include <vector>

#include "geometry/angle.h"
#include "geometry/circ_arc2d.h"
#include "geometry/line2d.h"
#include "tests/geometry/geometry_support.h"

// Crossings of random lines and arcs against a walk along one of them that looks for the places
// where it changes sides of the other.

namespace {

constexpr double kTol = qdr::kCurveTolerance;
constexpr int kSteps = 2000;
constexpr int kPairs = 1500;
// Hits this near to an end, or touches this flat, may count or not: such a pair is left out.
constexpr double kDoubtful = 1e-3;
// No walk comes nearer than this without crossing, unless two crossings lie within one step.
constexpr double kTouch = 1e-5;

// What the walk asks of a curve: which side a point is on, and whether a point of its unbounded
// form lies within its ends, by plain arithmetic of its own.
struct Bounded {
  std::function<CQdrGePoint2d(double)> at;
  std::function<double(const CQdrGePoint2d&)> side;
  std::function<double(const CQdrGePoint2d&)> marginAtEnds;  // above 0 within the ends
};

Bounded bounded(const CQdrGeLine2d& line) {
  const CQdrGePoint2d a = line.startPoint(), b = line.endPoint();
  const double length = std::hypot(b.x - a.x, b.y - a.y);
  const double ux = (b.x - a.x) / length, uy = (b.y - a.y) / length;
  return {[=](double t) { return CQdrGePoint2d(a.x + (b.x - a.x) * t, a.y + (b.y - a.y) * t); },
          [=](const CQdrGePoint2d& p) { return ux * (p.y - a.y) - uy * (p.x - a.x); },
          [=](const CQdrGePoint2d& p) {
            const double along = ux * (p.x - a.x) + uy * (p.y - a.y);
            return std::min(along, length - along);
          }};
}

Bounded bounded(const CQdrGePoint2d& c, double radius, double start, double sweep) {
  return {[=](double t) {
            const double angle = start + sweep * t;
            return CQdrGePoint2d(c.x + radius * std::cos(angle), c.y + radius * std::sin(angle));
          },
          [=](const CQdrGePoint2d& p) { return std::hypot(p.x - c.x, p.y - c.y) - radius; },
          [=](const CQdrGePoint2d& p) {
            double turned = std::atan2(p.y - c.y, p.x - c.x) - start;
            while (turned < 0)
              turned += qdr::kTwoPi;
            // Behind the end the way to the nearer end counts, as a negative margin.
            const double behind = std::min(turned - sweep, qdr::kTwoPi - turned);
            return radius * (turned <= sweep ? std::min(turned, sweep - turned) : -behind);
          }};
}

struct Walk {
  std::vector<CQdrGePoint2d> hits;
  bool isDoubtful = false;
};

Walk walk(const Bounded& walked, const Bounded& other) {
  Walk found;
  double before = other.side(walked.at(0));
  found.isDoubtful = std::abs(before) < kDoubtful || std::abs(other.side(walked.at(1))) < kDoubtful;
  double flattest = 1;
  for (int i = 1; i <= kSteps; ++i) {
    const double here = other.side(walked.at(double(i) / kSteps));
    if ((before < 0) != (here < 0)) {
      double low = double(i - 1) / kSteps, high = double(i) / kSteps;
      for (int round = 0; round < 60; ++round) {
        const double middle = (low + high) / 2;
        ((other.side(walked.at(middle)) < 0) == (before < 0) ? low : high) = middle;
      }
      const CQdrGePoint2d hit = walked.at(low);
      const double margin = other.marginAtEnds(hit);
      found.isDoubtful |= std::abs(margin) < kDoubtful;
      if (margin > 0) found.hits.push_back(hit);
      const double rise = std::abs(other.side(walked.at(high + 1e-4)) - other.side(walked.at(low)));
      flattest = std::min(flattest, rise / 1e-4);
    } else if (std::abs(here) < kTouch) {
      flattest = 0;
    }
    before = here;
  }
  found.isDoubtful |= flattest < 0.05;
  return found;
}

bool sameHits(std::vector<CQdrGePoint2d> expected, const std::vector<CQdrGePoint2d>& actual) {
  for (const CQdrGePoint2d& hit : actual) {
    const auto match = std::find_if(expected.begin(), expected.end(), [&](const auto& other) {
      return hit.distanceTo(other) < 1e-7;
    });
    if (match == expected.end()) return false;
    expected.erase(match);
  }
  return expected.empty();
}

struct RandomArc {
  CQdrGePoint2d center;
  double radius, start, end, sweep;
  CQdrGeCircArc2d arc() const { return {center, radius, start, end}; }
  Bounded asBounded() const { return bounded(center, radius, start, sweep); }
};

RandomArc randomArc(Random& random) {
  RandomArc arc{random.point(5), random.between(0.5, 8), random.between(0, qdr::kTwoPi),
                random.between(0, qdr::kTwoPi), 0};
  arc.sweep = arc.end < arc.start ? arc.end - arc.start + qdr::kTwoPi : arc.end - arc.start;
  return arc;
}

// Few pairs may be doubtful, and enough must cross, or the walk would prove nothing.
void expectFruitful(int judged, int crossing) {
  EXPECT_GT(judged, kPairs * 9 / 10);
  EXPECT_GT(crossing, kPairs / 8);
}

TEST(IntersectionProperty, LinesMeetWhereTheWalkCrosses) {
  Random random(11);
  int judged = 0, crossing = 0;
  for (int i = 0; i < kPairs; ++i) {
    const CQdrGeLine2d a(random.point(9), random.point(9)), b(random.point(9), random.point(9));
    const Walk expected = walk(bounded(a), bounded(b));
    if (expected.isDoubtful) continue;
    CQdrGePoint2d hit;
    std::vector<CQdrGePoint2d> hits;
    if (a.intersectWith(b, hit, CQdrGeEntity2d::kExtendNone, kTol)) hits.push_back(hit);
    EXPECT_TRUE(sameHits(expected.hits, hits)) << "seed 11, pair " << i;
    ++judged;
    crossing += !hits.empty();
  }
  expectFruitful(judged, crossing);
}

TEST(IntersectionProperty, LinesAndArcsMeetWhereTheWalkCrosses) {
  Random random(12);
  int judged = 0, crossing = 0;
  for (int i = 0; i < kPairs; ++i) {
    const CQdrGeLine2d line(random.point(9), random.point(9));
    const RandomArc arc = randomArc(random);
    const Walk expected = walk(bounded(line), arc.asBounded());
    if (expected.isDoubtful) continue;
    int count = 0;
    std::vector<CQdrGePoint2d> hits;
    line.intersectWith(arc.arc(), count, hits, CQdrGeEntity2d::kExtendNone, kTol);
    EXPECT_TRUE(sameHits(expected.hits, hits)) << "seed 12, pair " << i;
    ++judged;
    crossing += !hits.empty();
  }
  expectFruitful(judged, crossing);
}

TEST(IntersectionProperty, ArcsMeetWhereTheWalkCrosses) {
  Random random(13);
  int judged = 0, crossing = 0;
  for (int i = 0; i < kPairs; ++i) {
    const RandomArc a = randomArc(random), b = randomArc(random);
    const Walk expected = walk(a.asBounded(), b.asBounded());
    if (expected.isDoubtful) continue;
    CQdrGePoint2d p1, p2;
    int count = 0;
    a.arc().intersectWith(b.arc(), count, p1, p2, CQdrGeEntity2d::kExtendNone, kTol);
    std::vector<CQdrGePoint2d> hits{p1, p2};
    hits.resize(static_cast<std::size_t>(count));
    EXPECT_TRUE(sameHits(expected.hits, hits)) << "seed 13, pair " << i;
    ++judged;
    crossing += !hits.empty();
  }
  expectFruitful(judged, crossing);
}

}  // namespace
