#include "platform/internal/path_clip.h"

#include <algorithm>
#include <cmath>

#include "platform/internal/dash_cursor.h"

namespace qdr {

namespace {

using Kind = PathStep::Kind;

// One side of the box: the points where scale * coordinate <= limit stay.
struct Side {
  bool alongX;
  double scale;
  double limit;

  double excess(const PathStep& point) const {
    return (alongX ? point.x : point.y) * scale - limit;
  }
};

// One pass after Sutherland and Hodgman, "Reentrant polygon clipping", 1974.
std::vector<PathStep> cutBySide(const std::vector<PathStep>& points, const Side& side) {
  std::vector<PathStep> kept;
  kept.reserve(points.size() + 4);
  for (std::size_t i = 0; i < points.size(); ++i) {
    const PathStep& a = points[i];
    const PathStep& b = points[i + 1 == points.size() ? 0 : i + 1];
    const double before = side.excess(a);
    const double after = side.excess(b);
    if (before <= 0) kept.push_back(a);
    if ((before <= 0) != (after <= 0)) {
      const double part = before / (before - after);
      kept.push_back({Kind::line, a.x + (b.x - a.x) * part, a.y + (b.y - a.y) * part});
    }
  }
  return kept;
}

}  // namespace

VectorPath clippedToBox(const VectorPath& contour, const CRect& box) {
  const Side sides[] = {{true, -1, -static_cast<double>(box.left)},
                        {true, 1, static_cast<double>(box.right)},
                        {false, -1, -static_cast<double>(box.top)},
                        {false, 1, static_cast<double>(box.bottom)}};
  std::vector<PathStep> points;
  for (const PathStep& step : contour)
    if (step.kind != Kind::close) points.push_back(step);
  bool cut = false;
  for (const Side& side : sides) {
    const auto isBeyond = [&side](const PathStep& point) { return side.excess(point) > 0; };
    if (std::none_of(points.begin(), points.end(), isBeyond)) continue;
    points = cutBySide(points, side);
    cut = true;
  }
  if (!cut) return contour;
  if (points.size() < 3) return {};
  for (PathStep& point : points)
    point.kind = Kind::line;
  points.front().kind = Kind::move;
  points.push_back({Kind::close});
  return points;
}

namespace {

// Where a hatch line enters (+1) or leaves (-1) the winding of an edge.
struct Crossing {
  double at;
  int winding;
};

// A family of parallel lines: u runs along them, v across.
struct Direction {
  double cosine;
  double sine;

  double u(const PathStep& p) const { return p.x * cosine + p.y * sine; }
  double v(const PathStep& p) const { return p.y * cosine - p.x * sine; }
  PathStep point(Kind kind, double along, double across) const {
    return {kind, along * cosine - across * sine, along * sine + across * cosine};
  }
};

struct Edge {
  double u1, v1, u2, v2;
};

std::vector<Edge> edgesAlong(const VectorPath& contours, const Direction& direction) {
  std::vector<Edge> edges;
  PathStep start;
  PathStep last;
  const auto add = [&](const PathStep& a, const PathStep& b) {
    const Edge edge{direction.u(a), direction.v(a), direction.u(b), direction.v(b)};
    if (edge.v1 != edge.v2) edges.push_back(edge);
  };
  for (const PathStep& step : contours) {
    if (step.kind == Kind::move) start = step;
    if (step.kind == Kind::line) add(last, step);
    if (step.kind == Kind::close) add(last, start);
    last = step.kind == Kind::close ? start : step;
  }
  return edges;
}

void appendHatchLine(std::vector<Crossing>& crossings, const Direction& direction, double v,
                     int fillMode, VectorPath& lines) {
  std::sort(crossings.begin(), crossings.end(),
            [](const Crossing& a, const Crossing& b) { return a.at < b.at; });
  const int insideMask = fillMode == WINDING ? ~0 : 1;
  int winding = 0;
  double start = 0;
  for (const Crossing& crossing : crossings) {
    const bool wasInside = winding & insideMask;
    winding += crossing.winding;
    const bool isInside = winding & insideMask;
    if (isInside && !wasInside) start = crossing.at;
    if (wasInside && !isInside) {
      lines.push_back(direction.point(Kind::move, start, v));
      lines.push_back(direction.point(Kind::line, crossing.at, v));
    }
  }
}

void appendFamily(const VectorPath& contours, const Direction& direction, int fillMode,
                  double spacing, VectorPath& lines) {
  const std::vector<Edge> edges = edgesAlong(contours, direction);
  double low = HUGE_VAL;
  double high = -HUGE_VAL;
  for (const Edge& edge : edges) {
    low = std::min({low, edge.v1, edge.v2});
    high = std::max({high, edge.v1, edge.v2});
  }
  std::vector<Crossing> crossings;
  for (double v = std::ceil(low / spacing) * spacing; v < high; v += spacing) {
    crossings.clear();
    for (const Edge& edge : edges) {
      if ((edge.v1 <= v) == (edge.v2 <= v)) continue;
      const double part = (v - edge.v1) / (edge.v2 - edge.v1);
      crossings.push_back({edge.u1 + (edge.u2 - edge.u1) * part, edge.v1 < edge.v2 ? 1 : -1});
    }
    appendHatchLine(crossings, direction, v, fillMode, lines);
  }
}

}  // namespace

VectorPath hatchLines(const VectorPath& contours, int hatch, int fillMode, double spacing) {
  constexpr double kHalfRoot = 0.70710678118654752;
  constexpr Direction kHorizontal{1, 0};
  constexpr Direction kVertical{0, 1};
  constexpr Direction kFalling{kHalfRoot, kHalfRoot};
  constexpr Direction kRising{kHalfRoot, -kHalfRoot};
  VectorPath lines;
  const auto add = [&](const Direction& direction) {
    appendFamily(contours, direction, fillMode, spacing, lines);
  };
  if (hatch == HS_HORIZONTAL || hatch == HS_CROSS) add(kHorizontal);
  if (hatch == HS_VERTICAL || hatch == HS_CROSS) add(kVertical);
  if (hatch == HS_FDIAGONAL || hatch == HS_DIAGCROSS) add(kFalling);
  if (hatch == HS_BDIAGONAL || hatch == HS_DIAGCROSS) add(kRising);
  return lines;
}

namespace {

constexpr int kChordsPerCurve = 32;

// Draws the lengths that are on of one path after another.
class Dasher {
 public:
  explicit Dasher(const DashPattern& pattern) : m_cursor(pattern) {}

