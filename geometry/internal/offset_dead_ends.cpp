#include "geometry/internal/offset_dead_ends.h"

#include <algorithm>
#include <limits>
#include <queue>
#include <span>
#include <utility>

#include "geometry/internal/curve_intersection.h"
#include "geometry/internal/near_points.h"
#include "geometry/internal/offset_cuts.h"
#include "geometry/internal/winding.h"
#include "geometry/tolerance.h"

namespace qdr {

namespace {

constexpr std::size_t kNone = static_cast<std::size_t>(-1);

std::vector<Vec> endsOf(const std::vector<Slice>& slices) {
  std::vector<Vec> ends;
  ends.reserve(2 * slices.size());
  for (const Slice& slice : slices)
    ends.insert(ends.end(), {slice.from.point, slice.to.point});
  return ends;
}

/// Where slices end: end 2 s is the start of slice s, 2 s + 1 its end.
class SliceNet {
 public:
  explicit SliceNet(const std::vector<Slice>& slices);

  std::size_t size() const { return m_nodes.size(); }

  /// The first end in the place of end `k`.
  std::size_t nodeOf(std::size_t k) const { return m_nodes[k]; }

  /// Calls visit(k) for every end at the node.
  template <class Visit>
  void forEachEnd(std::size_t node, Visit&& visit) const {
    for (std::size_t k = node; k != kNone; k = m_next[k])
      visit(k);
  }

  /// By node, whether an odd number of slices ends there.
  std::vector<bool> looseEnds() const;

 private:
  std::vector<std::size_t> m_nodes;
  std::vector<std::size_t> m_next;  // the next end at the same node
};

SliceNet::SliceNet(const std::vector<Slice>& slices) {
  m_nodes = NearPoints(endsOf(slices)).nodes(kPointTolerance);
  m_next.assign(m_nodes.size(), kNone);
  std::vector<std::size_t> last(m_nodes.size(), kNone);
  for (std::size_t k = 0; k < m_nodes.size(); ++k) {
    const std::size_t before = std::exchange(last[m_nodes[k]], k);
    if (before != kNone) m_next[before] = k;
  }
}

std::vector<bool> SliceNet::looseEnds() const {
  std::vector<bool> isLoose(m_nodes.size(), false);
  for (const std::size_t node : m_nodes)
    isLoose[node] = !isLoose[node];
  return isLoose;
}

/// A place next to parameter `t` of the segment, left of it for direction +1.
Vec placeBeside(const TravelSegment& segment, double t, int direction) {
  const Vec place = segment.pointAt(t);
  const Vec tangent = segment.isArc() ? segment.tangentAt(place) : segment.end - segment.start;
  return place + tangent.perpVector() * (direction * kPointTolerance / tangent.length());
}

/// Tells slices that do not bound the offset.
class SurplusFinder {
 public:
  SurplusFinder(const OffsetCurve& curve, const std::vector<bool>& liesAlong,
                const Clearance& source, int direction);

  enum class Kind : unsigned char {
    bounding,
    covered,  // by a sharp corner
    beyond,   // on the other side of the source
  };

  Kind kindOf(const Slice& slice) const;

 private:
  int countReturns(std::size_t i, const Vec& place) const;

