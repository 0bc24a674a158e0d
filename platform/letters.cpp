#include <algorithm>
#include <iterator>

#include "platform/wide_string.h"

namespace {

struct Range {
  char32_t first;
  char32_t last;
};

// The blocks of letters of the Basic Multilingual Plane and the ideographs beyond it, in order.
// Marks and signs that lie between letters of one script count with them.
constexpr Range kLetters[] = {
    {U'A', U'Z'},     {U'a', U'z'},       {0x00AA, 0x00AA}, {0x00B5, 0x00B5}, {0x00BA, 0x00BA},
    {0x00C0, 0x00D6}, {0x00D8, 0x00F6},   {0x00F8, 0x02C1}, {0x0370, 0x0373}, {0x0376, 0x037D},
    {0x037F, 0x037F}, {0x0386, 0x0386},   {0x0388, 0x0481}, {0x048A, 0x052F}, {0x0531, 0x0556},
    {0x0561, 0x0587}, {0x05D0, 0x05F2},   {0x0620, 0x064A}, {0x0671, 0x06D3}, {0x0904, 0x0939},
    {0x0E01, 0x0E30}, {0x10A0, 0x10FF},   {0x1100, 0x11FF}, {0x1E00, 0x1FFC}, {0x3041, 0x3096},
    {0x30A1, 0x30FA}, {0x3105, 0x312F},   {0x3131, 0x318E}, {0x3400, 0x4DBF}, {0x4E00, 0x9FFF},
    {0xA000, 0xA48C}, {0xAC00, 0xD7A3},   {0xF900, 0xFAFF}, {0xFF21, 0xFF3A}, {0xFF41, 0xFF5A},
    {0xFF66, 0xFFDC}, {0x20000, 0x323AF},
};

}  // namespace

namespace qdr {

bool isLetter(wchar_t character) {
  const auto code = static_cast<char32_t>(character);
  const Range* range = std::lower_bound(std::begin(kLetters), std::end(kLetters), code,
                                        [](const Range& r, char32_t c) { return r.last < c; });
  return range != std::end(kLetters) && range->first <= code;
}

}  // namespace qdr
