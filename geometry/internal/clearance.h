#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "geometry/box_index.h"
#include "geometry/internal/curve_intersection.h"
#include "geometry/internal/travel_segment.h"

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

/// The least distance that segments have to keep from a source chain, by closed forms per pair.
class Clearance {
 public:
  /// A `limit` not above 0 is kept by everything.
  Clearance(std::vector<TravelSegment> source, double limit);

  /// Fills `near` with the source segments that any part of `segment` may be too near to.
  void findNear(const TravelSegment& segment, std::vector<std::uint32_t>& near) const;

  /// True when some place of the part, whose box is given, is nearer than the limit to source
  /// segment `j`.
  bool isBroken(const TravelSegment& part, const Box& box, std::uint32_t j) const {
    return m_index.boxAt(j).distanceSqrd(box) < m_limitSqrd &&
           isNearer(part, m_source[j], m_limitSqrd);
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

  /// The standing of every segment; `index` holds their boxes in their order. Buried is told only
  /// where one source segment alone proves it.
  std::vector<Standing> standingsOf(std::span<const TravelSegment> segments,
                                    const BoxIndex& index) const;

 private:
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
