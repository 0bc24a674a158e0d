// The choice of entities: one by a pick, many by picks and windows.

#include "database/database.h"
#include "entities/entity.h"
#include "interaction/command_handler.h"
#include "interaction/display/display_table_record.h"
#include "interaction/held_entities.h"
#include "interaction/input_loop.h"
#include "interaction/trackers/selection_tracker.h"
#include "platform/window.h"

using qdr::InputLoop;

int CQdrCommandHandler::GetEntity(int prompt, CQdrDbEntity*& entity, CQdrGePoint2d* pickPoint) {
  entity = nullptr;
  CRect client;
  if (m_quitting || !m_database || !qdr::takesInput(m_dispWindow, client)) {
    return qdr::kInputCancel;
  }
  // This loop does not look at the capture: a pick goes on when another window has taken the mouse.
  InputLoop loop(*this, *m_dispWindow, InputLoop::Capture::taken);
  SetPrompt(prompt);
  const qdr::CursorScope cursor(m_selCursor);
  MSG message;
  while (loop.next(message)) {
    if (message.message == WM_KEYDOWN) {
      if (qdr::isCancelKey(message.wParam)) return qdr::kInputCancel;
      if (qdr::isEndKey(message.wParam)) return entity ? qdr::kInputPick : qdr::kInputCancel;
      if (message.wParam == qdr::kKeyL && m_database->m_lastEntity) {
        entity = m_database->m_lastEntity;
        return qdr::kInputPick;
      }
    } else if (message.message == WM_LBUTTONDOWN) {
      if (pickEntity(qdr::unpackedPoint(message.lParam), entity, pickPoint)) return qdr::kInputPick;
      continue;
    }
    InputLoop::dispatch(message);
  }
  return qdr::kInputCancel;
}

// One click: the entity under it is highlighted and becomes the last one picked.
bool CQdrCommandHandler::pickEntity(CPoint device, CQdrDbEntity*& entity,
                                    CQdrGePoint2d* pickPoint) {
  CRect client;
  m_dispWindow->GetClientRect(&client);
  CQdrDbDisplayTableRecord* const view = m_database->m_displayTable.getCurrentRecord();
  if (!client.PtInRect(device) || !view) return false;
  if (pickPoint) *pickPoint = view->GetLogicalPoint(device);
  CQdrDbObjectId id;
  if (!view->selectEntity(device, id)) return false;
  CQdrDbEntity* const hit = qdr::asEntity(id);
  if (!hit) return false;
  entity = hit;
  entity->HighlightDraw();
  m_database->m_lastEntity = entity;
  return true;
}

int CQdrCommandHandler::GetEntities(int prompt, std::set<CQdrDbEntity*>* entities) {
  if (m_quitting || !m_database || !m_dispWindow || !entities) return qdr::kInputCancel;
  CQdrDbSelectionTracker tracker(m_dispWindow, m_database, L' ');
  const qdr::HeldEntities held(*this, *entities);
  SetPrompt(prompt);
  for (;;) {
    const std::set<CQdrDbEntity*>* const picked = tracker.Track(m_dispWindow, CPoint(0, 0));
    if (!picked || picked->empty()) {
      if (tracker.wasCancelled()) return qdr::kInputCancel;
      return entities->empty() ? qdr::kInputLost : qdr::kInputPick;
    }
    for (CQdrDbEntity* entity : *picked) {
      entity->HighlightDraw();
      entities->insert(entity);
    }
  }
}
