#pragma once

#include <gtest/gtest.h>

#include <cmath>
#include <ostream>
#include <random>
#include <string>

#include "geometry/line2d.h"
#include "geometry/point2d.h"
#include "geometry/vector2d.h"
#include "platform/headless/memory_file.h"

// What the geometry tests share: near comparison with readable failures, a trip through bytes, and
// seeded random numbers.

inline void PrintTo(const CQdrGePoint2d& p, std::ostream* out) {
  *out << "(" << p.x << ", " << p.y << ")";
}
inline void PrintTo(const CQdrGeVector2d& v, std::ostream* out) {
  *out << "<" << v.x << ", " << v.y << ">";
}

inline CQdrGeLine2d lineOf(double x1, double y1, double x2, double y2) {
  return {CQdrGePoint2d(x1, y1), CQdrGePoint2d(x2, y2)};
}

template <class Pair>
::testing::AssertionResult isNear(const Pair& actual, const Pair& expected, double tol = 1e-9) {
  const double apart = std::hypot(actual.x - expected.x, actual.y - expected.y);
  if (apart <= tol) return ::testing::AssertionSuccess();
  return ::testing::AssertionFailure() << ::testing::PrintToString(actual) << " lies " << apart
                                       << " from expected " << ::testing::PrintToString(expected);
}

/// The bytes that `saved` writes.
template <class Saved>
std::string bytesOf(const Saved& saved) {
  qdr::MemoryFile file;
  saved.save(&file);
  file.Close();
  return file.bytes();
}

template <class Read>
void readBytes(Read& target, const std::string& bytes) {
  qdr::MemoryFile file(bytes);
  target.read(&file);
}

/// Random numbers of a printed seed, so that a failure can be played again.
class Random {
 public:
  explicit Random(unsigned seed) : m_engine(seed) {}
  double between(double low, double high) {
    return std::uniform_real_distribution<double>(low, high)(m_engine);
  }
  CQdrGePoint2d point(double reach) { return {between(-reach, reach), between(-reach, reach)}; }

 private:
  std::mt19937 m_engine;
};
