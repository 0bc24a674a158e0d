#pragma once

#include <functional>
#include <utility>

#include "platform/device_context.h"
#include "platform/input.h"
#include "platform/points.h"
#include "platform/window.h"

class CQdrCommandHandler;

namespace qdr {

/// Message that a loop sends to the display window with every move of the mouse; the host routes it
/// to CQdrDbDatabase::SetCoordinate.
constexpr unsigned kCoordinateMessage = 1124;

constexpr WPARAM kKeyCtrlC = 3;
constexpr WPARAM kKeyL = 76;

/// True for Esc and Ctrl+C, which cancel every input.
inline bool isCancelKey(WPARAM key) {
  return key == VK_ESCAPE || key == kKeyCtrlC;
}
/// True for Enter and Space, which end every input.
inline bool isEndKey(WPARAM key) {
  return key == VK_RETURN || key == VK_SPACE;
}

/// A typed letter from 'a' on made upper case the way keywords are: by subtracting 32, whatever the
/// character.
wchar_t keywordCase(wchar_t character);

/// True when the window has a client area to give input in.
bool takesInput(CWnd* window, CRect& client);

/// Counts a running command for as long as it stands, also when an exception passes through.
class DepthScope {
 public:
  explicit DepthScope(CQdrCommandHandler& handler);
  ~DepthScope();
  DepthScope(const DepthScope&) = delete;
  DepthScope& operator=(const DepthScope&) = delete;

 private:
  CQdrCommandHandler& m_handler;
};

/// One blocked input on a window: counts the depth of the handler, takes the mouse and gives both
/// back, however the input ends.
class InputLoop {
 public:
  enum class Capture { watched, taken };
  enum class End { none, lost, cancelled };

  /// Takes the capture. With `watched` the loss of it ends the loop.
  InputLoop(CQdrCommandHandler& handler, CWnd& window, Capture capture = Capture::watched);
  ~InputLoop();
  InputLoop(const InputLoop&) = delete;
  InputLoop& operator=(const InputLoop&) = delete;

  /// Waits for a message. False ends the loop: the capture is lost, and then the message that woke
  /// it is neither handled nor dispatched; or the program quits or asked to cancel.
  bool next(MSG& message);

  /// Why next answered false.
  End end() const { return m_end; }

  /// What the input has drawn on the screen by exclusive-or: called once a paint has wiped it off,
  /// as a wheel or pan step does that the loop dispatches.
  void setMarks(std::function<void()> draw) { m_drawMarks = std::move(draw); }
  void drawMarks() const {
    if (m_drawMarks) m_drawMarks();
  }

  static void translate(const MSG& message);
  static void dispatch(const MSG& message);

 private:
  CQdrCommandHandler& m_handler;
  CWnd& m_window;
  Capture m_capture;
  End m_end = End::none;
  std::function<void()> m_drawMarks;
};

/// Shows a cursor for a scope; null leaves the one there is.
class CursorScope {
 public:
  explicit CursorScope(HCURSOR cursor);
  ~CursorScope();
  CursorScope(const CursorScope&) = delete;
  CursorScope& operator=(const CursorScope&) = delete;

 private:
  HCURSOR m_former = nullptr;
  bool m_set = false;
};

/// A raster operation for a scope; a null context is left out.
class RasterScope {
 public:
  RasterScope(CDC* dc, int operation);
  ~RasterScope();
  RasterScope(const RasterScope&) = delete;
  RasterScope& operator=(const RasterScope&) = delete;

 private:
  CDC* m_dc;
  int m_former = 0;
};

/// Four lines around the rectangle of two corners, from the first one on and back to it.
void drawFrame(CDC& dc, CPoint corner1, CPoint corner2);

/// A pen for a scope; a null context is left out.
class PenScope {
 public:
  PenScope(CDC* dc, CPen& pen);
  ~PenScope();
  PenScope(const PenScope&) = delete;
  PenScope& operator=(const PenScope&) = delete;

 private:
  CDC* m_dc;
  CPen* m_former = nullptr;
};

}  // namespace qdr
