// The menu on a grip: its rows, what is greyed, and the commands every class of entity shares.

#include "interaction/trackers/grip_menu.h"

#include <utility>
#include <vector>

#include "database/database.h"
#include "database/undo/undo_operations.h"
#include "database/undo/undo_record.h"
#include "entities/display_units.h"
#include "entities/entity.h"
#include "interaction/command_handler.h"
#include "interaction/input_loop.h"
#include "interaction/trackers/entity_tracker.h"
#include "platform/device_context.h"
#include "platform/menu.h"
#include "platform/window.h"

namespace {

// The submenu of a kind of tracker; all others take the first.
int submenuOf(CQdrDbEntityTracker::TrackerType type) {
  switch (type) {
    case CQdrDbEntityTracker::eTrackPolyline:
    case CQdrDbEntityTracker::eTrackSpline:
      return 1;
    case CQdrDbEntityTracker::eTrackCSpline:
      return 2;
    case CQdrDbEntityTracker::eTrackText:
      return 3;
    case CQdrDbEntityTracker::eTrackHatch:
      return 4;
    default:
      return 0;
  }
}

std::vector<qdr::MenuItem> commonItems() {
  return {{qdr::kGripUnSelect, L"UnSelect"}, {qdr::kGripCopy, L"Copy"},
          {qdr::kGripMove, L"Move"},         {qdr::kGripRotate, L"Rotate "},
          {qdr::kGripScale, L"Scale"},       {qdr::kGripMirrorX, L"Mirror X"},
          {qdr::kGripMirrorY, L"Mirror Y"},  {qdr::kGripMirrorByLine, L"Mirror by Line"}};
}

// The common items, then those of one kind of entity, then the erasure.
std::vector<qdr::MenuItem> itemsWith(const std::vector<qdr::MenuItem>& own) {
  std::vector<qdr::MenuItem> items = commonItems();
  items.insert(items.end(), own.begin(), own.end());
  items.push_back({qdr::kGripErase, L"Erase"});
  return items;
}

bool isRegistered() {
  CMenu menu;
  return menu.LoadMenu(qdr::kGripMenu);
}

void greyItems(CMenu& popup, CQdrDbEntityTracker::TrackerType type, const CQdrDbEntity& entity) {
  const bool divides = type == CQdrDbEntityTracker::eTrackArc ||
                       type == CQdrDbEntityTracker::eTrackLine ||
                       type == CQdrDbEntityTracker::eTrackCircle;
  const auto enable = [&popup](unsigned id, bool on) {
    popup.EnableMenuItem(id, on ? MF_ENABLED : MF_GRAYED);
  };
  const bool isPolyline = type == CQdrDbEntityTracker::eTrackPolyline;
  if (submenuOf(type) == 1) {
    enable(qdr::kGripLineArc, isPolyline);
    enable(qdr::kGripBreak, isPolyline);
    enable(qdr::kGripJoin, isPolyline);
    enable(qdr::kGripChangeParam, !isPolyline);
  }
  enable(qdr::kGripDivide, divides);
  if (submenuOf(type) == 0) {
    enable(qdr::kGripExplode, entity.classType() == QdrDb::eClassBlockInsert);
  }
  if (entity.IsDbEntity()) return;
  for (unsigned id = qdr::kGripCopy; id <= qdr::kGripMirrorByLine; ++id)
    enable(id, false);
  enable(qdr::kGripErase, false);
}

// A transform of the menu: what it does and the prompt it is tracked under.
struct TransformRow {
  unsigned command;
  QdrDb::TransFormOption option;
  int prompt;
};

constexpr TransformRow kTransforms[] = {
    {qdr::kGripMove, QdrDb::eTransformMove, QdrDb::ePromptSecondPoint},
    {qdr::kGripRotate, QdrDb::eTransformRotate, QdrDb::ePromptRotateBand},
    {qdr::kGripScale, QdrDb::eTransformScale, QdrDb::ePromptScaleBand},
    {qdr::kGripMirrorByLine, QdrDb::eTransformMirror, QdrDb::ePromptEdgeEnd},
};

// A transform in force for a scope.
class TransformScope {
 public:
  TransformScope(CQdrDbEntityTracker& tracker, QdrDb::TransFormOption option) : m_tracker(tracker) {
    m_tracker.SetTransOpt(option);
  }
  ~TransformScope() { m_tracker.SetTransOpt(QdrDb::eTransformNone); }
  TransformScope(const TransformScope&) = delete;
  TransformScope& operator=(const TransformScope&) = delete;

 private:
  CQdrDbEntityTracker& m_tracker;
};

}  // namespace

namespace qdr {

void registerGripMenu() {
  if (isRegistered()) return;
  registerMenu(kGripMenu,
               {{L"EntityPop", itemsWith({{kGripExplode, L"Explode"}, {kGripDivide, L"Divide"}})},
                {L"Polyline", itemsWith({{kGripExplode, L"Explode"},
                                         {kGripChangeStart, L"Change Start"},
                                         {kGripReverse, L"Reverse Polyline"},
                                         {kGripDivide, L"Divide"},
                                         {kGripBreak, L"Break"},
                                         {kGripJoin, L"Join"},
                                         {kGripInsertVertex, L"Insert Vertex"},
                                         {kGripDeleteVertex, L"Delete Vertex"},
                                         {kGripLineArc, L"Line/Arc"},
                                         {kGripChangeParam, L"Change Param"}})},
                {L"CSpline", itemsWith({{kGripReverse, L"Reverse"},
                                        {kGripInsertVertex, L"Insert Vertex"},
                                        {kGripDeleteVertex, L"Delete Vertex"}})},
                {L"Text", itemsWith({{kGripTextProperties, L"Properties.."}})},
                {L"Hatch", itemsWith({{kGripExplode, L"Explode"},
                                      {kGripHatchProperties, L"Properties.."}})}});
}

}  // namespace qdr

