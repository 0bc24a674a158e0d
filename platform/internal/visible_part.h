#pragma once

#include <algorithm>

namespace qdr {

/// A box in continuous coordinates, sides included.
struct ReachBox {
  double left = 0;
  double top = 0;
  double right = 0;
  double bottom = 0;

  bool holds(double x, double y) const {
    return x >= left && x <= right && y >= top && y <= bottom;
  }
};

/// The part of a segment that lies in a box, as fractions of its way.
struct VisiblePart {
  double first = 0;
  double last = 1;

  bool isEmpty() const { return !(first <= last); }
};

/// After Liang and Barsky, "A new concept and method for line clipping", 1984.
inline VisiblePart visiblePart(double x1, double y1, double x2, double y2, const ReachBox& box) {
  VisiblePart part;
  const auto cut = [&part](double start, double way, double low, double high) {
    if (way == 0) {
      if (start < low || start > high) part.last = -1;
      return;
    }
    const double a = (low - start) / way;
    const double b = (high - start) / way;
    part.first = std::max(part.first, std::min(a, b));
    part.last = std::min(part.last, std::max(a, b));
  };
  cut(x1, x2 - x1, box.left, box.right);
  cut(y1, y2 - y1, box.top, box.bottom);
  return part;
}

}  // namespace qdr
