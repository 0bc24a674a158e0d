#include "hostcore/prompts.h"

#include "hostcore/internal/builtin_prompts.h"
#include "platform/file.h"
#include "platform/headless/memory_files.h"
#include "platform/platform_context.h"

namespace {

constexpr const wchar_t* kBuiltinPath = L"/prompts/builtin.msg";

// The handler reads a file only, so the text lies in a file system in memory while it does.
std::unique_ptr<CQdrPromptHandler> builtinHandler() {
  qdr::MemoryFiles files;
  files.put(kBuiltinPath, std::string(qdr::builtinPrompts()));
  PlatformContext context = qdr::platform();
  context.files = &files;
  const qdr::ScopedPlatform memory(context);
  return std::make_unique<CQdrPromptHandler>(CString(kBuiltinPath));
}

bool opens(const std::wstring& path) {
  CStdioFile file;
  return file.Open(path.c_str(), CFile::typeText);
}

}  // namespace

namespace qdr {

std::unique_ptr<CQdrPromptHandler> loadPrompts(const std::wstring& path, std::wstring& complaint) {
  complaint.clear();
  if (path.empty()) return builtinHandler();
  if (!opens(path)) {
    complaint = L"The built-in prompts are used: cannot open " + path;
    return builtinHandler();
  }
  auto handler = std::make_unique<CQdrPromptHandler>(CString(path));
  if (handler->promptCount() >= kPromptRows) return handler;
  complaint = L"The built-in prompts are used: too few rows in " + path;
  return builtinHandler();
}

}  // namespace qdr
