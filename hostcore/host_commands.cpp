// Commands of a host: numbers to routines, what is added to the drawing, undo and redo, the mouse
// and the keys while no command runs.

#include <algorithm>
#include <iterator>
#include <utility>
#include <vector>

#include "database/database.h"
#include "database/undo/undo_operations.h"
#include "entities/entity.h"
#include "hostcore/command_numbers.h"
#include "hostcore/drawing_host.h"
#include "hostcore/internal/drawing_view.h"
#include "interaction/trackers/entity_tracker.h"

namespace {

constexpr unsigned long kGoOn = 1;
constexpr unsigned kHitClient = 1;

// Drawing commands hand what they made to the host; the others have added it themselves.
bool isDrawing(QdrDb::CommandID id) {
  return id >= QdrDb::eCommandLine && id <= QdrDb::eCommandDim;
}

// A line goes on from the end of the one before, an arc in the mode that was chosen.
bool repeats(QdrDb::CommandID id) {
  return id == QdrDb::eCommandLine || id == QdrDb::eCommandArc;
}

}  // namespace

namespace qdr {

// A command that the host itself carries out.
struct DrawingHost::OwnCommand {
  unsigned number;
  void (DrawingHost::*routine)();
};

const DrawingHost::OwnCommand DrawingHost::kOwnCommands[] = {
    {kUndoCommand, &DrawingHost::undoStep},
    {kRedoCommand, &DrawingHost::redoStep},
    {kZoomInCommand, &DrawingHost::zoomIn},
    {kZoomOutCommand, &DrawingHost::zoomOut},
    {kZoomPreviousCommand, &DrawingHost::zoomPrevious},
    {kZoomExtentsCommand, &DrawingHost::zoomExtents},
    {kZoomAllCommand, &DrawingHost::zoomAll},
    {kZoomWindowCommand, &DrawingHost::zoomByWindow},
    {kPanCommand, &DrawingHost::pan},
    {kLivePanCommand, &DrawingHost::panLive},
};

bool DrawingHost::runCommand(unsigned number) {
  if (isBusy() || !isHostCommand(number)) return false;
  handler().RunCommand(number);
  return true;
}

bool DrawingHost::onCommand(unsigned number) {
  if (isBusy()) return false;
  bool done = false;
  guarded([&] {
    const auto own =
        std::find_if(std::begin(kOwnCommands), std::end(kOwnCommands),
                     [number](const OwnCommand& command) { return command.number == number; });
    if (own != std::end(kOwnCommands)) {
      (this->*own->routine)();
      done = true;
    } else {
      done = runKernelCommand(number);
    }
  });
  closeLine(number);
  return done;
}

bool DrawingHost::runKernelCommand(unsigned number) {
  unsigned long option = std::exchange(m_nextOption, 0);
  const QdrDb::CommandID id = commandOf(number, option);
  if (id == QdrDb::eCommandNone) return false;
  if (isDrawing(id)) {
    repeatDrawing(id, option);
  } else {
    handler().DoCommand(id, option);
    m_drawing->modified = true;
  }
  repaint();
  return true;
}

void DrawingHost::repeatDrawing(QdrDb::CommandID id, unsigned long option) {
  while (CQdrDbEntity* made = handler().DoCommand(id, option)) {
    addMade(*made);
    repaint();
    if (!repeats(id)) return;
    if (id == QdrDb::eCommandLine) option = kGoOn;
  }
}

void DrawingHost::addMade(CQdrDbEntity& entity) {
  m_drawing->modified = true;
  if (entity.IsDbEntity()) return;
  CQdrDbObjectId id;
  database().addEntity(&entity, id);
  tagUndoEditEntity record;
  record.operation = kUndoRestored;
  record.continued = 0;
  record.entityId = id;
  database().m_undoHandler.AddUndo(record);
}

// What a command leaves in the input line goes to the log, so that the next command is typed on an
// empty line. The line is read once more before the command is kept for repetition: what was read
// last would be logged again.
void DrawingHost::closeLine(unsigned number) {
  guarded([&] {
    CQdrCommandHandler& commands = handler();
    if (commands.currentPrompt() != 0 || m_inputLine.GetWindowTextLength() > 0) commands.setMsg();
    CQdrGePoint2d ignored;
    commands.readTypedPoint(ignored);
    commands.SetLastCommand(number);
  });
}

HostAnswer DrawingHost::undo() {
  return playLog(false);
}

HostAnswer DrawingHost::redo() {
  return playLog(true);
}

void DrawingHost::undoStep() {
  undo();
}

void DrawingHost::redoStep() {
  redo();
}

HostAnswer DrawingHost::playLog(bool redo) {
  if (isBusy()) return {HostFault::busy, L"a command is running"};
  bool done = false;
  guarded([&] {
    CQdrUndoHandler& log = database().m_undoHandler;
    done = redo ? log.Redo() : log.Undo();
    dropGripsOfErased();
  });
  repaint();
  if (!done) return {HostFault::refused, redo ? L"nothing to redo" : L"nothing to undo"};
  m_drawing->modified = true;
  return {};
}

void DrawingHost::dropGripsOfErased() {
  for (CQdrDbEntityTracker* tracker : std::vector(handler().trackers())) {
    const CQdrDbEntity* const entity = tracker->GetEntity();
    if (entity && entity->isErased()) handler().RemoveTracker(tracker);
  }
}

void DrawingHost::onKey(unsigned key, unsigned repeats, unsigned flags) {
  if (isBusy()) return;
  guarded([&] { handler().onKeyDown(key, repeats, flags); });
  if (key != static_cast<unsigned>(VK_ESCAPE)) return;
  guarded([this] { handler().ClearTracker(true); });
  repaint();
}

// Straight to the input line: through the queue a waiting input would feed itself.
void DrawingHost::onCharacter(unsigned character, unsigned repeats, unsigned flags) {
  guarded([&] {
    if (!isBusy()) handler().onChar(character, repeats, flags);
    m_inputLine.onMyChar(character, repeats, flags);
  });
}

// What grips do is logged, so a longer log tells of a change.
std::size_t DrawingHost::steps() {
  return database().m_undoHandler.m_undoList.size();
}

bool DrawingHost::isOnGrip(CPoint point) {
  const auto& trackers = handler().trackers();
  return std::any_of(trackers.begin(), trackers.end(), [point](CQdrDbEntityTracker* tracker) {
    return tracker->HitTest(point) >= 0;
  });
}

void DrawingHost::onLeftDown(CPoint point) {
  if (isBusy()) return;
  guarded([&] {
    if (isOnGrip(point)) {
      const std::size_t before = steps();
      handler().TrackTracker(m_view.get(), point);
      if (steps() != before) setModified();
      repaint();
      return;
    }
    CQdrDbObjectId id;
    if (display().selectEntity(point, id)) handler().DoDragEntity(asEntity(id), point);
  });
}

void DrawingHost::onRightDown(CPoint point) {
  if (isBusy()) return;
  guarded([&] {
    const auto& trackers = handler().trackers();
    const auto hit = std::find_if(
        trackers.begin(), trackers.end(),
        [point](CQdrDbEntityTracker* tracker) { return tracker->HitTest(point) >= 0; });
    if (hit == trackers.end()) return;
    const std::size_t before = steps();
    (*hit)->TrackMenu(m_view.get(), point);
    if (steps() != before) setModified();
    dropGripsOfErased();
    repaint();
  });
}

bool DrawingHost::onSetCursor(unsigned hitTest) {
  // Outside the client area trackers answer 0 and show no cursor.
  if (isBusy() || hitTest != kHitClient) return false;
  bool isOverGrip = false;
  guarded([&] { isOverGrip = handler().SetTrackerCursor(m_view.get(), hitTest) >= 0; });
  return isOverGrip;
}

void DrawingHost::onCoordinate(WPARAM wParam, LPARAM lParam) {
  guarded([&] { database().SetCoordinate(m_view.get(), &m_statusPane, wParam, lParam); });
}

void DrawingHost::compositionChanged(WPARAM wParam, LPARAM lParam) {
  guarded([&] { handler().OnComposition(wParam, lParam); });
}

}  // namespace qdr
