// The curve interface of the spline: all of it runs on its polyline.

#include "geometry/line2d.h"
#include "geometry/spline.h"

int CQdrGeSpline::isOn(const CQdrGePoint2d& point, const double& tol) const {
  return polyline().isOn(point, tol);
}

CQdrGeSpline& CQdrGeSpline::scaleBy(double sx, double sy, const CQdrGePoint2d& center) {
  CQdrGeEntity2d::scaleBy(sx, sy, center);
  return *this;
}

CQdrGeSpline& CQdrGeSpline::scaleBy(double s, const CQdrGePoint2d& center) {
  CQdrGeEntity2d::scaleBy(s, center);
  return *this;
}

CQdrGeSpline& CQdrGeSpline::mirror(const CQdrGeLine2d& line) {
  CQdrGeEntity2d::mirror(line);
  return *this;
}

CQdrGeSpline& CQdrGeSpline::rotateBy(double angle, const CQdrGePoint2d& center) {
  CQdrGeEntity2d::rotateBy(angle, center);
  return *this;
}

CQdrGeSpline& CQdrGeSpline::translateBy(const CQdrGeVector2d& v) {
  for (CQdrGePoint2d& point : m_points)
    point += v;
  m_isStale = true;
  return *this;
}

CQdrGeSpline& CQdrGeSpline::transformBy(const CQdrGeMatrix2d& m) {
  for (CQdrGePoint2d& point : m_points)
    point.transformBy(m);
  m_isStale = true;
  return *this;
}

double CQdrGeSpline::length() const {
  return polyline().length();
}

double CQdrGeSpline::length(double from, double to, double tol) const {
  return polyline().length(from, to, tol);
}

double CQdrGeSpline::paramAtDist(double from, double dist, bool forward, double tol) const {
  return polyline().paramAtDist(from, dist, forward, tol);
}

double CQdrGeSpline::paramAtPoint(const CQdrGePoint2d& point, double tol) const {
  return polyline().paramAtPoint(point, tol);
}

double CQdrGeSpline::distAtParam(double param) const {
  return polyline().distAtParam(param);
}

double CQdrGeSpline::distAtPoint(const CQdrGePoint2d& point, double tol) const {
  return polyline().distAtPoint(point, tol);
}

CQdrGePoint2d CQdrGeSpline::pointAtDist(double dist) const {
  return polyline().pointAtDist(dist);
}

CQdrGePoint2d CQdrGeSpline::pointAtParam(double param) const {
  return polyline().pointAtParam(param);
}

CQdrGeVector2d CQdrGeSpline::normalAtParam(double param) const {
  return polyline().normalAtParam(param);
}

CQdrGeVector2d CQdrGeSpline::normalAtPoint(const CQdrGePoint2d& point, double tol) const {
  return polyline().normalAtPoint(point, tol);
}

CQdrGePoint2d CQdrGeSpline::closestPointTo(const CQdrGePoint2d& point, double tol) const {
  return polyline().closestPointTo(point, tol);
}

CQdrGePoint2d CQdrGeSpline::closestPointTo(const CQdrGeLine2d& line, CQdrGePoint2d& onLine,
                                           double tol) const {
  return polyline().closestPointTo(line, onLine, tol);
}

double CQdrGeSpline::distanceTo(const CQdrGeLine2d& line, double tol) const {
  return polyline().distanceTo(line, tol);
}

double CQdrGeSpline::distanceTo(const CQdrGePoint2d& point, double tol) const {
  return polyline().distanceTo(point, tol);
}

double CQdrGeSpline::curvatureAtParam(double param) const {
  return polyline().curvatureAtParam(param);
}

double CQdrGeSpline::curvatureAtPoint(const CQdrGePoint2d& point, double tol) const {
  return polyline().curvatureAtPoint(point, tol);
}

bool CQdrGeSpline::perpVecFromPoint(const CQdrGePoint2d& point, CQdrGeVector2d& result,
                                    double tol) const {
  return polyline().perpVecFromPoint(point, result, tol);
}
