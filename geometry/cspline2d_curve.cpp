// The sampled curve of the cubic spline, and what is made of it.

#include <algorithm>
#include <cmath>

#include "geometry/angle.h"
#include "geometry/circ_arc2d.h"
#include "geometry/cspline2d.h"
#include "geometry/internal/chain_side.h"
#include "geometry/internal/cspline_tangents.h"
#include "geometry/line2d.h"
#include "geometry/spline_curve.h"

namespace {

// 15 degrees: the step of the control points of an appended arc.
constexpr double kArcStep = 0.2617993877991494;

}  // namespace

bool CQdrGeCSpline2d::genCurve() {
  m_isStale = true;
  return sample();
}

int CQdrGeCSpline2d::getCurve(const std::vector<CQdrGePoint2d>*& points) {
  if (!genCurve()) return -1;
  points = &m_curve;
  return static_cast<int>(m_curve.size());
}

void CQdrGeCSpline2d::releaseCurve() const {
  constexpr std::size_t kMostPerPoint = 256;
  if (m_curve.size() / kMostPerPoint <= m_points.size()) return;
  m_isStale = true;
  m_curve = {};
  m_samplesAt = {};
  m_polyline = CQdrGePolyline2d();
}

double CQdrGeCSpline2d::boundedStep() const {
  const double step = CSplineCurve(m_step).step();
  double samples = 0.0;
  for (std::size_t i = 0; i < m_points.size(); ++i) {
    const std::size_t next = i + 1 < m_points.size() ? i + 1 : 0;
    if (next > 0 || isClosed())
      samples += CSplineCurve::reachOf(m_points[next] - m_points[i]) / step;
  }
  return samples > kMaxSamples ? step * (samples / kMaxSamples) : step;
}

// A closed curve with breaks begins at its first break, so that every stretch runs from break to
// break; a closed curve without one is a single stretch that has no ends.
bool CQdrGeCSpline2d::sample() const {
  m_isStale = false;
  m_curve.clear();
  m_samplesAt.assign(m_points.size(), 0);
  const std::size_t n = m_points.size();
  if (n >= 2) {
    const bool isSmoothRing = isClosed() && !hasCtrlOption();
    const std::size_t begin = firstSampled();
    const double step = boundedStep();
    const std::size_t last = isClosed() && !isSmoothRing ? n : n - 1;
    std::vector<CQdrGePoint2d> stretch;
    for (std::size_t k = 0; k <= last; ++k) {
      const std::size_t i = (begin + k) % n;
      stretch.push_back(m_points[i]);
      const bool isBreak = k > 0 && m_options[i] != 0;
      if (k < last && !isBreak) continue;
      sampleStretch(stretch, isSmoothRing, step, begin + k + 1 - stretch.size());
      stretch.assign(1, m_points[i]);
    }
    if (!isClosed()) m_samplesAt.back() = m_curve.size() - 1;
  }
  m_polyline.set(m_curve);
  return !m_curve.empty();
}

void CQdrGeCSpline2d::sampleStretch(const std::vector<CQdrGePoint2d>& points, bool isRing,
                                    double step, std::size_t firstPoint) const {
  const qdr::CubicSpans spans = qdr::cubicSpans(points, isRing);
  CSplineCurve span(step);
  for (std::size_t i = 0; i < spans.chords.size(); ++i) {
    span.set(spans.chords[i], spans.startTangents[i], spans.endTangents[i]);
    m_samplesAt[(firstPoint + i) % m_points.size()] = m_curve.empty() ? 0 : m_curve.size() - 1;
    span.appendSamples(points[i], !m_curve.empty(), m_curve);
  }
}

std::size_t CQdrGeCSpline2d::firstSampled() const {
  return isClosed() && hasCtrlOption() ? static_cast<std::size_t>(getRealControlPtIndex(0)) : 0;
}

const CQdrGePolyline2d& CQdrGeCSpline2d::polyline() const {
  if (m_isStale) sample();
  return m_polyline;
}

bool CQdrGeCSpline2d::getGePolyline(CQdrGePolyline2d& result) const {
  result = polyline();
  return result.numVerts() > 0;
}

int CQdrGeCSpline2d::getVertexControlPtIndex(int vertex) const {
  polyline();
  if (vertex < 0 || vertex >= static_cast<int>(m_curve.size())) return -1;
  const std::size_t sample = static_cast<std::size_t>(vertex);
  std::size_t found = firstSampled();
  // The last sample of a closed curve is its first one again.
  if (isClosed() && sample + 1 == m_curve.size()) return static_cast<int>(found);
  for (std::size_t i = 0; i < m_points.size(); ++i) {
    if (m_samplesAt[i] <= sample && m_samplesAt[i] > m_samplesAt[found]) found = i;
  }
  return static_cast<int>(found);
}

