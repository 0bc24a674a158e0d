#pragma once

#include <cmath>
#include <numbers>

/// Angles are radians, counter-clockwise from the positive x axis.
namespace qdr {

inline constexpr double kPi = std::numbers::pi;
inline constexpr double kHalfPi = kPi / 2;
inline constexpr double kTwoPi = kPi * 2;

constexpr double toRadians(double degrees) {
  return degrees * (kPi / 180.0);
}

constexpr double toDegrees(double radians) {
  return radians * (180.0 / kPi);
}

/// The angle with one full turn added when it is negative. Angles below -2 pi stay negative, and a
/// tiny negative one may come out as exactly 2 pi.
constexpr double withTurnIfNegative(double angle) {
  return angle < 0.0 ? angle + kTwoPi : angle;
}

/// Direction of (x, y) in [0, 2 pi]; 0 for the zero vector.
inline double directionOf(double x, double y) {
  return withTurnIfNegative(std::atan2(y, x));
}

/// Counter-clockwise sweep from `start` to `end` as arcs measure it: each angle gets a full turn
/// when negative, and start loses one when end lies below it.
constexpr double sweepBetween(double start, double end) {
  const double from = withTurnIfNegative(start);
  const double to = withTurnIfNegative(end);
  return to < from ? to - (from - kTwoPi) : to - from;
}

}  // namespace qdr
