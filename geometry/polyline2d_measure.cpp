// Lengths, parameters, normals and closest points.

#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>

#include "geometry/circ_arc2d.h"
#include "geometry/internal/bulge.h"
#include "geometry/internal/curve_nearness.h"
#include "geometry/internal/travel_segment.h"
#include "geometry/line2d.h"
#include "geometry/polyline2d.h"
#include "geometry/tolerance.h"
#include "geometry/vec.h"

using namespace qdr;

namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();

/// A place on a chain: the segment and the fraction along its travel; index -1 when there is none.
struct ChainPlace {
  int segment = -1;
  double fraction = 0.0;
};

bool hasLength(CQdrGePolyline2d::SegType type) {
  return type == CQdrGePolyline2d::kLineSeg || type == CQdrGePolyline2d::kArcSeg;
}

TravelSegment travelSegment(const CQdrGePolyline2d& chain, int i) {
  const std::size_t k = static_cast<std::size_t>(i);
  const std::size_t next = k + 1 < chain.points().size() ? k + 1 : 0;
  return makeSegment(toVec(chain.points()[k]), toVec(chain.points()[next]), chain.bulges()[k]);
}

double segmentLength(const CQdrGePolyline2d& chain, int i) {
  return hasLength(chain.segType(i)) ? travelSegment(chain, i).length() : 0.0;
}

double lengthBefore(const CQdrGePolyline2d& chain, int segment) {
  double sum = 0.0;
  for (int i = 0; i < segment; ++i)
    sum += segmentLength(chain, i);
  return sum;
}

/// First segment whose accumulated share of the length reaches `param`.
ChainPlace placeAtParam(const CQdrGePolyline2d& chain, double param) {
  const double total = chain.length();
  if (!(total > 0.0)) return {};
  double before = 0.0;
  for (int i = 0; i < chain.numVerts(); ++i) {
    const double size = segmentLength(chain, i);
    if (size == 0.0) continue;
    if (param <= (before + size) / total) return {i, (param * total - before) / size};
    before += size;
  }
  return {};
}

CQdrGePoint2d endOfChain(const CQdrGePolyline2d& chain) {
  if (chain.numVerts() == 0) return CQdrGePoint2d::kOrigin;
  return chain.isClosed() ? chain.points().front() : chain.points().back();
}

/// A test without angles that spares most segments the search of their closest point. Arcs allow an
/// angle beyond their ends.
bool isSurelyFarther(const TravelSegment& segment, const Vec& point, double reach) {
  const double margin = kPointTolerance * (1.0 + reach) + 2.0 * kAngleTolerance * segment.radius;
  const double limit = reach + margin;
  return distanceSqrdTo(segment, point) > limit * limit;
}

/// The place of an arc nearest to `p`, told without angles, unless it lies so near an end that the
/// angle decides which an arc allows beyond its ends.
std::optional<Vec> nearestPlaceClearOfEnds(const TravelSegment& arc, const Vec& p) {
  const Vec arm = p - arc.center;
  const double armLength = arm.length();
  if (!(armLength > kRoundingRatio * arc.radius)) return std::nullopt;
  const Vec onCircle = arc.center + arm * (arc.radius / armLength);
  const double reach = 2.0 * kAngleTolerance * arc.radius;
  if (distanceSqrd(onCircle, arc.start) < reach * reach ||
      distanceSqrd(onCircle, arc.end) < reach * reach)
    return std::nullopt;
  if (arc.isWithinSweep(onCircle)) return onCircle;
  return distanceSqrd(p, arc.end) < distanceSqrd(p, arc.start) ? arc.end : arc.start;
}

/// The place of segment `i` nearest to `point`; nothing for a segment without length.
std::optional<CQdrGePoint2d> nearestPlaceAt(const CQdrGePolyline2d& chain, int i,
                                            const CQdrGePoint2d& point, double tol) {
  CQdrGeLine2d line;
  if (chain.getLineSegAt(i, line)) return line.closestPointTo(point, tol);
  if (chain.segType(i) != CQdrGePolyline2d::kArcSeg) return std::nullopt;
  const auto place = nearestPlaceClearOfEnds(travelSegment(chain, i), toVec(point));
  if (place) return toPoint(*place);
  CQdrGeCircArc2d arc;
  chain.getArcSegAt(i, arc);
  return arc.closestPointTo(point, tol);
}

}  // namespace

CQdrGePolyline2d::SegType CQdrGePolyline2d::segType(int i) const {
  if (i < 0 || i >= numVerts()) return kEmptySeg;
  const std::size_t k = static_cast<std::size_t>(i);
  const bool isLast = i == numVerts() - 1;
  if (isLast && !m_closed) return kPointSeg;
  const double chord = m_points[k].distanceTo(isLast ? m_points.front() : m_points[k + 1]);
  // The closing segment counts as coincident at exactly the tolerance, the others below it.
  if (isLast ? chord <= kCoincidentTolerance : chord < kCoincidentTolerance) return kCoincidentSeg;
  return isArcBulge(m_bulges[k]) ? kArcSeg : kLineSeg;
}

