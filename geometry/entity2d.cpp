#include "geometry/entity2d.h"

#include <cmath>

#include "geometry/circ_arc2d.h"
#include "geometry/cspline2d.h"
#include "geometry/ellip_arc2d.h"
#include "geometry/line2d.h"
#include "geometry/polyline2d.h"
#include "geometry/rect2d.h"
#include "geometry/spiral.h"
#include "geometry/spline.h"

namespace {

// What the base does by the concrete class. A class adds its row with its header; the order
// plays no part.
struct CurveClass {
  QdrGe::EntityId id;
  CQdrGeEntity2d* (*copy)(const CQdrGeEntity2d& source);
  void (*assign)(CQdrGeEntity2d& target, const CQdrGeEntity2d& source);
};

template <class Curve>
constexpr CurveClass rowOf() {
  return {.id = Curve::kTypeId,
          .copy = [](const CQdrGeEntity2d& source) -> CQdrGeEntity2d* {
            return new Curve(static_cast<const Curve&>(source));
          },
          .assign =
              [](CQdrGeEntity2d& target, const CQdrGeEntity2d& source) {
                static_cast<Curve&>(target) = static_cast<const Curve&>(source);
              }};
}

constexpr CurveClass kCurveClasses[] = {
    rowOf<CQdrGeCircArc2d>(),  rowOf<CQdrGeEllipArc2d>(), rowOf<CQdrGeLine2d>(),
    rowOf<CQdrGePolyline2d>(), rowOf<CQdrGeSpline>(),     rowOf<CQdrGeCSpline2d>(),
    rowOf<CQdrGeRect2d>(),     rowOf<CQdrGeSpiral>(),
};

const CurveClass* classOf(QdrGe::EntityId id) {
  for (const CurveClass& row : kCurveClasses)
    if (row.id == id) return &row;
  return nullptr;
}

}  // namespace

CQdrGeEntity2d& CQdrGeEntity2d::scaleBy(double sx, double sy, const CQdrGePoint2d& center) {
  return transformBy(CQdrGeMatrix2d::scaling(sx, sy, center));
}

CQdrGeEntity2d& CQdrGeEntity2d::scaleBy(double s, const CQdrGePoint2d& center) {
  return transformBy(CQdrGeMatrix2d::scaling(s, center));
}

CQdrGeEntity2d& CQdrGeEntity2d::mirror(const CQdrGeLine2d& line) {
  return transformBy(CQdrGeMatrix2d::mirroring(line));
}

CQdrGeEntity2d& CQdrGeEntity2d::rotateBy(double angle, const CQdrGePoint2d& center) {
  return transformBy(CQdrGeMatrix2d::rotation(angle, center));
}

bool CQdrGeEntity2d::isInsidePoint(const CQdrGePoint2d& /*point*/) const {
  return false;
}

double CQdrGeEntity2d::length(double from, double to, double tol) const {
  if (std::abs(from - to) < tol || to < from || from < 0.0 || from > 1.0) return 0.0;
  return std::abs(length() * (to - from));
}

double CQdrGeEntity2d::paramAtDist(double from, double dist, bool forward, double /*tol*/) const {
  if (forward) {
    const double param = from + dist / length();
    return param > 1.0 ? 1.0 : param;
  }
  const double param = from - dist / length();
  return param < 0.0 ? 0.0 : param;
}

double CQdrGeEntity2d::distAtParam(double param) const {
  return length() * param;
}

double CQdrGeEntity2d::distAtPoint(const CQdrGePoint2d& point, double tol) const {
  return length() * paramAtPoint(point, tol);
}

CQdrGePoint2d CQdrGeEntity2d::pointAtDist(double dist) const {
  return pointAtParam(paramAtDist(0.0, dist, true, qdr::kCurveTolerance));
}

CQdrGeVector2d CQdrGeEntity2d::normalAtPoint(const CQdrGePoint2d& point, double tol) const {
  return normalAtParam(paramAtPoint(point, tol));
}

double CQdrGeEntity2d::distanceTo(const CQdrGeLine2d& line, double tol) const {
  CQdrGePoint2d onLine;
  return closestPointTo(line, onLine, tol).distanceTo(onLine);
}

double CQdrGeEntity2d::distanceTo(const CQdrGePoint2d& point, double tol) const {
  return closestPointTo(point, tol).distanceTo(point);
}

double CQdrGeEntity2d::curvatureAtParam(double /*param*/) const {
  return 0.0;
}

double CQdrGeEntity2d::curvatureAtPoint(const CQdrGePoint2d& /*point*/, double /*tol*/) const {
  return 0.0;
}

CQdrGeEntity2d* CQdrGeEntity2d::copy() const {
  const CurveClass* row = classOf(m_type);
  return row ? row->copy(*this) : nullptr;
}

CQdrGeEntity2d& CQdrGeEntity2d::operator=(const CQdrGeEntity2d& source) {
  // A source of another class has other fields; taking them over would write past this object.
  const CurveClass* row = m_type == source.m_type ? classOf(m_type) : nullptr;
  if (row && this != &source) row->assign(*this, source);
  return *this;
}

CQdrGeEntity2d& CQdrGeEntity2d::operator=(const CQdrGeCircArc2d& arc) {
  if (CQdrGeCircArc2d* target = qdr::curveAs<CQdrGeCircArc2d>(*this)) *target = arc;
  if (CQdrGePolyline2d* target = qdr::curveAs<CQdrGePolyline2d>(*this)) *target = arc;
  return *this;
}

bool CQdrGeEntity2d::operator==(const CQdrGeEntity2d& entity) const {
  return m_type == entity.m_type && isEqualTo(entity, qdr::kVectorTolerance);
}
