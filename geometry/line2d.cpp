#include "geometry/line2d.h"

#include <cmath>

#include "geometry/angle.h"
#include "geometry/construction.h"

constinit const CQdrGeLine2d CQdrGeLine2d::kXAxis{CQdrGePoint2d(0.0, 0.0), CQdrGePoint2d(1.0, 0.0)};
constinit const CQdrGeLine2d CQdrGeLine2d::kYAxis{CQdrGePoint2d(0.0, 0.0), CQdrGePoint2d(0.0, 1.0)};

namespace {

// Half the length of a perpendicular that stands for an infinite one, in lengths of its line.
constexpr double kPerpReach = 1000000000.0;

bool coordinatesWithin(const CQdrGePoint2d& a, const CQdrGePoint2d& b, double tol) {
  return std::abs(a.x - b.x) <= tol && std::abs(a.y - b.y) <= tol;
}

}  // namespace

void CQdrGeLine2d::getPoints(CQdrGePoint2d& start, CQdrGePoint2d& end) const {
  start = m_start;
  end = m_end;
}

CQdrGePoint2d CQdrGeLine2d::midPoint() const {
  return {(m_start.x + m_end.x) / 2.0, (m_start.y + m_end.y) / 2.0};
}

bool CQdrGeLine2d::isEqualTo(const CQdrGeLine2d& line, const double& tol) const {
  return coordinatesWithin(m_start, line.m_start, tol) && coordinatesWithin(m_end, line.m_end, tol);
}

bool CQdrGeLine2d::isEqualTo(const CQdrGeEntity2d& entity, const double& tol) const {
  const CQdrGeLine2d* line = qdr::curveAs<CQdrGeLine2d>(entity);
  return line && isEqualTo(*line, tol);
}

bool CQdrGeLine2d::operator==(const CQdrGeLine2d& line) const {
  return m_start == line.m_start && m_end == line.m_end;
}

bool CQdrGeLine2d::operator!=(const CQdrGeLine2d& line) const {
  return m_start != line.m_start || m_end != line.m_end;
}

bool CQdrGeLine2d::isParallelTo(const CQdrGeLine2d& line, double tol) const {
  return (m_end - m_start).isParallelTo(line.m_end - line.m_start, tol);
}

bool CQdrGeLine2d::isColinearTo(const CQdrGeLine2d& line, double tol) const {
  return (m_end - m_start).isCodirectionalTo(line.m_end - line.m_start, tol);
}

bool CQdrGeLine2d::isPerpendicularTo(const CQdrGeLine2d& line, double tol) const {
  return (m_end - m_start).isPerpendicularTo(line.m_end - line.m_start, tol);
}

CQdrGeLine2d& CQdrGeLine2d::scaleBy(double sx, double sy, const CQdrGePoint2d& center) {
  return transformBy(CQdrGeMatrix2d::scaling(sx, sy, center));
}

CQdrGeLine2d& CQdrGeLine2d::scaleBy(double s, const CQdrGePoint2d& center) {
  return scaleBy(s, s, center);
}

CQdrGeLine2d& CQdrGeLine2d::mirror(const CQdrGeLine2d& line) {
  // A line may be mirrored in itself.
  const CQdrGeLine2d axis = line;
  m_start.mirror(axis);
  m_end.mirror(axis);
  return *this;
}

CQdrGeLine2d& CQdrGeLine2d::rotateBy(double angle, const CQdrGePoint2d& center) {
  m_start.rotateBy(angle, center);
  m_end.rotateBy(angle, center);
  return *this;
}

CQdrGeLine2d& CQdrGeLine2d::translateBy(const CQdrGeVector2d& v) {
  m_start += v;
  m_end += v;
  return *this;
}

CQdrGeLine2d& CQdrGeLine2d::transformBy(const CQdrGeMatrix2d& m) {
  m_start.transformBy(m);
  m_end.transformBy(m);
  return *this;
}

double CQdrGeLine2d::length(double from, double to, double tol) const {
  if (std::abs(from - to) < tol) return 0.0;
  if (from < 0.0 || from > 1.0 || to < 0.0 || to > 1.0) return 0.0;
  return pointAtParam(from).distanceTo(pointAtParam(to));
}

