#include "geometry/circ_arc2d.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "geometry/angle.h"
#include "geometry/construction.h"
#include "geometry/internal/raw_fields.h"
#include "geometry/line2d.h"

namespace {

constexpr std::size_t kMostScreenPoints = 1000000;

// Takes off whole turns until the magnitude is below one; the sign stays.
double reducedAngle(double angle) {
  if (!std::isfinite(angle)) return angle;
  if (std::abs(angle) > qdr::kHugeAngle) return std::fmod(angle, qdr::kTwoPi);
  const double turn = angle < 0.0 ? -qdr::kTwoPi : qdr::kTwoPi;
  while (std::abs(angle) >= qdr::kTwoPi)
    angle -= turn;
  return angle;
}

// Most points an arc of this sweep can need at n steps a turn, whatever rounding adds.
std::size_t screenPointLimit(double sweep, int n) {
  const double most = n * (sweep / qdr::kTwoPi) + 2.0;
  // Angles beyond a full turn may give a negative sweep, which draws its end alone.
  if (!(most >= 2.0)) return 1;
  return most < static_cast<double>(kMostScreenPoints) ? static_cast<std::size_t>(most)
                                                       : kMostScreenPoints;
}

}  // namespace

CQdrGeCircArc2d::CQdrGeCircArc2d() : CQdrGeCircArc2d(CQdrGePoint2d(0.0, 0.0), 1.0) {}

CQdrGeCircArc2d::CQdrGeCircArc2d(const CQdrGePoint2d& center, double radius)
    : CQdrGeEntity2d(kTypeId),
      m_endAng(qdr::kTwoPi),
      m_startAng(0.0),
      m_radius(radius),
      m_center(center) {}

CQdrGeCircArc2d::CQdrGeCircArc2d(const CQdrGePoint2d& center, double radius, double startAng,
                                 double endAng, const CQdrGeVector2d& reference, bool clockwise)
    : CQdrGeCircArc2d(center, radius) {
  setAngles(startAng, endAng);
  if (clockwise) std::swap(m_startAng, m_endAng);
  if (reference == CQdrGeVector2d::kXAxis) return;
  m_startAng -= reference.angle();
  m_endAng -= reference.angle();
}

CQdrGeCircArc2d::CQdrGeCircArc2d(const CQdrGePoint2d& p1, const CQdrGePoint2d& p2,
                                 const CQdrGePoint2d& p3)
    : CQdrGeCircArc2d() {
  set(p1, p2, p3);
  std::swap(m_startAng, m_endAng);
}

CQdrGeCircArc2d::CQdrGeCircArc2d(const CQdrGePoint2d& p1, const CQdrGePoint2d& p2, double value,
                                 bool isSagitta)
    : CQdrGeCircArc2d() {
  set(p1, p2, value, isSagitta);
}

CQdrGeCircArc2d::CQdrGeCircArc2d(const CQdrGeCircArc2d& arc) : CQdrGeCircArc2d() {
  *this = arc;
}

CQdrGeCircArc2d& CQdrGeCircArc2d::operator=(const CQdrGeCircArc2d& arc) {
  m_endAng = arc.m_endAng;
  m_startAng = arc.m_startAng;
  m_radius = arc.m_radius;
  m_center = arc.m_center;
  return *this;
}

CQdrGeCircArc2d& CQdrGeCircArc2d::set(const CQdrGePoint2d& center, double radius) {
  m_center = center;
  m_radius = radius;
  return *this;
}

CQdrGeCircArc2d& CQdrGeCircArc2d::set(const CQdrGePoint2d& center, double radius, double startAng,
                                      double endAng, const CQdrGeVector2d& reference,
                                      bool clockwise) {
  const double turned = reference == CQdrGeVector2d::kYAxis ? qdr::kHalfPi : 0.0;
  set(center, radius);
  setAngles(startAng + turned, endAng + turned);
  if (clockwise) std::swap(m_startAng, m_endAng);
  return *this;
}

