#include "entities/cobweb.h"

#include <algorithm>
#include <utility>

#include "database/database.h"
#include "database/file/field_stream.h"
#include "database/undo/undo_operations.h"
#include "database/undo/undo_record.h"
#include "entities/circle.h"
#include "entities/display_units.h"
#include "entities/internal/curve_crossings.h"
#include "entities/internal/property_rows.h"
#include "entities/internal/trim_scheme.h"
#include "entities/internal/window_tests.h"
#include "entities/line.h"
#include "entities/rect.h"
#include "geometry/angle.h"
#include "geometry/tolerance.h"
#include "platform/device_context.h"
#include "platform/gdi_objects.h"

namespace {

constexpr int kMostWings = 1'000'000;
constexpr float kFullTurnDegrees = 360.0F;
constexpr double kHandleReach = 0.2;  // part of the outer radius
constexpr int kFieldAddress = 1;      // the data of a property row is the address of the field

void drawCircle(CDC& dc, const CQdrGePoint2d& center, double radius) {
  const CPoint middle = qdr::toLogical(center);
  dc.MoveTo(qdr::toLogical(CQdrGePoint2d(center.x + radius, center.y)));
  dc.AngleArc(middle.x, middle.y, qdr::toLogical(radius), 0.0F, kFullTurnDegrees);
}

// What lies under the marker shows through it, and taking it off leaves nothing.
void drawMarker(CDC& dc, const CPoint& at, int half) {
  CBrush hollow;
  const LOGBRUSH style{.lbStyle = BS_HOLLOW, .lbColor = 0, .lbHatch = 0};
  hollow.CreateBrushIndirect(&style);
  CBrush* const former = dc.SelectObject(&hollow);
  dc.Ellipse(at.x - half, at.y + half, at.x + half, at.y - half);
  dc.SelectObject(former);
}

// Crossings of circles and spokes.
bool crossParts(const CQdrDbCobweb& web, const qdr::CrossingShape& shape, int& count,
                std::vector<CQdrGePoint2d>& points, int mode, double tol) {
  const std::size_t before = points.size();
  const auto cross = [&](const CQdrGeEntity2d& part) {
    int found = 0;
    std::vector<CQdrGePoint2d> hits;
    qdr::crossings(part, shape, found, hits, mode, tol);
    points.insert(points.end(), hits.begin(), hits.end());
  };
  cross(CQdrGeCircArc2d(web.Center(), web.InnerRadius()));
  cross(CQdrGeCircArc2d(web.Center(), web.OuterRadius()));
  for (int k = 0; k < std::min(web.Wings(), kMostWings); ++k)
    cross(CQdrGeLine2d(web.Center(), web.getGripPoint(2 * k + 2)));
  count = static_cast<int>(points.size() - before);
  return count > 0;
}

// Adds an entity to a drawing with its step of the log.
void addWithStep(CQdrDbDatabase& database, CQdrDbEntity* entity, int chain) {
  CQdrDbObjectId id;
  database.addEntity(entity, id);
  tagUndoEditEntity record = qdr::undoRecord(*entity, qdr::kUndoRestored);
  record.continued = chain;
  qdr::addUndo(*entity, record);
}

}  // namespace

CQdrDbCobweb::CQdrDbCobweb(CQdrDbDatabase* database) : CQdrDbEntity(database) {
  setClassInfo(kClassType, eEntity);
}

CQdrDbCobweb::CQdrDbCobweb(const CQdrDbCobweb& other) : CQdrDbCobweb(other.database()) {
  CopyEntProperties(other);
  Set(other.m_center, other.m_innerRadius, other.m_outerRadius, other.m_wings, other.m_rotation);
}

CQdrDbCobweb::CQdrDbCobweb(const CQdrGePoint2d& center, double inner, double outer, int wings,
                           double rotation)
    : CQdrDbCobweb(nullptr) {
  Set(center, inner, outer, wings, rotation);
}

CQdrDbEntity& CQdrDbCobweb::operator=(const CQdrDbEntity& other) {
  CQdrDbEntity::operator=(other);
  if (other.classType() == kClassType) {
    const auto& web = static_cast<const CQdrDbCobweb&>(other);
    Set(web.m_center, web.m_innerRadius, web.m_outerRadius, web.m_wings, web.m_rotation);
  }
  return *this;
}

CQdrDbCobweb& CQdrDbCobweb::operator=(const CQdrDbCobweb& other) {
  *this = static_cast<const CQdrDbEntity&>(other);
  return *this;
}

void CQdrDbCobweb::Set(const CQdrGePoint2d& center, double inner, double outer, int wings,
                       double rotation) {
  m_center = center;
  m_innerRadius = inner;
  m_outerRadius = outer;
  m_wings = wings;
  m_rotation = rotation;
  setGripPoints();
}

void CQdrDbCobweb::SetCenter(const CQdrGePoint2d& center) {
  m_center = center;
  setGripPoints();
}

void CQdrDbCobweb::SetInnerRadius(double radius) {
  m_innerRadius = radius;
  setGripPoints();
}

