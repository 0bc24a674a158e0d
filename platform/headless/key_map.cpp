#include "platform/headless/key_map.h"

#include "platform/input_constants.h"
#include "platform/wide_string.h"

namespace {

struct Key {
  int key;
  wchar_t plain;
  wchar_t shifted;
};

// Keys whose number is not that of the character they type.
constexpr Key kKeys[] = {
    {VK_BACK, 8, 8},
    {VK_TAB, 9, 9},
    {VK_RETURN, 13, 13},
    {VK_ESCAPE, 27, 27},
    {VK_SPACE, L' ', L' '},
    {'0', L'0', L')'},
    {'1', L'1', L'!'},
    {'2', L'2', L'@'},
    {'3', L'3', L'#'},
    {'4', L'4', L'$'},
    {'5', L'5', L'%'},
    {'6', L'6', L'^'},
    {'7', L'7', L'&'},
    {'8', L'8', L'*'},
    {'9', L'9', L'('},
    {VK_OEM_1, L';', L':'},
    {VK_OEM_PLUS, L'=', L'+'},
    {VK_OEM_COMMA, L',', L'<'},
    {VK_OEM_MINUS, L'-', L'_'},
    {VK_OEM_PERIOD, L'.', L'>'},
    {VK_OEM_2, L'/', L'?'},
};

bool isLetterKey(int key) {
  return key >= 'A' && key <= 'Z';
}

}  // namespace

namespace qdr {

int keyOfCharacter(wchar_t character) {
  if (character == L'\n') return VK_RETURN;
  const int upper = static_cast<int>(upperCase(character));
  if (isLetterKey(upper)) return upper;
  for (const Key& key : kKeys)
    if (key.plain == character || key.shifted == character) return key.key;
  return VK_PACKET;
}

wchar_t characterOfKey(int key, bool shift) {
  const auto letter = static_cast<wchar_t>(key);
  if (isLetterKey(key)) return shift ? letter : lowerCase(letter);
  for (const Key& row : kKeys)
    if (row.key == key) return shift ? row.shifted : row.plain;
  return L'\0';
}

}  // namespace qdr
