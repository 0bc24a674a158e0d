#include "geometry/ellip_arc2d.h"

#include <cmath>

#include "geometry/angle.h"
#include "geometry/circ_arc2d.h"
#include "geometry/internal/raw_fields.h"
#include "geometry/line2d.h"

namespace {

// Steps of a full turn of the chain that every change rebuilds.
constexpr int kChainSteps = 100;

}  // namespace

CQdrGeEllipArc2d::CQdrGeEllipArc2d() : CQdrGeEntity2d(kTypeId), m_endAng(qdr::kTwoPi) {
  rebuild();
}

CQdrGeEllipArc2d::CQdrGeEllipArc2d(const CQdrGePoint2d& center, const CQdrGeVector2d& major,
                                   const CQdrGeVector2d& minor, double majorRadius,
                                   double minorRadius)
    : CQdrGeEntity2d(kTypeId),
      m_center(center),
      m_minorAxis(minor.normal()),
      m_majorAxis(major.normal()),
      m_minorRadius(std::abs(minorRadius)),
      m_majorRadius(std::abs(majorRadius)),
      m_startAng(major.angle()),
      m_endAng(m_startAng) {
  if (minorRadius < 0.0) m_minorAxis.negate();
  if (majorRadius < 0.0) m_majorAxis.negate();
  rebuild();
}

CQdrGeEllipArc2d::CQdrGeEllipArc2d(const CQdrGePoint2d& center, const CQdrGeVector2d& major,
                                   const CQdrGeVector2d& minor, double majorRadius,
                                   double minorRadius, double startAng, double endAng)
    : CQdrGeEntity2d(kTypeId),
      m_center(center),
      m_minorAxis(minor.normal()),
      m_majorAxis(major.normal()),
      m_minorRadius(minorRadius),
      m_majorRadius(majorRadius),
      m_startAng(startAng),
      m_endAng(endAng) {
  rebuild();
}

CQdrGeEllipArc2d::CQdrGeEllipArc2d(const CQdrGeCircArc2d& arc) : CQdrGeEntity2d(kTypeId) {
  storeArc(arc, false);
}

CQdrGeEllipArc2d& CQdrGeEllipArc2d::operator=(const CQdrGeCircArc2d& arc) {
  storeArc(arc, false);
  return *this;
}

CQdrGeEllipArc2d::CQdrGeEllipArc2d(const CQdrGeEllipArc2d& other)
    : CQdrGeEntity2d(kTypeId),
      m_center(other.m_center),
      m_minorAxis(other.m_minorAxis),
      m_majorAxis(other.m_majorAxis),
      m_minorRadius(other.m_minorRadius),
      m_majorRadius(other.m_majorRadius),
      m_startAng(other.m_startAng),
      m_endAng(other.m_endAng),
      m_isClockWise(other.m_isClockWise),
      m_polyline(other.m_polyline),
      m_chainSteps(other.m_chainSteps) {}

CQdrGeEllipArc2d& CQdrGeEllipArc2d::operator=(const CQdrGeEllipArc2d& other) {
  m_center = other.m_center;
  m_minorAxis = other.m_minorAxis;
  m_majorAxis = other.m_majorAxis;
  m_minorRadius = other.m_minorRadius;
  m_majorRadius = other.m_majorRadius;
  m_startAng = other.m_startAng;
  m_endAng = other.m_endAng;
  m_isClockWise = other.m_isClockWise;
  m_polyline = other.m_polyline;
  m_chainSteps = other.m_chainSteps;
  return *this;
}

CQdrGeEllipArc2d& CQdrGeEllipArc2d::set(const CQdrGePoint2d& center, const CQdrGeVector2d& major,
                                        const CQdrGeVector2d& minor, double majorRadius,
                                        double minorRadius) {
  return set(center, major, minor, majorRadius, minorRadius, m_startAng, m_endAng);
}

CQdrGeEllipArc2d& CQdrGeEllipArc2d::set(const CQdrGePoint2d& center, const CQdrGeVector2d& major,
                                        const CQdrGeVector2d& minor, double majorRadius,
                                        double minorRadius, double startAng, double endAng) {
  m_center = center;
  m_minorAxis = minor;
  m_majorAxis = major;
  m_minorRadius = minorRadius;
  m_majorRadius = majorRadius;
  m_startAng = startAng;
  m_endAng = endAng;
  rebuild();
  return *this;
}

CQdrGeEllipArc2d& CQdrGeEllipArc2d::set(const CQdrGeCircArc2d& arc) {
  storeArc(arc, true);
  return *this;
}

void CQdrGeEllipArc2d::storeArc(const CQdrGeCircArc2d& arc, bool isClockWise) {
  m_isClockWise = isClockWise ? 1 : 0;
  set(arc.center(), CQdrGeVector2d::kXAxis, CQdrGeVector2d::kYAxis, arc.radius(), arc.radius(),
      arc.startAng(), arc.endAng());
}

