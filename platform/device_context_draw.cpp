#include <algorithm>
#include <cmath>
#include <numbers>
#include <vector>

#include "platform/device_context.h"
#include "platform/internal/arc_points.h"

bool CDC::LineTo(int x, int y) {
  const qdr::AxisMap::Ends device =
      qdr::AxisMap::toDevice(m_mapX, m_mapY, {GetCurrentPosition(), {x, y}});
  m_positionX = x;
  m_positionY = y;
  if (!m_surface) return false;
  m_surface->drawLine(strokeState(), device.from.x, device.from.y, device.to.x, device.to.y);
  if (!m_state.stroke.dashes.isSolid()) [[unlikely]]
    walkDashes(device.from, device.to);
  return true;
}

// By pixels, as a polyline walks its points: a run of lines shows what one polyline would.
void CDC::walkDashes(CPoint from, CPoint to) {
  qdr::DeviceStroke& stroke = m_state.stroke;
  const double dx = (static_cast<double>(to.x) - from.x) * stroke.unitsPerPixelX;
  const double dy = (static_cast<double>(to.y) - from.y) * stroke.unitsPerPixelY;
  const double walked = stroke.dashPhase + std::sqrt(dx * dx + dy * dy);
  stroke.dashPhase = std::fmod(walked, stroke.dashes.period);
}

namespace {

// Device points of a call: short runs stay on the stack.
class DevicePoints {
 public:
  DevicePoints(const POINT* points, int count, const qdr::AxisMap& x, const qdr::AxisMap& y) {
    const auto size = static_cast<std::size_t>(count);
    if (size > kShortRun) m_long.resize(size);
    m_data = size > kShortRun ? m_long.data() : m_short;
    for (std::size_t i = 0; i < size; ++i)
      m_data[i] = qdr::AxisMap::toDevice(x, y, points[i].x, points[i].y);
  }

  const CPoint* data() const { return m_data; }

 private:
  static constexpr std::size_t kShortRun = 64;
  CPoint m_short[kShortRun];
  std::vector<CPoint> m_long;
  CPoint* m_data;
};

}  // namespace

bool CDC::Polyline(const POINT* points, int count) {
  if (!m_surface || !points || count < 2) return false;
  const DevicePoints device(points, count, m_mapX, m_mapY);
  m_surface->drawPolyline(strokeState(), device.data(), static_cast<std::size_t>(count));
  return true;
}

bool CDC::Polygon(const POINT* points, int count) {
  if (!m_surface || !points || count < 2) return false;
  const DevicePoints device(points, count, m_mapX, m_mapY);
  const auto size = static_cast<std::size_t>(count);
  m_surface->drawPolygons(paintState(), {device.data(), &size, 1});
  return true;
}

bool CDC::Rectangle(int x1, int y1, int x2, int y2) {
  return Rectangle(CRect(x1, y1, x2, y2));
}

bool CDC::Rectangle(const RECT& rect) {
  if (!m_surface) return false;
  m_surface->drawRectangle(paintState(), toDeviceRect(rect));
  return true;
}

bool CDC::Ellipse(int x1, int y1, int x2, int y2) {
  return Ellipse(CRect(x1, y1, x2, y2));
}

bool CDC::Ellipse(const RECT& rect) {
  if (!m_surface) return false;
  m_surface->drawEllipse(paintState(), toDeviceRect(rect));
  return true;
}

bool CDC::AngleArc(int x, int y, int radius, float startAngle, float sweepAngle) {
  if (!std::isfinite(startAngle) || !std::isfinite(sweepAngle)) return false;
  constexpr double kRadians = std::numbers::pi / 180;
  constexpr double kFullTurn = 2 * std::numbers::pi;
  const double start = double{startAngle} * kRadians;
  const double sweep = double{sweepAngle} * kRadians;
  const CPoint center = toDevice(CPoint(x, y));
  const qdr::DeviceArc arc{.centerX = static_cast<double>(center.x),
                           .centerY = static_cast<double>(center.y),
                           .radiusX = radius * m_mapX.scale(),
                           .radiusY = radius * m_mapY.scale(),
                           .startAngle = start,
                           .sweepAngle = std::clamp(sweep, -kFullTurn, kFullTurn),
                           .unitsPerRadian = std::abs(static_cast<double>(radius))};
  const CPoint lead = toDevice(GetCurrentPosition());
  MoveTo(qdr::truncToInt(std::round(x + radius * std::cos(start + sweep))),
         qdr::truncToInt(std::round(y + radius * std::sin(start + sweep))));
  if (!m_surface) return false;
  m_surface->drawArc(strokeState(), lead, arc);
  return true;
}

void CDC::FillSolidRect(const RECT& rect, COLORREF color) {
  SetBkColor(color);
  if (m_surface) m_surface->fillRect(m_state, toDeviceRect(rect), color);
}

void CDC::FillSolidRect(int x, int y, int cx, int cy, COLORREF color) {
  const auto edge = [](int origin, int extent) {
    return qdr::truncToInt(static_cast<double>(origin) + extent);
  };
  FillSolidRect(CRect(x, y, edge(x, cx), edge(y, cy)), color);
}

COLORREF CDC::SetPixel(int x, int y, COLORREF color) {
  if (!m_surface) return CLR_INVALID;
  m_surface->setPixel(m_state, toDevice(CPoint(x, y)), color);
  return color;
}

COLORREF CDC::GetPixel(int x, int y) const {
  return m_surface ? m_surface->getPixel(toDevice(CPoint(x, y))) : CLR_INVALID;
}
