#pragma once

#include <cstdint>
#include <cstring>
#include <memory>
#include <string>
#include <string_view>

#include "database/database.h"
#include "platform/headless/memory_file.h"

// Drawings as bytes, for tests that look at them.
namespace qdr_test {

/// Sizes of the parts of a new drawing without paper space, added up by hand from the sizes of
/// records and table forms.
inline constexpr std::size_t kFixedBytes = 21566 + 1200 + 232 + 32;
inline constexpr std::size_t kColorTable = kFixedBytes;
inline constexpr std::size_t kLinetypeTable = kColorTable + 2 + 9 * 200 + 2;
inline constexpr std::size_t kLayerTable = kLinetypeTable + 2 + 3 * (349 + 8) + (349 + 16) + 2;
inline constexpr std::size_t kTextStyleTable = kLayerTable + 2 + 4 * 197 + 2;
inline constexpr std::size_t kSymbolTable = kTextStyleTable + 2 + 704 + 2;
inline constexpr std::size_t kProjectInfoTable = kSymbolTable + 2 + 4 + 2;
inline constexpr std::size_t kRevisionTable = kProjectInfoTable + 2 * 162 + 2 + 4 + 2;
inline constexpr std::size_t kBlockTable = kRevisionTable + 2 + 4 + 2;

/// The first entity of the only block, behind the head, name and count of that block.
inline constexpr std::size_t kFirstEntity = kBlockTable + 2 + 175 + 4;
inline constexpr std::size_t kEmptyDrawing = kBlockTable + 2 + 183 + 2;

inline std::string savedBytes(CQdrDbDatabase& database) {
  qdr::MemoryFile file;
  CArchive archive(&file, CArchive::store);
  database.Save(archive);
  file.Close();
  database.m_pFile = nullptr;
  return file.bytes();
}

inline void readBytes(CQdrDbDatabase& database, std::string bytes) {
  qdr::MemoryFile file(std::move(bytes));
  CArchive archive(&file, CArchive::load);
  database.Read(archive);
  database.m_pFile = nullptr;
}

inline std::unique_ptr<CQdrDbDatabase> drawingOf(std::string bytes) {
  auto database = std::make_unique<CQdrDbDatabase>(false);
  readBytes(*database, std::move(bytes));
  return database;
}

template <class Number>
Number numberAt(std::string_view bytes, std::size_t offset) {
  Number number{};
  if (offset + sizeof number <= bytes.size()) {
    std::memcpy(&number, bytes.data() + offset, sizeof number);
  }
  return number;
}

template <class Number>
void putNumber(std::string& bytes, std::size_t offset, Number number) {
  if (offset + sizeof number <= bytes.size()) {
    std::memcpy(bytes.data() + offset, &number, sizeof number);
  }
}

/// A text field up to its first 0.
inline std::wstring textAt(std::string_view bytes, std::size_t offset) {
  std::wstring text;
  for (std::size_t at = offset; numberAt<char16_t>(bytes, at) != 0; at += 2) {
    text += static_cast<wchar_t>(numberAt<char16_t>(bytes, at));
  }
  return text;
}

inline void putText(std::string& bytes, std::size_t offset, std::wstring_view text) {
  for (std::size_t i = 0; i < text.size(); ++i) {
    putNumber(bytes, offset + 2 * i, static_cast<char16_t>(text[i]));
  }
  putNumber(bytes, offset + 2 * text.size(), char16_t{0});
}

}  // namespace qdr_test
