#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <optional>
#include <system_error>

#include "platform/file_system.h"
#include "platform/wide_string.h"

namespace {

namespace fs = std::filesystem;

constexpr int kMostLinks = 40;
constexpr int kMostSiblingNames = 1000;
// One call moves at most this much, below every limit of the system calls.
constexpr std::size_t kMostPerCall = std::size_t{1} << 30;
constexpr mode_t kModeBits = 07777;
constexpr mode_t kOwnerOnly = 0600;
constexpr mode_t kEveryone = 0666;

std::string reasonOf(int code) {
  return std::generic_category().message(code);
}

std::string narrow(const std::wstring& path) {
  std::string bytes = qdr::toUtf8(path);
  std::replace(bytes.begin(), bytes.end(), '\\', '/');
  return bytes;
}

class PosixStream : public IFileStream {
 public:
  PosixStream(int descriptor, std::uint64_t size) : m_descriptor(descriptor), m_size(size) {}
  ~PosixStream() override { close(); }
  PosixStream(const PosixStream&) = delete;
  PosixStream& operator=(const PosixStream&) = delete;

  std::ptrdiff_t read(void* data, std::size_t count) override {
    ssize_t got = 0;
    do {
      got = ::read(m_descriptor, data, std::min(count, kMostPerCall));
    } while (got < 0 && errno == EINTR);
    if (got < 0) m_error = errno;
    return got;
  }

  bool write(const void* data, std::size_t count) override {
    const char* at = static_cast<const char*>(data);
    while (count > 0) {
      const ssize_t put = ::write(m_descriptor, at, std::min(count, kMostPerCall));
      if (put < 0 && errno == EINTR) continue;
      if (put <= 0) return failed(put < 0 ? errno : EIO);
      at += put;
      count -= static_cast<std::size_t>(put);
    }
    return true;
  }

  bool sync() override { return ::fsync(m_descriptor) == 0 || failed(errno); }

  bool close() override {
    if (m_descriptor < 0) return true;
    const bool closed = ::close(m_descriptor) == 0 || errno == EINTR;
    m_descriptor = -1;
    return closed || failed(errno);
  }

  std::uint64_t size() const override { return m_size; }
  std::string lastError() const override {
    return m_error == 0 ? std::string() : reasonOf(m_error);
  }

 private:
  bool failed(int code) {
    m_error = code;
    return false;
  }

  int m_descriptor;
  std::uint64_t m_size;
  int m_error = 0;
};

// The path that a chain of links at the end of `path` leads to; the last one may lead nowhere.
fs::path followed(fs::path path) {
  std::error_code none;
  for (int i = 0; i < kMostLinks && fs::is_symlink(path, none); ++i) {
    const fs::path next = fs::read_symlink(path, none);
    if (next.empty()) break;
    path = path.parent_path() / next;
  }
  return path;
}

// A ".." behind a link to a folder leads out of the folder the link leads to, which the letters of
// the path do not tell.
fs::path tidied(const fs::path& path) {
  const bool goesUp = std::find(path.begin(), path.end(), fs::path("..")) != path.end();
  if (!goesUp) return path.lexically_normal();
  std::error_code code;
  const fs::path folder = fs::weakly_canonical(path.parent_path(), code);
  return code ? path : folder / path.filename();
}

std::optional<struct stat> factsOf(const std::string& path) {
  struct stat facts;
  if (::stat(path.c_str(), &facts) != 0) return std::nullopt;
  return facts;
}

// A name of this process that no file of the folder bears; the name of the target plays no part,
// as it may be as long as names can be.
int createUnderFreeName(const std::string& folder, mode_t mode, std::string& path) {
  static unsigned counter = 0;
  for (int i = 0; i < kMostSiblingNames; ++i) {
    path = folder + ".qdr-" + std::to_string(::getpid()) + "-" + std::to_string(++counter) + ".tmp";
    const int descriptor = ::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, mode);
    if (descriptor >= 0 || errno != EEXIST) return descriptor;
  }
  return -1;
}

// Why an existing file may not be replaced; empty when it may.
std::string refusalOf(const std::string& path, const struct stat& facts) {
  if (S_ISDIR(facts.st_mode)) return reasonOf(EISDIR);
  if (!S_ISREG(facts.st_mode)) return "Not a regular file";
  return ::access(path.c_str(), W_OK) == 0 ? std::string() : reasonOf(errno);
}

