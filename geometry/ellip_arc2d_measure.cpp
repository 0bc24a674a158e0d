// Questions about the ellipse. Nearly all go to the chain.

#include <cmath>

#include "geometry/angle.h"
#include "geometry/circ_arc2d.h"
#include "geometry/ellip_arc2d.h"
#include "geometry/line2d.h"

bool CQdrGeEllipArc2d::isInside(const CQdrGePoint2d& point, double margin) const {
  const CQdrGePoint2d p = inFrame(point);
  // No number, and then no point inside, when the minor radius is the larger one.
  const double focus = std::sqrt(m_majorRadius * m_majorRadius - m_minorRadius * m_minorRadius);
  const CQdrGeVector2d toFocus(focus, 0.0);
  const double sum = (p.asVector() - toFocus).length() + (p.asVector() + toFocus).length();
  const double polar = p.asVector().angle();
  return sum <= 2.0 * m_majorRadius + margin && m_startAng - margin < polar &&
         polar < m_endAng + margin;
}

bool CQdrGeEllipArc2d::isEqualTo(const CQdrGeEllipArc2d& ellipse, const double& tol) const {
  const auto isNear = [tol](double a, double b) { return std::abs(a - b) <= tol; };
  return isNear(m_center.x, ellipse.m_center.x) && isNear(m_center.y, ellipse.m_center.y) &&
         m_minorAxis.isEqualTo(ellipse.m_minorAxis, tol) &&
         m_majorAxis.isEqualTo(ellipse.m_majorAxis, tol) &&
         isNear(m_minorRadius, ellipse.m_minorRadius) &&
         isNear(m_majorRadius, ellipse.m_majorRadius) && isNear(m_startAng, ellipse.m_startAng) &&
         isNear(m_endAng, ellipse.m_endAng) && m_isClockWise == ellipse.m_isClockWise;
}

bool CQdrGeEllipArc2d::isEqualTo(const CQdrGeEntity2d& entity, const double& tol) const {
  const CQdrGeEllipArc2d* ellipse = qdr::curveAs<CQdrGeEllipArc2d>(entity);
  return ellipse && isEqualTo(*ellipse, tol);
}

int CQdrGeEllipArc2d::isOn(const CQdrGePoint2d& point, const double& tol) const {
  return m_polyline.isOn(point, tol);
}

bool CQdrGeEllipArc2d::isInsidePoint(const CQdrGePoint2d& point) const {
  CQdrGePolyline2d outline;
  getGePolyline(outline);
  return outline.isInsidePoint(point);
}

double CQdrGeEllipArc2d::length() const {
  return m_polyline.length();
}

double CQdrGeEllipArc2d::length(double from, double to, double tol) const {
  if (std::abs(from - to) < tol || from < 0.0 || from > 1.0) return 0.0;
  return std::abs((to - from) * length());
}

double CQdrGeEllipArc2d::paramAtDist(double from, double dist, bool forward, double tol) const {
  return m_polyline.paramAtDist(from, dist, forward, tol);
}

double CQdrGeEllipArc2d::paramAtPoint(const CQdrGePoint2d& point, double tol) const {
  return m_polyline.paramAtPoint(point, tol);
}

double CQdrGeEllipArc2d::distAtParam(double param) const {
  return m_polyline.distAtParam(param);
}

double CQdrGeEllipArc2d::distAtPoint(const CQdrGePoint2d& point, double tol) const {
  return m_polyline.distAtPoint(point, tol);
}

CQdrGePoint2d CQdrGeEllipArc2d::pointAtDist(double dist) const {
  return m_polyline.pointAtDist(dist);
}

CQdrGePoint2d CQdrGeEllipArc2d::pointAtParam(double param) const {
  return pointAtDist(distAtParam(param));
}

CQdrGeVector2d CQdrGeEllipArc2d::normalAtParam(double param) const {
  return m_polyline.normalAtParam(param);
}

CQdrGeVector2d CQdrGeEllipArc2d::normalAtPoint(const CQdrGePoint2d& point, double tol) const {
  return m_polyline.normalAtPoint(point, tol);
}

CQdrGePoint2d CQdrGeEllipArc2d::closestPointTo(const CQdrGePoint2d& point, double tol) const {
  return m_polyline.closestPointTo(point, tol);
}

CQdrGePoint2d CQdrGeEllipArc2d::closestPointTo(const CQdrGeLine2d& line, CQdrGePoint2d& onLine,
                                               double tol) const {
  return m_polyline.closestPointTo(line, onLine, tol);
}

double CQdrGeEllipArc2d::distanceTo(const CQdrGeLine2d& line, double tol) const {
  return m_polyline.distanceTo(line, tol);
}

double CQdrGeEllipArc2d::distanceTo(const CQdrGePoint2d& point, double tol) const {
  return m_polyline.distanceTo(point, tol);
}

double CQdrGeEllipArc2d::curvatureAtParam(double param) const {
  return m_polyline.curvatureAtParam(param);
}

double CQdrGeEllipArc2d::curvatureAtPoint(const CQdrGePoint2d& point, double tol) const {
  return m_polyline.curvatureAtPoint(point, tol);
}

bool CQdrGeEllipArc2d::perpVecFromPoint(const CQdrGePoint2d& point, CQdrGeVector2d& result,
                                        double tol) const {
  return m_polyline.perpVecFromPoint(point, result, tol);
}

bool CQdrGeEllipArc2d::tangent(const CQdrGePoint2d& point, CQdrGeLine2d& line, double tol) const {
  if (!isOn(point, tol)) return false;
  line.set(CQdrGePoint2d(m_majorRadius * m_majorRadius / point.x, 0.0),
           CQdrGePoint2d(0.0, m_minorRadius * m_minorRadius / point.y));
  return true;
}

bool CQdrGeEllipArc2d::intersectWith(const CQdrGeLine2d& line, int& count, CQdrGePoint2d& p1,
                                     CQdrGePoint2d& p2, Intersect mode, double tol) const {
  std::vector<CQdrGePoint2d> hits;
  const bool isHit = m_polyline.intersectWith(line, count, hits, mode, tol);
  if (hits.size() > 0) p1 = hits[0];
  if (hits.size() > 1) p2 = hits[1];
  return isHit;
}

bool CQdrGeEllipArc2d::intersectWith(const CQdrGeCircArc2d& arc, int& count,
                                     std::vector<CQdrGePoint2d>& points, Intersect mode,
                                     double tol) const {
  return m_polyline.intersectWith(arc, count, points, mode, tol);
}

bool CQdrGeEllipArc2d::intersectWith(const CQdrGeEllipArc2d& ellipse, int& count,
                                     std::vector<CQdrGePoint2d>& points, Intersect mode,
                                     double tol) const {
  return m_polyline.intersectWith(ellipse.m_polyline, count, points, mode, tol);
}

bool CQdrGeEllipArc2d::intersectWith(const CQdrGePolyline2d& polyline, int& count,
                                     std::vector<CQdrGePoint2d>& points, Intersect mode,
                                     double tol) const {
  return m_polyline.intersectWith(polyline, count, points, mode, tol);
}
