#include "platform/file.h"

#include <algorithm>
#include <array>
#include <utility>

#include "platform/file_path.h"
#include "platform/file_system.h"
#include "platform/platform_context.h"
#include "platform/utf16.h"

namespace {

constexpr std::size_t kBufferSize = 65536;
// Fields of a drawing have at most 256 units; larger ones take memory of their own.
constexpr std::size_t kUnitsOnStack = 256;

}  // namespace

struct CFile::State {
  enum class Phase { closed, reading, writing };

  Phase phase = Phase::closed;
  IFileSystem* files = nullptr;  // null when the stream lies in no file system
  std::unique_ptr<IFileStream> stream;
  std::unique_ptr<unsigned char[]> buffer;
  std::wstring target;
  std::wstring sibling;
  std::string error;
  bool failed = false;      // a transfer of the open file failed
  bool closedWell = false;  // the answer of Close
};

CFile::CFile() : m_state(std::make_unique<State>()) {}

CFile::~CFile() {
  abandon();
}

bool CFile::Open(const wchar_t* path, unsigned mode) {
  abandon();
  *m_state = State();
  const unsigned access = mode & ~unsigned{typeText};
  IFileSystem& files = *qdr::platform().files;
  m_state->target = files.resolve(path ? path : L"");
  if (access == modeRead) {
    auto stream = files.openToRead(m_state->target, m_state->error);
    if (stream) startReading(std::move(stream));
    return m_state->phase == State::Phase::reading;
  }
  if (access != modeCreateWrite) return fail("mode of opening is not supported");
  std::wstring sibling;
  auto stream = files.createSibling(m_state->target, sibling, m_state->error);
  if (!stream) return false;
  startWriting(std::move(stream));
  m_state->files = &files;
  m_state->sibling = std::move(sibling);
  return true;
}

void CFile::attachReader(std::unique_ptr<IFileStream> stream, const wchar_t* path) {
  m_state->target = path;
  startReading(std::move(stream));
}

void CFile::attachWriter(std::unique_ptr<IFileStream> stream, const wchar_t* path) {
  m_state->target = path;
  startWriting(std::move(stream));
}

void CFile::startReading(std::unique_ptr<IFileStream> stream) {
  m_state->phase = State::Phase::reading;
  m_bytesBehindBuffer = stream->size();
  m_state->stream = std::move(stream);
  m_state->buffer = std::make_unique_for_overwrite<unsigned char[]>(kBufferSize);
  m_readAt = m_readEnd = m_state->buffer.get();
}

void CFile::startWriting(std::unique_ptr<IFileStream> stream) {
  m_state->phase = State::Phase::writing;
  m_state->stream = std::move(stream);
  m_state->buffer = std::make_unique_for_overwrite<unsigned char[]>(kBufferSize);
  m_writeAt = m_state->buffer.get();
  m_writeEnd = m_writeAt + kBufferSize;
}

// Hands out what the buffer holds, fills it again and so on; a large rest goes past the buffer.
unsigned CFile::readThrough(void* data, unsigned count) {
  auto* out = static_cast<unsigned char*>(data);
  std::size_t missing = count;
  while (missing > 0 && m_state->phase == State::Phase::reading) {
    const std::size_t held = std::min(missing, static_cast<std::size_t>(m_readEnd - m_readAt));
    if (held > 0) {
      std::memcpy(out, m_readAt, held);
      m_readAt += held;
      out += held;
      missing -= held;
      continue;
    }
    const bool direct = missing >= kBufferSize;
    unsigned char* const into = direct ? out : m_state->buffer.get();
    const std::ptrdiff_t got = m_state->stream->read(into, direct ? missing : kBufferSize);
    if (got < 0) fail(m_state->stream->lastError());
    if (got <= 0) {
      m_bytesBehindBuffer = 0;
      break;
    }
    const auto bytes = static_cast<std::size_t>(got);
    m_bytesBehindBuffer -= std::min<std::uint64_t>(m_bytesBehindBuffer, bytes);
    if (direct) {
      out += bytes;
      missing -= bytes;
    } else {
      m_readAt = into;
      m_readEnd = into + bytes;
    }
  }
  return count - static_cast<unsigned>(missing);
}