class PosixFiles : public IFileSystem {
 public:
  std::unique_ptr<IFileStream> openToRead(const std::wstring& path, std::string& error) override {
    // A pipe must not hold up the opening; it is refused below.
    const int descriptor = ::open(narrow(path).c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    struct stat facts;
    if (descriptor < 0 || ::fstat(descriptor, &facts) != 0) {
      error = reasonOf(errno);
      if (descriptor >= 0) ::close(descriptor);
      return nullptr;
    }
    auto stream =
        std::make_unique<PosixStream>(descriptor, static_cast<std::uint64_t>(facts.st_size));
    if (S_ISREG(facts.st_mode)) return stream;
    error = S_ISDIR(facts.st_mode) ? reasonOf(EISDIR) : "Not a regular file";
    return nullptr;
  }

  std::wstring resolve(const std::wstring& path) override {
    if (path.empty()) return {};
    std::error_code code;
    const fs::path absolute = fs::absolute(narrow(path), code);
    if (code) return path;
    return qdr::fromUtf8(tidied(followed(absolute)).string());
  }

  std::unique_ptr<IFileStream> createSibling(const std::wstring& target, std::wstring& sibling,
                                             std::string& error) override {
    const std::string path = narrow(target);
    const auto facts = factsOf(path);
    error = facts ? refusalOf(path, *facts) : std::string();
    if (path.empty() || path.back() == '/') error = reasonOf(path.empty() ? ENOENT : EISDIR);
    // What is a link still, after resolve, is one of a ring of links.
    std::error_code none;
    if (fs::is_symlink(path, none)) error = reasonOf(ELOOP);
    if (!error.empty()) return nullptr;
    const std::string folder = path.substr(0, path.rfind('/') + 1);
    std::string name;
    const int descriptor = createUnderFreeName(folder, facts ? kOwnerOnly : kEveryone, name);
    if (descriptor < 0) {
      error = reasonOf(errno);
      return nullptr;
    }
    if (facts) takeOver(descriptor, *facts);
    sibling = qdr::fromUtf8(name);
    return std::make_unique<PosixStream>(descriptor, 0);
  }

  bool rename(const std::wstring& from, const std::wstring& to, std::string& error) override {
    if (::rename(narrow(from).c_str(), narrow(to).c_str()) == 0) return true;
    error = reasonOf(errno);
    return false;
  }

  bool remove(const std::wstring& path) override { return ::unlink(narrow(path).c_str()) == 0; }

  bool syncFolder(const std::wstring& folder) override {
    const int descriptor = ::open(narrow(folder).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (descriptor < 0) return false;
    const bool synced = ::fsync(descriptor) == 0;
    ::close(descriptor);
    return synced;
  }

  bool find(const std::wstring& path, FileEntry& entry) override {
    const std::string bytes = narrow(path);
    const auto facts = factsOf(bytes);
    if (!facts) return false;
    entry.name = qdr::fromUtf8(bytes.substr(bytes.rfind('/') + 1));
    entry.isFolder = S_ISDIR(facts->st_mode);
    entry.size = entry.isFolder ? 0 : static_cast<std::uint64_t>(facts->st_size);
    return true;
  }

  std::vector<FileEntry> list(const std::wstring& folder) override {
    std::vector<FileEntry> entries;
    std::error_code code;
    fs::directory_iterator at(narrow(folder), code);
    for (; !code && at != fs::directory_iterator(); at.increment(code)) {
      std::error_code none;
      const bool isFolder = at->is_directory(none);
      const std::uint64_t size = isFolder ? 0 : at->file_size(none);
      entries.push_back({qdr::fromUtf8(at->path().filename().string()), isFolder, none ? 0 : size});
    }
    std::sort(entries.begin(), entries.end(),
              [](const FileEntry& a, const FileEntry& b) { return a.name < b.name; });
    return entries;
  }

  std::FILE* openStream(const std::wstring& path, const std::wstring& mode) override {
    return std::fopen(narrow(path).c_str(), qdr::toUtf8(mode).c_str());
  }

 private:
  // The replacement bears owner and mode of what it replaces. Only an administrator can give a
  // file away; without that right it stays the writer's own. The owner goes first, since giving a
  // file away clears bits of its mode.
  static void takeOver(int descriptor, const struct stat& facts) {
    const bool given = ::fchown(descriptor, facts.st_uid, facts.st_gid) == 0;
    const bool kept = ::fchmod(descriptor, facts.st_mode & kModeBits) == 0;
    static_cast<void>(given && kept);
  }
};

}  // namespace

namespace qdr {

IFileSystem& machineFiles() {
  static PosixFiles files;
  return files;
}

}  // namespace qdr
