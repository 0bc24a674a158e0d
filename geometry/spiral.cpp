#include "geometry/spiral.h"

#include <algorithm>
#include <cmath>

#include "geometry/angle.h"
#include "geometry/internal/raw_fields.h"
#include "geometry/line2d.h"

namespace {

constexpr int kMaxSteps = 10'000'000;

// The pitch of each step of a spiral whose pitch grows or shrinks from turn to turn.
class Pitch {
 public:
  Pitch(double first, double scale, int divNum)
      : m_value(first), m_target(first), m_scale(scale), m_divNum(divNum) {}

  double value() const { return m_value; }

  // Moves on past step number `step`; the first turn keeps the first pitch.
  void advance(int step) {
    if (m_scale == 1.0 || step < m_divNum) return;
    if (step % m_divNum == 0) {
      const double target = m_target * m_scale;
      m_growth = (target - m_target) / m_divNum;
      m_target = target;
    }
    m_value += m_growth;
  }

 private:
  double m_value;
  double m_target;
  double m_scale;
  double m_growth = 0.0;
  int m_divNum;
};

}  // namespace

CQdrGeSpiral::CQdrGeSpiral() : CQdrGeEntity2d(kTypeId) {}

CQdrGeSpiral::CQdrGeSpiral(int divNum, const CQdrGePoint2d& center, double maxRadius,
                           double minRadius, double offsetDist, double startAng, double scale)
    : CQdrGeEntity2d(kTypeId) {
  set(divNum, center, maxRadius, minRadius, offsetDist, startAng, scale);
}

CQdrGeSpiral::CQdrGeSpiral(const CQdrGeSpiral& other) : CQdrGeEntity2d(kTypeId) {
  *this = other;
}

CQdrGeSpiral& CQdrGeSpiral::operator=(const CQdrGeSpiral& other) {
  m_maxRadius = other.m_maxRadius;
  m_minRadius = other.m_minRadius;
  m_offsetDist = other.m_offsetDist;
  m_startAng = other.m_startAng;
  m_divNum = other.m_divNum;
  m_center = other.m_center;
  m_polyline = other.m_polyline;
  m_isStale = other.m_isStale;
  m_scale = other.m_scale;
  return *this;
}

CQdrGeSpiral& CQdrGeSpiral::set(int divNum, const CQdrGePoint2d& center, double maxRadius,
                                double minRadius, double offsetDist, double startAng,
                                double scale) {
  m_divNum = divNum;
  m_center = center;
  m_maxRadius = maxRadius;
  m_minRadius = minRadius;
  m_offsetDist = offsetDist;
  m_startAng = startAng;
  m_scale = scale;
  setGePolyline();
  return *this;
}

void CQdrGeSpiral::setMaxRadius(double radius) {
  if (radius > m_minRadius) m_maxRadius = radius;
}

void CQdrGeSpiral::setMinRadius(double radius) {
  if (radius < m_maxRadius) m_minRadius = radius;
}

void CQdrGeSpiral::setOffsetDist(double dist) {
  if (dist < m_maxRadius - m_minRadius) m_offsetDist = dist;
}

void CQdrGeSpiral::reverse() {
  polyline();
  m_polyline.reverse();
}

void CQdrGeSpiral::setGePolyline() {
  build();
}

void CQdrGeSpiral::storeGePolyline(const CQdrGePolyline2d& polyline) {
  m_polyline = polyline;
  m_isStale = false;
}

const CQdrGePolyline2d& CQdrGeSpiral::polyline() const {
  if (m_isStale) build();
  return m_polyline;
}

void CQdrGeSpiral::build() const {
  m_isStale = false;
  m_polyline.setSize(0);
  m_polyline.setClosed(false);
  const bool isEndless = !(m_offsetDist > 0.0) || m_divNum < 1;
  const int steps = isEndless ? 1 : kMaxSteps;
  const double step = qdr::kTwoPi / std::max(m_divNum, 1);
  Pitch pitch(m_offsetDist, m_scale, std::max(m_divNum, 1));
  double angle = 0.0;
  double previousRadius = 0.0;
  for (int i = 0; i < steps; ++i) {
    const double radius = pitch.value() * angle / qdr::kTwoPi;
    if (!(radius >= previousRadius) || !(radius <= m_maxRadius)) break;
    if (radius >= m_minRadius) {
      m_polyline.appendVertex(m_center + CQdrGeVector2d(angle) * radius, 0.0, -1.0, -1.0);
    }
    previousRadius = radius;
    angle += step;
    pitch.advance(i);
  }
  if (m_polyline.numVerts() == 0) return;
  m_polyline.rotateBy(m_startAng - m_center.angleTo(m_polyline.points().front()), m_center);
}

bool CQdrGeSpiral::getGePolyline(CQdrGePolyline2d& result) const {
  result = polyline();
  return result.numVerts() > 0;
}

bool CQdrGeSpiral::isEqualTo(const CQdrGeSpiral& other, double tol) const {
  const auto isNear = [tol](double a, double b) { return std::abs(a - b) <= tol; };
  return isNear(m_maxRadius, other.m_maxRadius) && isNear(m_minRadius, other.m_minRadius) &&
         isNear(m_offsetDist, other.m_offsetDist) && isNear(m_startAng, other.m_startAng) &&
         m_divNum == other.m_divNum && m_center.isEqualTo(other.m_center, tol) &&
         isNear(m_scale, other.m_scale);
}

