#pragma once

#include <cstdint>

#include "database/table_record.h"
#include "platform/export.h"

/// One line of a revision list: a number and three texts, whose meaning is the host's. Saved, and
/// dropped by a load, so the host reads it from the file itself.
class QDR_API CQdrDbRevisionTableRecord : public CQdrDbTableRecord {
 public:
  explicit CQdrDbRevisionTableRecord(CQdrDbDatabase* database);

  /// Names the record "*S" and the next number of the project info table, from which revisions
  /// number too; `buffer` of at least kNameSize characters takes the name.
  void SetAutoName(wchar_t* buffer);

  void save() override;
  void read() override;

  std::int32_t m_number = 0;
  wchar_t m_firstText[82] = {};
  wchar_t m_secondText[256] = {};
  wchar_t m_thirdText[256] = {};

 private:
  template <class Stream>
  void fields(Stream& stream);
};
