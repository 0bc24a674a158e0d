#pragma once

#include <string>

#include "geometry/point2d.h"
#include "interaction/command_id.h"
#include "platform/export.h"

namespace qdr {

/// A typed angle in radians: multiplied by pi first, then divided by 180.
QDR_API double typedRadians(double degrees);

/// What a typed answer means.
struct TypedAnswer {
  InputResult code = kInputText;  ///< kInputPoint, kInputNumber or kInputText
  CQdrGePoint2d point;
  double number = 0.0;
};

/// Reads a typed answer. In this order: two numbers with a comma are a point; "r<a" is the point at
/// distance r above 0 and angle a in degrees from `start`; a text without letters is a number;
/// anything else is a text. Comma and "<" count behind the first character only. There are no
/// other relative coordinates. What is no number counts as the number it begins with.
QDR_API TypedAnswer parseTyped(const std::wstring& text, const CQdrGePoint2d& start);

}  // namespace qdr
