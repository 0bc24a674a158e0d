#include "platform/wnd.h"

#include <algorithm>
#include <utility>

#include "platform/input.h"
#include "platform/platform_context.h"

namespace {

using qdr::platform;

// A key message says in lParam how often the key counts, and bits about it above.
constexpr LPARAM kRepeatMask = 0xffff;
constexpr int kFlagsShift = 16;

unsigned repeatOf(LPARAM lParam) {
  return static_cast<unsigned>(lParam & kRepeatMask);
}

unsigned flagsOf(LPARAM lParam) {
  return static_cast<unsigned>((lParam >> kFlagsShift) & kRepeatMask);
}

void shift(RECT& rect, CPoint by) {
  CRect moved(rect);
  moved.OffsetRect(by.x, by.y);
  rect = moved;
}

}  // namespace

// The context comes into being before the first window and so outlives windows that are static.
CWnd::CWnd() {
  platform();
}

CWnd::~CWnd() {
  Attach(nullptr);
  platform().input->forget(this);
  platform().pump->forget(this);
}

void CWnd::Attach(IWindow* peer) {
  IWindow* const former = std::exchange(m_peer, peer);
  if (former && former != peer) former->detached();
  if (m_ownPeer.get() != peer) m_ownPeer.reset();
}

bool CWnd::Create(CWnd* parent) {
  m_parent = parent;
  if (m_peer) return true;
  m_ownPeer = platform().windows->makePeer(*this, kind(), parent);
  m_peer = m_ownPeer.get();
  return m_peer != nullptr;
}

void CWnd::DestroyWindow() {
  if (m_peer) m_peer->close();
  m_visible = false;
  Attach(nullptr);
}

void CWnd::GetClientRect(RECT* rect) const {
  if (rect) *rect = m_peer ? m_peer->clientRect() : CRect();
}

void CWnd::ClientToScreen(POINT* point) const {
  if (point && m_peer) *point = CPoint(*point) + m_peer->screenOrigin();
}

void CWnd::ClientToScreen(RECT* rect) const {
  if (rect && m_peer) shift(*rect, m_peer->screenOrigin());
}

void CWnd::ScreenToClient(POINT* point) const {
  if (point && m_peer) *point = CPoint(*point) - m_peer->screenOrigin();
}

void CWnd::ScreenToClient(RECT* rect) const {
  if (rect && m_peer) shift(*rect, CPoint() - m_peer->screenOrigin());
}

LRESULT CWnd::SendMessage(unsigned message, WPARAM wParam, LPARAM lParam) {
  return WindowProc(message, wParam, lParam);
}

bool CWnd::PostMessage(unsigned message, WPARAM wParam, LPARAM lParam) {
  platform().pump->post({this, message, wParam, lParam});
  return true;
}

void CWnd::InvalidateRect(const RECT* rect, bool erase) {
  if (m_peer) m_peer->invalidate(rect, erase);
}

void CWnd::UpdateWindow() {
  if (m_peer) m_peer->updateNow();
}

bool CWnd::RedrawWindow(const RECT* rect, CRgn*, unsigned flags) {
  if ((flags & RDW_INVALIDATE) != 0) InvalidateRect(rect, (flags & RDW_ERASE) != 0);
  if ((flags & RDW_UPDATENOW) != 0) UpdateWindow();
  return m_peer != nullptr;
}

void CWnd::SetWindowText(const wchar_t* text) {
  m_text = CString(text);
  contentChanged();
}

int CWnd::GetWindowText(wchar_t* buffer, int capacity) const {
  if (!buffer || capacity <= 0) return 0;
  const CString cut = m_text.Left(capacity - 1);
  std::copy_n(cut.GetString(), cut.GetLength() + 1, buffer);
  return cut.GetLength();
}

CWnd* CWnd::SetCapture() {
  return platform().input->setCapture(this);
}

CWnd* CWnd::GetCapture() {
  return platform().input->capture();
}

CWnd* CWnd::SetFocus() {
  return platform().input->setFocus(this);
}

CWnd* CWnd::GetFocus() {
  return platform().input->focus();
}

CDC* CWnd::GetDC() {
  return m_peer ? m_peer->deviceContext() : nullptr;
}

int CWnd::ReleaseDC(CDC* dc) {
  if (!m_peer || !dc) return 0;
  m_peer->releaseDeviceContext(dc);
  return 1;
}

bool CWnd::ShowWindow(int show) {
  const bool wasVisible = m_visible;
  m_visible = show != 0;
  if (m_peer) m_peer->show(m_visible);
  return wasVisible;
}

void CWnd::EnableWindow(bool enable) {
  m_enabled = enable;
  if (m_peer) m_peer->enable(enable);
}

LRESULT CWnd::WindowProc(unsigned message, WPARAM wParam, LPARAM lParam) {
  const auto number = static_cast<unsigned>(wParam);
  const CPoint point = qdr::unpackedPoint(lParam);
  switch (message) {
    case WM_PAINT:
      OnPaint();
      break;
    case WM_CLOSE:
      OnClose();
      break;
    case WM_SIZE:
      OnSize(number, point.x, point.y);
      break;
    case WM_COMMAND:
      return OnCommand(wParam, lParam) ? 1 : 0;
    case WM_KEYDOWN:
      OnKeyDown(number, repeatOf(lParam), flagsOf(lParam));
      break;
    case WM_KEYUP:
      OnKeyUp(number, repeatOf(lParam), flagsOf(lParam));
      break;
    case WM_CHAR:
      OnChar(number, repeatOf(lParam), flagsOf(lParam));
      break;
    case WM_MOUSEMOVE:
      OnMouseMove(number, point);
      break;
    case WM_LBUTTONDOWN:
      OnLButtonDown(number, point);
      break;
    case WM_LBUTTONUP:
      OnLButtonUp(number, point);
      break;
    case WM_RBUTTONDOWN:
      OnRButtonDown(number, point);
      break;
    case WM_SETCURSOR:
      return OnSetCursor(this, repeatOf(lParam), flagsOf(lParam)) ? 1 : 0;
    default:
      break;
  }
  return 0;
}

void CWnd::contentChanged() {
  if (m_peer) m_peer->contentChanged();
}

CPoint CView::GetScrollPosition() const {
  return peer() ? peer()->scrollPosition() : CPoint();
}