double CQdrGeLine2d::paramAtDist(double from, double dist, bool forward, double tol) const {
  return CQdrGeEntity2d::paramAtDist(from, dist, forward, tol);
}

double CQdrGeLine2d::paramAtPoint(const CQdrGePoint2d& point, double tol) const {
  if (!isOn(point, tol)) return -1.0;
  return paramAtDist(0.0, m_start.distanceTo(point), true, qdr::kCurveTolerance);
}

double CQdrGeLine2d::distAtParam(double param) const {
  return CQdrGeEntity2d::distAtParam(param);
}

double CQdrGeLine2d::distAtPoint(const CQdrGePoint2d& point, double /*tol*/) const {
  return m_start.distanceTo(point);
}

CQdrGePoint2d CQdrGeLine2d::pointAtDist(double dist) const {
  return pointAtParam(paramAtDist(0.0, dist, true, qdr::kCurveTolerance));
}

CQdrGeVector2d CQdrGeLine2d::normalAtParam(double /*param*/) const {
  const CQdrGeVector2d along = m_end - m_start;
  return CQdrGeVector2d(std::atan2(along.y, along.x) - qdr::kHalfPi);
}

CQdrGeVector2d CQdrGeLine2d::normalAtPoint(const CQdrGePoint2d& /*point*/, double /*tol*/) const {
  return normalAtParam(0.0);
}

double CQdrGeLine2d::curvatureAtParam(double param) const {
  return CQdrGeEntity2d::curvatureAtParam(param);
}

double CQdrGeLine2d::curvatureAtPoint(const CQdrGePoint2d& point, double tol) const {
  return CQdrGeEntity2d::curvatureAtPoint(point, tol);
}

bool CQdrGeLine2d::perpVecFromPoint(const CQdrGePoint2d& point, CQdrGeVector2d& result,
                                    double /*tol*/) const {
  const auto foot = qdr::footOnLine(*this, point);
  if (!foot) return false;
  result = point - *foot;
  return true;
}

void CQdrGeLine2d::getPerpLine(const CQdrGePoint2d& point, CQdrGeLine2d& result) const {
  const CQdrGeVector2d reach = (m_end - m_start).perpVector() * kPerpReach;
  result.set(CQdrGePoint2d(point.x - reach.x, point.y - reach.y),
             CQdrGePoint2d(point.x + reach.x, point.y + reach.y));
}

bool CQdrGeLine2d::overlap(const CQdrGeLine2d& line, CQdrGeLine2d*& result, double tol) const {
  if (!isColinearTo(line, tol)) return false;
  const auto share = [&result](const CQdrGePoint2d& from, const CQdrGePoint2d& to) {
    result = new CQdrGeLine2d(from, to);
    return true;
  };
  const bool hasTheirStart = isOn(line.m_start, tol);
  const bool hasTheirEnd = isOn(line.m_end, tol);
  const bool startOnThem = line.isOn(m_start, tol);
  const bool endOnThem = line.isOn(m_end, tol);
  if (*this == line || CQdrGeLine2d(m_end, m_start) == line) return share(m_start, m_end);
  if (hasTheirStart && hasTheirEnd) return share(line.m_start, line.m_end);
  if (startOnThem && endOnThem) return share(m_start, m_end);
  if (hasTheirStart && startOnThem) return share(m_start, line.m_start);
  if (hasTheirStart && endOnThem) return share(m_end, line.m_start);
  if (hasTheirEnd && startOnThem) return share(m_start, line.m_end);
  if (hasTheirEnd && endOnThem) return share(m_end, line.m_end);
  return false;
}

bool CQdrGeLine2d::offset(const CQdrGePoint2d& side, double dist) {
  const double way = dist == 0.0 ? distanceTo(side, qdr::kCurveTolerance) : dist;
  // A line of no length has no direction: it moves straight toward the point.
  const CQdrGePoint2d foot = qdr::footOnLine(*this, side).value_or(m_start);
  translateBy((side - foot).normal() * way);
  return true;
}

void CQdrGeLine2d::save(CFile* file) const {
  m_start.save(file);
  m_end.save(file);
}

void CQdrGeLine2d::read(CFile* file) {
  m_start.read(file);
  m_end.read(file);
}
