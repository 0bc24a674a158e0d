#pragma once

#include <vector>

#include "hostcore/script_stage.h"

namespace qdr::test {

/// The pixels of a stage's view, row by row.
std::vector<Pixel> pixelsOf(ScriptStage& stage);

/// Places where two pictures of equal size differ.
std::vector<CPoint> differences(const std::vector<Pixel>& a, const std::vector<Pixel>& b,
                                int width);

}  // namespace qdr::test
