#include "entities/ellipse.h"

#include <memory>

#include "database/undo/undo_operations.h"
#include "database/undo/undo_record.h"
#include "entities/circle.h"
#include "entities/display_units.h"
#include "entities/ellipse_arc.h"
#include "entities/internal/chain_drawing.h"
#include "entities/internal/ellipse_parts.h"
#include "entities/internal/offset_copy.h"
#include "entities/internal/trim_scheme.h"
#include "entities/rect.h"
#include "geometry/angle.h"
#include "platform/device_context.h"

CQdrDbEllipse::CQdrDbEllipse(CQdrDbDatabase* database) : CQdrDbCurve(database) {
  setClassInfo(kClassType, m_ellipse);
}

CQdrDbEllipse::CQdrDbEllipse(const CQdrDbEllipse& other)
    : CQdrDbCurve(other.database()), m_ellipse(other.m_ellipse) {
  setClassInfo(kClassType, m_ellipse);
  CopyEntProperties(other);
  setGripPoints();
}

CQdrDbEllipse::CQdrDbEllipse(const CQdrDbCircle& circle)
    : CQdrDbCurve(circle.database()), m_ellipse(circle.geometry()) {
  setClassInfo(kClassType, m_ellipse);
  CopyEntProperties(circle);
  setGripPoints();
}

CQdrDbEllipse::CQdrDbEllipse(const CQdrGePoint2d& center, const CQdrGeVector2d& major,
                             double radiusRatio)
    : CQdrDbEllipse(nullptr) {
  set(center, major, radiusRatio);
}

CQdrDbEntity& CQdrDbEllipse::operator=(const CQdrDbEntity& other) {
  CQdrDbEntity::operator=(other);
  if (other.classType() == kClassType) {
    m_ellipse = static_cast<const CQdrDbEllipse&>(other).m_ellipse;
    setGripPoints();
  }
  return *this;
}

CQdrDbEllipse& CQdrDbEllipse::operator=(const CQdrDbEllipse& other) {
  *this = static_cast<const CQdrDbEntity&>(other);
  return *this;
}

void CQdrDbEllipse::set(const CQdrGePoint2d& center, const CQdrGeVector2d& major,
                        double radiusRatio) {
  m_ellipse.setCenter(center);
  qdr::setMajorVector(m_ellipse, major);
  SetRadiusRatio(radiusRatio);
}

void CQdrDbEllipse::get(CQdrGePoint2d& center, CQdrGeVector2d& major, double& radiusRatio) const {
  center = Center();
  major = VecMajorAxis();
  radiusRatio = RadiusRatio();
}

void CQdrDbEllipse::SetCenter(const CQdrGePoint2d& center) {
  m_ellipse.setCenter(center);
  setGripPoints();
}

void CQdrDbEllipse::SetVecMajorAxis(const CQdrGeVector2d& major) {
  qdr::setMajorVector(m_ellipse, major);
  setGripPoints();
}

void CQdrDbEllipse::SetRadiusRatio(double radiusRatio) {
  m_ellipse.setMinorRadius(radiusRatio * MajorRadius());
  setGripPoints();
}

void CQdrDbEllipse::SetMajorRadius(double radius) {
  m_ellipse.setMajorRadius(radius);
  setGripPoints();
}

void CQdrDbEllipse::setRadii(double majorRadius, double minorRadius) {
  m_ellipse.setMajorRadius(majorRadius);
  m_ellipse.setMinorRadius(minorRadius);
  setGripPoints();
}

CQdrGeVector2d CQdrDbEllipse::VecMajorAxis() const {
  return qdr::majorVector(m_ellipse);
}

CQdrGeVector2d CQdrDbEllipse::VecMinorAxis() const {
  return qdr::minorVector(m_ellipse);
}

void CQdrDbEllipse::makeProperty() {
  CQdrDbEntity::makeProperty();
  properties()[L"Shape"] = qdr::ellipseRows(m_ellipse);
}

std::vector<CPoint> CQdrDbEllipse::drawnPolygon() const {
  std::vector<CPoint> polygon;
  m_ellipse.getGrVertexArray(polygon, _wArcRes, _dDispScale);
  return polygon;
}

void CQdrDbEllipse::InitGrVertexArray() {
  m_vertexArray = drawnPolygon();
  m_vertexArrayValid = true;
}

CQdrDbRect CQdrDbEllipse::GetOutRect() {
  return CQdrDbRect::around(drawnPolygon());
}

void CQdrDbEllipse::Draw(CDC* dc) {
  if (!dc || !isVisiable()) return;
  qdr::drawPoints(*dc, *this, drawnPolygon());
}

void CQdrDbEllipse::DrawA(CDC* dc) {
  if (!dc || !isVisiable()) return;
  CPen* former = setPen(dc);
  qdr::drawAsArcs(*dc, drawnPolygon());
  RemovePen(dc, former);
}

void CQdrDbEllipse::setGripPoints() {
  clearVertexArrayValid();
  m_gripPoints = {Center()};
  const std::vector<CQdrGePoint2d> quadrants = qdr::quadrantPoints(m_ellipse);
  m_gripPoints.insert(m_gripPoints.end(), quadrants.begin(), quadrants.end());
  updateEntityRect();
}

bool CQdrDbEllipse::checkInsideOrCross(const CQdrGePoint2d& corner1, const CQdrGePoint2d& corner2) {
  return anyGripInside(1, 5, corner1, corner2) || crossesRect(corner1, corner2);
}

bool CQdrDbEllipse::checkInside(const CQdrGePoint2d& corner1, const CQdrGePoint2d& corner2) {
  return allGripsInside(1, 5, corner1, corner2) && !crossesRect(corner1, corner2);
}

bool CQdrDbEllipse::IsClosedCurve() {
  return true;
}

CQdrDbEntity* CQdrDbEllipse::Trim(const CQdrGePoint2d& pick, std::vector<CQdrDbEntity*>& boundaries,
                                  double tol) {
  const qdr::CrossingMap crossings = qdr::boundaryCrossings(*this, boundaries, tol);
  if (crossings.size() < 2) return nullptr;
  const qdr::RingCut cut = qdr::chooseRingCut(crossings, qdr::paramOfPick(*this, pick));

  qdr::addUndo(*this, qdr::undoRecord(*this, qdr::kUndoErased));
  auto rest = std::make_unique<CQdrDbEllipseArc>(*this);
  rest->SetEndAngle(qdr::angleInFrame(m_ellipse, cut.from));
  rest->SetStartAngle(qdr::angleInFrame(m_ellipse, cut.to));
  setErased();
  return rest.release();
}

bool CQdrDbEllipse::getOffset(const CQdrGePoint2d& side, CQdrDbEntity*& result, double distance) {
  return qdr::offsetCopy(*this, &CQdrDbEllipse::m_ellipse, side, distance, result);
}
