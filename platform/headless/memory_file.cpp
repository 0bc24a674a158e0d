#include "platform/headless/memory_file.h"

#include "platform/headless/memory_stream.h"

namespace qdr {

MemoryFile::MemoryFile() : m_bytes(std::make_shared<std::string>()) {
  attachWriter(std::make_unique<MemoryStream>(m_bytes), L"");
}

MemoryFile::MemoryFile(std::string content)
    : m_bytes(std::make_shared<std::string>(std::move(content))) {
  attachReader(std::make_unique<MemoryStream>(m_bytes), L"");
}

}  // namespace qdr
