#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "platform/export.h"
#include "platform/gdi_objects.h"
#include "platform/pixel_buffer.h"
#include "platform/points.h"

namespace qdr {

/// Lengths on and off in turn, an even number of them; a period of 0 is a solid line.
struct DashPattern {
  std::vector<double> lengths;
  double period = 0;

  bool isSolid() const { return !(period > 0); }
};

/// A mitre of more than so many pen widths becomes a bevel.
inline constexpr int kMiterLimit = 10;

/// The pen as a surface needs it. A dash length is `unitsPerPixel` times shorter in pixels, per
/// axis, so patterns keep their logical length under any mapping.
struct DeviceStroke {
  bool visible = true;
  COLORREF color = 0;
  double width = 1;  ///< pixels, at least 1; 1 is the thin line of exactly one pixel
  int style = PS_SOLID;
  DashPattern dashes;
  double dashPhase =
      0;  ///< for drawLine: dash length that a run of lines has walked before this one
  int logicalWidth = 1;
  double unitsPerPixelX = 1;
  double unitsPerPixelY = 1;
};

struct DeviceFill {
  std::uint32_t style = BS_SOLID;  ///< BS_SOLID, BS_HOLLOW or BS_HATCHED
  COLORREF color = 0xffffff;
  int hatch = HS_HORIZONTAL;
  bool opaque = true;  ///< the gaps of a hatch take the background colour
  COLORREF background = 0xffffff;
};

/// All that decides how a call paints. The clip holds left and top, not right and bottom.
struct DeviceState {
  DeviceStroke stroke;
  DeviceFill fill;
  CRect clip{INT32_MIN, INT32_MIN, INT32_MAX, INT32_MAX};
  int rop2 = R2_COPYPEN;
  int fillMode = ALTERNATE;
};

/// Part of an ellipse with axes along x and y. The point at angle a is centre + (radiusX cos a,
/// radiusY sin a) in device coordinates, y downward; a radius may be negative, which mirrors.
struct DeviceArc {
  double centerX = 0;
  double centerY = 0;
  double radiusX = 0;
  double radiusY = 0;
  double startAngle = 0;      ///< radians
  double sweepAngle = 0;      ///< radians, signed; a full turn or more closes
  double unitsPerRadian = 0;  ///< dash length walked per radian
};

/// Closed or open contours, one after the other in one array of points.
struct DeviceContours {
  const CPoint* points = nullptr;
  const std::size_t* counts = nullptr;
  std::size_t contourCount = 0;
};

struct DeviceText {
  std::wstring_view text;
  CPoint reference;
  unsigned align = TA_LEFT;
  const LOGFONT* font = nullptr;
  COLORREF color = 0;
};

/// A copy of `from` in `source` onto `to` of the surface, both with positive sides; sizes may
/// differ, which stretches by taking the nearest pixel.
struct ImageTransfer {
  CRect to;
  const PixelBuffer* source = nullptr;
  CRect from;
  bool mirrorX = false;
  bool mirrorY = false;
  std::uint32_t rop = SRCCOPY;
};

/// What a device context draws on. Coordinates are device units, integers, y downward. A surface
/// keeps no drawing state: every call brings its own. Coordinates may take any value of 32 bits;
/// a surface bounds its time and memory by its own size.
///
/// Under operations that read the surface (all but R2_COPYPEN and constants) one call touches a
/// pixel at most once, so the same call again undoes R2_XORPEN and R2_NOTXORPEN.
class QDR_API IDeviceSurface {
 public:
  virtual ~IDeviceSurface() = default;

  /// Sides in device units.
  virtual CSize size() const = 0;

  /// A capability by its index; 0 for one that the surface does not know.
  virtual int deviceCaps(int index) const;
  virtual bool isPrinting() const { return false; }

  /// A line without its last pixel; its dashes begin at the phase of the stroke.
  virtual void drawLine(const DeviceState& state, int x1, int y1, int x2, int y2) = 0;

  /// Connected lines without the very last pixel; dashes run on over the points.
  virtual void drawPolyline(const DeviceState& state, const CPoint* points, std::size_t count) = 0;

  /// Closed contours: filled together by the fill mode, then outlined.
  virtual void drawPolygons(const DeviceState& state, const DeviceContours& contours) = 0;

  /// Fill and outline; the rectangle has left <= right and top <= bottom, the outline runs inside
  /// right and bottom.
  virtual void drawRectangle(const DeviceState& state, const CRect& rect) = 0;
  virtual void drawEllipse(const DeviceState& state, const CRect& rect) = 0;

  /// A line from `lead` to the start of the arc, without its last pixel, then the arc with both
  /// ends, as one call.
  virtual void drawArc(const DeviceState& state, CPoint lead, const DeviceArc& arc) = 0;

  /// Plain copy of one colour.
  virtual void fillRect(const DeviceState& state, const CRect& rect, COLORREF color) = 0;
  virtual void setPixel(const DeviceState& state, CPoint point, COLORREF color) = 0;

  /// CLR_INVALID outside the surface and on surfaces that cannot be read.
  virtual COLORREF getPixel(CPoint point) const;

  /// False when the surface takes no images or does not know the operation.
  virtual bool drawImage(const DeviceState& state, const ImageTransfer& transfer);

  /// True when the surface has drawn the text itself; otherwise its outlines follow as polygons.
  virtual bool drawText(const DeviceState& state, const DeviceText& text);

  /// The pixels behind the surface, null when it has none.
  virtual const PixelBuffer* pixels() const { return nullptr; }
};

}  // namespace qdr
