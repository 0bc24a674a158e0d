#include "platform/headless/scripted_ui.h"

#include <utility>

namespace {

// The dialog ends as by its buttons, so that what its buttons check is checked.
void endBy(CDialog& dialog, int answer) {
  if (dialog.isEnded()) return;
  if (answer == IDOK)
    dialog.OnOK();
  else if (answer == IDCANCEL)
    dialog.OnCancel();
  else
    dialog.EndDialog(answer);
}

template <class T>
T takeFirst(std::deque<T>& queue) {
  T first = std::move(queue.front());
  queue.pop_front();
  return first;
}

}  // namespace

namespace qdr {

std::size_t ScriptedUi::answersLeft() const {
  std::size_t count = 0;
  for (const auto& [name, queue] : m_dialogs)
    count += queue.size();
  return count;
}

int ScriptedUi::messageBox(CWnd*, const wchar_t* text, const wchar_t* caption, unsigned type) {
  m_boxes.push_back({text, caption, type});
  return m_buttons.empty() ? IDOK : takeFirst(m_buttons);
}

int ScriptedUi::trackPopup(const CMenu& popup, CPoint, CWnd*) {
  m_lastPopup = popup.items();
  if (m_choices.empty()) {
    m_faults.push_back(L"popup without an answer");
    return 0;
  }
  const unsigned command = takeFirst(m_choices);
  if (command == 0) return 0;
  const MenuItem* const item = popup.findItem(command);
  if (item && item->enabled) return static_cast<int>(command);
  m_faults.push_back(L"popup command " + std::to_wstring(command) +
                     (item ? L" is greyed" : L" is not there"));
  return 0;
}

int ScriptedUi::runModal(CDialog& dialog) {
  const std::wstring name = dialog.className();
  dialog.OnInitDialog();
  const auto queue = m_dialogs.find(name);
  if (queue == m_dialogs.end() || queue->second.empty()) {
    m_faults.push_back(L"dialog " + name + L" without an answer");
    dialog.OnCancel();
    return IDCANCEL;
  }
  endBy(dialog, takeFirst(queue->second)(dialog));
  if (dialog.isEnded()) return dialog.answer();
  m_faults.push_back(L"dialog " + name + L" did not end");
  return IDCANCEL;
}

}  // namespace qdr
