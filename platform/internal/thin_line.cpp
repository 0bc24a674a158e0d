#include "platform/internal/thin_line.h"

#include <algorithm>

namespace qdr {

namespace {

// Twice a product of two 33-bit lengths passes 64 bits.
__extension__ using Int128 = __int128;

// Products of lengths below this stay within 64 bits.
constexpr std::int64_t kShort = std::int64_t{1} << 30;

template <class Wide>
Wide ceilDiv(Wide top, Wide bottom) {
  return top > 0 ? (top - 1) / bottom + 1 : top / bottom;
}

StepRange overlap(StepRange a, StepRange b) {
  return {std::max(a.first, b.first), std::min(a.last, b.last)};
}

}  // namespace

constinit const std::array<double, ThinLine::kTabled> ThinLine::kUnits = [] {
  std::array<double, kTabled> units{};
  for (std::int64_t length = 1; length < kTabled; ++length)
    units[static_cast<std::size_t>(length)] = unitOf(length);
  return units;
}();

// The steps at which the pixel across lies within [low, high) follow by solving for i.
template <class Wide>
StepRange ThinLine::insideAcross(std::int64_t low, std::int64_t high, StepRange range) const {
  const Wide half = Wide{m_length} + (acrossSign() > 0 ? -1 : 0);
  const auto firstReaching = [&](std::int64_t across) {
    if (across <= 0) return range.first;
    if (across > m_rise) return range.last;
    const Wide step = ceilDiv<Wide>(2 * Wide{m_length} * across - half, 2 * Wide{m_rise});
    return static_cast<std::int64_t>(std::min<Wide>(step, range.last));
  };
  return overlap(range, {firstReaching(low), firstReaching(high)});
}

StepRange ThinLine::inside(const CRect& clip, std::int64_t end) const {
  std::int64_t alongLow = m_steep ? clip.top : clip.left;
  std::int64_t alongHigh = m_steep ? clip.bottom : clip.right;
  std::int64_t acrossLow = m_steep ? clip.left : clip.top;
  std::int64_t acrossHigh = m_steep ? clip.right : clip.bottom;
  const std::int64_t alongStart = m_steep ? m_from.y : m_from.x;
  const std::int64_t acrossStart = m_steep ? m_from.x : m_from.y;

  // Distances from the start, counted in the direction of travel.
  const auto relative = [](std::int64_t& low, std::int64_t& high, std::int64_t start,
                           std::int64_t sign) {
    const std::int64_t a = sign > 0 ? low - start : start - (high - 1);
    const std::int64_t b = sign > 0 ? high - start : start - (low - 1);
    low = a;
    high = b;
  };
  relative(alongLow, alongHigh, alongStart, alongSign());
  relative(acrossLow, acrossHigh, acrossStart, acrossSign());

  const StepRange range = overlap({0, end}, {alongLow, alongHigh});
  if (range.isEmpty()) return {};
  if (acrossLow <= 0 && acrossHigh > m_rise) return range;
  if (acrossHigh <= 0 || acrossLow > m_rise) return {};
  return m_length < kShort ? insideAcross<std::int64_t>(acrossLow, acrossHigh, range)
                           : insideAcross<Int128>(acrossLow, acrossHigh, range);
}

ThinLine::Walk ThinLine::walkFrom(std::int64_t step, int stride) const {
  if (m_length == 0) return {.offset = std::ptrdiff_t{m_from.y} * stride + m_from.x};
  Walk walk = walkFromStart(stride);
  if (step == 0) return walk;
  const std::int64_t bias = acrossSign() > 0 ? -1 : 0;
  std::int64_t across = 0;
  std::int64_t rest = 0;
  if (m_length < kShort) {
    const std::int64_t total = 2 * step * m_rise + m_length + bias;
    across = total / (2 * m_length);
    rest = total - across * 2 * m_length;
  } else {
    const Int128 total = 2 * Int128{step} * m_rise + m_length + bias;
    across = static_cast<std::int64_t>(total / (2 * m_length));
    rest = static_cast<std::int64_t>(total - Int128{across} * 2 * m_length);
  }
  walk.offset += step * walk.along + across * walk.across;
  walk.height = fixedPoint(static_cast<double>(2 * rest + 1) * (unit() * 0.25));
  return walk;
}

}  // namespace qdr
