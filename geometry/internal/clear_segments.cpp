#include "geometry/internal/clear_segments.h"

#include "geometry/circ_arc2d.h"
#include "geometry/line2d.h"

namespace qdr {

namespace {

/// Arcs of more than this bulge may count as whole circles, far from their chord. The least arcs
/// turn through more than the largest tolerance, and never do.
constexpr double kWholeCircleBulge = 1000.0;

double sizeOf(const Vec& v) {
  return std::abs(v.x) + std::abs(v.y);
}

}  // namespace

ClearOfLine::ClearOfLine(const CQdrGeLine2d& line, double tol)
    : m_origin(toVec(line.startPoint())), m_touch(std::sqrt(tol)) {
  const Vec end = toVec(line.endPoint());
  m_along = (end - m_origin).normal(0.0);
  m_margin = tol + kCertainMargin + kCrossingRatio * (sizeOf(m_origin) + sizeOf(end));
}

/// Whether the arc over a chord that has both ends on one side of a line, no nearer than
/// `clearance`, certainly stays on that side. A place that counts as on the arc is no farther from
/// the chord than the height of the arc, with what the angles allow beyond its ends.
bool ClearOfLine::staysBeside(const Vec& chord, double bulge, double clearance) {
  const double size = std::abs(bulge);
  if (!(size < kWholeCircleBulge)) return false;
  // The height is half the chord times the bulge, the radius (1 + b^2) / (4 b) chords; the sum of
  // the sides stands for the chord, which spares a root, and the bulge is multiplied through.
  const double reach = size * size / 2.0 + kAngleTolerance * (1.0 + size * size) / 2.0;
  return clearance * size > sizeOf(chord) * reach;
}

/// The ends of touching arcs may be apart, and circles that miss each other within the tolerance
/// are given crossings off both, by at most the root of twice the radius times the tolerance: the
/// margin takes one part of that bound and what grows with the chord the other.
ClearOfCircle::ClearOfCircle(const CQdrGeCircArc2d& arc, double tol)
    : m_center(toVec(arc.center())), m_radius(std::abs(arc.radius())) {
  constexpr double kFlatRadius = 250.0;  // in chords
  m_margin = tol + std::sqrt(tol) + 2.0 * kFlatRadius * tol + 2.0 * kTouchTolerance +
             kCertainMargin + kCrossingRatio * (sizeOf(m_center) + m_radius);
}

}  // namespace qdr
