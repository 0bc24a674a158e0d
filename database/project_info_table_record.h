#pragma once

#include <cstdint>

#include "database/table_record.h"
#include "platform/export.h"

/// One line of project information: two numbers and a text, whose meaning is the host's. Saved, and
/// dropped by a load, so the host reads it from the file itself.
class QDR_API CQdrDbProjectInfoTableRecord : public CQdrDbTableRecord {
 public:
  explicit CQdrDbProjectInfoTableRecord(CQdrDbDatabase* database);

  /// Names the record "*S" and the next number of the project info table; `buffer` of at least
  /// kNameSize characters takes the name too.
  void SetAutoName(wchar_t* buffer);

  void save() override;
  void read() override;

  std::int32_t m_first = 0;
  std::int32_t m_second = 0;
  wchar_t m_text[81] = {};

 private:
  template <class Stream>
  void fields(Stream& stream);
};
