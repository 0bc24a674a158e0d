#include "geometry/polyline2d.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

#include "geometry/circ_arc2d.h"
#include "geometry/internal/bulge.h"
#include "geometry/internal/travel_segment.h"
#include "geometry/line2d.h"
#include "geometry/tolerance.h"
#include "geometry/vec.h"
#include "platform/file.h"

using namespace qdr;

namespace {

constexpr std::uint64_t kVertexBytes = 44;

bool anyAbove(const std::vector<double>& values, double limit) {
  return std::any_of(values.begin(), values.end(), [=](double v) { return v > limit; });
}

bool isIndex(int i, std::size_t size) {
  return i >= 0 && static_cast<std::size_t>(i) < size;
}

template <class T>
void eraseRange(std::vector<T>& values, int first, int last) {
  values.erase(values.begin() + first, values.begin() + last + 1);
}

}  // namespace

CQdrGePolyline2d::CQdrGePolyline2d() : CQdrGeEntity2d(kTypeId) {}

CQdrGePolyline2d::CQdrGePolyline2d(const std::vector<CQdrGePoint2d>& points) : CQdrGePolyline2d() {
  set(points);
}

CQdrGePolyline2d::CQdrGePolyline2d(const CQdrGePolyline2d& other)
    : CQdrGeEntity2d(kTypeId),
      m_points(other.m_points),
      m_bulges(other.m_bulges),
      m_endWidths(other.m_endWidths),
      m_startWidths(other.m_startWidths),
      m_closed(other.m_closed) {}

CQdrGePolyline2d& CQdrGePolyline2d::operator=(const CQdrGePolyline2d& other) {
  m_points = other.m_points;
  m_bulges = other.m_bulges;
  m_endWidths = other.m_endWidths;
  m_startWidths = other.m_startWidths;
  m_closed = other.m_closed;
  return *this;
}

CQdrGePolyline2d& CQdrGePolyline2d::operator=(const CQdrGeCircArc2d& arc) {
  arc.asPolyline(*this, 0);
  return *this;
}

void CQdrGePolyline2d::set(const std::vector<CQdrGePoint2d>& points) {
  set(points, {});
}

void CQdrGePolyline2d::set(const std::vector<CQdrGePoint2d>& points,
                           const std::vector<double>& bulges) {
  // Either argument may be a vector of this polyline.
  std::vector<CQdrGePoint2d> newPoints = points;
  std::vector<double> newBulges = bulges;
  newBulges.resize(newPoints.size(), 0.0);
  m_points = std::move(newPoints);
  m_bulges = std::move(newBulges);
  m_endWidths.assign(m_points.size(), -1.0);
  m_startWidths.assign(m_points.size(), -1.0);
}

void CQdrGePolyline2d::setSize(int n) {
  m_points.clear();
  m_bulges.clear();
  m_endWidths.clear();
  m_startWidths.clear();
  if (n <= 0) return;
  const auto room = static_cast<std::size_t>(n);
  m_points.reserve(room);
  m_bulges.reserve(room);
  m_endWidths.reserve(room);
  m_startWidths.reserve(room);
}

bool CQdrGePolyline2d::appendVertex(const CQdrGePoint2d& point, double bulge, double startWidth,
                                    double endWidth) {
  m_points.push_back(point);
  m_bulges.push_back(bulge);
  m_endWidths.push_back(endWidth);
  m_startWidths.push_back(startWidth);
  return true;
}

bool CQdrGePolyline2d::addVertexAt(int i, const CQdrGePoint2d& point, double bulge,
                                   double startWidth, double endWidth) {
  if (i < 0 || i > numVerts()) return false;
  m_points.insert(m_points.begin() + i, CQdrGePoint2d(point));
  m_bulges.insert(m_bulges.begin() + i, bulge);
  m_endWidths.insert(m_endWidths.begin() + i, endWidth);
  m_startWidths.insert(m_startWidths.begin() + i, startWidth);
  return true;
}

bool CQdrGePolyline2d::removeVertexAt(int first, int last) {
  if (last == 0) last = first;
  if (last < first || !isIndex(first, m_points.size())) return false;
  last = std::min(last, numVerts() - 1);
  eraseRange(m_points, first, last);
  eraseRange(m_bulges, first, last);
  eraseRange(m_endWidths, first, last);
  eraseRange(m_startWidths, first, last);
  return true;
}

