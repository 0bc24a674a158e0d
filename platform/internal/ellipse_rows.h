#pragma once

#include <cmath>
#include <cstdint>

#include "platform/device_surface.h"
#include "platform/internal/rounding.h"
#include "platform/internal/span_painter.h"

namespace qdr {

/// The pixels whose centres lie within an ellipse, row by row in closed form: any row costs the
/// same, however large the ellipse.
class EllipseRows {
 public:
  EllipseRows(double centerX, double centerY, double halfWidth, double halfHeight)
      : m_centerX(centerX),
        m_centerY(centerY),
        m_halfHeight(halfHeight),
        m_widthPerHeight(halfWidth / halfHeight) {}

  struct Row {
    std::int64_t first = 0;
    std::int64_t last = -1;

    bool isEmpty() const { return first > last; }
  };

  Row row(std::int64_t y) const {
    const double dy = static_cast<double>(y) - m_centerY;
    const double square = (m_halfHeight - dy) * (m_halfHeight + dy);
    if (!(square >= 0)) return {};
    const double half = std::sqrt(square) * m_widthPerHeight;
    return {ceilToInt(m_centerX - half), floorToInt(m_centerX + half)};
  }

  /// Rows of the clip that the ellipse can reach, as [first, last].
  Row rowsWithin(const CRect& clip) const;

  double centerX() const { return m_centerX; }
  double centerY() const { return m_centerY; }

 private:
  double m_centerX;
  double m_centerY;
  double m_halfHeight;
  double m_widthPerHeight;
};

/// Every pixel of the ellipse.
void fillEllipse(const EllipseRows& rows, SpanPainter& painter);

/// The outline one pixel wide: pixels of the ellipse with one of their four neighbours outside.
void outlineEllipse(const EllipseRows& rows, SpanPainter& painter);

/// The whole ellipse of the arc as a ring `width` pixels wide, half of it to either side.
void fillRing(const DeviceArc& arc, double width, SpanPainter& painter);

/// The outline pixels of the ellipse along an arc, those of its ends included.
void outlineArc(const DeviceArc& arc, SpanPainter& painter);

}  // namespace qdr
