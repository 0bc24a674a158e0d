#pragma once

#include <array>
#include <cstddef>

#include "geometry/internal/travel_segment.h"

namespace qdr {

/// Few parameters of one segment, in no order.
class BorderParams {
 public:
  void add(double t) { m_params[m_count++] = t; }
  const double* begin() const { return m_params.data(); }
  const double* end() const { return m_params.data() + m_count; }

 private:
  std::array<double, 10> m_params;  // two circles, two parallels, and the ends of the segment
  std::size_t m_count = 0;
};

/// The parameters at which `segment` crosses the border of the places nearer than `reach` to
/// `source`: parallels of a line, concentric arcs, circles about the ends. Some may lie inside.
BorderParams borderParams(const TravelSegment& segment, const TravelSegment& source, double reach);

/// A range of parameters; empty when `from` is above `to`.
struct ParamSpan {
  double from = 0.0;
  double to = 1.0;
};

/// A range outside of which no place of `segment` is nearer than `reach` to `source`.
ParamSpan nearSpan(const TravelSegment& segment, const TravelSegment& source, double reach);

}  // namespace qdr
