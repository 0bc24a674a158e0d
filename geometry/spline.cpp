#include "geometry/spline.h"

#include <algorithm>
#include <cmath>

#include "geometry/internal/chain_side.h"
#include "geometry/internal/raw_fields.h"
#include "geometry/line2d.h"

namespace {

constexpr std::size_t kPointBytes = 20;

// How the chain passes a corner of the control polygon: an arc between the two tangent points.
struct RoundedCorner {
  CQdrGePoint2d arcStart;
  CQdrGePoint2d arcEnd;
  double bulge = 0.0;
};

// Both tangent points lie at one distance from the corner, so the arc's angle is the turn of the
// sides. Sides without length or direction change leave a straight vertex at the corner.
RoundedCorner roundedCorner(const CQdrGePoint2d& before, const CQdrGePoint2d& corner,
                            const CQdrGePoint2d& after, double fitParam) {
  const CQdrGeVector2d in = corner - before;
  const CQdrGeVector2d out = after - corner;
  const double inLength = in.length();
  const double outLength = out.length();
  const double cross = in.perpVector().dotProduct(out);
  // Written so that sides that are no numbers count as parallel too.
  if (!(std::abs(cross) > qdr::kCollinearRatio * inLength * outLength)) return {corner, corner};

  const double reach = fitParam * std::min(inLength, outLength);
  RoundedCorner result{corner - in * (reach / inLength), corner + out * (reach / outLength)};
  const double turn = std::atan2(cross, in.dotProduct(out));
  if (std::abs(turn) > qdr::kAngleTolerance) result.bulge = std::tan(turn / 4.0);
  return result;
}

}  // namespace

CQdrGeSpline::CQdrGeSpline() : CQdrGeEntity2d(kTypeId) {}

CQdrGeSpline::CQdrGeSpline(const std::vector<CQdrGePoint2d>& points) : CQdrGeEntity2d(kTypeId) {
  set(points);
}

CQdrGeSpline::CQdrGeSpline(const CQdrGeSpline& other) : CQdrGeEntity2d(kTypeId) {
  *this = other;
}

CQdrGeSpline& CQdrGeSpline::operator=(const CQdrGeSpline& other) {
  m_points = other.m_points;
  m_polyline = other.m_polyline;
  m_fitParam = other.m_fitParam;
  m_isStale = other.m_isStale;
  return *this;
}

void CQdrGeSpline::set(const std::vector<CQdrGePoint2d>& points) {
  m_points = points;
  m_isStale = true;
}

void CQdrGeSpline::setSize(int n) {
  m_points.clear();
  if (n > 0) m_points.reserve(static_cast<std::size_t>(n));
  m_isStale = true;
}

void CQdrGeSpline::reverse() {
  std::reverse(m_points.begin(), m_points.end());
  m_isStale = true;
}

bool CQdrGeSpline::AddCtrlPt(int i, const CQdrGePoint2d& point) {
  if (i < 0 || i > numCtrlVerts()) return false;
  m_points.insert(m_points.begin() + i, point);
  m_isStale = true;
  return true;
}

void CQdrGeSpline::appendCtrlPt(const CQdrGePoint2d& point) {
  m_points.push_back(point);
  m_isStale = true;
}

bool CQdrGeSpline::removeCtrlPtAt(int i) {
  if (i < 0 || i >= numCtrlVerts()) return false;
  m_points.erase(m_points.begin() + i);
  m_isStale = true;
  return true;
}

bool CQdrGeSpline::setPointAt(int i, const CQdrGePoint2d& point) {
  if (i < 0 || i >= numCtrlVerts()) return false;
  m_points[static_cast<std::size_t>(i)] = point;
  m_isStale = true;
  return true;
}

bool CQdrGeSpline::getCtrlPtAt(int i, CQdrGePoint2d& point) const {
  if (i < 0 || i >= numCtrlVerts()) return false;
  point = m_points[static_cast<std::size_t>(i)];
  return true;
}

