#pragma once

#include "platform/export.h"

/// Plain pair of doubles, 16 bytes in memory and in a file.
struct QDR_API QdrXY {
  double x = 0.0;
  double y = 0.0;

  constexpr QdrXY() = default;
  constexpr QdrXY(double px, double py) : x(px), y(py) {}

  constexpr void set(double px, double py) {
    x = px;
    y = py;
  }
};
