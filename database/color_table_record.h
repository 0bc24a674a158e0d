#pragma once

#include <cstdint>

#include "database/referred_record.h"
#include "platform/export.h"
#include "platform/wide_string.h"

/// One colour index in use. The name of the record is the index in decimal; beside it stand the
/// value and a word for the colour.
class QDR_API CQdrDbColorTableRecord : public CQdrDbLayerReferredRecord {
 public:
  /// Characters of a colour name with its terminator.
  static constexpr std::size_t kColorNameSize = 10;

  explicit CQdrDbColorTableRecord(CQdrDbDatabase* database);

  /// Copies name, colour name, value and mark. For a record outside a table.
  CQdrDbColorTableRecord& operator=(const CQdrDbColorTableRecord& source);

  /// The value with red in the low byte, then green, then blue.
  unsigned long getColor() const { return m_color; }
  void setColor(const unsigned long& color) { m_color = static_cast<std::uint32_t>(color); }
  std::uint8_t red() const { return static_cast<std::uint8_t>(m_color); }
  std::uint8_t green() const { return static_cast<std::uint8_t>(m_color >> 8); }
  std::uint8_t blue() const { return static_cast<std::uint8_t>(m_color >> 16); }

  /// The index in the record's name; 0 for a name that is no number.
  int colorIndex() const;

  wchar_t* getColorName() { return m_colorName; }

  /// Cut at 9 characters.
  void setColorName(const wchar_t* name);

  /// Answers a word for a colour whose parts are each 0 or 255 ("red"; white is "ByBlock" for index
  /// 0 and "ByLayer" for 256), else the record's name, and stores it as the colour name.
  void getNaturColorName(CString& name);

  /// A mark for the host; the library only keeps it.
  bool isColorModified() const { return m_modified != 0; }
  void setColorModified(bool modified) { m_modified = modified ? 1 : 0; }

  void save() override;
  void read() override;

 private:
  template <class Stream>
  void fields(Stream& stream);

  wchar_t m_colorName[kColorNameSize] = {};
  std::uint32_t m_color = 0;
  std::uint8_t m_modified = 0;
};
