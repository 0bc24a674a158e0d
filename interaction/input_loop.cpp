#include "interaction/input_loop.h"

#include "interaction/command_handler.h"
#include "platform/platform_context.h"

namespace qdr {

wchar_t keywordCase(wchar_t character) {
  return character >= L'a' ? static_cast<wchar_t>(character - 32) : character;
}

bool takesInput(CWnd* window, CRect& client) {
  if (!window) return false;
  window->GetClientRect(&client);
  return !client.IsRectEmpty();
}

DepthScope::DepthScope(CQdrCommandHandler& handler) : m_handler(handler) {
  m_handler.enter();
}

DepthScope::~DepthScope() {
  m_handler.leave();
}

InputLoop::InputLoop(CQdrCommandHandler& handler, CWnd& window, Capture capture)
    : m_handler(handler), m_window(window), m_capture(capture) {
  m_handler.enter();
  m_handler.beginInput(*this);
  m_window.SetCapture();
}

InputLoop::~InputLoop() {
  if (CWnd::GetCapture() == &m_window) ReleaseCapture();
  m_handler.endInput();
  m_handler.leave();
}

bool InputLoop::next(MSG& message) {
  if (m_handler.isQuitting() || m_handler.takeCancelRequest()) {
    m_end = End::cancelled;
    return false;
  }
  IMessagePump& pump = *platform().pump;
  if (pump.getMessage(message) <= 0) {
    // The quit is posted again, so that the loop of the host sees it once the commands are unwound.
    m_handler.setQuitting();
    pump.postQuit();
    m_end = End::cancelled;
    return false;
  }
  if (m_handler.takeCancelRequest()) {
    m_end = End::cancelled;
    return false;
  }
  if (m_capture == Capture::watched && CWnd::GetCapture() != &m_window) {
    m_end = End::lost;
    return false;
  }
  return true;
}

void InputLoop::translate(const MSG& message) {
  platform().pump->translate(message);
}

void InputLoop::dispatch(const MSG& message) {
  platform().pump->dispatch(message);
}

CursorScope::CursorScope(HCURSOR cursor) : m_set(cursor != nullptr) {
  if (m_set) m_former = SetCursor(cursor);
}

CursorScope::~CursorScope() {
  if (m_set) SetCursor(m_former);
}

RasterScope::RasterScope(CDC* dc, int operation) : m_dc(dc) {
  if (m_dc) m_former = m_dc->SetROP2(operation);
}

RasterScope::~RasterScope() {
  if (m_dc) m_dc->SetROP2(m_former);
}

void drawFrame(CDC& dc, CPoint corner1, CPoint corner2) {
  dc.MoveTo(corner1.x, corner1.y);
  dc.LineTo(corner2.x, corner1.y);
  dc.LineTo(corner2.x, corner2.y);
  dc.LineTo(corner1.x, corner2.y);
  dc.LineTo(corner1.x, corner1.y);
}

PenScope::PenScope(CDC* dc, CPen& pen) : m_dc(dc) {
  if (m_dc) m_former = m_dc->SelectObject(&pen);
}

PenScope::~PenScope() {
  if (m_dc) m_dc->SelectObject(m_former);
}

}  // namespace qdr
