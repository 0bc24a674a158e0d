#include "entities/entity.h"

#include "database/database.h"
#include "database/entity_classes.h"
#include "entities/rect.h"
#include "platform/gdi_objects.h"

CQdrDbEntity::CQdrDbEntity(CQdrDbDatabase* database) : CQdrDbObject(database) {
  m_status = eEntity;
  SetEntProperty();
}

CQdrDbEntity::~CQdrDbEntity() {
  delete m_pen;
  ClearXData();
}

void CQdrDbEntity::setClassInfo(QdrDb::ClassType type, std::uint8_t status) {
  m_classType = type;
  m_status = static_cast<std::uint8_t>(m_status | status);
}

void CQdrDbEntity::setDatabase(CQdrDbDatabase* database) {
  const bool hadNone = m_database == nullptr;
  m_database = database;
  if (hadNone) SetEntProperty();
}

CQdrDbRect CQdrDbEntity::GetOutRect() {
  return CQdrDbRect(m_database);
}

void CQdrDbEntity::OnCurveChanged() {}

void CQdrDbEntity::OnRectChanged() {}

bool CQdrDbEntity::IsCurveEntity() const {
  return false;
}

bool CQdrDbEntity::IsClosedCurve() {
  return false;
}

int CQdrDbEntity::IsBoundary() const {
  return 0;
}

void CQdrDbEntity::SetBoundary(int tag) {
  m_boundaryTag = tag;
}

CQdrDbEntity* CQdrDbEntity::Trim(const CQdrGePoint2d&, std::vector<CQdrDbEntity*>&, double) {
  return nullptr;
}

bool CQdrDbEntity::Extend(const CQdrGePoint2d&, std::vector<CQdrDbEntity*>&, double) {
  return false;
}

bool CQdrDbEntity::getOffset(const CQdrGePoint2d&, CQdrDbEntity*& result, double) {
  result = nullptr;
  return false;
}

CQdrDbEntity& CQdrDbEntity::operator=(const CQdrDbEntity& other) {
  setLineType(other.m_lineTypeId);
  setColor(other.m_colorId);
  setLineWeight(other.m_lineWeight);
  setLayer(other.m_layerId);
  return *this;
}

void CQdrDbEntity::CopyEntProperties(const CQdrDbEntity& other) {
  setLayer(other.m_layerId);
  setLineType(other.m_lineTypeId);
  setColor(other.m_colorId);
  setLineWeight(other.m_lineWeight);
  m_boundaryTag = other.m_boundaryTag;
}

CQdrDbEntity* CQdrDbEntity::CopyEntity(bool) {
  const qdr::EntityClass* row = qdr::entityClass(classType());
  return row && row->copy ? row->copy(*this) : nullptr;
}

void CQdrDbEntity::SetDbEntity(bool inDatabase) {
  m_dbEntity = inDatabase;
  if (inDatabase) setGripPoints();
}

void CQdrDbEntity::setGripPoints() {}

void CQdrDbEntity::storeGripPoints(std::initializer_list<CQdrGePoint2d> points) {
  m_gripPoints.assign(points);
  updateEntityRect();
}

void CQdrDbEntity::updateEntityRect() {
  m_entityRect = GetOutRect();
  tellView();
}

void CQdrDbEntity::looksChanged() {
  m_penStale = true;
  tellView();
}

void CQdrDbEntity::tellView() {
  if (m_dbEntity && m_database) m_database->entityChanged(*this);
}

CQdrGePoint2d CQdrDbEntity::getGripPoint(int index) const {
  const bool exists = index >= 0 && static_cast<std::size_t>(index) < m_gripPoints.size();
  return exists ? m_gripPoints[static_cast<std::size_t>(index)] : CQdrGePoint2d::kOrigin;
}

bool CQdrDbEntity::getGripPointVec(std::vector<CQdrGePoint2d>*& grips) {
  if (m_gripPoints.empty()) setGripPoints();
  grips = &m_gripPoints;
  return true;
}

bool CQdrDbEntity::OnErased() {
  if (m_dbEntity && m_database) m_database->m_commandHandler.DeleteTracker(this);
  return true;
}

void CQdrDbEntity::Erase() {
  OnErased();
  setErased();
  if (m_dbEntity && m_database) m_database->removeEntity(this);
}
