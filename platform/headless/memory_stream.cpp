#include "platform/headless/memory_stream.h"

#include <algorithm>
#include <cstring>

namespace qdr {

std::ptrdiff_t MemoryStream::read(void* data, std::size_t count) {
  const std::size_t taken = std::min(count, m_bytes->size() - std::min(m_readAt, m_bytes->size()));
  if (taken > 0) std::memcpy(data, m_bytes->data() + m_readAt, taken);
  m_readAt += taken;
  return static_cast<std::ptrdiff_t>(taken);
}

bool MemoryStream::write(const void* data, std::size_t count) {
  m_bytes->append(static_cast<const char*>(data), count);
  return true;
}

}  // namespace qdr
