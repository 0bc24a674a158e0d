#pragma once

#include <vector>

#include "geometry/internal/offset_curve.h"
#include "geometry/internal/offset_slices.h"
#include "geometry/internal/part_judge.h"

namespace qdr {

/// A place where the raw offset is cut. A weak one lies near a vertex.
struct Cut {
  RawPlace place;
  bool isWeak = false;
};

/// Cuts that are looked for at most, so that memory stays bounded: crossings grow with the square
/// of the segments.
inline constexpr std::size_t kMostCuts = std::size_t{1} << 23;

struct CurveCuts {
  std::vector<Cut> cuts;        // segment after segment, sorted along each, none twice
  std::vector<bool> liesAlong;  // by segment: some other one runs over it; empty when none does
  bool areTooMany = false;      // there are more, and these serve nothing
};

/// Where the raw offset crosses itself, the other side, and the circles of the distance about the
/// ends of an open source. At a place too near to the source a cut decides nothing, because the
/// slices on both of its sides fall: buried segments are not cut and cut nothing, and places that
/// one look proves sunk are left out.
CurveCuts cutsOf(const OffsetClip& clip, const OffsetCurve& curve, const PartJudge& judge,
                 std::size_t most = kMostCuts);

/// Whether two lines or two arcs run over the same line or circle for more than a point.
bool lieAlong(const TravelSegment& a, const TravelSegment& b);

/// Of two such, whether they run in one direction.
bool runAlike(const TravelSegment& a, const TravelSegment& b);

}  // namespace qdr