bool CQdrGePolyline2d::getPointAt(int i, CQdrGePoint2d& point) const {
  if (isIndex(i, m_points.size())) point = m_points[static_cast<std::size_t>(i)];
  return i >= 0 && i <= numVerts();
}

bool CQdrGePolyline2d::setPointAt(int i, const CQdrGePoint2d& point) {
  if (!isIndex(i, m_points.size())) return false;
  m_points[static_cast<std::size_t>(i)] = point;
  return true;
}

double CQdrGePolyline2d::getBulgeAt(int i) const {
  return isIndex(i, m_bulges.size()) ? m_bulges[static_cast<std::size_t>(i)] : 0.0;
}

bool CQdrGePolyline2d::getBulgeAt(int i, double& bulge) const {
  if (!isIndex(i, m_bulges.size())) return false;
  bulge = m_bulges[static_cast<std::size_t>(i)];
  return true;
}

bool CQdrGePolyline2d::setBulgeAt(int i, double bulge) {
  if (!isIndex(i, m_bulges.size())) return false;
  m_bulges[static_cast<std::size_t>(i)] = bulge;
  return true;
}

bool CQdrGePolyline2d::getWidthsAt(int i, double& startWidth, double& endWidth) const {
  if (!isIndex(i, m_points.size())) return false;
  startWidth = m_startWidths[static_cast<std::size_t>(i)];
  endWidth = m_endWidths[static_cast<std::size_t>(i)];
  return true;
}

bool CQdrGePolyline2d::setWidthsAt(int i, double startWidth, double endWidth) {
  if (!isIndex(i, m_points.size())) return false;
  m_startWidths[static_cast<std::size_t>(i)] = startWidth;
  m_endWidths[static_cast<std::size_t>(i)] = endWidth;
  return true;
}

bool CQdrGePolyline2d::hasBulges() const {
  return anyAbove(m_bulges, kBulgeTolerance);
}

bool CQdrGePolyline2d::hasWidth() const {
  return anyAbove(m_endWidths, kBulgeTolerance) || anyAbove(m_startWidths, kBulgeTolerance);
}

bool CQdrGePolyline2d::isOnlyLines() const {
  return std::none_of(m_bulges.begin(), m_bulges.end(), isArcBulge);
}

bool CQdrGePolyline2d::closed() const {
  if (m_closed) return true;
  return !m_points.empty() && m_points.front().distanceTo(m_points.back()) < kJoinTolerance;
}

bool CQdrGePolyline2d::isCCW() const {
  if (m_points.empty()) return false;
  // Relative to the first vertex, so that no digits are lost far from the origin.
  const Vec origin = toVec(m_points.front());
  double doubledArea = 0.0;
  for (std::size_t i = 1; i + 1 < m_points.size(); ++i)
    doubledArea += cross(toVec(m_points[i]) - origin, toVec(m_points[i + 1]) - origin);
  return doubledArea > 0.0;
}

int CQdrGePolyline2d::isVertex(const CQdrGePoint2d& p, double d) const {
  const auto found = std::find_if(m_points.begin(), m_points.end(),
                                  [&](const CQdrGePoint2d& v) { return v.isEqualTo(p, d); });
  return found == m_points.end() ? -1 : static_cast<int>(found - m_points.begin());
}

void CQdrGePolyline2d::getMinMaxpoint(CQdrGePoint2d& min, CQdrGePoint2d& max) const {
  min = max = CQdrGePoint2d();
  if (m_points.empty()) return;
  Box bounds;
  for (const CQdrGePoint2d& point : m_points)
    bounds.add(toVec(point));
  for (std::size_t k = 0; k < m_points.size(); ++k) {
    if (!isArcBulge(m_bulges[k])) continue;
    const Vec from = toVec(m_points[k]);
    const Vec to = toVec(m_points[k + 1 < m_points.size() ? k + 1 : 0]);
    // No place of an arc is farther from its chord than half the chord times the bulge.
    const double height =
        std::abs(m_bulges[k]) * (std::abs(to.x - from.x) + std::abs(to.y - from.y));
    const Box around = boxOfChord(from, to).inflated(height / 2.0);
    if (bounds.holds(around) || segType(static_cast<int>(k)) != kArcSeg) continue;
    bounds.add(makeSegment(from, to, m_bulges[k]).box());
  }
  min.set(bounds.minX, bounds.minY);
  max.set(bounds.maxX, bounds.maxY);
}

