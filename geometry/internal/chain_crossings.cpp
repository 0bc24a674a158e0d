#include "geometry/internal/chain_crossings.h"

#include <array>
#include <cmath>

#include "geometry/box_index.h"
#include "geometry/circ_arc2d.h"
#include "geometry/internal/clear_segments.h"
#include "geometry/internal/travel_segment.h"
#include "geometry/line2d.h"
#include "geometry/tolerance.h"

namespace qdr {

namespace {

using Intersect = CQdrGeEntity2d::Intersect;

/// One segment as the curve object that its kind asks for.
struct SegmentCurve {
  CQdrGePolyline2d::SegType type = CQdrGePolyline2d::kEmptySeg;
  CQdrGeLine2d line;
  CQdrGeCircArc2d arc;
};

SegmentCurve segmentCurve(const CQdrGePolyline2d& chain, int i) {
  SegmentCurve curve;
  curve.type = chain.segType(i);
  if (curve.type == CQdrGePolyline2d::kLineSeg) chain.getLineSegAt(i, curve.line);
  if (curve.type == CQdrGePolyline2d::kArcSeg) chain.getArcSegAt(i, curve.arc);
  return curve;
}

std::vector<SegmentCurve> segmentCurves(const CQdrGePolyline2d& chain) {
  std::vector<SegmentCurve> curves;
  curves.reserve(static_cast<std::size_t>(chain.numVerts()));
  for (int i = 0; i < chain.numVerts(); ++i)
    curves.push_back(segmentCurve(chain, i));
  return curves;
}

struct Crossing {
  int count = 0;
  std::array<CQdrGePoint2d, 2> points;
};

Crossing cross(const CQdrGeLine2d& a, const CQdrGeLine2d& b, Intersect mode, double tol) {
  Crossing crossing;
  crossing.count = a.intersectWith(b, crossing.points[0], mode, tol) ? 1 : 0;
  return crossing;
}

Crossing cross(const CQdrGeCircArc2d& a, const CQdrGeLine2d& b, Intersect mode, double tol) {
  Crossing crossing;
  if (!a.intersectWith(b, crossing.count, crossing.points[0], crossing.points[1], mode, tol))
    crossing.count = 0;
  return crossing;
}

Crossing cross(const CQdrGeLine2d& a, const CQdrGeCircArc2d& b, Intersect mode, double tol) {
  return cross(b, a, swappedMode(mode), tol);
}

Crossing cross(const CQdrGeCircArc2d& a, const CQdrGeCircArc2d& b, Intersect mode, double tol) {
  Crossing crossing;
  if (!a.intersectWith(b, crossing.count, crossing.points[0], crossing.points[1], mode, tol))
    crossing.count = 0;
  return crossing;
}

/// Crossings of one segment with a line or an arc; none for a segment of another kind.
template <class Curve>
Crossing crossSegment(const SegmentCurve& segment, const Curve& curve, Intersect mode, double tol) {
  if (segment.type == CQdrGePolyline2d::kLineSeg) return cross(segment.line, curve, mode, tol);
  if (segment.type == CQdrGePolyline2d::kArcSeg) return cross(segment.arc, curve, mode, tol);
  return {};
}

Crossing crossSegments(const SegmentCurve& a, const SegmentCurve& b, Intersect mode, double tol) {
  if (b.type == CQdrGePolyline2d::kLineSeg) return crossSegment(a, b.line, mode, tol);
  if (b.type == CQdrGePolyline2d::kArcSeg) return crossSegment(a, b.arc, mode, tol);
  return {};
}

void append(const Crossing& crossing, int segment, std::vector<ChainHit>& hits) {
  for (int k = 0; k < crossing.count; ++k)
    hits.push_back({segment, crossing.points[static_cast<std::size_t>(k)]});
}

template <class Curve>
std::vector<ChainHit> hitsWithEach(const CQdrGePolyline2d& chain, const Curve& curve,
                                   Intersect mode, double tol) {
  std::vector<ChainHit> hits;
  for (int i = 0; i < chain.numVerts(); ++i)
    append(crossSegment(segmentCurve(chain, i), curve, mode, tol), i, hits);
  return hits;
}

/// The same, with a curve object only for the segments that may come near.
template <class Clear, class Curve>
std::vector<ChainHit> hitsWithNear(const CQdrGePolyline2d& chain, const Curve& curve,
                                   Intersect mode, double tol) {
  std::vector<ChainHit> hits;
  const std::vector<CQdrGePoint2d>& points = chain.points();
  if (points.empty()) return hits;
  Clear clear(curve, tol);
  clear.startAt(toVec(points.front()));
  for (std::size_t k = 0; k < points.size(); ++k) {
    const CQdrGePoint2d& next = points[k + 1 < points.size() ? k + 1 : 0];
    if (clear.passes(toVec(next), chain.bulges()[k])) continue;
    const int i = static_cast<int>(k);
    append(crossSegment(segmentCurve(chain, i), curve, mode, tol), i, hits);
  }
  return hits;
}

/// Whether a segment far from a line or circle has no crossing with it: only where no segment is
/// extended.
bool isFarClear(Intersect mode, double tol) {
  const bool keepsSegments =
      mode == CQdrGeEntity2d::kExtendNone || mode == CQdrGeEntity2d::kExtendArg;
  return keepsSegments && tol >= 0.0 && tol <= ClearOfLine::kMost;
}

/// Whether arcs take the line for exactly vertical, which parts the two where it is extended.
bool isTakenForVertical(const CQdrGeLine2d& line, double tol) {
  const double across = line.endPoint().x - line.startPoint().x;
  return std::abs(across) < tol && across != 0.0;
}

/// Collects the crossings of a chain, segment after segment, without neighbours that repeat.
class HitCollector {
 public:
  explicit HitCollector(std::size_t most) : m_most(most) {}

