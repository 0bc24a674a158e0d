#include "geometry/spline_curve.h"

#include <algorithm>
#include <cmath>

#include "platform/points.h"

namespace {

constexpr double kDefaultStep = 0.5;
constexpr double kMaxSegments = 1e6;

}  // namespace

CSplineCurve::CSplineCurve(double step) : m_step(step > 0.0 ? step : kDefaultStep) {}

int CSplineCurve::reachOf(const CQdrGeVector2d& chord) {
  return qdr::truncToInt(std::max(std::abs(chord.x), std::abs(chord.y)));
}

void CSplineCurve::set(const CQdrGeVector2d& chord, const CQdrGeVector2d& startTangent,
                       const CQdrGeVector2d& endTangent) {
  m_cx = chord.x;
  m_cy = chord.y;
  m_ax = startTangent.x;
  m_ay = startTangent.y;
  m_bx = endTangent.x;
  m_by = endTangent.y;
  m_segments = qdr::truncToInt(std::clamp(reachOf(chord) / m_step, 1.0, kMaxSegments));
}

CQdrGeVector2d CSplineCurve::displacementAt(double t) const {
  const double h = t * t * (3.0 - 2.0 * t);
  const double k0 = (t - 1.0) * t * (t - 1.0);
  const double k1 = t * t * (t - 1.0);
  return {m_cx * h + m_ax * k0 + m_bx * k1, m_cy * h + m_ay * k0 + m_by * k1};
}

void CSplineCurve::appendSamples(const CQdrGePoint2d& start, bool isContinuation,
                                 std::vector<CQdrGePoint2d>& points) const {
  if (!isContinuation) points.push_back(start);
  for (int i = 1; i <= m_segments; ++i) {
    points.push_back(start + displacementAt(static_cast<double>(i) / m_segments));
  }
}
