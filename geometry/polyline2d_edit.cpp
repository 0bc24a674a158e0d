// Edits that keep the chain consistent: closing, reversing, turning the start, joining.

#include <algorithm>
#include <cmath>

#include "geometry/circ_arc2d.h"
#include "geometry/internal/bulge.h"
#include "geometry/line2d.h"
#include "geometry/polyline2d.h"
#include "geometry/tolerance.h"
#include "geometry/vec.h"

using namespace qdr;

namespace {

/// Bulge of the segment from the last vertex to the first that continues the last arc tangentially.
double closingBulge(const std::vector<CQdrGePoint2d>& points, double lastBulge) {
  const std::size_t last = points.size() - 1;
  const Vec before = toVec(points[last - 1]);
  const Vec from = toVec(points[last]);
  return tangentBulge(from, arrivalTangent(from - before, lastBulge), toVec(points.front()));
}

/// Reverses values that belong to segments: the one of the closing segment stays last.
template <class T>
void reverseSegmentValues(std::vector<T>& values) {
  if (values.size() > 1) std::reverse(values.begin(), values.end() - 1);
}

template <class T>
void appendTail(std::vector<T>& values, const std::vector<T>& tail) {
  values.insert(values.end(), tail.begin() + 1, tail.end());
}

template <class T>
void prependHead(std::vector<T>& values, const std::vector<T>& head) {
  values.insert(values.begin(), head.begin(), head.end() - 1);
}

template <class T>
void rotateTo(std::vector<T>& values, int i) {
  std::rotate(values.begin(), values.begin() + i, values.end());
}

/// Which ends of two chains meet, as `where` of appendPolyline; 0 when none do.
int meetingEnds(const std::vector<CQdrGePoint2d>& chain, const std::vector<CQdrGePoint2d>& other) {
  const auto meet = [](const CQdrGePoint2d& a, const CQdrGePoint2d& b) {
    return a.distanceTo(b) < kJoinTolerance;
  };
  if (meet(chain.back(), other.front())) return 1;
  if (meet(chain.back(), other.back())) return 2;
  if (meet(chain.front(), other.back())) return 3;
  if (meet(chain.front(), other.front())) return 4;
  return 0;
}

}  // namespace

void CQdrGePolyline2d::setClosed(bool closed) {
  if (m_points.size() < 2) return;
  m_closed = closed;
  if (!closed) return;
  const double lastBulge = m_bulges[m_bulges.size() - 2];
  if (std::abs(lastBulge) > kClosingBulgeTolerance)
    m_bulges.back() = closingBulge(m_points, lastBulge);
}

void CQdrGePolyline2d::reverse() {
  std::reverse(m_points.begin(), m_points.end());
  reverseSegmentValues(m_bulges);
  reverseSegmentValues(m_startWidths);
  reverseSegmentValues(m_endWidths);
  std::swap(m_startWidths, m_endWidths);
  for (double& bulge : m_bulges)
    bulge = 0.0 - bulge;
}

bool CQdrGePolyline2d::changeStart(int i) {
  if (i == 0) return true;
  if (!closed() || i < 0 || i >= numVerts()) return false;
  if (!m_closed) {
    const int last = numVerts() - 1;
    removeVertexAt(last);
    m_closed = true;
    if (i == last) return true;
  }
  rotateTo(m_points, i);
  rotateTo(m_bulges, i);
  rotateTo(m_startWidths, i);
  rotateTo(m_endWidths, i);
  return true;
}

bool CQdrGePolyline2d::appendPolyline(const CQdrGePolyline2d& other, int& where) {
  if (m_closed || other.m_closed || m_points.empty() || other.m_points.empty()) return false;
  const int ends = meetingEnds(m_points, other.m_points);
  if (ends == 0) return false;
  where = ends;

  CQdrGePolyline2d added(other);
  if (ends == 2 || ends == 4) added.reverse();
  if (ends <= 2) {
    // The shared vertex stays as it is here and takes over the segment that starts at it.
    m_bulges.back() = added.m_bulges.front();
    m_startWidths.back() = added.m_startWidths.front();
    m_endWidths.back() = added.m_endWidths.front();
    appendTail(m_points, added.m_points);
    appendTail(m_bulges, added.m_bulges);
    appendTail(m_startWidths, added.m_startWidths);
    appendTail(m_endWidths, added.m_endWidths);
    return true;
  }
  prependHead(m_points, added.m_points);
  prependHead(m_bulges, added.m_bulges);
  prependHead(m_startWidths, added.m_startWidths);
  prependHead(m_endWidths, added.m_endWidths);
  return true;
}

bool CQdrGePolyline2d::appendPolyline(const CQdrGeLine2d& line, int& where) {
  return appendPolyline(CQdrGePolyline2d({line.startPoint(), line.endPoint()}), where);
}

bool CQdrGePolyline2d::appendPolyline(const CQdrGeCircArc2d& arc, int& where) {
  CQdrGePolyline2d polyline;
  arc.asPolyline(polyline, 0);
  return appendPolyline(polyline, where);
}
