#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "geometry/box_index.h"
#include "geometry/internal/curve_nearness.h"
#include "geometry/internal/travel_segment.h"
#include "geometry/tolerance.h"

namespace qdr {

/// What is known of one segment as a whole against the chain it has to keep away from.
struct Standing {
  enum Kind : unsigned char {
    clear,   // every place keeps the distance
    broken,  // the place at `witness` does not
    buried,  // no place does
  };
  Kind kind = clear;
  std::uint32_t source = 0;  // a source segment that is too near
  double witness = 0.0;      // parameter, of a broken segment
};

/// The standings of many segments. Of each broken one also the source segments that parts of it may
/// be too near to, in ascending order, where they are not many.
struct Standings {
  static constexpr std::size_t kMostNear = 64;

  /// Empty where they are many.
  std::span<const std::uint32_t> nearOf(std::size_t i) const {
    return {near.data() + firstNear[i], firstNear[i + 1] - firstNear[i]};
  }

  std::vector<Standing> standings;
  std::vector<std::uint32_t> near;
  std::vector<std::uint32_t> firstNear;
};

/// A segment with the bounds that tell most others apart from it.
struct BoundedPart {
  /// `place` is the middle of the part.
  BoundedPart(const TravelSegment& part, const Vec& place)
      : segment(part),
        box(part.box()),
        middle(place),
        reach(distance(middle, part.start) + kPointTolerance) {}

  TravelSegment segment;
  Box box;
  Vec middle;
  double reach;  // no place of it is farther from the middle
};

/// The least distance that segments have to keep from a source chain, by closed forms per pair.
class Clearance {
 public:
  /// A `limit` not above 0 is kept by everything. The boxes that are searched are wider by
  /// `widening`.
  Clearance(std::vector<TravelSegment> source, double limit, double widening = 0.0);

  /// The source segments that any part of `segment` may be too near to.
  std::vector<std::uint32_t> nearOf(const TravelSegment& segment) const;

  /// True when some place of the part is nearer than the limit to source segment `j`.
  bool isBroken(const BoundedPart& part, std::uint32_t j) const {
    return m_index.boxAt(j).distanceSqrd(part.box) < m_limitSqrd &&
           isPlaceNearer(m_source[j], part.middle, m_limit + part.reach) &&
           isNearer(part.segment, m_source[j], m_limit);
  }

  /// The same for the whole source.
  bool isBroken(const BoundedPart& part) const {
    return !m_index.forEachWithin(part.box, m_limit, [&](std::size_t j) {
      return !isBroken(part, static_cast<std::uint32_t>(j));
    });
  }

  /// Whether a place is nearer than the limit to source segment `j`.
  bool isWithin(const Vec& p, std::uint32_t j) const {
    return isPlaceNearer(m_source[j], p, m_limit);
  }

  /// True when one look proves every place of the part nearer than the limit to source segment `j`.
  bool isBuried(const TravelSegment& part, std::uint32_t j) const;

  /// True when some source segment with its box nearer than `reach` to `p` passes test(j).
  template <class Test>
  bool isAnyWithin(const Vec& p, double reach, Test&& test) const {
    return !m_index.forEachWithin(boxOfPoint(p), reach, [&](std::size_t j) { return !test(j); });
  }

  std::size_t size() const { return m_source.size(); }

  const TravelSegment& source(std::size_t j) const { return m_source[j]; }
  std::span<const TravelSegment> sources() const { return m_source; }

  /// Of the boxes of the source segments, in their order.
  const BoxIndex& index() const { return m_index; }

  /// The standing of every segment; `index` holds their boxes in their order. Buried is told only
  /// where one source segment alone proves it.
  Standings standingsOf(std::span<const TravelSegment> segments, const BoxIndex& index) const;

 private:
  class StandingFinder;

  bool isBuriedByArc(const TravelSegment& part, std::span<const Vec> hull,
                     const TravelSegment& arc) const;

  std::vector<TravelSegment> m_source;
  BoxIndex m_index;
  double m_limit;
  double m_limitSqrd;
};

/// Boxes of segments, in their order, widened by `margin`.
std::vector<Box> boxesOf(std::span<const TravelSegment> segments, double margin);

}  // namespace qdr
