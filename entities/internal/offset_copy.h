#pragma once

#include <memory>

#include "entities/entity.h"

namespace qdr {

/// Body of getOffset: a new entity of the same class, looks and geometry whose geometry is offset.
/// The caller owns `result`; it is null, and nothing is left allocated, when the offset fails.
template <class Class, class Geometry>
bool offsetCopy(const Class& source, Geometry Class::*geometry, const CQdrGePoint2d& side,
                double distance, CQdrDbEntity*& result) {
  auto copy = std::make_unique<Class>(source.database());
  *copy = source;
  const bool done = (copy.get()->*geometry).offset(side, distance);
  if (done) copy->setGripPoints();
  result = done ? copy.release() : nullptr;
  return done;
}

}  // namespace qdr
