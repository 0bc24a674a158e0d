#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace qdr {

/// The pixels one drawing call has touched, so that it touches none twice. Clearing costs what
/// was claimed, not what the surface holds.
class CoverageMask {
 public:
  /// Prepares for offsets below `pixelCount`; nothing is claimed.
  void begin(std::size_t pixelCount) {
    for (const std::uint32_t word : m_touched)
      m_bits[word] = 0;
    m_touched.clear();
    const std::size_t words = (pixelCount + 63) / 64;
    if (m_bits.size() < words) m_bits.resize(words, 0);
  }

  /// True for the first claim of an offset since `begin`.
  bool claim(std::size_t offset) {
    std::uint64_t& word = m_bits[offset >> 6];
    const std::uint64_t bit = std::uint64_t{1} << (offset & 63);
    if (word & bit) return false;
    if (word == 0) m_touched.push_back(static_cast<std::uint32_t>(offset >> 6));
    word |= bit;
    return true;
  }

  /// How many offsets from `offset` on are known to be claimed: 64 or none.
  int claimedAhead(std::size_t offset) const {
    return (offset & 63) == 0 && m_bits[offset >> 6] == ~std::uint64_t{0} ? 64 : 0;
  }

 private:
  std::vector<std::uint64_t> m_bits;
  std::vector<std::uint32_t> m_touched;
};

}  // namespace qdr
