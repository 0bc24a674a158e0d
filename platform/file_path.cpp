#include "platform/file_path.h"

#include "platform/file_system.h"
#include "platform/platform_context.h"

namespace {

constexpr const wchar_t* kSeparators = L"/\\";

std::wstring view(const wchar_t* path) {
  return path ? path : L"";
}

}  // namespace

namespace qdr {

CString folderOf(const wchar_t* path) {
  const std::wstring text = view(path);
  const std::size_t cut = text.find_last_of(kSeparators);
  if (cut == std::wstring::npos) return {};
  return CString(text.substr(0, cut == 0 ? 1 : cut));
}

CString fileNameOf(const wchar_t* path) {
  const std::wstring text = view(path);
  const std::size_t cut = text.find_last_of(kSeparators);
  return CString(cut == std::wstring::npos ? text : text.substr(cut + 1));
}

CString titleOf(const wchar_t* path) {
  const CString name = fileNameOf(path);
  const int point = name.ReverseFind(L'.');
  return point > 0 ? name.Left(point) : name;
}

CString extensionOf(const wchar_t* path) {
  const CString name = fileNameOf(path);
  const int point = name.ReverseFind(L'.');
  return point > 0 ? name.Mid(point + 1) : CString();
}

CString joinPath(const wchar_t* folder, const wchar_t* name) {
  CString joined(folder);
  if (joined.IsEmpty()) return CString(name);
  const wchar_t last = joined.GetAt(joined.GetLength() - 1);
  if (last != L'/' && last != L'\\') joined += L'/';
  return joined + name;
}

CString findFileInAnyCase(const wchar_t* path) {
  IFileSystem& files = *platform().files;
  FileEntry entry;
  if (files.find(view(path), entry) && !entry.isFolder) return CString(path);
  const CString folder = folderOf(path);
  const CString name = fileNameOf(path);
  if (name.IsEmpty()) return {};
  for (const FileEntry& candidate : files.list(folder.IsEmpty() ? L"." : folder.text())) {
    if (!candidate.isFolder && name.CompareNoCase(candidate.name.c_str()) == 0)
      return joinPath(folder, candidate.name.c_str());
  }
  return {};
}

}  // namespace qdr
