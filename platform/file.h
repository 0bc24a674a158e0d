#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "platform/export.h"

class CString;

/// A byte stream over one file of the installed file system. Not copyable.
///
/// Writing goes to a temporary sibling of the target, which Close renames over it: a save either
/// replaces the file completely or leaves the earlier one. Transfers are buffered inside.
class QDR_API CFile {
 public:
  /// Modes of Open, with the values callers pass.
  enum OpenFlags : unsigned { modeRead = 0, modeCreateWrite = 4097 };

  CFile();

  /// Without a Close before, a file open for writing is abandoned: the sibling goes, the earlier
  /// file stays.
  virtual ~CFile();

  CFile(const CFile&) = delete;
  CFile& operator=(const CFile&) = delete;

  /// Opens `path` for reading (0) or for writing anew (4097). False when it cannot be opened, and
  /// then lastError tells the reason.
  bool Open(const wchar_t* path, unsigned mode);

  /// Reads up to `count` bytes; answers the bytes got and leaves the rest of the buffer as it was.
  virtual unsigned Read(void* data, unsigned count);

  /// Writes `count` bytes. A failure is remembered and makes Close answer false.
  virtual void Write(const void* data, unsigned count);

  /// Ends the transfer: for writing, flushes, syncs and renames over the target. True when all
  /// that was written stands in the target. A second call answers as the first.
  virtual bool Close();

  /// Bytes between the read position and the end of the file; 0 when open for writing.
  virtual std::uint64_t bytesLeft() const;

  /// Absolute path of the target, also while the sibling is being written.
  CString GetFilePath() const;

  /// Why the last operation failed, as one line for a person; empty when none failed.
  const std::string& lastError() const;

 private:
  struct State;
  std::unique_ptr<State> m_state;
};
