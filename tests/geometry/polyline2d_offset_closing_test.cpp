#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <random>
#include <string>
#include <vector>

#include "geometry/internal/chain_join.h"
#include "geometry/internal/clearance.h"
#include "geometry/internal/winding.h"
#include "geometry/polyline2d.h"
#include "tests/geometry/offset_support.h"
#include "tests/geometry/polyline_support.h"

namespace {

using Chain = CQdrGePolyline2d;
using Vertices = std::vector<BulgeVertex>;

constexpr double kPlay = 0.002;
constexpr double kPi = std::numbers::pi;

double gapOf(const Chain& chain) {
  const auto& points = chain.points();
  return std::hypot(points[0].x - points[chain.numVerts() - 1].x,
                    points[0].y - points[chain.numVerts() - 1].y);
}

/// The corners of a ring from its lowest one of the leftmost on, counter-clockwise.
Vertices ringOf(const Chain& chain) {
  Vertices ring;
  for (int i = 0; i + 1 < chain.numVerts(); ++i)
    ring.push_back({chain.points()[i].x, chain.points()[i].y});
  if (enclosedArea(chain) < 0.0) std::reverse(ring.begin(), ring.end());
  const auto first =
      std::min_element(ring.begin(), ring.end(), [](const BulgeVertex& a, const BulgeVertex& b) {
        return std::abs(a.x - b.x) > 1e-9 ? a.x < b.x : a.y < b.y;
      });
  std::rotate(ring.begin(), first, ring.end());
  return ring;
}

TEST(Polyline2dOffsetClosing, ByHand) {
  struct Row {
    const char* name;
    Vertices source;
    CQdrGePoint2d side;
    double dist;
    std::vector<Vertices> rings;
  };
  const std::vector<Row> rows = {
      // The top edges at 4, 4.3 and 4.65 move up by 2, the risers at 6 and 5.2 right by 2. Between
      // x = 7.2 and 8 the line y = 6 is clear of the source, but inside the corner at (8, 6.3).
      {"a line ends inside the corner of a low step",
       {{0, 0}, {10, 0}, {10, 4}, {6, 4}, {6, 4.3}, {5.2, 4.3}, {5.2, 4.65}, {0, 4.65}},
       {5, -1},
       2,
       {{{-2, -2}, {12, -2}, {12, 6}, {8, 6}, {8, 6.3}, {7.2, 6.3}, {7.2, 6.65}, {-2, 6.65}}}},
      // As above; y = 6.3 meets x = 7.2 only 0.04 below the corner there.
      {"the corners cross near a vertex",
       {{0, 0}, {10, 0}, {10, 4}, {6, 4}, {6, 4.3}, {5.5, 4.3}, {5.2, 4}, {5.2, 4.34}, {0, 4.34}},
       {5, -1},
       2,
       {{{-2, -2}, {12, -2}, {12, 6}, {8, 6}, {8, 6.3}, {7.2, 6.3}, {7.2, 6.34}, {-2, 6.34}}}},
      // The shape lies in the triangle (6, -3) (1, 2) (-1, 0): area 10 and circumference above 17
      // leave no place 2 away from the border. The spike's corner lies beyond the long side.
      {"a corner that comes out on the other side",
       {{6, -3}, {1, 2}, {1, 0}, {0, 2}, {-1, 0}},
       {3.4, -0.5},
       2,
       {}},
      // One tooth of width 2.9 inward by 1.5: what is left is the base of height 4, 1 high.
      {"what is too narrow leaves nothing behind",
       {{0, 0}, {12, 0}, {12, 4}, {8, 4}, {8, 9}, {5.1, 9}, {5.1, 4}, {0, 4}},
       {1, 0.5},
       1.5,
       {{{1.5, 1.5}, {10.5, 1.5}, {10.5, 2.5}, {1.5, 2.5}}}},
  };
  for (const Row& row : rows) {
    for (std::size_t start = 0; start < row.source.size(); ++start) {
      Vertices source = row.source;
      std::rotate(source.begin(), source.begin() + static_cast<std::ptrdiff_t>(start),
                  source.end());
      for (const bool isBackward : {false, true}) {
        if (isBackward) std::reverse(source.begin(), source.end());
        const OwnedPieces pieces = offsetOf(chainOf(source, true), row.side, row.dist);
        ASSERT_EQ(pieces.size(), row.rings.size()) << row.name << " from " << start;
        for (std::size_t i = 0; i < pieces.size(); ++i) {
          EXPECT_LE(gapOf(pieces[i]), 1e-6) << row.name << " from " << start;
          // Where others cross a side it has vertices; the corners are what counts.
          Vertices corners;
          const Vertices ring = ringOf(pieces[i]);
          for (std::size_t k = 0; k < ring.size(); ++k) {
            const BulgeVertex& before = ring[(k + ring.size() - 1) % ring.size()];
            const BulgeVertex& behind = ring[(k + 1) % ring.size()];
            const double turn = (ring[k].x - before.x) * (behind.y - ring[k].y) -
                                (ring[k].y - before.y) * (behind.x - ring[k].x);
            if (std::abs(turn) > 1e-9) corners.push_back(ring[k]);
          }
          ASSERT_EQ(corners.size(), row.rings[i].size()) << row.name << textOf(pieces[i]);
          for (std::size_t k = 0; k < corners.size(); ++k) {
            EXPECT_NEAR(corners[k].x, row.rings[i][k].x, 1e-9) << row.name << " from " << start;
            EXPECT_NEAR(corners[k].y, row.rings[i][k].y, 1e-9) << row.name << " from " << start;
          }
        }
      }
    }
  }
}

/// A closed shape of lines that does not cross itself, with details from well above the distance to
/// well below it.
struct FineShape {
  explicit FineShape(unsigned shapeSeed) : random(shapeSeed) {
    using Maker = void (FineShape::*)();
    constexpr Maker kMakers[] = {&FineShape::makeStairs, &FineShape::makeComb, &FineShape::makeStar,
                                 &FineShape::makeNotches, &FineShape::makeZigzag};
    (this->*kMakers[shapeSeed % 5])();
  }

