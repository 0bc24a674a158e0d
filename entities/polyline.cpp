#include "entities/polyline.h"

#include <algorithm>
#include <climits>
#include <cmath>

#include "database/database.h"
#include "entities/arc.h"
#include "entities/circle.h"
#include "entities/internal/curve_crossings.h"
#include "entities/line.h"
#include "entities/rect.h"
#include "geometry/angle.h"
#include "platform/file.h"

namespace {

// What a property row's data points to.
constexpr int kCountData = 2;
constexpr int kPointsData = 3;
constexpr int kNumbersData = 4;

// A circle is not cut finer than this, and no more room is set aside in advance.
constexpr int kMostVertices = 1'000'000;

// Middle of an arc segment, over the chord.
CQdrGePoint2d middleOfArc(const CQdrGePoint2d& from, const CQdrGePoint2d& to, double bulge) {
  const CQdrGeVector2d chord = to - from;
  return from + chord / 2.0 - chord.perpVector() * (bulge / 2.0);
}

CQdrGePolyline2d circleChain(const CQdrGeCircArc2d& circle, int segments, bool clockwise) {
  CQdrGePolyline2d chain;
  if (segments < 1) return chain;
  const int count = std::min(segments, kMostVertices);
  const double step = (clockwise ? -qdr::kTwoPi : qdr::kTwoPi) / count;
  const double bulge = std::tan(step / 4.0);
  chain.setSize(count);
  chain.appendVertex(circle.startPoint(), bulge);
  for (int i = 1; i < count; ++i)
    chain.appendVertex(circle.center() + CQdrGeVector2d(i * step) * circle.radius(), bulge);
  chain.setClosed(true);
  // Closing forms a bulge of its own, the same but for rounding.
  chain.setBulgeAt(count - 1, bulge);
  return chain;
}

template <class Crossed>
bool crossInMap(const CQdrGePolyline2d& chain, const Crossed& other, int& count,
                std::map<double, CQdrGePoint2d>& result, int mode, double tol) {
  count = static_cast<int>(result.size());
  const auto intersect = static_cast<CQdrGeEntity2d::Intersect>(mode);
  return chain.intersectWith(other, count, result, intersect, tol);
}

}  // namespace

CQdrDbPolyline::CQdrDbPolyline(CQdrDbDatabase* database) : CQdrDbCurve(database) {
  setClassInfo(kClassType, m_polyline, eEntity | eCompound);
}

CQdrDbPolyline::CQdrDbPolyline(unsigned long vertexCount, CQdrDbDatabase* database)
    : CQdrDbPolyline(database) {
  m_polyline.setSize(static_cast<int>(std::min<unsigned long>(vertexCount, kMostVertices)));
}

CQdrDbPolyline::CQdrDbPolyline(const CQdrDbPolyline& other) : CQdrDbPolyline(other.database()) {
  CopyEntProperties(other);
  m_polyline = other.m_polyline;
  m_fill = other.m_fill;
  m_fillMode = other.m_fillMode;
  setGripPoints();
}

CQdrDbPolyline::CQdrDbPolyline(const CQdrDbLine& line, bool reversed)
    : CQdrDbPolyline(line.database()) {
  CopyEntProperties(line);
  m_polyline.set({line.StartPoint(), line.EndPoint()});
  if (reversed) m_polyline.reverse();
  setGripPoints();
}

CQdrDbPolyline::CQdrDbPolyline(const CQdrDbArc& arc, bool reversed)
    : CQdrDbPolyline(arc.database()) {
  CopyEntProperties(arc);
  m_polyline = arc.geometry();
  if (reversed) m_polyline.reverse();
  setGripPoints();
}

CQdrDbPolyline::CQdrDbPolyline(const CQdrDbCircle& circle, int segments, bool clockwise)
    : CQdrDbPolyline(circle.database()) {
  CopyEntProperties(circle);
  m_polyline = circleChain(circle.geometry(), segments, clockwise);
  setGripPoints();
}