bool CQdrGeSpiral::isEqualTo(const CQdrGeEntity2d& entity, const double& tol) const {
  const CQdrGeSpiral* spiral = qdr::curveAs<CQdrGeSpiral>(entity);
  return spiral && isEqualTo(*spiral, tol);
}

CQdrGeSpiral& CQdrGeSpiral::transformBy(const CQdrGeMatrix2d& m) {
  polyline();
  m_center.transformBy(m);
  m_polyline.transformBy(m);
  const double factor = m.scale();
  m_maxRadius *= factor;
  m_minRadius *= factor;
  m_offsetDist *= factor;
  m_startAng += std::atan2(m(1, 0), m(0, 0));
  return *this;
}

CQdrGeSpiral& CQdrGeSpiral::scaleBy(double sx, double sy, const CQdrGePoint2d& center) {
  CQdrGeEntity2d::scaleBy(sx, sy, center);
  return *this;
}

CQdrGeSpiral& CQdrGeSpiral::scaleBy(double s, const CQdrGePoint2d& center) {
  CQdrGeEntity2d::scaleBy(s, center);
  return *this;
}

CQdrGeSpiral& CQdrGeSpiral::mirror(const CQdrGeLine2d& line) {
  CQdrGeEntity2d::mirror(line);
  return *this;
}

CQdrGeSpiral& CQdrGeSpiral::rotateBy(double angle, const CQdrGePoint2d& center) {
  CQdrGeEntity2d::rotateBy(angle, center);
  return *this;
}

CQdrGeSpiral& CQdrGeSpiral::translateBy(const CQdrGeVector2d& v) {
  polyline();
  m_center += v;
  m_polyline.translateBy(v);
  return *this;
}

int CQdrGeSpiral::isOn(const CQdrGePoint2d& point, const double& tol) const {
  return polyline().isOn(point, tol);
}

double CQdrGeSpiral::length() const {
  return polyline().length();
}

double CQdrGeSpiral::length(double from, double to, double tol) const {
  return polyline().length(from, to, tol);
}

double CQdrGeSpiral::paramAtDist(double from, double dist, bool forward, double tol) const {
  return polyline().paramAtDist(from, dist, forward, tol);
}

double CQdrGeSpiral::paramAtPoint(const CQdrGePoint2d& point, double tol) const {
  return polyline().paramAtPoint(point, tol);
}

double CQdrGeSpiral::distAtParam(double param) const {
  return polyline().distAtParam(param);
}

double CQdrGeSpiral::distAtPoint(const CQdrGePoint2d& point, double tol) const {
  return polyline().distAtPoint(point, tol);
}

CQdrGePoint2d CQdrGeSpiral::pointAtDist(double dist) const {
  return polyline().pointAtDist(dist);
}

CQdrGePoint2d CQdrGeSpiral::pointAtParam(double param) const {
  return polyline().pointAtParam(param);
}

CQdrGeVector2d CQdrGeSpiral::normalAtParam(double param) const {
  return polyline().normalAtParam(param);
}

CQdrGeVector2d CQdrGeSpiral::normalAtPoint(const CQdrGePoint2d& point, double tol) const {
  return polyline().normalAtPoint(point, tol);
}

CQdrGePoint2d CQdrGeSpiral::closestPointTo(const CQdrGePoint2d& point, double tol) const {
  return polyline().closestPointTo(point, tol);
}

CQdrGePoint2d CQdrGeSpiral::closestPointTo(const CQdrGeLine2d& line, CQdrGePoint2d& onLine,
                                           double tol) const {
  return polyline().closestPointTo(line, onLine, tol);
}

double CQdrGeSpiral::distanceTo(const CQdrGeLine2d& line, double tol) const {
  return polyline().distanceTo(line, tol);
}

double CQdrGeSpiral::distanceTo(const CQdrGePoint2d& point, double tol) const {
  return polyline().distanceTo(point, tol);
}

double CQdrGeSpiral::curvatureAtParam(double param) const {
  return CQdrGeEntity2d::curvatureAtParam(param);
}

double CQdrGeSpiral::curvatureAtPoint(const CQdrGePoint2d& point, double tol) const {
  return CQdrGeEntity2d::curvatureAtPoint(point, tol);
}

bool CQdrGeSpiral::perpVecFromPoint(const CQdrGePoint2d& point, CQdrGeVector2d& result,
                                    double tol) const {
  return polyline().perpVecFromPoint(point, result, tol);
}

void CQdrGeSpiral::save(CFile* file) const {
  qdr::writeFields(file, m_maxRadius, m_minRadius, m_offsetDist, m_startAng, m_divNum);
  m_center.save(file);
}

void CQdrGeSpiral::read(CFile* file) {
  qdr::readFields(file, m_maxRadius, m_minRadius, m_offsetDist, m_startAng, m_divNum);
  m_center.read(file);
  m_isStale = true;
}
