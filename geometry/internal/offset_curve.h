#pragma once

#include <cstddef>
#include <utility>
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

/// A part of one segment of the raw offset, by parameters and by the places there.
struct CurvePart {
  std::size_t segment = 0;
  double from = 0.0;
  double to = 1.0;
  Vec start;
  Vec end;

  bool isWhole() const { return from == 0.0 && to == 1.0; }
};

/// A stretch of the raw offset; `to` comes behind `from`.
struct Slice {
  RawPlace from;
  RawPlace to;
};

/// The raw offset as segments, with an index over their boxes.
struct OffsetCurve {
  /// The boxes of the index are wider by `widening`.
  explicit OffsetCurve(const VertexChain& raw, double widening = 0.0);

  std::size_t size() const { return segments.size(); }
  bool areNeighbours(std::size_t i, std::size_t j) const;

  RawPlace start() const { return {0, 0.0, segments.front().start}; }
  RawPlace end() const { return {segments.size(), 0.0, segments.back().end}; }
  RawPlace placeAt(std::size_t i, double param) const;

  double bulgeOf(const CurvePart& part) const;

  /// The part as a segment of its own; a flat arc may have straight parts.
  TravelSegment segmentOf(const CurvePart& part) const;

  double lengthOf(const CurvePart& part) const {
    return segments[part.segment].length() * (part.to - part.from);
  }

  /// Calls visit(part) for the part of every segment that the slice runs over.
  template <class Visit>
  void forEachPart(const Slice& slice, Visit&& visit) const {
    CurvePart part{slice.from.segment, slice.from.param, 1.0, slice.from.point, {}};
    for (; part.segment < slice.to.segment; ++part.segment) {
      part.end = segments[part.segment].end;
      visit(std::as_const(part));
      part.from = 0.0;
      part.start = part.end;
    }
    part.to = slice.to.param;
    part.end = slice.to.point;
    if (part.to > part.from) visit(std::as_const(part));
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