  const OffsetCurve& m_curve;
  const std::vector<bool>& m_liesAlong;
  int m_direction;
  Winding m_winding;
  Winding m_windingOfSource;
  int m_turnsBeside;  // of the source round a place on its wanted side
};

SurplusFinder::SurplusFinder(const OffsetCurve& curve, const std::vector<bool>& liesAlong,
                             const Clearance& source, int direction)
    : m_curve(curve),
      m_liesAlong(liesAlong),
      m_direction(direction),
      m_winding(curve.segments, curve.index),
      m_windingOfSource(source.sources(), source.index()) {
  const auto longest = std::max_element(
      source.sources().begin(), source.sources().end(),
      [](const TravelSegment& a, const TravelSegment& b) { return a.length() < b.length(); });
  m_turnsBeside = m_windingOfSource.about(placeBeside(*longest, 0.5, direction));
}

/// How many segments come back over the place of segment `i`.
int SurplusFinder::countReturns(std::size_t i, const Vec& place) const {
  if (m_liesAlong.empty() || !m_liesAlong[i]) return 0;
  const TravelSegment& segment = m_curve.segments[i];
  int count = 0;
  m_curve.index.forEachOverlap(boxOfPoint(place).inflated(kPointTolerance), [&](std::size_t j) {
    const TravelSegment& other = m_curve.segments[j];
    const bool returns =
        lieAlong(segment, other) && !runAlike(segment, other) && holdsPlace(other, place);
    count += returns ? 1 : 0;
    return true;
  });
  return count;
}

/// Beside what bounds it the offset turns round a place as often as the source does there. Sharp
/// corners change that for what they cover, and on the other side the source turns otherwise. Where
/// the offset comes back by the line that it went, the place may lie between the two.
SurplusFinder::Kind SurplusFinder::kindOf(const Slice& slice) const {
  double longest = -1.0;
  CurvePart part;
  m_curve.forEachPart(slice, [&](const CurvePart& candidate) {
    const double share = candidate.to - candidate.from;
    const double length = m_curve.segments[candidate.segment].length() * share;
    if (!(length > longest)) return;
    longest = length;
    part = candidate;
  });
  const TravelSegment& segment = m_curve.segments[part.segment];
  const double middle = (part.from + part.to) / 2.0;
  const Vec place = placeBeside(segment, middle, m_direction);
  const int missing = (m_turnsBeside - m_winding.about(place)) * m_direction;
  if (missing == 0) return Kind::bounding;
  if (m_windingOfSource.about(place) != m_turnsBeside) return Kind::beyond;
  const int returns = missing > 0 ? countReturns(part.segment, segment.pointAt(middle)) : 0;
  return missing > 0 && missing <= returns ? Kind::bounding : Kind::covered;
}

/// Takes surplus slices out between loose ends.
class DeadEndRemover {
 public:
  DeadEndRemover(const OffsetCurve& curve, const std::vector<Slice>& slices,
                 const SurplusFinder& finder)
      : m_curve(curve),
        m_slices(slices),
        m_finder(finder),
        m_net(slices),
        m_isLoose(m_net.looseEnds()),
        m_ways(m_net.size()) {}

  std::vector<Slice> run();

 private:
  enum class State : unsigned char { bounding, covered, dropped };

  /// The way to a node that is being searched, and the end by which it left the node before.
  struct Way {
    double length = std::numeric_limits<double>::infinity();
    std::size_t leftBy = kNone;
  };

  struct Step {
    double length;
    std::size_t node;

    bool operator>(const Step& other) const { return length > other.length; }
  };

  void dropBeyond();
  void reach(std::size_t node, const Way& way);
  void leave(std::size_t node);
  void dropWay(std::size_t start, std::size_t node);
  void dropWayFrom(std::size_t start);

