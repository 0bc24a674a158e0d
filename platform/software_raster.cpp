#include "platform/software_raster.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <numbers>
#include <vector>

#include "platform/internal/arc_points.h"
#include "platform/internal/ellipse_rows.h"
#include "platform/internal/image_copy.h"
#include "platform/internal/polygon_fill.h"
#include "platform/internal/raster_call.h"
#include "platform/internal/thin_stroke.h"
#include "platform/internal/wide_stroke.h"

namespace qdr {

namespace {

constexpr int kPixelsPerInch = 96;
constexpr double kMillimetresPerInch = 25.4;
constexpr int kColorBits = 24;
// The box of no pixel: joining any box to it gives that box.
const CRect kNothing(INT32_MAX, INT32_MAX, INT32_MIN, INT32_MIN);
constexpr double kFullTurn = 2 * std::numbers::pi;

int millimetres(int pixels) {
  return static_cast<int>(std::lround(pixels * kMillimetresPerInch / kPixelsPerInch));
}

bool hasPen(const DeviceState& state) {
  return state.stroke.visible;
}

bool hasBrush(const DeviceState& state) {
  return state.fill.style != BS_HOLLOW;
}

PixelOp penOp(const DeviceState& state) {
  return pixelOp(state.rop2, state.stroke.color);
}

// Whether the dashes lie over one another so much that passing over what is painted pays.
bool overlapsItself(const DeviceStroke& stroke) {
  constexpr double kBroad = 32;
  return stroke.width > kBroad && !stroke.dashes.isSolid();
}

// The centres of the border pixels of a rectangle.
struct Border {
  double centerX;
  double centerY;
  double radiusX;
  double radiusY;

