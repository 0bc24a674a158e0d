#pragma once

#include <algorithm>
#include <cstdint>
#include <limits>
#include <memory>
#include <string>

#include "platform/headless/memory_files.h"

namespace qdr::testing_support {

/// Files in memory that fail as told: the disk is full after some bytes, transfers come in small
/// pieces, a read breaks off, or a step of the replacement of a file is refused.
class FaultyFiles : public MemoryFiles {
 public:
  static constexpr std::uint64_t kNever = std::numeric_limits<std::uint64_t>::max();

  std::uint64_t diskRoom = kNever;
  std::size_t readPiece = std::numeric_limits<std::size_t>::max();
  std::uint64_t readFailsAfter = kNever;
  bool syncFails = false;
  bool closeFails = false;
  bool renameFails = false;
  bool createFails = false;

  std::unique_ptr<IFileStream> openToRead(const std::wstring& path, std::string& error) override {
    auto inner = MemoryFiles::openToRead(path, error);
    return inner ? std::make_unique<Stream>(*this, std::move(inner)) : nullptr;
  }

  std::unique_ptr<IFileStream> createSibling(const std::wstring& target, std::wstring& sibling,
                                             std::string& error) override {
    if (createFails) {
      error = "Permission denied";
      return nullptr;
    }
    auto inner = MemoryFiles::createSibling(target, sibling, error);
    return inner ? std::make_unique<Stream>(*this, std::move(inner)) : nullptr;
  }

  bool rename(const std::wstring& from, const std::wstring& to, std::string& error) override {
    if (!renameFails) return MemoryFiles::rename(from, to, error);
    error = "Operation not permitted";
    return false;
  }

 private:
  class Stream : public IFileStream {
   public:
    Stream(FaultyFiles& files, std::unique_ptr<IFileStream> inner)
        : m_files(files), m_inner(std::move(inner)) {}

    std::ptrdiff_t read(void* data, std::size_t count) override {
      if (m_read >= m_files.readFailsAfter) return -1;
      const std::uint64_t room = m_files.readFailsAfter - m_read;
      const std::size_t piece = std::min({count, m_files.readPiece, std::size_t(room)});
      const std::ptrdiff_t got = m_inner->read(data, piece);
      m_read += static_cast<std::uint64_t>(got);
      return got;
    }

    bool write(const void* data, std::size_t count) override {
      if (count > m_files.diskRoom) return false;
      if (m_files.diskRoom != kNever) m_files.diskRoom -= count;
      return m_inner->write(data, count);
    }

    bool sync() override { return !m_files.syncFails; }
    bool close() override { return !m_files.closeFails; }
    std::uint64_t size() const override { return m_inner->size(); }
    std::string lastError() const override { return "Input/output error"; }

   private:
    FaultyFiles& m_files;
    std::unique_ptr<IFileStream> m_inner;
    std::uint64_t m_read = 0;
  };
};

}  // namespace qdr::testing_support
