#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <memory>
#include <string>

#include "platform/export.h"
#include "platform/wide_string.h"

class IFileStream;

/// A byte stream over one file of the installed file system. Not copyable.
///
/// Writing goes to a temporary sibling of the target, which Close renames over it: a save either
/// replaces the file completely or leaves the earlier one. Transfers are buffered inside, and one
/// that fits the buffer costs a comparison and a copy.
class QDR_API CFile {
 public:
  /// Modes of Open, with the values callers pass.
  enum OpenFlags : unsigned { modeRead = 0, modeCreateWrite = 4097, typeText = 16384 };

  CFile();

  /// Without a Close before, a file open for writing is abandoned: the sibling goes, the earlier
  /// file stays.
  virtual ~CFile();

  CFile(const CFile&) = delete;
  CFile& operator=(const CFile&) = delete;

  /// Opens `path` for reading (0) or for writing anew (4097); typeText is permitted and changes
  /// nothing here. False when it cannot be opened, and then lastError tells the reason. A file
  /// that was open before is abandoned.
  bool Open(const wchar_t* path, unsigned mode);

  /// Reads up to `count` bytes; answers the bytes got and leaves the rest of the buffer as it was.
  unsigned Read(void* data, unsigned count) {
    // A count of 0 wraps to the largest number and leaves the short way.
    if (std::size_t{count} - 1 >= static_cast<std::size_t>(m_readEnd - m_readAt))
      return readThrough(data, count);
    std::memcpy(data, m_readAt, count);
    m_readAt += count;
    return count;
  }

  /// Writes `count` bytes. A failure is remembered and makes Close answer false.
  void Write(const void* data, unsigned count) {
    if (std::size_t{count} - 1 >= static_cast<std::size_t>(m_writeEnd - m_writeAt)) {
      writeThrough(data, count);
      return;
    }
    std::memcpy(m_writeAt, data, count);
    m_writeAt += count;
  }

  /// Ends the transfer: for writing, flushes, syncs and renames over the target. True when all
  /// that was written stands in the target. A second call answers as the first.
  bool Close();

  /// Bytes between the read position and the end of the file; 0 when open for writing.
  std::uint64_t bytesLeft() const {
    return m_bytesBehindBuffer + static_cast<std::uint64_t>(m_readEnd - m_readAt);
  }

  /// Absolute path of the target, also while the sibling is being written.
  CString GetFilePath() const;

  /// Why the last operation failed, as one line for a person; empty when none failed.
  const std::string& lastError() const;

 protected:
  /// Carries a stream that stands for a file under `path`; for streams that lie in no file system.
  void attachReader(std::unique_ptr<IFileStream> stream, const wchar_t* path);
  void attachWriter(std::unique_ptr<IFileStream> stream, const wchar_t* path);

 private:
  struct State;

  void startReading(std::unique_ptr<IFileStream> stream);
  void startWriting(std::unique_ptr<IFileStream> stream);
  unsigned readThrough(void* data, unsigned count);
  void writeThrough(const void* data, unsigned count);
  bool flush();
  bool commit();
  void abandon();
  bool fail(const std::string& reason);

  const unsigned char* m_readAt = nullptr;
  const unsigned char* m_readEnd = nullptr;
  unsigned char* m_writeAt = nullptr;
  unsigned char* m_writeEnd = nullptr;
  std::uint64_t m_bytesBehindBuffer = 0;
  std::unique_ptr<State> m_state;
};

/// The carrier of a CFile through saving and reading; it has no form of its own in the bytes.
class QDR_API CArchive {
 public:
  enum Mode : unsigned { store = 0, load = 1 };

  /// `file` stays the caller's; buffer size and buffer are ignored, the file buffers itself.
  CArchive(CFile* file, unsigned mode, int bufferSize = 4096, void* buffer = nullptr);

  bool IsStoring() const { return m_mode == store; }
  bool IsLoading() const { return m_mode != store; }
  /// The file until Close, null afterwards.
  CFile* GetFile() const { return m_file; }
  /// Lets go of the file, which stays open.
  void Close() { m_file = nullptr; }

 private:
  CFile* m_file;
  unsigned m_mode;
};

/// Reads a text file line by line. The text is UTF-8, or UTF-16 when its byte order mark says so;
/// a byte order mark is skipped, bytes that are no UTF-8 stand for their Latin-1 letters.
class QDR_API CStdioFile : public CFile {
 public:
  CStdioFile();
  ~CStdioFile() override;

  /// As CFile::Open, for reading only: any other mode is false.
  bool Open(const wchar_t* path, unsigned mode);

  /// The next line without its LF or CR LF. True for an empty line, false at the end of the file,
  /// and then `line` is empty.
  bool ReadString(CString& line);

 private:
  enum class Encoding { unknown, utf8, utf16Little, utf16Big };

  void readMark();
  bool readByteLine(std::string& bytes);
  bool readUnitLine(std::u16string& units);
  bool nextByte(unsigned char& byte);
  bool nextUnit(char16_t& unit);

  Encoding m_encoding = Encoding::unknown;
  std::string m_pushedBack;
};

/// Looks for files by a path whose last part may hold '*' and '?'.
class QDR_API CFileFind {
 public:
  CFileFind();
  ~CFileFind();
  CFileFind(const CFileFind&) = delete;
  CFileFind& operator=(const CFileFind&) = delete;

  /// True when at least one file or folder matches; the first FindNextFile then goes to it.
  bool FindFile(const wchar_t* path);

  /// Goes to the next match, in order of names; true while another one follows it.
  bool FindNextFile();

  CString GetFileName() const;
  CString GetFilePath() const;
  bool IsDirectory() const;
  std::uint64_t GetLength() const;
  void Close();

 private:
  struct State;
  std::unique_ptr<State> m_state;
};

/// Opens a C stream on a file of the installed file system; null on failure.
QDR_API std::FILE* _wfopen(const wchar_t* path, const wchar_t* mode);

namespace qdr {

/// Reads exactly `count` bytes. False on a short read or a null file; the bytes that are missing
/// are left as they were.
inline bool readRaw(CFile* file, void* data, unsigned count) {
  return file && file->Read(data, count) == count;
}

/// Writes `count` bytes; a null file takes nothing.
inline void writeRaw(CFile* file, const void* data, unsigned count) {
  if (file) file->Write(data, count);
}

/// Writes `text` as a fixed field of `count` UTF-16 units: cut at count - 1 units, never inside a
/// surrogate pair, filled with zeros.
QDR_API void writeUnits(CFile* file, const wchar_t* text, unsigned count);

/// Reads a fixed field of `count` UTF-16 units into `buffer` of `count` characters: up to the
/// first 0, always terminated. False on a short read, with what was got in the buffer.
QDR_API bool readUnits(CFile* file, wchar_t* buffer, unsigned count);

}  // namespace qdr