  double between(double low, double high) {
    return std::uniform_real_distribution<double>(low, high)(random);
  }

  void add(double x, double y) { vertices.push_back({x, y}); }

  /// Up and down along the top of a box.
  void makeStairs() {
    const double least = random() % 2 == 0 ? 0.06 : 0.3;
    add(0, 0);
    const int count = 2 + static_cast<int>(random() % 9);
    Vertices top;
    double x = 0.0;
    double y = 5.0;
    for (int i = 0; i < count; ++i) {
      top.push_back({x, y});
      x += between(least, 2);
      top.push_back({x, y});
      const double step = between(least, 1.5);
      y += y > 3.5 && random() % 2 == 0 ? -step : step;
    }
    add(x, 0);
    vertices.insert(vertices.end(), top.rbegin(), top.rend());
  }

  /// Slots of different widths and depths in the top of a box.
  void makeComb() {
    Vertices top;
    double x = 0.0;
    const int count = 1 + static_cast<int>(random() % 5);
    for (int i = 0; i < count; ++i) {
      const double depth = between(0.2, 5);
      top.push_back({x, 6});
      x += between(0.1, 3);
      top.push_back({x, 6});
      top.push_back({x, 6 - depth});
      x += between(0.1, 3);
      top.push_back({x, 6 - depth});
    }
    top.push_back({x, 6});
    top.push_back({x + 1, 6});
    add(0, 0);
    add(x + 1, 0);
    vertices.insert(vertices.end(), top.rbegin(), top.rend());
  }

  void makeStar() {
    const int count = 4 + static_cast<int>(random() % 20);
    for (int i = 0; i < count; ++i) {
      const double angle = 2 * kPi * (i + between(0, 0.6)) / count;
      const double r = between(1, 8);
      add(r * std::cos(angle), r * std::sin(angle));
    }
  }

  /// Square and pointed bumps and notches in one side of a box.
  void makeNotches() {
    add(0, 0);
    double x = 0.0;
    for (int i = 0; i < 6; ++i) {
      const double width = between(0.1, 1.2);
      const double height = between(-1.5, 1.5);
      const bool isPointed = random() % 2 == 0;
      x += between(0.1, 1.5);
      add(x, 0);
      add(x, std::abs(height) < 0.1 ? 0.1 : height);
      x += width;
      if (!isPointed) add(x, std::abs(height) < 0.1 ? 0.1 : height);
      add(x, 0);
    }
    add(x + 0.5, 0);
    add(x + 0.5, 6);
    add(0, 6);
  }

