#include "database/entity_classes.h"
#include "entities/curve.h"
#include "entities/entity.h"
#include "entities/internal/entity_transforms.h"

namespace {

// The geometry of a curve, which is about to change; null for other entities.
CQdrGeEntity2d* geometryToChange(CQdrDbEntity& entity) {
  if (!entity.IsCurveEntity()) return nullptr;
  auto& curve = static_cast<CQdrDbCurve&>(entity);
  curve.clearVertexArrayValid();
  return curve.curve();
}

// Runs the class's own transform, if it has one.
template <class Transform, class... Arguments>
CQdrDbEntity& runOwn(CQdrDbEntity& entity, Transform EntityTransforms::*slot,
                     const Arguments&... arguments) {
  const qdr::EntityClass* row = qdr::entityClass(entity.classType());
  if (row && row->transforms && row->transforms->*slot)
    (row->transforms->*slot)(entity, arguments...);
  return entity;
}

}  // namespace

CQdrDbEntity& CQdrDbEntity::TransformBy(const CQdrGeMatrix2d& matrix) {
  CQdrGeEntity2d* curve = geometryToChange(*this);
  if (!curve) return runOwn(*this, &EntityTransforms::transformBy, matrix);
  curve->transformBy(matrix);
  return *this;
}

CQdrDbEntity& CQdrDbEntity::TranslateBy(const CQdrGeVector2d& vector) {
  CQdrGeEntity2d* curve = geometryToChange(*this);
  if (!curve) return runOwn(*this, &EntityTransforms::translateBy, vector);
  curve->translateBy(vector);
  return *this;
}

CQdrDbEntity& CQdrDbEntity::RotateBy(double angle, const CQdrGePoint2d& center) {
  CQdrGeEntity2d* curve = geometryToChange(*this);
  if (!curve) return runOwn(*this, &EntityTransforms::rotateBy, angle, center);
  curve->rotateBy(angle, center);
  return *this;
}

CQdrDbEntity& CQdrDbEntity::ScaleBy(double sx, double sy, const CQdrGePoint2d& center) {
  CQdrGeEntity2d* curve = geometryToChange(*this);
  if (!curve) return runOwn(*this, &EntityTransforms::scaleByXY, sx, sy, center);
  curve->scaleBy(sx, sy, center);
  return *this;
}

CQdrDbEntity& CQdrDbEntity::ScaleBy(double scale, const CQdrGePoint2d& center) {
  CQdrGeEntity2d* curve = geometryToChange(*this);
  if (!curve) return runOwn(*this, &EntityTransforms::scaleBy, scale, center);
  curve->scaleBy(scale, center);
  return *this;
}

CQdrDbEntity& CQdrDbEntity::Mirror(const CQdrGeLine2d& line) {
  CQdrGeEntity2d* curve = geometryToChange(*this);
  if (!curve) return runOwn(*this, &EntityTransforms::mirror, line);
  curve->mirror(line);
  return *this;
}
