#pragma once

#include "entities/entity.h"
#include "geometry/line2d.h"

/// The own transforms of an entity class that is no curve. Null where the class has none: the
/// entity then stays as it is.
struct EntityTransforms {
  void (*transformBy)(CQdrDbEntity& entity, const CQdrGeMatrix2d& matrix);
  void (*translateBy)(CQdrDbEntity& entity, const CQdrGeVector2d& vector);
  void (*rotateBy)(CQdrDbEntity& entity, double angle, const CQdrGePoint2d& center);
  void (*scaleByXY)(CQdrDbEntity& entity, double sx, double sy, const CQdrGePoint2d& center);
  void (*scaleBy)(CQdrDbEntity& entity, double scale, const CQdrGePoint2d& center);
  void (*mirror)(CQdrDbEntity& entity, const CQdrGeLine2d& line);
};

namespace qdr {

/// Transforms of a class that declares all of them under their lower-case names.
template <class Class>
inline constexpr EntityTransforms kTransformsOf = {
    .transformBy =
        [](CQdrDbEntity& entity, const CQdrGeMatrix2d& matrix) {
          static_cast<Class&>(entity).transformBy(matrix);
        },
    .translateBy =
        [](CQdrDbEntity& entity, const CQdrGeVector2d& vector) {
          static_cast<Class&>(entity).translateBy(vector);
        },
    .rotateBy =
        [](CQdrDbEntity& entity, double angle, const CQdrGePoint2d& center) {
          static_cast<Class&>(entity).rotateBy(angle, center);
        },
    .scaleByXY =
        [](CQdrDbEntity& entity, double sx, double sy, const CQdrGePoint2d& center) {
          static_cast<Class&>(entity).scaleBy(sx, sy, center);
        },
    .scaleBy =
        [](CQdrDbEntity& entity, double scale, const CQdrGePoint2d& center) {
          static_cast<Class&>(entity).scaleBy(scale, center);
        },
    .mirror = [](CQdrDbEntity& entity,
                 const CQdrGeLine2d& line) { static_cast<Class&>(entity).mirror(line); },
};

}  // namespace qdr
