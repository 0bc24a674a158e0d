// The ellipse's own mathematics: polar angle and eccentric parameter, the chain of arcs that stands
// for it, and its points on screen.

#include <algorithm>
#include <cmath>

#include "geometry/angle.h"
#include "geometry/circ_arc2d.h"
#include "geometry/ellip_arc2d.h"

namespace {

constexpr double kMaxScreenPoints = 1e6;

// Points of an ellipse by eccentric parameter, in the drawing plane.
class EllipsePoints {
 public:
  EllipsePoints(const CQdrGePoint2d& center, double direction, double majorRadius,
                double minorRadius)
      : m_center(center.asVector()),
        m_turn(CQdrGeMatrix2d::rotation(direction, CQdrGePoint2d::kOrigin)),
        m_majorRadius(majorRadius),
        m_minorRadius(minorRadius) {}

  CQdrGePoint2d at(double u) const {
    return toWorld({m_majorRadius * std::cos(u), m_minorRadius * std::sin(u)});
  }

  CQdrGePoint2d toWorld(CQdrGePoint2d framePoint) const {
    // As CQdrGePoint2d::rotateBy: what equals the center of a turn does not turn.
    if (!(framePoint == CQdrGePoint2d::kOrigin)) framePoint.transformBy(m_turn);
    return framePoint + m_center;
  }

 private:
  CQdrGeVector2d m_center;
  CQdrGeMatrix2d m_turn;
  double m_majorRadius;
  double m_minorRadius;
};

// Eccentric parameter of a point of the ellipse in its frame: in (0, pi) above the major axis, else
// in [pi, 2 pi]. NaN for a point farther along the axis than the radius.
double eccentricAt(const CQdrGePoint2d& framePoint, double majorRadius) {
  const double u = std::acos(framePoint.x / majorRadius);
  return qdr::withTurnIfNegative(framePoint.y > 0.0 ? u : qdr::kTwoPi - u);
}

// Most steps a walk over the parameters may take; 0 for a sweep that is no number.
int stepLimit(double sweep, int steps, double most) {
  const double turns = std::ceil(sweep / qdr::kTwoPi);
  const double limit = std::min(steps * turns + 2.0, most);
  return limit >= 0.0 ? static_cast<int>(limit) : 0;
}

CPoint screenPoint(const CQdrGePoint2d& p, double scale) {
  return {qdr::truncToInt(p.x * scale), qdr::truncToInt(p.y * scale)};
}

}  // namespace

// The quadrant of the angle picks the branch of the arc tangent. An angle on an axis passes only
// some of the sign tests; the value that then stands is the right one there.
double CQdrGeEllipArc2d::eccentricOf(double polar) const {
  const double tangent = std::tan(polar);
  const bool isRight = std::cos(polar) > 0.0;
  const bool isLeft = std::cos(polar) < 0.0;
  const bool isAbove = std::sin(polar) > 0.0;
  const bool isBelow = std::sin(polar) < 0.0;
  const double u = std::atan(tangent * m_majorRadius / m_minorRadius);
  if (isLeft && ((isAbove && tangent < 0.0) || (isBelow && tangent > 0.0))) return u + qdr::kPi;
  if (isRight && isBelow && tangent < 0.0) return u + qdr::kTwoPi;
  return u;
}

CQdrGePoint2d CQdrGeEllipArc2d::pointAtAngle(double angle, int world, double /*tol*/) const {
  if (angle < 0.0) {
    angle += qdr::kTwoPi;
  } else if (angle > qdr::kTwoPi) {
    angle -= qdr::kTwoPi;
  }
  const double u = eccentricOf(angle);
  const CQdrGePoint2d p(m_majorRadius * std::cos(u), m_minorRadius * std::sin(u));
  if (!world) return p;
  return EllipsePoints(m_center, m_majorAxis.angle(), m_majorRadius, m_minorRadius).toWorld(p);
}

double CQdrGeEllipArc2d::angleAtPoint(const CQdrGePoint2d& point, int world, double tol) const {
  const double polar = (world ? inFrame(point) : point).asVector().angle();
  for (int quarter = 0; quarter <= 4; ++quarter) {
    if (std::abs(polar - quarter * qdr::kHalfPi) <= tol) return polar;
  }
  return eccentricOf(polar);
}