CQdrGeCircArc2d& CQdrGeCircArc2d::set(const CQdrGePoint2d& p1, const CQdrGePoint2d& p2,
                                      const CQdrGePoint2d& p3) {
  const bool turnsLeft = qdr::signedArea(p1, p2, p3) > 0.0;
  const CQdrGePoint2d first = turnsLeft ? p1 : p3;
  const CQdrGePoint2d last = turnsLeft ? p3 : p1;
  m_center = qdr::bisectorCenter(p1, p2, p3).value_or(m_center);
  m_radius = m_center.distanceTo(p1);
  setAngles(m_center.angleTo(first), m_center.angleTo(last));
  return *this;
}

CQdrGeCircArc2d& CQdrGeCircArc2d::set(const CQdrGePoint2d& p1, const CQdrGePoint2d& p2,
                                      double value, bool isSagitta) {
  const CQdrGeVector2d chord = p2 - p1;
  if (isSagitta) return setOverChord(p1, p2, value);

  const double lean = (qdr::kPi - 4.0 * std::atan(value)) / 2.0;
  const CQdrGeVector2d along = chord.normal(0.0);
  const CQdrGeVector2d fromFirst = CQdrGeVector2d(along).rotateBy(lean);
  const CQdrGeVector2d fromSecond = (-along).rotateBy(-lean);
  CQdrGePoint2d meeting;
  if (CQdrGeLine2d(p1, fromFirst)
          .intersectWith(CQdrGeLine2d(p2, fromSecond), meeting, kExtendBoth, qdr::kCurveTolerance))
    m_center = meeting;
  m_radius = m_center.distanceTo(p1);
  setAngles(fromFirst.angle(), fromSecond.angle());
  return *this;
}

// The arc through the chord's ends and the point that lies the sagitta, half the chord times the
// bulge, to the right of its middle. The center lies on the chord's bisector, found directly: a
// flat arc far from the origin would lose its digits in the third point.
CQdrGeCircArc2d& CQdrGeCircArc2d::setOverChord(const CQdrGePoint2d& p1, const CQdrGePoint2d& p2,
                                               double bulge) {
  const CQdrGePoint2d first = bulge > 0.0 ? p1 : p2;
  const CQdrGePoint2d last = bulge > 0.0 ? p2 : p1;
  const CQdrGeVector2d chord = p2 - p1;
  const double squared = bulge * bulge;
  const bool isFlat = !(2.0 * std::abs(bulge) > qdr::kCollinearRatio * (1.0 + squared));
  if (!isFlat && chord.lengthSqrd() > 0.0)
    m_center = p1 + chord / 2.0 + chord.perpVector() * ((1.0 - squared) / (4.0 * bulge));
  m_radius = m_center.distanceTo(p1);
  setAngles(m_center.angleTo(first), m_center.angleTo(last));
  return *this;
}

void CQdrGeCircArc2d::setAngles(double startAng, double endAng) {
  m_startAng = startAng;
  m_endAng = endAng;
}

void CQdrGeCircArc2d::setStartAngle(double angle) {
  m_startAng = qdr::withTurnIfNegative(angle);
}

void CQdrGeCircArc2d::setEndAngle(double angle) {
  m_endAng = qdr::withTurnIfNegative(angle);
}

CQdrGePoint2d CQdrGeCircArc2d::pointAtAngle(double angle) const {
  return {m_center.x + m_radius * std::cos(angle), m_center.y + m_radius * std::sin(angle)};
}

bool CQdrGeCircArc2d::isWhole() const {
  const double turned = std::abs(m_endAng - m_startAng);
  return !(turned > qdr::kAngleTolerance && std::abs(turned - qdr::kTwoPi) > qdr::kAngleTolerance);
}

double CQdrGeCircArc2d::bulge() const {
  const double sweep = qdr::withTurnIfNegative(m_endAng - m_startAng);
  // A quarter of a full turn has no tangent.
  const bool isWholeTurn = std::abs(sweep - qdr::kTwoPi) <= qdr::kAngleTolerance;
  if (std::abs(sweep) <= qdr::kAngleTolerance || isWholeTurn) return 0.0;
  return std::tan(sweep / 4.0);
}

bool CQdrGeCircArc2d::isEqualTo(const CQdrGeCircArc2d& arc, const double& tol) const {
  const double differences[] = {m_center.x - arc.m_center.x, m_center.y - arc.m_center.y,
                                m_radius - arc.m_radius, m_startAng - arc.m_startAng,
                                m_endAng - arc.m_endAng};
  return std::all_of(std::begin(differences), std::end(differences),
                     [tol](double difference) { return std::abs(difference) <= tol; });
}

