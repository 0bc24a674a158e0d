#include <cmath>

#include "geometry/angle.h"
#include "geometry/circ_arc2d.h"
#include "geometry/line2d.h"

double CQdrGeCircArc2d::length() const {
  if (std::abs(m_endAng - m_startAng) < qdr::kAngleTolerance) return qdr::kTwoPi * m_radius;
  return m_radius * qdr::withTurnIfNegative(qdr::sweepBetween(m_startAng, m_endAng));
}

double CQdrGeCircArc2d::length(double from, double to, double tol) const {
  if (std::abs(from - to) < tol || from < 0.0 || from > 1.0) return 0.0;
  return std::abs((from - to) * length());
}

double CQdrGeCircArc2d::paramAtDist(double from, double dist, bool forward, double tol) const {
  const bool isFullTurn = std::abs(m_endAng - m_startAng - qdr::kTwoPi) < tol;
  if (forward) {
    const double param = from + dist / length();
    if (param <= 1.0) return param;
    return isFullTurn ? param - 1.0 : 1.0;
  }
  const double param = from - dist / length();
  if (param >= 0.0) return param;
  return isFullTurn ? param + 1.0 : 0.0;
}

double CQdrGeCircArc2d::paramAtPoint(const CQdrGePoint2d& point, double tol) const {
  if (!isOn(point, tol)) return -1.0;
  double start = qdr::withTurnIfNegative(m_startAng);
  double angle = m_center.angleTo(point);
  if (std::abs(start - angle) <= qdr::kAngleTolerance)
    angle = start;
  else if (angle < start)
    start -= qdr::kTwoPi;
  const double swept = qdr::withTurnIfNegative(angle - start);
  return paramAtDist(0.0, m_radius * swept, true, qdr::kCurveTolerance);
}

double CQdrGeCircArc2d::distAtParam(double param) const {
  return CQdrGeEntity2d::distAtParam(param);
}

double CQdrGeCircArc2d::distAtPoint(const CQdrGePoint2d& point, double tol) const {
  return CQdrGeEntity2d::distAtPoint(point, tol);
}

CQdrGePoint2d CQdrGeCircArc2d::pointAtDist(double dist) const {
  return CQdrGeEntity2d::pointAtDist(dist);
}

CQdrGePoint2d CQdrGeCircArc2d::pointAtParam(double param) const {
  return pointAtAngle(qdr::sweepBetween(m_startAng, m_endAng) * param + m_startAng);
}

CQdrGeVector2d CQdrGeCircArc2d::normalAtParam(double param) const {
  return normalAtPoint(pointAtParam(param), qdr::kCurveTolerance);
}

CQdrGeVector2d CQdrGeCircArc2d::normalAtPoint(const CQdrGePoint2d& point, double /*tol*/) const {
  return (point - m_center).normal();
}

double CQdrGeCircArc2d::curvatureAtParam(double /*param*/) const {
  return m_radius;
}

double CQdrGeCircArc2d::curvatureAtPoint(const CQdrGePoint2d& /*point*/, double /*tol*/) const {
  return m_radius;
}

CQdrGePoint2d CQdrGeCircArc2d::closestPointTo(const CQdrGePoint2d& point, double tol) const {
  const CQdrGePoint2d onCircle = pointAtAngle(m_center.angleTo(point));
  if (isOn(onCircle, tol)) return onCircle;
  const CQdrGePoint2d start = startPoint();
  const CQdrGePoint2d end = endPoint();
  return end.distanceTo(point) < start.distanceTo(point) ? end : start;
}

