#pragma once

#include <optional>
#include <vector>

#include "database/object_id.h"
#include "platform/points.h"

class CDC;
class CQdrDbEntity;

namespace qdr {

/// The pen that an entity draws with, in logical units.
struct PenRecipe {
  COLORREF color = 0;
  int width = 0;
  /// Lengths on and off in turn; empty for a solid line.
  std::vector<DWORD> dashes;
};

/// Resolves colour, linetype and weight over "ByLayer", "ByBlock" and "Default", the last two by
/// the pen selected in `dc`. None when layer, colour or linetype record is missing.
/// `inBackground` takes the background colour of `dc`.
std::optional<PenRecipe> resolvePen(const CQdrDbEntity& entity, const CDC& dc, bool inBackground);

/// Width of a weight in hundredths of a millimetre. The weight counts as unsigned and the low 32
/// bits of the product are the width, so -2 comes out as -2.
int penWidth(std::int32_t weight);

/// The width of an entity's pen; `current` is that of the pen in use, which weight -3 takes.
int penWidthOf(const CQdrDbEntity& entity, int current);

}  // namespace qdr