bool CQdrGeCircArc2d::isEqualTo(const CQdrGeEntity2d& /*entity*/, const double& /*tol*/) const {
  return false;
}

bool CQdrGeCircArc2d::operator==(const CQdrGeCircArc2d& arc) const {
  return !(m_center != arc.m_center) && m_radius == arc.m_radius && m_startAng == arc.m_startAng &&
         m_endAng == arc.m_endAng;
}

int CQdrGeCircArc2d::isOn(const CQdrGePoint2d& point, const double& tol) const {
  if (!(std::abs(m_center.distanceTo(point) - m_radius) <= tol)) return 0;
  const double angle = m_center.angleTo(point);
  const bool afterStart = m_startAng - qdr::kAngleTolerance <= angle;
  const bool beforeEnd = m_endAng + qdr::kAngleTolerance >= angle;
  const bool crossesXAxis =
      qdr::withTurnIfNegative(m_endAng) <= qdr::withTurnIfNegative(m_startAng);
  return (crossesXAxis ? afterStart || beforeEnd : afterStart && beforeEnd) ? 1 : 0;
}

bool CQdrGeCircArc2d::isInside(const CQdrGePoint2d& point, double margin) const {
  const double angle = m_center.angleTo(point);
  return m_startAng - margin <= angle && angle <= m_endAng + margin &&
         m_center.distanceTo(point) - margin <= m_radius;
}

CQdrGeCircArc2d& CQdrGeCircArc2d::scaleBy(double sx, double sy, const CQdrGePoint2d& center) {
  m_center.scaleBy(sx, sy, center);
  m_radius *= sx;
  return *this;
}

CQdrGeCircArc2d& CQdrGeCircArc2d::scaleBy(double s, const CQdrGePoint2d& center) {
  return scaleBy(s, s, center);
}

CQdrGeCircArc2d& CQdrGeCircArc2d::mirror(const CQdrGeLine2d& line) {
  transformBy(CQdrGeMatrix2d::mirroring(line));
  std::swap(m_startAng, m_endAng);
  return *this;
}

CQdrGeCircArc2d& CQdrGeCircArc2d::rotateBy(double angle, const CQdrGePoint2d& center) {
  m_center.rotateBy(angle, center);
  if (!isWhole()) setAngles(reducedAngle(m_startAng + angle), reducedAngle(m_endAng + angle));
  return *this;
}

CQdrGeCircArc2d& CQdrGeCircArc2d::translateBy(const CQdrGeVector2d& v) {
  m_center += v;
  return *this;
}

CQdrGeCircArc2d& CQdrGeCircArc2d::transformBy(const CQdrGeMatrix2d& m) {
  CQdrGePoint2d start = startPoint();
  CQdrGePoint2d end = endPoint();
  m_center.transformBy(m);
  if (isWhole()) return *this;
  start.transformBy(m);
  end.transformBy(m);
  setAngles(m_center.angleTo(start), m_center.angleTo(end));
  return *this;
}

void CQdrGeCircArc2d::getGrVertexArray(std::vector<CPoint>& points, int n, double scale) const {
  points.clear();
  const double end = qdr::withTurnIfNegative(m_endAng);
  double angle = qdr::withTurnIfNegative(m_startAng);
  if (end < angle) angle -= qdr::kTwoPi;
  const auto append = [&](double at) {
    const CQdrGePoint2d p = pointAtAngle(at);
    points.emplace_back(qdr::truncToInt(p.x * scale), qdr::truncToInt(p.y * scale));
  };
  if (n < 1) {
    append(angle);
    append(end);
    return;
  }
  const double step = qdr::kTwoPi / n;
  const std::size_t most = screenPointLimit(end - angle, n);
  points.reserve(most);
  while (angle < end && points.size() + 1 < most && angle + step > angle) {
    append(angle);
    angle += step;
  }
  append(end);
}

void CQdrGeCircArc2d::save(CFile* file) const {
  qdr::writeFields(file, m_radius, m_startAng, m_endAng);
  m_center.save(file);
}

void CQdrGeCircArc2d::read(CFile* file) {
  qdr::readFields(file, m_radius, m_startAng, m_endAng);
  m_center.read(file);
}
