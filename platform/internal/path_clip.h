#pragma once

#include "platform/vector_surface.h"

namespace qdr {

/// A closed contour of lines cut to a box, unchanged when all of it lies inside; empty when
/// nothing is left. Areas stay what they were within the box, under either fill mode.
QDR_API VectorPath clippedToBox(const VectorPath& contour, const CRect& box);

/// The lines of a hatch (HS_HORIZONTAL and so on) inside closed contours of lines.
QDR_API VectorPath hatchLines(const VectorPath& contours, int hatch, int fillMode, double spacing);

/// The path with its dashes drawn out as lines of their own; curves become chords. Dashes restart
/// at each move.
QDR_API VectorPath dashedPath(const VectorPath& path, const std::vector<double>& dashes);

}  // namespace qdr
