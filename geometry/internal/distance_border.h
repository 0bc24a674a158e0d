#pragma once

#include <vector>

#include "geometry/internal/travel_segment.h"

namespace qdr {

/// Appends the parameters at which `segment` crosses the border of the places nearer than `reach`
/// to `source`: parallels of a line, concentric arcs, circles about the ends. Some may lie inside.
void addBorderParams(const TravelSegment& segment, const TravelSegment& source, double reach,
                     std::vector<double>& params);

/// A range of parameters; empty when `from` is above `to`.
struct ParamSpan {
  double from = 0.0;
  double to = 1.0;
};

/// A range outside of which no place of `segment` is nearer than `reach` to `source`.
ParamSpan nearSpan(const TravelSegment& segment, const TravelSegment& source, double reach);

}  // namespace qdr
