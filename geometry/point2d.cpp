#include "geometry/point2d.h"

#include <cmath>

#include "geometry/internal/raw_fields.h"
#include "geometry/line2d.h"

void CQdrGePoint2d::save(CFile* file) const {
  qdr::writeFields(file, x, y, tag);
}

void CQdrGePoint2d::read(CFile* file) {
  qdr::readFields(file, x, y, tag);
}

CPoint CQdrGePoint2d::asCPoint() const {
  return {qdr::truncToInt(x + 0.5), qdr::truncToInt(y + 0.5)};
}

CQdrGePoint2d& CQdrGePoint2d::setToProduct(const CQdrGeMatrix2d& m, const CQdrGePoint2d& p) {
  CQdrGePoint2d(p).transformBy(m);
  return *this;
}

double& CQdrGePoint2d::operator[](int i) {
  static double one = 1.0;
  return i == 0 ? x : (i == 1 ? y : one);
}

CQdrGePoint2d& CQdrGePoint2d::rotateBy(double angle, const CQdrGePoint2d& center) {
  if (*this == center) return *this;
  return transformBy(CQdrGeMatrix2d::rotation(angle, center));
}

CQdrGePoint2d& CQdrGePoint2d::mirror(const CQdrGeLine2d& line) {
  const CQdrGeVector2d start = line.startPoint().asVector();
  const double angle = line.startPoint().angleTo(line.endPoint());
  *this -= start;
  rotateBy(-angle, kOrigin);
  y = -y;
  rotateBy(angle, kOrigin);
  return *this += start;
}

CQdrGePoint2d& CQdrGePoint2d::scaleBy(double s, const CQdrGePoint2d& center) {
  return transformBy(CQdrGeMatrix2d::scaling(s, center));
}

CQdrGePoint2d& CQdrGePoint2d::scaleBy(double sx, double sy, const CQdrGePoint2d& center) {
  return transformBy(CQdrGeMatrix2d::scaling(sx, sy, center));
}

CQdrGePoint2d& CQdrGePoint2d::slantBy(const CQdrGeLine2d& line, double angle, bool keepLength) {
  CQdrGeVector2d fromFoot;
  if (!line.perpVecFromPoint(*this, fromFoot, qdr::kCurveTolerance)) return *this;
  CQdrGeVector2d way = -fromFoot;
  way.rotateBy(angle);
  if (keepLength) {
    const double stretched = way.length() / std::cos(angle);
    way = way.normal() * stretched;
  }
  return *this += way;
}
