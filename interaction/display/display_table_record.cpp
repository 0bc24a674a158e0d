#include "interaction/display/display_table_record.h"

#include "database/database.h"
#include "database/ent_set_iterator.h"
#include "entities/display_units.h"

CQdrDbDisplayTableRecord::CQdrDbDisplayTableRecord(CQdrDbDatabase* database)
    : CQdrDbTableRecord(database) {
  m_classType = QdrDb::eClassBlockTableRecord;
  if (!m_database) return;
  SetCurDispWin(m_database->m_vars.limitsMin, m_database->m_vars.limitsMax);
  m_logicalWindow =
      CRect(qdr::toLogical(m_displayWindow.left), qdr::toLogical(m_displayWindow.top),
            qdr::toLogical(m_displayWindow.right), qdr::toLogical(m_displayWindow.bottom));
  m_prevWindow = m_logicalWindow;
}

void CQdrDbDisplayTableRecord::SetCurDispWin(const CQdrGePoint2d& min, const CQdrGePoint2d& max) {
  m_displayWindow = CRect(qdr::truncToInt(min.x), qdr::truncToInt(min.y), qdr::truncToInt(max.x),
                          qdr::truncToInt(max.y));
}

void CQdrDbDisplayTableRecord::setView(CView* view, CDC* dc) {
  m_view = view;
  m_dc = dc;
}

bool CQdrDbDisplayTableRecord::getView(CView*& view, CDC*& dc) const {
  view = m_view;
  dc = m_dc;
  return m_view != nullptr;
}

CDC* CQdrDbDisplayTableRecord::GetCurrentDC(CView*& view, CDC*& dc) const {
  getView(view, dc);
  return m_dc;
}

void CQdrDbDisplayTableRecord::setEntityToMem(const std::set<CQdrDbObjectId>& ids) {
  m_displayedIds = ids;
  m_index.clear();
}

void CQdrDbDisplayTableRecord::addEntity(const CQdrDbObjectId& id) {
  if (!id.isNull() && qdr::insertId(m_displayedIds, id)) m_index.added(id);
}

void CQdrDbDisplayTableRecord::removeEntity(const CQdrDbObjectId& id) {
  if (!id.isNull() && qdr::eraseId(m_displayedIds, id)) m_index.removed(id);
}

void CQdrDbDisplayTableRecord::ClearDisplayedIdSet() {
  m_displayedIds.clear();
  m_index.clear();
}

bool CQdrDbDisplayTableRecord::newIterator(CQdrDbEntSetIterator*& iterator, bool atStart) {
  iterator = new CQdrDbEntSetIterator(&m_displayedIds);
  iterator->start(atStart);
  return true;
}

void CQdrDbDisplayTableRecord::setLimits(const CQdrGePoint2d& min, const CQdrGePoint2d& max) {
  m_limitMin = min;
  m_limitMax = max;
}

void CQdrDbDisplayTableRecord::getLimits(CQdrGePoint2d& min, CQdrGePoint2d& max) const {
  min = m_limitMin;
  max = m_limitMax;
}
