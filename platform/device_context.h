#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string_view>

#include "platform/axis_map.h"
#include "platform/device_surface.h"
#include "platform/export.h"
#include "platform/gdi_objects.h"
#include "platform/points.h"
#include "platform/selection_slot.h"

namespace qdr {
class SoftwareRaster;
}

/// What EnumFontsW calls for each face; 0 ends the walk.
using FontEnumProc = int (*)(const LOGFONT* font, int type, std::intptr_t data);

/// A device context: mapping, current position, selected objects and modes over one surface.
///
/// A new context has raster operation 13, background white and opaque, text colour 0, alignment 0,
/// fill mode 1, map mode 1, the black pen of width 1, the white brush, position and origins 0.
/// Setters answer the old value; SelectObject answers the object selected before. Coordinates are
/// logical unless a name says otherwise. Without a surface drawing does nothing.
class QDR_API CDC {
 public:
  CDC();
  /// Draws on `surface`, which stays the caller's and must outlive the context.
  explicit CDC(qdr::IDeviceSurface* surface);
  virtual ~CDC();
  CDC(const CDC&) = delete;
  CDC& operator=(const CDC&) = delete;

  void attachSurface(qdr::IDeviceSurface* surface);
  qdr::IDeviceSurface* surface() const { return m_surface; }

  /// Makes this a memory context: it draws on the bitmap selected into it, at first on a bitmap of
  /// one pixel. `dc` may be null.
  bool CreateCompatibleDC(const CDC* dc);
  bool DeleteDC();

  // Mapping. Device = (logical - window origin) * viewport extent / window extent + viewport
  // origin per axis, halves away from zero. Extents count in every mode; going to MM_TEXT puts
  // them back to one to one.
  int SetMapMode(int mode);
  int GetMapMode() const { return m_mapMode; }
  CPoint SetWindowOrg(int x, int y);
  CPoint SetWindowOrg(POINT origin) { return SetWindowOrg(origin.x, origin.y); }
  CPoint GetWindowOrg() const;
  CSize SetWindowExt(int cx, int cy);
  CSize SetWindowExt(SIZE extent) { return SetWindowExt(extent.cx, extent.cy); }
  CSize GetWindowExt() const;
  CPoint SetViewportOrg(int x, int y);
  CPoint SetViewportOrg(POINT origin) { return SetViewportOrg(origin.x, origin.y); }
  CPoint GetViewportOrg() const;
  CSize SetViewportExt(int cx, int cy);
  CSize SetViewportExt(SIZE extent) { return SetViewportExt(extent.cx, extent.cy); }
  CSize GetViewportExt() const;
  void DPtoLP(POINT* points, int count = 1) const;
  void DPtoLP(RECT* rect) const;
  void LPtoDP(POINT* points, int count = 1) const;
  void LPtoDP(RECT* rect) const;

  // Lines and shapes.
  CPoint MoveTo(int x, int y) {
    const CPoint old = GetCurrentPosition();
    m_positionX = x;
    m_positionY = y;
    m_state.stroke.dashPhase = 0;
    return old;
  }
  CPoint MoveTo(POINT point) { return MoveTo(point.x, point.y); }
  CPoint GetCurrentPosition() const { return {m_positionX, m_positionY}; }
  /// Draws from the current position without the last pixel, and moves there. Dashes run on over
  /// lines that follow one another, until a MoveTo or another pen.
  bool LineTo(int x, int y);
  bool LineTo(POINT point) { return LineTo(point.x, point.y); }
  /// Draws without the very last pixel and leaves the position. False below two points.
  bool Polyline(const POINT* points, int count);
  bool Polygon(const POINT* points, int count);
  bool Rectangle(int x1, int y1, int x2, int y2);
  bool Rectangle(const RECT& rect);
  bool Ellipse(int x1, int y1, int x2, int y2);
  bool Ellipse(const RECT& rect);
  /// A line from the position to the start of the arc, then the arc; the position ends there.
  /// Degrees, counter-clockwise from +x where y points upward: the point at angle a is
  /// (x + radius cos a, y + radius sin a).
  bool AngleArc(int x, int y, int radius, float startAngle, float sweepAngle);
  /// Fills by copy, whatever the raster operation, and leaves `color` as background colour.
  void FillSolidRect(const RECT& rect, COLORREF color);
  void FillSolidRect(int x, int y, int cx, int cy, COLORREF color);
  COLORREF SetPixel(int x, int y, COLORREF color);
  COLORREF SetPixel(POINT point, COLORREF color) { return SetPixel(point.x, point.y, color); }
  COLORREF GetPixel(int x, int y) const;
  COLORREF GetPixel(POINT point) const { return GetPixel(point.x, point.y); }

