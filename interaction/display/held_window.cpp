#include "interaction/display/held_window.h"

#include <algorithm>

namespace {

constexpr double kLargestCoordinate = 2e9;
constexpr double kLargestSide = 2147483647.0;

struct Extent {
  double low, high;
};

Extent heldExtent(double low, double high) {
  low = std::clamp(low, -kLargestCoordinate, kLargestCoordinate);
  high = std::clamp(high, -kLargestCoordinate, kLargestCoordinate);
  const double excess = (high - low - kLargestSide) / 2.0;
  return excess > 0.0 ? Extent{low + excess, high - excess} : Extent{low, high};
}

double heldWay(double way, double low, double high) {
  return std::clamp(way, -kLargestCoordinate - low, kLargestCoordinate - high);
}

}  // namespace

namespace qdr {

CRect heldWindow(double left, double top, double right, double bottom) {
  const Extent x = heldExtent(left, right);
  const Extent y = heldExtent(top, bottom);
  return {truncToInt(x.low), truncToInt(y.low), truncToInt(x.high), truncToInt(y.high)};
}

CRect movedWindow(const CRect& window, double dx, double dy) {
  const CRect held = heldWindow(window.left, window.top, window.right, window.bottom);
  const double x = heldWay(dx, held.left, held.right);
  const double y = heldWay(dy, held.top, held.bottom);
  return {truncToInt(held.left + x), truncToInt(held.top + y), truncToInt(held.right + x),
          truncToInt(held.bottom + y)};
}

}  // namespace qdr
