#include "entities/spiral.h"

#include <algorithm>

#include "entities/internal/chain_drawing.h"
#include "entities/internal/chain_explode.h"
#include "entities/internal/property_rows.h"
#include "entities/polyline.h"
#include "entities/rect.h"
#include "platform/device_context.h"
#include "platform/file.h"

namespace {

constexpr std::uint8_t kStatus = CQdrDbObject::eEntity | CQdrDbObject::eCompound;

// The data of a property row is the address of the field itself.
constexpr int kFieldAddress = 1;

}  // namespace

CQdrDbSpiral::CQdrDbSpiral(CQdrDbDatabase* database) : CQdrDbCurve(database) {
  setClassInfo(kClassType, m_spiral, kStatus);
}

CQdrDbSpiral::CQdrDbSpiral(const CQdrDbSpiral& other)
    : CQdrDbCurve(other.database()), m_spiral(other.m_spiral) {
  setClassInfo(kClassType, m_spiral, kStatus);
  CopyEntProperties(other);
  setGripPoints();
}

CQdrDbSpiral::CQdrDbSpiral(int divNum, const CQdrGePoint2d& center, double maxRadius,
                           double minRadius, double offsetDist, double startAngle, double scale)
    : CQdrDbSpiral(nullptr) {
  Set(divNum, center, maxRadius, minRadius, offsetDist, startAngle, scale);
}

CQdrDbEntity& CQdrDbSpiral::operator=(const CQdrDbEntity& other) {
  CQdrDbEntity::operator=(other);
  if (other.classType() == kClassType) {
    m_spiral = static_cast<const CQdrDbSpiral&>(other).m_spiral;
    setGripPoints();
  }
  return *this;
}

CQdrDbSpiral& CQdrDbSpiral::operator=(const CQdrDbSpiral& other) {
  *this = static_cast<const CQdrDbEntity&>(other);
  return *this;
}

void CQdrDbSpiral::Set(int divNum, const CQdrGePoint2d& center, double maxRadius, double minRadius,
                       double offsetDist, double startAngle, double scale) {
  m_spiral.set(divNum, center, maxRadius, minRadius, offsetDist, startAngle, scale);
  setGripPoints();
}

void CQdrDbSpiral::SetCenter(const CQdrGePoint2d& center) {
  m_spiral.translateBy(center - Center());
  setGripPoints();
}

void CQdrDbSpiral::SetMaxRadius(double radius) {
  m_spiral.setMaxRadius(radius);
  updatePoly();
}

void CQdrDbSpiral::SetMinRadius(double radius) {
  m_spiral.setMinRadius(radius);
  updatePoly();
}

void CQdrDbSpiral::SetStartAngle(double angle) {
  m_spiral.setStartAngle(angle);
  updatePoly();
}

void CQdrDbSpiral::SetDivNum(int divNum) {
  m_spiral.setDivNum(divNum);
  updatePoly();
}

void CQdrDbSpiral::SetOffsetDist(double distance) {
  m_spiral.setOffsetDist(distance);
  updatePoly();
}

void CQdrDbSpiral::updatePoly() {
  m_spiral.setGePolyline();
  setGripPoints();
}

void CQdrDbSpiral::save() {
  CQdrDbCurve::save();
  if (file()) m_spiral.polyline().save(file());
}

void CQdrDbSpiral::read() {
  CQdrDbObject::read();
  CQdrDbEntity::read();
  if (file()) {
    m_spiral.read(file());
    CQdrGePolyline2d stored;
    stored.read(file());
    m_spiral.storeGePolyline(stored);
  }
  setGripPoints();
}

void CQdrDbSpiral::makeProperty() {
  CQdrDbEntity::makeProperty();
  std::vector<Property> rows = qdr::fieldRows({{L"Max Radius", m_spiral.maxRadius()},
                                               {L"Min Radius", m_spiral.minRadius()},
                                               {L"Offset Dist", m_spiral.offsetDist()},
                                               {L"Start Angle", m_spiral.startAng()}});
  CString text;
  text.Format(L"%f", static_cast<double>(DivNum()));
  _makePropertyList(rows, L"Div Num", text, reinterpret_cast<std::uintptr_t>(&m_spiral.divNum()),
                    kFieldAddress);
  const std::vector<Property> others = qdr::fieldRows(
      {{L"X Center", Center().x}, {L"Y Center", Center().y}, {L"Raito", m_spiral.scale()}});
  rows.insert(rows.end(), others.begin(), others.end());
  properties()[L"Shape"] = rows;
}

CQdrDbRect CQdrDbSpiral::GetOutRect() {
  return m_spiral.polyline().getOutRect();
}

void CQdrDbSpiral::Draw(CDC* dc) {
  if (!dc || !isVisiable()) return;
  CPen* former = setPen(dc);
  qdr::drawChain(*dc, m_spiral.polyline());
  RemovePen(dc, former);
}

void CQdrDbSpiral::setGripPoints() {
  const std::vector<CQdrGePoint2d>& points = m_spiral.polyline().points();
  if (points.empty()) {
    storeGripPoints({Center(), Center(), Center(), Center()});
    return;
  }
  const int last = static_cast<int>(points.size()) - 1;
  const auto turn = static_cast<std::size_t>(std::clamp(DivNum(), 0, last));
  storeGripPoints({Center(), points.front(), points[turn], points.back()});
}

void CQdrDbSpiral::Reverse() {
  m_spiral.reverse();
  setGripPoints();
}

int CQdrDbSpiral::IsVertex(const CQdrGePoint2d& point, double distance) const {
  return m_spiral.polyline().isVertex(point, distance);
}

bool CQdrDbSpiral::Explode() {
  return qdr::explodeChain(*this, m_spiral.polyline());
}

void CQdrDbSpiral::ConvertToPolyline(CQdrDbPolyline& result) const {
  const CQdrGePolyline2d& chain = m_spiral.polyline();
  result.CopyEntProperties(*this);
  result.SetVertexes(&chain.points(), &chain.bulges());
  result.SetClosed(chain.isClosed());
}
