#include "platform/internal/ellipse_rows.h"

#include <algorithm>
#include <numbers>

namespace qdr {

namespace {

using Row = EllipseRows::Row;

// Visits the outline as runs of one row; the pixel of a row whose neighbour towards the nearer end
// of the ellipse is outside belongs to it.
template <class Visit>
void forEachOutlineRun(const EllipseRows& rows, const CRect& clip, const Visit& visit) {
  const Row reach = rows.rowsWithin(clip);
  Row before = rows.row(reach.first - 1);
  Row row = rows.row(reach.first);
  for (std::int64_t y = reach.first; y <= reach.last; ++y) {
    const Row after = rows.row(y + 1);
    const Row& outer = static_cast<double>(y) < rows.centerY() ? before : after;
    const std::int64_t leftEnd = outer.isEmpty() ? row.last : std::max(row.first, outer.first - 1);
    const std::int64_t rightStart =
        outer.isEmpty() ? row.first : std::min(row.last, outer.last + 1);
    if (leftEnd >= rightStart - 1) {
      visit(row.first, row.last, y);
    } else {
      visit(row.first, leftEnd, y);
      visit(rightStart, row.last, y);
    }
    before = row;
    row = after;
  }
}

// Whether a direction lies in a sector, by cross products.
class Sector {
 public:
  Sector(double start, double sweep)
      : m_startX(std::cos(start)),
        m_startY(std::sin(start)),
        m_endX(std::cos(start + sweep)),
        m_endY(std::sin(start + sweep)),
        m_isWide(sweep > std::numbers::pi) {}

  bool contains(double x, double y) const {
    const bool afterStart = m_startX * y - m_startY * x >= 0;
    const bool beforeEnd = x * m_endY - y * m_endX >= 0;
    return m_isWide ? afterStart || beforeEnd : afterStart && beforeEnd;
  }

 private:
  double m_startX;
  double m_startY;
  double m_endX;
  double m_endY;
  bool m_isWide;
};

}  // namespace

Row EllipseRows::rowsWithin(const CRect& clip) const {
  const double first = std::max<double>(clip.top, std::ceil(m_centerY - m_halfHeight));
  const double last = std::min<double>(clip.bottom - 1, std::floor(m_centerY + m_halfHeight));
  if (!(first <= last)) return {};
  return {static_cast<std::int64_t>(first), static_cast<std::int64_t>(last)};
}

void fillEllipse(const EllipseRows& rows, SpanPainter& painter) {
  const Row reach = rows.rowsWithin(painter.clip());
  for (std::int64_t y = reach.first; y <= reach.last; ++y) {
    const Row row = rows.row(y);
    painter.span(row.first, row.last, y);
  }
}

void outlineEllipse(const EllipseRows& rows, SpanPainter& painter) {
  forEachOutlineRun(rows, painter.clip(),
                    [&painter](std::int64_t first, std::int64_t last, std::int64_t y) {
                      painter.span(first, last, y);
                    });
}

void fillRing(const DeviceArc& arc, double width, SpanPainter& painter) {
  // A pen of an even width has no middle pixel: its centre line runs between two.
  const double shift = std::fmod(width, 2.0) == 0 ? -0.5 : 0.0;
  const double centerX = arc.centerX + shift;
  const double centerY = arc.centerY + shift;
  const double radiusX = std::fabs(arc.radiusX);
  const double radiusY = std::fabs(arc.radiusY);
  const EllipseRows outer(centerX, centerY, radiusX + width / 2, radiusY + width / 2);
  const EllipseRows inner(centerX, centerY, radiusX - width / 2, radiusY - width / 2);
  const bool hasHole = std::min(radiusX, radiusY) > width / 2;
  const Row reach = outer.rowsWithin(painter.clip());
  for (std::int64_t y = reach.first; y <= reach.last; ++y) {
    const Row row = outer.row(y);
    const Row hole = hasHole ? inner.row(y) : Row{};
    if (hole.isEmpty()) {
      painter.span(row.first, row.last, y);
    } else {
      painter.span(row.first, hole.first - 1, y);
      painter.span(hole.last + 1, row.last, y);
    }
  }
}

void outlineArc(const DeviceArc& arc, SpanPainter& painter) {
  // Half a pixel beyond the radius makes the outline run through the pixels nearest to it.
  const double radiusX = std::fabs(arc.radiusX) + 0.5;
  const double radiusY = std::fabs(arc.radiusY) + 0.5;
  const EllipseRows rows(arc.centerX, arc.centerY, radiusX, radiusY);
  if (std::fabs(arc.sweepAngle) >= 2 * std::numbers::pi) return outlineEllipse(rows, painter);

  // The end pixels may lie up to half a pixel beyond the ends themselves.
  const double slack = 0.5 / std::max(1.0, std::min(radiusX, radiusY));
  const double start = std::min(arc.startAngle, arc.startAngle + arc.sweepAngle) - slack;
  const double sweep = std::fabs(arc.sweepAngle) + 2 * slack;
  if (sweep >= 2 * std::numbers::pi) return outlineEllipse(rows, painter);

  const Sector sector(start, sweep);
  const double scaleX = std::copysign(1 / radiusX, arc.radiusX);
  const double scaleY = std::copysign(1 / radiusY, arc.radiusY);
  const CRect& clip = painter.clip();
  forEachOutlineRun(rows, clip, [&](std::int64_t first, std::int64_t last, std::int64_t y) {
    const double v = (static_cast<double>(y) - arc.centerY) * scaleY;
    last = std::min<std::int64_t>(last, clip.right - 1);
    for (std::int64_t x = std::max<std::int64_t>(first, clip.left); x <= last; ++x) {
      if (sector.contains((static_cast<double>(x) - arc.centerX) * scaleX, v))
        painter.span(x, x, y);
    }
  });
}

}  // namespace qdr
