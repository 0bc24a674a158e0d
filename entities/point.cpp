#include "entities/point.h"

#include "database/database.h"
#include "database/file/field_stream.h"
#include "entities/display_units.h"
#include "entities/rect.h"
#include "platform/device_context.h"

namespace {

enum class Outline { kNone, kEllipse, kTriangleUp, kRectangle, kDiamond, kTriangleDown };

// Parts drawn over the outline.
constexpr unsigned kPlus = 1;
constexpr unsigned kCross = 2;
constexpr unsigned kInnerEllipse = 4;

struct MarkerShape {
  Outline outline;
  unsigned always;      ///< parts drawn filled or not
  unsigned whenHollow;  ///< parts drawn over a hollow outline only
};

constexpr int kPixelMode = 0;
/// Draws its own shape and then that of the next mode too, outline included.
constexpr int kModeThatGoesOn = 12;

// Shapes by mode, from 1 on.
constexpr MarkerShape kShapes[] = {
    {Outline::kEllipse, 0, 0},           {Outline::kNone, kPlus, 0},
    {Outline::kNone, kCross, 0},         {Outline::kTriangleUp, 0, 0},
    {Outline::kRectangle, 0, 0},         {Outline::kDiamond, 0, 0},
    {Outline::kTriangleDown, 0, 0},      {Outline::kEllipse, 0, kInnerEllipse},
    {Outline::kNone, kPlus | kCross, 0}, {Outline::kEllipse, 0, kPlus},
    {Outline::kEllipse, 0, kCross},      {Outline::kRectangle, 0, kPlus},
    {Outline::kRectangle, 0, kCross},    {Outline::kDiamond, 0, kPlus},
};
constexpr int kLastMode = static_cast<int>(std::size(kShapes));

void line(CDC& dc, LONG x1, LONG y1, LONG x2, LONG y2) {
  dc.MoveTo(x1, y1);
  dc.LineTo(x2, y2);
}

void drawOutline(CDC& dc, Outline outline, const CRect& square, CPoint middle) {
  const POINT up[] = {
      {middle.x, square.top}, {square.left, square.bottom}, {square.right, square.bottom}};
  const POINT down[] = {
      {square.right, square.top}, {square.left, square.top}, {middle.x, square.bottom}};
  const POINT diamond[] = {{middle.x, square.top},
                           {square.right, middle.y},
                           {middle.x, square.bottom},
                           {square.left, middle.y}};
  switch (outline) {
    case Outline::kNone:
      break;
    case Outline::kEllipse:
      dc.Ellipse(square);
      break;
    case Outline::kTriangleUp:
      dc.Polygon(up, 3);
      break;
    case Outline::kRectangle:
      dc.Rectangle(square);
      break;
    case Outline::kDiamond:
      dc.Polygon(diamond, 4);
      break;
    case Outline::kTriangleDown:
      dc.Polygon(down, 3);
      break;
  }
}

void drawParts(CDC& dc, unsigned parts, const CRect& square, CPoint middle) {
  if (parts & kPlus) {
    line(dc, square.left, middle.y, square.right, middle.y);
    line(dc, middle.x, square.top, middle.x, square.bottom);
  }
  if (parts & kCross) {
    line(dc, square.left, square.top, square.right, square.bottom);
    line(dc, square.left, square.bottom, square.right, square.top);
  }
  if (parts & kInnerEllipse)
    dc.Ellipse((square.left + middle.x) / 2, (square.top + middle.y) / 2,
               (square.right + middle.x) / 2, (square.bottom + middle.y) / 2);
}

void drawShape(CDC& dc, int mode, bool filled, const CRect& square, CPoint middle) {
  const MarkerShape& shape = kShapes[mode - 1];
  drawOutline(dc, shape.outline, square, middle);
  drawParts(dc, shape.always, square, middle);
  if (!filled) drawParts(dc, shape.whenHollow, square, middle);
  if (mode == kModeThatGoesOn) drawShape(dc, mode + 1, filled, square, middle);
}

}  // namespace

CQdrDbPoint::CQdrDbPoint(CQdrDbDatabase* database) : CQdrDbEntity(database) {
  setClassInfo(kClassType, eEntity);
}

CQdrDbPoint::CQdrDbPoint(const CQdrGePoint2d& position) : CQdrDbPoint(nullptr) {
  SetPosition(position);
}

CQdrDbPoint::CQdrDbPoint(const CQdrDbPoint& other) : CQdrDbPoint(other.database()) {
  CopyEntProperties(other);
  takeMarker(other);
}

