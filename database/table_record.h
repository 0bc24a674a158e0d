#pragma once

#include <cstddef>

#include "database/object.h"
#include "platform/export.h"

/// A named member of a table, which owns it. The name is at most 80 characters; a renamed record
/// stays filed under its old name until CQdrDbTable::reName files it anew.
class QDR_API CQdrDbTableRecord : public CQdrDbObject {
 public:
  /// Characters of a name with its terminator.
  static constexpr std::size_t kNameSize = 81;

  explicit CQdrDbTableRecord(CQdrDbDatabase* database);

  /// Head and name, 175 bytes.
  void save() override;
  void read() override;
  void makeProperty() override {}

  /// Stores a name. One of more than 80 characters is cut in the caller's buffer too.
  virtual void setName(wchar_t* name);

  /// The same on a copy, for names that cannot be written to.
  void setName(const wchar_t* name);

  wchar_t* getName() { return m_name; }
  const wchar_t* getName() const { return m_name; }

  /// Copies the name into a buffer of at least kNameSize characters.
  void getName(wchar_t* buffer) const;

 protected:
  CQdrDbTableRecord(const CQdrDbTableRecord& source) = default;
  CQdrDbTableRecord& operator=(const CQdrDbTableRecord&) { return *this; }

  wchar_t m_name[kNameSize] = {};
};
