#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <memory>
#include <string>
#include <vector>

#include "platform/export.h"

/// One open file of a file system, read or written from its start to its end.
class QDR_API IFileStream {
 public:
  virtual ~IFileStream() = default;

  /// Up to `count` bytes into `data`; fewer than asked for is no end of the file, 0 is. -1 on a
  /// failure, told by lastError.
  virtual std::ptrdiff_t read(void* data, std::size_t count) = 0;

  /// All `count` bytes, or false.
  virtual bool write(const void* data, std::size_t count) = 0;

  /// Holds once the device has all bytes written so far.
  virtual bool sync() = 0;

  /// Closes; false when bytes were lost by it. The destructor closes without an answer.
  virtual bool close() = 0;

  /// Length of the file when it was opened.
  virtual std::uint64_t size() const = 0;

  /// The reason of the last failure, as a person reads it: "No space left on device".
  virtual std::string lastError() const = 0;
};

/// One entry of a folder.
struct FileEntry {
  std::wstring name;
  bool isFolder = false;
  std::uint64_t size = 0;
};

/// All the files the kernel touches. Paths are wide, with '/' or '\' between their parts.
///
/// CFile builds the replacement of a file from these steps: resolve, createSibling, write, sync,
/// rename, syncFolder.
class QDR_API IFileSystem {
 public:
  virtual ~IFileSystem() = default;

  /// Opens an existing regular file; null with the reason in `error` on failure.
  virtual std::unique_ptr<IFileStream> openToRead(const std::wstring& path, std::string& error) = 0;

  /// Absolute path with every link at its end followed, for a file that need not exist.
  virtual std::wstring resolve(const std::wstring& path) = 0;

  /// A new file beside `target` under a name no file has, with the mode and, where permitted, the
  /// owner of `target`. Null with the reason in `error`, also when `target` exists and is no
  /// regular file or may not be written.
  virtual std::unique_ptr<IFileStream> createSibling(const std::wstring& target,
                                                     std::wstring& sibling, std::string& error) = 0;

  /// Puts `from` in the place of `to` in one step.
  virtual bool rename(const std::wstring& from, const std::wstring& to, std::string& error) = 0;
  virtual bool remove(const std::wstring& path) = 0;
  virtual bool syncFolder(const std::wstring& folder) = 0;

  /// The entry of a path; false when nothing is there.
  virtual bool find(const std::wstring& path, FileEntry& entry) = 0;

  /// Entries of a folder, ordered by name; empty when it cannot be listed.
  virtual std::vector<FileEntry> list(const std::wstring& folder) = 0;

  /// A C stream; null on failure.
  virtual std::FILE* openStream(const std::wstring& path, const std::wstring& mode) = 0;
};

namespace qdr {

/// The files of the machine.
QDR_API IFileSystem& machineFiles();

}  // namespace qdr
