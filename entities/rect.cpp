#include "entities/rect.h"

#include <algorithm>

#include "database/file/field_stream.h"
#include "database/sym_point.h"
#include "entities/display_units.h"
#include "entities/internal/curve_crossings.h"
#include "entities/internal/property_rows.h"
#include "entities/internal/window_tests.h"
#include "geometry/line2d.h"
#include "geometry/polyline2d.h"
#include "platform/device_context.h"

namespace {

bool crossSides(const CQdrDbRect& rect, const qdr::CrossingShape& shape, int& count,
                std::vector<CQdrGePoint2d>& points, int mode, double tol) {
  CQdrGePolyline2d sides;
  rect.getPolyline(sides);
  return qdr::crossings(sides, shape, count, points, mode, tol);
}

}  // namespace

CQdrDbRect::CQdrDbRect(CQdrDbDatabase* database) : CQdrDbEntity(database) {
  setClassInfo(kClassType, eEntity);
}

CQdrDbRect::CQdrDbRect(const CQdrGePoint2d& leftTop, const CQdrGePoint2d& rightBottom)
    : CQdrDbRect(nullptr) {
  setCorners(leftTop, rightBottom);
}

CQdrDbRect::CQdrDbRect(const CQdrDbRect& other) : CQdrDbRect(other.database()) {
  CopyEntProperties(other);
  setCorners(other.LeftTop(), other.RightBottom());
}

CQdrDbRect::~CQdrDbRect() = default;

CQdrDbRect CQdrDbRect::around(double minX, double minY, double maxX, double maxY) {
  return {CQdrGePoint2d(minX, maxY), CQdrGePoint2d(maxX, minY)};
}

CQdrDbRect CQdrDbRect::around(const std::vector<CQdrGePoint2d>& points) {
  if (points.empty()) return CQdrDbRect();
  CQdrGePoint2d min = points.front();
  CQdrGePoint2d max = min;
  for (const CQdrGePoint2d& point : points) {
    min.set(std::min(min.x, point.x), std::min(min.y, point.y));
    max.set(std::max(max.x, point.x), std::max(max.y, point.y));
  }
  return around(min.x, min.y, max.x, max.y);
}

CQdrDbRect CQdrDbRect::around(const std::vector<CPoint>& logicalPoints) {
  if (logicalPoints.empty()) return CQdrDbRect();
  CPoint min = logicalPoints.front();
  CPoint max = min;
  for (const CPoint& point : logicalPoints) {
    min = {std::min(min.x, point.x), std::min(min.y, point.y)};
    max = {std::max(max.x, point.x), std::max(max.y, point.y)};
  }
  return around(qdr::toWorld(min.x), qdr::toWorld(min.y), qdr::toWorld(max.x), qdr::toWorld(max.y));
}

CQdrDbEntity& CQdrDbRect::operator=(const CQdrDbEntity& other) {
  CQdrDbEntity::operator=(other);
  if (other.classType() == kClassType) {
    const auto& rect = static_cast<const CQdrDbRect&>(other);
    setCorners(rect.LeftTop(), rect.RightBottom());
    setGripPoints();
  }
  return *this;
}

CQdrDbRect& CQdrDbRect::operator=(const CQdrDbRect& other) {
  *this = static_cast<const CQdrDbEntity&>(other);
  return *this;
}

void CQdrDbRect::setCorners(const CQdrGePoint2d& leftTop, const CQdrGePoint2d& rightBottom) {
  m_left = leftTop.x;
  m_top = leftTop.y;
  m_right = rightBottom.x;
  m_bottom = rightBottom.y;
}

void CQdrDbRect::setLeftTop(const CQdrGePoint2d& point) {
  setCorners(point, RightBottom());
  setGripPoints();
}

void CQdrDbRect::setRightBottom(const CQdrGePoint2d& point) {
  setCorners(LeftTop(), point);
  setGripPoints();
}

template <class Stream>
void CQdrDbRect::fields(Stream& stream) {
  stream.number(m_top);
  stream.number(m_bottom);
  stream.number(m_left);
  stream.number(m_right);
}

void CQdrDbRect::save() {
  CQdrDbObject::save();
  CQdrDbEntity::save();
  qdr::FieldWriter stream(file());
  fields(stream);
}

void CQdrDbRect::read() {
  CQdrDbObject::read();
  CQdrDbEntity::read();
  qdr::FieldReader stream(file());
  fields(stream);
  setGripPoints();
}

void CQdrDbRect::makeProperty() {
  CQdrDbEntity::makeProperty();
  properties()[L"Shape"] = qdr::fieldRows(
      {{L"Top", m_top}, {L"Bottom", m_bottom}, {L"Left", m_left}, {L"Right", m_right}});
}

CQdrDbRect CQdrDbRect::GetOutRect() {
  return {LeftTop(), RightBottom()};
}

void CQdrDbRect::Draw(CDC* dc) {
  if (!dc || !isVisiable()) return;
  CPen* formerPen = setPen(dc);
  CBrush hollow;
  const LOGBRUSH style{.lbStyle = BS_HOLLOW, .lbColor = 0, .lbHatch = 0};
  hollow.CreateBrushIndirect(&style);
  CBrush* formerBrush = dc->SelectObject(&hollow);
  dc->Rectangle(GetDevRect());
  RemovePen(dc, formerPen);
  dc->SelectObject(formerBrush);
}