CQdrGePoint2d CQdrGeCircArc2d::closestPointTo(const CQdrGeLine2d& line, CQdrGePoint2d& onLine,
                                              double tol) const {
  onLine = line.closestPointTo(m_center, tol);
  const CQdrGePoint2d onCircle = pointAtAngle(m_center.angleTo(onLine));
  if (isOn(onCircle, tol)) return onCircle;
  const CQdrGePoint2d start = startPoint();
  const CQdrGePoint2d end = endPoint();
  const CQdrGePoint2d startFoot = line.closestPointTo(start, tol);
  const CQdrGePoint2d endFoot = line.closestPointTo(end, tol);
  const bool endIsNearer = end.distanceTo(endFoot) < start.distanceTo(startFoot);
  onLine = endIsNearer ? endFoot : startFoot;
  return endIsNearer ? end : start;
}

CQdrGePoint2d CQdrGeCircArc2d::closestPointTo(const CQdrGeCircArc2d& arc, CQdrGePoint2d& onArc,
                                              double tol) const {
  const double angle = m_center.angleTo(arc.m_center);
  const CQdrGePoint2d onCircle = pointAtAngle(angle);
  onArc = arc.pointAtAngle(angle + qdr::kPi);
  if (isOn(onCircle, tol) && arc.isOn(onArc, tol)) return onCircle;
  const CQdrGePoint2d start = arc.startPoint();
  const CQdrGePoint2d end = arc.endPoint();
  const CQdrGePoint2d startFoot = closestPointTo(start, tol);
  const CQdrGePoint2d endFoot = closestPointTo(end, tol);
  const bool endIsNearer = end.distanceTo(endFoot) < start.distanceTo(startFoot);
  onArc = endIsNearer ? end : start;
  return endIsNearer ? endFoot : startFoot;
}

double CQdrGeCircArc2d::distanceTo(const CQdrGeLine2d& line, double tol) const {
  return CQdrGeEntity2d::distanceTo(line, tol);
}

double CQdrGeCircArc2d::distanceTo(const CQdrGePoint2d& point, double tol) const {
  return CQdrGeEntity2d::distanceTo(point, tol);
}

bool CQdrGeCircArc2d::perpVecFromPoint(const CQdrGePoint2d& point, CQdrGeVector2d& result,
                                       double tol) const {
  const CQdrGeVector2d radial = point - m_center;
  CQdrGePoint2d foot, other;
  int count = 0;
  const auto meetsOnce = [&](const CQdrGeLine2d& way, Intersect mode) {
    intersectWith(way, count, foot, other, mode, tol);
    if (count == 1) result = point - foot;
    return count == 1;
  };
  if (radial.length() < m_radius) {
    // Probes as long as the radial times the diameter, outward and then through the center: too
    // short for a point close to the center of a small circle, which then has no foot.
    const CQdrGeLine2d outward(point, radial * (2.0 * m_radius));
    const CQdrGeLine2d inward(point, radial * (-2.0 * m_radius));
    return meetsOnce(outward, kExtendNone) || meetsOnce(inward, kExtendNone) ||
           meetsOnce(outward, kExtendThis);
  }
  const CQdrGeLine2d toCenter(point, m_center);
  if (meetsOnce(toCenter, kExtendNone)) return true;
  return count == 0 && meetsOnce(toCenter, kExtendThis);
}

bool CQdrGeCircArc2d::offset(const CQdrGePoint2d& side, double dist) {
  const double way = dist == 0.0 ? distanceTo(side, qdr::kCurveTolerance) : dist;
  if (!(way < m_radius)) return false;
  m_radius += m_center.distanceTo(side) <= m_radius ? -way : way;
  return true;
}

bool CQdrGeCircArc2d::tangent(const CQdrGePoint2d& point, CQdrGeLine2d& line, double tol) const {
  const double distance = m_center.distanceTo(point);
  if (!(distance >= m_radius)) return false;
  const double angle = m_center.angleTo(point);
  const double spread = std::atan(std::sqrt(distance * distance - m_radius * m_radius) / m_radius);
  const CQdrGePoint2d left = pointAtAngle(angle + spread);
  const CQdrGePoint2d right = pointAtAngle(angle - spread);
  line.set(point, right.distanceTo(point) < left.distanceTo(point) ? right : left);
  return isOn(line.endPoint(), tol) != 0;
}
