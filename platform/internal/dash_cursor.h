#pragma once

#include <cmath>
#include <cstddef>

#include "platform/device_surface.h"

namespace qdr {

/// A place in a dash pattern, which must not be solid. It starts at the first length, which is on.
class DashCursor {
 public:
  explicit DashCursor(const DashPattern& pattern) : m_pattern(&pattern) { restart(); }

  void restart() {
    m_index = 0;
    m_left = m_pattern->lengths[0];
  }

  bool isOn() const { return m_index % 2 == 0; }

  /// What is left of the present length.
  double left() const { return m_left; }

  /// Goes to the start of the next length.
  void next() {
    if (++m_index == m_pattern->lengths.size()) m_index = 0;
    m_left = m_pattern->lengths[m_index];
  }

  /// Goes on by a distance not below 0, whole periods at once. At the border of two lengths it
  /// stands at the start of the second, be that of length 0.
  void advance(double distance) {
    if (distance < m_left || !(distance > 0)) {
      m_left -= distance;
      return;
    }
    distance -= m_left;
    next();
    distance = std::fmod(distance, m_pattern->period);
    // One round of the list covers the period; rounding may leave a crumb at its end.
    const std::size_t count = m_pattern->lengths.size();
    for (std::size_t i = 0; i < count && distance > 0 && distance >= m_left; ++i) {
      distance -= m_left;
      next();
    }
    m_left = distance < m_left ? m_left - distance : 0;
  }

 private:
  const DashPattern* m_pattern;
  std::size_t m_index = 0;
  double m_left = 0;
};

/// Below one pixel a period cannot be told from a solid line, and walking it would only cost time.
inline bool isTooFine(const DashPattern& pattern, double unitsPerPixel) {
  return !(pattern.period >= unitsPerPixel);
}

}  // namespace qdr