void CQdrDbCobweb::SetOuterRadius(double radius) {
  m_outerRadius = radius;
  setGripPoints();
}

void CQdrDbCobweb::SetRotation(double rotation) {
  m_rotation = rotation;
  setGripPoints();
}

void CQdrDbCobweb::SetWings(int wings) {
  m_wings = wings;
  setGripPoints();
}

void CQdrDbCobweb::translateBy(const CQdrGeVector2d& vector) {
  SetCenter(CQdrGePoint2d(m_center) += vector);
}

void CQdrDbCobweb::rotateBy(double angle, const CQdrGePoint2d& center) {
  m_rotation += angle;
  SetCenter(CQdrGePoint2d(m_center).rotateBy(angle, center));
}

void CQdrDbCobweb::scaleBy(double scale, const CQdrGePoint2d& center) {
  m_innerRadius *= scale;
  m_outerRadius *= scale;
  SetCenter(center + (m_center - center) * scale);
}

void CQdrDbCobweb::mirror(const CQdrGeLine2d& line) {
  CQdrGeVector2d direction(m_rotation);
  m_rotation = direction.mirror(line.endPoint() - line.startPoint()).angle();
  SetCenter(CQdrGePoint2d(m_center).mirror(line));
}

std::size_t CQdrDbCobweb::wingCount() const {
  return static_cast<std::size_t>(std::clamp(m_wings, 0, kMostWings));
}

double CQdrDbCobweb::GetDivAngle() const {
  return m_wings > 0 ? qdr::kTwoPi / m_wings : 0.0;
}

template <class Stream>
void CQdrDbCobweb::fields(Stream& stream) {
  stream.number(m_wings);
  stream.number(m_center.x);
  stream.number(m_center.y);
  stream.number(m_innerRadius);
  stream.number(m_outerRadius);
  stream.number(m_rotation);
}

void CQdrDbCobweb::save() {
  CQdrDbObject::save();
  CQdrDbEntity::save();
  qdr::FieldWriter stream(file());
  fields(stream);
}

void CQdrDbCobweb::read() {
  CQdrDbObject::read();
  CQdrDbEntity::read();
  qdr::FieldReader stream(file());
  fields(stream);
  setGripPoints();
}

void CQdrDbCobweb::makeProperty() {
  CQdrDbEntity::makeProperty();
  std::vector<Property> rows;
  CString text;
  text.Format(L"%d", m_wings);
  _makePropertyList(rows, L"Wings", text, reinterpret_cast<std::uintptr_t>(&m_wings),
                    kFieldAddress);
  const std::vector<Property> others = qdr::fieldRows({{L"X Center", m_center.x},
                                                       {L"Y Center", m_center.y},
                                                       {L"InnerRadius", m_innerRadius},
                                                       {L"OuterRadius", m_outerRadius},
                                                       {L"Rotation", m_rotation}});
  rows.insert(rows.end(), others.begin(), others.end());
  properties()[L"Shape"] = rows;
}

CQdrDbRect CQdrDbCobweb::GetOutRect() {
  return CQdrDbRect::around(m_gripPoints);
}

void CQdrDbCobweb::Draw(CDC* dc) {
  if (!dc || !isVisiable()) return;
  CPen* former = setPen(dc);
  drawCircle(*dc, m_center, m_innerRadius);
  drawCircle(*dc, m_center, m_outerRadius);
  for (std::size_t k = 0; k < wingCount(); ++k) {
    dc->MoveTo(qdr::toLogical(m_center));
    dc->LineTo(qdr::toLogical(m_gripPoints[2 * k + 2]));
  }
  const CQdrDbDisplayTableRecord* display =
      m_database ? m_database->m_displayTable.getCurrentRecord() : nullptr;
  const int half = display ? qdr::truncToInt(kMarkerPixels * display->scaleX()) : 0;
  if (wingCount() > 0) drawMarker(*dc, qdr::toLogical(getGripPoint(1)), half);
  RemovePen(dc, former);
}

void CQdrDbCobweb::setGripPoints() {
  m_gripPoints.assign(2 * wingCount() + 2, m_center);
  for (std::size_t k = 0; k < wingCount(); ++k) {
    const CQdrGeVector2d spoke(m_rotation + static_cast<double>(k) * GetDivAngle());
    m_gripPoints[2 * k + 1] = m_center + spoke * m_innerRadius;
    m_gripPoints[2 * k + 2] = m_center + spoke * m_outerRadius;
  }
  if (wingCount() > 0)
    m_gripPoints.back() =
        m_center + CQdrGeVector2d(m_rotation) * (m_outerRadius * (1.0 + kHandleReach));
  updateEntityRect();
}

int CQdrDbCobweb::isOn(const CQdrGePoint2d& point, const double& tol) {
  const CQdrGeCircArc2d inner(m_center, m_innerRadius);
  const CQdrGeCircArc2d outer(m_center, m_outerRadius);
  return inner.isOn(point, tol) || outer.isOn(point, tol) || GetWingNum(point, tol) >= 0 ? 1 : 0;
}