bool CQdrGeCSpline2d::getSubGePolyline(CQdrGePolyline2d& result, int first, int last) const {
  result = CQdrGePolyline2d();
  if (first < 0 || first >= last || last >= numCtrlVerts()) return false;
  polyline();
  const auto at = [this](int i) {
    return m_curve.begin() + static_cast<std::ptrdiff_t>(m_samplesAt[static_cast<std::size_t>(i)]);
  };
  std::vector<CQdrGePoint2d> stretch;
  if (at(first) <= at(last)) {
    stretch.assign(at(first), at(last) + 1);
  } else {
    // A closed curve that begins between the two: on past its end, which is its beginning.
    stretch.assign(at(first), m_curve.end());
    stretch.insert(stretch.end(), m_curve.begin() + 1, at(last) + 1);
  }
  result.set(stretch);
  return true;
}

bool CQdrGeCSpline2d::appendCSpline(const CQdrGeCSpline2d& other, int& where) {
  if (other.closed()) return false;
  return join(other.m_points, other.m_options, where);
}

bool CQdrGeCSpline2d::appendCSpline(const CQdrGeLine2d& line, int& where) {
  return join({line.startPoint(), line.endPoint()}, {0, 0}, where);
}

bool CQdrGeCSpline2d::appendCSpline(const CQdrGeCircArc2d& arc, int& where) {
  const double sweep = qdr::sweepBetween(arc.startAng(), arc.endAng());
  const int steps = qdr::truncToInt(std::min(sweep, qdr::kTwoPi) / kArcStep);
  std::vector<CQdrGePoint2d> points;
  for (int i = 0; i <= steps; ++i) {
    const CQdrGeVector2d out(arc.startAng() + i * kArcStep);
    points.push_back(arc.center() + out * arc.radius());
  }
  // A sweep of whole steps ends in the last sample; the end itself takes its place.
  if (points.size() > 1 && points.back().isEqualTo(arc.endPoint(), qdr::kCoincidentTolerance)) {
    points.pop_back();
  }
  points.push_back(arc.endPoint());
  return join(points, std::vector<unsigned char>(points.size(), 0), where);
}

// Case numbers as CQdrGePolyline2d::appendPolyline gives them.
bool CQdrGeCSpline2d::join(std::vector<CQdrGePoint2d> points, std::vector<unsigned char> options,
                           int& where) {
  if (m_points.empty() || points.size() < 2 || closed()) return false;
  const auto meets = [](const CQdrGePoint2d& a, const CQdrGePoint2d& b) {
    return a.distanceTo(b) < qdr::kSplineJoinTolerance;
  };
  if (meets(points.front(), m_points.back())) {
    where = 1;
  } else if (meets(points.back(), m_points.back())) {
    where = 2;
  } else if (meets(points.back(), m_points.front())) {
    where = 3;
  } else if (meets(points.front(), m_points.front())) {
    where = 4;
  } else {
    return false;
  }
  if (where == 2 || where == 4) {
    std::reverse(points.begin(), points.end());
    std::reverse(options.begin(), options.end());
  }
  const bool isBehind = where <= 2;
  m_points.insert(isBehind ? m_points.end() : m_points.begin(), points.begin() + (isBehind ? 1 : 0),
                  points.end() - (isBehind ? 0 : 1));
  m_options.insert(isBehind ? m_options.end() : m_options.begin(),
                   options.begin() + (isBehind ? 1 : 0), options.end() - (isBehind ? 0 : 1));
  m_isStale = true;
  return true;
}

bool CQdrGeCSpline2d::offset(const CQdrGePoint2d& side, double dist) {
  const double left = qdr::isLeftOfChain(outline(), side) ? 1.0 : -1.0;
  CQdrGePolyline2d moved;
  if (!getOffsetPolyline(moved, left * dist)) return false;

  std::vector<CQdrGePoint2d> points;
  std::vector<unsigned char> options;
  for (std::size_t i = 0; i < m_points.size(); ++i) {
    const CQdrGePoint2d place = moved.closestPointTo(m_points[i], qdr::kCurveTolerance);
    if (!points.empty() && place.isEqualTo(points.back(), qdr::kJoinTolerance)) continue;
    points.push_back(place);
    options.push_back(m_options[i]);
  }
  if (points.size() < 2) return false;
  set(points, options);
  return true;
}

bool CQdrGeCSpline2d::getOffsetPolyline(CQdrGePolyline2d& result, double dist) const {
  CQdrGePolyline2d moved = outline();
  const int segment = qdr::firstStraightSegment(moved);
  if (segment < 0) return false;
  if (!moved.offset(qdr::placeBeside(moved, segment, dist >= 0.0), std::abs(dist))) return false;
  result = moved;
  return true;
}

CQdrGePolyline2d CQdrGeCSpline2d::outline() const {
  CQdrGePolyline2d result = polyline();
  if (isClosed()) result.setClosed(true);
  return result;
}
