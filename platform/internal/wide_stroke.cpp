#include "platform/internal/wide_stroke.h"

#include <algorithm>
#include <cmath>

#include "platform/internal/dash_cursor.h"
#include "platform/internal/ellipse_rows.h"
#include "platform/internal/rounding.h"
#include "platform/internal/span_painter.h"
#include "platform/internal/visible_part.h"

namespace qdr {

namespace {

// The corner of a square cap, in half widths, and a little more.
constexpr double kCornerReach = 1.5;

struct Vector {
  double x = 0;
  double y = 0;
};

// A side of a convex area as x over y, between the rows it spans.
struct Slope {
  double low;
  double high;
  double x;
  double y;
  double perRow;

  Slope(const StrokePoint& a, const StrokePoint& b)
      : low(std::min(a.y, b.y)),
        high(std::max(a.y, b.y)),
        x(a.x),
        y(a.y),
        perRow(a.y == b.y ? 0 : (b.x - a.x) / (b.y - a.y)) {}

  bool crosses(double row) const { return low <= row && row < high; }
  double at(double row) const { return x + (row - y) * perRow; }
};

// A convex area of four corners, two of which may coincide; a pixel is in when its centre is, left
// and upper edges in, the others out.
void fillConvex(const StrokePoint (&corners)[4], SpanPainter& painter) {
  const Slope slopes[] = {{corners[0], corners[1]},
                          {corners[1], corners[2]},
                          {corners[2], corners[3]},
                          {corners[3], corners[0]}};
  const double low = std::min({slopes[0].low, slopes[1].low, slopes[2].low, slopes[3].low});
  const double high = std::max({slopes[0].high, slopes[1].high, slopes[2].high, slopes[3].high});
  const std::int64_t first = std::max<std::int64_t>(painter.clip().top, ceilToInt(low));
  const std::int64_t end = std::min<std::int64_t>(painter.clip().bottom, ceilToInt(high));
  for (std::int64_t row = first; row < end; ++row) {
    const auto y = static_cast<double>(row);
    double left = HUGE_VAL;
    double right = -HUGE_VAL;
    for (const Slope& slope : slopes) {
      if (!slope.crosses(y)) continue;
      const double x = slope.at(y);
      left = std::min(left, x);
      right = std::max(right, x);
    }
    if (left <= right) painter.span(ceilToInt(left), ceilToInt(right) - 1, row);
  }
}

// The shape of one undashed stroke as overlapping pieces.
class WideStroker {
 public:
  WideStroker(SpanPainter& painter, int style, double width)
      : m_painter(painter),
        m_cap(style & PS_ENDCAP_MASK),
        m_join(style & PS_JOIN_MASK),
        m_half(width / 2),
        m_reach(m_half * (m_join == PS_JOIN_MITER ? kMiterLimit : kCornerReach)) {}

  /// How far a stroke may reach from its points.
  double reach() const { return m_reach; }

  void stroke(const std::vector<StrokePoint>& points, bool closed) {
    const bool isDot =
        points.size() == 2 && points[0].x == points[1].x && points[0].y == points[1].y;
    if (points.size() == 1 || isDot) return dot(points[0]);
    const std::size_t count = points.size();
    const std::size_t segments = closed ? count : count - 1;
    for (std::size_t i = 0; i < segments; ++i)
      segment(points[i], points[(i + 1) % count], !closed && i == 0, !closed && i + 1 == segments);
    for (std::size_t i = closed ? 0 : 1; i < segments; ++i)
      join(points[(i + count - 1) % count], points[i], points[(i + 1) % count]);
  }

 private:
  void dot(StrokePoint at) {
    if (m_cap == PS_ENDCAP_ROUND) return disc(at);
    if (m_cap != PS_ENDCAP_SQUARE) return;
    const StrokePoint box[] = {{at.x - m_half, at.y - m_half},
                               {at.x + m_half, at.y - m_half},
                               {at.x + m_half, at.y + m_half},
                               {at.x - m_half, at.y + m_half}};
    fillConvex(box, m_painter);
  }

  void disc(StrokePoint at) { fillEllipse(EllipseRows(at.x, at.y, m_half, m_half), m_painter); }

  bool misses(StrokePoint a, StrokePoint b) const {
    const CRect& clip = m_painter.clip();
    return std::max(a.x, b.x) + m_reach < clip.left || std::min(a.x, b.x) - m_reach > clip.right ||
           std::max(a.y, b.y) + m_reach < clip.top || std::min(a.y, b.y) - m_reach > clip.bottom;
  }

