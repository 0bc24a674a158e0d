#pragma once

#include <initializer_list>
#include <vector>

#include "database/property.h"

namespace qdr {

/// A field of an entity as it stands in its property sheet.
struct PropertyField {
  const wchar_t* name;
  const double& value;
};

/// Rows of type 1: the value as "%f", the data the address of the field.
std::vector<Property> fieldRows(std::initializer_list<PropertyField> fields);

}  // namespace qdr
