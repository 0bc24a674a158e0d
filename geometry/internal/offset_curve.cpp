#include "geometry/internal/offset_curve.h"

#include <cmath>

#include "geometry/internal/bulge.h"
#include "geometry/internal/clearance.h"
#include "geometry/tolerance.h"

namespace qdr {

OffsetCurve::OffsetCurve(const VertexChain& raw, double widening)
    : segments(segmentsOf(raw.points, raw.bulges, false)),
      index(boxesOf(segments, kCurveTolerance + widening), BoxIndex::Order::given),
      isLoop(distanceSqrd(raw.points.front(), raw.points.back()) == 0.0) {}

bool OffsetCurve::areNeighbours(std::size_t i, std::size_t j) const {
  const std::size_t apart = i < j ? j - i : i - j;
  return apart == 1 || (isLoop && apart == segments.size() - 1);
}

RawPlace OffsetCurve::placeAt(std::size_t i, double param) const {
  if (param >= 1.0) return {i + 1, 0.0, segments[i].end};
  return {i, param, param > 0.0 ? segments[i].pointAt(param) : segments[i].start};
}

double OffsetCurve::bulgeOf(const CurvePart& part) const {
  const TravelSegment& segment = segments[part.segment];
  if (part.isWhole() || !segment.isArc()) return segment.bulge;
  // Nearly one place twice, which rounding may have exchanged, would count as the whole turn.
  const double bulge = segment.bulgeTo(part.start, part.end);
  return std::abs(bulge) <= std::abs(segment.bulge)
             ? bulge
             : bulgeOfSweep(segment.sweep() * (part.to - part.from));
}

TravelSegment OffsetCurve::segmentOf(const CurvePart& part) const {
  TravelSegment segment = segments[part.segment];
  segment.start = part.start;
  segment.end = part.end;
  segment.bulge = bulgeOf(part);
  if (!isArcBulge(segment.bulge)) segment.bulge = 0.0;
  return segment;
}

Box OffsetCurve::boxOf(const Slice& slice) const {
  Box bounds;
  forEachPart(slice, [&](const CurvePart& part) { bounds.add(segments[part.segment].box()); });
  return bounds;
}

double OffsetCurve::lengthOf(const Slice& slice) const {
  double sum = 0.0;
  forEachPart(slice, [&](const CurvePart& part) { sum += lengthOf(part); });
  return sum;
}

VertexChain OffsetCurve::chainOf(const Slice& slice) const {
  VertexChain chain;
  const std::size_t count = slice.to.segment - slice.from.segment + 2;
  chain.points.reserve(count);
  chain.bulges.reserve(count);
  forEachPart(slice, [&](const CurvePart& part) { chain.add(part.start, bulgeOf(part)); });
  chain.add(slice.to.point, 0.0);
  return chain;
}

}  // namespace qdr
