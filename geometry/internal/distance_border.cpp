#include "geometry/internal/distance_border.h"

#include <algorithm>

#include "geometry/internal/curve_intersection.h"
#include "geometry/internal/curve_nearness.h"

namespace qdr {

namespace {

void addParams(const TravelSegment& segment, const Meeting& meeting, BorderParams& params) {
  for (int k = 0; k < meeting.count; ++k)
    params.add(segment.paramOf(meeting.points[k]));
}

/// The arc about the same centre whose radius is `ratio` times as long.
TravelSegment concentricArc(const TravelSegment& arc, double ratio) {
  TravelSegment moved = arc;
  moved.radius = arc.radius * ratio;
  moved.start = arc.center + (arc.start - arc.center) * ratio;
  moved.end = arc.center + (arc.end - arc.center) * ratio;
  return moved;
}

/// Keeps what part of the span has `offset + t * slope` within `low` and `high`.
void clip(double offset, double slope, double low, double high, ParamSpan& span) {
  if (slope == 0.0) {
    if (offset < low || offset > high) span.to = span.from - 1.0;
    return;
  }
  const double a = (low - offset) / slope;
  const double b = (high - offset) / slope;
  span.from = std::max(span.from, std::min(a, b));
  span.to = std::min(span.to, std::max(a, b));
}

/// The places near a line lie in the rectangle about it.
ParamSpan nearSpanOfLines(const TravelSegment& line, const TravelSegment& source, double reach) {
  const Vec axis = source.end - source.start;
  const double size = axis.length();
  const Vec along = size > 0.0 ? axis * (1.0 / size) : Vec(1.0, 0.0);
  const Vec arm = line.start - source.start;
  const Vec chord = line.end - line.start;
  ParamSpan span;
  clip(cross(along, arm), cross(along, chord), -reach, reach, span);
  clip(dot(along, arm), dot(along, chord), -reach, size + reach, span);
  return span;
}

}  // namespace

BorderParams borderParams(const TravelSegment& segment, const TravelSegment& source, double reach) {
  BorderParams params;
  addParams(segment, meetCircle(segment, source.start, reach), params);
  addParams(segment, meetCircle(segment, source.end, reach), params);
  if (source.isArc()) {
    const double share = reach / source.radius;
    addParams(segment, meetSegments(segment, concentricArc(source, 1.0 + share)), params);
    if (share < 1.0)
      addParams(segment, meetSegments(segment, concentricArc(source, 1.0 - share)), params);
    return params;
  }
  const Vec chord = source.end - source.start;
  const double size = chord.length();
  if (!(size > 0.0)) return params;
  for (const double shift : {reach / size, -reach / size}) {
    const Vec normal = chord.perpVector() * shift;
    const TravelSegment parallel = makeSegment(source.start + normal, source.end + normal, 0.0);
    addParams(segment, meetSegments(segment, parallel), params);
  }
  return params;
}

ParamSpan nearSpan(const TravelSegment& segment, const TravelSegment& source, double reach) {
  if (!segment.isArc() && !source.isArc()) return nearSpanOfLines(segment, source, reach);
  const auto isNear = [&](const Vec& p) { return distanceSqrdTo(source, p) <= reach * reach; };
  BorderParams params = borderParams(segment, source, reach);
  if (isNear(segment.start)) params.add(0.0);
  if (isNear(segment.end)) params.add(1.0);
  if (params.begin() == params.end()) return {1.0, 0.0};
  const auto [least, most] = std::minmax_element(params.begin(), params.end());
  return {std::clamp(*least, 0.0, 1.0), std::clamp(*most, 0.0, 1.0)};
}

}  // namespace qdr
