#pragma once

#include <cstdint>
#include <map>
#include <vector>

#include "platform/export.h"
#include "platform/wide_string.h"

/// One row of the property sheet of an object. Rows show values; applying an edited one is the
/// host's.
class QDR_API Property {
 public:
  Property() = default;
  Property(const CString& name, const CString& value, const CString& caption, int type,
           std::uintptr_t data);

  void Set(const CString& name, const CString& value, const CString& caption, int type,
           std::uintptr_t data);

  CString m_name;
  CString m_value;    ///< as text
  CString m_caption;  ///< "Change " and the name

  /// What the data is: 0 a record or a plain number, 1 the address of the field, 2 a count, 3 the
  /// address of a vector of points, 4 the address of a vector of doubles.
  int m_type = 0;
  std::uintptr_t m_data = 0;
};

/// Rows by the name of their group, "General" or "Shape".
using PropertyGroups = std::map<CString, std::vector<Property>>;

/// Groups by class type.
using PropertyMap = std::map<int, PropertyGroups>;

/// Appends a row whose caption is "Change " and the name.
QDR_API void _makePropertyList(std::vector<Property>& list, const CString& name,
                               const CString& value, std::uintptr_t data, int type);