  void move(const PathStep& to) {
    m_cursor.restart();
    m_start = m_last = to;
    m_open = false;
  }

  void line(const PathStep& to) {
    const double length = std::hypot(to.x - m_last.x, to.y - m_last.y);
    const PathStep from = m_last;
    const auto at = [&](double reached, Kind kind) {
      const double part = length > 0 ? reached / length : 1;
      return PathStep{kind, from.x + (to.x - from.x) * part, from.y + (to.y - from.y) * part};
    };
    double reached = 0;
    if (m_cursor.isOn()) open(at(reached, Kind::move));
    while (reached + m_cursor.left() < length) {
      reached += m_cursor.left();
      const bool wasOn = m_cursor.isOn();
      m_cursor.next();
      if (wasOn) {
        m_path.push_back(at(reached, Kind::line));
        m_open = false;
      } else {
        open(at(reached, Kind::move));
      }
    }
    m_cursor.advance(length - reached);
    if (m_open) m_path.push_back(at(length, Kind::line));
    m_last = to;
  }

  void curve(const PathStep& c1, const PathStep& c2, const PathStep& to) {
    const PathStep from = m_last;
    for (int i = 1; i <= kChordsPerCurve; ++i) {
      const double t = static_cast<double>(i) / kChordsPerCurve;
      const double s = 1 - t;
      const auto mix = [&](double a, double b, double c, double d) {
        return s * s * s * a + 3 * s * s * t * b + 3 * s * t * t * c + t * t * t * d;
      };
      line({Kind::line, mix(from.x, c1.x, c2.x, to.x), mix(from.y, c1.y, c2.y, to.y)});
    }
  }

  void close() { line(m_start); }

  VectorPath take() { return std::move(m_path); }

 private:
  void open(const PathStep& at) {
    if (!m_open) m_path.push_back(at);
    m_open = true;
  }

  DashCursor m_cursor;
  PathStep m_start;
  PathStep m_last;
  bool m_open = false;
  VectorPath m_path;
};

}  // namespace

VectorPath dashedPath(const VectorPath& path, const std::vector<double>& dashes) {
  DashPattern pattern{dashes, 0};
  for (const double length : dashes)
    pattern.period += length;
  if (pattern.isSolid()) return path;
  Dasher dasher(pattern);
  for (std::size_t i = 0; i < path.size(); ++i) {
    switch (path[i].kind) {
      case Kind::move:
        dasher.move(path[i]);
        break;
      case Kind::line:
        dasher.line(path[i]);
        break;
      case Kind::curve:
        dasher.curve(path[i], path[i + 1], path[i + 2]);
        i += 2;
        break;
      case Kind::close:
        dasher.close();
        break;
    }
  }
  return dasher.take();
}

}  // namespace qdr