bool CQdrGePolyline2d::getLineSegAt(int i, CQdrGeLine2d& line) const {
  if (segType(i) != kLineSeg) return false;
  const std::size_t k = static_cast<std::size_t>(i);
  line.set(m_points[k], m_points[(k + 1) % m_points.size()]);
  return true;
}

bool CQdrGePolyline2d::getArcSegAt(int i, CQdrGeCircArc2d& arc) const {
  if (segType(i) != kArcSeg) return false;
  const std::size_t k = static_cast<std::size_t>(i);
  arc.set(m_points[k], m_points[(k + 1) % m_points.size()], m_bulges[k], true);
  return true;
}

bool CQdrGePolyline2d::onSegAt(int i, const CQdrGePoint2d& p, double& t, double tol) const {
  CQdrGeLine2d line;
  if (getLineSegAt(i, line)) {
    if (!line.isOn(p, tol)) return false;
    t = line.startPoint().distanceTo(p) / line.length();
    return true;
  }
  CQdrGeCircArc2d arc;
  if (!getArcSegAt(i, arc) || !arc.isOn(p, tol)) return false;
  t = arc.paramAtPoint(p, kCurveTolerance);
  return true;
}

int CQdrGePolyline2d::isOnSegAt(const CQdrGePoint2d& p, double tol) const {
  double t = 0.0;
  for (int i = 0; i < numVerts(); ++i) {
    if (onSegAt(i, p, t, tol)) return i;
  }
  return -1;
}

int CQdrGePolyline2d::isOn(const CQdrGePoint2d& point, const double& tol) const {
  return isOnSegAt(point, tol) >= 0 ? 1 : 0;
}

double CQdrGePolyline2d::length() const {
  return lengthBefore(*this, numVerts());
}

double CQdrGePolyline2d::length(double from, double to, double tol) const {
  return CQdrGeEntity2d::length(from, to, tol);
}

double CQdrGePolyline2d::paramAtDist(double from, double dist, bool forward, double tol) const {
  if (!(length() > 0.0)) return from;
  return CQdrGeEntity2d::paramAtDist(from, dist, forward, tol);
}

double CQdrGePolyline2d::paramAtPoint(const CQdrGePoint2d& point, double tol) const {
  const int segment = isOnSegAt(point, tol);
  if (segment < 0) return -1.0;
  const double fraction = std::clamp(travelSegment(*this, segment).paramOf(toVec(point)), 0.0, 1.0);
  return paramAtSegParam(segment, fraction);
}

double CQdrGePolyline2d::paramAtSegParam(int i, double t) const {
  if (i < 0 || i >= numVerts()) return -1.0;
  const double total = length();
  if (!(total > 0.0)) return 0.0;
  const double sum = lengthBefore(*this, i) + segmentLength(*this, i) * t;
  return std::min(sum / total, 1.0);
}

double CQdrGePolyline2d::segParamAtParam(double param, int& i) const {
  const ChainPlace place = placeAtParam(*this, param);
  i = place.segment;
  return place.fraction;
}

double CQdrGePolyline2d::distAtParam(double param) const {
  return CQdrGeEntity2d::distAtParam(param);
}

double CQdrGePolyline2d::distAtPoint(const CQdrGePoint2d& point, double tol) const {
  return CQdrGeEntity2d::distAtPoint(point, tol);
}

CQdrGePoint2d CQdrGePolyline2d::pointAtDist(double dist) const {
  return CQdrGeEntity2d::pointAtDist(dist);
}

CQdrGePoint2d CQdrGePolyline2d::pointAtParam(double param) const {
  if (!(length() > 0.0)) return CQdrGePoint2d::kOrigin;
  if (std::abs(param - 1.0) < kEndParamTolerance) return endOfChain(*this);
  const ChainPlace place = placeAtParam(*this, param);
  if (place.segment < 0) return CQdrGePoint2d::kOrigin;
  return toPoint(travelSegment(*this, place.segment).pointAt(place.fraction));
}

CQdrGeVector2d CQdrGePolyline2d::normalAtParam(double param) const {
  const ChainPlace place = placeAtParam(*this, param);
  if (place.segment < 0) return CQdrGeVector2d::kIdentity;
  const TravelSegment segment = travelSegment(*this, place.segment);
  if (segment.isArc())
    return (segment.pointAt(place.fraction) - segment.center).normal(kVectorTolerance);
  return CQdrGeLine2d(toPoint(segment.start), toPoint(segment.end)).normalAtParam(place.fraction);
}

CQdrGeVector2d CQdrGePolyline2d::normalAtPoint(const CQdrGePoint2d& point, double tol) const {
  return CQdrGeEntity2d::normalAtPoint(point, tol);
}

