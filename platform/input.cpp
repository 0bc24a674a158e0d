#include "platform/input.h"

#include <algorithm>
#include <cstring>
#include <limits>

#include "platform/platform_context.h"
#include "platform/wnd.h"

int GetMessageW(MSG* message, CWnd*, unsigned, unsigned) {
  return message ? qdr::platform().pump->getMessage(*message) : -1;
}

bool TranslateMessage(const MSG* message) {
  return message && qdr::platform().pump->translate(*message);
}

LRESULT DispatchMessageW(const MSG* message) {
  return message ? qdr::platform().pump->dispatch(*message) : 0;
}

LRESULT SendMessageW(CWnd* window, unsigned message, WPARAM wParam, LPARAM lParam) {
  return window ? window->SendMessage(message, wParam, lParam) : 0;
}

bool PostMessageW(CWnd* window, unsigned message, WPARAM wParam, LPARAM lParam) {
  return window && window->PostMessage(message, wParam, lParam);
}

void PostQuitMessage(int code) {
  qdr::platform().pump->postQuit(code);
}

CWnd* SetCapture(CWnd* window) {
  return qdr::platform().input->setCapture(window);
}

CWnd* GetCapture() {
  return qdr::platform().input->capture();
}

bool ReleaseCapture() {
  qdr::platform().input->releaseCapture();
  return true;
}

HCURSOR SetCursor(HCURSOR cursor) {
  return qdr::platform().input->setCursor(cursor);
}

HCURSOR LoadCursor(HINSTANCE, int shape) {
  return qdr::platform().input->loadCursor(shape);
}

bool SetCursorPos(int x, int y) {
  qdr::platform().input->setCursorPosition(CPoint(x, y));
  return true;
}

bool GetCursorPos(POINT* point) {
  if (!point) return false;
  *point = qdr::platform().input->cursorPosition();
  return true;
}

bool ClipCursor(const RECT* rect) {
  qdr::platform().input->clipCursor(rect);
  return true;
}

short GetKeyState(int key) {
  return qdr::platform().input->isKeyDown(key) ? std::numeric_limits<short>::min() : short{0};
}

HIMC ImmGetContext(CWnd* window) {
  return qdr::platform().ime->context(window);
}

LONG ImmGetCompositionStringW(HIMC context, DWORD index, void* buffer, DWORD bytes) {
  if (!context || index != GCS_RESULTSTR) return 0;
  const std::wstring text = qdr::platform().ime->resultString(context);
  const std::size_t room = buffer ? bytes / sizeof(wchar_t) : text.size();
  const std::size_t taken = std::min(text.size(), room) * sizeof(wchar_t);
  if (buffer && taken > 0) std::memcpy(buffer, text.data(), taken);
  return static_cast<LONG>(std::min<std::size_t>(taken, std::numeric_limits<LONG>::max()));
}

bool ImmReleaseContext(CWnd* window, HIMC context) {
  if (context) qdr::platform().ime->release(window, context);
  return context != nullptr;
}

namespace qdr {

LPARAM packedPoint(CPoint clientPoint) {
  const auto half = [](LONG value) {
    using Half = std::numeric_limits<std::int16_t>;
    const LONG held = std::clamp<LONG>(value, Half::min(), Half::max());
    return static_cast<std::uint32_t>(static_cast<std::uint16_t>(held));
  };
  return static_cast<LPARAM>(half(clientPoint.x) | (half(clientPoint.y) << 16));
}

CPoint unpackedPoint(LPARAM lParam) {
  const auto bits = static_cast<std::uint32_t>(lParam);
  return CPoint(static_cast<std::int16_t>(bits & 0xffff), static_cast<std::int16_t>(bits >> 16));
}

}  // namespace qdr
