#include "platform/headless/memory_files.h"

#include <algorithm>

#include "platform/headless/memory_stream.h"

namespace {

constexpr const char* kNoSuchFile = "No such file or directory";

std::wstring fileNameOf(const std::wstring& path) {
  return path.substr(path.rfind(L'/') + 1);
}

bool isFolder(const std::map<std::wstring, std::shared_ptr<std::string>>& files,
              const std::wstring& path) {
  const std::wstring start = path.ends_with(L'/') ? path : path + L'/';
  const auto first = files.lower_bound(start);
  return first != files.end() && first->first.starts_with(start);
}

}  // namespace

namespace qdr {

void MemoryFiles::put(const std::wstring& path, std::string content) {
  m_files[resolve(path)] = std::make_shared<std::string>(std::move(content));
}

const std::string* MemoryFiles::content(const std::wstring& path) const {
  const auto file = m_files.find(path);
  return file == m_files.end() ? nullptr : file->second.get();
}

std::unique_ptr<IFileStream> MemoryFiles::openToRead(const std::wstring& path, std::string& error) {
  const auto file = m_files.find(resolve(path));
  if (file != m_files.end()) return std::make_unique<MemoryStream>(file->second);
  error = kNoSuchFile;
  return nullptr;
}

std::wstring MemoryFiles::resolve(const std::wstring& path) {
  std::wstring resolved = path.starts_with(L'/') || path.starts_with(L'\\') ? path : L"/" + path;
  std::replace(resolved.begin(), resolved.end(), L'\\', L'/');
  return resolved;
}

std::unique_ptr<IFileStream> MemoryFiles::createSibling(const std::wstring& target,
                                                        std::wstring& sibling, std::string& error) {
  const std::wstring path = resolve(target);
  if (path.ends_with(L'/') || isFolder(m_files, path)) {
    error = "Is a directory";
    return nullptr;
  }
  sibling = path.substr(0, path.rfind(L'/') + 1) + L".sibling" + std::to_wstring(++m_siblings);
  auto bytes = std::make_shared<std::string>();
  m_files[sibling] = bytes;
  return std::make_unique<MemoryStream>(std::move(bytes));
}

bool MemoryFiles::rename(const std::wstring& from, const std::wstring& to, std::string& error) {
  const auto file = m_files.find(resolve(from));
  if (file == m_files.end()) {
    error = kNoSuchFile;
    return false;
  }
  const std::shared_ptr<std::string> bytes = file->second;
  m_files.erase(file);
  m_files[resolve(to)] = bytes;
  return true;
}

bool MemoryFiles::remove(const std::wstring& path) {
  return m_files.erase(resolve(path)) > 0;
}

bool MemoryFiles::syncFolder(const std::wstring&) {
  return true;
}

bool MemoryFiles::find(const std::wstring& path, FileEntry& entry) {
  const std::wstring resolved = resolve(path);
  const auto file = m_files.find(resolved);
  const bool found = file != m_files.end();
  if (!found && !isFolder(m_files, resolved)) return false;
  entry = {fileNameOf(resolved), !found, found ? file->second->size() : 0};
  return true;
}

std::vector<FileEntry> MemoryFiles::list(const std::wstring& folder) {
  std::wstring start = folder == L"." ? L"/" : resolve(folder);
  if (!start.ends_with(L'/')) start += L'/';
  std::vector<FileEntry> entries;
  for (auto file = m_files.lower_bound(start);
       file != m_files.end() && file->first.starts_with(start); ++file) {
    const std::wstring below = file->first.substr(start.size());
    const std::size_t slash = below.find(L'/');
    const bool isInner = slash != std::wstring::npos;
    const std::wstring name = below.substr(0, slash);
    if (isInner && !entries.empty() && entries.back().name == name) continue;
    entries.push_back({name, isInner, isInner ? 0 : file->second->size()});
  }
  std::sort(entries.begin(), entries.end(),
            [](const FileEntry& a, const FileEntry& b) { return a.name < b.name; });
  return entries;
}

std::FILE* MemoryFiles::openStream(const std::wstring& path, const std::wstring& mode) {
  const std::string* bytes = content(resolve(path));
  if (!bytes || !mode.starts_with(L'r') || mode.find(L'+') != std::wstring::npos) return nullptr;
  std::FILE* const stream = std::tmpfile();
  if (!stream) return nullptr;
  const bool filled = std::fwrite(bytes->data(), 1, bytes->size(), stream) == bytes->size();
  if (filled && std::fseek(stream, 0, SEEK_SET) == 0) return stream;
  std::fclose(stream);
  return nullptr;
}

}  // namespace qdr
