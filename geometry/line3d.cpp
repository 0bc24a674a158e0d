#include "geometry/line3d.h"

#include <algorithm>
#include <cmath>

#include "geometry/plane.h"

namespace {

// Half length of a line that stands for an infinite one, in lengths of the line it crosses.
constexpr double kPerpReach = 1e9;

bool isParam(double param) {
  return param >= 0.0 && param <= 1.0;
}

// Numerator over denominator of a segment parameter, held to [0, 1] by clipping the numerator.
struct Fraction {
  double top = 0.0;
  double bottom = 1.0;

  double value() const { return top / bottom; }
};

// Parameters of the closest points of two segments, after D. Sunday, "Distance between Lines and
// Segments with their Closest Point of Approach" (2001).
struct ClosestParams {
  Fraction s;
  Fraction t;
};

ClosestParams closestParams(const CQdrGeVector3d& u, const CQdrGeVector3d& v,
                            const CQdrGeVector3d& w, double tol) {
  const double a = u.dotProduct(u);
  const double b = u.dotProduct(v);
  const double c = v.dotProduct(v);
  const double d = u.dotProduct(w);
  const double e = v.dotProduct(w);
  const double cross = a * c - b * b;
  ClosestParams p{{0.0, cross}, {e, c}};
  if (cross >= tol) p = {{b * e - c * d, cross}, {a * e - b * d, cross}};

  if (p.s.top < 0.0) {
    p = {{0.0, cross}, {e, c}};
  } else if (p.s.top > p.s.bottom) {
    p = {{cross, cross}, {e + b, c}};
  }
  if (p.t.top < 0.0) {
    p.t.top = 0.0;
    p.s = {std::clamp(-d, 0.0, a), a};
  } else if (p.t.top > p.t.bottom) {
    p.t.top = p.t.bottom;
    p.s = {std::clamp(b - d, 0.0, a), a};
  }
  return p;
}

// A vector of length 1 across `v`, which must not be zero.
CQdrGeVector3d anyPerpendicular(const CQdrGeVector3d& v) {
  const bool isNearX = std::abs(v.x) >= std::max(std::abs(v.y), std::abs(v.z));
  const CQdrGeVector3d across =
      v.crossProduct(isNearX ? CQdrGeVector3d::kYAxis : CQdrGeVector3d::kXAxis);
  return across / across.length();
}

}  // namespace

CQdrGeLine3d& CQdrGeLine3d::set(const CQdrGePoint3d& start, const CQdrGePoint3d& end) {
  m_start = start;
  m_end = end;
  return *this;
}

CQdrGeLine3d& CQdrGeLine3d::set(const CQdrGePoint3d& start, const CQdrGeVector3d& v) {
  return set(start, start + v);
}

void CQdrGeLine3d::getPoints(CQdrGePoint3d& start, CQdrGePoint3d& end) const {
  start = m_start;
  end = m_end;
}

CQdrGePoint3d CQdrGeLine3d::midPoint() const {
  return pointAtParam(0.5);
}

bool CQdrGeLine3d::isEqualTo(const CQdrGeLine3d& line, double tol) const {
  return m_start.isEqualTo(line.m_start, tol) && m_end.isEqualTo(line.m_end, tol);
}

bool CQdrGeLine3d::operator==(const CQdrGeLine3d& line) const {
  return m_start == line.m_start && m_end == line.m_end;
}

bool CQdrGeLine3d::isParallelTo(const CQdrGeLine3d& line, double tol) const {
  return direction().isParallelTo(line.direction(), tol);
}

bool CQdrGeLine3d::isColinearTo(const CQdrGeLine3d& line, double tol) const {
  return direction().isCodirectionalTo(line.direction(), tol);
}

bool CQdrGeLine3d::isPerpendicularTo(const CQdrGeLine3d& line, double tol) const {
  return direction().isPerpendicularTo(line.direction(), tol);
}

CQdrGeLine3d& CQdrGeLine3d::translateBy(const CQdrGeVector3d& v) {
  return set(m_start + v, m_end + v);
}

CQdrGeLine3d& CQdrGeLine3d::scaleBy(double s, const CQdrGePoint3d& center) {
  return scaleBy(s, s, s, center);
}

CQdrGeLine3d& CQdrGeLine3d::scaleBy(double sx, double sy, double sz, const CQdrGePoint3d& center) {
  m_start.scaleBy(sx, sy, sz, center);
  m_end.scaleBy(sx, sy, sz, center);
  return *this;
}

CQdrGeLine3d& CQdrGeLine3d::rotateBy(double angle, const CQdrGeVector3d& axis) {
  m_start.rotateBy(angle, axis, CQdrGePoint3d::kOrigin);
  m_end.rotateBy(angle, axis, CQdrGePoint3d::kOrigin);
  return *this;
}

CQdrGeLine3d& CQdrGeLine3d::mirror(const CQdrGePlane& plane) {
  m_start.mirror(plane);
  m_end.mirror(plane);
  return *this;
}

