#include <cmath>

#include "geometry/circ_arc2d.h"
#include "geometry/ellip_arc2d.h"
#include "geometry/line2d.h"
#include "geometry/polyline2d.h"

namespace {

bool isPoint(const CQdrGeVector2d& along) {
  return std::abs(along.x) < qdr::kSegmentTolerance && std::abs(along.y) < qdr::kSegmentTolerance;
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
  const auto holdsBoth = [](const CQdrGeLine2d& holder, const CQdrGeLine2d& held) {
    return holder.isOn(held.m_start, qdr::kPointTolerance) &&
           holder.isOn(held.m_end, qdr::kPointTolerance);
  };
  if (holdsBoth(*this, line) || holdsBoth(line, *this)) return false;

  const CQdrGeVector2d ours = m_end - m_start;
  const CQdrGeVector2d theirs = line.m_end - line.m_start;
  if (isPoint(ours) || isPoint(theirs)) return false;

  // The square of the cross product is |ours|^2 |theirs|^2 - (ours . theirs)^2, without the digits
  // that this difference loses for nearly parallel lines.
  const double turn = ours.x * theirs.y - ours.y * theirs.x;
  if (!(turn * turn > qdr::kSegmentTolerance)) return false;
  const CQdrGeVector2d between = m_start - line.m_start;
  const double param = (theirs.x * between.y - theirs.y * between.x) / turn;

  // Lines that meet at their ends are tested against the point they get, which is written even
  // when the mode then refuses it.
  result = m_start + ours * param;
  switch (mode) {
    case kExtendNone:
      return isOn(result, tol) && line.isOn(result, tol);
    case kExtendThis:
      return line.isOn(result, tol) != 0;
    case kExtendArg:
      return isOn(result, tol) != 0;
    case kExtendBoth:
      return true;
  }
  return false;
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