double CQdrGePolyline2d::curvatureAtParam(double param) const {
  CQdrGeCircArc2d arc;
  return getArcSegAt(placeAtParam(*this, param).segment, arc) ? arc.radius() : 0.0;
}

double CQdrGePolyline2d::curvatureAtPoint(const CQdrGePoint2d& point, double tol) const {
  CQdrGeCircArc2d arc;
  return getArcSegAt(isOnSegAt(point, tol), arc) ? arc.radius() : 0.0;
}

CQdrGePoint2d CQdrGePolyline2d::closestPointTo(const CQdrGePoint2d& point, double tol) const {
  int segment = -1;
  return closestPointTo(point, segment, tol);
}

CQdrGePoint2d CQdrGePolyline2d::closestPointTo(const CQdrGePoint2d& point, int& segment,
                                               double tol) const {
  segment = -1;
  CQdrGePoint2d best = m_points.empty() ? CQdrGePoint2d::kOrigin : m_points.front();
  double bestDistance = kInfinity;
  for (int i = 0; i < numVerts(); ++i) {
    if (segment >= 0 && isSurelyFarther(travelSegment(*this, i), toVec(point), bestDistance))
      continue;
    const auto candidate = nearestPlaceAt(*this, i, point, tol);
    if (!candidate) continue;
    const double candidateDistance = candidate->distanceTo(point);
    if (!(candidateDistance < bestDistance)) continue;
    bestDistance = candidateDistance;
    best = *candidate;
    segment = i;
  }
  return best;
}

namespace {

/// Walk over the segments of `chain` that keeps the strictly nearest pair of closest points.
template <class Curve>
CQdrGePoint2d closestPairTo(const CQdrGePolyline2d& chain, const Curve& curve,
                            CQdrGePoint2d& onCurve, double tol) {
  CQdrGePoint2d best = chain.numVerts() == 0 ? CQdrGePoint2d::kOrigin : chain.points().front();
  double bestDistance = kInfinity;
  CQdrGeLine2d line;
  CQdrGeCircArc2d arc;
  for (int i = 0; i < chain.numVerts(); ++i) {
    CQdrGePoint2d candidate, candidateOnCurve;
    if (chain.getLineSegAt(i, line)) {
      candidate = line.closestPointTo(curve, candidateOnCurve, tol);
    } else if (chain.getArcSegAt(i, arc)) {
      candidate = arc.closestPointTo(curve, candidateOnCurve, tol);
    } else {
      continue;
    }
    const double candidateDistance = candidate.distanceTo(candidateOnCurve);
    if (!(candidateDistance < bestDistance)) continue;
    bestDistance = candidateDistance;
    best = candidate;
    onCurve = candidateOnCurve;
  }
  return best;
}

}  // namespace

CQdrGePoint2d CQdrGePolyline2d::closestPointTo(const CQdrGeLine2d& line, CQdrGePoint2d& onLine,
                                               double tol) const {
  return closestPairTo(*this, line, onLine, tol);
}

CQdrGePoint2d CQdrGePolyline2d::closestPointTo(const CQdrGeCircArc2d& arc, CQdrGePoint2d& onArc,
                                               double tol) const {
  return closestPairTo(*this, arc, onArc, tol);
}

double CQdrGePolyline2d::distanceTo(const CQdrGeLine2d& line, double tol) const {
  CQdrGePoint2d onLine;
  return closestPointTo(line, onLine, tol).distanceTo(onLine);
}

double CQdrGePolyline2d::distanceTo(const CQdrGePoint2d& point, double tol) const {
  return closestPointTo(point, tol).distanceTo(point);
}

bool CQdrGePolyline2d::perpVecFromPoint(const CQdrGePoint2d& point, CQdrGeVector2d& result,
                                        double tol) const {
  bool isFound = false;
  bool isFoundOnChain = false;
  CQdrGeLine2d line;
  CQdrGeCircArc2d arc;
  for (int i = 0; i < numVerts(); ++i) {
    CQdrGeVector2d candidate;
    const bool isLine = getLineSegAt(i, line);
    const bool hasFoot = isLine
                             ? line.perpVecFromPoint(point, candidate, tol)
                             : getArcSegAt(i, arc) && arc.perpVecFromPoint(point, candidate, tol);
    if (!hasFoot) continue;
    const CQdrGePoint2d foot = point - candidate;
    const bool isOnChain = (isLine ? line.isOn(foot, kCoincidentTolerance)
                                   : arc.isOn(foot, kCoincidentTolerance)) != 0;
    const bool isBetter =
        isOnChain != isFoundOnChain ? isOnChain : candidate.length() < result.length();
    if (isFound && !isBetter) continue;
    result = candidate;
    isFound = true;
    isFoundOnChain = isOnChain;
  }
  return isFound;
}
