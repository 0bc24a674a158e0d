#pragma once

#include "entities/entity.h"

namespace qdr {

/// The entity as a concrete class, by its class type; null for null and for any other class.
template <class Class>
Class* entityAs(CQdrDbEntity* entity) {
  return classTypeOf(entity) == Class::kClassType ? static_cast<Class*>(entity) : nullptr;
}
template <class Class>
const Class* entityAs(const CQdrDbEntity* entity) {
  return classTypeOf(entity) == Class::kClassType ? static_cast<const Class*>(entity) : nullptr;
}

}  // namespace qdr
