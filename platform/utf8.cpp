#include <cstdint>

#include "platform/wide_string.h"

namespace {

constexpr char32_t kReplacement = 0xFFFD;

// Smallest code point that needs this many bytes behind the first one.
constexpr char32_t kLeastOfLength[] = {0, 0x80, 0x800, 0x10000};

bool isSurrogate(char32_t code) {
  return code >= 0xD800 && code <= 0xDFFF;
}

// Bytes that follow the leading byte; -1 when it leads nothing.
int followersOf(unsigned char lead) {
  if (lead < 0x80) return 0;
  if (lead >= 0xC2 && lead < 0xE0) return 1;
  if (lead >= 0xE0 && lead < 0xF0) return 2;
  return lead >= 0xF0 && lead < 0xF5 ? 3 : -1;
}

// Takes one character off the front: a well-formed sequence, or one byte as its Latin-1 letter.
char32_t takeCharacter(std::string_view& bytes) {
  const auto lead = static_cast<unsigned char>(bytes.front());
  bytes.remove_prefix(1);
  const int followers = followersOf(lead);
  if (followers <= 0 || bytes.size() < static_cast<std::size_t>(followers)) return lead;
  char32_t code = lead & (0x3Fu >> followers);
  for (int i = 0; i < followers; ++i) {
    const auto byte = static_cast<unsigned char>(bytes[static_cast<std::size_t>(i)]);
    if ((byte & 0xC0) != 0x80) return lead;
    code = (code << 6) | (byte & 0x3Fu);
  }
  if (code < kLeastOfLength[followers] || isSurrogate(code) || code > 0x10FFFF) return lead;
  bytes.remove_prefix(static_cast<std::size_t>(followers));
  return code;
}

void appendUtf8(char32_t code, std::string& bytes) {
  const auto put = [&bytes](char32_t byte) { bytes += static_cast<char>(byte); };
  if (code < 0x80) return put(code);
  if (code < 0x800) {
    put(0xC0 | (code >> 6));
    return put(0x80 | (code & 0x3F));
  }
  if (code < 0x10000) {
    put(0xE0 | (code >> 12));
    put(0x80 | ((code >> 6) & 0x3F));
    return put(0x80 | (code & 0x3F));
  }
  put(0xF0 | (code >> 18));
  put(0x80 | ((code >> 12) & 0x3F));
  put(0x80 | ((code >> 6) & 0x3F));
  put(0x80 | (code & 0x3F));
}

}  // namespace

namespace qdr {

std::wstring fromUtf8(std::string_view bytes) {
  std::wstring result;
  result.reserve(bytes.size());
  while (!bytes.empty())
    result += static_cast<wchar_t>(takeCharacter(bytes));
  return result;
}

std::string toUtf8(std::wstring_view text) {
  std::string result;
  result.reserve(text.size());
  for (const wchar_t character : text) {
    const auto code = static_cast<char32_t>(character);
    appendUtf8(code > 0x10FFFF || isSurrogate(code) ? kReplacement : code, result);
  }
  return result;
}

}  // namespace qdr
