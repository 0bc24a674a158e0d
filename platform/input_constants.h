#pragma once

#include <cstdint>

#include "platform/points.h"

// Numbers of messages, keys and window calls, with the values that hosts and handlers exchange.

/// Parameters and answers of messages hold a number or a pointer.
using WPARAM = std::uintptr_t;
using LPARAM = std::intptr_t;
using LRESULT = std::intptr_t;

/// A cursor shape, as the platform knows it; null is none.
using HICON = void*;
using HCURSOR = HICON;

/// An input method at work on a window.
using HIMC = void*;

// Messages.
inline constexpr unsigned WM_NULL = 0;
inline constexpr unsigned WM_SIZE = 5;
inline constexpr unsigned WM_PAINT = 15;
inline constexpr unsigned WM_CLOSE = 16;
inline constexpr unsigned WM_QUIT = 18;
inline constexpr unsigned WM_SETCURSOR = 32;
inline constexpr unsigned WM_KEYDOWN = 256;
inline constexpr unsigned WM_KEYUP = 257;
inline constexpr unsigned WM_CHAR = 258;
inline constexpr unsigned WM_COMMAND = 273;
inline constexpr unsigned WM_VSCROLL = 277;
inline constexpr unsigned WM_MOUSEMOVE = 512;
inline constexpr unsigned WM_LBUTTONDOWN = 513;
inline constexpr unsigned WM_LBUTTONUP = 514;
inline constexpr unsigned WM_RBUTTONDOWN = 516;
inline constexpr unsigned WM_MBUTTONUP = 520;
inline constexpr unsigned WM_USER = 1024;
inline constexpr unsigned EM_SETSEL = 177;
inline constexpr unsigned EM_SCROLLCARET = 183;

// Keys, which are no characters: 115 is F4, the letter 's' is 83.
inline constexpr int VK_CANCEL = 3;
inline constexpr int VK_BACK = 8;
inline constexpr int VK_TAB = 9;
inline constexpr int VK_RETURN = 13;
inline constexpr int VK_SHIFT = 16;
inline constexpr int VK_CONTROL = 17;
inline constexpr int VK_MENU = 18;
inline constexpr int VK_ESCAPE = 27;
inline constexpr int VK_SPACE = 32;
inline constexpr int VK_END = 35;
inline constexpr int VK_HOME = 36;
inline constexpr int VK_LEFT = 37;
inline constexpr int VK_UP = 38;
inline constexpr int VK_RIGHT = 39;
inline constexpr int VK_DOWN = 40;
inline constexpr int VK_DELETE = 46;
inline constexpr int VK_F4 = 115;
inline constexpr int VK_OEM_1 = 186;
inline constexpr int VK_OEM_PLUS = 187;
inline constexpr int VK_OEM_COMMA = 188;
inline constexpr int VK_OEM_MINUS = 189;
inline constexpr int VK_OEM_PERIOD = 190;
inline constexpr int VK_OEM_2 = 191;
/// A key that stands for a character no key of its own has.
inline constexpr int VK_PACKET = 231;

// Buttons and keys held, in the first parameter of mouse messages.
inline constexpr WPARAM MK_LBUTTON = 1;
inline constexpr WPARAM MK_RBUTTON = 2;
inline constexpr WPARAM MK_SHIFT = 4;
inline constexpr WPARAM MK_CONTROL = 8;

inline constexpr int SB_BOTTOM = 7;

// What RedrawWindow does; the three together are 261.
inline constexpr unsigned RDW_INVALIDATE = 1;
inline constexpr unsigned RDW_ERASE = 4;
inline constexpr unsigned RDW_UPDATENOW = 256;

// Shapes of LoadCursor.
inline constexpr int IDC_ARROW = 32512;
inline constexpr int IDC_CROSS = 32515;
inline constexpr int IDC_SIZEALL = 32646;
inline constexpr int IDC_SIZENESW = 32643;

/// The committed text of an input method.
inline constexpr DWORD GCS_RESULTSTR = 2048;