bool CQdrGeLine3d::isOn(const CQdrGePoint3d& point, double tol) const {
  return distanceTo(point, qdr::kVectorTolerance) < tol;
}

double CQdrGeLine3d::length(double from, double to, double tol) const {
  if (std::abs(from - to) < tol || !isParam(from) || !isParam(to)) return 0.0;
  return pointAtParam(from).distanceTo(pointAtParam(to));
}

double CQdrGeLine3d::paramAtDist(double from, double dist, bool forward, double) const {
  const double step = dist / length();
  return forward ? std::min(from + step, 1.0) : std::max(from - step, 0.0);
}

double CQdrGeLine3d::paramAtPoint(const CQdrGePoint3d& point, double tol) const {
  if (!isOn(point, tol)) return -1.0;
  return paramAtDist(0.0, m_start.distanceTo(point), true, qdr::kCurveTolerance);
}

double CQdrGeLine3d::distAtPoint(const CQdrGePoint3d& point, double tol) const {
  return isOn(point, tol) ? m_start.distanceTo(point) : -1.0;
}

CQdrGePoint3d CQdrGeLine3d::pointAtDist(double dist) const {
  return pointAtParam(paramAtDist(0.0, dist, true, qdr::kCurveTolerance));
}

bool CQdrGeLine3d::closestPoint(const CQdrGePoint3d& point, CQdrGePoint3d& result,
                                double tol) const {
  const double size = length();
  const CQdrGeVector3d unit = direction() / size;
  const double along = (point - m_start).dotProduct(unit);
  if (!(along >= -tol && along <= size + tol)) return false;
  result = m_start + unit * along;
  return true;
}

CQdrGePoint3d CQdrGeLine3d::closestPointTo(const CQdrGePoint3d& point, double tol) const {
  CQdrGePoint3d foot;
  if (closestPoint(point, foot, tol)) return foot;
  return point.distanceTo(m_end) < point.distanceTo(m_start) ? m_end : m_start;
}

CQdrGePoint3d CQdrGeLine3d::closestPointTo(const CQdrGeLine3d& line, CQdrGePoint3d& onLine,
                                           double tol) const {
  const CQdrGeVector3d u = direction();
  const CQdrGeVector3d v = line.direction();
  const ClosestParams params = closestParams(u, v, m_start - line.m_start, tol);
  // A parameter is used as a length along the unit direction, whatever the length of the segment.
  onLine = line.m_start + v.normal() * params.t.value();
  return m_start + u.normal() * params.s.value();
}

double CQdrGeLine3d::distanceTo(const CQdrGePoint3d& point, double tol) const {
  return closestPointTo(point, tol).distanceTo(point);
}

double CQdrGeLine3d::distanceTo(const CQdrGeLine3d& line, double tol) const {
  CQdrGePoint3d onLine;
  const CQdrGePoint3d onThis = closestPointTo(line, onLine, tol);
  return onThis.distanceTo(onLine);
}

void CQdrGeLine3d::getPerpLine(const CQdrGePoint3d& point, CQdrGeLine3d& result) const {
  CQdrGeVector3d across;
  if (!perpVecFromPoint(point, across, qdr::kCurveTolerance)) {
    result.set(point, point);
    return;
  }
  const double distance = across.length();
  across = distance > qdr::kCurveTolerance ? across / distance : anyPerpendicular(direction());
  const CQdrGeVector3d reach = across * (length() * kPerpReach);
  result.set(point - reach, point + reach);
}

void CQdrGeLine3d::getPerpPlane(const CQdrGePoint3d& point, CQdrGePlane& plane) const {
  plane.set(point, direction());
}

bool CQdrGeLine3d::perpVecFromPoint(const CQdrGePoint3d& point, CQdrGeVector3d& result,
                                    double) const {
  const double size = length();
  if (size == 0.0) return false;
  const CQdrGeVector3d unit = direction() / size;
  result = (point - m_start).orthoProject(unit);
  return true;
}

CQdrGeVector3d CQdrGeLine3d::normalAtPlane(const CQdrGePlane& plane) const {
  const CQdrGeVector3d d = direction();
  const double z = (plane.b * d.x - plane.a * d.y) / (plane.c * d.x + plane.a * d.z);
  return {-(plane.c * z + plane.b) / plane.a, 1.0, z};
}

bool CQdrGeLine3d::intersectWith(const CQdrGePlane& plane, CQdrGePoint3d& result, Intersect mode,
                                 double tol) const {
  const bool isMet = plane.intersectWith(*this, result, tol);
  const bool runsAlong = !(std::abs(plane.getNorm().dotProduct(direction().normal())) >= tol);
  if (runsAlong || mode == kExtendThis) return isMet;
  return isOn(result, qdr::kVectorTolerance);
}

void CQdrGeLine3d::save(CFile* file) const {
  m_start.save(file);
  m_end.save(file);
}

void CQdrGeLine3d::read(CFile* file) {
  m_start.read(file);
  m_end.read(file);
}
