#include "geometry/internal/clearance.h"

#include <algorithm>
#include <array>
#include <cstdint>

#include "geometry/internal/curve_intersection.h"

namespace qdr {

namespace {

/// How many source segments are asked whether they bury a broken segment. Where many are near,
/// nearly any of them does.
constexpr int kBurialTries = 16;

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

Clearance::Clearance(std::vector<TravelSegment> source, double limit)
    : m_source(std::move(source)),
      m_index(boxesOf(m_source, 0.0), BoxIndex::Order::given),
      m_limit(std::max(limit, 0.0)),
      m_limitSqrd(m_limit * m_limit) {}

void Clearance::findNear(const TravelSegment& segment, std::vector<std::uint32_t>& near) const {
  near.clear();
  if (m_limit == 0.0) return;
  m_index.forEachWithin(segment.box(), m_limit, [&](std::size_t j) {
    near.push_back(static_cast<std::uint32_t>(j));
    return true;
  });
}

bool Clearance::isBuried(const TravelSegment& part, std::uint32_t j) const {
  const Hull hull(part);
  const TravelSegment& source = m_source[j];
  if (source.isArc()) return isBuriedByArc(part, hull.span(), source);
  // The places nearer than the limit to a line are a convex set.
  return std::all_of(hull.span().begin(), hull.span().end(),
                     [&](const Vec& p) { return distanceSqrdTo(source, p) < m_limitSqrd; });
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
  return inner < 0.0 || distanceSqrdTo(part, arc.center) > inner * inner;
}

std::vector<Standing> Clearance::standingsOf(std::span<const TravelSegment> segments,
                                             const BoxIndex& index) const {
  std::vector<Standing> standings(segments.size());
  if (m_limit == 0.0) return standings;
  std::vector<std::uint8_t> tries(segments.size(), 0);
  const auto isNear = [this](const Box& a, const Box& b) {
    return a.distanceSqrd(b) < m_limitSqrd;
  };
  forEachNearPair(index, m_index, isNear, [&](std::size_t i, std::size_t j) {
    Standing& standing = standings[i];
    if (standing.kind == Standing::clear) {
      if (!isNearer(segments[i], m_source[j], m_limitSqrd)) return true;
      const Vec witness = nearestPlace(segments[i], m_source[j]).place;
      standing = {Standing::broken, static_cast<std::uint32_t>(j), segments[i].paramOf(witness)};
    }
    if (isBuried(segments[i], static_cast<std::uint32_t>(j))) standing.kind = Standing::buried;
    return standing.kind != Standing::buried && ++tries[i] < kBurialTries;
  });
  return standings;
}

}  // namespace qdr