  explicit Border(const CRect& rect)
      : centerX((static_cast<double>(rect.left) + rect.right - 1) / 2),
        centerY((static_cast<double>(rect.top) + rect.bottom - 1) / 2),
        radiusX((static_cast<double>(rect.right) - rect.left - 1) / 2),
        radiusY((static_cast<double>(rect.bottom) - rect.top - 1) / 2) {}
};

// Empty where the boxes share nothing.
CRect overlap(const CRect& a, const CRect& b) {
  const CRect both(std::max(a.left, b.left), std::max(a.top, b.top), std::min(a.right, b.right),
                   std::min(a.bottom, b.bottom));
  return both.left < both.right && both.top < both.bottom ? both : CRect();
}

// The pixels between two, both included; at the end of 32 bits the last one is given up.
CRect boxOf(CPoint a, CPoint b) {
  const auto beyond = [](int last) { return last == INT32_MAX ? last : last + 1; };
  CRect box;
  box.left = std::min(a.x, b.x);
  box.top = std::min(a.y, b.y);
  box.right = beyond(std::max(a.x, b.x));
  box.bottom = beyond(std::max(a.y, b.y));
  return box;
}

// Whether a box that is not turned over holds two points, without a jump.
bool holdsBoth(const CRect& box, int x1, int y1, int x2, int y2) {
  const auto left = static_cast<unsigned>(box.left);
  const auto top = static_cast<unsigned>(box.top);
  const unsigned width = static_cast<unsigned>(box.right) - left;
  const unsigned height = static_cast<unsigned>(box.bottom) - top;
  return (static_cast<unsigned>(x1) - left < width) & (static_cast<unsigned>(x2) - left < width) &
         (static_cast<unsigned>(y1) - top < height) & (static_cast<unsigned>(y2) - top < height);
}

void fillRows(const CRect& rect, SpanPainter& painter) {
  const std::int64_t first = std::max(rect.top, painter.clip().top);
  const std::int64_t end = std::min(rect.bottom, painter.clip().bottom);
  for (std::int64_t y = first; y < end; ++y)
    painter.span(rect.left, std::int64_t{rect.right} - 1, y);
}

}  // namespace

void SoftwareRaster::touch(const CRect& clip, const CRect& box) {
  const CRect seen = overlap(box, clip);
  if (seen.left >= seen.right) return;
  m_dirty.left = std::min(m_dirty.left, seen.left);
  m_dirty.top = std::min(m_dirty.top, seen.top);
  m_dirty.right = std::max(m_dirty.right, seen.right);
  m_dirty.bottom = std::max(m_dirty.bottom, seen.bottom);
  settle();
}

void SoftwareRaster::settle() {
  m_settled = overlap(m_dirty, m_clip);
}

SoftwareRaster::SoftwareRaster(std::shared_ptr<PixelBuffer> pixels)
    : m_pixels(std::move(pixels)), m_mask(std::make_unique<CoverageMask>()), m_dirty(kNothing) {}

SoftwareRaster::~SoftwareRaster() = default;

void SoftwareRaster::setPixels(std::shared_ptr<PixelBuffer> pixels) {
  m_pixels = std::move(pixels);
  m_stateClip = CRect();
  m_clip = CRect();
  m_dirty = kNothing;
  m_settled = CRect();
}

CRect SoftwareRaster::takeDirty() {
  const CRect dirty = m_dirty;
  m_dirty = kNothing;
  m_settled = CRect();
  return dirty.left < dirty.right && dirty.top < dirty.bottom ? dirty : CRect();
}

CSize SoftwareRaster::size() const {
  return {m_pixels->width(), m_pixels->height()};
}

int SoftwareRaster::deviceCaps(int index) const {
  switch (index) {
    case HORZSIZE:
      return millimetres(m_pixels->width());
    case VERTSIZE:
      return millimetres(m_pixels->height());
    case BITSPIXEL:
      return kColorBits;
    case LOGPIXELSX:
    case LOGPIXELSY:
      return kPixelsPerInch;
    default:
      return IDeviceSurface::deviceCaps(index);
  }
}

inline bool SoftwareRaster::isPrepared(const DeviceState& state) const {
  return m_rop2 == state.rop2 && m_color == state.stroke.color &&
         std::memcmp(&m_stateClip, &state.clip, sizeof m_stateClip) == 0;
}

const CRect& SoftwareRaster::clipOf(const DeviceState& state) {
  if (isPrepared(state)) return m_clip;
  m_rop2 = state.rop2;
  m_color = state.stroke.color;
  const PixelOp op = penOp(state);
  m_keep = op.keep;
  m_flip = op.flip;
  m_stateClip = state.clip;
  m_clip = overlap(m_stateClip, m_pixels->bounds());
  settle();
  return m_clip;
}

void SoftwareRaster::touch(const DeviceState& state, const CPoint* points, std::size_t count) {
  CPoint low = points[0];
  CPoint high = points[0];
  for (std::size_t i = 1; i < count; ++i) {
    low = {std::min(low.x, points[i].x), std::min(low.y, points[i].y)};
    high = {std::max(high.x, points[i].x), std::max(high.y, points[i].y)};
  }
  // A mitre reaches ten half widths from its vertex.
  const double reach = isThin(state.stroke) ? 0 : 5 * pixelWidth(state.stroke) + 1;
  touch(clipOf(state), {truncToInt(low.x - reach), truncToInt(low.y - reach),
                        truncToInt(high.x + reach + 1), truncToInt(high.y + reach + 1)});
}

RasterCall SoftwareRaster::beginCall(const DeviceState& state, bool mayRepeat) {
  RasterCall call{*m_pixels, clipOf(state)};
  if (mayRepeat && (!penOp(state).overwrites() || overlapsItself(state.stroke))) {
    m_mask->begin(static_cast<std::size_t>(m_pixels->stride()) *
                  static_cast<std::size_t>(m_pixels->height()));
    call.mask = m_mask.get();
  }
  return call;
}

// Fills, then strokes. Where the pen combines with what is there, the outline goes first and the
// fill leaves out its pixels, so that none is combined twice.
template <class Stroke, class Fill>
void SoftwareRaster::paintShape(const DeviceState& state, const Stroke& stroke, const Fill& fill) {
  const RasterCall call = beginCall(state, hasPen(state));
  if (call.isHidden()) return;
  if (call.mask && hasPen(state)) stroke(call);
  if (hasBrush(state)) {
    SpanPainter painter(*m_pixels, call.clip, pixelOp(state.rop2, state.fill.color), call.mask);
    const PixelOp gaps = pixelOp(state.rop2, state.fill.background);
    if (state.fill.style == BS_HATCHED)
      painter.setHatch(state.fill.hatch, state.fill.opaque ? &gaps : nullptr);
    fill(painter);
  }
  if (!call.mask && hasPen(state)) stroke(call);
}

void SoftwareRaster::strokeOutline(const RasterCall& call, const DeviceState& state,
                                   const CPoint* points, std::size_t count, bool closed,
                                   double phase) {
  if (isThin(state.stroke)) {
    strokeThinPath(call, state.stroke, penOp(state),
                   {.points = points, .count = count, .closed = closed, .phase = phase});
    return;
  }
  std::vector<StrokePoint> wide;
  wide.reserve(count);
  for (std::size_t i = 0; i < count; ++i)
    wide.push_back({static_cast<double>(points[i].x), static_cast<double>(points[i].y)});
  strokeWidePath(call, state.stroke, penOp(state),
                 {.points = wide.data(), .count = count, .closed = closed, .phase = phase});
}

void SoftwareRaster::drawLine(const DeviceState& state, int x1, int y1, int x2, int y2) {
  if (!hasPen(state)) return;
  if (isThin(state.stroke) && state.stroke.dashes.isSolid() && isPrepared(state) &&
      holdsBoth(m_settled, x1, y1, x2, y2))
    return strokeInnerLine(*m_pixels, {m_keep, m_flip}, x1, y1, x2, y2);
  drawAnyLine(state, {x1, y1}, {x2, y2});
}

void SoftwareRaster::drawAnyLine(const DeviceState& state, CPoint from, CPoint to) {
  const CRect& clip = clipOf(state);
  if (isThin(state.stroke) && state.stroke.dashes.isSolid()) {
    touch(clip, boxOf(from, to));
    return strokeThinLine({*m_pixels, clip}, {m_keep, m_flip}, from, to);
  }
  const RasterCall call = beginCall(state, !isThin(state.stroke));
  if (call.isHidden()) return;
  const CPoint points[] = {from, to};
  touch(state, points, 2);
  strokeOutline(call, state, points, 2, false, state.stroke.dashPhase);
}

void SoftwareRaster::drawPolyline(const DeviceState& state, const CPoint* points,
                                  std::size_t count) {
  if (!hasPen(state) || count < 2) return;
  const RasterCall call = beginCall(state, count > 2 || !isThin(state.stroke));
  if (call.isHidden()) return;
  touch(state, points, count);
  strokeOutline(call, state, points, count, false);
}

void SoftwareRaster::drawPolygons(const DeviceState& state, const DeviceContours& contours) {
  std::size_t total = 0;
  for (std::size_t c = 0; c < contours.contourCount; ++c)
    total += contours.counts[c];
  if (total == 0) return;
  touch(state, contours.points, total);
  const auto stroke = [&](const RasterCall& call) {
    const CPoint* points = contours.points;
    for (std::size_t c = 0; c < contours.contourCount; ++c) {
      strokeOutline(call, state, points, contours.counts[c], true);
      points += contours.counts[c];
    }
  };
  const auto fill = [&](SpanPainter& painter) { fillPolygons(contours, state.fillMode, painter); };
  paintShape(state, stroke, fill);
}

void SoftwareRaster::drawRectangle(const DeviceState& state, const CRect& rect) {
  if (rect.left >= rect.right || rect.top >= rect.bottom) return;
  const CPoint corners[] = {{rect.left, rect.top},
                            {rect.right - 1, rect.top},
                            {rect.right - 1, rect.bottom - 1},
                            {rect.left, rect.bottom - 1}};
  touch(state, corners, 4);
  paintShape(
      state, [&](const RasterCall& call) { strokeOutline(call, state, corners, 4, true); },
      [&](SpanPainter& painter) { fillRows(rect, painter); });
}

void SoftwareRaster::drawEllipse(const DeviceState& state, const CRect& rect) {
  if (rect.left >= rect.right || rect.top >= rect.bottom) return;
  const CPoint corners[] = {{rect.left, rect.top}, {rect.right - 1, rect.bottom - 1}};
  touch(state, corners, 2);
  const Border border(rect);
  paintShape(
      state, [&](const RasterCall& call) { strokeEllipse(call, state, rect); },
      [&](SpanPainter& painter) {
        fillEllipse(
            EllipseRows(border.centerX, border.centerY, border.radiusX + 0.5, border.radiusY + 0.5),
            painter);
      });
}

void SoftwareRaster::strokeEllipse(const RasterCall& call, const DeviceState& state,
                                   const CRect& rect) {
  const Border border(rect);
  const double walk = std::max(border.radiusX * state.stroke.unitsPerPixelX,
                               border.radiusY * state.stroke.unitsPerPixelY);
  strokeArc(call, state,
            {.centerX = border.centerX,
             .centerY = border.centerY,
             .radiusX = border.radiusX,
             .radiusY = border.radiusY,
             .startAngle = 0,
             .sweepAngle = kFullTurn,
             .unitsPerRadian = walk},
            0);
}

void SoftwareRaster::drawArc(const DeviceState& state, CPoint lead, const DeviceArc& arc) {
  if (!hasPen(state)) return;
  const CPoint start = devicePointOfArc(arc, arc.startAngle);
  const bool hasLead = !(lead == start);
  const RasterCall call = beginCall(state, true);
  if (call.isHidden()) return;
  const double reach = 2 * pixelWidth(state.stroke);
  const double width = std::fabs(arc.radiusX) + reach;
  const double height = std::fabs(arc.radiusY) + reach;
  touch(call.clip, {truncToInt(arc.centerX - width), truncToInt(arc.centerY - height),
                    truncToInt(arc.centerX + width + 1), truncToInt(arc.centerY + height + 1)});
  double phase = 0;
  if (hasLead) {
    const CPoint line[] = {lead, start};
    touch(state, line, 2);
    strokeOutline(call, state, line, 2, false);
    phase = std::hypot((static_cast<double>(start.x) - lead.x) * state.stroke.unitsPerPixelX,
                       (static_cast<double>(start.y) - lead.y) * state.stroke.unitsPerPixelY);
  }
  strokeArc(call, state, arc, phase);
}

namespace {

CPoint nearestPixel(const ArcPiece::Point& point) {
  return {truncToInt(std::round(point.x)), truncToInt(std::round(point.y))};
}

// Each chord takes its dash phase from the angle, so rounded ends add up to no drift.
void strokeThinPiece(const RasterCall& call, const DeviceState& state, const ArcPiece& piece,
                     double phase, double unitsPerChord, bool withEnd) {
  for (std::size_t i = 1; i < piece.points.size(); ++i) {
    const CPoint chord[] = {nearestPixel(piece.points[i - 1]), nearestPixel(piece.points[i])};
    strokeThinPath(call, state.stroke, penOp(state),
                   {.points = chord,
                    .count = 2,
                    .withEnd = withEnd && i + 1 == piece.points.size(),
                    .phase = phase + unitsPerChord * static_cast<double>(i - 1)});
  }
}

void strokeWidePiece(const RasterCall& call, const DeviceState& state, const ArcPiece& piece,
                     double phase, double unitsPerChord) {
  std::vector<StrokePoint> wide;
  wide.reserve(piece.points.size());
  for (const ArcPiece::Point& point : piece.points)
    wide.push_back({point.x, point.y});
  strokeWidePath(call, state.stroke, penOp(state),
                 {.points = wide.data(),
                  .count = wide.size(),
                  .phase = phase,
                  .unitsPerSegment = unitsPerChord});
}

}  // namespace

void SoftwareRaster::strokeArc(const RasterCall& call, const DeviceState& state,
                               const DeviceArc& arc, double phase) {
  const bool isFull = std::fabs(arc.sweepAngle) >= kFullTurn;
  if (state.stroke.dashes.isSolid() && (isFull || isThin(state.stroke))) {
    SpanPainter painter(*m_pixels, call.clip, penOp(state), call.mask);
    return isThin(state.stroke) ? outlineArc(arc, painter)
                                : fillRing(arc, pixelWidth(state.stroke), painter);
  }
  CRect reach = call.clip;
  const int margin = truncToInt(2 * pixelWidth(state.stroke)) / 2 + 2;
  reach.InflateRect(margin, margin);
  const std::vector<ArcPiece> pieces = visibleArc(arc, reach);
  for (const ArcPiece& piece : pieces) {
    const double before = phase + piece.angleBefore * arc.unitsPerRadian;
    const auto chords = static_cast<double>(std::max<std::size_t>(piece.points.size(), 2) - 1);
    const double unitsPerChord = piece.sweep * arc.unitsPerRadian / chords;
    if (isThin(state.stroke)) {
      strokeThinPiece(call, state, piece, before, unitsPerChord, !isFull);
    } else {
      strokeWidePiece(call, state, piece, before, unitsPerChord);
    }
  }
}

void SoftwareRaster::fillRect(const DeviceState& state, const CRect& rect, COLORREF color) {
  const CRect& clip = clipOf(state);
  if (clip.IsRectEmpty()) return;
  SpanPainter painter(*m_pixels, clip, pixelOp(R2_COPYPEN, color), nullptr);
  touch(clip, rect);
  fillRows(rect, painter);
}

void SoftwareRaster::setPixel(const DeviceState& state, CPoint point, COLORREF color) {
  const CRect& clip = clipOf(state);
  if (!clip.PtInRect(point)) return;
  touch(clip, boxOf(point, point));
  m_pixels->row(point.y)[point.x] = pixelOf(color);
}

COLORREF SoftwareRaster::getPixel(CPoint point) const {
  if (!m_pixels->bounds().PtInRect(point)) return CLR_INVALID;
  return colorOf(m_pixels->row(point.y)[point.x]);
}

bool SoftwareRaster::drawImage(const DeviceState& state, const ImageTransfer& transfer) {
  const CRect& clip = clipOf(state);
  if (clip.IsRectEmpty()) return true;
  touch(clip, transfer.to);
  return copyImage(*m_pixels, clip, transfer);
}

}  // namespace qdr
