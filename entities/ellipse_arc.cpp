#include "entities/ellipse_arc.h"

#include <memory>

#include "entities/angle_steps.h"
#include "entities/display_units.h"
#include "entities/ellipse.h"
#include "entities/internal/chain_drawing.h"
#include "entities/internal/ellipse_parts.h"
#include "entities/internal/offset_copy.h"
#include "entities/internal/trim_scheme.h"
#include "entities/rect.h"
#include "geometry/angle.h"
#include "platform/device_context.h"

namespace {

// From here on along the arc an edit takes the end, before it the start.
constexpr double kMiddle = 0.5;

// Indices of the last two grips.
constexpr std::size_t kStartGrip = 5;
constexpr std::size_t kGripCount = 7;

}  // namespace

CQdrDbEllipseArc::CQdrDbEllipseArc(CQdrDbDatabase* database) : CQdrDbCurve(database) {
  setClassInfo(kClassType, m_arc);
}

CQdrDbEllipseArc::CQdrDbEllipseArc(const CQdrDbEllipseArc& other)
    : CQdrDbCurve(other.database()), m_arc(other.m_arc) {
  setClassInfo(kClassType, m_arc);
  CopyEntProperties(other);
  setGripPoints();
}

CQdrDbEllipseArc::CQdrDbEllipseArc(const CQdrDbEllipse& ellipse)
    : CQdrDbCurve(ellipse.database()), m_arc(ellipse.geometry()) {
  setClassInfo(kClassType, m_arc);
  CopyEntProperties(ellipse);
  setGripPoints();
}

CQdrDbEllipseArc::CQdrDbEllipseArc(const CQdrGePoint2d& center, const CQdrGeVector2d& major,
                                   double radiusRatio, double startAngle, double endAngle)
    : CQdrDbEllipseArc(nullptr) {
  set(center, major, radiusRatio, startAngle, endAngle);
}

CQdrDbEntity& CQdrDbEllipseArc::operator=(const CQdrDbEntity& other) {
  CQdrDbEntity::operator=(other);
  if (other.classType() == kClassType) {
    m_arc = static_cast<const CQdrDbEllipseArc&>(other).m_arc;
    setGripPoints();
  }
  return *this;
}

CQdrDbEllipseArc& CQdrDbEllipseArc::operator=(const CQdrDbEllipseArc& other) {
  *this = static_cast<const CQdrDbEntity&>(other);
  return *this;
}

void CQdrDbEllipseArc::set(const CQdrGePoint2d& center, const CQdrGeVector2d& major,
                           double radiusRatio, double startAngle, double endAngle) {
  m_arc.setCenter(center);
  qdr::setMajorVector(m_arc, major);
  m_arc.setMinorRadius(radiusRatio * MajorRadius());
  m_arc.setAngles(qdr::withTurnIfNegative(startAngle), qdr::withTurnIfNegative(endAngle));
  setGripPoints();
}

void CQdrDbEllipseArc::get(CQdrGePoint2d& center, CQdrGeVector2d& major, double& radiusRatio,
                           double& startAngle, double& endAngle) const {
  center = Center();
  major = VecMajorAxis();
  radiusRatio = RadiusRatio();
  startAngle = StartAngle();
  endAngle = EndAngle();
}

void CQdrDbEllipseArc::SetCenter(const CQdrGePoint2d& center) {
  m_arc.setCenter(center);
  setGripPoints();
}

void CQdrDbEllipseArc::SetVecMajorAxis(const CQdrGeVector2d& major) {
  qdr::setMajorVector(m_arc, major);
  setGripPoints();
}

void CQdrDbEllipseArc::SetRadiusRatio(double radiusRatio) {
  m_arc.setMinorRadius(radiusRatio * MajorRadius());
  setGripPoints();
}

void CQdrDbEllipseArc::SetMajorRadius(double radius) {
  m_arc.setMajorRadius(radius);
  setGripPoints();
}

void CQdrDbEllipseArc::setRadii(double majorRadius, double minorRadius) {
  m_arc.setMajorRadius(majorRadius);
  m_arc.setMinorRadius(minorRadius);
  setGripPoints();
}

void CQdrDbEllipseArc::SetStartAngle(double angle) {
  m_arc.setAngles(qdr::withTurnIfNegative(angle), EndAngle());
  setGripPoints();
}

void CQdrDbEllipseArc::SetEndAngle(double angle) {
  m_arc.setAngles(StartAngle(), qdr::withTurnIfNegative(angle));
  setGripPoints();
}

CQdrGeVector2d CQdrDbEllipseArc::VecMajorAxis() const {
  return qdr::majorVector(m_arc);
}

CQdrGeVector2d CQdrDbEllipseArc::VecMinorAxis() const {
  return qdr::minorVector(m_arc);
}

CQdrGePoint2d CQdrDbEllipseArc::toDrawing(CQdrGePoint2d framePoint) const {
  framePoint.rotateBy(m_arc.majorAxis().angle(), CQdrGePoint2d::kOrigin);
  return framePoint + Center().asVector();
}

CQdrGePoint2d CQdrDbEllipseArc::StartPoint() const {
  return toDrawing(m_arc.startPoint());
}

CQdrGePoint2d CQdrDbEllipseArc::EndPoint() const {
  return toDrawing(m_arc.endPoint());
}

