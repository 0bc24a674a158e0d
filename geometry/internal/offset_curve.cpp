#include "geometry/internal/offset_curve.h"

#include "geometry/internal/bulge.h"
#include "geometry/internal/clearance.h"
#include "geometry/tolerance.h"

namespace qdr {

OffsetCurve::OffsetCurve(const VertexChain& raw)
    : segments(segmentsOf(raw.points, raw.bulges, false)),
      index(boxesOf(segments, kCurveTolerance), BoxIndex::Order::given),
      isLoop(distanceSqrd(raw.points.front(), raw.points.back()) == 0.0) {}

bool OffsetCurve::areNeighbours(std::size_t i, std::size_t j) const {
  const std::size_t apart = i < j ? j - i : i - j;
  return apart == 1 || (isLoop && apart == segments.size() - 1);
}

RawPlace OffsetCurve::placeAt(std::size_t i, double param) const {
  if (param >= 1.0) return {i + 1, 0.0, segments[i].end};
  return {i, param, param > 0.0 ? segments[i].pointAt(param) : segments[i].start};
}

Box OffsetCurve::boxOf(const Slice& slice) const {
  Box bounds;
  forEachPart(slice, [&](std::size_t i, double, double) { bounds.add(index.boxAt(i)); });
  return bounds;
}

double OffsetCurve::lengthOf(const Slice& slice) const {
  double sum = 0.0;
  forEachPart(slice, [&](std::size_t i, double from, double to) {
    sum += segments[i].length() * (to - from);
  });
  return sum;
}

VertexChain OffsetCurve::chainOf(const Slice& slice) const {
  VertexChain chain;
  const std::size_t count = slice.to.segment - slice.from.segment + 2;
  chain.points.reserve(count);
  chain.bulges.reserve(count);
  Vec start = slice.from.point;
  forEachPart(slice, [&](std::size_t i, double from, double to) {
    const TravelSegment& segment = segments[i];
    const bool isWhole = from == 0.0 && to == 1.0;
    chain.add(start, isWhole ? segment.bulge : bulgeOfSweep(segment.sweep() * (to - from)));
    start = segment.end;
  });
  chain.add(slice.to.point, 0.0);
  return chain;
}

}  // namespace qdr
