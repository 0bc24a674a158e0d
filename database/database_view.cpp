// What the drawing asks of the window that shows it.

#include "database/database.h"
#include "platform/window.h"

void CQdrDbDatabase::Draw() {
  CQdrDbDisplayTableRecord* display = m_displayTable.getCurrentRecord();
  CView* view = nullptr;
  CDC* dc = nullptr;
  if (display && display->getView(view, dc) && dc) display->Draw(dc);
}

void CQdrDbDatabase::entityChanged(CQdrDbObject& entity) {
  auto* const block = static_cast<CQdrDbBlockTableRecord*>(entity.ownerId().getPObject());
  if (!m_closing && block && block->getDisplayRecord())
    block->getDisplayRecord()->entityChanged(entity.objectId());
}

void CQdrDbDatabase::invalidateView() {
  const CQdrDbDisplayTableRecord* display = m_displayTable.getCurrentRecord();
  if (display && display->getView()) display->getView()->InvalidateRect(nullptr, true);
}
