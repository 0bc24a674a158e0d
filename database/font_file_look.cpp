#include "database/font_file_look.h"

#include <cstdint>
#include <cstdio>
#include <map>

#include "database/text_style_table_record.h"
#include "platform/file.h"
#include "platform/file_path.h"
#include "platform/system.h"

CString _GetVectorFontPath() {
  wchar_t path[1024] = {};
  GetModuleFileNameW(GetModuleHandleW(nullptr), path, 1024);
  path[1023] = L'\0';
  return qdr::joinPath(qdr::folderOf(path), L"font");
}

namespace qdr {

namespace {

constexpr int kVerticalMode = 2;

// Positions in a normal font: number of shapes, then an index of code and length for each shape.
constexpr long kNormalCount = 28;
constexpr long kNormalIndex = 30;
constexpr long kNormalEntryBytes = 4;

// Positions in a big font: number of index entries, number of escape ranges, the ranges, then an
// index of code, length and offset for each shape.
constexpr long kBigCount = 27;
constexpr long kBigRanges = 31;
constexpr long kBigRangeBytes = 4;

// From the end of a description back to its last four bytes: above, below, modes, 0.
constexpr long kDescriptionTail = 4;

std::FILE* openFont(const wchar_t* name) {
  static std::map<CString, std::FILE*> opened;
  if (!name || !*name) return nullptr;
  const CString wanted = joinPath(_GetVectorFontPath(), CString(name) + L".shx");
  const auto known = opened.find(wanted);
  if (known != opened.end()) {
    std::rewind(known->second);
    return known->second;
  }
  std::FILE* file = _wfopen(findFileInAnyCase(wanted), L"rb");
  if (file) opened.emplace(wanted, file);
  return file;
}

template <class Number>
Number readAt(std::FILE* file, long position) {
  Number value = 0;
  if (std::fseek(file, position, SEEK_SET) != 0) return 0;
  return std::fread(&value, sizeof value, 1, file) == 1 ? value : Number{0};
}

// The modes byte of a description that ends at `end`.
bool endsWithVerticalMode(std::FILE* file, long end) {
  constexpr long kModesPlace = 2;
  return readAt<std::uint8_t>(file, end - kDescriptionTail + kModesPlace) == kVerticalMode;
}

}  // namespace

bool isNormalFontVertical(const wchar_t* name) {
  std::FILE* file = openFont(name);
  if (!file) return false;
  const long count = readAt<std::uint16_t>(file, kNormalCount);
  const long length = readAt<std::uint16_t>(file, kNormalIndex + 2);
  return endsWithVerticalMode(file, kNormalIndex + kNormalEntryBytes * count + length);
}

bool isBigFontVertical(const wchar_t* name) {
  std::FILE* file = openFont(name);
  if (!file) return false;
  const long ranges = readAt<std::uint16_t>(file, kBigCount + 2);
  const long entry = kBigRanges + kBigRangeBytes * ranges;
  const long length = readAt<std::uint16_t>(file, entry + 2);
  const long offset = static_cast<long>(readAt<std::uint32_t>(file, entry + 4));
  return endsWithVerticalMode(file, offset + length);
}

}  // namespace qdr
