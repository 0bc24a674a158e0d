#include "geometry/polyline3d.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

#include "geometry/internal/raw_fields.h"
#include "geometry/line3d.h"
#include "geometry/plane.h"

namespace {

constexpr std::size_t kPointBytes = 24;

}  // namespace

CQdrGePolyline3d::CQdrGePolyline3d(const std::vector<CQdrGePoint3d>& points)
    : CQdrGeEntity3d(kTypeId), m_points(points) {}

void CQdrGePolyline3d::setSize(int n) {
  m_points.clear();
  if (n > 0) m_points.reserve(static_cast<std::size_t>(n));
}

bool CQdrGePolyline3d::appendVertex(const CQdrGePoint3d& point) {
  m_points.push_back(point);
  return true;
}

bool CQdrGePolyline3d::addVertexAt(int i, const CQdrGePoint3d& point) {
  if (i < 0 || i > numVerts()) return false;
  m_points.insert(m_points.begin() + i, point);
  return true;
}

bool CQdrGePolyline3d::removeVertexAt(int first, int last) {
  if (last == 0) last = first;
  if (first < 0 || first >= numVerts() || last < first) return false;
  m_points.erase(m_points.begin() + first, m_points.begin() + std::min(last, numVerts() - 1) + 1);
  return true;
}

bool CQdrGePolyline3d::getPointAt(int i, CQdrGePoint3d& point) const {
  if (i < 0 || i > numVerts()) return false;
  if (i < numVerts()) point = m_points[static_cast<std::size_t>(i)];
  return true;
}

int CQdrGePolyline3d::segmentCount() const {
  if (m_points.size() < 2) return 0;
  return m_closed ? numVerts() : numVerts() - 1;
}

bool CQdrGePolyline3d::getLineSegAt(int i, CQdrGeLine3d& line) const {
  if (i < 0 || i >= segmentCount()) return false;
  const std::size_t start = static_cast<std::size_t>(i);
  line.set(m_points[start], m_points[(start + 1) % m_points.size()]);
  return true;
}

bool CQdrGePolyline3d::onSegAt(int i, const CQdrGePoint3d& p, double& t, double tol) const {
  CQdrGeLine3d line;
  if (!getLineSegAt(i, line) || !line.isOn(p, tol)) return false;
  const double size = line.length();
  t = size > 0.0 ? line.start().distanceTo(p) / size : 0.0;
  return true;
}

int CQdrGePolyline3d::isOn(const CQdrGePoint3d& p, double tol) const {
  return isOnSegAt(p, tol) >= 0 ? 1 : 0;
}

int CQdrGePolyline3d::isOnSegAt(const CQdrGePoint3d& p, double tol) const {
  double t = 0.0;
  for (int i = 0; i < segmentCount(); ++i) {
    if (onSegAt(i, p, t, tol)) return i;
  }
  return -1;
}

void CQdrGePolyline3d::setClosed(bool closed) {
  if (m_points.size() >= 2) m_closed = closed;
}

bool CQdrGePolyline3d::closed(double tol) const {
  if (m_closed) return true;
  return m_points.size() > 1 && m_points.front().distanceTo(m_points.back()) <= tol;
}

void CQdrGePolyline3d::reverse() {
  std::reverse(m_points.begin(), m_points.end());
}

bool CQdrGePolyline3d::changeStart(int i) {
  if (i == 0) return true;
  if (i < 0 || i >= numVerts() || !closed(qdr::kJoinTolerance)) return false;
  if (!m_closed) {
    m_points.pop_back();
    m_closed = true;
    // The vertex that went is the first one.
    if (i == numVerts()) return true;
  }
  std::rotate(m_points.begin(), m_points.begin() + i, m_points.end());
  return true;
}

bool CQdrGePolyline3d::appendPolyline(const CQdrGePolyline3d& other, int& where) {
  if (m_points.empty() || other.m_points.empty() || m_closed || other.m_closed) return false;
  std::vector<CQdrGePoint3d> added = other.m_points;
  const auto meets = [](const CQdrGePoint3d& a, const CQdrGePoint3d& b) {
    return a.isEqualTo(b, qdr::kChain3dTolerance);
  };
  if (meets(added.front(), m_points.back())) {
    where = 1;
  } else if (meets(added.back(), m_points.back())) {
    where = 2;
  } else if (meets(added.back(), m_points.front())) {
    where = 3;
  } else if (meets(added.front(), m_points.front())) {
    where = 4;
  } else {
    return false;
  }
  if (where == 2 || where == 4) std::reverse(added.begin(), added.end());
  if (where <= 2) {
    m_points.insert(m_points.end(), added.begin() + 1, added.end());
  } else {
    m_points.insert(m_points.begin(), added.begin(), added.end() - 1);
  }
  return true;
}

bool CQdrGePolyline3d::appendPolyline(const CQdrGeLine3d& line, int& where) {
  return appendPolyline(CQdrGePolyline3d({line.start(), line.end()}), where);
}

bool CQdrGePolyline3d::isEqualTo(const CQdrGePolyline3d& other, double tol) const {
  const auto isNear = [tol](const CQdrGePoint3d& a, const CQdrGePoint3d& b) {
    return a.isEqualTo(b, tol);
  };
  return m_closed == other.m_closed &&
         std::equal(m_points.begin(), m_points.end(), other.m_points.begin(), other.m_points.end(),
                    isNear);
}

bool CQdrGePolyline3d::operator==(const CQdrGePolyline3d& other) const {
  return m_closed == other.m_closed && m_points == other.m_points;
}

CQdrGePolyline3d& CQdrGePolyline3d::translateBy(const CQdrGeVector3d& v) {
  for (CQdrGePoint3d& point : m_points)
    point += v;
  return *this;
}

CQdrGePolyline3d& CQdrGePolyline3d::scaleBy(double s, const CQdrGePoint3d& center) {
  return scaleBy(s, s, s, center);
}

CQdrGePolyline3d& CQdrGePolyline3d::scaleBy(double sx, double sy, double sz,
                                            const CQdrGePoint3d& center) {
  for (CQdrGePoint3d& point : m_points)
    point.scaleBy(sx, sy, sz, center);
  return *this;
}

CQdrGePolyline3d& CQdrGePolyline3d::rotateBy(double angle, const CQdrGeVector3d& axis) {
  for (CQdrGePoint3d& point : m_points)
    point.rotateBy(angle, axis, CQdrGePoint3d::kOrigin);
  return *this;
}

CQdrGePolyline3d& CQdrGePolyline3d::mirror(const CQdrGePlane& plane) {
  for (CQdrGePoint3d& point : m_points)
    point.mirror(plane);
  return *this;
}

void CQdrGePolyline3d::save(CFile* file) const {
  const std::uint8_t closed = m_closed ? 1 : 0;
  qdr::writeFields(file, static_cast<std::uint32_t>(m_points.size()), closed);
  for (const CQdrGePoint3d& point : m_points)
    point.save(file);
}

void CQdrGePolyline3d::read(CFile* file) {
  std::uint32_t count = 0;
  std::uint8_t closed = 0;
  qdr::readFields(file, count, closed);
  m_closed = closed != 0;
  m_points.assign(qdr::heldItems(file, count, kPointBytes), CQdrGePoint3d());
  for (CQdrGePoint3d& point : m_points)
    point.read(file);
}
