#pragma once

#include <string>
#include <vector>

#include "geometry/point2d.h"

class CQdrDbEntity;

namespace qdr::test {

/// Side of one pixel of a sketch in world units.
inline constexpr double kSketchPixel = 0.1;

/// Entities drawn on white at one pixel a unit, each over those before it: a line of text for each
/// row of pixels from the top, in a frame; '#' where the pen or a brush was, '.' elsewhere. The
/// lowest row shows y = 1.
std::string pictureOf(const std::vector<CQdrDbEntity*>& entities, int width, int height);

/// The drawing operations of an entity at the same scale, in a view 20 units high; see
/// RecordingSurface.
std::vector<std::string> operationsOf(CQdrDbEntity& entity);

/// World coordinates of the middles of the pixels that an entity draws, on white, in a picture of
/// the square from (-20, -20) to (20, 20).
std::vector<CQdrGePoint2d> drawnPoints(CQdrDbEntity& entity);

}  // namespace qdr::test
