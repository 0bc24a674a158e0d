#pragma once

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
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

/// How many of `count` items of `bytes` each the rest of the file holds: a count in a file is a
/// claim, and memory is taken for what is there.
inline std::size_t heldItems(CFile* file, std::uint32_t count, std::size_t bytes) {
  const std::uint64_t room = file ? file->bytesLeft() / bytes : 0;
  return static_cast<std::size_t>(std::min<std::uint64_t>(count, room));
}

}  // namespace qdr
