#include "geometry/cspline2d.h"

#include <algorithm>
#include <cmath>

#include "geometry/internal/cspline_tangents.h"
#include "geometry/internal/raw_fields.h"
#include "geometry/spline_curve.h"

namespace {

// A control point stores its coordinates, its tag and its option.
constexpr std::size_t kStoredBytes = 21;

}  // namespace

CQdrGeCSpline2d::CQdrGeCSpline2d(double step) : CQdrGeEntity2d(kTypeId), m_step(step) {}

CQdrGeCSpline2d::CQdrGeCSpline2d(const std::vector<CQdrGePoint2d>& points)
    : CQdrGeEntity2d(kTypeId) {
  set(points);
}

CQdrGeCSpline2d::CQdrGeCSpline2d(const CQdrGeCSpline2d& other) : CQdrGeEntity2d(kTypeId) {
  *this = other;
}

// The samples are not copied: the copy draws its own when it is asked.
CQdrGeCSpline2d& CQdrGeCSpline2d::operator=(const CQdrGeCSpline2d& other) {
  m_step = other.m_step;
  m_closed = other.m_closed;
  m_points = other.m_points;
  m_options = other.m_options;
  m_isStale = true;
  return *this;
}

void CQdrGeCSpline2d::set(const std::vector<CQdrGePoint2d>& points) {
  set(points, {});
}

void CQdrGeCSpline2d::set(const std::vector<CQdrGePoint2d>& points,
                          const std::vector<unsigned char>& options) {
  m_points = points;
  m_options = options;
  m_options.resize(points.size(), 0);
  m_isStale = true;
}

void CQdrGeCSpline2d::setResolution(double step) {
  if (step != m_step) m_isStale = true;
  m_step = step;
}

void CQdrGeCSpline2d::appendCtrlPt(const CQdrGePoint2d& point, unsigned char option) {
  m_points.push_back(point);
  m_options.push_back(option);
  m_isStale = true;
}

bool CQdrGeCSpline2d::addCtrlPt(int i, const CQdrGePoint2d& point, unsigned char option) {
  if (i < 0 || i > numCtrlVerts()) return false;
  m_points.insert(m_points.begin() + i, point);
  m_options.insert(m_options.begin() + i, option);
  m_isStale = true;
  return true;
}

bool CQdrGeCSpline2d::setPointAt(int i, const CQdrGePoint2d& point) {
  return setPointAt(i, point, getCtrlOption(i));
}

bool CQdrGeCSpline2d::setPointAt(int i, const CQdrGePoint2d& point, unsigned char option) {
  if (i < 0 || i >= numCtrlVerts()) return false;
  m_points[static_cast<std::size_t>(i)] = point;
  return setControlOption(i, option);
}

bool CQdrGeCSpline2d::removeCtrlPtAt(int i) {
  if (i < 0 || i >= numCtrlVerts()) return false;
  m_points.erase(m_points.begin() + i);
  m_options.erase(m_options.begin() + i);
  m_isStale = true;
  return true;
}

bool CQdrGeCSpline2d::getCtrlPtAt(int i, CQdrGePoint2d& point) const {
  if (i < 0 || i >= numCtrlVerts()) return false;
  point = m_points[static_cast<std::size_t>(i)];
  return true;
}

unsigned char CQdrGeCSpline2d::getCtrlOption(int i) const {
  return i < 0 || i >= numCtrlVerts() ? 0 : m_options[static_cast<std::size_t>(i)];
}

bool CQdrGeCSpline2d::setControlOption(int i, unsigned char option) {
  if (i < 0 || i >= numCtrlVerts()) return false;
  m_options[static_cast<std::size_t>(i)] = option;
  m_isStale = true;
  return true;
}

bool CQdrGeCSpline2d::hasCtrlOption() const {
  return numRealCtrlVerts() > 0;
}

int CQdrGeCSpline2d::numRealCtrlVerts() const {
  return numCtrlVerts() - static_cast<int>(std::count(m_options.begin(), m_options.end(), 0));
}

int CQdrGeCSpline2d::getRealControlPtIndex(int i) const {
  for (int k = 0; i >= 0 && k < numCtrlVerts(); ++k) {
    if (getCtrlOption(k) != 0 && i-- == 0) return k;
  }
  return -1;
}

int CQdrGeCSpline2d::getControlPtIndex(const CQdrGePoint2d& point, double tol) const {
  for (int i = 0; i < numCtrlVerts(); ++i) {
    if (m_points[static_cast<std::size_t>(i)].isEqualTo(point, tol)) return i;
  }
  return -1;
}

void CQdrGeCSpline2d::clearRealControl() {
  std::fill(m_options.begin(), m_options.end(), static_cast<unsigned char>(0));
  m_isStale = true;
}

bool CQdrGeCSpline2d::closed() const {
  if (isClosed()) return true;
  return m_points.size() > 1 &&
         m_points.front().distanceTo(m_points.back()) < qdr::kSplineJoinTolerance;
}

void CQdrGeCSpline2d::setClosed(bool closed) {
  if (closed && m_points.size() > 1 &&
      m_points.front().isEqualTo(m_points.back(), qdr::kCoincidentTolerance)) {
    removeCtrlPtAt(numCtrlVerts() - 1);
  }
  m_closed = closed ? 1 : 0;
  m_isStale = true;
}

void CQdrGeCSpline2d::reverse() {
  std::reverse(m_points.begin(), m_points.end());
  std::reverse(m_options.begin(), m_options.end());
  m_isStale = true;
}

bool CQdrGeCSpline2d::isEqualTo(const CQdrGeCSpline2d& other, double tol) const {
  const auto isNear = [tol](const CQdrGePoint2d& a, const CQdrGePoint2d& b) {
    return a.isEqualTo(b, tol);
  };
  return isClosed() == other.isClosed() && m_options == other.m_options &&
         std::equal(m_points.begin(), m_points.end(), other.m_points.begin(), other.m_points.end(),
                    isNear);
}

bool CQdrGeCSpline2d::isEqualTo(const CQdrGeEntity2d& entity, const double& tol) const {
  const CQdrGeCSpline2d* spline = qdr::curveAs<CQdrGeCSpline2d>(entity);
  return spline && isEqualTo(*spline, tol);
}

void CQdrGeCSpline2d::save(CFile* file) const {
  qdr::writeFields(file, m_closed, static_cast<std::uint32_t>(m_points.size()));
  for (std::size_t i = 0; i < m_points.size(); ++i) {
    m_points[i].save(file);
    qdr::writeFields(file, m_options[i]);
  }
}

void CQdrGeCSpline2d::read(CFile* file) {
  std::uint32_t count = 0;
  qdr::readFields(file, m_closed, count);
  const std::size_t held = qdr::heldItems(file, count, kStoredBytes);
  m_points.assign(held, CQdrGePoint2d());
  m_options.assign(held, 0);
  for (std::size_t i = 0; i < held; ++i) {
    m_points[i].read(file);
    qdr::readFields(file, m_options[i]);
  }
  m_isStale = true;
}
