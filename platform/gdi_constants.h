#pragma once

#include <cstdint>

// Numbers of the device context, with the values that drawing code and files carry.

// Pen styles: the low four bits are the line style, the rest is kind, cap and join.
inline constexpr int PS_SOLID = 0;
inline constexpr int PS_DASH = 1;
inline constexpr int PS_DOT = 2;
inline constexpr int PS_DASHDOT = 3;
inline constexpr int PS_DASHDOTDOT = 4;
inline constexpr int PS_NULL = 5;
inline constexpr int PS_INSIDEFRAME = 6;
inline constexpr int PS_USERSTYLE = 7;
inline constexpr int PS_STYLE_MASK = 0xf;
inline constexpr int PS_ENDCAP_ROUND = 0;
inline constexpr int PS_ENDCAP_SQUARE = 0x100;
inline constexpr int PS_ENDCAP_FLAT = 0x200;
inline constexpr int PS_ENDCAP_MASK = 0xf00;
inline constexpr int PS_JOIN_ROUND = 0;
inline constexpr int PS_JOIN_BEVEL = 0x1000;
inline constexpr int PS_JOIN_MITER = 0x2000;
inline constexpr int PS_JOIN_MASK = 0xf000;
inline constexpr int PS_COSMETIC = 0;
inline constexpr int PS_GEOMETRIC = 0x10000;

// Brush styles and hatch kinds.
inline constexpr std::uint32_t BS_SOLID = 0;
inline constexpr std::uint32_t BS_HOLLOW = 1;
inline constexpr std::uint32_t BS_NULL = 1;
inline constexpr std::uint32_t BS_HATCHED = 2;
inline constexpr int HS_HORIZONTAL = 0;
inline constexpr int HS_VERTICAL = 1;
inline constexpr int HS_FDIAGONAL = 2;
inline constexpr int HS_BDIAGONAL = 3;
inline constexpr int HS_CROSS = 4;
inline constexpr int HS_DIAGCROSS = 5;

// Raster operations of pen and brush.
inline constexpr int R2_BLACK = 1;
inline constexpr int R2_MASKPENNOT = 3;
inline constexpr int R2_NOT = 6;
inline constexpr int R2_XORPEN = 7;
inline constexpr int R2_NOTXORPEN = 10;
inline constexpr int R2_NOP = 11;
inline constexpr int R2_COPYPEN = 13;
inline constexpr int R2_WHITE = 16;

// Raster operations of image transfers.
inline constexpr std::uint32_t SRCCOPY = 0xcc0020;
inline constexpr std::uint32_t SRCPAINT = 0xee0086;
inline constexpr std::uint32_t SRCAND = 0x8800c6;
inline constexpr std::uint32_t SRCINVERT = 0x660046;
inline constexpr std::uint32_t NOTSRCCOPY = 0x330008;
inline constexpr std::uint32_t DSTINVERT = 0x550009;
inline constexpr std::uint32_t BLACKNESS = 0x000042;
inline constexpr std::uint32_t WHITENESS = 0xff0062;

// Mapping modes.
inline constexpr int MM_TEXT = 1;
inline constexpr int MM_ISOTROPIC = 7;
inline constexpr int MM_ANISOTROPIC = 8;

// Fill modes and background modes.
inline constexpr int ALTERNATE = 1;
inline constexpr int WINDING = 2;
inline constexpr int TRANSPARENT = 1;
inline constexpr int OPAQUE = 2;

// Text alignment: one horizontal and one vertical value, or-ed.
inline constexpr unsigned TA_LEFT = 0;
inline constexpr unsigned TA_UPDATECP = 1;
inline constexpr unsigned TA_RIGHT = 2;
inline constexpr unsigned TA_CENTER = 6;
inline constexpr unsigned TA_TOP = 0;
inline constexpr unsigned TA_BOTTOM = 8;
inline constexpr unsigned TA_BASELINE = 24;

// Stock objects.
inline constexpr int WHITE_BRUSH = 0;
inline constexpr int LTGRAY_BRUSH = 1;
inline constexpr int GRAY_BRUSH = 2;
inline constexpr int DKGRAY_BRUSH = 3;
inline constexpr int BLACK_BRUSH = 4;
inline constexpr int NULL_BRUSH = 5;
inline constexpr int HOLLOW_BRUSH = 5;
inline constexpr int WHITE_PEN = 6;
inline constexpr int BLACK_PEN = 7;
inline constexpr int NULL_PEN = 8;
inline constexpr int SYSTEM_FONT = 13;
inline constexpr int DEFAULT_GUI_FONT = 17;

// Kinds of selectable objects.
inline constexpr int OBJ_PEN = 1;
inline constexpr int OBJ_BRUSH = 2;
inline constexpr int OBJ_PAL = 5;
inline constexpr int OBJ_FONT = 6;
inline constexpr int OBJ_BITMAP = 7;
inline constexpr int OBJ_REGION = 8;

// Device capabilities. Sizes are millimetres, resolutions and physical sizes device units.
inline constexpr int HORZSIZE = 4;
inline constexpr int VERTSIZE = 6;
inline constexpr int HORZRES = 8;
inline constexpr int VERTRES = 10;
inline constexpr int BITSPIXEL = 12;
inline constexpr int LOGPIXELSX = 88;
inline constexpr int LOGPIXELSY = 90;
inline constexpr int PHYSICALWIDTH = 110;
inline constexpr int PHYSICALHEIGHT = 111;
inline constexpr int PHYSICALOFFSETX = 112;
inline constexpr int PHYSICALOFFSETY = 113;

/// What GetPixel answers outside the surface.
inline constexpr std::uint32_t CLR_INVALID = 0xffffffff;
