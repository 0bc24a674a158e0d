#pragma once

#include <cstdint>
#include <string>

#include "platform/export.h"
#include "platform/points.h"

class CDialog;
class CFileDialog;
class CMenu;
class CWnd;

/// A date and time of day, fields as the calendar counts them; Sunday is day 0 of the week.
struct SYSTEMTIME {
  std::uint16_t wYear = 0;
  std::uint16_t wMonth = 0;
  std::uint16_t wDayOfWeek = 0;
  std::uint16_t wDay = 0;
  std::uint16_t wHour = 0;
  std::uint16_t wMinute = 0;
  std::uint16_t wSecond = 0;
  std::uint16_t wMilliseconds = 0;
};

/// A loaded program or library; null is the program itself.
using HMODULE = void*;
using HINSTANCE = void*;

/// Buttons of a message box, and the answers of boxes and dialogs.
constexpr unsigned MB_OK = 0;
constexpr unsigned MB_OKCANCEL = 1;
constexpr unsigned MB_YESNOCANCEL = 3;
constexpr unsigned MB_YESNO = 4;
constexpr int IDOK = 1;
constexpr int IDCANCEL = 2;
constexpr int IDYES = 6;
constexpr int IDNO = 7;

/// The one exception type of the system, raised where an index of a prompt or name table is out of
/// range.
class QDR_API CInvalidArgException {};
[[noreturn]] QDR_API void AfxThrowInvalidArgException();

/// Facts of the machine and of the process.
class QDR_API ISystem {
 public:
  virtual ~ISystem() = default;
  virtual std::wstring computerName() = 0;
  virtual std::wstring userName() = 0;
  virtual SYSTEMTIME utcTime() = 0;
  virtual SYSTEMTIME localTime() = 0;

  /// Full path of a file in the folder that holds the data files: the program itself, unless the
  /// host says otherwise.
  virtual std::wstring modulePath() = 0;
};

/// What asks or tells the person in front of the program.
class QDR_API IHostUi {
 public:
  virtual ~IHostUi() = default;

  /// Shows a message; answers the button, IDOK where there is one only. `caption` is empty for
  /// AfxMessageBox.
  virtual int messageBox(CWnd* owner, const wchar_t* text, const wchar_t* caption,
                         unsigned type) = 0;

  /// Shows a popup at a point of the screen; answers the command chosen, 0 for none.
  virtual int trackPopup(const CMenu& popup, CPoint screenPoint, CWnd* owner) = 0;

  /// Runs a dialog until it ends; answers what it was ended with.
  virtual int runModal(CDialog& dialog) = 0;

  /// Runs a file dialog; IDOK leaves the path chosen in it.
  virtual int runFileDialog(CFileDialog& dialog) = 0;
};

/// Text first, caption second, as the callers give them.
QDR_API int MessageBoxW(CWnd* owner, const wchar_t* text, const wchar_t* caption,
                        unsigned type = MB_OK);
QDR_API int AfxMessageBox(const wchar_t* text, unsigned type = MB_OK, unsigned help = 0);

/// The time in UTC and in the zone of the machine.
QDR_API void GetSystemTime(SYSTEMTIME* time);
QDR_API void GetLocalTime(SYSTEMTIME* time);

/// Fill a buffer of `*size` characters and set `*size` to the length. The name of the computer
/// counts without its terminator, that of the user with it. A name that does not fit is cut.
QDR_API bool GetComputerNameW(wchar_t* buffer, DWORD* size);
QDR_API bool GetUserNameW(wchar_t* buffer, DWORD* size);

/// Every name stands for the program itself.
QDR_API HMODULE GetModuleHandleW(const wchar_t* name);

/// Fills `buffer` of `size` characters with the full path of a file in the data folder, cut to
/// fit; answers the number of characters without the terminator, `size` when it was cut.
QDR_API DWORD GetModuleFileNameW(HMODULE module, wchar_t* buffer, DWORD size);

namespace qdr {

/// Facts from the system this runs on.
QDR_API ISystem& machineSystem();

/// Makes modulePath of machineSystem answer `path`; empty gives back the path of the program.
QDR_API void setModulePath(const std::wstring& path);

}  // namespace qdr
