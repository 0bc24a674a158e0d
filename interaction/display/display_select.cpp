// Selection among the entities that a display record shows.

#include "database/database.h"
#include "database/entity_access.h"
#include "entities/display_units.h"
#include "entities/entity.h"
#include "interaction/display/display_table_record.h"

double CQdrDbDisplayTableRecord::pickBoxSide() const {
  return m_database ? m_database->m_vars.pickBoxSize * m_scaleX / _dDispScale : 0.0;
}

bool CQdrDbDisplayTableRecord::selectEntity(const CQdrGePoint2d&, const CQdrGePoint2d&,
                                            std::set<CQdrDbObjectId>& ids, bool) {
  ids.clear();
  for (const CQdrDbObjectId& id : m_displayedIds) {
    if (id.isVisiable()) ids.insert(ids.end(), id);
  }
  return !ids.empty();
}

bool CQdrDbDisplayTableRecord::selectEntity(const CQdrGePoint2d& point, CQdrDbObjectId& id) {
  const double tolerance = pickBoxSide() / 2.0;
  for (const CQdrDbObjectId& candidate : m_displayedIds) {
    CQdrDbEntity* const entity = qdr::asEntity(candidate);
    if (!entity || !entity->isVisiable() || entity->isOn(point, tolerance) == 0) continue;
    id = candidate;
    return true;
  }
  return false;
}

bool CQdrDbDisplayTableRecord::selectEntity(CPoint device, CQdrDbObjectId& id) {
  CQdrGePoint2d ignored;
  return selectEntity(device, id, ignored);
}

bool CQdrDbDisplayTableRecord::selectEntity(CPoint device, CQdrDbObjectId& id,
                                            CQdrGePoint2d& worldPoint) {
  worldPoint = GetLogicalPoint(device);
  return selectEntity(worldPoint, id);
}

bool CQdrDbDisplayTableRecord::selectEntityByWin(const CQdrGePoint2d& min, const CQdrGePoint2d& max,
                                                 std::set<CQdrDbObjectId>& ids) {
  ids.clear();
  for (const CQdrDbObjectId& id : m_displayedIds) {
    CQdrDbEntity* const entity = qdr::asEntity(id);
    if (entity && entity->isVisiable() && entity->checkInside(min, max)) ids.insert(ids.end(), id);
  }
  return !ids.empty();
}

bool CQdrDbDisplayTableRecord::selectEntityByCross(const CQdrGePoint2d& min,
                                                   const CQdrGePoint2d& max,
                                                   std::set<CQdrDbObjectId>& ids, bool) {
  ids.clear();
  for (const CQdrDbObjectId& id : m_displayedIds) {
    CQdrDbEntity* const entity = qdr::asEntity(id);
    if (!entity || !entity->isVisiable()) continue;
    if (entity->checkInsideOrCross(min, max)) ids.insert(ids.end(), id);
  }
  return !ids.empty();
}