  // Half the width times the unit normal to the left of the way from a to b; 0 for no way.
  Vector sideways(StrokePoint a, StrokePoint b) const {
    const double length = std::hypot(b.x - a.x, b.y - a.y);
    if (!(length > 0)) return {};
    return {(b.y - a.y) / length * m_half, (a.x - b.x) / length * m_half};
  }

  // Whether a segment with its caps ends before the clip begins, or begins behind it. Dashes far
  // broader than long pass the box of the clip by thousands.
  bool missesAlong(StrokePoint a, StrokePoint b) const {
    const CRect& clip = m_painter.clip();
    const double dx = b.x - a.x;
    const double dy = b.y - a.y;
    const double nearest =
        (dx > 0 ? clip.left : clip.right) * dx + (dy > 0 ? clip.top : clip.bottom) * dy;
    const double farthest =
        (dx > 0 ? clip.right : clip.left) * dx + (dy > 0 ? clip.bottom : clip.top) * dy;
    const double slack = (m_cap == PS_ENDCAP_FLAT ? 1 : m_reach) * std::hypot(dx, dy);
    return farthest < a.x * dx + a.y * dy - slack || nearest > b.x * dx + b.y * dy + slack;
  }

  void segment(StrokePoint a, StrokePoint b, bool isStart, bool isEnd) {
    if (misses(a, b) || missesAlong(a, b)) return;
    const Vector side = sideways(a, b);
    if (m_cap == PS_ENDCAP_SQUARE) {
      if (isStart) a = {a.x + side.y, a.y - side.x};
      if (isEnd) b = {b.x - side.y, b.y + side.x};
    }
    const StrokePoint box[] = {{a.x + side.x, a.y + side.y},
                               {b.x + side.x, b.y + side.y},
                               {b.x - side.x, b.y - side.y},
                               {a.x - side.x, a.y - side.y}};
    fillConvex(box, m_painter);
    if (m_cap != PS_ENDCAP_ROUND) return;
    if (isStart) disc(a);
    if (isEnd) disc(b);
  }

  void join(StrokePoint before, StrokePoint at, StrokePoint after) {
    if (misses(at, at)) return;
    if (m_join == PS_JOIN_ROUND) return disc(at);
    Vector in = sideways(before, at);
    Vector out = sideways(at, after);
    const double turn = in.x * out.y - in.y * out.x;
    if (turn < 0) {
      in = {-in.x, -in.y};
      out = {-out.x, -out.y};
    }
    const StrokePoint inner{at.x + in.x, at.y + in.y};
    const StrokePoint outer{at.x + out.x, at.y + out.y};
    const Vector sum{in.x + out.x, in.y + out.y};
    const double square = sum.x * sum.x + sum.y * sum.y;
    // The tip lies at at + sum * 2 half^2 / |sum|^2; its distance over the half width is the ratio.
    const double ratio = square > 0 ? 2 * m_half / std::sqrt(square) : HUGE_VAL;
    if (m_join == PS_JOIN_MITER && ratio <= kMiterLimit) {
      const double stretch = 2 * m_half * m_half / square;
      const StrokePoint tip{at.x + sum.x * stretch, at.y + sum.y * stretch};
      const StrokePoint corner[] = {at, inner, tip, outer};
      fillConvex(corner, m_painter);
    } else {
      const StrokePoint corner[] = {at, inner, outer, at};
      fillConvex(corner, m_painter);
    }
  }

  SpanPainter& m_painter;
  int m_cap;
  int m_join;
  double m_half;
  double m_reach;
};

// Cuts a path into the dashes that can be seen, each a stroke that may run over vertices.
class WideDasher {
 public:
  WideDasher(WideStroker& stroker, const DeviceStroke& stroke, const DashPattern& dashes,
             const CRect& clip)
      : m_stroker(stroker), m_stroke(stroke), m_cursor(dashes) {
    const double reach = stroker.reach() + 2;
    m_reach = {clip.left - reach, clip.top - reach, clip.right + reach, clip.bottom + reach};
  }

  void path(const std::vector<StrokePoint>& points, const WidePath& walk) {
    m_cursor.advance(walk.phase);
    m_unitsPerSegment = walk.unitsPerSegment;
    const std::size_t count = points.size();
    const std::size_t segments = walk.closed ? count : count - 1;
    for (std::size_t i = 0; i < segments; ++i)
      segment(points[i], points[(i + 1) % count]);
    emit();
  }

