#include "geometry/rect2d.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "geometry/circ_arc2d.h"
#include "geometry/ellip_arc2d.h"
#include "geometry/internal/chain_side.h"
#include "geometry/internal/raw_fields.h"
#include "geometry/line2d.h"

CQdrGeRect2d::CQdrGeRect2d() : CQdrGeEntity2d(kTypeId) {}

CQdrGeRect2d::CQdrGeRect2d(const CQdrGePoint2d& basePoint, const CQdrGeVector2d& diagonal,
                           double rotation)
    : CQdrGeRect2d(basePoint, diagonal.x, diagonal.y, rotation) {}

CQdrGeRect2d::CQdrGeRect2d(const CQdrGePoint2d& basePoint, double width, double height,
                           double rotation)
    : CQdrGeEntity2d(kTypeId) {
  set(basePoint, width, height, rotation);
}

CQdrGeRect2d::CQdrGeRect2d(const CQdrGeRect2d& other) : CQdrGeEntity2d(kTypeId) {
  *this = other;
}

CQdrGeRect2d& CQdrGeRect2d::operator=(const CQdrGeRect2d& other) {
  m_basePoint = other.m_basePoint;
  m_width = other.m_width;
  m_height = other.m_height;
  m_rotation = other.m_rotation;
  m_diagonPoint = other.m_diagonPoint;
  return *this;
}

CQdrGeRect2d& CQdrGeRect2d::set(const CQdrGePoint2d& basePoint, const CQdrGeVector2d& diagonal,
                                double rotation) {
  return set(basePoint, diagonal.x, diagonal.y, rotation);
}

CQdrGeRect2d& CQdrGeRect2d::set(const CQdrGePoint2d& basePoint, double width, double height,
                                double rotation) {
  m_basePoint = basePoint;
  m_width = width;
  m_height = height;
  m_rotation = rotation;
  m_diagonPoint = cornerAt(width, height);
  return *this;
}

void CQdrGeRect2d::setBasePoint(const CQdrGePoint2d& basePoint) {
  set(basePoint, m_width, m_height, m_rotation);
}

void CQdrGeRect2d::setWidth(double width) {
  set(m_basePoint, width, m_height, m_rotation);
}

void CQdrGeRect2d::setHeight(double height) {
  set(m_basePoint, m_width, height, m_rotation);
}

void CQdrGeRect2d::setRotation(double rotation) {
  set(m_basePoint, m_width, m_height, rotation);
}

void CQdrGeRect2d::setDiagonPoint(const CQdrGePoint2d& point) {
  CQdrGeVector2d diagonal = point - m_basePoint;
  set(m_basePoint, diagonal.rotateBy(-m_rotation), m_rotation);
}

CQdrGePoint2d CQdrGeRect2d::cornerAt(double alongWidth, double alongHeight) const {
  const CQdrGeVector2d axis(m_rotation);
  return m_basePoint + axis * alongWidth + axis.perpVector() * alongHeight;
}

CQdrGePoint2d CQdrGeRect2d::centerPoint() const {
  return cornerAt(m_width / 2.0, m_height / 2.0);
}

void CQdrGeRect2d::getVertex(std::vector<CQdrGePoint2d>& points) const {
  points = {m_basePoint, cornerAt(m_width, 0.0), m_diagonPoint, cornerAt(0.0, m_height)};
}

void CQdrGeRect2d::getPolyline(CQdrGePolyline2d& result) const {
  std::vector<CQdrGePoint2d> corners;
  getVertex(corners);
  result.set(corners);
  result.setClosed(true);
}

CQdrGePolyline2d CQdrGeRect2d::boundary() const {
  CQdrGePolyline2d result;
  getPolyline(result);
  return result;
}

bool CQdrGeRect2d::isEqualTo(const CQdrGeRect2d& rect, const double& tol) const {
  const auto isNear = [tol](double a, double b) { return std::abs(a - b) <= tol; };
  return isNear(m_basePoint.x, rect.m_basePoint.x) && isNear(m_basePoint.y, rect.m_basePoint.y) &&
         isNear(m_width, rect.m_width) && isNear(m_height, rect.m_height) &&
         isNear(m_rotation, rect.m_rotation);
}

