#include "platform/headless/scripted_input.h"

#include <utility>

#include "platform/headless/key_map.h"

namespace {

constexpr int kNothing = -1;
constexpr int kQuit = 0;
constexpr int kMessage = 1;
// A key message that counts once.
constexpr LPARAM kOnce = 1;
// Ctrl with a letter types its number in the alphabet.
constexpr wchar_t kControlMask = 31;

template <class Queue>
void dropMessagesOf(CWnd* window, Queue& queue) {
  std::erase_if(queue, [window](const MSG& message) { return message.hwnd == window; });
}

}  // namespace

namespace qdr {

void ScriptedInput::setView(CWnd* view, HeadlessWindow* peer) {
  m_view = view;
  m_peer = peer;
}

ScriptedInput& ScriptedInput::add(Step step) {
  m_steps.push_back(std::move(step));
  return *this;
}

ScriptedInput& ScriptedInput::addMouse(unsigned number, WPARAM pressed, WPARAM released) {
  return add([=, this](MSG& message) {
    m_buttons = (m_buttons | pressed) & ~released;
    message = {mouseTarget(), number, m_buttons | heldKeys(), packedPoint(m_position)};
    return kMessage;
  });
}

ScriptedInput& ScriptedInput::addKey(unsigned number, int virtualKey, wchar_t character) {
  return add([=, this](MSG& message) {
    m_typedKey = virtualKey;
    m_typedCharacter = character;
    message = {keyTarget(), number, static_cast<WPARAM>(virtualKey), kOnce};
    return kMessage;
  });
}

ScriptedInput& ScriptedInput::move(int x, int y) {
  return add([=, this](MSG& message) {
    m_position = CPoint(x, y);
    const CPoint origin = m_peer ? m_peer->screenOrigin() : CPoint();
    m_input.setCursorPosition(m_position + origin);
    message = {mouseTarget(), WM_MOUSEMOVE, m_buttons | heldKeys(), packedPoint(m_position)};
    return kMessage;
  });
}

ScriptedInput& ScriptedInput::down() {
  return addMouse(WM_LBUTTONDOWN, MK_LBUTTON, 0);
}

ScriptedInput& ScriptedInput::up() {
  return addMouse(WM_LBUTTONUP, 0, MK_LBUTTON);
}

ScriptedInput& ScriptedInput::click() {
  return down().up();
}

ScriptedInput& ScriptedInput::click(int x, int y) {
  return move(x, y).click();
}

ScriptedInput& ScriptedInput::rclick() {
  return addMouse(WM_RBUTTONDOWN, 0, 0);
}

ScriptedInput& ScriptedInput::key(int virtualKey) {
  return addKey(WM_KEYDOWN, virtualKey, L'\0');
}

ScriptedInput& ScriptedInput::type(std::wstring_view text) {
  for (const wchar_t character : text)
    addKey(WM_KEYDOWN, keyOfCharacter(character), character == L'\n' ? L'\r' : character);
  return *this;
}

ScriptedInput& ScriptedInput::arrow(int virtualKey) {
  return addKey(WM_KEYDOWN, virtualKey, L'\0').addKey(WM_KEYUP, virtualKey, L'\0');
}

ScriptedInput& ScriptedInput::mods(bool control, bool shift, bool alt) {
  return call([=, this] { m_input.holdKeys(control, shift, alt); });
}

ScriptedInput& ScriptedInput::paint() {
  return message(nullptr, WM_PAINT);
}

ScriptedInput& ScriptedInput::command(unsigned number) {
  return message(nullptr, WM_COMMAND, number);
}

ScriptedInput& ScriptedInput::resize(int width, int height) {
  return add([=, this](MSG& message) {
    if (m_peer) m_peer->resize(CSize(width, height));
    message = {m_view, WM_SIZE, 0, packedPoint(CPoint(width, height))};
    return kMessage;
  });
}

ScriptedInput& ScriptedInput::loseCapture() {
  return add([this](MSG& message) {
    m_input.releaseCapture();
    message = {m_view, WM_NULL, 0, 0};
    return kMessage;
  });
}

ScriptedInput& ScriptedInput::quit() {
  return add([](MSG&) { return kQuit; });
}

ScriptedInput& ScriptedInput::call(std::function<void()> action) {
  return add([action = std::move(action)](MSG&) {
    if (action) action();
    return kNothing;
  });
}

ScriptedInput& ScriptedInput::message(CWnd* window, unsigned number, WPARAM wParam, LPARAM lParam) {
  return add([=, this](MSG& message) {
    message = {window ? window : m_view, number, wParam, lParam};
    return kMessage;
  });
}

CWnd* ScriptedInput::mouseTarget() const {
  return m_input.capture() ? m_input.capture() : m_view;
}

CWnd* ScriptedInput::keyTarget() const {
  return m_input.focus() ? m_input.focus() : m_view;
}

WPARAM ScriptedInput::heldKeys() const {
  const WPARAM control = m_input.isKeyDown(VK_CONTROL) ? MK_CONTROL : 0;
  return control | (m_input.isKeyDown(VK_SHIFT) ? MK_SHIFT : 0);
}

// A step that brings no message makes room for the next; a step may add to what is posted.
int ScriptedInput::take(MSG& message) {
  for (;;) {
    for (std::deque<MSG>* queue : {&m_front, &m_posted}) {
      if (queue->empty()) continue;
      message = queue->front();
      queue->pop_front();
      return kMessage;
    }
    if (std::exchange(m_quitPosted, false)) return kQuit;
    if (m_steps.empty()) {
      if (!m_supply || !m_supply()) break;
      m_delivered = 0;
      continue;
    }
    const Step step = std::move(m_steps.front());
    m_steps.pop_front();
    const int taken = step(message);
    if (taken != kNothing) return taken;
  }
  m_exhausted = true;
  return kQuit;
}

int ScriptedInput::getMessage(MSG& message) {
  message = MSG();
  m_goneTarget = nullptr;
  m_typedKey = 0;
  if (m_delivered >= kMostMessages) {
    m_exhausted = true;
    return kQuit;
  }
  ++m_delivered;
  const int taken = take(message);
  m_lastTarget = message.hwnd;
  return taken;
}

bool ScriptedInput::translate(const MSG& message) {
  if (message.message != WM_KEYDOWN) return false;
  const int key = static_cast<int>(message.wParam);
  const bool isTyped = m_typedCharacter != L'\0' && key == m_typedKey;
  wchar_t character = isTyped ? m_typedCharacter : characterOfKey(key, m_input.isKeyDown(VK_SHIFT));
  if (character == L'\0') return false;
  const bool isLetterKey = key >= 'A' && key <= 'Z';
  if (isLetterKey && m_input.isKeyDown(VK_CONTROL)) character = character & kControlMask;
  m_front.push_front({message.hwnd, WM_CHAR, static_cast<WPARAM>(character), message.lParam});
  return true;
}

LRESULT ScriptedInput::dispatch(const MSG& message) {
  if (!message.hwnd || message.hwnd == m_goneTarget) return 0;
  return message.hwnd->WindowProc(message.message, message.wParam, message.lParam);
}

void ScriptedInput::postQuit(int) {
  m_quitPosted = true;
}

void ScriptedInput::forget(CWnd* window) {
  dropMessagesOf(window, m_front);
  dropMessagesOf(window, m_posted);
  if (m_lastTarget == window) m_goneTarget = window;
  if (m_view == window) setView(nullptr, nullptr);
}

}  // namespace qdr
