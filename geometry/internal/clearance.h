#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "geometry/box_index.h"
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
  double witness = 0.0;  // parameter, of a broken segment
};

/// The least distance that segments have to keep from a source chain, by closed forms per pair.
class Clearance {
 public:
  /// A `limit` not above 0 is kept by everything.
  Clearance(std::vector<TravelSegment> source, double limit);

  /// Fills `near` with the source segments that any part of `segment` may be too near to.
  void findNear(const TravelSegment& segment, std::vector<std::uint32_t>& near) const;

  /// True when every place of the part is at least the limit away from the source; `near` is what
  /// findNear gave for the part or for the segment that it belongs to.
  bool isKeptBy(const TravelSegment& part, std::span<const std::uint32_t> near) const;

  /// The standing of every segment; `index` holds their boxes in their order. Buried is told only
  /// where one source segment alone proves it.
  std::vector<Standing> standingsOf(std::span<const TravelSegment> segments,
                                    const BoxIndex& index) const;

 private:
  /// Whether all of `segment`, given as the corners of a convex hull, is nearer than the limit to
  /// one convex part of the source segment.
  bool buries(const TravelSegment& source, std::span<const Vec> hull) const;

  std::vector<TravelSegment> m_source;
  BoxIndex m_index;
  double m_limit;
  double m_limitSqrd;
};

/// Boxes of segments, in their order, widened by `margin`.
std::vector<Box> boxesOf(std::span<const TravelSegment> segments, double margin);

}  // namespace qdr
