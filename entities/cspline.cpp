#include "entities/cspline.h"

#include "database/database.h"
#include "database/file/field_stream.h"
#include "entities/display_units.h"
#include "entities/internal/chain_drawing.h"
#include "entities/internal/offset_copy.h"
#include "entities/polyline.h"
#include "entities/rect.h"
#include "platform/device_context.h"

namespace {

constexpr std::uint8_t kStatus = CQdrDbObject::eEntity | CQdrDbObject::eCompound;

// Pixels from sample to sample.
constexpr double kSamplePixels = 4.0;

constexpr std::size_t kPointBytes = 20;

// Side of a pixel of the current view in logical units; 0 without one.
double pixelSize(CQdrDbDatabase* database) {
  if (!database) return 0.0;
  const CQdrDbDisplayTableRecord* display = database->m_displayTable.getCurrentRecord();
  return display ? display->scaleX() : 0.0;
}

}  // namespace

CQdrDbCSpline::CQdrDbCSpline(CQdrDbDatabase* database) : CQdrDbCurve(database) {
  setClassInfo(kClassType, m_spline, kStatus);
}

CQdrDbCSpline::CQdrDbCSpline(const CQdrDbCSpline& other)
    : CQdrDbCurve(other.database()), m_spline(other.m_spline) {
  setClassInfo(kClassType, m_spline, kStatus);
  CopyEntProperties(other);
  setGripPoints();
}

CQdrDbCSpline::CQdrDbCSpline(const std::vector<CQdrGePoint2d>& points) : CQdrDbCSpline(nullptr) {
  SetCtrlVertexes(points);
}

CQdrDbCSpline::CQdrDbCSpline(const CQdrDbPolyline& polyline)
    : CQdrDbCurve(polyline.database()), m_spline(polyline.geometry().points()) {
  setClassInfo(kClassType, m_spline, kStatus);
  m_spline.setClosed(polyline.IsClosed());
  CopyEntProperties(polyline);
  setGripPoints();
}

CQdrDbEntity& CQdrDbCSpline::operator=(const CQdrDbEntity& other) {
  CQdrDbEntity::operator=(other);
  if (other.classType() == kClassType) {
    m_spline = static_cast<const CQdrDbCSpline&>(other).m_spline;
    setGripPoints();
  }
  return *this;
}

CQdrDbCSpline& CQdrDbCSpline::operator=(const CQdrDbCSpline& other) {
  *this = static_cast<const CQdrDbEntity&>(other);
  return *this;
}

template <class Stream>
void CQdrDbCSpline::fields(Stream& stream, std::uint8_t& closed, std::vector<CQdrGePoint2d>& points,
                           std::vector<unsigned char>& options) {
  stream.number(closed);
  stream.template list<std::uint32_t>(points, kPointBytes,
                                      [](Stream& in, CQdrGePoint2d& point) { in.part(point); });
  options.resize(points.size());
  for (unsigned char& option : options)
    stream.number(option);
}

void CQdrDbCSpline::save() {
  CQdrDbObject::save();
  CQdrDbEntity::save();
  std::uint8_t closed = IsClosed() ? 1 : 0;
  std::vector<CQdrGePoint2d> points = m_spline.ctrlPoints();
  std::vector<unsigned char> options = m_spline.ctrlOptions();
  qdr::FieldWriter stream(file());
  fields(stream, closed, points, options);
}

void CQdrDbCSpline::read() {
  CQdrDbObject::read();
  CQdrDbEntity::read();
  std::uint8_t closed = 0;
  std::vector<CQdrGePoint2d> points;
  std::vector<unsigned char> options;
  qdr::FieldReader stream(file());
  fields(stream, closed, points, options);
  // The flag comes first: closing a curve that has its vertices may drop one of them.
  m_spline.set({});
  m_spline.setClosed(closed != 0);
  m_spline.set(points, options);
  setGripPoints();
}

CQdrDbRect CQdrDbCSpline::GetOutRect() {
  CQdrGePolyline2d samples;
  const bool hasCurve = m_spline.getGePolyline(samples);
  m_spline.releaseCurve();
  return hasCurve ? samples.getOutRect() : CQdrDbRect::around(0, 0, 0, 0);
}

void CQdrDbCSpline::Draw(CDC* dc) {
  if (!dc || !isVisiable()) return;
  m_spline.setResolution(kSamplePixels * qdr::toWorld(pixelSize(database())));
  const std::vector<CQdrGePoint2d>* samples = nullptr;
  if (m_spline.getCurve(samples) <= 0) return;
  std::vector<CPoint> points;
  points.reserve(samples->size());
  for (const CQdrGePoint2d& sample : *samples)
    points.push_back(qdr::toLogical(sample));
  m_spline.releaseCurve();
  qdr::drawPoints(*dc, *this, points);
}

void CQdrDbCSpline::setGripPoints() {
  m_gripPoints = m_spline.ctrlPoints();
  updateEntityRect();
}

bool CQdrDbCSpline::IsClosedCurve() {
  return Closed();
}

void CQdrDbCSpline::Reverse() {
  m_spline.reverse();
  setGripPoints();
}

bool CQdrDbCSpline::getOffset(const CQdrGePoint2d& side, CQdrDbEntity*& result, double distance) {
  result = nullptr;
  return m_spline.genCurve() &&
         qdr::offsetCopy(*this, &CQdrDbCSpline::m_spline, side, distance, result);
}

bool CQdrDbCSpline::changed(bool done) {
  if (done) setGripPoints();
  return done;
}

void CQdrDbCSpline::SetCtrlVertexes(const std::vector<CQdrGePoint2d>& points) {
  m_spline.set(points);
  setGripPoints();
}

void CQdrDbCSpline::SetCtrlVertexes(const std::vector<CQdrGePoint2d>& points,
                                    const std::vector<unsigned char>& options) {
  m_spline.set(points, options);
  setGripPoints();
}

void CQdrDbCSpline::AppendCtrlVertex(const CQdrGePoint2d& point, unsigned char option) {
  m_spline.appendCtrlPt(point, option);
  setGripPoints();
}

bool CQdrDbCSpline::AddCtrlVertexAt(int i, const CQdrGePoint2d& point, unsigned char option) {
  return changed(m_spline.addCtrlPt(i, point, option));
}

bool CQdrDbCSpline::RemoveCtrlVertexAt(int i) {
  return changed(m_spline.removeCtrlPtAt(i));
}

bool CQdrDbCSpline::SetCtrlPointAt(int i, const CQdrGePoint2d& point) {
  return changed(m_spline.setPointAt(i, point));
}

bool CQdrDbCSpline::SetCtrlPointAt(int i, const CQdrGePoint2d& point, unsigned char option) {
  return changed(m_spline.setPointAt(i, point, option));
}

bool CQdrDbCSpline::SetControlOption(int i, unsigned char option) {
  return changed(m_spline.setControlOption(i, option));
}

void CQdrDbCSpline::SetClosed(bool closed) {
  m_spline.setClosed(closed);
  setGripPoints();
}
