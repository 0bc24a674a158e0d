#pragma once

#include <cstddef>
#include <vector>

#include "geometry/box_index.h"
#include "geometry/internal/raw_offset.h"
#include "geometry/internal/travel_segment.h"

namespace qdr {

/// A place on the raw offset: segment, parameter and point. The end of a segment is given as the
/// start of the next one; the end of the last segment as one past it.
struct RawPlace {
  std::size_t segment = 0;
  double param = 0.0;
  Vec point;
};

inline bool isEarlier(const RawPlace& a, const RawPlace& b) {
  return a.segment != b.segment ? a.segment < b.segment : a.param < b.param;
}

/// A stretch of the raw offset; `to` comes behind `from`.
struct Slice {
  RawPlace from;
  RawPlace to;
};

/// The raw offset as segments, with an index over their boxes.
struct OffsetCurve {
  explicit OffsetCurve(const VertexChain& raw);

  std::size_t size() const { return segments.size(); }
  bool areNeighbours(std::size_t i, std::size_t j) const;

  RawPlace start() const { return {0, 0.0, segments.front().start}; }
  RawPlace end() const { return {segments.size(), 0.0, segments.back().end}; }
  RawPlace placeAt(std::size_t i, double param) const;

  /// Calls visit(i, from, to) for the part of every segment that the slice runs over.
  template <class Visit>
  void forEachPart(const Slice& slice, Visit&& visit) const {
    double from = slice.from.param;
    for (std::size_t i = slice.from.segment; i < slice.to.segment; ++i) {
      visit(i, from, 1.0);
      from = 0.0;
    }
    if (slice.to.param > from) visit(slice.to.segment, from, slice.to.param);
  }

  /// Bounds of all segments that the slice touches.
  Box boxOf(const Slice& slice) const;

  double lengthOf(const Slice& slice) const;

  /// The slice as vertices with the bulges between them.
  VertexChain chainOf(const Slice& slice) const;

  std::vector<TravelSegment> segments;
  BoxIndex index;
  bool isLoop;
};

}  // namespace qdr
