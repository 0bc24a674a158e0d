#include "entities/box.h"

#include "entities/display_units.h"
#include "entities/internal/offset_copy.h"
#include "entities/internal/property_rows.h"
#include "entities/polyline.h"
#include "geometry/line2d.h"
#include "platform/device_context.h"

CQdrDbBox::CQdrDbBox(CQdrDbDatabase* database) : CQdrDbCurve(database) {
  setClassInfo(kClassType, m_box);
}

CQdrDbBox::CQdrDbBox(const CQdrDbBox& other) : CQdrDbCurve(other.database()), m_box(other.m_box) {
  setClassInfo(kClassType, m_box);
  CopyEntProperties(other);
  setGripPoints();
}

CQdrDbBox::CQdrDbBox(const CQdrGePoint2d& basePoint, const CQdrGeVector2d& diagonal)
    : CQdrDbBox(nullptr) {
  Set(basePoint, diagonal);
}

CQdrDbBox::CQdrDbBox(const CQdrGePoint2d& basePoint, double width, double height, double rotation)
    : CQdrDbBox(nullptr) {
  Set(basePoint, width, height, rotation);
}

CQdrDbEntity& CQdrDbBox::operator=(const CQdrDbEntity& other) {
  CQdrDbEntity::operator=(other);
  if (other.classType() == kClassType) {
    m_box = static_cast<const CQdrDbBox&>(other).m_box;
    setGripPoints();
  }
  return *this;
}

CQdrDbBox& CQdrDbBox::operator=(const CQdrDbBox& other) {
  *this = static_cast<const CQdrDbEntity&>(other);
  return *this;
}

void CQdrDbBox::Set(const CQdrGePoint2d& basePoint, const CQdrGeVector2d& diagonal) {
  m_box.set(basePoint, diagonal, Rotation());
  setGripPoints();
}

void CQdrDbBox::Set(const CQdrGePoint2d& basePoint, double width, double height, double rotation) {
  m_box.set(basePoint, width, height, rotation);
  setGripPoints();
}

void CQdrDbBox::SetBasePoint(const CQdrGePoint2d& basePoint) {
  m_box.setBasePoint(basePoint);
  setGripPoints();
}

void CQdrDbBox::SetDiagonalPoint(const CQdrGePoint2d& point) {
  m_box.setDiagonPoint(point);
  setGripPoints();
}

void CQdrDbBox::SetWidth(double width) {
  m_box.setWidth(width);
  setGripPoints();
}

void CQdrDbBox::SetHeight(double height) {
  m_box.setHeight(height);
  setGripPoints();
}

void CQdrDbBox::SetRotation(double rotation) {
  m_box.setRotation(rotation);
  setGripPoints();
}

void CQdrDbBox::makeProperty() {
  CQdrDbEntity::makeProperty();
  properties()[L"Shape"] = qdr::fieldRows({{L"X Base", BasePoint().x},
                                           {L"Y Base", BasePoint().y},
                                           {L"Width", m_box.width()},
                                           {L"Height", m_box.height()},
                                           {L"Rotation", m_box.rotation()}});
}

void CQdrDbBox::Draw(CDC* dc) {
  if (!dc || !isVisiable()) return;
  std::vector<CQdrGePoint2d> corners;
  m_box.getVertex(corners);
  CPen* former = setPen(dc);
  dc->MoveTo(qdr::toLogical(corners[0]));
  for (std::size_t i = 1; i <= corners.size(); ++i)
    dc->LineTo(qdr::toLogical(corners[i % corners.size()]));
  RemovePen(dc, former);
}

void CQdrDbBox::setGripPoints() {
  std::vector<CQdrGePoint2d> corners;
  m_box.getVertex(corners);
  m_gripPoints.clear();
  for (std::size_t i = 0; i < corners.size(); ++i) {
    const CQdrGeLine2d side(corners[i], corners[(i + 1) % corners.size()]);
    m_gripPoints.push_back(corners[i]);
    m_gripPoints.push_back(side.midPoint());
  }
  updateEntityRect();
}

bool CQdrDbBox::IsClosedCurve() {
  return true;
}

bool CQdrDbBox::getOffset(const CQdrGePoint2d& side, CQdrDbEntity*& result, double distance) {
  return qdr::offsetCopy(*this, &CQdrDbBox::m_box, side, distance, result);
}

void CQdrDbBox::ConvertToPolyline(CQdrDbPolyline& result) const {
  std::vector<CQdrGePoint2d> corners;
  m_box.getVertex(corners);
  result.CopyEntProperties(*this);
  result.SetVertexes(&corners);
  result.SetClosed(true);
}
