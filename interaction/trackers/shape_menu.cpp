// Commands of the grip menu that take a shape apart, and what those of the classes have in common.

#include <memory>

#include "database/database.h"
#include "entities/arc.h"
#include "entities/circle.h"
#include "entities/line.h"
#include "entities/polyline.h"
#include "interaction/command_handler.h"
#include "interaction/dlg_get_value.h"
#include "interaction/explode_entity.h"
#include "interaction/input_loop.h"
#include "interaction/trackers/grip_menu.h"
#include "interaction/trackers/shape_tracker.h"
#include "platform/window.h"

namespace {

constexpr const wchar_t* kPartsCaption = L"Number of Divide:";
constexpr int kUsualParts = 2;

// How many parts the user wants; 0 for none.
int askParts(CWnd* window) {
  CString usual;
  usual.Format(L"%d", kUsualParts);
  CDlgGetValue dialog(window, kPartsCaption, usual);
  return dialog.DoModal() == IDOK ? _wtoi(dialog.value()) : 0;
}

// The entity as a polyline of so many equal segments; null when it cannot be divided so.
std::unique_ptr<CQdrDbPolyline> dividedCopy(const CQdrDbEntity& entity, int parts) {
  std::unique_ptr<CQdrDbPolyline> polyline;
  switch (entity.classType()) {
    case QdrDb::eClassCircle:
      polyline =
          std::make_unique<CQdrDbPolyline>(static_cast<const CQdrDbCircle&>(entity), parts, false);
      return polyline->NumVerts() > 0 ? std::move(polyline) : nullptr;
    case QdrDb::eClassLine:
      polyline = std::make_unique<CQdrDbPolyline>(static_cast<const CQdrDbLine&>(entity), false);
      break;
    case QdrDb::eClassArc:
      polyline = std::make_unique<CQdrDbPolyline>(static_cast<const CQdrDbArc&>(entity), false);
      break;
    default:
      return nullptr;
  }
  return polyline->DivideSegment(parts, 0, false) ? std::move(polyline) : nullptr;
}

}  // namespace

namespace qdr {

void ShapeTracker::runOwnCommand(CWnd* window, int, unsigned command) {
  if (command == kGripExplode) explode(window);
  if (command == kGripDivide) divide(window);
}

void ShapeTracker::recordStep(tagUndoEditEntity step) {
  if (!m_entity->IsDbEntity()) return;
  step.continued = 0;
  step.entityId = m_entity->objectId();
  m_db->m_undoHandler.AddUndo(step);
}

bool ShapeTracker::askPoint(int handle, CQdrGePoint2d& point) {
  const CQdrGePoint2d grip = m_entity->getGripPoint(handle);
  const int result = m_handler->GetGePoint(QdrDb::ePromptNextPoint, point, grip, L'\0');
  return m_entity && (result == kInputPick || result == kInputPoint);
}

// The tracker waits in the graveyard until its menu is left.
void ShapeTracker::explode(CWnd* window) {
  CQdrDbEntity* const entity = m_entity;
  takeGripsOff();
  if (!explodeEntity(*entity)) {
    showGrips();
    return;
  }
  m_handler->RemoveTracker(this);
  window->InvalidateRect(nullptr, true);
}

void ShapeTracker::divide(CWnd* window) {
  CQdrDbEntity* const entity = m_entity;
  CQdrDbDatabase* const drawing = m_db;
  CQdrCommandHandler* const handler = m_handler;
  if (!entity->IsDbEntity()) return;
  const int parts = askParts(window);
  std::unique_ptr<CQdrDbPolyline> polyline = parts < 1 ? nullptr : dividedCopy(*entity, parts);
  if (!polyline) return;
  takeGripsOff();
  CQdrDbPolyline* const made = polyline.release();
  CQdrDbObjectId id;
  drawing->addEntity(made, id);
  entity->setObjectStatus(CQdrDbObject::eErased);
  tagUndoEditEntity record = undoStep(kUndoRestored, {});
  record.continued = 0;
  record.entityId = id;
  drawing->m_undoHandler.AddUndo(record);
  record = undoStep(kUndoErased, {});
  record.entityId = entity->objectId();
  drawing->m_undoHandler.AddUndo(record);
  handler->RemoveTracker(this);
  handler->DoDragEntity(made, CPoint());
  window->InvalidateRect(nullptr, true);
}

}  // namespace qdr
