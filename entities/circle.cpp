#include "entities/circle.h"

#include <memory>

#include "database/undo/undo_operations.h"
#include "database/undo/undo_record.h"
#include "entities/arc.h"
#include "entities/display_units.h"
#include "entities/internal/offset_copy.h"
#include "entities/internal/property_rows.h"
#include "entities/internal/trim_scheme.h"
#include "geometry/angle.h"
#include "platform/device_context.h"

namespace {

constexpr float kFullTurnDegrees = 360.0F;

}  // namespace

CQdrDbCircle::CQdrDbCircle(CQdrDbDatabase* database) : CQdrDbCurve(database) {
  setClassInfo(kClassType, m_circle);
}

CQdrDbCircle::CQdrDbCircle(const CQdrDbCircle& other)
    : CQdrDbCurve(other.database()), m_circle(other.m_circle) {
  setClassInfo(kClassType, m_circle);
  CopyEntProperties(other);
  setGripPoints();
}

CQdrDbCircle::CQdrDbCircle(const CQdrGePoint2d& center, double radius)
    : CQdrDbCurve(nullptr), m_circle(center, radius) {
  setClassInfo(kClassType, m_circle);
  setGripPoints();
}

CQdrDbEntity& CQdrDbCircle::operator=(const CQdrDbEntity& other) {
  CQdrDbEntity::operator=(other);
  if (other.classType() == kClassType) {
    m_circle = static_cast<const CQdrDbCircle&>(other).m_circle;
    setGripPoints();
  }
  return *this;
}

CQdrDbCircle& CQdrDbCircle::operator=(const CQdrDbCircle& other) {
  *this = static_cast<const CQdrDbEntity&>(other);
  return *this;
}

void CQdrDbCircle::setCenter(const CQdrGePoint2d& center) {
  m_circle.setCenter(center);
  setGripPoints();
}

void CQdrDbCircle::setRadius(double radius) {
  m_circle.setRadius(radius);
  setGripPoints();
}

void CQdrDbCircle::makeProperty() {
  CQdrDbEntity::makeProperty();
  properties()[L"Shape"] = qdr::fieldRows(
      {{L"X Center", Center().x}, {L"Y Center", Center().y}, {L"Radius", m_circle.radius()}});
}

void CQdrDbCircle::Draw(CDC* dc) {
  if (!dc || !isVisiable()) return;
  CPen* former = setPen(dc);
  const CPoint center = qdr::toLogical(Center());
  dc->MoveTo(qdr::toLogical(StartPoint()));
  dc->AngleArc(center.x, center.y, qdr::toLogical(Radius()), 0.0F, kFullTurnDegrees);
  RemovePen(dc, former);
}

void CQdrDbCircle::setGripPoints() {
  m_circle.setAngles(0.0, qdr::kTwoPi);
  const CQdrGePoint2d c = Center();
  const double r = Radius();
  storeGripPoints({c, {c.x + r, c.y}, {c.x, c.y + r}, {c.x - r, c.y}, {c.x, c.y - r}});
}

bool CQdrDbCircle::checkInside(const CQdrGePoint2d& corner1, const CQdrGePoint2d& corner2) {
  return allGripsInside(0, 5, corner1, corner2);
}

bool CQdrDbCircle::IsClosedCurve() {
  return true;
}

CQdrDbEntity* CQdrDbCircle::Trim(const CQdrGePoint2d& pick, std::vector<CQdrDbEntity*>& boundaries,
                                 double tol) {
  const qdr::CrossingMap crossings = qdr::boundaryCrossings(*this, boundaries, tol);
  if (crossings.size() < 2) return nullptr;
  const qdr::RingCut cut = qdr::chooseRingCut(crossings, qdr::paramOfPick(*this, pick));

  qdr::addUndo(*this, qdr::undoRecord(*this, qdr::kUndoErased));
  auto rest = std::make_unique<CQdrDbArc>(*this);
  rest->setEndAngle(Center().angleTo(cut.from));
  rest->setStartAngle(Center().angleTo(cut.to));
  setErased();
  return rest.release();
}

bool CQdrDbCircle::getOffset(const CQdrGePoint2d& side, CQdrDbEntity*& result, double distance) {
  return qdr::offsetCopy(*this, &CQdrDbCircle::m_circle, side, distance, result);
}