CQdrDbEntity& CQdrDbPolyline::operator=(const CQdrDbEntity& other) {
  CQdrDbEntity::operator=(other);
  if (other.classType() == kClassType) {
    const auto& polyline = static_cast<const CQdrDbPolyline&>(other);
    m_polyline = polyline.m_polyline;
    m_fill = polyline.m_fill;
    m_fillMode = polyline.m_fillMode;
    setGripPoints();
  }
  return *this;
}

CQdrDbPolyline& CQdrDbPolyline::operator=(const CQdrDbPolyline& other) {
  *this = static_cast<const CQdrDbEntity&>(other);
  return *this;
}

void CQdrDbPolyline::save() {
  CQdrDbCurve::save();
  if (!file()) return;
  const auto fill = static_cast<std::uint8_t>(m_fill);
  file()->Write(&fill, sizeof fill);
  file()->Write(&m_fillMode, sizeof m_fillMode);
}

void CQdrDbPolyline::read() {
  CQdrDbCurve::read();
  std::uint8_t fill = 0;
  if (!file()) return;
  if (qdr::readRaw(file(), &fill, sizeof fill)) m_fill = fill != 0;
  qdr::readRaw(file(), &m_fillMode, sizeof m_fillMode);
}

void CQdrDbPolyline::makeProperty() {
  CQdrDbEntity::makeProperty();
  CQdrGePoint2d point;
  double startWidth = 0.0;
  double endWidth = 0.0;
  GetPointAt(0, point);
  GetWidthsAt(0, startWidth, endWidth);

  std::vector<Property> rows;
  CString text;
  text.Format(L"%d", NumVerts());
  _makePropertyList(rows, L"Point Count", text, static_cast<std::uintptr_t>(NumVerts()),
                    kCountData);
  const auto addRow = [&](const wchar_t* name, double value, const auto& vector, int type) {
    text.Format(L"%f", value);
    _makePropertyList(rows, name, text, reinterpret_cast<std::uintptr_t>(&vector), type);
  };
  addRow(L"Bulge", GetBulgeAt(0), m_polyline.bulges(), kNumbersData);
  addRow(L"Point X", point.x, m_polyline.points(), kPointsData);
  addRow(L"Point Y", point.y, m_polyline.points(), kPointsData);
  addRow(L"Start Width", startWidth, m_polyline.startWidths(), kNumbersData);
  addRow(L"End Width", endWidth, m_polyline.endWidths(), kNumbersData);
  properties()[L"Shape"] = std::move(rows);
}

CQdrDbRect CQdrDbPolyline::GetOutRect() {
  return m_polyline.getOutRect();
}

void CQdrDbPolyline::setGripPoints() {
  const std::vector<CQdrGePoint2d>& points = m_polyline.points();
  m_gripPoints.clear();
  m_gripPoints.reserve(points.size());
  for (std::size_t i = 0; i < points.size(); ++i) {
    m_gripPoints.push_back(points[i]);
    if (m_polyline.segType(static_cast<int>(i)) == CQdrGePolyline2d::kArcSeg)
      m_gripPoints.push_back(
          middleOfArc(points[i], points[(i + 1) % points.size()], m_polyline.bulges()[i]));
  }
  updateEntityRect();
}

bool CQdrDbPolyline::IsClosedCurve() {
  return Closed();
}

bool CQdrDbPolyline::intersectWith(CQdrDbEntity& other, int& count,
                                   std::map<double, CQdrGePoint2d>& result, int mode, double tol) {
  count = static_cast<int>(result.size());
  CQdrGePolyline2d scratch;
  const auto shape = qdr::crossingShape(other, scratch);
  if (!shape) return false;
  return std::visit(
      [&](const auto* curve) { return intersectWith(*curve, count, result, mode, tol); }, *shape);
}

bool CQdrDbPolyline::intersectWith(const CQdrGePolyline2d& other, int& count,
                                   std::map<double, CQdrGePoint2d>& result, int mode, double tol) {
  return crossInMap(m_polyline, other, count, result, mode, tol);
}