CQdrGePoint2d CQdrGeEllipArc2d::inFrame(const CQdrGePoint2d& worldPoint) const {
  CQdrGePoint2d p = worldPoint - m_center.asVector();
  return p.rotateBy(-m_majorAxis.angle(), CQdrGePoint2d::kOrigin);
}

double CQdrGeEllipArc2d::startEllAng() const {
  return angleAtPoint(startPoint(), 0, qdr::kCurveTolerance);
}

double CQdrGeEllipArc2d::endEllAng() const {
  return angleAtPoint(endPoint(), 0, qdr::kCurveTolerance);
}

CQdrGePoint2d CQdrGeEllipArc2d::startPoint() const {
  return pointAtAngle(m_startAng, 0, qdr::kCurveTolerance);
}

CQdrGePoint2d CQdrGeEllipArc2d::endPoint() const {
  return pointAtAngle(m_endAng, 0, qdr::kCurveTolerance);
}

CQdrGeEllipArc2d::Sweep CQdrGeEllipArc2d::eccentricSweep(double wholeStart, double wholeEnd) const {
  const CQdrGePoint2d start = startPoint();
  const CQdrGePoint2d end = endPoint();
  Sweep sweep{wholeStart, wholeEnd};
  if (!(start.distanceTo(end) < qdr::kEllipseEndTolerance)) {
    sweep = {eccentricAt(start, m_majorRadius), eccentricAt(end, m_majorRadius)};
  }
  if (sweep.to < sweep.from) sweep.from -= qdr::kTwoPi;
  return sweep;
}

bool CQdrGeEllipArc2d::setGePolyline(int steps) {
  const EllipsePoints points(m_center, m_majorAxis.angle(), m_majorRadius, m_minorRadius);
  const Sweep sweep = eccentricSweep(m_startAng, m_endAng);
  const double step = qdr::kTwoPi / steps;
  m_chainSteps = steps;
  // Two turns at the most, whatever the angles: an arc takes two steps.
  int arcsLeft = steps < 1 ? 0 : stepLimit(sweep.to - sweep.from, steps, steps + 2.0);
  m_polyline.setSize(arcsLeft / 2 + 1);

  CQdrGePoint2d arcStart = points.at(sweep.from);
  double u = sweep.from;
  for (; u < sweep.to && arcsLeft > 0; --arcsLeft) {
    u += step;
    if (u > sweep.to) break;
    const CQdrGePoint2d middle = points.at(u);
    u += step;
    if (u > sweep.to) break;
    const CQdrGePoint2d arcEnd = points.at(u);
    CQdrGeCircArc2d arc;
    m_polyline.appendVertex(arcStart, arc.set(arcStart, middle, arcEnd).bulge(), -1.0, -1.0);
    arcStart = arcEnd;
  }
  // The end closes the last arc that fitted in full: where two steps no longer fit, that arc's
  // bulge serves the longer way from its start to the end.
  m_polyline.appendVertex(points.toWorld(endPoint()), 0.0, -1.0, -1.0);
  return true;
}

void CQdrGeEllipArc2d::getGrVertexArray(std::vector<CPoint>& points, int n, double scale) const {
  points.clear();
  const EllipsePoints outline(m_center, m_majorAxis.angle(), m_majorRadius, m_minorRadius);
  const int steps = std::clamp(n, 1, static_cast<int>(kMaxScreenPoints));
  const double step = qdr::kTwoPi / steps;
  points.reserve(static_cast<std::size_t>(steps) + 1);
  for (int i = 0; i <= steps; ++i)
    points.push_back(screenPoint(outline.at(i * step), scale));
}

void CQdrGeEllipArc2d::getGrVertexArray_Arc(std::vector<CPoint>& points, int n,
                                            double scale) const {
  points.clear();
  const EllipsePoints outline(m_center, m_majorAxis.angle(), m_majorAxis.length(),
                              m_minorAxis.length());
  const Sweep sweep = eccentricSweep(startEllAng(), endEllAng());
  if (n < 1) {
    points = {screenPoint(outline.at(sweep.from), scale), screenPoint(outline.at(sweep.to), scale)};
    return;
  }
  const double step = qdr::kTwoPi / n;
  int stepsLeft = stepLimit(sweep.to - sweep.from, n, kMaxScreenPoints - 1.0);
  double u = sweep.from;
  for (; u < sweep.to && u + step > u && stepsLeft > 0; --stepsLeft) {
    points.push_back(screenPoint(outline.at(u), scale));
    u += step;
  }
  points.push_back(screenPoint(outline.at(sweep.to), scale));
}