  const OffsetCurve& m_curve;
  const std::vector<Slice>& m_slices;
  const SurplusFinder& m_finder;
  SliceNet m_net;
  std::vector<State> m_states;
  std::vector<bool> m_isLoose;         // by node
  std::vector<Way> m_ways;             // by node
  std::vector<std::size_t> m_reached;  // nodes
  std::priority_queue<Step, std::vector<Step>, std::greater<>> m_steps;
};

/// What lies beyond the source is connected with nothing on its wanted side.
void DeadEndRemover::dropBeyond() {
  m_states.reserve(m_slices.size());
  for (std::size_t s = 0; s < m_slices.size(); ++s) {
    const SurplusFinder::Kind kind = m_finder.kindOf(m_slices[s]);
    const bool isBeyond = kind == SurplusFinder::Kind::beyond;
    const State ifKept = kind == SurplusFinder::Kind::covered ? State::covered : State::bounding;
    m_states.push_back(isBeyond ? State::dropped : ifKept);
    if (!isBeyond) continue;
    for (const std::size_t node : {m_net.nodeOf(2 * s), m_net.nodeOf(2 * s + 1)})
      m_isLoose[node] = !m_isLoose[node];
  }
}

void DeadEndRemover::reach(std::size_t node, const Way& way) {
  if (!(way.length < m_ways[node].length)) return;
  m_ways[node] = way;
  m_reached.push_back(node);
  m_steps.push({way.length, node});
}

/// Goes on from a node along all slices that corners cover.
void DeadEndRemover::leave(std::size_t node) {
  m_net.forEachEnd(node, [&](std::size_t k) {
    if (m_states[k / 2] != State::covered) return;
    const double length = m_ways[node].length + m_curve.lengthOf(m_slices[k / 2]);
    reach(m_net.nodeOf(k ^ 1), {length, k});
  });
}

void DeadEndRemover::dropWay(std::size_t start, std::size_t node) {
  m_isLoose[start] = false;
  m_isLoose[node] = false;
  while (node != start) {
    const std::size_t k = m_ways[node].leftBy;
    m_states[k / 2] = State::dropped;
    node = m_net.nodeOf(k);
  }
}

/// The shortest way by E. W. Dijkstra, A note on two problems in connexion with graphs, 1959.
void DeadEndRemover::dropWayFrom(std::size_t start) {
  reach(start, {0.0, kNone});
  while (!m_steps.empty()) {
    const Step step = m_steps.top();
    m_steps.pop();
    if (step.length > m_ways[step.node].length) continue;
    if (step.node != start && m_isLoose[step.node]) {
      dropWay(start, step.node);
      break;
    }
    leave(step.node);
  }
  for (const std::size_t node : m_reached)
    m_ways[node] = {};
  m_reached.clear();
  m_steps = {};
}

std::vector<Slice> DeadEndRemover::run() {
  dropBeyond();
  for (std::size_t node = 0; node < m_net.size(); ++node) {
    if (m_isLoose[node]) dropWayFrom(node);
  }
  std::vector<Slice> rest;
  rest.reserve(m_slices.size());
  for (std::size_t s = 0; s < m_slices.size(); ++s) {
    if (m_states[s] != State::dropped) rest.push_back(m_slices[s]);
  }
  return rest;
}

/// Whether a segment meets its follower off their vertex too; where they touch there, rounding
/// parts the places a little.
bool meetTwice(const TravelSegment& segment, const TravelSegment& follower) {
  const Meeting meeting = meetNeighbours(segment, follower, segment.end);
  return meeting.count > 0 &&
         distanceSqrd(meeting.points[0], segment.end) > kJoinTolerance * kJoinTolerance;
}

}  // namespace

bool isSimple(const Clearance& source) {
  const std::span<const TravelSegment> segments = source.sources();
  if (segments.empty()) return true;
  const bool repeatsStart = distanceSqrd(segments.back().start, segments.back().end) == 0.0;
  const std::size_t count = segments.size() - (repeatsStart ? 1 : 0);
  bool isSimple = true;
  source.index().forEachOverlappingPair([&](std::size_t i, std::size_t j) {
    if (!isSimple || j >= count) return;
    const bool closes = i == 0 && j + 1 == count;
    if (j - i == 1 || closes) {
      isSimple = !meetTwice(segments[closes ? j : i], segments[closes ? i : j]);
    } else {
      isSimple = meetSegments(segments[i], segments[j]).count == 0;
    }
  });
  return isSimple;
}

std::vector<bool> connectedWith(const std::vector<Slice>& slices,
                                const std::vector<bool>& isMarked) {
  const NearPoints ends(endsOf(slices));
  std::vector<bool> isConnected = isMarked;
  std::vector<std::size_t> ahead;
  for (std::size_t s = 0; s < slices.size(); ++s) {
    if (isMarked[s]) ahead.push_back(s);
  }
  const auto visit = [&](std::size_t k) {
    if (isConnected[k / 2]) return;
    isConnected[k / 2] = true;
    ahead.push_back(k / 2);
  };
  while (!ahead.empty()) {
    const Slice& slice = slices[ahead.back()];
    ahead.pop_back();
    ends.forEachNear(slice.from.point, visit);
    ends.forEachNear(slice.to.point, visit);
  }
  return isConnected;
}

std::vector<Slice> withoutDeadEnds(const OffsetCurve& curve, const std::vector<bool>& liesAlong,
                                   const Clearance& source, int direction,
                                   const std::vector<Slice>& slices) {
  const SurplusFinder finder(curve, liesAlong, source, direction);
  return DeadEndRemover(curve, slices, finder).run();
}

}  // namespace qdr
