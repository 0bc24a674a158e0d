#pragma once

#include <array>
#include <cstdint>

#include "platform/export.h"
#include "platform/points.h"
#include "platform/wide_string.h"

namespace QdrDb {

/// Width of a line in hundredths of a millimetre, or one of three words for where to look.
enum LineWeight : std::int32_t {
  eWeightDefault = -3,
  eWeightByBlock = -2,
  eWeightByLayer = -1,
  eWeightZero = 0,
};

}  // namespace QdrDb

namespace qdr {

/// All line weights in the order of the list that offers them.
inline constexpr std::array<std::int32_t, 26> kLineWeights = {
    -1, -2, -3, 0,  5,  9,  13,  15,  18,  20,  25,  30,  35,
    40, 53, 60, 70, 80, 90, 100, 106, 120, 140, 158, 200, 211};

}  // namespace qdr

/// The decimal text of a line weight as a person reads it: "ByLayer", "ByBlock", "Default" or
/// "0.25 mm". A text that is no number is 0.
QDR_API CString _getStrWeight(const CString& weight);

/// Widens a rectangle up and down for a thick line: top plus, bottom minus a margin that shrinks as
/// the weight grows, truncated. Left and right stay, and so does all for weights without a margin.
QDR_API CRect _getBoundary(CRect rect, int weight);
