#include "entities/spline.h"

#include "database/file/field_stream.h"
#include "entities/internal/chain_drawing.h"
#include "entities/internal/chain_explode.h"
#include "entities/internal/offset_copy.h"
#include "entities/internal/property_rows.h"
#include "entities/rect.h"
#include "platform/device_context.h"

namespace {

constexpr std::uint8_t kStatus = CQdrDbObject::eEntity | CQdrDbObject::eCompound;

// What the data of a property row is.
constexpr int kCount = 2;
constexpr int kPointVector = 3;

}  // namespace

CQdrDbSpline::CQdrDbSpline(CQdrDbDatabase* database)
    : CQdrDbSpline(CQdrGeSpline::kDefaultFitParam, database) {}

CQdrDbSpline::CQdrDbSpline(double fitParam, CQdrDbDatabase* database) : CQdrDbCurve(database) {
  setClassInfo(kClassType, m_spline, kStatus);
  m_spline.storeFitParam(fitParam);
}

CQdrDbSpline::CQdrDbSpline(const CQdrDbSpline& other)
    : CQdrDbCurve(other.database()), m_spline(other.m_spline) {
  setClassInfo(kClassType, m_spline, kStatus);
  CopyEntProperties(other);
  setGripPoints();
}

CQdrDbEntity& CQdrDbSpline::operator=(const CQdrDbEntity& other) {
  CQdrDbEntity::operator=(other);
  if (other.classType() == kClassType) {
    m_spline = static_cast<const CQdrDbSpline&>(other).m_spline;
    setGripPoints();
  }
  return *this;
}

CQdrDbSpline& CQdrDbSpline::operator=(const CQdrDbSpline& other) {
  *this = static_cast<const CQdrDbEntity&>(other);
  return *this;
}

void CQdrDbSpline::save() {
  CQdrDbCurve::save();
  qdr::FieldWriter stream(file());
  stream.part(m_spline.polyline());
}

void CQdrDbSpline::read() {
  CQdrDbObject::read();
  CQdrDbEntity::read();
  qdr::FieldReader stream(file());
  CQdrGePolyline2d stored;
  if (stream.part(m_spline) && stream.part(stored)) m_spline.storeGePolyline(stored);
  setGripPoints();
}

void CQdrDbSpline::makeProperty() {
  CQdrDbEntity::makeProperty();
  const std::vector<CQdrGePoint2d>& points = m_spline.ctrlPoints();
  const CQdrGePoint2d first = points.empty() ? CQdrGePoint2d() : points.front();
  std::vector<Property> rows;
  CString text;
  text.Format(L"%d", NumCtrlVerts());
  _makePropertyList(rows, L"Control Point Count", text, points.size(), kCount);
  text.Format(L"%f", first.x);
  const auto address = reinterpret_cast<std::uintptr_t>(&points);
  _makePropertyList(rows, L"Control Point X", text, address, kPointVector);
  text.Format(L"%f", first.y);
  _makePropertyList(rows, L"Control Point Y", text, address, kPointVector);
  const std::vector<Property> fit = qdr::fieldRows({{L"Fit Param", m_spline.getFitParam()}});
  rows.insert(rows.end(), fit.begin(), fit.end());
  properties()[L"Shape"] = rows;
}

CQdrDbRect CQdrDbSpline::GetOutRect() {
  return m_spline.polyline().getOutRect();
}

void CQdrDbSpline::Draw(CDC* dc) {
  if (!dc || !isVisiable()) return;
  CPen* former = setPen(dc);
  qdr::drawChain(*dc, m_spline.polyline());
  RemovePen(dc, former);
}

void CQdrDbSpline::setGripPoints() {
  m_gripPoints = m_spline.ctrlPoints();
  updateEntityRect();
}

bool CQdrDbSpline::IsClosedCurve() {
  return Closed();
}

void CQdrDbSpline::Reverse() {
  m_spline.reverse();
  setGripPoints();
}

bool CQdrDbSpline::getOffset(const CQdrGePoint2d& side, CQdrDbEntity*& result, double distance) {
  return qdr::offsetCopy(*this, &CQdrDbSpline::m_spline, side, distance, result);
}

bool CQdrDbSpline::changed(bool done) {
  if (done) setGripPoints();
  return done;
}

void CQdrDbSpline::SetCtrlVertexes(const std::vector<CQdrGePoint2d>& points) {
  m_spline.set(points);
  setGripPoints();
}

void CQdrDbSpline::AppendCtrlVertex(const CQdrGePoint2d& point) {
  m_spline.appendCtrlPt(point);
  setGripPoints();
}

bool CQdrDbSpline::AddCtrlVertexAt(int i, const CQdrGePoint2d& point) {
  return changed(m_spline.AddCtrlPt(i, point));
}

bool CQdrDbSpline::RemoveCtrlVertexAt(int i) {
  return changed(m_spline.removeCtrlPtAt(i));
}

bool CQdrDbSpline::SetCtrlPointAt(int i, const CQdrGePoint2d& point) {
  return changed(m_spline.setPointAt(i, point));
}

void CQdrDbSpline::SetClosed(bool closed) {
  m_spline.setClosed(closed);
  setGripPoints();
}

void CQdrDbSpline::SetFitParam(double fitParam) {
  m_spline.storeFitParam(fitParam);
  setGripPoints();
}

void CQdrDbSpline::updatePoly() {
  m_spline.setGePolyline();
  setGripPoints();
}

bool CQdrDbSpline::Explode() {
  return qdr::explodeChain(*this, m_spline.polyline());
}