  bool isFull() const { return m_hits.size() >= m_most; }

  void add(int segment, const Crossing& crossing) {
    for (int k = 0; k < crossing.count; ++k) {
      const CQdrGePoint2d& point = crossing.points[static_cast<std::size_t>(k)];
      const bool repeats = !m_hits.empty() && m_hits.back().segment == segment &&
                           m_hits.back().point.isEqualTo(point, kSameHitTolerance);
      if (!repeats && !isFull()) m_hits.push_back({segment, point});
    }
  }

  std::vector<ChainHit> take() { return std::move(m_hits); }

 private:
  std::size_t m_most;
  std::vector<ChainHit> m_hits;
};

/// Box of the places that count as on a segment: its own, widened by `tol`, by the angle that arcs
/// allow beyond their ends, and by what touching ends allow.
Box hitBox(const TravelSegment& segment, double tol) {
  const double margin = tol + 2.0 * (kTouchTolerance + kAngleTolerance * segment.radius);
  const double sweep = std::abs(segment.sweep());
  const bool countsAsWhole =
      sweep <= tol + kAngleTolerance || sweep >= kTwoPi - tol - kAngleTolerance;
  if (!segment.isArc() || !countsAsWhole) return segment.box().inflated(margin);
  // Against a line such an arc counts as its circle, and a near miss counts as touching.
  return boxOfPoint(segment.center).inflated(segment.radius + margin + std::sqrt(tol));
}

std::vector<Box> hitBoxes(const CQdrGePolyline2d& chain, double tol) {
  const std::size_t count = chain.points().size();
  std::vector<Box> boxes(count);
  for (std::size_t i = 0; i < count; ++i) {
    const auto type = chain.segType(static_cast<int>(i));
    if (type != CQdrGePolyline2d::kLineSeg && type != CQdrGePolyline2d::kArcSeg) continue;
    const std::size_t next = i + 1 < count ? i + 1 : 0;
    boxes[i] = hitBox(
        makeSegment(toVec(chain.points()[i]), toVec(chain.points()[next]), chain.bulges()[i]), tol);
  }
  return boxes;
}

}  // namespace

std::vector<ChainHit> hitsByPlainWalk(const CQdrGePolyline2d& chain, const CQdrGeLine2d& line,
                                      Intersect mode, double tol) {
  return hitsWithEach(chain, line, mode, tol);
}

std::vector<ChainHit> hitsByPlainWalk(const CQdrGePolyline2d& chain, const CQdrGeCircArc2d& arc,
                                      Intersect mode, double tol) {
  return hitsWithEach(chain, arc, mode, tol);
}

std::vector<ChainHit> hitsWith(const CQdrGePolyline2d& chain, const CQdrGeLine2d& line,
                               Intersect mode, double tol) {
  const bool isBent = mode == CQdrGeEntity2d::kExtendArg && isTakenForVertical(line, tol);
  if (isBent || !isFarClear(mode, tol)) return hitsWithEach(chain, line, mode, tol);
  return hitsWithNear<ClearOfLine>(chain, line, mode, tol);
}

std::vector<ChainHit> hitsWith(const CQdrGePolyline2d& chain, const CQdrGeCircArc2d& arc,
                               Intersect mode, double tol) {
  if (!isFarClear(mode, tol)) return hitsWithEach(chain, arc, mode, tol);
  return hitsWithNear<ClearOfCircle>(chain, arc, mode, tol);
}

std::vector<ChainHit> hitsByPlainWalk(const CQdrGePolyline2d& chain, const CQdrGePolyline2d& other,
                                      Intersect mode, double tol, std::size_t most) {
  HitCollector collector(most);
  const std::vector<SegmentCurve> others = segmentCurves(other);
  for (int i = 0; i < chain.numVerts() && !collector.isFull(); ++i) {
    const SegmentCurve curve = segmentCurve(chain, i);
    for (const SegmentCurve& otherCurve : others)
      collector.add(i, crossSegments(otherCurve, curve, swappedMode(mode), tol));
  }
  return collector.take();
}

std::vector<ChainHit> hitsWith(const CQdrGePolyline2d& chain, const CQdrGePolyline2d& other,
                               Intersect mode, double tol, std::size_t most) {
  const std::size_t pairs = chain.points().size() * other.points().size();
  if (mode != CQdrGeEntity2d::kExtendNone || pairs < kIndexedPairs)
    return hitsByPlainWalk(chain, other, mode, tol, most);

  HitCollector collector(most);
  const std::vector<SegmentCurve> curves = segmentCurves(chain);
  const std::vector<SegmentCurve> others = segmentCurves(other);
  const BoxIndex index(hitBoxes(chain, tol), BoxIndex::Order::given);
  const BoxIndex otherIndex(hitBoxes(other, tol), BoxIndex::Order::given);
  const auto overlap = [](const Box& a, const Box& b) { return a.overlaps(b); };
  forEachNearPair(index, otherIndex, overlap, [&](std::size_t i, std::size_t j) {
    collector.add(static_cast<int>(i), crossSegments(others[j], curves[i], mode, tol));
    return !collector.isFull();
  });
  return collector.take();
}

}  // namespace qdr
