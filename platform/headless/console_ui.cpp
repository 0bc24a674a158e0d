#include "platform/headless/console_ui.h"

#include <cstdio>

#include "platform/wide_string.h"

namespace qdr {

int ConsoleUi::messageBox(CWnd*, const wchar_t* text, const wchar_t* caption, unsigned) {
  const std::wstring line =
      *caption == L'\0' ? std::wstring(text) : std::wstring(text) + L" (" + caption + L")";
  std::fprintf(stderr, "%s\n", toUtf8(line).c_str());
  return IDOK;
}

int ConsoleUi::trackPopup(const CMenu&, CPoint, CWnd*) {
  return 0;
}

int ConsoleUi::runModal(CDialog&) {
  return IDCANCEL;
}

int ConsoleUi::runFileDialog(CFileDialog&) {
  return IDCANCEL;
}

}  // namespace qdr