CQdrDbEntity& CQdrDbPoint::operator=(const CQdrDbEntity& other) {
  CQdrDbEntity::operator=(other);
  if (other.classType() == kClassType) takeMarker(static_cast<const CQdrDbPoint&>(other));
  return *this;
}

CQdrDbPoint& CQdrDbPoint::operator=(const CQdrDbPoint& other) {
  *this = static_cast<const CQdrDbEntity&>(other);
  return *this;
}

void CQdrDbPoint::takeMarker(const CQdrDbPoint& other) {
  m_size = other.m_size;
  m_mode = other.m_mode;
  m_fill = other.m_fill;
  m_flag = other.m_flag;
  SetPosition(other.m_position);
}

template <class Stream>
void CQdrDbPoint::fields(Stream& stream) {
  stream.number(m_size);
  stream.number(m_fill);
  stream.number(m_flag);
  stream.part(m_position);
}

void CQdrDbPoint::save() {
  CQdrDbObject::save();
  CQdrDbEntity::save();
  qdr::FieldWriter stream(file());
  fields(stream);
}

void CQdrDbPoint::read() {
  CQdrDbObject::read();
  CQdrDbEntity::read();
  qdr::FieldReader stream(file());
  fields(stream);
  setGripPoints();
}

CQdrDbRect CQdrDbPoint::GetOutRect() {
  return CQdrDbRect::around(m_position.x, m_position.y, m_position.x, m_position.y);
}

CRect CQdrDbPoint::markerSquare() const {
  double half = m_size * _dDispScale;
  if (!(m_size > 0.0) && m_database) {
    const CQdrDbDisplayTableRecord* display = m_database->m_displayTable.getCurrentRecord();
    half = display ? m_database->m_vars.pointSize * display->scaleX() : 0.0;
  }
  const double x = m_position.x * _dDispScale;
  const double y = m_position.y * _dDispScale;
  return {qdr::truncToInt(x - half), qdr::truncToInt(y + half), qdr::truncToInt(x + half),
          qdr::truncToInt(y - half)};
}

void CQdrDbPoint::Draw(CDC* dc) {
  if (!dc || !isVisiable()) return;
  const int setting = m_database ? m_database->m_vars.pointMode : kPixelMode;
  const int mode = m_mode != 0 ? m_mode : setting;
  CPen* formerPen = setPen(dc);
  const CPoint middle = qdr::toLogical(m_position);
  if (mode == kPixelMode) {
    dc->SetPixel(middle, dc->GetCurrentPen()->color());
  } else if (mode > 0 && mode <= kLastMode) {
    CBrush brush;
    const CQdrDbColorTableRecord* color = Color();
    const LOGBRUSH style{.lbStyle = FillMode() ? BS_SOLID : BS_HOLLOW,
                         .lbColor = static_cast<COLORREF>(color ? color->getColor() : 0),
                         .lbHatch = 0};
    brush.CreateBrushIndirect(&style);
    CBrush* formerBrush = dc->SelectObject(&brush);
    drawShape(*dc, mode, FillMode(), markerSquare(), middle);
    dc->SelectObject(formerBrush);
  }
  RemovePen(dc, formerPen);
}

void CQdrDbPoint::SetPosition(const CQdrGePoint2d& position) {
  m_position = position;
  setGripPoints();
}

void CQdrDbPoint::setGripPoints() {
  storeGripPoints({m_position});
}

int CQdrDbPoint::isOn(const CQdrGePoint2d& point, const double& tol) {
  return m_position.isOn(point, tol) ? 1 : 0;
}

bool CQdrDbPoint::checkInsideOrCross(const CQdrGePoint2d& corner1, const CQdrGePoint2d& corner2) {
  return checkInside(corner1, corner2);
}

bool CQdrDbPoint::checkInside(const CQdrGePoint2d& corner1, const CQdrGePoint2d& corner2) {
  return IsInsideRect(corner1, corner2, m_position);
}

bool CQdrDbPoint::intersectWith(CQdrDbEntity&, int& count, std::vector<CQdrGePoint2d>&, int,
                                double) {
  count = 0;
  return false;
}

bool CQdrDbPoint::intersectWith(const CQdrGeEllipArc2d&, int& count, std::vector<CQdrGePoint2d>&,
                                int, double) {
  count = 0;
  return false;
}

bool CQdrDbPoint::intersectWith(const CQdrGeCircArc2d&, int& count, std::vector<CQdrGePoint2d>&,
                                int, double) {
  count = 0;
  return false;
}

bool CQdrDbPoint::intersectWith(const CQdrGeLine2d&, int& count, std::vector<CQdrGePoint2d>&, int,
                                double) {
  count = 0;
  return false;
}
