#pragma once

#include "platform/system.h"

namespace qdr {

/// A user interface nobody sits before: messages go to standard error, popups choose nothing,
/// dialogs are cancelled.
class QDR_API ConsoleUi : public IHostUi {
 public:
  int messageBox(CWnd* owner, const wchar_t* text, const wchar_t* caption, unsigned type) override;
  int trackPopup(const CMenu& popup, CPoint screenPoint, CWnd* owner) override;
  int runModal(CDialog& dialog) override;
  int runFileDialog(CFileDialog& dialog) override;
};

}  // namespace qdr
