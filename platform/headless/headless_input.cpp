#include "platform/headless/headless_input.h"

#include <utility>

namespace qdr {

CWnd* HeadlessInput::setCapture(CWnd* window) {
  return std::exchange(m_capture, window);
}

CWnd* HeadlessInput::setFocus(CWnd* window) {
  return std::exchange(m_focus, window);
}

HCURSOR HeadlessInput::setCursor(HCURSOR cursor) {
  return std::exchange(m_cursor, cursor);
}

HCURSOR HeadlessInput::loadCursor(int shape) {
  return reinterpret_cast<HCURSOR>(static_cast<std::intptr_t>(shape));
}

void HeadlessInput::clipCursor(const RECT* screenRect) {
  m_clip.reset();
  if (screenRect) m_clip = CRect(*screenRect);
}

bool HeadlessInput::isKeyDown(int key) const {
  if (key == VK_CONTROL) return m_control;
  if (key == VK_SHIFT) return m_shift;
  return key == VK_MENU && m_alt;
}

void HeadlessInput::forget(CWnd* window) {
  if (m_capture == window) m_capture = nullptr;
  if (m_focus == window) m_focus = nullptr;
}

void HeadlessInput::holdKeys(bool control, bool shift, bool alt) {
  m_control = control;
  m_shift = shift;
  m_alt = alt;
}

}  // namespace qdr
