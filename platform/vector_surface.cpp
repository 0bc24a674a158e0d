#include "platform/vector_surface.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "platform/internal/arc_points.h"
#include "platform/internal/path_clip.h"
#include "platform/internal/visible_part.h"

namespace qdr {

namespace {

constexpr double kMillimetresPerInch = 25.4;
constexpr double kScreenDotsPerInch = 96;
constexpr double kFullTurn = 2 * std::numbers::pi;
constexpr std::size_t kBatchedSteps = 4096;
constexpr double kHatchMillimetres = 2;

using Kind = PathStep::Kind;

double meanUnitsPerPixel(const DeviceStroke& stroke) {
  return std::sqrt(stroke.unitsPerPixelX * stroke.unitsPerPixelY);
}

VectorPath closedPath(const CPoint* points, std::size_t count) {
  VectorPath path;
  path.reserve(count + 1);
  for (std::size_t i = 0; i < count; ++i)
    path.push_back({i == 0 ? Kind::move : Kind::line, static_cast<double>(points[i].x),
                    static_cast<double>(points[i].y)});
  if (count > 0) path.push_back({Kind::close});
  return path;
}

// The arc after its first point, as cubic curves of a quarter turn at most.
void appendCurves(const DeviceArc& arc, VectorPath& path) {
  const double sweep = std::clamp(arc.sweepAngle, -kFullTurn, kFullTurn);
  const int count = std::max(1, static_cast<int>(std::ceil(std::fabs(sweep) / (kFullTurn / 4))));
  const double step = sweep / count;
  const double handle = 4.0 / 3.0 * std::tan(step / 4);
  const auto along = [&arc](double angle, double reach) {
    const ArcPiece::Point point = pointOfArc(arc, angle);
    return PathStep{Kind::curve, point.x - arc.radiusX * std::sin(angle) * reach,
                    point.y + arc.radiusY * std::cos(angle) * reach};
  };
  for (int i = 0; i < count; ++i) {
    const double angle = arc.startAngle + step * i;
    path.push_back(along(angle, handle));
    path.push_back(along(angle + step, -handle));
    path.push_back(along(angle + step, 0));
  }
}

DeviceArc ellipseIn(const CRect& rect) {
  return {.centerX = (static_cast<double>(rect.left) + rect.right) / 2,
          .centerY = (static_cast<double>(rect.top) + rect.bottom) / 2,
          .radiusX = (static_cast<double>(rect.right) - rect.left) / 2,
          .radiusY = (static_cast<double>(rect.bottom) - rect.top) / 2,
          .startAngle = 0,
          .sweepAngle = kFullTurn};
}

bool hasPen(const DeviceState& state) {
  return state.stroke.visible;
}

bool hasBrush(const DeviceState& state) {
  return state.fill.style != BS_HOLLOW;
}

}  // namespace

VectorSurface::VectorSurface(const VectorPage& page) : m_page(page) {
  const CSize sides = size();
  m_far = CRect(-sides.cx, -sides.cy, truncToInt(2.0 * sides.cx), truncToInt(2.0 * sides.cy));
}

CSize VectorSurface::size() const {
  return {truncToInt(std::round(m_page.widthMillimetres * m_page.unitsPerMillimetre)),
          truncToInt(std::round(m_page.heightMillimetres * m_page.unitsPerMillimetre))};
}

int VectorSurface::deviceCaps(int index) const {
  constexpr int kColorBits = 24;
  switch (index) {
    case HORZSIZE:
      return truncToInt(std::round(m_page.widthMillimetres));
    case VERTSIZE:
      return truncToInt(std::round(m_page.heightMillimetres));
    case BITSPIXEL:
      return kColorBits;
    case LOGPIXELSX:
    case LOGPIXELSY:
      return truncToInt(std::round(m_page.unitsPerMillimetre * kMillimetresPerInch));
    default:
      return IDeviceSurface::deviceCaps(index);
  }
}

// State

void VectorSurface::applyClip(const DeviceState& state) {
  const bool clipped = !(state.clip == DeviceState().clip);
  if (clipped == m_clipped && (!clipped || state.clip == m_clip)) return;
  flush();
  m_clipped = clipped;
  m_clip = state.clip;
  writeClip(clipped ? &m_clip : nullptr);
}

// Device units for a unit of dashes.
double VectorSurface::dashScale(const DeviceStroke& stroke) const {
  const double scale = 1 / meanUnitsPerPixel(stroke);
  if ((stroke.style & PS_STYLE_MASK) == PS_USERSTYLE) return scale;
  // The line styles count pen widths, at least dots of a screen, far larger than units of paper.
  const double screenDot = m_page.unitsPerMillimetre * kMillimetresPerInch / kScreenDotsPerInch;
  return scale * std::max(1.0, screenDot / std::round(stroke.width));
}

VectorPen VectorSurface::penOf(const DeviceStroke& stroke) const {
  VectorPen pen;
  pen.color = stroke.color;
  pen.style = stroke.style & (PS_ENDCAP_MASK | PS_JOIN_MASK);
  const double hairline = m_page.hairlineMillimetres * m_page.unitsPerMillimetre;
  pen.width = std::max(stroke.width, hairline);
  const double scale = dashScale(stroke);
  if (stroke.dashes.isSolid() || !(stroke.dashes.period * scale >= hairline)) return pen;
  for (const double length : stroke.dashes.lengths)
    pen.dashes.push_back(length * scale);
  return pen;
}

bool VectorSurface::beginStroke(const DeviceState& state) {
  if (!hasPen(state) || state.rop2 == R2_NOP) return false;
  applyClip(state);
  VectorPen pen = penOf(state.stroke);
  const bool isWithinRun = state.stroke.dashPhase > 0;
  if (!(pen == m_pen) || (m_strokes.size() > kBatchedSteps && !isWithinRun)) {
    flush();
    m_pen = std::move(pen);
  }
  return true;
}

void VectorSurface::flush() {
  if (!m_strokes.empty()) writeStroke(m_pen, m_strokes);
  m_strokes.clear();
}

// Strokes

// `phase` is the dash length walked before the line, in device units.
void VectorSurface::strokeLine(double x1, double y1, double x2, double y2, double phase) {
  const ReachBox reach{static_cast<double>(m_far.left), static_cast<double>(m_far.top),
                       static_cast<double>(m_far.right), static_cast<double>(m_far.bottom)};
  if (!reach.holds(x1, y1) || !reach.holds(x2, y2)) {
    const VisiblePart seen = visiblePart(x1, y1, x2, y2, reach);
    if (seen.isEmpty()) return;
    const double length = std::hypot(x2 - x1, y2 - y1);
    double period = 0;
    for (const double dash : m_pen.dashes)
      period += dash;
    // Dashes begin where whole periods have been walked: outside, at or before the cut. A start
    // that is seen stays.
    double first = seen.first;
    if (period > 0 && first > 0)
      first = (std::floor((phase + first * length) / period) * period - phase) / length;
    const double dx = x2 - x1;
    const double dy = y2 - y1;
    x2 = x1 + dx * seen.last;
    y2 = y1 + dy * seen.last;
    x1 += dx * first;
    y1 += dy * first;
  }
  // A solid chain under round caps looks the same joined, and is half as long. Dashes run on over a
  // joined one.
  const bool looksJoined = (m_pen.style & PS_ENDCAP_MASK) == PS_ENDCAP_ROUND &&
                           (m_pen.style & PS_JOIN_MASK) == PS_JOIN_ROUND;
  const bool joins = m_pen.dashes.empty() ? looksJoined : phase > 0;
  const bool continues = joins && !m_strokes.empty() && m_strokes.back().kind != Kind::close &&
                         m_strokes.back().x == x1 && m_strokes.back().y == y1;
  if (!continues) m_strokes.push_back({Kind::move, x1, y1});
  m_strokes.push_back({Kind::line, x2, y2});
}

void VectorSurface::strokePoints(const CPoint* points, std::size_t count, bool closed) {
  bool near = true;
  for (std::size_t i = 0; i < count && near; ++i)
    near = m_far.PtInRect(points[i]);
  if (near) {
    VectorPath path = closedPath(points, count);
    if (!closed && !path.empty()) path.pop_back();
    m_strokes.insert(m_strokes.end(), path.begin(), path.end());
    return;
  }
  const std::size_t segments = closed ? count : count - 1;
  for (std::size_t i = 0; i < segments; ++i) {
    const CPoint& a = points[i];
    const CPoint& b = points[i + 1 == count ? 0 : i + 1];
    strokeLine(a.x, a.y, b.x, b.y);
  }
}

void VectorSurface::strokeArc(const DeviceArc& arc) {
  const double reach = 4.0 * std::max(m_far.Width(), m_far.Height());
  if (std::max(std::fabs(arc.radiusX), std::fabs(arc.radiusY)) > reach)
    return strokePieces(visibleArc(arc, m_far));
  const ArcPiece::Point start = pointOfArc(arc, arc.startAngle);
  m_strokes.push_back({Kind::move, start.x, start.y});
  appendCurves(arc, m_strokes);
  if (std::fabs(arc.sweepAngle) >= kFullTurn) m_strokes.push_back({Kind::close});
}

void VectorSurface::strokePieces(const std::vector<ArcPiece>& pieces) {
  for (const ArcPiece& piece : pieces) {
    Kind kind = Kind::move;
    for (const ArcPiece::Point& point : piece.points) {
      m_strokes.push_back({kind, point.x, point.y});
      kind = Kind::line;
    }
  }
}

void VectorSurface::drawLine(const DeviceState& state, int x1, int y1, int x2, int y2) {
  if (!beginStroke(state)) return;
  const double walked = state.stroke.dashPhase;
  strokeLine(x1, y1, x2, y2, walked > 0 ? walked * dashScale(state.stroke) : 0);
}

void VectorSurface::drawPolyline(const DeviceState& state, const CPoint* points,
                                 std::size_t count) {
  if (count >= 2 && beginStroke(state)) strokePoints(points, count, false);
}

void VectorSurface::drawArc(const DeviceState& state, CPoint lead, const DeviceArc& arc) {
  if (!beginStroke(state)) return;
  const CPoint start = devicePointOfArc(arc, arc.startAngle);
  if (!(lead == start)) strokeLine(lead.x, lead.y, start.x, start.y);
  strokeArc(arc);
}

// Areas

void VectorSurface::fill(const DeviceState& state, VectorPath path) {
  if (!hasBrush(state) || state.rop2 == R2_NOP) return;
  flush();
  applyClip(state);
  if (state.fill.style == BS_SOLID) {
    writeFill(state.fill.color, state.fillMode, path);
  } else {
    fillHatch(state, path);
  }
}

void VectorSurface::fillHatch(const DeviceState& state, const VectorPath& path) {
  if (state.fill.opaque) writeFill(state.fill.background, state.fillMode, path);
  m_pen = VectorPen();
  m_pen.color = state.fill.color;
  m_pen.width = m_page.hairlineMillimetres * m_page.unitsPerMillimetre;
  m_strokes = hatchLines(path, state.fill.hatch, state.fillMode,
                         kHatchMillimetres * m_page.unitsPerMillimetre);
  flush();
}

void VectorSurface::drawPolygons(const DeviceState& state, const DeviceContours& contours) {
  VectorPath path;
  const CPoint* points = contours.points;
  for (std::size_t c = 0; c < contours.contourCount; ++c) {
    const VectorPath contour = clippedToBox(closedPath(points, contours.counts[c]), m_far);
    path.insert(path.end(), contour.begin(), contour.end());
    points += contours.counts[c];
  }
  if (!path.empty()) fill(state, std::move(path));
  if (!beginStroke(state)) return;
  points = contours.points;
  for (std::size_t c = 0; c < contours.contourCount; ++c) {
    strokePoints(points, contours.counts[c], true);
    points += contours.counts[c];
  }
}

void VectorSurface::drawRectangle(const DeviceState& state, const CRect& rect) {
  const CPoint corners[] = {{rect.left, rect.top},
                            {rect.right, rect.top},
                            {rect.right, rect.bottom},
                            {rect.left, rect.bottom}};
  const std::size_t count = 4;
  drawPolygons(state, {corners, &count, 1});
}

void VectorSurface::drawEllipse(const DeviceState& state, const CRect& rect) {
  if (hasBrush(state)) {
    const DeviceArc arc = ellipseIn(rect);
    VectorPath path;
    Kind kind = Kind::move;
    for (const ArcPiece& piece : visibleArc(arc, CRect(INT32_MIN, INT32_MIN, INT32_MAX, INT32_MAX)))
      for (const ArcPiece::Point& point : piece.points) {
        path.push_back({kind, point.x, point.y});
        kind = Kind::line;
      }
    path.push_back({Kind::close});
    path = clippedToBox(path, m_far);
    if (!path.empty()) fill(state, std::move(path));
  }
  if (beginStroke(state)) strokeArc(ellipseIn(rect));
}

void VectorSurface::fillRect(const DeviceState& state, const CRect& rect, COLORREF color) {
  const CPoint corners[] = {{rect.left, rect.top},
                            {rect.right, rect.top},
                            {rect.right, rect.bottom},
                            {rect.left, rect.bottom}};
  const VectorPath path = clippedToBox(closedPath(corners, 4), m_far);
  if (path.empty()) return;
  flush();
  applyClip(state);
  writeFill(color, ALTERNATE, path);
}

void VectorSurface::setPixel(const DeviceState& state, CPoint point, COLORREF color) {
  const double half = m_page.hairlineMillimetres * m_page.unitsPerMillimetre / 2;
  const int reach = std::max(1, truncToInt(std::round(half)));
  CRect dot(point.x, point.y, point.x, point.y);
  dot.InflateRect(reach, reach);
  fillRect(state, dot, color);
}

}  // namespace qdr