int CQdrDbEntityTracker::TrackMenuHandle(CWnd* window, CPoint point, int handle) {
  if (!window || !m_entity || !m_handler) return 0;
  qdr::registerGripMenu();
  CMenu menu;
  if (!menu.LoadMenu(qdr::kGripMenu)) return 0;
  CMenu* const popup = menu.GetSubMenu(submenuOf(m_trackerType));
  if (!popup) return 0;
  greyItems(*popup, m_trackerType, *m_entity);
  CPoint onScreen = point;
  window->ClientToScreen(&onScreen);
  const unsigned command = popup->TrackPopupMenu(TPM_RETURNCMD, onScreen.x, onScreen.y, window);
  if (command != 0) runMenuCommand(window, point, handle, command);
  return static_cast<int>(command);
}

void CQdrDbEntityTracker::runMenuCommand(CWnd* window, CPoint point, int handle, unsigned command) {
  // The tracker may be taken away by its own command: it lives until this depth is left.
  const qdr::DepthScope depth(*m_handler);
  for (const TransformRow& row : kTransforms) {
    if (row.command != command) continue;
    m_handler->SetPrompt(row.prompt);
    trackTransform(window, point, handle, row.option);
    return;
  }
  switch (command) {
    case qdr::kGripUnSelect:
      takeGripsOff();
      m_handler->RemoveTracker(this);
      break;
    case qdr::kGripMirrorX:
      mirrorAlong(handle, CQdrGeVector2d(1.0, 0.0));
      break;
    case qdr::kGripMirrorY:
      mirrorAlong(handle, CQdrGeVector2d(0.0, 1.0));
      break;
    case qdr::kGripCopy:
      copyByMenu(window, point);
      break;
    case qdr::kGripErase:
      eraseByMenu();
      break;
    default:
      runOwnCommand(window, handle, command);
      break;
  }
}

// Begins at the grip and ends at the next click; the drag itself has been let go of.
void CQdrDbEntityTracker::trackTransform(CWnd* window, CPoint point, int handle,
                                         QdrDb::TransFormOption option) {
  const TransformScope transform(*this, option);
  const CQdrGePoint2d start = handle >= 0 ? m_entity->getGripPoint(handle) : GetPos();
  SetStartPoint(start, true);
  Track(window, point, -1);
}

// Mirrors about a line through the grip at once, with nothing to track.
void CQdrDbEntityTracker::mirrorAlong(int handle, const CQdrGeVector2d& direction) {
  if (handle < 0) return;
  const CQdrGePoint2d grip = m_entity->getGripPoint(handle);
  const TransformScope transform(*this, QdrDb::eTransformMirror);
  SetStartPoint(grip, false);
  SetPos(grip + direction);
  const qdr::RasterScope raster(m_dc, R2_XORPEN);
  m_currentEntity = CopyEntity(m_entity);
  TransFormEntity(m_currentEntity);
  m_shapeMoved = true;
  drawCurrentEntity();
  ControlEnd(handle);
  delete std::exchange(m_currentEntity, nullptr);
  m_entity->OnCurveChanged();
}

void CQdrDbEntityTracker::copyByMenu(CWnd* window, CPoint point) {
  CQdrDbEntity* const copy = CopyEntity(m_entity);
  if (!copy) return;
  int result = qdr::kInputCancel;
  {
    CQdrDbEntityTracker* const tracker =
        m_handler->CreateTracker(window, copy, QdrDb::eTransformCopy, false);
    if (!tracker) {
      delete copy;
      return;
    }
    m_handler->SetPrompt(QdrDb::ePromptSecondPoint);
    CPoint logical = point;
    if (m_dc) m_dc->DPtoLP(&logical);
    tracker->SetStartPoint(qdr::toWorld(logical), true);
    result = tracker->Track(window, point, -1);
    tracker->retire();
    delete tracker;
  }
  window->InvalidateRect(nullptr, true);
  if (result != qdr::kInputPick && result != qdr::kInputPoint) {
    delete copy;
    return;
  }
  CQdrDbObjectId id;
  m_db->addEntity(copy, id);
  recordMenuStep(qdr::kUndoRestored, *copy);
}

void CQdrDbEntityTracker::eraseByMenu() {
  CQdrDbEntity* const entity = m_entity;
  CWnd* const window = m_window;
  takeGripsOff();
  entity->setObjectStatus(CQdrDbObject::eErased);
  recordMenuStep(qdr::kUndoErased, *entity);
  m_handler->RemoveTracker(this);
  if (window) window->InvalidateRect(nullptr, true);
}

void CQdrDbEntityTracker::recordMenuStep(int operation, const CQdrDbEntity& entity) {
  tagUndoEditEntity record;
  record.operation = operation;
  record.continued = 0;
  record.entityId = entity.objectId();
  m_db->m_undoHandler.AddUndo(record);
}