bool CQdrDbPolyline::intersectWith(const CQdrGeEllipArc2d& arc, int& count,
                                   std::map<double, CQdrGePoint2d>& result, int mode, double tol) {
  return crossInMap(m_polyline, arc, count, result, mode, tol);
}

bool CQdrDbPolyline::intersectWith(const CQdrGeCircArc2d& arc, int& count,
                                   std::map<double, CQdrGePoint2d>& result, int mode, double tol) {
  return crossInMap(m_polyline, arc, count, result, mode, tol);
}

bool CQdrDbPolyline::intersectWith(const CQdrGeLine2d& line, int& count,
                                   std::map<double, CQdrGePoint2d>& result, int mode, double tol) {
  return crossInMap(m_polyline, line, count, result, mode, tol);
}

bool CQdrDbPolyline::changed(bool done) {
  if (!done) return false;
  const bool later = IsDbEntity() && m_database && m_database->m_undoHandler.refreshLater(*this);
  if (!later) setGripPoints();
  return true;
}

void CQdrDbPolyline::Reverse() {
  m_polyline.reverse();
  setGripPoints();
}

bool CQdrDbPolyline::SetVertexes(const std::vector<CQdrGePoint2d>* points,
                                 const std::vector<double>* bulges) {
  if (!points) return false;
  m_polyline.set(*points, bulges ? *bulges : std::vector<double>());
  return changed(true);
}

bool CQdrDbPolyline::AppendVertex(const CQdrGePoint2d& point, double bulge, double startWidth,
                                  double endWidth) {
  return changed(m_polyline.appendVertex(point, bulge, startWidth, endWidth));
}

bool CQdrDbPolyline::AddVertexAt(unsigned long i, const CQdrGePoint2d& point, double bulge,
                                 double startWidth, double endWidth) {
  if (i > INT_MAX) return false;
  return changed(m_polyline.addVertexAt(static_cast<int>(i), point, bulge, startWidth, endWidth));
}

bool CQdrDbPolyline::RemoveVertexAt(int i) {
  return changed(m_polyline.removeVertexAt(i));
}

bool CQdrDbPolyline::RemoveVertexAt(int first, int last) {
  return changed(m_polyline.removeVertexAt(first, last));
}

bool CQdrDbPolyline::SetPointAt(int i, const CQdrGePoint2d& point) {
  return changed(m_polyline.setPointAt(i, point));
}

bool CQdrDbPolyline::SetBulgeAt(int i, double bulge) {
  return changed(m_polyline.setBulgeAt(i, bulge));
}

bool CQdrDbPolyline::SetWidthsAt(int i, double startWidth, double endWidth) {
  return changed(m_polyline.setWidthsAt(i, startWidth, endWidth));
}

bool CQdrDbPolyline::ChangeStart(int i) {
  return changed(m_polyline.changeStart(i));
}

bool CQdrDbPolyline::SetClosed(bool closed) {
  m_polyline.setClosed(closed);
  return changed(m_polyline.isClosed() == closed && NumVerts() > 1);
}

bool CQdrDbPolyline::GetWidthsAt(int i, double& startWidth, double& endWidth) const {
  return m_polyline.getWidthsAt(i, startWidth, endWidth);
}

int CQdrDbPolyline::IsVertex(const CQdrGePoint2d& point, double distance) const {
  return m_polyline.isVertex(point, distance);
}

bool CQdrDbPolyline::OnSegAt(int i, const CQdrGePoint2d& point, double& t, double tol) const {
  return m_polyline.onSegAt(i, point, t, tol);
}

bool CQdrDbPolyline::AppendPolyline(const CQdrDbPolyline& other, int& where) {
  return changed(m_polyline.appendPolyline(other.m_polyline, where));
}

bool CQdrDbPolyline::AppendPolyline(const CQdrDbLine& line, int& where) {
  return changed(m_polyline.appendPolyline(line.geometry(), where));
}

bool CQdrDbPolyline::AppendPolyline(const CQdrDbArc& arc, int& where) {
  return changed(m_polyline.appendPolyline(arc.geometry(), where));
}
