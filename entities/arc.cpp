#include "entities/arc.h"

#include <cmath>
#include <memory>

#include "entities/angle_steps.h"
#include "entities/circle.h"
#include "entities/display_units.h"
#include "entities/internal/chain_drawing.h"
#include "entities/internal/offset_copy.h"
#include "entities/internal/property_rows.h"
#include "entities/internal/trim_scheme.h"
#include "entities/rect.h"
#include "geometry/angle.h"
#include "platform/device_context.h"

namespace {

// From here on along the arc an edit takes the end, before it the start.
constexpr double kMiddle = 0.5;

}  // namespace

CQdrDbArc::CQdrDbArc(CQdrDbDatabase* database) : CQdrDbCurve(database) {
  setClassInfo(kClassType, m_arc);
}

CQdrDbArc::CQdrDbArc(const CQdrDbArc& other) : CQdrDbCurve(other.database()), m_arc(other.m_arc) {
  setClassInfo(kClassType, m_arc);
  CopyEntProperties(other);
  setGripPoints();
}

CQdrDbArc::CQdrDbArc(const CQdrDbCircle& circle)
    : CQdrDbCurve(circle.database()), m_arc(circle.geometry()) {
  setClassInfo(kClassType, m_arc);
  CopyEntProperties(circle);
  setGripPoints();
}

CQdrDbArc::CQdrDbArc(const CQdrGePoint2d& p1, const CQdrGePoint2d& p2, double bulge)
    : CQdrDbArc(nullptr) {
  set(p1, p2, bulge);
}

CQdrDbArc::CQdrDbArc(const CQdrGePoint2d& center, double radius, double startAngle, double endAngle)
    : CQdrDbArc(nullptr) {
  set(center, radius, startAngle, endAngle);
}

CQdrDbArc::CQdrDbArc(const CQdrGePoint2d& p1, const CQdrGePoint2d& p2, const CQdrGePoint2d& p3)
    : CQdrDbArc(nullptr) {
  set(p1, p2, p3);
}

CQdrDbEntity& CQdrDbArc::operator=(const CQdrDbEntity& other) {
  CQdrDbEntity::operator=(other);
  if (other.classType() == kClassType) {
    m_arc = static_cast<const CQdrDbArc&>(other).m_arc;
    clearVertexArrayValid();
    setGripPoints();
  }
  return *this;
}

CQdrDbArc& CQdrDbArc::operator=(const CQdrDbArc& other) {
  *this = static_cast<const CQdrDbEntity&>(other);
  return *this;
}

void CQdrDbArc::set(const CQdrGePoint2d& p1, const CQdrGePoint2d& p2, double bulge) {
  m_arc.set(p1, p2, bulge, true);
  setGripPoints();
}

void CQdrDbArc::set(const CQdrGePoint2d& center, double radius, double startAngle,
                    double endAngle) {
  m_arc.set(center, radius, startAngle, endAngle);
  setGripPoints();
}

void CQdrDbArc::set(const CQdrGePoint2d& p1, const CQdrGePoint2d& p2, const CQdrGePoint2d& p3) {
  m_arc.set(p1, p2, p3);
  setGripPoints();
}

void CQdrDbArc::setCenter(const CQdrGePoint2d& center) {
  m_arc.setCenter(center);
  setGripPoints();
}

void CQdrDbArc::setRadius(double radius) {
  m_arc.setRadius(radius);
  setGripPoints();
}

void CQdrDbArc::setStartAngle(double angle) {
  m_arc.setStartAngle(angle);
  setGripPoints();
}

void CQdrDbArc::setEndAngle(double angle) {
  m_arc.setEndAngle(angle);
  setGripPoints();
}

void CQdrDbArc::makeProperty() {
  CQdrDbEntity::makeProperty();
  properties()[L"Shape"] = qdr::fieldRows({{L"X Center", Center().x},
                                           {L"Y Center", Center().y},
                                           {L"Radius", m_arc.radius()},
                                           {L"Start Angle", m_arc.startAng()},
                                           {L"End Angle", m_arc.endAng()}});
}

