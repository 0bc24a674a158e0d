#include <algorithm>
#include <cmath>

#include "geometry/angle.h"
#include "geometry/circ_arc2d.h"
#include "geometry/ellip_arc2d.h"
#include "geometry/line2d.h"
#include "geometry/polyline2d.h"

namespace {

// Keeps those of two hits that count: a lone second hit moves into p1.
int keepHits(bool keepsFirst, bool keepsSecond, CQdrGePoint2d& p1, const CQdrGePoint2d& p2) {
  if (keepsFirst) return keepsSecond ? 2 : 1;
  if (!keepsSecond) return 0;
  p1 = p2;
  return 1;
}

// Where a line meets a circle: both hits lie `reach` from `foot`, the point of the infinite line
// nearest to the center, along the unit vector `along`.
struct Crossing {
  CQdrGePoint2d foot;
  CQdrGeVector2d along;
  double reach = 0.0;
  bool isTouch = false;
};

// False when the line passes the circle. The test for a touch is that of the quadratic in x of
// y = m x + c, or in y of a vertical line: its discriminant is 4 (1 + m^2) (r^2 - h^2), h being the
// distance of the line from the center, and it is below `tol` at a touch.
bool crossCircle(const CQdrGeLine2d& line, const CQdrGePoint2d& center, double radius, double tol,
                 Crossing& crossing) {
  const CQdrGeVector2d way = line.endPoint() - line.startPoint();
  const bool isVertical = std::abs(way.x) < tol || way.x == 0.0;
  CQdrGeVector2d along = isVertical ? CQdrGeVector2d::kYAxis : way / way.length();
  if (along.x < 0.0) along.negate();
  const CQdrGeVector2d toStart = line.startPoint() - center;
  const double h = along.x * toStart.y - along.y * toStart.x;
  const double leading = isVertical ? 1.0 : 1.0 / (along.x * along.x);
  const double inside = (radius - h) * (radius + h);
  const double discriminant = 4.0 * leading * inside;
  if (leading < qdr::kQuadraticTolerance || !(discriminant >= 0.0)) return false;
  crossing.along = along;
  crossing.foot = center + along.perpVector() * h;
  crossing.isTouch = discriminant < tol;
  crossing.reach = crossing.isTouch ? 0.0 : std::sqrt(inside);
  return true;
}

}  // namespace

bool CQdrGeCircArc2d::intersectWith(const CQdrGeLine2d& line, int& count, CQdrGePoint2d& p1,
                                    CQdrGePoint2d& p2, Intersect mode, double tol) const {
  count = 0;
  Crossing crossing;
  if (!crossCircle(line, m_center, m_radius, tol, crossing)) return false;

  const double turned = std::abs(m_endAng - m_startAng);
  const bool isWholeHere = std::abs(turned - qdr::kTwoPi) <= tol || turned <= tol;
  const auto keeps = [&](const CQdrGePoint2d& hit) {
    return qdr::keepsHit(
        mode, [&] { return isWholeHere || isOn(hit, tol); },
        [&] { return line.isOn(hit, tol) != 0; });
  };
  p1 = crossing.foot + crossing.along * crossing.reach;
  if (crossing.isTouch) {
    count = keeps(p1) ? 1 : 0;
  } else {
    p2 = crossing.foot - crossing.along * crossing.reach;
    count = keepHits(keeps(p1), keeps(p2), p1, p2);
  }
  return count != 0;
}

bool CQdrGeCircArc2d::intersectWith(const CQdrGeCircArc2d& arc, int& count, CQdrGePoint2d& p1,
                                    CQdrGePoint2d& p2, Intersect mode, double tol) const {
  const CQdrGeVector2d between = arc.m_center - m_center;
  const double d = between.length();
  const double radii = m_radius + arc.m_radius;
  if (!(d <= radii + tol) || !(std::abs(m_radius - arc.m_radius - tol) <= d) || d == 0.0)
    return false;

  if (std::abs(d - radii) < tol) {
    for (const CQdrGePoint2d& end : {arc.startPoint(), arc.endPoint()}) {
      if (!end.isEqualTo(startPoint(), qdr::kTouchTolerance) &&
          !end.isEqualTo(endPoint(), qdr::kTouchTolerance))
        continue;
      count = 1;
      p1 = end;
      return true;
    }
    return false;
  }

  const CQdrGeVector2d along = between / d;
  const double a = (d * d + (m_radius - arc.m_radius) * radii) / (2.0 * d);
  const double reach = std::sqrt(std::abs((m_radius - a) * (m_radius + a)));
  const CQdrGePoint2d foot = m_center + along * a;
  p1 = foot + along.perpVector() * reach;
  p2 = foot - along.perpVector() * reach;
  const auto keeps = [&](const CQdrGePoint2d& hit) {
    return qdr::keepsHit(
        mode, [&] { return isOn(hit, tol) != 0; }, [&] { return arc.isOn(hit, tol) != 0; });
  };
  count = keepHits(keeps(p1), keeps(p2), p1, p2);
  return count != 0;
}

bool CQdrGeCircArc2d::intersectWith(const CQdrGeEllipArc2d& ellipse, int& count,
                                    std::vector<CQdrGePoint2d>& points, Intersect mode,
                                    double tol) const {
  if (!qdr::isIntersectMode(mode)) return false;
  return ellipse.intersectWith(*this, count, points, qdr::swappedMode(mode), tol);
}

bool CQdrGeCircArc2d::intersectWith(const CQdrGePolyline2d& polyline, int& count,
                                    std::vector<CQdrGePoint2d>& points, Intersect mode,
                                    double tol) const {
  if (!qdr::isIntersectMode(mode)) return false;
  return polyline.intersectWith(*this, count, points, qdr::swappedMode(mode), tol);
}
