#include "hostcore/internal/drawing_view.h"

#include "hostcore/drawing_host.h"
#include "interaction/input_loop.h"
#include "platform/input.h"

namespace {

// A property combo tells of a choice.
constexpr unsigned kPropertyMessage = 81;

}  // namespace

namespace qdr {

LRESULT DrawingView::WindowProc(unsigned message, WPARAM wParam, LPARAM lParam) {
  if (message == kCoordinateMessage) {
    m_host.onCoordinate(wParam, lParam);
    return 0;
  }
  if (message == kPropertyMessage) {
    m_host.onPropertyChosen(wParam, lParam);
    return 0;
  }
  return CView::WindowProc(message, wParam, lParam);
}

void DrawingView::OnPaint() {
  m_host.onPaint();
}

void DrawingView::OnSize(unsigned, int, int) {
  m_host.viewResized();
}

// A running command is told to end, and the close is tried again behind it.
void DrawingView::OnClose() {
  if (m_host.isBusy()) {
    m_host.requestCancel();
    PostMessage(WM_CLOSE);
  } else {
    PostQuitMessage(0);
  }
}

bool DrawingView::OnCommand(WPARAM wParam, LPARAM) {
  return m_host.onCommand(static_cast<unsigned>(wParam));
}

void DrawingView::OnKeyDown(unsigned key, unsigned repeat, unsigned flags) {
  m_host.onKey(key, repeat, flags);
}

void DrawingView::OnChar(unsigned character, unsigned repeat, unsigned flags) {
  m_host.onCharacter(character, repeat, flags);
}

void DrawingView::OnLButtonDown(unsigned, CPoint point) {
  m_host.onLeftDown(point);
}

void DrawingView::OnRButtonDown(unsigned, CPoint point) {
  m_host.onRightDown(point);
}

bool DrawingView::OnSetCursor(CWnd*, unsigned hitTest, unsigned) {
  return m_host.onSetCursor(hitTest);
}

}  // namespace qdr