 private:
  void segment(StrokePoint a, StrokePoint b) {
    const double units = m_unitsPerSegment > 0 ? m_unitsPerSegment
                                               : std::hypot((b.x - a.x) * m_stroke.unitsPerPixelX,
                                                            (b.y - a.y) * m_stroke.unitsPerPixelY);
    if (!(units > 0)) return;
    const VisiblePart seen = visiblePart(a.x, a.y, b.x, b.y, m_reach);
    if (seen.isEmpty()) {
      emit();
      m_cursor.advance(units);
      return;
    }
    const auto at = [&](double reached) {
      const double part = reached / units;
      return StrokePoint{a.x + (b.x - a.x) * part, a.y + (b.y - a.y) * part};
    };
    if (seen.first > 0) {
      emit();
      m_cursor.advance(units * seen.first);
    }
    double reached = units * seen.first;
    const double end = units * seen.last;
    if (m_cursor.isOn() && m_piece.empty()) m_piece.push_back(at(reached));
    while (reached + m_cursor.left() < end) {
      reached += m_cursor.left();
      const bool wasOn = m_cursor.isOn();
      m_cursor.next();
      m_piece.push_back(at(reached));
      if (wasOn) emit();
    }
    m_cursor.advance(end - reached);
    if (!m_piece.empty()) m_piece.push_back(at(end));
    if (seen.last < 1) {
      emit();
      m_cursor.advance(units - end);
    }
  }

  void emit() {
    if (!m_piece.empty()) m_stroker.stroke(m_piece, false);
    m_piece.clear();
  }

  WideStroker& m_stroker;
  const DeviceStroke& m_stroke;
  DashCursor m_cursor;
  ReachBox m_reach;
  double m_unitsPerSegment = 0;
  std::vector<StrokePoint> m_piece;
};

// Without points that repeat the one before: they have no direction.
std::vector<StrokePoint> distinctPoints(const WidePath& path, double shift) {
  std::vector<StrokePoint> points;
  points.reserve(path.count);
  for (std::size_t i = 0; i < path.count; ++i) {
    const StrokePoint point{path.points[i].x + shift, path.points[i].y + shift};
    if (points.empty() || point.x != points.back().x || point.y != points.back().y)
      points.push_back(point);
  }
  if (path.closed && points.size() > 1 && points.front().x == points.back().x &&
      points.front().y == points.back().y)
    points.pop_back();
  return points;
}

// Whether the caps of the dashes beside it close a gap: between round ones of width w a gap g
// leaves a bite g^2 / 4 w deep, which must show by half a pixel.
bool closesGap(const DeviceStroke& stroke, double width, double gap) {
  if ((stroke.style & PS_ENDCAP_MASK) == PS_ENDCAP_FLAT) return false;
  const double pixels = gap / std::max(stroke.unitsPerPixelX, stroke.unitsPerPixelY);
  return pixels * pixels < 2 * width;
}

// The pattern as it shows: dashes whose gap is closed become one, and where no gap is left the
// pattern is solid. This and a limit to the width bound the number of dashes that are stroked.
// The last gap stands as it is unless all are closed.
DashPattern shownDashes(const DeviceStroke& stroke, double width) {
  constexpr double kWidestDashed = 16384;
  const std::vector<double>& lengths = stroke.dashes.lengths;
  DashPattern shown;
  if (width > kWidestDashed) return shown;
  const double coarsest = std::max(stroke.unitsPerPixelX, stroke.unitsPerPixelY);
  if (stroke.dashes.isSolid() || isTooFine(stroke.dashes, coarsest)) return shown;
  bool hasGap = false;
  double dash = 0;
  for (std::size_t i = 0; i + 1 < lengths.size(); i += 2) {
    dash += lengths[i];
    const bool isClosed = closesGap(stroke, width, lengths[i + 1]);
    hasGap = hasGap || !isClosed;
    if (isClosed && i + 2 < lengths.size()) {
      dash += lengths[i + 1];
    } else {
      shown.lengths.push_back(dash);
      shown.lengths.push_back(lengths[i + 1]);
      dash = 0;
    }
  }
  shown.period = hasGap ? stroke.dashes.period : 0;
  return shown;
}

}  // namespace

void strokeWidePath(const RasterCall& call, const DeviceStroke& stroke, PixelOp op,
                    const WidePath& path) {
  if (path.count == 0) return;
  const double width = pixelWidth(stroke);
  // A pen of an even width has no middle pixel: its centre line runs between two.
  const double shift = std::fmod(width, 2.0) == 0 ? -0.5 : 0.0;
  const std::vector<StrokePoint> points = distinctPoints(path, shift);
  SpanPainter painter(call.pixels, call.clip, op, call.mask);
  WideStroker stroker(painter, stroke.style, width);
  const DashPattern dashes = shownDashes(stroke, width);
  if (points.size() < 2 || dashes.isSolid()) {
    stroker.stroke(points, path.closed && points.size() > 2);
  } else {
    WideDasher(stroker, stroke, dashes, call.clip).path(points, path);
  }
}

}  // namespace qdr
