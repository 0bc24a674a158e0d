#include "platform/system.h"

#include <algorithm>

#include "platform/platform_context.h"

namespace {

// Copies what fits with a terminator; answers the characters copied.
DWORD copyCut(const std::wstring& text, wchar_t* buffer, DWORD size) {
  if (!buffer || size == 0) return 0;
  const DWORD length = static_cast<DWORD>(std::min<std::size_t>(text.size(), size - 1));
  std::copy_n(text.begin(), length, buffer);
  buffer[length] = L'\0';
  return length;
}

bool isFilled(wchar_t* buffer, const DWORD* size) {
  return buffer && size && *size > 0;
}

}  // namespace

void AfxThrowInvalidArgException() {
  throw CInvalidArgException();
}

int MessageBoxW(CWnd* owner, const wchar_t* text, const wchar_t* caption, unsigned type) {
  return qdr::platform().ui->messageBox(owner, text ? text : L"", caption ? caption : L"", type);
}

int AfxMessageBox(const wchar_t* text, unsigned type, unsigned) {
  return MessageBoxW(nullptr, text, L"", type);
}

void GetSystemTime(SYSTEMTIME* time) {
  if (time) *time = qdr::platform().system->utcTime();
}

void GetLocalTime(SYSTEMTIME* time) {
  if (time) *time = qdr::platform().system->localTime();
}

bool GetComputerNameW(wchar_t* buffer, DWORD* size) {
  if (!isFilled(buffer, size)) return false;
  *size = copyCut(qdr::platform().system->computerName(), buffer, *size);
  return true;
}

bool GetUserNameW(wchar_t* buffer, DWORD* size) {
  if (!isFilled(buffer, size)) return false;
  *size = copyCut(qdr::platform().system->userName(), buffer, *size) + 1;
  return true;
}

HMODULE GetModuleHandleW(const wchar_t*) {
  return nullptr;
}

DWORD GetModuleFileNameW(HMODULE, wchar_t* buffer, DWORD size) {
  const std::wstring path = qdr::platform().system->modulePath();
  const DWORD length = copyCut(path, buffer, size);
  return length < path.size() ? size : length;
}