bool CQdrGeRect2d::isEqualTo(const CQdrGeEntity2d& entity, const double& tol) const {
  const CQdrGeRect2d* rect = qdr::curveAs<CQdrGeRect2d>(entity);
  return rect && isEqualTo(*rect, tol);
}

CQdrGeRect2d& CQdrGeRect2d::transformBy(const CQdrGeMatrix2d& m) {
  const CQdrGeVector2d axis(m_rotation);
  CQdrGePoint2d base = m_basePoint;
  CQdrGePoint2d alongWidth = m_basePoint + axis;
  CQdrGePoint2d alongHeight = m_basePoint + axis.perpVector();
  base.transformBy(m);
  const CQdrGeVector2d u = alongWidth.transformBy(m) - base;
  const CQdrGeVector2d v = alongHeight.transformBy(m) - base;
  // A mirrored height lies to the right of the width: it is negative.
  const double side = u.perpVector().dotProduct(v) < 0.0 ? -1.0 : 1.0;
  const double turn = std::atan2(axis.perpVector().dotProduct(u), axis.dotProduct(u));
  return set(base, m_width * u.length(), side * m_height * v.length(), m_rotation + turn);
}

CQdrGeRect2d& CQdrGeRect2d::scaleBy(double sx, double sy, const CQdrGePoint2d& center) {
  CQdrGeEntity2d::scaleBy(sx, sy, center);
  return *this;
}

CQdrGeRect2d& CQdrGeRect2d::scaleBy(double s, const CQdrGePoint2d& center) {
  CQdrGeEntity2d::scaleBy(s, center);
  return *this;
}

CQdrGeRect2d& CQdrGeRect2d::mirror(const CQdrGeLine2d& line) {
  CQdrGeEntity2d::mirror(line);
  return *this;
}

CQdrGeRect2d& CQdrGeRect2d::rotateBy(double angle, const CQdrGePoint2d& center) {
  m_basePoint.rotateBy(angle, center);
  return set(m_basePoint, m_width, m_height, m_rotation + angle);
}

CQdrGeRect2d& CQdrGeRect2d::translateBy(const CQdrGeVector2d& v) {
  setBasePoint(m_basePoint + v);
  return *this;
}

int CQdrGeRect2d::isOn(const CQdrGePoint2d& point, const double& tol) const {
  return boundary().isOn(point, tol);
}

bool CQdrGeRect2d::isInsidePoint(const CQdrGePoint2d& point) const {
  return boundary().isInsidePoint(point);
}

double CQdrGeRect2d::length() const {
  return boundary().length();
}

double CQdrGeRect2d::length(double from, double to, double tol) const {
  return boundary().length(from, to, tol);
}

double CQdrGeRect2d::paramAtDist(double from, double dist, bool forward, double tol) const {
  return boundary().paramAtDist(from, dist, forward, tol);
}

double CQdrGeRect2d::paramAtPoint(const CQdrGePoint2d& point, double tol) const {
  return boundary().paramAtPoint(point, tol);
}

double CQdrGeRect2d::distAtParam(double param) const {
  return boundary().distAtParam(param);
}

double CQdrGeRect2d::distAtPoint(const CQdrGePoint2d& point, double tol) const {
  return boundary().distAtPoint(point, tol);
}

CQdrGePoint2d CQdrGeRect2d::pointAtDist(double dist) const {
  return boundary().pointAtDist(dist);
}

CQdrGePoint2d CQdrGeRect2d::pointAtParam(double param) const {
  return boundary().pointAtParam(param);
}

CQdrGeVector2d CQdrGeRect2d::normalAtParam(double param) const {
  return boundary().normalAtParam(param);
}

CQdrGeVector2d CQdrGeRect2d::normalAtPoint(const CQdrGePoint2d& point, double tol) const {
  return boundary().normalAtPoint(point, tol);
}

CQdrGePoint2d CQdrGeRect2d::closestPointTo(const CQdrGePoint2d& point, double tol) const {
  return boundary().closestPointTo(point, tol);
}

