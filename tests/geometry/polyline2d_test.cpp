#include "geometry/polyline2d.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <string>
#include <vector>

#include "geometry/angle.h"
#include "geometry/circ_arc2d.h"
#include "geometry/internal/chain_side.h"
#include "geometry/line2d.h"
#include "platform/headless/memory_file.h"
#include "tests/geometry/polyline_support.h"

namespace {

using qdr::kPi;
using Chain = CQdrGePolyline2d;

const double kQuarter = std::tan(kPi / 8.0);  // bulge of a quarter turn

struct Verdict {
  const char* name;
  bool actual;
  bool expected;
};

void expectAll(const std::vector<Verdict>& rows) {
  for (const Verdict& row : rows)
    EXPECT_EQ(row.actual, row.expected) << row.name;
}

void expectPoint(const CQdrGePoint2d& actual, double x, double y, const std::string& name,
                 double tol = 1e-9) {
  EXPECT_NEAR(actual.x, x, tol) << name;
  EXPECT_NEAR(actual.y, y, tol) << name;
}

void expectChain(const Chain& actual, const std::vector<BulgeVertex>& expected,
                 const std::string& name) {
  ASSERT_EQ(actual.numVerts(), static_cast<int>(expected.size())) << name << textOf(actual);
  for (int i = 0; i < actual.numVerts(); ++i) {
    expectPoint(actual.points()[i], expected[i].x, expected[i].y, name + textOf(actual));
    EXPECT_NEAR(actual.bulges()[i], expected[i].bulge, 1e-9) << name << " vertex " << i;
  }
}

/// Line of 10, half circle of radius 2 bowing down, line of 4 back up: 14 + 2 pi long.
Chain hook() {
  return chainOf({{0, 0}, {10, 0, 1}, {14, 0}, {14, 4}});
}

TEST(Polyline2d, SegmentKinds) {
  struct Row {
    const char* name;
    Chain chain;
    int index;
    Chain::SegType expected;
  };
  const std::vector<Row> rows = {
      {"no vertex", Chain(), 0, Chain::kEmptySeg},
      {"past the end", hook(), 4, Chain::kEmptySeg},
      {"negative index", hook(), -1, Chain::kEmptySeg},
      {"straight", hook(), 0, Chain::kLineSeg},
      {"arc", hook(), 1, Chain::kArcSeg},
      {"last of an open chain", hook(), 3, Chain::kPointSeg},
      {"last of a closed chain by its bulge", chainOf({{0, 0}, {4, 0, -1}}, true), 1,
       Chain::kArcSeg},
      {"a bulge of 0.001 is straight", chainOf({{0, 0, 0.001}, {4, 0}}), 0, Chain::kLineSeg},
      {"and of -0.0011 is not", chainOf({{0, 0, -0.0011}, {4, 0}}), 0, Chain::kArcSeg},
      {"0.0005 apart whatever the bulge", chainOf({{0, 0, 1}, {0.0005, 0}, {1, 0}}), 0,
       Chain::kCoincidentSeg},
      {"exactly 0.001 apart has a length", chainOf({{0, 0}, {0.001, 0}}), 0, Chain::kLineSeg},
      {"the closing segment of 0.001 has none", chainOf({{0, 0}, {0.001, 0}}, true), 1,
       Chain::kCoincidentSeg},
  };
  for (const Row& row : rows)
    EXPECT_EQ(row.chain.segType(row.index), row.expected) << row.name;
}

TEST(Polyline2d, AnswersAboutTheWholeChain) {
  const Chain clockwise = chainOf({{0, 0, -0.5}, {4, 0, -0.5}});
  const Chain square = chainOf({{0, 0}, {4, 0}, {4, 4}, {0, 4}}, true);
  Chain wide = hook();
  wide.setWidthsAt(2, 0.5, -1);
  expectAll({
      {"some positive bulge", hook().hasBulges(), true},
      {"negative bulges do not count", clockwise.hasBulges(), false},
      {"nor do they make only lines", clockwise.isOnlyLines(), false},
      {"a bulge of 0.0005 is a line", chainOf({{0, 0, 0.0005}, {1, 0}}).isOnlyLines(), true},
      {"widths unset", hook().hasWidth(), false},
      {"a start width", wide.hasWidth(), true},
      {"flag", square.isClosed(), true},
      {"ends 0.001 apart count as closed", chainOf({{0, 0}, {4, 0}, {0, 0.001}}).closed(), true},
      {"without the flag", chainOf({{0, 0}, {4, 0}, {0, 0.001}}).isClosed(), false},
      {"ends 0.002 apart do not", chainOf({{0, 0}, {4, 0}, {0, 0.002}}).closed(), false},
      {"an empty chain is not closed", Chain().closed(), false},
      {"counter-clockwise", square.isCCW(), true},
      {"bulges do not turn it", chainOf({{0, 0}, {1, 0, 40}, {1, 1, 40}}).isCCW(), true},
      {"clockwise", chainOf({{0, 0}, {0, 4}, {4, 0}}).isCCW(), false},
      {"vertex within", square.isVertex({4.05, 4}, 0.05) == 2, true},
      {"vertex not within", square.isVertex({4.06, 4}, 0.05) == -1, true},
  });
  CQdrGePoint2d min, max;
  hook().getMinMaxpoint(min, max);
  expectPoint(min, 0, -2, "the arc's lowest point");
  expectPoint(max, 14, 4, "bounds");
}

TEST(Polyline2d, VerticesAreRangeChecked) {
  Chain chain = hook();
  CQdrGePoint2d point(7, 7);
  double a = 5, b = 5;
  expectAll({
      {"one past the last index is let through", chain.getPointAt(4, point), true},
      {"and leaves the point", point.x == 7, true},
      {"but no further", chain.getPointAt(5, point), false},
      {"negative", chain.getPointAt(-1, point), false},
      {"setPointAt stops at the count", chain.setPointAt(4, point), false},
      {"bulge past the end", chain.getBulgeAt(4, a), false},
      {"widths past the end", chain.getWidthsAt(4, a, b), false},
      {"insert past the end", chain.addVertexAt(5, point), false},
      {"insert at the end", chain.addVertexAt(4, {20, 4}, 0.5, 1, 2), true},
      {"and its widths", chain.getWidthsAt(4, a, b) && a == 1 && b == 2, true},
      {"remove with last before first", chain.removeVertexAt(3, 2), false},
      {"remove past the end", chain.removeVertexAt(5), false},
      {"last 0 removes one", chain.removeVertexAt(3, 0) && chain.numVerts() == 4, true},
      {"a range is held to the end", chain.removeVertexAt(1, 99) && chain.numVerts() == 1, true},
  });
  chain.setSize(-3);
  EXPECT_EQ(chain.numVerts(), 0);
}

TEST(Polyline2d, ParametersRunByLengthAlongTheTravel) {
  const Chain chain = hook();
  const double total = 14 + 2 * kPi;
  const Chain back = chainOf({{0, 0}, {10, 0, -1}, {14, 0}, {14, 4}});
  ASSERT_NEAR(chain.length(), total, 1e-12);
  expectPoint(chain.pointAtParam(5 / total), 5, 0, "on the first line");
  expectPoint(chain.pointAtParam((10 + kPi) / total), 12, -2, "bottom of the arc");
  expectPoint(back.pointAtParam((10 + kPi / 2) / total), 12 - std::sqrt(2.0), std::sqrt(2.0),
              "a negative bulge is walked from its segment's start");
  expectPoint(chain.pointAtParam(0.9995), 14, 4, "within 0.001 of 1");
  expectPoint(chain.pointAtParam(1.01), 0, 0, "beyond the end");
  EXPECT_NEAR(back.paramAtPoint({12 - std::sqrt(2.0), std::sqrt(2.0)}, 1e-6),
              (10 + kPi / 2) / total, 1e-9);
  EXPECT_EQ(chain.paramAtPoint({5, 1}, 1e-6), -1.0);
  EXPECT_NEAR(chain.paramAtSegParam(1, 0.5), (10 + kPi) / total, 1e-12);
  int segment = -1;
  EXPECT_NEAR(chain.segParamAtParam((10 + kPi) / total, segment), 0.5, 1e-9);
  EXPECT_EQ(segment, 1);
  EXPECT_NEAR(chain.segParamAtParam(1.0, segment), 1.0, 1e-9);
  EXPECT_EQ(segment, 2);
  EXPECT_NEAR(chain.normalAtParam((10 + kPi) / total).y, -1, 1e-9);
  EXPECT_NEAR(chain.normalAtParam(0.1).y, -1, 1e-9);
  EXPECT_NEAR(chain.curvatureAtParam((10 + kPi) / total), 2, 1e-9);
  EXPECT_EQ(chain.curvatureAtPoint({5, 0}, 1e-6), 0);

  const Chain point = chainOf({{3, 3}});
  expectPoint(point.pointAtParam(0.5), 0, 0, "no length");
  EXPECT_EQ(point.paramAtDist(0.25, 5, true, 1e-6), 0.25);
  EXPECT_EQ(Chain().paramAtPoint({0, 0}, 1e-6), -1);
  const Chain tiny = chainOf({{0, 0, 1}, {0.0005, 0}, {0.0005, 3}});
  EXPECT_NEAR(tiny.length(), 3, 1e-12) << "a coincident segment counts for nothing";
}

TEST(Polyline2d, OnSegAtGivesTheArcsOwnParameter) {
  const Chain back = chainOf({{0, 0, -1}, {4, 0}});
  double t = -1;
  const CQdrGePoint2d early(2 - std::sqrt(2.0), std::sqrt(2.0));
  EXPECT_TRUE(back.onSegAt(0, early, t, 1e-6));
  EXPECT_NEAR(t, 0.75, 1e-9) << "a quarter along the segment, counted from the arc's start";
  EXPECT_FALSE(back.onSegAt(1, early, t, 1e-6));
  EXPECT_EQ(chainOf({{0, 0}, {4, 0}, {4, 4}}).isOnSegAt({4, 0}, 1e-6), 0) << "the first of two";
}

TEST(Polyline2d, ClosestPointsOfArcsMayLieAnAngleBeyondTheEnd) {
  const Chain half = chainOf({{2, 0, 1}, {-2, 0}});  // upper half, counter-clockwise from angle 0
  const auto from = [](double angle) {
    return CQdrGePoint2d(5 * std::cos(angle), 5 * std::sin(angle));
  };
  const double pi = std::acos(-1.0);
  const CQdrGePoint2d beyond = half.closestPointTo(from(pi + 0.0005), 1e-6);
  EXPECT_NEAR(beyond.y, -0.001, 1e-9) << "within 0.001 of the end the circle goes on";
  const CQdrGePoint2d end = half.closestPointTo(from(pi + 0.005), 1e-6);
  EXPECT_EQ(end.x, -2) << "the vertex itself";
  EXPECT_EQ(end.y, 0);
  expectPoint(half.closestPointTo(from(2 * pi - 0.0005), 1e-6), 2, 0,
              "before angle 0 no turn counts");
  const CQdrGePoint2d inside = half.closestPointTo(from(pi / 3), 1e-6);
  expectPoint(inside, 1, std::sqrt(3.0), "between the ends");
}

TEST(Polyline2d, ClosestPointsGoToTheFirstOfEqualSegments) {
  const Chain square = chainOf({{0, 0}, {4, 0}, {4, 4}, {0, 4}}, true);
  int segment = -1;
  expectPoint(square.closestPointTo({2, 2}, segment, 1e-6), 2, 0, "equal distances");
  EXPECT_EQ(segment, 0);
  expectPoint(hook().closestPointTo({12, -5}, segment, 1e-6), 12, -2, "on the arc");
  CQdrGePoint2d onLine;
  expectPoint(square.closestPointTo(CQdrGeLine2d({6, 1}, CQdrGePoint2d(9, 1)), onLine, 1e-6), 4, 1,
              "to a line");
  expectPoint(onLine, 6, 1, "and on it");
  CQdrGeVector2d v;
  ASSERT_TRUE(square.perpVecFromPoint({2, 1}, v, 1e-6));
  EXPECT_NEAR(v.x, 0, 1e-9);
  EXPECT_NEAR(v.y, 1, 1e-9) << "the shortest, from the foot to the point";
  EXPECT_EQ(Chain().perpVecFromPoint({2, 1}, v, 1e-6), false);
}

TEST(Polyline2d, SidesBeyondAnEndAreTrueOnlyByTheWholeLine) {
  const Chain line = chainOf({{0, 0}, {10, 0}});
  const Chain loop = chainOf({{0, 0}, {10, 0}, {10, -10}, {0, -10}}, true);  // clockwise
  struct Row {
    const char* name;
    const Chain& chain;
    CQdrGePoint2d side;
    bool isLeft;
    int direction;
  };
  for (const Row& row : std::vector<Row>{{"beside, left", line, {3, 1}, true, 1},
                                         {"beside, right", line, {3, -1}, false, -1},
                                         {"before the start", line, {-2, 1}, true, 1},
                                         {"level with the end", line, {10, 1}, true, -1},
                                         {"beyond the end, left", line, {12, 1}, true, -1},
                                         {"beyond the end, right", line, {12, -1}, false, 1},
                                         {"off a corner", loop, {11, 1}, true, -1},
                                         {"inside", loop, {9, -2}, false, -1}}) {
    EXPECT_EQ(qdr::isLeftOfChain(row.chain, row.side), row.isLeft) << row.name;
    EXPECT_EQ(row.chain.getoffsetDirection(row.side, 1), row.direction) << row.name;
  }
}

TEST(Polyline2d, ClosingContinuesTheLastArc) {
  // Tangent up at (1,0), chord back to (-1,0): the half circle of bulge 1 over the top.
  Chain quarter = chainOf({{-1, 0}, {0, -1, kQuarter}, {1, 0}});
  quarter.setClosed(true);
  EXPECT_NEAR(quarter.getBulgeAt(2), 1.0, 1e-12);
  quarter.setClosed(false);
  EXPECT_NEAR(quarter.getBulgeAt(2), 1.0, 1e-12) << "opening only stores the flag";
  EXPECT_FALSE(quarter.isClosed());

  Chain mirrored = chainOf({{1, 0}, {0, -1, -kQuarter}, {-1, 0}});
  mirrored.setClosed(true);
  EXPECT_NEAR(mirrored.getBulgeAt(2), -1.0, 1e-12);
  Chain straight = chainOf({{0, 0}, {4, 0}, {4, 4, 0.7}});
  straight.setClosed(true);
  EXPECT_EQ(straight.getBulgeAt(2), 0.7) << "no arc before the closing point, no new bulge";
  // The half circle arrives at (4,0) straight up, the chord runs straight down: no arc fits.
  Chain against = chainOf({{4, -3}, {0, 0, 1}, {4, 0}});
  against.setClosed(true);
  EXPECT_EQ(against.getBulgeAt(2), 0.001);
  Chain single = chainOf({{0, 0}});
  single.setClosed(true);
  EXPECT_FALSE(single.isClosed());
}

TEST(Polyline2d, ReverseKeepsValuesWithTheirSegments) {
  Chain chain;
  chain.appendVertex({0, 0}, 0.1, 1, 2);
  chain.appendVertex({4, 0}, 0.2, 3, 4);
  chain.appendVertex({4, 4}, 0.3, 5, 6);
  const Chain original(chain);
  chain.reverse();
  expectChain(chain, {{4, 4, -0.2}, {4, 0, -0.1}, {0, 0, -0.3}}, "reversed");
  EXPECT_EQ(chain.startWidths(), (std::vector<double>{4, 2, 6}));
  EXPECT_EQ(chain.endWidths(), (std::vector<double>{3, 1, 5}));
  chain.reverse();
  EXPECT_TRUE(chain == original);
  EXPECT_EQ(chain.startWidths(), original.startWidths());
}

TEST(Polyline2d, ChangeStartTurnsClosedFiguresOnly) {
  Chain open = hook();
  EXPECT_TRUE(open.changeStart(0));
  EXPECT_FALSE(open.changeStart(1));
  Chain flagged = chainOf({{0, 0, 0.1}, {4, 0, 0.2}, {4, 4, 0.3}}, true);
  EXPECT_TRUE(flagged.changeStart(2));
  expectChain(flagged, {{4, 4, 0.3}, {0, 0, 0.1}, {4, 0, 0.2}}, "by flag");
  EXPECT_FALSE(flagged.changeStart(3));
  Chain touching = chainOf({{0, 0, 0.1}, {4, 0, 0.2}, {4, 4, 0.3}, {0, 0}});
  EXPECT_TRUE(touching.changeStart(1));
  expectChain(touching, {{4, 0, 0.2}, {4, 4, 0.3}, {0, 0, 0.1}}, "by coincident ends");
  EXPECT_TRUE(touching.isClosed()) << "what the lost vertex closed, the flag closes";
}

TEST(Polyline2d, AppendJoinsAtTheFirstEndsThatMeet) {
  const Chain base = chainOf({{0, 0, 0.5}, {4, 0}});
  struct Row {
    const char* name;
    Chain other;
    bool expected;
    int where;
    std::vector<BulgeVertex> result;
  };
  const std::vector<Row> rows = {
      {"start at end",
       chainOf({{4.0019, 0, 0.2}, {4, 4}}),
       true,
       1,
       {{0, 0, 0.5}, {4, 0, 0.2}, {4, 4}}},
      {"end at end", chainOf({{4, 4, 0.2}, {4, 0}}), true, 2, {{0, 0, 0.5}, {4, 0, -0.2}, {4, 4}}},
      {"end at start", chainOf({{0, 4, 0.2}, {0, 0}}), true, 3, {{0, 4, 0.2}, {0, 0, 0.5}, {4, 0}}},
      {"start at start",
       chainOf({{0, 0, 0.2}, {0, 4}}),
       true,
       4,
       {{0, 4, -0.2}, {0, 0, 0.5}, {4, 0}}},
      {"both ends: the end first",
       chainOf({{4, 0, 0.2}, {0, 0}}),
       true,
       1,
       {{0, 0, 0.5}, {4, 0, 0.2}, {0, 0}}},
      {"too far apart", chainOf({{4.0021, 0}, {4, 4}}), false, 7, {{0, 0, 0.5}, {4, 0}}},
      {"closed other", chainOf({{4, 0}, {4, 4}, {6, 6}}, true), false, 7, {{0, 0, 0.5}, {4, 0}}},
      {"empty other", Chain(), false, 7, {{0, 0, 0.5}, {4, 0}}},
  };
  for (const Row& row : rows) {
    Chain chain(base);
    int where = 7;
    EXPECT_EQ(chain.appendPolyline(row.other, where), row.expected) << row.name;
    EXPECT_EQ(where, row.where) << row.name;
    expectChain(chain, row.result, row.name);
  }
  Chain chain(base);
  int where = 0;
  EXPECT_TRUE(chain.appendPolyline(chain, where)) << "itself: end to end";
  EXPECT_EQ(where, 2);
  Chain withArc(base);
  // The quarter from (5,-1) up to (4,0) round (4,-1): it is walked backward from its end.
  EXPECT_TRUE(withArc.appendPolyline(CQdrGeCircArc2d({4, -1}, 1, 0, kPi / 2), where));
  expectChain(withArc, {{0, 0, 0.5}, {4, 0, -kQuarter}, {5, -1}}, "arc");
  EXPECT_TRUE(withArc.appendPolyline(CQdrGeLine2d({9, 9}, CQdrGePoint2d(5, -1)), where));
  expectChain(withArc, {{0, 0, 0.5}, {4, 0, -kQuarter}, {5, -1}, {9, 9}}, "line");
}

TEST(Polyline2d, MirrorTurnsBulgesAndTransformDoesNot) {
  Chain chain = chainOf({{0, 1, 0.5}, {4, 2}});
  chain.mirror(CQdrGeLine2d({0, 0}, CQdrGePoint2d(1, 0)));
  expectChain(chain, {{0, -1, -0.5}, {4, -2}}, "mirror");
  EXPECT_FALSE(std::signbit(chain.getBulgeAt(1))) << "a zero bulge stays a plain zero";
  CQdrGeMatrix2d m(true);
  m(1, 1) = -1;
  chain.transformBy(m);
  expectChain(chain, {{0, 1, -0.5}, {4, 2}}, "transformBy");
}

TEST(Polyline2d, BytesAndShortBytes) {
  Chain chain = chainOf({{1, 2, 0.5}, {3, 4, -0.25}}, true);
  chain.setWidthsAt(1, 7, 8);
  qdr::MemoryFile out;
  chain.save(&out);
  out.Close();
  const std::string bytes = out.bytes();
  ASSERT_EQ(bytes.size(), 5u + 2 * 44);
  EXPECT_EQ(bytes.substr(0, 5), std::string("\x02\0\0\0\x01", 5));
  double second[3];
  std::memcpy(second, bytes.data() + 5 + 44 + 20, sizeof second);
  EXPECT_EQ(second[0], -0.25);
  EXPECT_EQ(second[1], 7) << "start width before end width";
  EXPECT_EQ(second[2], 8);

  for (std::size_t size = 0; size <= bytes.size(); ++size) {
    Chain read = hook();
    qdr::MemoryFile in(bytes.substr(0, size));
    read.read(&in);
    EXPECT_EQ(read.numVerts(), size < 5 ? 0 : static_cast<int>((size - 5) / 44)) << size;
    EXPECT_EQ(read == chain, size == bytes.size()) << size;
  }
  qdr::MemoryFile huge(std::string("\xff\xff\xff\xff\x00", 5));
  Chain read;
  read.read(&huge);
  EXPECT_EQ(read.numVerts(), 0) << "a count that the file cannot hold takes no memory";
}

}  // namespace