bool CQdrDbCobweb::checkInsideOrCross(const CQdrGePoint2d& corner1, const CQdrGePoint2d& corner2) {
  if (qdr::anyInside(m_gripPoints, corner1, corner2)) return true;
  if (qdr::crossesRect(CQdrGeCircArc2d(m_center, m_innerRadius), corner1, corner2)) return true;
  if (qdr::crossesRect(CQdrGeCircArc2d(m_center, m_outerRadius), corner1, corner2)) return true;
  for (std::size_t k = 0; k < wingCount(); ++k)
    if (qdr::crossesRect(CQdrGeLine2d(m_center, m_gripPoints[2 * k + 2]), corner1, corner2))
      return true;
  return false;
}

bool CQdrDbCobweb::checkInside(const CQdrGePoint2d& corner1, const CQdrGePoint2d& corner2) {
  return qdr::allInside(m_gripPoints, corner1, corner2);
}

bool CQdrDbCobweb::intersectWith(CQdrDbEntity& other, int& count,
                                 std::vector<CQdrGePoint2d>& points, int mode, double tol) {
  count = 0;
  CQdrGePolyline2d scratch;
  const auto shape = qdr::crossingShape(other, scratch);
  return shape && crossParts(*this, *shape, count, points, mode, tol);
}

bool CQdrDbCobweb::intersectWith(const CQdrGeEllipArc2d& arc, int& count,
                                 std::vector<CQdrGePoint2d>& points, int mode, double tol) {
  return crossParts(*this, &arc, count, points, mode, tol);
}

bool CQdrDbCobweb::intersectWith(const CQdrGeCircArc2d& arc, int& count,
                                 std::vector<CQdrGePoint2d>& points, int mode, double tol) {
  return crossParts(*this, &arc, count, points, mode, tol);
}

bool CQdrDbCobweb::intersectWith(const CQdrGeLine2d& line, int& count,
                                 std::vector<CQdrGePoint2d>& points, int mode, double tol) {
  return crossParts(*this, &line, count, points, mode, tol);
}

int CQdrDbCobweb::GetWingNum(const CQdrGePoint2d& point, double tol) {
  for (std::size_t k = 0; k < wingCount(); ++k)
    if (CQdrGeLine2d(m_center, m_gripPoints[2 * k + 2]).isOn(point, tol))
      return static_cast<int>(k);
  return -1;
}

void CQdrDbCobweb::CopyRotate(const std::set<CQdrDbObjectId>& ids, int count, int chain) {
  if (!m_database) return;
  const std::vector<CQdrDbObjectId> sources(ids.begin(), ids.end());
  for (const CQdrDbObjectId& id : sources) {
    CQdrDbEntity* source = qdr::asEntity(id);
    CQdrDbEntity* copy = source ? source->CopyEntity(true) : nullptr;
    if (!copy) continue;
    copy->RotateBy(GetDivAngle() * count, m_center);
    addWithStep(*m_database, copy, chain);
    chain = 1;
    copy->Draw();
  }
}

void CQdrDbCobweb::SetEntity(const std::set<CQdrDbObjectId>& ids, bool forward) {
  const std::set<CQdrDbObjectId> sources(ids);
  const int wings = static_cast<int>(wingCount());
  for (int i = 1; i < wings; ++i)
    CopyRotate(sources, forward ? i : wings - i, i == 1 ? 0 : 1);
}

void CQdrDbCobweb::SetEntity2(const std::set<CQdrDbObjectId>& ids, bool forward) {
  const std::set<CQdrDbObjectId> sources(ids);
  const int wings = static_cast<int>(wingCount());
  // Behind the first place, upward the last one is below wings - 1, downward it is above 1.
  for (int i = 2; i < std::max(wings - 1, std::min(wings, 3)); i += 2)
    CopyRotate(sources, forward ? i : wings - i, i == 2 ? 0 : 1);
}

std::vector<std::unique_ptr<CQdrDbEntity>> CQdrDbCobweb::parts() const {
  std::vector<std::unique_ptr<CQdrDbEntity>> parts;
  parts.reserve(wingCount() + 2);
  const auto add = [&](std::unique_ptr<CQdrDbEntity> part) {
    part->setDatabase(m_database);
    part->CopyEntProperties(*this);
    parts.push_back(std::move(part));
  };
  add(std::make_unique<CQdrDbCircle>(m_center, m_innerRadius));
  add(std::make_unique<CQdrDbCircle>(m_center, m_outerRadius));
  for (std::size_t k = 0; k < wingCount(); ++k)
    add(std::make_unique<CQdrDbLine>(m_center, m_gripPoints[2 * k + 2]));
  return parts;
}

bool CQdrDbCobweb::Explode() {
  if (!m_database) return false;
  int chain = 0;
  for (std::unique_ptr<CQdrDbEntity>& part : parts()) {
    addWithStep(*m_database, part.release(), chain);
    chain = 1;
  }
  return true;
}
