#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

#include "platform/export.h"
#include "platform/gdi_constants.h"
#include "platform/pixel_buffer.h"
#include "platform/points.h"

class CDC;

/// A pen as plain data. The y of the width is not used.
struct LOGPEN {
  std::uint32_t lopnStyle = PS_SOLID;
  POINT lopnWidth;
  COLORREF lopnColor = 0;
};

struct LOGBRUSH {
  std::uint32_t lbStyle = BS_SOLID;
  COLORREF lbColor = 0;
  std::uintptr_t lbHatch = 0;
};

/// A pen with its dash lengths, which stay the pen's and live as long as it is unchanged.
struct EXTLOGPEN {
  DWORD elpPenStyle = PS_SOLID;
  DWORD elpWidth = 0;
  std::uint32_t elpBrushStyle = BS_SOLID;
  COLORREF elpColor = 0;
  std::uintptr_t elpHatch = 0;
  DWORD elpNumEntries = 0;
  const DWORD* elpStyleEntry = nullptr;
};

/// A font as plain data. A positive height is that of the cell, a negative one that of the
/// characters, 0 the default; angles are tenths of a degree, counter-clockwise on the device.
struct LOGFONT {
  LONG lfHeight = 0;
  LONG lfWidth = 0;
  LONG lfEscapement = 0;
  LONG lfOrientation = 0;
  LONG lfWeight = 400;
  std::uint8_t lfItalic = 0;
  std::uint8_t lfUnderline = 0;
  std::uint8_t lfStrikeOut = 0;
  std::uint8_t lfCharSet = 0;
  std::uint8_t lfOutPrecision = 0;
  std::uint8_t lfClipPrecision = 0;
  std::uint8_t lfQuality = 0;
  std::uint8_t lfPitchAndFamily = 0;
  wchar_t lfFaceName[32] = {};
};
using LOGFONTW = LOGFONT;

/// The header of a device-independent bitmap, byte for byte as files carry it.
struct BITMAPINFOHEADER {
  std::uint32_t biSize = 40;
  std::int32_t biWidth = 0;
  std::int32_t biHeight = 0;
  std::uint16_t biPlanes = 1;
  std::uint16_t biBitCount = 0;
  std::uint32_t biCompression = 0;
  std::uint32_t biSizeImage = 0;
  std::int32_t biXPelsPerMeter = 0;
  std::int32_t biYPelsPerMeter = 0;
  std::uint32_t biClrUsed = 0;
  std::uint32_t biClrImportant = 0;
};
static_assert(sizeof(BITMAPINFOHEADER) == 40);

struct RGBQUAD {
  std::uint8_t rgbBlue = 0;
  std::uint8_t rgbGreen = 0;
  std::uint8_t rgbRed = 0;
  std::uint8_t rgbReserved = 0;
};
static_assert(sizeof(RGBQUAD) == 4);

namespace qdr {
class SelectionSlot;
}

/// Base of all that a device context selects. Objects are not copied. One that is destroyed while
/// it is selected gives its place back to the stock object of its kind.
class QDR_API CGdiObject {
 public:
  virtual ~CGdiObject();
  CGdiObject(const CGdiObject&) = delete;
  CGdiObject& operator=(const CGdiObject&) = delete;

  /// OBJ_PEN, OBJ_BRUSH, OBJ_FONT, OBJ_BITMAP, OBJ_REGION or OBJ_PAL.
  int objectType() const { return m_type; }

 protected:
  explicit CGdiObject(int type) : m_type(type) {}

  /// Tells every context that has this object selected that its content is another.
  void contentChanged();

 private:
  friend class qdr::SelectionSlot;

  int m_type;
  qdr::SelectionSlot* m_selections = nullptr;
};

/// A pen: style, width in logical units (0 or less is one pixel), colour, dash lengths in logical
/// units for PS_USERSTYLE, on and off in turn. A list keeps its first 1024 lengths.
class QDR_API CPen : public CGdiObject {
 public:
  CPen();
  CPen(int style, int width, COLORREF color);
  CPen(int style, int width, const LOGBRUSH* brush, int count, const DWORD* lengths = nullptr);

  bool CreatePen(int style, int width, COLORREF color);
  bool CreatePen(int style, int width, const LOGBRUSH* brush, int count,
                 const DWORD* lengths = nullptr);
  bool CreatePenIndirect(const LOGPEN* pen);
  bool ExtCreatePen(DWORD style, DWORD width, const LOGBRUSH* brush, DWORD count = 0,
                    const DWORD* lengths = nullptr);

  /// Style, width and colour of pens of both forms; answers the bytes written, 0 for null.
  int GetLogPen(LOGPEN* pen) const;
  int GetExtLogPen(EXTLOGPEN* pen) const;

  int style() const { return m_style; }
  int width() const { return m_width; }
  COLORREF color() const { return m_color; }
  const std::vector<DWORD>& dashes() const { return m_dashes; }

 private:
  int m_style = PS_SOLID;
  int m_width = 1;
  COLORREF m_color = 0;
  std::vector<DWORD> m_dashes;
};

/// A brush: solid, hollow or one of the six hatches, 8 device pixels apart.
class QDR_API CBrush : public CGdiObject {
 public:
  CBrush();
  explicit CBrush(COLORREF color);

  bool CreateSolidBrush(COLORREF color);
  bool CreateHatchBrush(int hatch, COLORREF color);
  bool CreateBrushIndirect(const LOGBRUSH* brush);

  int GetLogBrush(LOGBRUSH* brush) const;
  const LOGBRUSH& data() const { return m_data; }

 private:
  LOGBRUSH m_data;
};

class QDR_API CFont : public CGdiObject {
 public:
  CFont();

  bool CreateFontIndirectW(const LOGFONT* font);
  int GetLogFont(LOGFONT* font) const;
  const LOGFONT& data() const { return m_data; }

 private:
  LOGFONT m_data;
};

/// A rectangle of pixels that a memory context draws on while it is selected.
class QDR_API CBitmap : public CGdiObject {
 public:
  CBitmap();
  ~CBitmap() override;

  /// Black pixels. False for a null context, an empty size, or one too large to allocate.
  bool CreateCompatibleBitmap(const CDC* dc, int width, int height);

  /// From a packed bitmap: header, colour table, rows padded to 4 bytes; 1, 4, 8, 24 or 32 bits,
  /// uncompressed, of either row order. Nothing beyond `size` bytes is read. False leaves the
  /// earlier picture.
  bool CreateDIBitmap(const void* packed, std::size_t size);

  bool isEmpty() const { return !m_pixels; }
  CSize size() const;

  /// The pixels, shared with every context that draws on them; null before creation.
  const std::shared_ptr<qdr::PixelBuffer>& pixels() const { return m_pixels; }

 private:
  std::shared_ptr<qdr::PixelBuffer> m_pixels;
};

/// A clip region: one rectangle in device coordinates, right and bottom outside.
class QDR_API CRgn : public CGdiObject {
 public:
  CRgn();

  bool CreateRectRgn(int left, int top, int right, int bottom);
  void SetRectRgn(int left, int top, int right, int bottom);
  const CRect& box() const { return m_box; }

 private:
  CRect m_box;
};

/// Palettes have no effect on 24-bit surfaces; the class stands for the calls that name it.
class QDR_API CPalette : public CGdiObject {
 public:
  CPalette();
};

/// The shared object of a stock number, never deleted; null for a number that has none.
QDR_API CGdiObject* GetStockObject(int index);
