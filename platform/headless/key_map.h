#pragma once

#include "platform/export.h"

namespace qdr {

/// The virtual key that types `character` on a plain keyboard; VK_PACKET when no key does.
QDR_API int keyOfCharacter(wchar_t character);

/// The character a key types, with or without Shift; 0 for a key that types none.
QDR_API wchar_t characterOfKey(int key, bool shift);

}  // namespace qdr
