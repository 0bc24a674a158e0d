#pragma once

#include <string>
#include <vector>

#include "platform/file.h"

namespace qdr {

/// A file whose bytes lie in memory: it saves into a string and reads from one.
class QDR_API MemoryFile : public CFile {
 public:
  /// Open for writing; the bytes are in bytes() after Close.
  MemoryFile();

  /// Open for reading over a copy of `content`.
  explicit MemoryFile(std::string content);

  /// What was written, complete after Close.
  const std::string& bytes() const { return *m_bytes; }

 private:
  std::shared_ptr<std::string> m_bytes;
};

}  // namespace qdr
