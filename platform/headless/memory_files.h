#pragma once

#include <map>
#include <memory>
#include <string>

#include "platform/file_system.h"

namespace qdr {

/// A file system in memory. Folders exist as far as files lie in them; paths are absolute from
/// "/", and names are compared exactly.
class QDR_API MemoryFiles : public IFileSystem {
 public:
  /// Puts a file in place, whole.
  void put(const std::wstring& path, std::string content);

  /// The bytes of a file; null when there is none.
  const std::string* content(const std::wstring& path) const;

  /// How many files there are, siblings under way included.
  std::size_t count() const { return m_files.size(); }

  std::unique_ptr<IFileStream> openToRead(const std::wstring& path, std::string& error) override;
  std::wstring resolve(const std::wstring& path) override;
  std::unique_ptr<IFileStream> createSibling(const std::wstring& target, std::wstring& sibling,
                                             std::string& error) override;
  bool rename(const std::wstring& from, const std::wstring& to, std::string& error) override;
  bool remove(const std::wstring& path) override;
  bool syncFolder(const std::wstring& folder) override;
  bool find(const std::wstring& path, FileEntry& entry) override;
  std::vector<FileEntry> list(const std::wstring& folder) override;

  /// For reading only: a temporary file of the machine with the bytes in it.
  std::FILE* openStream(const std::wstring& path, const std::wstring& mode) override;

 private:
  std::map<std::wstring, std::shared_ptr<std::string>> m_files;
  unsigned m_siblings = 0;
};

}  // namespace qdr
