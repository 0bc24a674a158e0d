#include "geometry/point3d.h"

#include "geometry/internal/raw_fields.h"
#include "geometry/plane.h"

CQdrGePoint3d::CQdrGePoint3d(const CQdrGePlane& plane, const CQdrGePoint2d& p) {
  set(plane, p);
}

void CQdrGePoint3d::save(CFile* file) const {
  qdr::writeFields(file, x, y, z);
}

void CQdrGePoint3d::read(CFile* file) {
  qdr::readFields(file, x, y, z);
}

CQdrGePoint3d& CQdrGePoint3d::set(const CQdrGePlane& plane, const CQdrGePoint2d& p) {
  const CQdrGeVector3d raised(plane, p.asVector());
  return set(raised.x, raised.y, raised.z);
}

CQdrGePoint2d CQdrGePoint3d::convert2d(const CQdrGePlane& plane) const {
  const CQdrGePoint3d onZAxis(0.0, 0.0, -plane.d / plane.c);
  return (orthoProject(plane) - onZAxis).convert2d(plane);
}

CQdrGePoint3d& CQdrGePoint3d::rotateBy(double angle, const CQdrGeVector3d& axis,
                                       const CQdrGePoint3d& point) {
  const CQdrGePoint3d pivot = point;
  return *this = pivot + (*this - pivot).rotateBy(angle, axis);
}

CQdrGePoint3d& CQdrGePoint3d::scaleBy(double s, const CQdrGePoint3d& point) {
  return scaleBy(s, s, s, point);
}

CQdrGePoint3d& CQdrGePoint3d::scaleBy(double sx, double sy, double sz, const CQdrGePoint3d& point) {
  const CQdrGeVector3d from = *this - point;
  return *this = point + CQdrGeVector3d(from.x * sx, from.y * sy, from.z * sz);
}

CQdrGePoint3d& CQdrGePoint3d::mirror(const CQdrGePlane& plane) {
  const CQdrGeVector3d mirrored = asVector().mirror(plane);
  return set(mirrored.x, mirrored.y, mirrored.z);
}

CQdrGePoint3d CQdrGePoint3d::orthoProject(const CQdrGePlane& plane) const {
  return *this + plane.getNorm() * plane.signedDistanceTo(*this);
}
