// Start-up and end of a host, its message loop, and the binding of a drawing to its windows.

#include "hostcore/drawing_host.h"

#include <exception>

#include "database/database.h"
#include "hostcore/internal/drawing_view.h"
#include "hostcore/prompts.h"
#include "interaction/trackers/selection_tracker.h"
#include "platform/platform_context.h"
#include "platform/system.h"

namespace {

constexpr const wchar_t* kFailure = L"The command failed.";

bool endsLine(const MSG& message) {
  const WPARAM key = message.wParam;
  return message.message == WM_KEYDOWN && (key == VK_RETURN || key == VK_SPACE || key == VK_ESCAPE);
}

}  // namespace

namespace qdr {

DrawingHost::DrawingHost(const HostOptions& options)
    : m_view(std::make_unique<DrawingView>(*this)),
      m_screen(options.viewSize),
      m_keepsBackups(options.keepsBackups) {
  std::wstring complaint;
  m_prompts = loadPrompts(options.promptFile, complaint);
  if (!complaint.empty()) AfxMessageBox(complaint.c_str());
  _hPROMPT = m_prompts.get();
  _cursorSelect = LoadCursor(nullptr, IDC_ARROW);
  m_log.setMultiline(true);
  m_frame.SetActiveView(m_view.get());
  setMainFrame(&m_frame);
  m_screen.dc().SetBkColor(options.background);
  showBeside(freshDrawing());
}

DrawingHost::~DrawingHost() {
  unbindActive();
  m_drawing = nullptr;
  for (std::unique_ptr<OpenDrawing>& drawing : m_drawings)
    destroy(std::move(drawing));
  if (_hPROMPT == m_prompts.get()) _hPROMPT = nullptr;
  if (AfxGetMainWnd() == &m_frame) setMainFrame(nullptr);
}

CView& DrawingHost::view() {
  return *m_view;
}

CQdrCommandHandler& DrawingHost::handler() {
  return database().m_commandHandler;
}

CQdrDbDisplayTableRecord& DrawingHost::display() {
  return *database().m_displayTable.getCurrentRecord();
}

bool DrawingHost::isBusy() {
  return handler().depth() > 0;
}

void DrawingHost::requestCancel() {
  handler().RequestCancel();
}

void DrawingHost::handle(const MSG& message) {
  // The key that ends a line types nothing: its character would be the first that the command
  // started by it reads.
  if (!endsLine(message)) TranslateMessage(&message);
  DispatchMessageW(&message);
}

void DrawingHost::run() {
  MSG message;
  while (GetMessageW(&message) > 0)
    handle(message);
}

// False when the call threw, which the user is told.
bool DrawingHost::guarded(const std::function<void()>& call) {
  try {
    call();
    return true;
  } catch (const CInvalidArgException&) {
  } catch (const std::exception&) {
  }
  MessageBoxW(m_view.get(), kFailure, L"");
  return false;
}

}  // namespace qdr
