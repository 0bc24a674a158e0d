// The command that erases.

#include <algorithm>
#include <vector>

#include "database/database.h"
#include "database/undo/undo_operations.h"
#include "database/undo/undo_record.h"
#include "entities/entity.h"
#include "interaction/command_handler.h"
#include "interaction/input_loop.h"
#include "platform/device_context.h"

namespace {

// In order of creation, so that the records of an undo step do not depend on addresses.
std::vector<CQdrDbEntity*> ordered(const std::set<CQdrDbEntity*>& entities) {
  std::vector<CQdrDbEntity*> list(entities.begin(), entities.end());
  std::sort(list.begin(), list.end(), [](const CQdrDbEntity* a, const CQdrDbEntity* b) {
    return a->getCreatedTime() < b->getCreatedTime();
  });
  return list;
}

}  // namespace

// The grips on screen are the selection; without any the user is asked. The entities go from the
// screen by a raster operation that clears their pixels on black, and are marked erased, so that
// undo can bring all of them back in one step.
int CQdrCommandHandler::CommandErase(unsigned long&) {
  std::set<CQdrDbEntity*> selected = GetSelectedEntity();
  if (!selected.empty()) {
    ClearTracker(false);
  } else if (GetEntities(QdrDb::ePromptSelect, &selected) != qdr::kInputPick) {
    return qdr::kInputCancel;
  }
  const qdr::RasterScope raster(m_database->screenDC(), R2_MASKPENNOT);
  std::int32_t continued = 0;
  for (CQdrDbEntity* entity : ordered(selected)) {
    if (CDC* const dc = m_database->screenDC()) entity->Draw(dc);
    entity->setObjectStatus(CQdrDbObject::eErased);
    tagUndoEditEntity record;
    record.operation = qdr::kUndoErased;
    record.continued = continued;
    record.entityId = entity->objectId();
    const std::size_t before = m_database->m_undoHandler.m_undoList.size();
    // A class that records no step leaves the next record to be the first of the command.
    if (m_database->m_undoHandler.AddUndo(record) > before) continued = 1;
  }
  return qdr::kInputPick;
}
