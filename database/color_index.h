#pragma once

#include <cstdint>

#include "database/object_id.h"
#include "platform/export.h"

/// The palette: the value of each colour index, low byte red, then green, then blue. Indices 0, 7
/// and 256 are white, 255 is black; 0 stands for "ByBlock", 256 for "ByLayer".
extern QDR_API std::uint32_t _dwColorIndex[257];

/// The value of an index; white outside 0 to 256.
QDR_API unsigned long _getColorValueByIndex(int index);

/// The first index of the value's low 24 bits, 0 if none: white is 0, not 7.
QDR_API int _getColorIndexByValue(unsigned long value);

/// The value of a colour record; white for null.
QDR_API unsigned long getColor(const CQdrDbObjectId& colorId);
