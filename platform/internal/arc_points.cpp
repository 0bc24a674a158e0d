#include "platform/internal/arc_points.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace qdr {

namespace {

constexpr double kChordError = 0.125;
constexpr double kFullTurn = 2 * std::numbers::pi;
constexpr double kMaxChords = 1 << 16;

// Angles at which cosine (or sine, after a shift) of the ellipse crosses a side of the box.
void addCrossings(double side, double center, double radius, double shift,
                  std::vector<double>& angles) {
  const double cosine = (side - center) / radius;
  if (!(std::fabs(cosine) <= 1)) return;
  const double angle = std::acos(cosine);
  angles.push_back(shift + angle);
  angles.push_back(shift - angle);
}

// Ends of the intervals between which the arc does not cross the box, as angles walked.
std::vector<double> intervalEnds(const DeviceArc& arc, const CRect& reach) {
  std::vector<double> crossings;
  const double quarter = std::numbers::pi / 2;
  addCrossings(reach.left, arc.centerX, arc.radiusX, 0, crossings);
  addCrossings(reach.right, arc.centerX, arc.radiusX, 0, crossings);
  addCrossings(reach.top, arc.centerY, arc.radiusY, quarter, crossings);
  addCrossings(reach.bottom, arc.centerY, arc.radiusY, quarter, crossings);
  const double sign = arc.sweepAngle < 0 ? -1 : 1;
  const double sweep = std::min(std::fabs(arc.sweepAngle), kFullTurn);
  std::vector<double> ends{0, sweep};
  for (const double angle : crossings) {
    double walked = std::fmod((angle - arc.startAngle) * sign, kFullTurn);
    if (walked < 0) walked += kFullTurn;
    if (walked < sweep) ends.push_back(walked);
  }
  std::sort(ends.begin(), ends.end());
  return ends;
}

// Chords all end on one division of the whole sweep, so that what is seen does not depend on where
// it is cut.
ArcPiece chords(const DeviceArc& arc, double sweep, double from, double to) {
  const double radius = std::max({std::fabs(arc.radiusX), std::fabs(arc.radiusY), 1.0});
  const double chordCount = std::max(1.0, std::ceil(sweep / std::sqrt(8 * kChordError / radius)));
  const double step = sweep / chordCount;
  const double first = std::floor(from / step);
  const double last = std::min({std::ceil(to / step), chordCount, first + kMaxChords});
  const double sign = arc.sweepAngle < 0 ? -1 : 1;
  ArcPiece piece;
  piece.angleBefore = first * step;
  piece.sweep = (last - first) * step;
  piece.points.reserve(static_cast<std::size_t>(last - first) + 1);
  for (double i = first; i <= last; ++i)
    piece.points.push_back(pointOfArc(arc, arc.startAngle + sign * i * step));
  return piece;
}

bool holds(const CRect& reach, const ArcPiece::Point& point) {
  return point.x >= reach.left && point.x <= reach.right && point.y >= reach.top &&
         point.y <= reach.bottom;
}

bool liesWithin(const DeviceArc& arc, const CRect& reach) {
  const double width = std::fabs(arc.radiusX);
  const double height = std::fabs(arc.radiusY);
  return arc.centerX - width >= reach.left && arc.centerX + width <= reach.right &&
         arc.centerY - height >= reach.top && arc.centerY + height <= reach.bottom;
}

}  // namespace

ArcPiece::Point pointOfArc(const DeviceArc& arc, double angle) {
  return {arc.centerX + arc.radiusX * std::cos(angle), arc.centerY + arc.radiusY * std::sin(angle)};
}

CPoint devicePointOfArc(const DeviceArc& arc, double angle) {
  const ArcPiece::Point point = pointOfArc(arc, angle);
  return {truncToInt(std::round(point.x)), truncToInt(std::round(point.y))};
}

std::vector<ArcPiece> visibleArc(const DeviceArc& arc, const CRect& reach) {
  std::vector<ArcPiece> pieces;
  const double sweep = std::min(std::fabs(arc.sweepAngle), kFullTurn);
  if (!(sweep > 0)) return {{.points = {pointOfArc(arc, arc.startAngle)}}};
  if (liesWithin(arc, reach)) return {chords(arc, sweep, 0, sweep)};
  const double sign = arc.sweepAngle < 0 ? -1 : 1;
  const std::vector<double> ends = intervalEnds(arc, reach);
  for (std::size_t i = 1; i < ends.size(); ++i) {
    const double middle = (ends[i - 1] + ends[i]) / 2;
    if (ends[i - 1] < ends[i] && holds(reach, pointOfArc(arc, arc.startAngle + sign * middle)))
      pieces.push_back(chords(arc, sweep, ends[i - 1], ends[i]));
  }
  return pieces;
}

}  // namespace qdr
