#include "interaction/grid_rounding.h"

#include <cmath>

namespace qdr {

bool isGridStep(double step) {
  return step > 0.0 && std::isfinite(step);
}

double roundedToGrid(double value, double spacing) {
  if (!isGridStep(spacing)) return value;
  const double whole = std::trunc(value / spacing) * spacing;
  const double rest = value - whole;
  if (!(std::abs(rest) > spacing / 2.0)) return whole;
  return whole + std::copysign(spacing, rest);
}

CQdrGePoint2d roundedToGrid(const CQdrGePoint2d& point, double spacing) {
  CQdrGePoint2d rounded = point;
  rounded.set(roundedToGrid(point.x, spacing), roundedToGrid(point.y, spacing));
  return rounded;
}

}  // namespace qdr
