#pragma once

#include <deque>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "platform/dialog.h"
#include "platform/menu.h"
#include "platform/system.h"

namespace qdr {

/// A person whose answers are written down beforehand. What is shown to it is kept, and what it
/// has no answer for becomes a fault, which a test looks at.
class QDR_API ScriptedUi : public IHostUi {
 public:
  struct Box {
    std::wstring text;
    std::wstring caption;
    unsigned type = MB_OK;
  };

  /// Adds an answer for the next dialog of a class: `fill` sets its fields and answers IDOK, which
  /// presses OK, IDCANCEL, which presses Cancel, or another number the dialog ends with.
  template <class Dialog>
  void answer(std::function<int(Dialog&)> fill) {
    m_dialogs[Dialog::kClassName].push_back(
        [fill = std::move(fill)](CDialog& dialog) { return fill(static_cast<Dialog&>(dialog)); });
  }

  /// Adds the command to be chosen in the next popup; 0 chooses none.
  void choose(unsigned command) { m_choices.push_back(command); }

  /// Adds the button to be pressed in the next message box; without one it is IDOK.
  void press(int button) { m_buttons.push_back(button); }

  const std::vector<Box>& boxes() const { return m_boxes; }
  /// The rows of the popup shown last, as they were enabled.
  const std::vector<MenuItem>& lastPopup() const { return m_lastPopup; }
  /// One line each: a dialog or popup without an answer, a choice that is greyed or not there, a
  /// dialog that did not accept OK.
  const std::vector<std::wstring>& faults() const { return m_faults; }
  /// Dialog answers that no dialog has asked for.
  std::size_t answersLeft() const;

  int messageBox(CWnd* owner, const wchar_t* text, const wchar_t* caption, unsigned type) override;
  int trackPopup(const CMenu& popup, CPoint screenPoint, CWnd* owner) override;
  int runModal(CDialog& dialog) override;
  int runFileDialog(CFileDialog& dialog) override { return runModal(dialog); }

 private:
  using Fill = std::function<int(CDialog&)>;

  std::map<std::wstring, std::deque<Fill>> m_dialogs;
  std::deque<unsigned> m_choices;
  std::deque<int> m_buttons;
  std::vector<Box> m_boxes;
  std::vector<MenuItem> m_lastPopup;
  std::vector<std::wstring> m_faults;
};

}  // namespace qdr
