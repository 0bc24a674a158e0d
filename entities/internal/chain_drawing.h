#pragma once

#include <vector>

#include "platform/points.h"

class CDC;
class CQdrDbEntity;
class CQdrGePolyline2d;

namespace qdr {

/// What the start widths of a chain mean to its drawing.
enum class StartWidths {
  kIgnored,
  kHideSegments,  ///< one above 0 hides the segment that ends at its vertex, but not a closing one
};

/// Draws a chain of lines and arcs with the pen in use, the closing segment too. A hidden segment
/// leaves the position where it was, so a straight one behind it starts there. `area`, where given,
/// takes the first vertex and the ends of the straight segments drawn before the closing one: the
/// polygon of a fill, which cuts arcs off.
void drawChain(CDC& dc, const CQdrGePolyline2d& chain, StartWidths widths = StartWidths::kIgnored,
               std::vector<CPoint>* area = nullptr);

/// Draws logical points as one polyline with the pen of an entity.
void drawPoints(CDC& dc, CQdrDbEntity& entity, const std::vector<CPoint>& points);

}  // namespace qdr
