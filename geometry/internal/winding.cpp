#include "geometry/internal/winding.h"

#include <bit>

namespace qdr {

namespace {

/// Whether a way crosses the level of `p` upward, 1, downward, -1, or not at all.
int levelCrossing(const Vec& from, const Vec& to, const Vec& p) {
  return (to.y > p.y ? 1 : 0) - (from.y > p.y ? 1 : 0);
}

/// Crossings of one segment with the level of `p`, to the right of it.
int crossingOf(const TravelSegment& segment, const Vec& p) {
  const double side = cross(segment.end - segment.start, p - segment.start);
  const int upward = levelCrossing(segment.start, segment.end, p);
  const int ofChord = upward * side > 0.0 ? upward : 0;
  if (!segment.isArc()) return ofChord;
  const bool isBetween = side * segment.bulge < 0.0 &&
                         distanceSqrd(p, segment.center) < segment.radius * segment.radius;
  if (!isBetween) return ofChord;
  return ofChord + (segment.bulge > 0.0 ? 1 : -1);
}

}  // namespace

int turnsAbout(std::span<const TravelSegment> ring, const Vec& p) {
  int turns = 0;
  for (const TravelSegment& segment : ring)
    turns += crossingOf(segment, p);
  return turns;
}

Winding::Winding(std::span<const TravelSegment> ring, const BoxIndex& index)
    : m_ring(ring), m_index(index) {
  if (ring.empty()) return;
  m_boxes.resize(2 * std::bit_ceil(ring.size() / kLeaf + 1) + 1);
  fill({0, 0, ring.size()});
}

const Box& Winding::fill(const Run& run) {
  Box bounds;
  if (isLeaf(run)) {
    for (std::size_t i = run.from; i < run.to; ++i)
      bounds.add(m_index.boxAt(i));
  } else {
    bounds.add(fill(firstHalf(run)));
    bounds.add(fill(secondHalf(run)));
  }
  return m_boxes[run.node] = bounds;
}

int Winding::about(const Vec& p) const {
  return m_ring.empty() ? 0 : about(p, {0, 0, m_ring.size()});
}

/// A run that lies wholly to the right crosses the level of `p` as its chord does.
int Winding::about(const Vec& p, const Run& run) const {
  const Box& box = m_boxes[run.node];
  if (p.x > box.maxX || p.y > box.maxY || p.y < box.minY) return 0;
  if (p.x < box.minX) return levelCrossing(m_ring[run.from].start, m_ring[run.to - 1].end, p);
  if (!isLeaf(run)) return about(p, firstHalf(run)) + about(p, secondHalf(run));
  return turnsAbout(m_ring.subspan(run.from, run.to - run.from), p);
}

}  // namespace qdr
