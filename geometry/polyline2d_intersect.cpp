// Crossings of a polyline with lines, arcs, ellipses and polylines, and the inside test.

#include <algorithm>
#include <cmath>

#include "geometry/circ_arc2d.h"
#include "geometry/internal/chain_crossings.h"
#include "geometry/line2d.h"
#include "geometry/polyline2d.h"
#include "geometry/tolerance.h"
#include "geometry/vec.h"

using namespace qdr;

namespace {

/// Decimal places of a map key, as a factor.
constexpr double kKeyScale = 100000000.0;

/// Drops each hit within 0.001 of the one kept before it.
void dropRepeatedHits(std::vector<ChainHit>& hits) {
  const auto isSame = [](const ChainHit& kept, const ChainHit& hit) {
    return kept.point.isEqualTo(hit.point, kSameHitTolerance);
  };
  hits.erase(std::unique(hits.begin(), hits.end(), isSame), hits.end());
}

bool appendHits(const std::vector<ChainHit>& hits, int& count, std::vector<CQdrGePoint2d>& points) {
  for (const ChainHit& hit : hits)
    points.push_back(hit.point);
  count = CQdrGePolyline2d::CheckSameIntPoints(points);
  return !points.empty();
}

/// Distance of a hit from the start of its segment, along the travel. A hit beyond the end of a
/// line counts on, one off its arc counts as the arc's length backward.
double distAlongSegment(const CQdrGePolyline2d& chain, const ChainHit& hit) {
  CQdrGeLine2d line;
  if (chain.getLineSegAt(hit.segment, line)) return line.distAtPoint(hit.point, kCurveTolerance);
  CQdrGeCircArc2d arc;
  if (!chain.getArcSegAt(hit.segment, arc)) return 0.0;
  const double size = arc.length();
  const double along = arc.distAtPoint(hit.point, kCurveTolerance);
  const bool runsBackward = chain.getBulgeAt(hit.segment) <= 0.0;
  return runsBackward && along >= 0.0 ? size - along : along;
}

double segmentLength(const CQdrGePolyline2d& chain, int i) {
  CQdrGeLine2d line;
  if (chain.getLineSegAt(i, line)) return line.length();
  CQdrGeCircArc2d arc;
  return chain.getArcSegAt(i, arc) ? arc.length() : 0.0;
}

/// Hits come in the order of their segments, so one walk carries the length of finished ones.
bool addToMap(const CQdrGePolyline2d& chain, const std::vector<ChainHit>& hits, int& count,
              std::map<double, CQdrGePoint2d>& result) {
  const double total = chain.length();
  double finished = 0.0;
  int segment = 0;
  for (const ChainHit& hit : hits) {
    for (; segment < hit.segment; ++segment)
      finished += segmentLength(chain, segment);
    const double param = std::min((finished + distAlongSegment(chain, hit)) / total, 1.0);
    result.emplace(std::trunc(param * kKeyScale) / kKeyScale, hit.point);
  }
  count = static_cast<int>(result.size());
  return count != 0;
}

/// A hit at a shared vertex is found on both segments: the second, at one place with the first, is
/// dropped, so that its key cannot fall beside the key of the first.
void dropVertexRepeats(std::vector<ChainHit>& hits) {
  const auto isSame = [](const ChainHit& kept, const ChainHit& hit) {
    return kept.segment != hit.segment && kept.point == hit.point;
  };
  hits.erase(std::unique(hits.begin(), hits.end(), isSame), hits.end());
}

/// How many of the points are left when each is dropped that lies within 0.001 of an earlier one
/// that stays. The points lie along one line, `along` its direction.
int countDistinct(const std::vector<CQdrGePoint2d>& points, const Vec& along) {
  std::multimap<double, const CQdrGePoint2d*> kept;
  for (const CQdrGePoint2d& point : points) {
    const double place = dot(toVec(point), along);
    auto near = kept.lower_bound(place - kSameHitTolerance);
    bool isNew = true;
    for (; isNew && near != kept.end() && near->first <= place + kSameHitTolerance; ++near)
      isNew = !near->second->isEqualTo(point, kSameHitTolerance);
    if (isNew) kept.emplace(place, &point);
  }
  return static_cast<int>(kept.size());
}

}  // namespace

int CQdrGePolyline2d::CheckSameIntPoints(std::vector<CQdrGePoint2d>& points) {
  const auto isSame = [](const CQdrGePoint2d& kept, const CQdrGePoint2d& point) {
    return kept.isEqualTo(point, kSameHitTolerance);
  };
  points.erase(std::unique(points.begin(), points.end(), isSame), points.end());
  return static_cast<int>(points.size());
}

bool CQdrGePolyline2d::intersectWith(const CQdrGeLine2d& line, int& count,
                                     std::vector<CQdrGePoint2d>& points, Intersect mode,
                                     double tol) const {
  if (!isIntersectMode(mode)) return false;
  return appendHits(hitsWith(*this, line, mode, tol), count, points);
}

bool CQdrGePolyline2d::intersectWith(const CQdrGeCircArc2d& arc, int& count,
                                     std::vector<CQdrGePoint2d>& points, Intersect mode,
                                     double tol) const {
  if (!isIntersectMode(mode)) return false;
  return appendHits(hitsWith(*this, arc, mode, tol), count, points);
}

bool CQdrGePolyline2d::intersectWith(const CQdrGePolyline2d& other, int& count,
                                     std::vector<CQdrGePoint2d>& points, Intersect mode,
                                     double tol) const {
  if (!isIntersectMode(mode)) return false;
  return appendHits(hitsWith(*this, other, mode, tol), count, points);
}

bool CQdrGePolyline2d::intersectWith(const CQdrGeLine2d& line, int& count,
                                     std::map<double, CQdrGePoint2d>& result, Intersect mode,
                                     double tol) const {
  if (!isIntersectMode(mode)) return false;
  std::vector<ChainHit> hits = hitsWith(*this, line, mode, tol);
  dropVertexRepeats(hits);
  return addToMap(*this, hits, count, result);
}

bool CQdrGePolyline2d::intersectWith(const CQdrGeCircArc2d& arc, int& count,
                                     std::map<double, CQdrGePoint2d>& result, Intersect mode,
                                     double tol) const {
  if (!isIntersectMode(mode)) return false;
  std::vector<ChainHit> hits = hitsWith(*this, arc, mode, tol);
  dropVertexRepeats(hits);
  return addToMap(*this, hits, count, result);
}

bool CQdrGePolyline2d::intersectWith(const CQdrGePolyline2d& other, int& count,
                                     std::map<double, CQdrGePoint2d>& result, Intersect mode,
                                     double tol) const {
  if (!isIntersectMode(mode)) return false;
  std::vector<ChainHit> hits = hitsWith(*this, other, mode, tol);
  dropRepeatedHits(hits);
  return addToMap(*this, hits, count, result);
}

bool CQdrGePolyline2d::isInsidePoint(const CQdrGePoint2d& point) const {
  if (!closed()) return false;
  CQdrGePoint2d min, max;
  getMinMaxpoint(min, max);
  const CQdrGePoint2d outside(min.x - kOutsideStepX, min.y - kOutsideStepY);
  const CQdrGeLine2d way(outside, point);
  int count = 0;
  std::vector<CQdrGePoint2d> crossings;
  appendHits(hitsWith(*this, way, kExtendNone, kSameHitTolerance), count, crossings);
  const Vec along = (toVec(point) - toVec(outside)).normal(0.0);
  return countDistinct(crossings, along) % 2 == 1;
}
