#pragma once

#include <algorithm>
#include <span>

#include "entities/entity.h"

// What a window of two opposite corners asks of the grips of an entity.
namespace qdr {

inline bool anyInside(std::span<const CQdrGePoint2d> grips, const CQdrGePoint2d& corner1,
                      const CQdrGePoint2d& corner2) {
  return std::ranges::any_of(grips, [&](const CQdrGePoint2d& grip) {
    return CQdrDbEntity::IsInsideRect(corner1, corner2, grip);
  });
}

/// None are not inside.
inline bool allInside(std::span<const CQdrGePoint2d> grips, const CQdrGePoint2d& corner1,
                      const CQdrGePoint2d& corner2) {
  return !grips.empty() && std::ranges::all_of(grips, [&](const CQdrGePoint2d& grip) {
    return CQdrDbEntity::IsInsideRect(corner1, corner2, grip);
  });
}

}  // namespace qdr
