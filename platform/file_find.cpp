#include <vector>

#include "platform/file.h"
#include "platform/file_path.h"
#include "platform/file_system.h"
#include "platform/platform_context.h"

namespace {

// '*' stands for any run of characters, '?' for one. Each '*' is taken as short as possible, and
// on a mismatch only the last one is lengthened, so the walk is at worst quadratic.
bool matches(std::wstring_view name, std::wstring_view pattern) {
  std::size_t n = 0;
  std::size_t p = 0;
  std::size_t star = std::wstring_view::npos;
  std::size_t behindStar = 0;
  while (n < name.size()) {
    if (p < pattern.size() && pattern[p] == L'*') {
      star = p++;
      behindStar = n;
    } else if (p < pattern.size() && (pattern[p] == L'?' || pattern[p] == name[n])) {
      ++p;
      ++n;
    } else if (star != std::wstring_view::npos) {
      p = star + 1;
      n = ++behindStar;
    } else {
      return false;
    }
  }
  while (p < pattern.size() && pattern[p] == L'*')
    ++p;
  return p == pattern.size();
}

}  // namespace

struct CFileFind::State {
  CString folder;
  std::vector<FileEntry> found;
  std::size_t next = 0;

  const FileEntry* current() const { return next > 0 ? &found[next - 1] : nullptr; }
};

CFileFind::CFileFind() : m_state(std::make_unique<State>()) {}
CFileFind::~CFileFind() = default;

bool CFileFind::FindFile(const wchar_t* path) {
  Close();
  IFileSystem& files = *qdr::platform().files;
  const CString name = qdr::fileNameOf(path);
  m_state->folder = qdr::folderOf(path);
  if (name.IsEmpty()) return false;
  if (name.FindOneOf(L"*?") < 0) {
    FileEntry entry;
    if (files.find(path, entry)) m_state->found.push_back(std::move(entry));
    return !m_state->found.empty();
  }
  const std::wstring folder = m_state->folder.IsEmpty() ? L"." : m_state->folder.text();
  for (FileEntry& entry : files.list(folder))
    if (matches(entry.name, name.text())) m_state->found.push_back(std::move(entry));
  return !m_state->found.empty();
}

bool CFileFind::FindNextFile() {
  if (m_state->next < m_state->found.size()) ++m_state->next;
  return m_state->next < m_state->found.size();
}

CString CFileFind::GetFileName() const {
  const FileEntry* entry = m_state->current();
  return entry ? CString(entry->name) : CString();
}

CString CFileFind::GetFilePath() const {
  const FileEntry* entry = m_state->current();
  return entry ? qdr::joinPath(m_state->folder, entry->name.c_str()) : CString();
}

bool CFileFind::IsDirectory() const {
  const FileEntry* entry = m_state->current();
  return entry && entry->isFolder;
}

std::uint64_t CFileFind::GetLength() const {
  const FileEntry* entry = m_state->current();
  return entry ? entry->size : 0;
}

void CFileFind::Close() {
  *m_state = State();
}
