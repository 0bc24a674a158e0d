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

/// Corners of a convex hull: the ends of a line, the box of an arc.
struct Hull {
  explicit Hull(const TravelSegment& segment) : corners{segment.start, segment.end} {
    if (!segment.isArc()) return;
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

bool Clearance::isKeptBy(const TravelSegment& part, std::span<const std::uint32_t> near) const {
  const Box box = part.box();
  return std::none_of(near.begin(), near.end(), [&](std::uint32_t j) {
    return m_index.boxAt(j).distanceSqrd(box) < m_limitSqrd &&
           isNearer(part, m_source[j], m_limitSqrd);
  });
}

bool Clearance::buries(const TravelSegment& source, std::span<const Vec> hull) const {
  if (source.isArc()) {
    return areAllWithin(hull, source.start, m_limitSqrd) ||
           areAllWithin(hull, source.end, m_limitSqrd);
  }
  // The places nearer than the limit to a line are a convex set.
  return std::all_of(hull.begin(), hull.end(),
                     [&](const Vec& p) { return distanceSqrdTo(source, p) < m_limitSqrd; });
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
      standing = {Standing::broken, segments[i].paramOf(witness)};
    }
    if (buries(m_source[j], Hull(segments[i]).span())) standing.kind = Standing::buried;
    return standing.kind != Standing::buried && ++tries[i] < kBurialTries;
  });
  return standings;
}

}  // namespace qdr
