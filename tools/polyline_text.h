#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "geometry/point2d.h"
#include "geometry/polyline2d.h"

namespace qdr_tools {

/// What is wrong with a text, and where; lines and columns count from 1, columns in bytes.
struct TextFault {
  std::size_t line = 1;
  std::size_t column = 1;
  std::string reason;
};

/// A coordinate or bulge beyond this magnitude is refused: lengths formed from it stay exact enough
/// to mean something.
inline constexpr double kMaxNumber = 1e12;

/// More vertices than this are refused.
inline constexpr int kMaxVertices = 1'000'000;

/// Reads a polyline: vertices `X,Y` or `X,Y(BULGE)` parted by white space, at least two, then
/// `close` for a closed one. The bulge is that of the segment that starts at the vertex; that of
/// the last vertex counts only with `close`. From `#` to the end of its line is comment.
std::optional<TextFault> parsePolyline(std::string_view text, CQdrGePolyline2d& shape);

/// Reads `X,Y` and nothing else.
std::optional<TextFault> parsePoint(std::string_view text, CQdrGePoint2d& point);

/// The number in at most 12 digits, never as a negative zero.
std::string numberText(double value);

std::string pointText(const CQdrGePoint2d& point);

/// The shape as parsePolyline reads it, on one line; numbers as numberText gives them.
std::string polylineText(const CQdrGePolyline2d& shape);

}  // namespace qdr_tools
