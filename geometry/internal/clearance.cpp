#include "geometry/internal/clearance.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace qdr {

namespace {

/// Corners of a convex hull: the ends of a line; of an arc also the crossing of its tangents, or
/// its box when it turns too far for that.
struct Hull {
  explicit Hull(const TravelSegment& segment) : corners{segment.start, segment.end} {
    if (!segment.isArc()) return;
    constexpr double kMaxBulge = 0.5;
    if (std::abs(segment.bulge) < kMaxBulge) {
      const Vec apothem = (segment.start + segment.end) * 0.5 - segment.center;
      corners[count++] =
          segment.center + apothem * (segment.radius * segment.radius / apothem.lengthSqrd());
      return;
    }
    const Box box = segment.box();
    corners = {Vec(box.minX, box.minY), Vec(box.maxX, box.minY), Vec(box.maxX, box.maxY),
               Vec(box.minX, box.maxY)};
    count = 4;
  }

  std::span<const Vec> span() const { return {corners.data(), count}; }

  std::array<Vec, 4> corners;
  std::size_t count = 2;
};

bool areAllWithin(std::span<const Vec> hull, const Vec& center, double limitSqrd) {
  return std::all_of(hull.begin(), hull.end(),
                     [&](const Vec& p) { return distanceSqrd(p, center) < limitSqrd; });
}

}  // namespace

std::vector<Box> boxesOf(std::span<const TravelSegment> segments, double margin) {
  std::vector<Box> boxes;
  boxes.reserve(segments.size() + segments.size() / 4 + 4);
  for (const TravelSegment& segment : segments)
    boxes.push_back(segment.box().inflated(margin));
  return boxes;
}

Clearance::Clearance(std::vector<TravelSegment> source, double limit, double widening)
    : m_source(std::move(source)),
      m_index(boxesOf(m_source, widening), BoxIndex::Order::given),
      m_limit(std::max(limit, 0.0)),
      m_limitSqrd(m_limit * m_limit) {}

std::vector<std::uint32_t> Clearance::nearOf(const TravelSegment& segment) const {
  std::vector<std::uint32_t> near;
  if (m_limit == 0.0) return near;
  m_index.forEachWithin(segment.box(), m_limit, [&](std::size_t j) {
    near.push_back(static_cast<std::uint32_t>(j));
    return true;
  });
  return near;
}

bool Clearance::isBuried(const TravelSegment& part, std::uint32_t j) const {
  const Hull hull(part);
  const TravelSegment& source = m_source[j];
  if (source.isArc()) return isBuriedByArc(part, hull.span(), source);
  // The places nearer than the limit to a line are a convex set.
  return std::all_of(hull.span().begin(), hull.span().end(),
                     [&](const Vec& p) { return isPlaceNearer(source, p, m_limit); });
}

/// Near one end of the arc, or between its concentric neighbours and the arms to its ends.
bool Clearance::isBuriedByArc(const TravelSegment& part, std::span<const Vec> hull,
                              const TravelSegment& arc) const {
  if (areAllWithin(hull, arc.start, m_limitSqrd) || areAllWithin(hull, arc.end, m_limitSqrd))
    return true;
  const double outer = arc.radius + m_limit;
  if (std::abs(arc.bulge) > 1.0 || !areAllWithin(hull, arc.center, outer * outer)) return false;
  const double side = arc.bulge > 0.0 ? 1.0 : -1.0;
  const bool isBetweenArms = std::all_of(hull.begin(), hull.end(), [&](const Vec& p) {
    return side * cross(arc.start - arc.center, p - arc.center) >= 0.0 &&
           side * cross(p - arc.center, arc.end - arc.center) >= 0.0;
  });
  if (!isBetweenArms) return false;
  const double inner = arc.radius - m_limit;
  return inner < 0.0 || !isPlaceNearer(part, arc.center, inner);
}

/// Takes the segments one after the other, each with the source segments that may be near. A list
/// that has grown by one over the most that are kept is known to be too long.
class Clearance::StandingFinder {
 public:
  StandingFinder(const Clearance& clearance, std::span<const TravelSegment> segments)
      : m_clearance(clearance), m_segments(segments) {
    m_found.standings.resize(segments.size());
    m_found.firstNear.reserve(segments.size() + 1);
    m_found.firstNear.push_back(0);
  }

  /// False when no more need be shown of segment `i`.
  bool show(std::size_t i, std::uint32_t j) {
    if (i >= m_found.firstNear.size()) finishUpTo(i);
    Standing& standing = m_found.standings[i];
    const bool isListed = m_found.near.size() - m_found.firstNear[i] <= Standings::kMostNear;
    if (isListed) m_found.near.push_back(j);
    const bool staysClear = standing.kind == Standing::clear &&
                            !isNearer(m_segments[i], m_clearance.m_source[j], m_clearance.m_limit);
    if (staysClear) return true;
    if (m_looks < kMostLooks) look(m_segments[i], j, standing);
    return standing.kind != Standing::buried && (isListed || m_looks < kMostLooks);
  }

  Standings take() {
    finishUpTo(m_segments.size());
    return std::move(m_found);
  }

 private:
  /// How many source segments are asked whether they bury a broken segment. Where many are near,
  /// nearly any of them does.
  static constexpr int kMostLooks = 16;

  void look(const TravelSegment& segment, std::uint32_t j, Standing& standing);
  void finishUpTo(std::size_t i);

  const Clearance& m_clearance;
  std::span<const TravelSegment> m_segments;
  Standings m_found;
  int m_looks = 0;  // at segments that may bury the one that is broken
};

/// Of a segment that is broken, the first time by source segment `j`.
void Clearance::StandingFinder::look(const TravelSegment& segment, std::uint32_t j,
                                     Standing& standing) {
  if (standing.kind == Standing::clear) {
    standing.kind = Standing::broken;
    standing.source = j;
    standing.witness = m_clearance.isWithin(segment.start, j) ? 0.0
                       : m_clearance.isWithin(segment.end, j)
                           ? 1.0
                           : segment.paramOf(nearestPlace(segment, m_clearance.m_source[j]).place);
  }
  ++m_looks;
  if (m_clearance.isBuried(segment, j)) standing.kind = Standing::buried;
}

/// Ends the list of the segment before. Only of broken ones, and when it is whole, it is kept.
void Clearance::StandingFinder::finishUpTo(std::size_t i) {
  const std::size_t last = m_found.firstNear.size() - 1;
  const std::size_t first = m_found.firstNear.back();
  const bool isWanted = last < m_segments.size() &&
                        m_found.standings[last].kind == Standing::broken &&
                        m_found.near.size() - first <= Standings::kMostNear;
  if (!isWanted) m_found.near.resize(first);
  m_found.firstNear.resize(i + 1, static_cast<std::uint32_t>(m_found.near.size()));
  m_looks = 0;
}

Standings Clearance::standingsOf(std::span<const TravelSegment> segments,
                                 const BoxIndex& index) const {
  StandingFinder finder(*this, segments);
  const auto isNear = [this](const Box& a, const Box& b) {
    return a.distanceSqrd(b) < m_limitSqrd;
  };
  if (m_limit > 0.0) {
    forEachNearPair(index, m_index, isNear, [&](std::size_t i, std::size_t j) {
      return finder.show(i, static_cast<std::uint32_t>(j));
    });
  }
  return finder.take();
}

}  // namespace qdr