void CQdrDbRect::setGripPoints() {
  const double middleX = (m_left + m_right) / 2.0;
  const double middleY = (m_bottom + m_top) / 2.0;
  storeGripPoints({{middleX, middleY},
                   {middleX, m_bottom},
                   {m_right, middleY},
                   {middleX, m_top},
                   {m_left, middleY},
                   LeftBottom(),
                   RightBottom(),
                   RightTop(),
                   LeftTop()});
}

int CQdrDbRect::isOn(const CQdrGePoint2d& point, const double& tol) {
  CQdrGePolyline2d sides;
  getPolyline(sides);
  return sides.isOn(point, tol);
}

bool CQdrDbRect::checkInsideOrCross(const CQdrGePoint2d& corner1, const CQdrGePoint2d& corner2) {
  if (qdr::anyInside(m_gripPoints, corner1, corner2)) return true;
  CQdrGePolyline2d sides;
  getPolyline(sides);
  return qdr::crossesRect(sides, corner1, corner2);
}

bool CQdrDbRect::checkInside(const CQdrGePoint2d& corner1, const CQdrGePoint2d& corner2) {
  return qdr::allInside(m_gripPoints, corner1, corner2);
}

bool CQdrDbRect::intersectWith(CQdrDbEntity& other, int& count, std::vector<CQdrGePoint2d>& points,
                               int mode, double tol) {
  count = 0;
  CQdrGePolyline2d scratch;
  const auto shape = qdr::crossingShape(other, scratch);
  return shape && crossSides(*this, *shape, count, points, mode, tol);
}

bool CQdrDbRect::intersectWith(const CQdrGeEllipArc2d& arc, int& count,
                               std::vector<CQdrGePoint2d>& points, int mode, double tol) {
  return crossSides(*this, &arc, count, points, mode, tol);
}

bool CQdrDbRect::intersectWith(const CQdrGeCircArc2d& arc, int& count,
                               std::vector<CQdrGePoint2d>& points, int mode, double tol) {
  return crossSides(*this, &arc, count, points, mode, tol);
}

bool CQdrDbRect::intersectWith(const CQdrGeLine2d& line, int& count,
                               std::vector<CQdrGePoint2d>& points, int mode, double tol) {
  return crossSides(*this, &line, count, points, mode, tol);
}

CQdrDbRect::operator CRect() const {
  return CRect(GetDevRect());
}

tagRECT CQdrDbRect::GetDevRect() const {
  return {.left = qdr::toLogical(m_left),
          .top = qdr::toLogical(m_top),
          .right = qdr::toLogical(m_right),
          .bottom = qdr::toLogical(m_bottom)};
}

bool CQdrDbRect::isRectEmpty() const {
  return m_right == m_left || m_bottom == m_top;
}

bool CQdrDbRect::isPtInRect(const CQdrGePoint2d& point) const {
  const CQdrGePoint2d corners[] = {LeftTop(), RightTop(), RightBottom(), LeftBottom()};
  return IsInsidePolygon(corners, point, 4);
}

void CQdrDbRect::getPolyline(CQdrGePolyline2d& result) const {
  result.set({LeftTop(), RightTop(), RightBottom(), LeftBottom()});
  result.setClosed(true);
}

CQdrDbRect& CQdrDbRect::transformBy(const CQdrGeMatrix2d& matrix) {
  setCorners(LeftTop().transformBy(matrix), RightBottom().transformBy(matrix));
  return *this;
}

CQdrDbRect& CQdrDbRect::translateBy(const CQdrGeVector2d& vector) {
  setCorners(LeftTop() + vector, RightBottom() + vector);
  return *this;
}

CQdrDbRect& CQdrDbRect::rotateBy(double angle, const CQdrGePoint2d& center) {
  setCorners(LeftTop().rotateBy(angle, center), RightBottom().rotateBy(angle, center));
  return *this;
}

CQdrDbRect& CQdrDbRect::scaleBy(double sx, double sy, const CQdrGePoint2d& center) {
  setCorners(LeftTop().scaleBy(sx, sy, center), RightBottom().scaleBy(sx, sy, center));
  return *this;
}

CQdrDbRect& CQdrDbRect::scaleBy(double scale, const CQdrGePoint2d& center) {
  return scaleBy(scale, scale, center);
}

CQdrDbRect& CQdrDbRect::mirror(const CQdrGeLine2d& line) {
  setCorners(LeftTop().mirror(line), RightBottom().mirror(line));
  return *this;
}

// The box answers of lower classes, which can name CQdrDbRect but not make one.

CQdrDbRect CQdrGePolyline2d::getOutRect() const {
  CQdrGePoint2d min;
  CQdrGePoint2d max;
  getMinMaxpoint(min, max);
  return CQdrDbRect::around(min.x, min.y, max.x, max.y);
}

CQdrDbRect CQdrDbSymPoint::GetOutRect() const {
  return CQdrDbRect::around(x, y, x, y);
}
