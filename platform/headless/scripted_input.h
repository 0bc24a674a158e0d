#pragma once

#include <cstddef>
#include <deque>
#include <functional>
#include <string_view>
#include <utility>

#include "platform/headless/headless_input.h"
#include "platform/headless/headless_window.h"
#include "platform/input.h"

namespace qdr {

/// A message queue that plays a script: each step gives its messages when they are asked for, after
/// what has been posted. Mouse messages go to the window that has the capture, else to the view;
/// keys to the window that has the focus, else to the view.
///
/// At the end of the script getMessage answers 0 from then on, which is a quit, and the script
/// counts as exhausted; a test announces an end that it wants.
class QDR_API ScriptedInput : public IMessagePump {
 public:
  /// Messages of one script, or between two supplies; a loop that feeds itself ends here.
  static constexpr std::size_t kMostMessages = 1'000'000;

  explicit ScriptedInput(HeadlessInput& input) : m_input(input) {}

  /// The window the script works in, with its peer for resize; either may be null.
  void setView(CWnd* view, HeadlessWindow* peer);

  // Steps. Positions are client coordinates of the view.
  /// WM_MOUSEMOVE to a place, where the buttons below act.
  ScriptedInput& move(int x, int y);
  ScriptedInput& down();
  ScriptedInput& up();
  /// down and up.
  ScriptedInput& click();
  /// move, down and up.
  ScriptedInput& click(int x, int y);
  /// WM_RBUTTONDOWN.
  ScriptedInput& rclick();
  /// WM_KEYDOWN alone, by its virtual key.
  ScriptedInput& key(int virtualKey);
  /// For each character the WM_KEYDOWN of its key; its WM_CHAR comes when that is translated.
  ScriptedInput& type(std::wstring_view text);
  /// WM_KEYDOWN and WM_KEYUP.
  ScriptedInput& arrow(int virtualKey);
  /// Keys held from here on; no message.
  ScriptedInput& mods(bool control, bool shift, bool alt);
  ScriptedInput& paint();
  ScriptedInput& command(unsigned number);
  /// Another size of the view, and WM_SIZE.
  ScriptedInput& resize(int width, int height);
  /// Takes the capture from its owner and wakes the loop with WM_NULL.
  ScriptedInput& loseCapture();
  /// getMessage answers 0 once.
  ScriptedInput& quit();
  /// Runs `action` inside the loop that asks for the next message; no message.
  ScriptedInput& call(std::function<void()> action);
  /// Any message to a window; null is the view.
  ScriptedInput& message(CWnd* window, unsigned number, WPARAM wParam = 0, LPARAM lParam = 0);

  /// Asks `supply` for more steps whenever none are left, at first when the next message is asked
  /// for; it adds some and answers true, or false at the end of the script. Null takes it off.
  void setSupply(std::function<bool()> supply) { m_supply = std::move(supply); }

  /// The end of the script is wanted.
  void announceEnd() { m_announced = true; }
  /// A loop has asked beyond the end, or for too many messages.
  bool isExhausted() const { return m_exhausted; }
  bool isExhaustedUnannounced() const { return m_exhausted && !m_announced; }
  std::size_t delivered() const { return m_delivered; }
  std::size_t stepsLeft() const { return m_steps.size(); }

  int getMessage(MSG& message) override;
  bool translate(const MSG& message) override;
  LRESULT dispatch(const MSG& message) override;
  void post(const MSG& message) override { m_posted.push_back(message); }
  void postQuit(int code) override;
  void forget(CWnd* window) override;

 private:
  // What a step brings about: 1 a message, 0 a quit, -1 nothing to be taken.
  using Step = std::function<int(MSG&)>;

  ScriptedInput& add(Step step);
  ScriptedInput& addMouse(unsigned number, WPARAM pressed, WPARAM released);
  ScriptedInput& addKey(unsigned number, int virtualKey, wchar_t character);
  CWnd* mouseTarget() const;
  CWnd* keyTarget() const;
  WPARAM heldKeys() const;
  int take(MSG& message);

  HeadlessInput& m_input;
  CWnd* m_view = nullptr;
  HeadlessWindow* m_peer = nullptr;
  std::deque<Step> m_steps;
  std::function<bool()> m_supply;
  std::deque<MSG> m_front;  // made by translation
  std::deque<MSG> m_posted;
  CWnd* m_lastTarget = nullptr;  // of the message given last
  CWnd* m_goneTarget = nullptr;  // the same, once that window has gone
  CPoint m_position;
  WPARAM m_buttons = 0;
  int m_typedKey = 0;
  wchar_t m_typedCharacter = L'\0';
  std::size_t m_delivered = 0;
  bool m_quitPosted = false;
  bool m_exhausted = false;
  bool m_announced = false;
};

}  // namespace qdr
