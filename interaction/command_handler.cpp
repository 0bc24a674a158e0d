#include "interaction/command_handler.h"

#include <algorithm>
#include <utility>

#include "database/database.h"
#include "entities/entity.h"
#include "interaction/held_entities.h"
#include "interaction/input_loop.h"
#include "interaction/trackers/entity_tracker.h"
#include "platform/window.h"

namespace {

constexpr const wchar_t* kCommandFile = L"QdrDb.cmd";

// Editing commands of this range read the grips as their selection, so DoCommand leaves them.
constexpr int kFirstKeepingGrips = 22;
constexpr int kFirstDroppingGrips = 36;

// A command's routine. The editing routines answer a number that nobody reads.
struct CommandRow {
  QdrDb::CommandID id;
  CQdrDbEntity* (CQdrCommandHandler::*draw)(unsigned long& option);
  int (CQdrCommandHandler::*edit)(unsigned long& option);
};

constexpr CommandRow kCommands[] = {
    {QdrDb::eCommandLine, &CQdrCommandHandler::CommandLine, nullptr},
    {QdrDb::eCommandArc, &CQdrCommandHandler::CommandArc, nullptr},
    {QdrDb::eCommandCircle, &CQdrCommandHandler::CommandCircle, nullptr},
    {QdrDb::eCommandRect, &CQdrCommandHandler::CommandRect, nullptr},
    {QdrDb::eCommandErase, nullptr, &CQdrCommandHandler::CommandErase},
};

}  // namespace

CQdrCommandHandler::CQdrCommandHandler(CQdrDbDatabase* database)
    : m_promptHandler(_hPROMPT), m_database(database) {
  m_commandCount = LoadCommandFrom();
}

CQdrCommandHandler::~CQdrCommandHandler() {
  for (CQdrDbEntityTracker* tracker : m_graveyard)
    delete tracker;
}

void CQdrCommandHandler::setMsgWindow(CWnd* log, CWnd* inputLine) {
  m_logWindow = log;
  SetMsgWindow(inputLine);
}

int CQdrCommandHandler::LoadCommandFrom() {
  return m_commandNames.addFile(qdr::pathBesideHost(kCommandFile));
}

void CQdrCommandHandler::leave() {
  if (--m_depth > 0) return;
  m_cancelRequested = false;
  for (CQdrDbEntityTracker* tracker : std::exchange(m_graveyard, {}))
    delete tracker;
}

bool CQdrCommandHandler::takeCancelRequest() {
  return std::exchange(m_cancelRequested, false);
}

bool CQdrCommandHandler::RunCommand(unsigned long number) {
  if (number == 0) return true;
  if (m_dispWindow) m_dispWindow->SendMessage(WM_COMMAND, static_cast<WPARAM>(number), 0);
  // Stored behind the synchronous send: while the command runs, the one before it stands here.
  m_lastCommand = number;
  return true;
}

CQdrDbEntity* CQdrCommandHandler::DoCommand(QdrDb::CommandID id, unsigned long& option) {
  if (!m_database) return nullptr;
  const qdr::DepthScope depth(*this);
  if (id < kFirstKeepingGrips || id >= kFirstDroppingGrips) ClearTracker(false);
  const auto* row = std::find_if(std::begin(kCommands), std::end(kCommands),
                                 [id](const CommandRow& candidate) { return candidate.id == id; });
  if (row == std::end(kCommands)) return nullptr;
  if (row->draw) return (this->*row->draw)(option);
  (this->*row->edit)(option);
  return nullptr;
}

int CQdrCommandHandler::SetTrackerCursor(CWnd* window, unsigned hitTest) {
  for (CQdrDbEntityTracker* tracker : std::vector(m_trackers)) {
    const int answer = tracker->SetCursor(window, hitTest);
    if (answer >= 0) return answer;
  }
  return -1;
}

void CQdrCommandHandler::TrackerDraw(CDC* dc) {
  for (CQdrDbEntityTracker* tracker : std::vector(m_trackers)) {
    CDC* const own = tracker->getDC();
    tracker->setDC(dc);
    tracker->DrawGripBox(true);
    tracker->setDC(own);
  }
}

void CQdrCommandHandler::TrackTracker(CWnd* window, CPoint point) {
  const qdr::DepthScope depth(*this);
  for (CQdrDbEntityTracker* tracker : std::vector(m_trackers)) {
    // A tracker that an earlier one of this walk removed waits in the graveyard and is passed over.
    if (std::find(m_trackers.begin(), m_trackers.end(), tracker) != m_trackers.end()) {
      tracker->Track(window, point);
    }
  }
}

void CQdrCommandHandler::DoDragEntity(CQdrDbEntity* entity, CPoint) {
  if (!entity || m_trackedEntities.contains(entity)) return;
  CQdrDbEntityTracker* const tracker =
      CreateTracker(m_dispWindow, entity, QdrDb::eTransformNone, false);
  if (!tracker) return;
  tracker->SetKeyWords(L"");
  m_trackers.push_back(tracker);
  m_trackedEntities.insert(entity);
}

void CQdrCommandHandler::ClearTracker(bool deleteThem) {
  m_trackedEntities.clear();
  for (CQdrDbEntityTracker* tracker : std::exchange(m_trackers, {})) {
    if (deleteThem && m_depth == 0) {
      delete tracker;
      continue;
    }
    if (deleteThem) tracker->takeGripsOff();
    tracker->retire();
    m_graveyard.push_back(tracker);
  }
}

void CQdrCommandHandler::RemoveTracker(CQdrDbEntityTracker* tracker) {
  const auto found = std::find(m_trackers.begin(), m_trackers.end(), tracker);
  if (found != m_trackers.end()) DeleteTracker((*found)->GetEntity());
}

void CQdrCommandHandler::DeleteTracker(CQdrDbEntity* entity) {
  const auto found = std::find_if(
      m_trackers.begin(), m_trackers.end(),
      [entity](CQdrDbEntityTracker* tracker) { return tracker->GetEntity() == entity; });
  if (found == m_trackers.end()) return;
  CQdrDbEntityTracker* const tracker = *found;
  m_trackers.erase(found);
  m_trackedEntities.erase(entity);
  if (m_depth == 0) {
    delete tracker;
    return;
  }
  // It may be running: it is emptied here and freed once no command runs.
  tracker->retire();
  m_graveyard.push_back(tracker);
}

void CQdrCommandHandler::redrawMarks() {
  if (m_blipShown) DrawBlip(m_blipPoint, m_database->screenDC(), 0);
  for (const qdr::InputLoop* input : m_inputs)
    input->drawMarks();
}

void CQdrCommandHandler::forgetEntities(const qdr::EntitySet& gone) {
  if (gone.contains(qdr::asObject(m_lastEntity))) m_lastEntity = nullptr;
  for (qdr::HeldEntities* held : m_held)
    held->forget(gone);
  for (CQdrDbEntityTracker* tracker : std::vector(m_trackers)) {
    CQdrDbEntity* const entity = tracker->GetEntity();
    if (!gone.contains(qdr::asObject(entity))) continue;
    std::erase(m_trackers, tracker);
    m_trackedEntities.erase(entity);
    tracker->retire();
    m_graveyard.push_back(tracker);
  }
  // One that a command made stands in no list of the handler.
  CQdrDbEntityTracker* const running = m_database ? m_database->currentTracker() : nullptr;
  if (running) running->forgetEntities(gone);
}
