#include "database/property.h"

Property::Property(const CString& name, const CString& value, const CString& caption, int type,
                   std::uintptr_t data)
    : m_name(name), m_value(value), m_caption(caption), m_type(type), m_data(data) {}

void Property::Set(const CString& name, const CString& value, const CString& caption, int type,
                   std::uintptr_t data) {
  *this = Property(name, value, caption, type, data);
}

void _makePropertyList(std::vector<Property>& list, const CString& name, const CString& value,
                       std::uintptr_t data, int type) {
  CString caption;
  caption.Format(L"Change %s", name);
  list.emplace_back(name, value, caption, type, data);
}