void CQdrGeEllipArc2d::setCenter(const CQdrGePoint2d& center) {
  m_center = center;
  rebuild();
}

void CQdrGeEllipArc2d::setMinorRadius(double radius) {
  m_minorRadius = radius;
  rebuild();
}

void CQdrGeEllipArc2d::setMajorRadius(double radius) {
  m_majorRadius = radius;
  rebuild();
}

void CQdrGeEllipArc2d::setAxes(const CQdrGeVector2d& major, const CQdrGeVector2d& minor) {
  m_majorAxis = major;
  m_minorAxis = minor;
  rebuild();
}

void CQdrGeEllipArc2d::setAngles(double startAng, double endAng) {
  m_startAng = startAng;
  m_endAng = endAng;
  rebuild();
}

void CQdrGeEllipArc2d::rebuild() {
  setGePolyline(kChainSteps);
}

bool CQdrGeEllipArc2d::getGePolyline(CQdrGePolyline2d& result) const {
  result = m_polyline;
  if (m_chainSteps != kChainSteps) {
    CQdrGeEllipArc2d fitted(*this);
    fitted.rebuild();
    result = fitted.m_polyline;
  }
  return result.numVerts() > 0;
}

bool CQdrGeEllipArc2d::isCircular(double tol) const {
  return std::abs(m_majorRadius - m_minorRadius) < tol;
}

bool CQdrGeEllipArc2d::isWhole() const {
  const double sweep = std::abs(m_endAng - m_startAng);
  return sweep <= qdr::kAngleTolerance || std::abs(sweep - qdr::kTwoPi) <= qdr::kAngleTolerance;
}

CQdrGeEllipArc2d& CQdrGeEllipArc2d::scaleBy(double sx, double sy, const CQdrGePoint2d& center) {
  m_center.scaleBy(sx, sy, center);
  m_majorRadius *= sx;
  m_minorRadius *= sy;
  rebuild();
  return *this;
}

CQdrGeEllipArc2d& CQdrGeEllipArc2d::scaleBy(double s, const CQdrGePoint2d& center) {
  return scaleBy(s, s, center);
}

CQdrGeEllipArc2d& CQdrGeEllipArc2d::mirror(const CQdrGeLine2d& line) {
  const CQdrGeVector2d axis = line.endPoint() - line.startPoint();
  m_center.mirror(line);
  m_majorAxis.mirror(axis);
  m_minorAxis.mirror(axis);
  if (!isWhole()) {
    const double end = m_endAng;
    m_endAng = -m_startAng;
    m_startAng = -end;
  }
  rebuild();
  return *this;
}

CQdrGeEllipArc2d& CQdrGeEllipArc2d::rotateBy(double angle, const CQdrGePoint2d& center) {
  m_center.rotateBy(angle, center);
  m_majorAxis.rotateBy(angle);
  m_minorAxis.rotateBy(angle);
  rebuild();
  return *this;
}

CQdrGeEllipArc2d& CQdrGeEllipArc2d::translateBy(const CQdrGeVector2d& v) {
  m_center += v;
  rebuild();
  return *this;
}

CQdrGeEllipArc2d& CQdrGeEllipArc2d::transformBy(const CQdrGeMatrix2d& m) {
  m_center.transformBy(m);
  m_majorAxis.transformBy(m);
  m_minorAxis.transformBy(m);
  rebuild();
  return *this;
}

bool CQdrGeEllipArc2d::offset(const CQdrGePoint2d& side, double dist) {
  // The side turns about the origin but the center does not: right for ellipses whose center is
  // the origin or whose major axis runs along +x.
  CQdrGePoint2d turned = side;
  turned.rotateBy(-m_majorAxis.angle(), CQdrGePoint2d::kOrigin);
  const CQdrGeVector2d v = turned - m_center;
  const double ratio = m_minorRadius / m_majorRadius;
  const double reach = std::sqrt(v.y * v.y + v.x * v.x * ratio * ratio);
  if (dist == 0.0) dist = std::abs(m_minorRadius - reach);
  if (reach - m_minorRadius <= 0.0) {
    if (m_minorRadius <= dist) return false;
    dist = -dist;
  }
  m_majorRadius += dist;
  m_minorRadius += dist;
  rebuild();
  return true;
}

void CQdrGeEllipArc2d::save(CFile* file) const {
  m_center.save(file);
  m_minorAxis.save(file);
  m_majorAxis.save(file);
  qdr::writeFields(file, m_majorRadius, m_minorRadius, m_startAng, m_endAng, m_isClockWise);
}

void CQdrGeEllipArc2d::read(CFile* file) {
  m_center.read(file);
  m_minorAxis.read(file);
  m_majorAxis.read(file);
  qdr::readFields(file, m_majorRadius, m_minorRadius, m_startAng, m_endAng, m_isClockWise);
  rebuild();
}
