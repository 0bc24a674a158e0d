#include <cmath>

#include "geometry/circ_arc2d.h"
#include "geometry/ellip_arc2d.h"
#include "geometry/line2d.h"
#include "geometry/polyline2d.h"

namespace {

double cross(const CQdrGeVector2d& a, const CQdrGeVector2d& b) {
  return a.x * b.y - a.y * b.x;
}

bool isPoint(const CQdrGeVector2d& along) {
  return std::abs(along.x) < qdr::kSegmentTolerance && std::abs(along.y) < qdr::kSegmentTolerance;
}

// True when both ends of `held` lie on `holder`; a look at their distances from the infinite line
// settles almost every case.
bool holdsBoth(const CQdrGeLine2d& holder, const CQdrGeLine2d& held) {
  const CQdrGeVector2d along = holder.endPoint() - holder.startPoint();
  const double off = cross(along, held.startPoint() - holder.startPoint());
  const double reach = qdr::kPointTolerance + qdr::kCertainMargin;
  if (off * off > reach * reach * along.lengthSqrd()) return false;
  return holder.isOn(held.startPoint(), qdr::kPointTolerance) &&
         holder.isOn(held.endPoint(), qdr::kPointTolerance);
}

// False only for a place on the infinite line, at `param` of the segment, that is certainly
// farther than `tol` from the segment.
bool mayLieOn(double param, const CQdrGeVector2d& along, double tol) {
  const double beyond = param < 0.0 ? -param : param - 1.0;
  const double reach = tol + qdr::kCertainMargin;
  return !(beyond > 0.0 && beyond * beyond * along.lengthSqrd() > reach * reach);
}

// The hits of a curve that answers two points, as a list.
template <class Curve>
bool listHits(const CQdrGeLine2d& line, const Curve& curve, int& count,
              std::vector<CQdrGePoint2d>& points, CQdrGeEntity2d::Intersect mode, double tol) {
  points.clear();
  if (!qdr::isIntersectMode(mode)) return false;
  CQdrGePoint2d p1, p2;
  curve.intersectWith(line, count, p1, p2, qdr::swappedMode(mode), tol);
  if (count == 0) return false;
  points.push_back(p1);
  if (count >= 2) points.push_back(p2);
  return true;
}

}  // namespace

bool CQdrGeLine2d::intersectWith(const CQdrGeLine2d& line, CQdrGePoint2d& result, Intersect mode,
                                 double tol) const {
  if (holdsBoth(*this, line) || holdsBoth(line, *this)) return false;
  const CQdrGeVector2d ours = m_end - m_start;
  const CQdrGeVector2d theirs = line.m_end - line.m_start;
  if (isPoint(ours) || isPoint(theirs)) return false;

  // The square of the cross product is |ours|^2 |theirs|^2 - (ours . theirs)^2, without the digits
  // that this difference loses for nearly parallel lines.
  const double turn = cross(ours, theirs);
  if (!(turn * turn > qdr::kSegmentTolerance)) return false;
  const CQdrGeVector2d between = m_start - line.m_start;
  const double param = cross(theirs, between) / turn;
  const double theirParam = cross(ours, between) / turn;

  // Written even when the mode then refuses it: callers rely on the crossing of the infinite lines.
  result = m_start + ours * param;
  return qdr::keepsHit(
      mode, [&] { return mayLieOn(param, ours, tol) && isOn(result, tol); },
      [&] { return mayLieOn(theirParam, theirs, tol) && line.isOn(result, tol); });
}

bool CQdrGeLine2d::intersectWith(const CQdrGeLine2d& line, int& count,
                                 std::vector<CQdrGePoint2d>& points, Intersect mode,
                                 double tol) const {
  CQdrGePoint2d hit;
  if (!intersectWith(line, hit, mode, tol)) return false;
  count = 1;
  points.push_back(hit);
  return true;
}

bool CQdrGeLine2d::intersectWith(const CQdrGeCircArc2d& arc, int& count,
                                 std::vector<CQdrGePoint2d>& points, Intersect mode,
                                 double tol) const {
  return listHits(*this, arc, count, points, mode, tol);
}

bool CQdrGeLine2d::intersectWith(const CQdrGeEllipArc2d& ellipse, int& count,
                                 std::vector<CQdrGePoint2d>& points, Intersect mode,
                                 double tol) const {
  return listHits(*this, ellipse, count, points, mode, tol);
}

bool CQdrGeLine2d::intersectWith(const CQdrGePolyline2d& polyline, int& count,
                                 std::vector<CQdrGePoint2d>& points, Intersect mode,
                                 double tol) const {
  points.clear();
  if (!qdr::isIntersectMode(mode)) return false;
  return polyline.intersectWith(*this, count, points, qdr::swappedMode(mode), tol);
}
