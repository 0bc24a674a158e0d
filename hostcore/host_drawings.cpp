// Drawings that are open beside one another: which one the windows show, how one takes the place of
// another, and how one goes.

#include <algorithm>
#include <utility>

#include "database/database.h"
#include "hostcore/drawing_host.h"
#include "hostcore/internal/drawing_view.h"
#include "interaction/trackers/entity_tracker.h"
#include "platform/input.h"

namespace {

qdr::HostAnswer busy() {
  return {qdr::HostFault::busy, L"a command is running"};
}

qdr::HostAnswer noSuchDrawing() {
  return {qdr::HostFault::refused, L"there is no such drawing"};
}

// The views of a drawing let go of the window.
void takeViewsAway(CQdrDbDatabase& database) {
  for (const auto& [name, id] : database.m_displayTable.records())
    static_cast<CQdrDbDisplayTableRecord*>(id.getPObject())->setView(nullptr, nullptr);
  database.m_pDC = nullptr;
}

}  // namespace

namespace qdr {

std::unique_ptr<DrawingHost::OpenDrawing> DrawingHost::freshDrawing() {
  auto drawing = std::make_unique<OpenDrawing>();
  drawing->database = std::make_unique<CQdrDbDatabase>(true);
  return drawing;
}

std::size_t DrawingHost::activeDrawing() const {
  const auto active = std::find_if(m_drawings.begin(), m_drawings.end(),
                                   [this](const auto& each) { return each.get() == m_drawing; });
  return static_cast<std::size_t>(active - m_drawings.begin());
}

// The display record may be another one after a drawing is read into, so this runs behind that. A
// view that was shown before follows what the window has grown since.
void DrawingHost::bindActive() {
  CQdrDbDatabase& drawing = database();
  _gpDatabase = &drawing;
  CQdrCommandHandler& commands = handler();
  commands.SetDatabase(&drawing);
  commands.SetDispWindow(m_view.get());
  commands.setMsgWindow(&m_log, &m_inputLine);
  commands.SetSelCursor(LoadCursor(nullptr, IDC_ARROW));
  commands.SetCrossCursor(LoadCursor(nullptr, IDC_CROSS));
  CDC& dc = m_screen.dc();
  drawing.m_pDC = &dc;
  display().setView(m_view.get(), &dc);
  CRect client;
  m_view->GetClientRect(&client);
  if (!display().clientRect().IsRectEmpty() && !client.IsRectEmpty())
    display().Onsize(client.Width(), client.Height());
  display().MakeUpDisplayWindow(&dc);
  display().Draw(&dc);
}

// Grips stay with their drawing and appear again with its next paint.
void DrawingHost::unbindActive() {
  if (!m_drawing) return;
  takeViewsAway(database());
  if (_gpDatabase == &database()) _gpDatabase = nullptr;
}

void DrawingHost::show(OpenDrawing& drawing) {
  unbindActive();
  m_drawing = &drawing;
  bindActive();
}

void DrawingHost::showBeside(std::unique_ptr<OpenDrawing> drawing) {
  m_drawings.push_back(std::move(drawing));
  show(*m_drawings.back());
}

void DrawingHost::showInstead(std::unique_ptr<OpenDrawing> drawing) {
  std::unique_ptr<OpenDrawing>& place = m_drawings[activeDrawing()];
  std::swap(place, drawing);
  show(*place);
  destroy(std::move(drawing));
}

// Its grips are not on the screen any more: nothing is drawn when they go.
void DrawingHost::destroy(std::unique_ptr<OpenDrawing> drawing) {
  takeViewsAway(*drawing->database);
  CQdrCommandHandler& commands = drawing->database->m_commandHandler;
  for (CQdrDbEntityTracker* tracker : commands.trackers())
    tracker->setDC(nullptr);
  commands.ClearTracker(true);
}

HostAnswer DrawingHost::newDrawing() {
  if (isBusy()) return busy();
  const bool done = guarded([this] { showInstead(freshDrawing()); });
  return done ? HostAnswer() : HostAnswer{HostFault::refused, L"there is no room for a drawing"};
}

HostAnswer DrawingHost::addDrawing() {
  if (isBusy()) return busy();
  const bool done = guarded([this] { showBeside(freshDrawing()); });
  return done ? HostAnswer() : HostAnswer{HostFault::refused, L"there is no room for a drawing"};
}

HostAnswer DrawingHost::open(const std::wstring& path) {
  if (isBusy()) return busy();
  HostAnswer answer;
  std::unique_ptr<OpenDrawing> drawing = loadedDrawing(path, answer);
  if (!drawing) return answer;
  guarded([&] {
    showInstead(std::move(drawing));
    zoomExtents();
  });
  return answer;
}

HostAnswer DrawingHost::openBeside(const std::wstring& path) {
  if (isBusy()) return busy();
  HostAnswer answer;
  std::unique_ptr<OpenDrawing> drawing = loadedDrawing(path, answer);
  if (!drawing) return answer;
  guarded([&] {
    showBeside(std::move(drawing));
    zoomExtents();
  });
  return answer;
}

HostAnswer DrawingHost::activate(std::size_t drawing) {
  if (isBusy()) return busy();
  if (drawing >= m_drawings.size()) return noSuchDrawing();
  if (m_drawings[drawing].get() != m_drawing) guarded([&] { show(*m_drawings[drawing]); });
  return {};
}

HostAnswer DrawingHost::closeDrawing(std::size_t drawing) {
  if (isBusy()) return busy();
  if (drawing >= m_drawings.size()) return noSuchDrawing();
  if (m_drawings.size() == 1) return newDrawing();
  guarded([&] {
    if (m_drawings[drawing].get() == m_drawing)
      show(*m_drawings[drawing > 0 ? drawing - 1 : drawing + 1]);
    std::unique_ptr<OpenDrawing> closed = std::move(m_drawings[drawing]);
    m_drawings.erase(m_drawings.begin() + static_cast<std::ptrdiff_t>(drawing));
    destroy(std::move(closed));
  });
  return {};
}

}  // namespace qdr
