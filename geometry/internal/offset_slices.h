#pragma once

#include <span>
#include <vector>

#include "geometry/internal/raw_offset.h"
#include "geometry/internal/travel_segment.h"

namespace qdr {

/// What the clipping of a raw offset works on.
struct OffsetClip {
  std::span<const Vec> sourcePoints;
  std::span<const double> sourceBulges;
  bool sourceClosed = false;
  const VertexChain& raw;    // the raw offset on the wanted side
  const VertexChain& other;  // the one on the other side
  double distance = 0.0;
  const BorderGaps* gaps = nullptr;  // of both; unknown when null
  double widening = 0.0;  // of all boxes that are searched: by enough, every pair is looked at
};

/// The parts of the raw offset that keep the distance from the source, in the order of travel.
///
/// The raw offset is cut where it crosses itself, the other side, and the circles of the distance
/// about the ends of an open source; a part stays when every place of it is at least the distance
/// less 0.002 away from the source. Crossings within 0.05 of a vertex of the raw offset cut nothing
/// at first; when a part has fallen they are tried too, and the result that keeps more length is
/// taken.
///
/// Near the gaps of the raw offsets parts that have fallen are cut again, at the exact border
/// (keptOfFallen), and what runs over an earlier part is dropped (withoutRepeats).
std::vector<VertexChain> clippedOffset(const OffsetClip& clip);

}  // namespace qdr