  // State.
  CPen* SelectObject(CPen* pen);
  CBrush* SelectObject(CBrush* brush);
  CFont* SelectObject(CFont* font);
  /// Null, and nothing selected, in a context that is no memory context.
  CBitmap* SelectObject(CBitmap* bitmap);
  CGdiObject* SelectGdiObject(CGdiObject* object);
  CGdiObject* SelectStockObject(int index);
  /// The selected object of a kind (OBJ_PEN and so on), never null for pen, brush and font.
  CGdiObject* GetCurrentObject(int kind) const;
  CPen* GetCurrentPen() const { return static_cast<CPen*>(m_pen.object()); }
  CBrush* GetCurrentBrush() const { return static_cast<CBrush*>(m_brush.object()); }
  CFont* GetCurrentFont() const { return static_cast<CFont*>(m_font.object()); }
  CBitmap* GetCurrentBitmap() const { return static_cast<CBitmap*>(m_bitmap.object()); }
  /// Operations 1 to 16; another number answers 0 and changes nothing.
  int SetROP2(int rop2);
  int GetROP2() const { return m_state.rop2; }
  int SetBkMode(int mode);
  int GetBkMode() const { return m_state.fill.opaque ? OPAQUE : TRANSPARENT; }
  COLORREF SetBkColor(COLORREF color);
  COLORREF GetBkColor() const { return m_state.fill.background; }
  COLORREF SetTextColor(COLORREF color);
  COLORREF GetTextColor() const { return m_textColor; }
  unsigned SetTextAlign(unsigned align);
  unsigned GetTextAlign() const { return m_textAlign; }
  int SetPolyFillMode(int mode);
  int GetPolyFillMode() const { return m_state.fillMode; }
  /// Clips to the box of the region, in device coordinates; null ends clipping.
  int SelectClipRgn(const CRgn* region);
  int GetDeviceCaps(int index) const;
  bool IsPrinting() const { return m_surface && m_surface->isPrinting(); }

  // Images. The source maps through its own context, and may be null for an operation that reads
  // none; a copy that cannot be made answers false.
  bool BitBlt(int x, int y, int cx, int cy, const CDC* source, int sourceX, int sourceY,
              std::uint32_t rop);
  bool StretchBlt(int x, int y, int cx, int cy, const CDC* source, int sourceX, int sourceY,
                  int sourceCx, int sourceCy, std::uint32_t rop);
  /// Reads `rowCount` rows of the bitmap, counted from the bottom (from the top when the height
  /// of the header is negative), into rows padded to 4 bytes: 24 or 32 bits, or 8 bits where each
  /// pixel becomes the nearest of the 256 entries of `palette`, the lower one on a tie. Answers
  /// the rows read, 0 for anything else.
  int GetDIBits(const CBitmap& bitmap, unsigned firstRow, unsigned rowCount, void* bits,
                const BITMAPINFOHEADER& header, const RGBQUAD* palette) const;
  CPalette* SelectPalette(CPalette*, bool) { return nullptr; }
  unsigned RealizePalette() { return 0; }

  // Text. `count` of -1 takes the string up to its end.
  bool TextOut(int x, int y, const wchar_t* text, int count = -1);
  CSize GetTextExtent(const wchar_t* text, int count = -1) const;
  /// Calls `proc` for each face, or for the one named; answers the last answer of `proc`.
  int EnumFontsW(const wchar_t* face, FontEnumProc proc, std::intptr_t data) const;

 private:
  CPoint toDevice(POINT point) const {
    return qdr::AxisMap::toDevice(m_mapX, m_mapY, point.x, point.y);
  }
  CRect toDeviceRect(const RECT& rect) const;
  void walkDashes(CPoint from, CPoint to);
  void drawTextAt(CPoint reference, std::wstring_view text, double advance);
  const qdr::DeviceState& strokeState() {
    if (m_penStale || m_pen.isChanged()) resolvePen();
    return m_state;
  }
  const qdr::DeviceState& paintState();
  void resolvePen();
  void resolveBrush();

  qdr::IDeviceSurface* m_surface = nullptr;
  std::unique_ptr<qdr::SoftwareRaster> m_memory;
  qdr::AxisMap m_mapX;
  qdr::AxisMap m_mapY;
  // The halves of the position stand apart: reading a point as one word right after its halves
  // were written waits for every pixel on its way to memory.
  LONG m_positionX = 0;
  int m_mapMode = MM_TEXT;
  LONG m_positionY = 0;
  COLORREF m_textColor = 0;
  unsigned m_textAlign = 0;
  qdr::SelectionSlot m_pen;
  qdr::SelectionSlot m_brush;
  qdr::SelectionSlot m_font;
  qdr::SelectionSlot m_bitmap;
  qdr::DeviceState m_state;
  bool m_penStale = true;
  bool m_hasClip = false;
};
