#pragma once

#include <memory>
#include <string>

#include "platform/file_system.h"

namespace qdr {

/// A stream over shared bytes: reads from their start, writes behind their end.
class QDR_API MemoryStream : public IFileStream {
 public:
  explicit MemoryStream(std::shared_ptr<std::string> bytes) : m_bytes(std::move(bytes)) {}

  std::ptrdiff_t read(void* data, std::size_t count) override;
  bool write(const void* data, std::size_t count) override;
  bool sync() override { return true; }
  bool close() override { return true; }
  std::uint64_t size() const override { return m_bytes->size(); }
  std::string lastError() const override { return {}; }

 private:
  std::shared_ptr<std::string> m_bytes;
  std::size_t m_readAt = 0;
};

}  // namespace qdr
