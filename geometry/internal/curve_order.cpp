#include "geometry/internal/curve_order.h"

#include <algorithm>
#include <array>

namespace qdr {

namespace {

/// Cells of the curve along one side of the bounds.
constexpr double kCurveCells = 65535.0;

/// One box on the curve: its place there and its position in the vector given.
struct CurvePlace {
  std::uint32_t key;
  std::uint32_t name;
};

/// Place of a cell on the Hilbert curve of order 16, without loops over levels: the state of all
/// levels is carried in the bits of four words (parallel prefix, Warren: Hacker's Delight, 16-3).
std::uint32_t hilbertKey(std::uint32_t x, std::uint32_t y) {
  std::uint32_t a = x ^ y;
  std::uint32_t b = 0xFFFF ^ a;
  std::uint32_t c = 0xFFFF ^ (x | y);
  std::uint32_t d = x & (y ^ 0xFFFF);
  std::uint32_t A = a | (b >> 1);
  std::uint32_t B = (a >> 1) ^ a;
  std::uint32_t C = ((c >> 1) ^ (b & (d >> 1))) ^ c;
  std::uint32_t D = ((a & (c >> 1)) ^ (d >> 1)) ^ d;
  for (int shift = 2; shift <= 8; shift *= 2) {
    a = A;
    b = B;
    c = C;
    d = D;
    if (shift < 8) {
      A = (a & (a >> shift)) ^ (b & (b >> shift));
      B = (a & (b >> shift)) ^ (b & ((a ^ b) >> shift));
    }
    C ^= (a & (c >> shift)) ^ (b & (d >> shift));
    D ^= (b & (c >> shift)) ^ ((a ^ b) & (d >> shift));
  }
  a = C ^ (C >> 1);
  b = D ^ (D >> 1);
  std::uint32_t low = x ^ y;
  std::uint32_t high = b | (0xFFFF ^ (low | a));
  const auto spread = [](std::uint32_t v) {
    v = (v | (v << 8)) & 0x00FF00FF;
    v = (v | (v << 4)) & 0x0F0F0F0F;
    v = (v | (v << 2)) & 0x33333333;
    return (v | (v << 1)) & 0x55555555;
  };
  return (spread(high) << 1) | spread(low);
}

/// Cell of a coordinate, for bounds of any size; what is no number goes to cell 0.
std::uint32_t cellOf(double middle, double origin, double scale) {
  const double cell = (middle - origin) * scale;
  return cell > 0.0 ? static_cast<std::uint32_t>(std::min(cell, kCurveCells)) : 0;
}

/// Stable sort by key, digit by digit, so that equal keys keep the order given.
void sortByKey(std::vector<CurvePlace>& places) {
  constexpr int kDigitBits = 11;
  constexpr std::uint32_t kDigits = 1u << kDigitBits;
  std::vector<CurvePlace> sorted(places.size());
  std::array<std::array<std::uint32_t, kDigits>, 3> counts{};
  for (const CurvePlace& place : places) {
    for (int digit = 0; digit < 3; ++digit)
      ++counts[static_cast<std::size_t>(digit)]
              [(place.key >> (digit * kDigitBits)) & (kDigits - 1)];
  }
  for (int digit = 0; digit < 3; ++digit) {
    auto& starts = counts[static_cast<std::size_t>(digit)];
    std::uint32_t sum = 0;
    for (std::uint32_t& start : starts) {
      const std::uint32_t count = start;
      start = sum;
      sum += count;
    }
    for (const CurvePlace& place : places)
      sorted[starts[(place.key >> (digit * kDigitBits)) & (kDigits - 1)]++] = place;
    places.swap(sorted);
  }
}

}  // namespace

std::vector<std::uint32_t> curveOrder(std::span<const Box> boxes) {
  Box centers;
  for (const Box& box : boxes)
    centers.add(Vec((box.minX + box.maxX) * 0.5, (box.minY + box.maxY) * 0.5));
  const double scaleX = kCurveCells / (centers.maxX - centers.minX);
  const double scaleY = kCurveCells / (centers.maxY - centers.minY);
  std::vector<CurvePlace> places(boxes.size());
  for (std::size_t i = 0; i < boxes.size(); ++i) {
    const Box& box = boxes[i];
    const std::uint32_t x = cellOf((box.minX + box.maxX) * 0.5, centers.minX, scaleX);
    const std::uint32_t y = cellOf((box.minY + box.maxY) * 0.5, centers.minY, scaleY);
    places[i] = {hilbertKey(x, y), static_cast<std::uint32_t>(i)};
  }
  sortByKey(places);
  std::vector<std::uint32_t> names(boxes.size());
  for (std::size_t i = 0; i < places.size(); ++i)
    names[i] = places[i].name;
  return names;
}

}  // namespace qdr
