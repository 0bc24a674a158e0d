#pragma once

#include <string>

#include "platform/export.h"
#include "platform/input_constants.h"
#include "platform/points.h"
#include "platform/system.h"

class CWnd;

/// One message to one window. Mouse messages carry signed 16-bit client coordinates in lParam,
/// x in the low half; key messages carry a virtual key in wParam, WM_CHAR a character.
struct MSG {
  CWnd* hwnd = nullptr;
  unsigned message = WM_NULL;
  WPARAM wParam = 0;
  LPARAM lParam = 0;
};

/// The queue of messages of the thread that owns the windows.
class QDR_API IMessagePump {
 public:
  virtual ~IMessagePump() = default;

  /// Waits for the next message: above 0 there is one, 0 is the end of the program, below 0 a
  /// failure.
  virtual int getMessage(MSG& message) = 0;

  /// Puts the WM_CHAR of a key-down at the front of the queue. True for a key-down of a text key.
  virtual bool translate(const MSG& message) = 0;

  /// Hands the message to the window it is for; 0 when that is gone.
  virtual LRESULT dispatch(const MSG& message) = 0;

  /// Puts a message at the end of the queue.
  virtual void post(const MSG& message) = 0;

  /// Makes getMessage answer 0 once the messages before are taken.
  virtual void postQuit(int code = 0) = 0;

  /// Drops what is queued for a window that goes.
  virtual void forget(CWnd* window) = 0;
};

/// Mouse, cursor and keys.
class QDR_API IInput {
 public:
  virtual ~IInput() = default;

  /// Sends all mouse messages to `window`; answers the window that had them before.
  virtual CWnd* setCapture(CWnd* window) = 0;
  virtual CWnd* capture() const = 0;
  virtual void releaseCapture() = 0;

  /// The window that keys go to.
  virtual CWnd* setFocus(CWnd* window) = 0;
  virtual CWnd* focus() const = 0;

  /// Shows a cursor; answers the one before.
  virtual HCURSOR setCursor(HCURSOR cursor) = 0;
  virtual HCURSOR loadCursor(int shape) = 0;

  /// Position of the cursor on the screen.
  virtual void setCursorPosition(CPoint screenPoint) = 0;
  virtual CPoint cursorPosition() const = 0;

  /// Holds the cursor inside a rectangle of the screen; null lets it go.
  virtual void clipCursor(const RECT* screenRect) = 0;

  /// True while a key is held down.
  virtual bool isKeyDown(int key) const = 0;

  /// Takes capture and focus from a window that goes.
  virtual void forget(CWnd* window) = 0;
};

/// The input method that composes characters from several keys.
class QDR_API IIme {
 public:
  virtual ~IIme() = default;

  /// Null when no input method is at work on the window.
  virtual HIMC context(CWnd* window) = 0;
  /// The text committed last.
  virtual std::wstring resultString(HIMC context) = 0;
  virtual void release(CWnd* window, HIMC context) = 0;
};

// The same by the names of the platform; each goes to the installed context.

QDR_API int GetMessageW(MSG* message, CWnd* window = nullptr, unsigned first = 0,
                        unsigned last = 0);
QDR_API bool TranslateMessage(const MSG* message);
QDR_API LRESULT DispatchMessageW(const MSG* message);
/// Straight to the window; 0 for a null window.
QDR_API LRESULT SendMessageW(CWnd* window, unsigned message, WPARAM wParam, LPARAM lParam);
QDR_API bool PostMessageW(CWnd* window, unsigned message, WPARAM wParam, LPARAM lParam);
QDR_API void PostQuitMessage(int code);

QDR_API CWnd* SetCapture(CWnd* window);
QDR_API CWnd* GetCapture();
QDR_API bool ReleaseCapture();
QDR_API HCURSOR SetCursor(HCURSOR cursor);
QDR_API HCURSOR LoadCursor(HINSTANCE module, int shape);
QDR_API bool SetCursorPos(int x, int y);
QDR_API bool GetCursorPos(POINT* point);
QDR_API bool ClipCursor(const RECT* rect);
/// Negative while the key is held down, else 0.
QDR_API short GetKeyState(int key);

QDR_API HIMC ImmGetContext(CWnd* window);
/// Copies the committed text into a buffer of `bytes` bytes, without a terminator and in whole
/// characters; answers the bytes it has. A null buffer only asks. Other indices answer 0.
QDR_API LONG ImmGetCompositionStringW(HIMC context, DWORD index, void* buffer, DWORD bytes);
QDR_API bool ImmReleaseContext(CWnd* window, HIMC context);

namespace qdr {

/// Client coordinates as lParam of a mouse message, held within 16 bits, and back.
QDR_API LPARAM packedPoint(CPoint clientPoint);
QDR_API CPoint unpackedPoint(LPARAM lParam);

}  // namespace qdr
