// The curve interface of the cubic spline: all of it runs on its polyline.

#include "geometry/cspline2d.h"
#include "geometry/line2d.h"

int CQdrGeCSpline2d::isOn(const CQdrGePoint2d& point, const double& tol) const {
  return polyline().isOn(point, tol);
}

CQdrGeCSpline2d& CQdrGeCSpline2d::scaleBy(double sx, double sy, const CQdrGePoint2d& center) {
  CQdrGeEntity2d::scaleBy(sx, sy, center);
  return *this;
}

CQdrGeCSpline2d& CQdrGeCSpline2d::scaleBy(double s, const CQdrGePoint2d& center) {
  CQdrGeEntity2d::scaleBy(s, center);
  return *this;
}

CQdrGeCSpline2d& CQdrGeCSpline2d::mirror(const CQdrGeLine2d& line) {
  CQdrGeEntity2d::mirror(line);
  return *this;
}

CQdrGeCSpline2d& CQdrGeCSpline2d::rotateBy(double angle, const CQdrGePoint2d& center) {
  CQdrGeEntity2d::rotateBy(angle, center);
  return *this;
}

CQdrGeCSpline2d& CQdrGeCSpline2d::translateBy(const CQdrGeVector2d& v) {
  for (CQdrGePoint2d& point : m_points)
    point += v;
  m_isStale = true;
  return *this;
}

CQdrGeCSpline2d& CQdrGeCSpline2d::transformBy(const CQdrGeMatrix2d& m) {
  for (CQdrGePoint2d& point : m_points)
    point.transformBy(m);
  m_isStale = true;
  return *this;
}

double CQdrGeCSpline2d::length() const {
  return polyline().length();
}

double CQdrGeCSpline2d::length(double from, double to, double tol) const {
  return CQdrGeEntity2d::length(from, to, tol);
}

double CQdrGeCSpline2d::paramAtDist(double from, double dist, bool forward, double tol) const {
  return CQdrGeEntity2d::paramAtDist(from, dist, forward, tol);
}

double CQdrGeCSpline2d::paramAtPoint(const CQdrGePoint2d& point, double tol) const {
  return polyline().paramAtPoint(point, tol);
}

double CQdrGeCSpline2d::distAtParam(double param) const {
  return CQdrGeEntity2d::distAtParam(param);
}

double CQdrGeCSpline2d::distAtPoint(const CQdrGePoint2d& point, double tol) const {
  return CQdrGeEntity2d::distAtPoint(point, tol);
}

CQdrGePoint2d CQdrGeCSpline2d::pointAtDist(double dist) const {
  return polyline().pointAtDist(dist);
}

CQdrGePoint2d CQdrGeCSpline2d::pointAtParam(double param) const {
  return polyline().pointAtParam(param);
}

CQdrGeVector2d CQdrGeCSpline2d::normalAtParam(double param) const {
  return polyline().normalAtParam(param);
}

CQdrGeVector2d CQdrGeCSpline2d::normalAtPoint(const CQdrGePoint2d& point, double tol) const {
  return CQdrGeEntity2d::normalAtPoint(point, tol);
}

CQdrGePoint2d CQdrGeCSpline2d::closestPointTo(const CQdrGePoint2d& point, double tol) const {
  return polyline().closestPointTo(point, tol);
}

CQdrGePoint2d CQdrGeCSpline2d::closestPointTo(const CQdrGeLine2d& line, CQdrGePoint2d& onLine,
                                              double tol) const {
  return polyline().closestPointTo(line, onLine, tol);
}

double CQdrGeCSpline2d::distanceTo(const CQdrGeLine2d& line, double tol) const {
  return polyline().distanceTo(line, tol);
}

double CQdrGeCSpline2d::distanceTo(const CQdrGePoint2d& point, double tol) const {
  return polyline().distanceTo(point, tol);
}

double CQdrGeCSpline2d::curvatureAtParam(double param) const {
  return CQdrGeEntity2d::curvatureAtParam(param);
}

double CQdrGeCSpline2d::curvatureAtPoint(const CQdrGePoint2d& point, double tol) const {
  return CQdrGeEntity2d::curvatureAtPoint(point, tol);
}

bool CQdrGeCSpline2d::perpVecFromPoint(const CQdrGePoint2d& point, CQdrGeVector2d& result,
                                       double tol) const {
  return polyline().perpVecFromPoint(point, result, tol);
}
