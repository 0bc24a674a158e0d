#pragma once

#include <cstdint>

#include "platform/export.h"

using LONG = std::int32_t;
using DWORD = std::uint32_t;
/// Colour as 0x00BBGGRR: red in the lowest byte.
using COLORREF = std::uint32_t;

namespace qdr {

/// The one conversion of a double to an int: NaN gives 0, a value out of range the nearest limit,
/// everything else truncates toward zero.
QDR_API std::int32_t truncToInt(double value);

}  // namespace qdr

/// Plain pair of device or logical coordinates.
struct POINT {
  LONG x = 0;
  LONG y = 0;
};

/// Plain width and height.
struct SIZE {
  LONG cx = 0;
  LONG cy = 0;
};

/// Plain rectangle: left and top belong to it, right and bottom do not.
struct tagRECT {
  LONG left = 0;
  LONG top = 0;
  LONG right = 0;
  LONG bottom = 0;
};
using RECT = tagRECT;

/// Width and height in device or logical units.
class QDR_API CSize : public SIZE {
 public:
  CSize() = default;
  CSize(LONG width, LONG height) : SIZE{width, height} {}
  CSize(const SIZE& size) : SIZE(size) {}

  bool operator==(const CSize& other) const { return cx == other.cx && cy == other.cy; }
};

/// A point in device or logical coordinates. Sums wrap at 32 bits without a fault.
class QDR_API CPoint : public POINT {
 public:
  CPoint() = default;
  CPoint(LONG px, LONG py) : POINT{px, py} {}
  CPoint(const POINT& point) : POINT(point) {}

  bool operator==(const CPoint& other) const { return x == other.x && y == other.y; }
  CPoint operator+(const CPoint& other) const;
  CPoint operator-(const CPoint& other) const;
  void Offset(LONG dx, LONG dy);
};

/// A rectangle in device or logical coordinates; the sides may stand in either order until
/// NormalizeRect is called.
class QDR_API CRect : public tagRECT {
 public:
  CRect() = default;
  CRect(LONG l, LONG t, LONG r, LONG b) : tagRECT{l, t, r, b} {}
  CRect(const tagRECT& rect) : tagRECT(rect) {}
  CRect(const CPoint& topLeft, const CPoint& bottomRight)
      : tagRECT{topLeft.x, topLeft.y, bottomRight.x, bottomRight.y} {}

  bool operator==(const CRect& other) const;

  LONG Width() const;
  LONG Height() const;
  CPoint TopLeft() const { return {left, top}; }
  CPoint BottomRight() const { return {right, bottom}; }

  /// The halved sums of the sides, in integers.
  CPoint CenterPoint() const;

  /// True when the width or the height is not above 0.
  bool IsRectEmpty() const;

  /// Left and top are inside, right and bottom are outside; nothing lies in a rectangle whose
  /// left is not below its right or whose top is not below its bottom.
  bool PtInRect(const POINT& point) const;

  /// Exchanges sides so that left <= right and top <= bottom.
  void NormalizeRect();

  void SetRect(LONG l, LONG t, LONG r, LONG b);
  void SetRectEmpty() { SetRect(0, 0, 0, 0); }

  /// Moves every side outward; sides saturate at the limits of 32 bits.
  void InflateRect(LONG dx, LONG dy);
  void OffsetRect(LONG dx, LONG dy);
};