std::vector<CPoint> CQdrDbArc::drawnPolygon() const {
  std::vector<CPoint> polygon;
  m_arc.getGrVertexArray(polygon, _wArcRes, _dDispScale);
  return polygon;
}

void CQdrDbArc::InitGrVertexArray() {
  m_vertexArray = drawnPolygon();
  m_vertexArrayValid = true;
}

CQdrDbRect CQdrDbArc::GetOutRect() {
  return CQdrDbRect::around(drawnPolygon());
}

void CQdrDbArc::Draw(CDC* dc) {
  if (!dc || !isVisiable()) return;
  qdr::drawPoints(*dc, *this, drawnPolygon());
}

void CQdrDbArc::setGripPoints() {
  const double middle =
      qdr::withTurnIfNegative(StartAngle()) + qdr::sweepBetween(StartAngle(), EndAngle()) / 2.0;
  const CQdrGePoint2d middlePoint = Center() + CQdrGeVector2d(middle) * Radius();
  clearVertexArrayValid();
  storeGripPoints({Center(), StartPoint(), middlePoint, EndPoint()});
}

bool CQdrDbArc::checkInsideOrCross(const CQdrGePoint2d& corner1, const CQdrGePoint2d& corner2) {
  return anyGripInside(1, 4, corner1, corner2) || crossesRect(corner1, corner2);
}

bool CQdrDbArc::checkInside(const CQdrGePoint2d& corner1, const CQdrGePoint2d& corner2) {
  return allGripsInside(1, 4, corner1, corner2) && !crossesRect(corner1, corner2);
}

void CQdrDbArc::moveStart(double angle) {
  qdr::recordAngle(*this, 0, StartAngle());
  setStartAngle(angle);
}

void CQdrDbArc::moveEnd(double angle) {
  qdr::recordAngle(*this, 1, EndAngle());
  setEndAngle(angle);
}

CQdrDbEntity* CQdrDbArc::Trim(const CQdrGePoint2d& pick, std::vector<CQdrDbEntity*>& boundaries,
                              double tol) {
  const qdr::TrimCut cut =
      qdr::chooseCut(*this, qdr::boundaryCrossings(*this, boundaries, tol), pick);
  if (cut.part == qdr::TrimPart::kStart) moveStart(Center().angleTo(cut.after.second));
  if (cut.part == qdr::TrimPart::kEnd) moveEnd(Center().angleTo(cut.before.second));
  if (cut.part != qdr::TrimPart::kMiddle) return nullptr;

  auto rest = std::make_unique<CQdrDbArc>(*this);
  moveEnd(Center().angleTo(cut.before.second));
  rest->setStartAngle(Center().angleTo(cut.after.second));
  return rest.release();
}

bool CQdrDbArc::Extend(const CQdrGePoint2d& pick, std::vector<CQdrDbEntity*>& boundaries,
                       double tol) {
  CQdrDbCircle circle(database());
  circle.setCenter(Center());
  circle.setRadius(Radius());
  qdr::CrossingMap crossings;
  for (const CQdrGePoint2d& point :
       qdr::boundaryPoints(circle, boundaries, CQdrGeEntity2d::kExtendNone, tol))
    if (isOn(point, tol) == 0) crossings[circle.paramAtPoint(point, tol)] = point;
  if (crossings.empty()) return false;

  if (qdr::paramOfPick(*this, pick) >= kMiddle)
    moveEnd(qdr::nearerDirection(EndAngle(), Center(), crossings));
  else
    moveStart(qdr::nearerDirection(StartAngle(), Center(), crossings));
  return true;
}

bool CQdrDbArc::getOffset(const CQdrGePoint2d& side, CQdrDbEntity*& result, double distance) {
  return qdr::offsetCopy(*this, &CQdrDbArc::m_arc, side, distance, result);
}