bool CQdrGeSpline::setFitParam(double value) {
  if (value > 1.0) storeFitParam(value);
  return true;
}

void CQdrGeSpline::storeFitParam(double value) {
  m_fitParam = value;
  m_isStale = true;
}

void CQdrGeSpline::setGePolyline() {
  rebuild();
}

void CQdrGeSpline::setGePolylineToCtrlPoint() {
  m_polyline.set(m_points);
  m_isStale = false;
}

void CQdrGeSpline::storeGePolyline(const CQdrGePolyline2d& polyline) {
  m_polyline = polyline;
  m_isStale = false;
}

const CQdrGePolyline2d& CQdrGeSpline::polyline() const {
  if (m_isStale) rebuild();
  return m_polyline;
}

bool CQdrGeSpline::getGePolyline(CQdrGePolyline2d& result) const {
  result = polyline();
  return result.numVerts() > 0;
}

void CQdrGeSpline::rebuild() const {
  m_isStale = false;
  if (m_points.size() < 3) {
    m_polyline.set(m_points);
    return;
  }
  m_polyline.setSize(2 * numCtrlVerts());
  m_polyline.appendVertex(m_points.front(), 0.0, -1.0, -1.0);
  for (std::size_t i = 0; i + 2 < m_points.size(); ++i) {
    const RoundedCorner corner =
        roundedCorner(m_points[i], m_points[i + 1], m_points[i + 2], m_fitParam);
    m_polyline.appendVertex(corner.arcStart, corner.bulge, -1.0, -1.0);
    m_polyline.appendVertex(corner.arcEnd, 0.0, -1.0, -1.0);
  }
  m_polyline.appendVertex(m_points.back(), 0.0, -1.0, -1.0);
}

void CQdrGeSpline::setClosed(bool closed) {
  polyline();
  m_polyline.setClosed(closed);
}

bool CQdrGeSpline::closed() const {
  if (isClosed()) return true;
  return m_points.size() > 1 && m_points.front().distanceTo(m_points.back()) < qdr::kJoinTolerance;
}

bool CQdrGeSpline::offset(const CQdrGePoint2d& side, double dist) {
  CQdrGePolyline2d polygon(m_points);
  const int segment = qdr::firstStraightSegment(polygon);
  if (segment < 0) return false;
  const bool left = qdr::isLeftOfChain(polyline(), side);
  if (!polygon.offset(qdr::placeBeside(polygon, segment, left), dist)) return false;
  set(polygon.points());
  return true;
}

bool CQdrGeSpline::operator==(const CQdrGeSpline& other) const {
  return m_fitParam == other.m_fitParam &&
         std::equal(m_points.begin(), m_points.end(), other.m_points.begin(), other.m_points.end());
}

bool CQdrGeSpline::isEqualTo(const CQdrGeSpline& other, double tol) const {
  const auto isNear = [tol](const CQdrGePoint2d& a, const CQdrGePoint2d& b) {
    return a.isEqualTo(b, tol);
  };
  return std::abs(m_fitParam - other.m_fitParam) <= tol &&
         std::equal(m_points.begin(), m_points.end(), other.m_points.begin(), other.m_points.end(),
                    isNear);
}

bool CQdrGeSpline::isEqualTo(const CQdrGeEntity2d& entity, const double& tol) const {
  const CQdrGeSpline* spline = qdr::curveAs<CQdrGeSpline>(entity);
  return spline && isEqualTo(*spline, tol);
}

void CQdrGeSpline::save(CFile* file) const {
  qdr::writeFields(file, m_fitParam, static_cast<std::uint32_t>(m_points.size()));
  for (const CQdrGePoint2d& point : m_points)
    point.save(file);
}

void CQdrGeSpline::read(CFile* file) {
  std::uint32_t count = 0;
  qdr::readFields(file, m_fitParam, count);
  m_points.assign(qdr::heldItems(file, count, kPointBytes), CQdrGePoint2d());
  for (CQdrGePoint2d& point : m_points)
    point.read(file);
  m_isStale = true;
}