CQdrGePoint2d CQdrGeRect2d::closestPointTo(const CQdrGeLine2d& line, CQdrGePoint2d& onLine,
                                           double tol) const {
  return boundary().closestPointTo(line, onLine, tol);
}

double CQdrGeRect2d::distanceTo(const CQdrGeLine2d& line, double tol) const {
  return CQdrGeEntity2d::distanceTo(line, tol);
}

double CQdrGeRect2d::distanceTo(const CQdrGePoint2d& point, double tol) const {
  return CQdrGeEntity2d::distanceTo(point, tol);
}

double CQdrGeRect2d::curvatureAtParam(double param) const {
  return CQdrGeEntity2d::curvatureAtParam(param);
}

double CQdrGeRect2d::curvatureAtPoint(const CQdrGePoint2d& point, double tol) const {
  return CQdrGeEntity2d::curvatureAtPoint(point, tol);
}

bool CQdrGeRect2d::perpVecFromPoint(const CQdrGePoint2d& point, CQdrGeVector2d& result,
                                    double tol) const {
  return boundary().perpVecFromPoint(point, result, tol);
}

bool CQdrGeRect2d::offset(const CQdrGePoint2d& side, double dist) {
  const CQdrGeVector2d axis(m_rotation);
  const auto alongAxes = [&](const CQdrGePoint2d& p) -> CQdrGeVector2d {
    return {(p - m_basePoint).dotProduct(axis), (p - m_basePoint).dotProduct(axis.perpVector())};
  };
  CQdrGePolyline2d moved = boundary();
  const int segment = qdr::firstStraightSegment(moved);
  if (segment < 0) return false;
  const CQdrGeVector2d at = alongAxes(side);
  const bool isInside = at.x * (m_width - at.x) >= 0.0 && at.y * (m_height - at.y) >= 0.0;
  const bool isLeft = isInside == (m_width * m_height > 0.0);
  if (!moved.offset(qdr::placeBeside(moved, segment, isLeft), dist)) return false;

  // The polyline may begin at another corner; along the axes its bounds are the rectangle.
  const CQdrGeVector2d first = alongAxes(moved.points().front());
  CQdrGeVector2d least = first;
  CQdrGeVector2d most = first;
  for (const CQdrGePoint2d& corner : moved.points()) {
    const CQdrGeVector2d v = alongAxes(corner);
    least = {std::min(least.x, v.x), std::min(least.y, v.y)};
    most = {std::max(most.x, v.x), std::max(most.y, v.y)};
  }
  if (m_width < 0.0) std::swap(least.x, most.x);
  if (m_height < 0.0) std::swap(least.y, most.y);
  set(cornerAt(least.x, least.y), most - least, m_rotation);
  return true;
}

bool CQdrGeRect2d::intersectWith(const CQdrGeLine2d& line, int& count,
                                 std::vector<CQdrGePoint2d>& points, Intersect mode,
                                 double tol) const {
  return boundary().intersectWith(line, count, points, mode, tol);
}

bool CQdrGeRect2d::intersectWith(const CQdrGeCircArc2d& arc, int& count,
                                 std::vector<CQdrGePoint2d>& points, Intersect mode,
                                 double tol) const {
  return boundary().intersectWith(arc, count, points, mode, tol);
}

bool CQdrGeRect2d::intersectWith(const CQdrGeEllipArc2d& ellipse, int& count,
                                 std::vector<CQdrGePoint2d>& points, Intersect mode,
                                 double tol) const {
  return boundary().intersectWith(ellipse, count, points, mode, tol);
}

bool CQdrGeRect2d::intersectWith(const CQdrGePolyline2d& polyline, int& count,
                                 std::vector<CQdrGePoint2d>& points, Intersect mode,
                                 double tol) const {
  return boundary().intersectWith(polyline, count, points, mode, tol);
}

void CQdrGeRect2d::save(CFile* file) const {
  m_basePoint.save(file);
  qdr::writeFields(file, m_width, m_height, m_rotation);
}

void CQdrGeRect2d::read(CFile* file) {
  m_basePoint.read(file);
  qdr::readFields(file, m_width, m_height, m_rotation);
  m_diagonPoint = cornerAt(m_width, m_height);
}
