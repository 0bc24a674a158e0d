// Selection among the entities that a display record shows.

#include "database/database.h"
#include "database/entity_access.h"
#include "entities/display_units.h"
#include "entities/entity.h"
#include "geometry/vector2d.h"
#include "interaction/display/display_table_record.h"

// Every entity shown that may touch the rectangle of two corners, in the order of creation, until a
// visit answers false.
template <class Visit>
void CQdrDbDisplayTableRecord::forEachShown(const CQdrGePoint2d& corner1,
                                            const CQdrGePoint2d& corner2, Visit&& visit) {
  if (!m_database || !qdr::EntityIndex::pays(m_displayedIds)) {
    for (const CQdrDbObjectId& id : m_displayedIds)
      if (!visit(id)) return;
    return;
  }
  m_index.refresh(m_displayedIds, *m_database);
  const qdr::Box area = qdr::boxOfChord(qdr::toVec(corner1), qdr::toVec(corner2));
  m_index.forEachIn(area, m_scaleX / _dDispScale, visit);
}

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
  const CQdrGeVector2d reach(tolerance, tolerance);
  bool found = false;
  forEachShown(point - reach, point + reach, [&](const CQdrDbObjectId& candidate) {
    CQdrDbEntity* const entity = qdr::asEntity(candidate);
    found = entity && entity->isVisiable() && entity->isOn(point, tolerance) != 0;
    if (found) id = candidate;
    return !found;
  });
  return found;
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
  forEachShown(min, max, [&](const CQdrDbObjectId& id) {
    CQdrDbEntity* const entity = qdr::asEntity(id);
    if (entity && entity->isVisiable() && entity->checkInside(min, max)) ids.insert(ids.end(), id);
    return true;
  });
  return !ids.empty();
}

bool CQdrDbDisplayTableRecord::selectEntityByCross(const CQdrGePoint2d& min,
                                                   const CQdrGePoint2d& max,
                                                   std::set<CQdrDbObjectId>& ids, bool) {
  ids.clear();
  forEachShown(min, max, [&](const CQdrDbObjectId& id) {
    CQdrDbEntity* const entity = qdr::asEntity(id);
    if (entity && entity->isVisiable() && entity->checkInsideOrCross(min, max))
      ids.insert(ids.end(), id);
    return true;
  });
  return !ids.empty();
}