bool CQdrGePolyline2d::operator==(const CQdrGePolyline2d& other) const {
  return m_closed == other.m_closed && m_points == other.m_points && m_bulges == other.m_bulges;
}

bool CQdrGePolyline2d::isEqualTo(const CQdrGePolyline2d& other, double tol) const {
  if (m_closed != other.m_closed || m_points.size() != other.m_points.size()) return false;
  for (std::size_t i = 0; i < m_points.size(); ++i) {
    if (!m_points[i].isEqualTo(other.m_points[i], tol)) return false;
    if (!(std::abs(m_bulges[i] - other.m_bulges[i]) <= tol)) return false;
  }
  return true;
}

bool CQdrGePolyline2d::isEqualTo(const CQdrGeEntity2d& other, const double& tol) const {
  const CQdrGePolyline2d* polyline = curveAs<CQdrGePolyline2d>(other);
  return polyline != nullptr && isEqualTo(*polyline, tol);
}

CQdrGePolyline2d& CQdrGePolyline2d::scaleBy(double sx, double sy, const CQdrGePoint2d& center) {
  CQdrGeEntity2d::scaleBy(sx, sy, center);
  return *this;
}

CQdrGePolyline2d& CQdrGePolyline2d::scaleBy(double s, const CQdrGePoint2d& center) {
  CQdrGeEntity2d::scaleBy(s, center);
  return *this;
}

CQdrGePolyline2d& CQdrGePolyline2d::rotateBy(double angle, const CQdrGePoint2d& center) {
  CQdrGeEntity2d::rotateBy(angle, center);
  return *this;
}

CQdrGePolyline2d& CQdrGePolyline2d::mirror(const CQdrGeLine2d& line) {
  for (CQdrGePoint2d& point : m_points)
    point.mirror(line);
  for (double& bulge : m_bulges)
    bulge = 0.0 - bulge;  // a straight segment keeps its plain zero
  return *this;
}

CQdrGePolyline2d& CQdrGePolyline2d::translateBy(const CQdrGeVector2d& v) {
  for (CQdrGePoint2d& point : m_points)
    point += v;
  return *this;
}

CQdrGePolyline2d& CQdrGePolyline2d::transformBy(const CQdrGeMatrix2d& m) {
  for (CQdrGePoint2d& point : m_points)
    point.transformBy(m);
  return *this;
}

void CQdrGePolyline2d::save(CFile* file) const {
  if (!file) return;
  const auto count = static_cast<std::uint32_t>(m_points.size());
  const auto closedByte = static_cast<std::uint8_t>(m_closed);
  file->Write(&count, sizeof count);
  file->Write(&closedByte, sizeof closedByte);
  for (std::size_t i = 0; i < m_points.size(); ++i) {
    m_points[i].save(file);
    const double values[] = {m_bulges[i], m_startWidths[i], m_endWidths[i]};
    file->Write(values, sizeof values);
  }
}

void CQdrGePolyline2d::read(CFile* file) {
  if (!file) return;
  std::uint32_t count = 0;
  std::uint8_t closedByte = 0;
  readRaw(file, &count, sizeof count);
  readRaw(file, &closedByte, sizeof closedByte);
  m_closed = closedByte != 0;
  // The count is a claim: what the file still holds bounds the memory taken.
  const std::uint64_t held = std::min<std::uint64_t>(count, file->bytesLeft() / kVertexBytes);
  setSize(static_cast<int>(std::min<std::uint64_t>(held, INT32_MAX)));
  for (std::uint64_t i = 0; i < count; ++i) {
    struct {
      double x, y;
      std::int32_t tag;
    } point{};
    double values[3] = {};
    if (!readRaw(file, &point.x, sizeof point.x) || !readRaw(file, &point.y, sizeof point.y) ||
        !readRaw(file, &point.tag, sizeof point.tag) || !readRaw(file, values, sizeof values)) {
      return;
    }
    CQdrGePoint2d vertex(point.x, point.y);
    vertex.tag = point.tag;
    appendVertex(vertex, values[0], values[1], values[2]);
  }
}
