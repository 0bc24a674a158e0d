// Typed values: real numbers, texts and keywords.

#include <cstddef>
#include <string>

#include "interaction/command_handler.h"
#include "interaction/input_loop.h"
#include "platform/window.h"

using qdr::InputLoop;

namespace {

// Rooms for typed characters, the closing 0 included; further characters are dropped.
constexpr std::size_t kRealRoom = 36;
constexpr std::size_t kTextRoom = 260;

constexpr wchar_t kBackspace = 8;

// What the loop of a typed value ended with.
enum class Typed { going, ended, cancelled, keyword };

// The loop shared by numbers and texts: characters gather until Enter or Space.
class TypedLoop {
 public:
  TypedLoop(std::size_t room, wchar_t key) : m_room(room), m_key(key) {}

  Typed handle(const MSG& message) {
    if (message.message == WM_KEYDOWN) {
      const Typed state = onKey(message);
      if (state != Typed::going) return state;
    } else if (message.message == WM_CHAR) {
      if (!onCharacter(static_cast<wchar_t>(message.wParam))) return Typed::going;
    }
    InputLoop::dispatch(message);
    return Typed::going;
  }

  const std::wstring& text() const { return m_text; }

 private:
  Typed onKey(const MSG& message) {
    if (qdr::isCancelKey(message.wParam)) return Typed::cancelled;
    if (qdr::isEndKey(message.wParam)) return Typed::ended;
    // The keyword is compared with the virtual key, so that of a lower-case letter never matches.
    if (m_key != 0 && message.wParam == static_cast<WPARAM>(m_key)) return Typed::keyword;
    InputLoop::translate(message);
    return Typed::going;
  }

  // False when the message goes no further: a backspace with nothing to take back.
  bool onCharacter(wchar_t character) {
    if (character != kBackspace) {
      if (m_text.size() + 1 < m_room) m_text += character;
      return true;
    }
    if (m_text.empty()) return false;
    m_text.pop_back();
    return true;
  }

  std::size_t m_room;
  wchar_t m_key;
  std::wstring m_text;
};

}  // namespace

int CQdrCommandHandler::GetReal(int prompt, wchar_t key, double& value) {
  if (m_quitting) return qdr::kInputCancel;
  SetPrompt(prompt);
  CRect client;
  if (!qdr::takesInput(m_dispWindow, client)) return qdr::kInputCancel;
  InputLoop loop(*this, *m_dispWindow);
  TypedLoop typed(kRealRoom, key);
  MSG message;
  while (loop.next(message)) {
    switch (typed.handle(message)) {
      case Typed::going:
        break;
      case Typed::cancelled:
        return qdr::kInputCancel;
      case Typed::keyword:
        return qdr::kInputKeyword;
      case Typed::ended:
        value = _wtof(typed.text().c_str());
        // An empty answer and one that is not above zero stand for 1.
        if (!(value > 0.0)) value = 1.0;
        return qdr::kInputPick;
    }
  }
  return loop.end() == InputLoop::End::lost ? qdr::kInputPick : qdr::kInputCancel;
}

int CQdrCommandHandler::GetString(int prompt, CString& text) {
  if (m_quitting) return qdr::kInputCancel;
  SetPrompt(prompt);
  CRect client;
  if (!qdr::takesInput(m_dispWindow, client)) return qdr::kInputCancel;
  InputLoop loop(*this, *m_dispWindow);
  TypedLoop typed(kTextRoom, 0);
  MSG message;
  Typed state = Typed::going;
  while (state == Typed::going && loop.next(message))
    state = typed.handle(message);
  if (state == Typed::cancelled || loop.end() == InputLoop::End::cancelled) {
    return qdr::kInputCancel;
  }
  text = CString(typed.text());
  return qdr::kInputPick;
}

int CQdrCommandHandler::GetKeyWord(int prompt, const CString& keywords, wchar_t& key) {
  if (m_quitting) return qdr::kInputCancel;
  SetPrompt(prompt);
  CRect client;
  if (!qdr::takesInput(m_dispWindow, client)) return qdr::kInputCancel;
  InputLoop loop(*this, *m_dispWindow);
  MSG message;
  while (loop.next(message)) {
    // Dispatched first and looked at afterwards, so that the host sees every key.
    InputLoop::dispatch(message);
    if (message.message == WM_KEYDOWN) {
      if (qdr::isCancelKey(message.wParam) || qdr::isEndKey(message.wParam)) {
        return qdr::kInputCancel;
      }
      InputLoop::translate(message);
    } else if (message.message == WM_CHAR) {
      key = qdr::keywordCase(static_cast<wchar_t>(message.wParam));
      if (keywords.Find(key) >= 0) return qdr::kInputPick;
    }
  }
  return qdr::kInputCancel;
}
