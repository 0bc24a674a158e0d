#include "entities/internal/property_rows.h"

namespace {

// The data of the row is the address of the field itself.
constexpr int kFieldAddress = 1;

}  // namespace

namespace qdr {

std::vector<Property> fieldRows(std::initializer_list<PropertyField> fields) {
  std::vector<Property> rows;
  rows.reserve(fields.size());
  for (const PropertyField& field : fields) {
    CString text;
    text.Format(L"%f", field.value);
    _makePropertyList(rows, field.name, text, reinterpret_cast<std::uintptr_t>(&field.value),
                      kFieldAddress);
  }
  return rows;
}

}  // namespace qdr
