#pragma once

#include <memory>
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
  int direction = 1;      // of the wanted side, as in an OffsetRequest
};

class OffsetClipper;

/// The parts of the raw offset that keep the distance from the source.
///
/// The raw offset is cut where it crosses itself, the other side, and the circles of the distance
/// about the ends of an open source; a part stays when every place of it is at least the distance
/// less 0.002 away from the source. Crossings within 0.05 of a vertex of the raw offset cut nothing
/// at first; when a part has fallen they are tried too, and the result that keeps more length is
/// taken.
///
/// Near the gaps of the raw offsets parts that have fallen are cut again, at the exact border
/// (keptOfFallen), and what runs over an earlier part is dropped (withoutRepeats).
class ClippedOffset {
 public:
  /// What the clip refers to has to outlive this.
  explicit ClippedOffset(const OffsetClip& clip);
  ClippedOffset(ClippedOffset&&) noexcept;
  ~ClippedOffset();

  std::size_t size() const;

  /// In the order of travel.
  std::vector<VertexChain> parts() const;

  struct Closing {
    std::vector<bool> isReplaced;    // by part
    std::vector<VertexChain> parts;  // what stands for the replaced ones
  };

  /// Parts to chain instead of those that are connected with any of which chains stay open; none
  /// of an open source.
  ///
  /// Where sharp corners overlap, a part may end at another that goes on. All crossings cut here,
  /// those near vertices too, of parts that run over one another in one direction one stays, and
  /// dead ends are taken out (withoutDeadEnds).
  Closing closing(const std::vector<bool>& staysOpen) const;

 private:
  std::vector<VertexChain> m_unclipped;
  std::unique_ptr<OffsetClipper> m_clipper;  // null when there is nothing to clip
};

}  // namespace qdr