  void makeZigzag() {
    const int count = 2 + static_cast<int>(random() % 8);
    const double width = between(0.2, 2.5);
    const double height = between(0.1, 4);
    add(-1, -3);
    add(count * width + 1, -3);
    for (int i = count; i > 0; --i) {
      add(i * width, between(0, 0.3));
      add((i - 0.5) * width, 0.4 + height);
    }
    add(-1, 0);
  }

  std::mt19937 random;
  Vertices vertices;
};

bool isInside(const Vertices& shape, const CQdrGePoint2d& p) {
  bool inside = false;
  for (std::size_t i = 0; i < shape.size(); ++i) {
    const BulgeVertex& a = shape[i];
    const BulgeVertex& b = shape[(i + 1) % shape.size()];
    if ((a.y > p.y) != (b.y > p.y) && p.x < (b.x - a.x) * (p.y - a.y) / (b.y - a.y) + a.x)
      inside = !inside;
  }
  return inside;
}

/// All that holds of one offset of a shape; `place` lies just left of its first side.
void expectRings(const Vertices& shape, double dist, double scale, const std::string& name) {
  const BulgeVertex& a = shape[0];
  const BulgeVertex& b = shape[1];
  const double size = std::hypot(b.x - a.x, b.y - a.y);
  const double reach = 1e-3 * scale;
  for (const int direction : {1, -1}) {
    const CQdrGePoint2d place((a.x + b.x) / 2 - direction * (b.y - a.y) / size * reach,
                              (a.y + b.y) / 2 + direction * (b.x - a.x) / size * reach);
    const Chain source = chainOf(shape, true);
    const OwnedPieces pieces = offsetOf(source, place, dist);
    for (const auto& piece : pieces) {
      EXPECT_LE(gapOf(*piece), 1e-6) << name << " " << textOf(*piece);
      EXPECT_GT(piece->numVerts(), 2) << name;
    }
    EXPECT_GE(leastDistance(pieces, source), dist - kPlay - 1e-6) << name;
    const MovedSegments moved(source, dist, direction);
    EXPECT_EQ(countLostPlaces(moved, pieces), 0) << name;
  }
}

TEST(Polyline2dOffsetClosing, ClosedLineSourcesGiveClosedChains) {
  for (unsigned seed = 1; seed <= 800; ++seed) {
    FineShape shape(seed);
    const double dist = shape.between(0.05, 3);
    expectRings(shape.vertices, dist, 1.0, "seed " + std::to_string(seed));
  }
}

TEST(Polyline2dOffsetClosing, FromEveryStartAtEveryScale) {
  for (unsigned seed = 1; seed <= 25; ++seed) {
    FineShape shape(seed);
    const double dist = shape.between(0.05, 3);
    const std::string name = "seed " + std::to_string(seed);
    for (std::size_t start = 0; start < shape.vertices.size(); ++start) {
      std::rotate(shape.vertices.begin(), shape.vertices.begin() + 1, shape.vertices.end());
      expectRings(shape.vertices, dist, 1.0, name + " from " + std::to_string(start));
    }
    Vertices large = shape.vertices;
    for (BulgeVertex& v : large)
      v = {v.x * 1e3 + 1e6, v.y * 1e3 - 1e6};
    expectRings(large, dist * 1e3, 1e3, name + " large");
  }
}

TEST(Polyline2dOffsetClosing, NothingComesOutOnTheOtherSide) {
  // Every chain of these shapes that a corner has carried through the shape ends in the air.
  int inward = 0;
  for (unsigned seed = 4; seed <= 1500; seed += 5) {
    FineShape shape(seed);
    const Chain source = chainOf(shape.vertices, true);
    const CQdrGePoint2d inside(shape.vertices[0].x + 0.5, -2.999);
    const OwnedPieces pieces = offsetOf(source, inside, shape.between(0.05, 3));
    inward += static_cast<int>(pieces.size());
    for (const auto& piece : pieces)
      EXPECT_TRUE(isInside(shape.vertices, piece->points()[0])) << "seed " << seed;
  }
  EXPECT_GT(inward, 100);
}

TEST(Polyline2dOffsetClosing, CornersThatCoverAllLeaveSomething) {
  // Places within 1.5 of the middle keep 3 from these jagged rings, but among so many sharp corners
  // hardly a place is outside of all of them.
  for (unsigned seed = 1; seed <= 40; ++seed) {
    FineShape numbers(seed);
    Vertices ring;
    for (int i = 0; i < 65; ++i) {
      const double r = numbers.between(4.8, 7.2);
      ring.push_back({r * std::cos(2 * kPi * i / 65), r * std::sin(2 * kPi * i / 65)});
    }
    const OwnedPieces pieces = offsetOf(chainOf(ring, true), {0, 0}, 2.9);
    EXPECT_GT(pieces.size(), 0u) << "seed " << seed;
    for (const auto& piece : pieces)
      EXPECT_LE(gapOf(*piece), 1e-6) << "seed " << seed << " " << textOf(*piece);
  }
}

TEST(Polyline2dOffsetClosing, BothSidesCloseInOneCall) {
  const Chain source = chainOf(
      {{0, 0}, {10, 0}, {10, 4}, {6, 4}, {6, 4.3}, {5.2, 4.3}, {5.2, 4.65}, {0, 4.65}}, true);
  const OwnedPieces pieces = offsetOf(source, {5, 0.1}, 1, true);
  ASSERT_EQ(pieces.size(), 2u);
  for (const auto& piece : pieces)
    EXPECT_LE(gapOf(*piece), 1e-6) << textOf(*piece);
  EXPECT_LT(enclosedArea(pieces[0]), enclosedArea(pieces[1]));
}

TEST(Polyline2dOffsetClosing, ANearlyClosedChainTakesWhatClosesIt) {
  const qdr::VertexChain loop{{{0, 0}, {5, 0}, {5, 5}, {0, 0.001}}, {0, 0, 0, 0}};
  const qdr::VertexChain link{{{0, 0.001}, {0, 0}}, {0, 0}};
  for (const auto& chains : {std::vector{loop, link}, std::vector{link, loop}}) {
    const auto joined = qdr::joinedChains(chains);
    ASSERT_EQ(joined.size(), 1u);
    EXPECT_EQ(joined[0].points.front().y, joined[0].points.back().y);
    EXPECT_EQ(joined[0].size(), 5u);
  }
  const qdr::VertexChain beside{{{0, -0.001}, {-3, -0.001}}, {0, 0}};
  EXPECT_EQ(qdr::joinedChains({loop, beside}).size(), 2u) << "it only meets what leads on";
}

TEST(Polyline2dOffsetClosing, TurnsAreTheSumOfAngles) {
  std::mt19937 random(9);
  std::uniform_real_distribution<double> unit(-1.0, 1.0);
  for (int row = 0; row < 40; ++row) {
    Vertices vertices;
    const int count = 3 + row;
    for (int i = 0; i < count; ++i)
      vertices.push_back({unit(random) * 5, unit(random) * 5, row % 2 == 0 ? 0.0 : unit(random)});
    const Chain chain = chainOf(vertices, true);
    std::vector<qdr::Vec> points;
    std::vector<double> bulges;
    for (const BulgeVertex& v : vertices) {
      points.push_back({v.x, v.y});
      bulges.push_back(v.bulge);
    }
    const std::vector<qdr::TravelSegment> ring = qdr::segmentsOf(points, bulges, true);
    const qdr::BoxIndex index(qdr::boxesOf(ring, 0.0), qdr::BoxIndex::Order::given);
    const qdr::Winding winding(ring, index);
    for (int k = 0; k < 100; ++k) {
      const CQdrGePoint2d place(unit(random) * 6, unit(random) * 6);
      double sum = 0.0;
      double least = 1.0;
      for (const SampledSegment& segment : segmentsOfChain(chain)) {
        least = std::min(least, segment.distanceTo(place));
        for (int step = 0; step < 400; ++step) {
          const CQdrGePoint2d p = segment.at(step / 400.0);
          const CQdrGePoint2d q = segment.at((step + 1) / 400.0);
          sum += std::remainder(
              std::atan2(q.y - place.y, q.x - place.x) - std::atan2(p.y - place.y, p.x - place.x),
              2 * kPi);
        }
      }
      if (least < 0.05) continue;
      const int expected = static_cast<int>(std::lround(sum / (2 * kPi)));
      EXPECT_EQ(winding.about({place.x, place.y}), expected) << row << " " << k;
      EXPECT_EQ(qdr::turnsAbout(ring, {place.x, place.y}), expected) << row << " " << k;
    }
  }
}

}  // namespace
