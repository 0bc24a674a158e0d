#pragma once

#include <array>
#include <bit>
#include <cstddef>
#include <cstring>

#include "platform/file.h"

/// Fields of fixed width side by side in a file, without padding, in one transfer.
namespace qdr {

static_assert(std::endian::native == std::endian::little,
              "fields are stored as they lie in memory");

template <class... Fields>
inline constexpr std::size_t kRawSize = (sizeof(Fields) + ...);

template <class... Fields>
std::array<unsigned char, kRawSize<Fields...>> packFields(const Fields&... fields) {
  std::array<unsigned char, kRawSize<Fields...>> bytes;
  unsigned char* at = bytes.data();
  ((std::memcpy(at, &fields, sizeof fields), at += sizeof fields), ...);
  return bytes;
}

template <class... Fields>
void writeFields(CFile* file, const Fields&... fields) {
  const auto bytes = packFields(fields...);
  writeRaw(file, bytes.data(), static_cast<unsigned>(bytes.size()));
}

/// False on a short read; the bytes that are missing keep their values.
template <class... Fields>
bool readFields(CFile* file, Fields&... fields) {
  auto bytes = packFields(fields...);
  const bool complete = readRaw(file, bytes.data(), static_cast<unsigned>(bytes.size()));
  const unsigned char* at = bytes.data();
  ((std::memcpy(&fields, at, sizeof fields), at += sizeof fields), ...);
  return complete;
}

}  // namespace qdr