void CFile::writeThrough(const void* data, unsigned count) {
  if (m_state->phase != State::Phase::writing) {
    if (count > 0) fail("file is not open for writing");
    return;
  }
  if (count == 0 || !flush()) return;
  if (count < kBufferSize) {
    std::memcpy(m_writeAt, data, count);
    m_writeAt += count;
  } else if (!m_state->stream->write(data, count)) {
    fail(m_state->stream->lastError());
  }
}

// Empties the buffer, also when the device refuses it: after a failure all further bytes are lost
// anyway, and Close says so.
bool CFile::flush() {
  unsigned char* const first = m_state->buffer.get();
  const auto count = static_cast<std::size_t>(m_writeAt - first);
  m_writeAt = first;
  if (m_state->failed) return false;
  if (count > 0 && !m_state->stream->write(first, count)) return fail(m_state->stream->lastError());
  return true;
}

bool CFile::fail(const std::string& reason) {
  m_state->failed = true;
  m_state->error = reason;
  return false;
}

bool CFile::Close() {
  if (m_state->phase == State::Phase::closed) return m_state->closedWell;
  const bool good = m_state->phase == State::Phase::reading ? !m_state->failed : commit();
  abandon();
  m_state->closedWell = good;
  return good;
}

// Brings the sibling to the device and over the target. The folder is synced for the sake of the
// new entry; a file system that cannot do so still has the whole file in place.
bool CFile::commit() {
  if (!flush()) return false;
  IFileStream& stream = *m_state->stream;
  if (!stream.sync() || !stream.close()) return fail(stream.lastError());
  if (!m_state->files) return true;
  if (!m_state->files->rename(m_state->sibling, m_state->target, m_state->error)) return false;
  m_state->sibling.clear();
  m_state->files->syncFolder(qdr::folderOf(m_state->target.c_str()).text());
  return true;
}

void CFile::abandon() {
  m_state->stream.reset();
  m_state->buffer.reset();
  m_readAt = m_readEnd = nullptr;
  m_writeAt = m_writeEnd = nullptr;
  m_bytesBehindBuffer = 0;
  if (m_state->files && !m_state->sibling.empty()) m_state->files->remove(m_state->sibling);
  m_state->sibling.clear();
  m_state->phase = State::Phase::closed;
}

CString CFile::GetFilePath() const {
  return CString(m_state->target);
}

const std::string& CFile::lastError() const {
  return m_state->error;
}

CArchive::CArchive(CFile* file, unsigned mode, int, void*) : m_file(file), m_mode(mode) {}

std::FILE* _wfopen(const wchar_t* path, const wchar_t* mode) {
  if (!path || !mode) return nullptr;
  return qdr::platform().files->openStream(path, mode);
}

namespace qdr {

void writeUnits(CFile* file, const wchar_t* text, unsigned count) {
  if (!file || count == 0) return;
  std::array<char16_t, kUnitsOnStack> small;
  std::u16string large(count > kUnitsOnStack ? count : 0, u'\0');
  char16_t* const units = large.empty() ? small.data() : large.data();
  encodeUnits(text, units, count);
  file->Write(units, count * unsigned{sizeof(char16_t)});
}

bool readUnits(CFile* file, wchar_t* buffer, unsigned count) {
  if (count == 0) return true;
  std::array<char16_t, kUnitsOnStack> small;
  std::u16string large(count > kUnitsOnStack ? count : 0, u'\0');
  char16_t* const units = large.empty() ? small.data() : large.data();
  const unsigned wanted = count * unsigned{sizeof(char16_t)};
  const unsigned got = file ? file->Read(units, wanted) : 0;
  decodeUnits(units, got / sizeof(char16_t), buffer, count);
  return got == wanted;
}

}  // namespace qdr