void CQdrDbEllipseArc::makeProperty() {
  CQdrDbEntity::makeProperty();
  properties()[L"Shape"] = qdr::ellipseRows(m_arc);
}

// The geometry takes the lengths of its axes for the radii here, and its axes are directions.
std::vector<CPoint> CQdrDbEllipseArc::drawnPolygon() const {
  CQdrGeEllipArc2d scaled(m_arc);
  scaled.setAxes(VecMajorAxis(), VecMinorAxis());
  std::vector<CPoint> polygon;
  scaled.getGrVertexArray_Arc(polygon, _wArcRes, _dDispScale);
  return polygon;
}

void CQdrDbEllipseArc::InitGrVertexArray() {
  m_vertexArray = drawnPolygon();
  m_vertexArrayValid = true;
}

CQdrDbRect CQdrDbEllipseArc::GetOutRect() {
  return CQdrDbRect::around(drawnPolygon());
}

void CQdrDbEllipseArc::Draw(CDC* dc) {
  if (!dc || !isVisiable()) return;
  qdr::drawPoints(*dc, *this, drawnPolygon());
}

void CQdrDbEllipseArc::DrawA(CDC* dc) {
  if (!dc || !isVisiable()) return;
  CPen* former = setPen(dc);
  qdr::drawAsArcs(*dc, drawnPolygon());
  RemovePen(dc, former);
}

void CQdrDbEllipseArc::setGripPoints() {
  clearVertexArrayValid();
  const std::vector<CQdrGePoint2d> q = qdr::quadrantPoints(m_arc);
  storeGripPoints({Center(), q[0], q[1], q[2], q[3], StartPoint(), EndPoint()});
}

bool CQdrDbEllipseArc::spans(double angle) const {
  return qdr::sweepBetween(StartAngle(), angle) <= qdr::sweepBetween(StartAngle(), EndAngle());
}

bool CQdrDbEllipseArc::checkInsideOrCross(const CQdrGePoint2d& corner1,
                                          const CQdrGePoint2d& corner2) {
  if (anyGripInside(kStartGrip, kGripCount, corner1, corner2)) return true;
  for (int quarter = 0; quarter < 4; ++quarter) {
    const std::size_t grip = static_cast<std::size_t>(quarter) + 1;
    if (spans(quarter * qdr::kHalfPi) && anyGripInside(grip, grip + 1, corner1, corner2))
      return true;
  }
  return crossesRect(corner1, corner2);
}

bool CQdrDbEllipseArc::checkInside(const CQdrGePoint2d& corner1, const CQdrGePoint2d& corner2) {
  return allGripsInside(kStartGrip, kGripCount, corner1, corner2) && !crossesRect(corner1, corner2);
}

void CQdrDbEllipseArc::moveStart(double angle) {
  qdr::recordAngle(*this, 0, StartAngle());
  SetStartAngle(angle);
}

void CQdrDbEllipseArc::moveEnd(double angle) {
  qdr::recordAngle(*this, 1, EndAngle());
  SetEndAngle(angle);
}

CQdrDbEntity* CQdrDbEllipseArc::Trim(const CQdrGePoint2d& pick,
                                     std::vector<CQdrDbEntity*>& boundaries, double tol) {
  const qdr::TrimCut cut =
      qdr::chooseCut(*this, qdr::boundaryCrossings(*this, boundaries, tol), pick);
  const double before = qdr::angleInFrame(m_arc, cut.before.second);
  const double after = qdr::angleInFrame(m_arc, cut.after.second);
  if (cut.part == qdr::TrimPart::kStart) moveStart(after);
  if (cut.part == qdr::TrimPart::kEnd) moveEnd(before);
  if (cut.part != qdr::TrimPart::kMiddle) return nullptr;

  auto rest = std::make_unique<CQdrDbEllipseArc>(*this);
  moveEnd(before);
  rest->SetStartAngle(after);
  return rest.release();
}

bool CQdrDbEllipseArc::Extend(const CQdrGePoint2d& pick, std::vector<CQdrDbEntity*>& boundaries,
                              double tol) {
  CQdrDbEllipse ellipse(database());
  ellipse.m_ellipse = m_arc;
  ellipse.m_ellipse.setAngles(0.0, qdr::kTwoPi);
  // The chains of circular arcs that stand for the whole ellipse and for this part of it differ by
  // more than `tol`, so what lies on the arc is told by its angle.
  qdr::CrossingMap crossings;
  for (const CQdrGePoint2d& point :
       qdr::boundaryPoints(ellipse, boundaries, CQdrGeEntity2d::kExtendNone, tol))
    if (!spans(qdr::angleInFrame(m_arc, point)) && isOn(point, tol) == 0)
      crossings[ellipse.paramAtPoint(point, tol)] = point;
  if (crossings.empty()) return false;

  const double axis = m_arc.majorAxis().angle();
  const auto target = [&](double angle) {
    return qdr::withTurnIfNegative(qdr::nearerDirection(angle + axis, Center(), crossings) - axis);
  };
  if (qdr::paramOfPick(*this, pick) >= kMiddle)
    moveEnd(target(EndAngle()));
  else
    moveStart(target(StartAngle()));
  return true;
}

bool CQdrDbEllipseArc::getOffset(const CQdrGePoint2d& side, CQdrDbEntity*& result,
                                 double distance) {
  return qdr::offsetCopy(*this, &CQdrDbEllipseArc::m_arc, side, distance, result);
}
