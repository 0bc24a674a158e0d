#include "hostcore/data_folder.h"

#include "interaction/command_names.h"
#include "platform/file_path.h"
#include "platform/file_system.h"
#include "platform/platform_context.h"
#include "platform/system.h"

namespace {

constexpr const wchar_t* kCommandFile = L"QdrDb.cmd";
constexpr const wchar_t* kBesideProgram = L"share/qdr";

// The kernel asks for the path of a program and looks beside it.
constexpr const wchar_t* kProgramName = L"qdr";

// The path of the program itself, whatever folder is in use.
std::wstring programPath() {
  const std::wstring inUse = qdr::machineSystem().modulePath();
  qdr::setModulePath({});
  const std::wstring program = qdr::machineSystem().modulePath();
  qdr::setModulePath(inUse);
  return program;
}

}  // namespace

namespace qdr {

std::wstring findDataFolder() {
  const std::wstring program = programPath();
  const CString tree = folderOf(folderOf(program.c_str()));
  const CString folder = joinPath(tree, kBesideProgram);
  FileEntry entry;
  const bool found = platform().files->find(joinPath(folder, kCommandFile).text(), entry);
  return found ? folder.text() : std::wstring();
}

std::wstring useDataFolder(const std::wstring& folder) {
  setModulePath(joinPath(folder.c_str(), kProgramName).text());
  if (pathBesideHostFits(kCommandFile)) return {};
  return L"the data folder has too long a path: " + folder;
}

std::wstring useFoundDataFolder() {
  const std::wstring folder = findDataFolder();
  if (!folder.empty()) return useDataFolder(folder);
  return L"no data folder share/qdr beside the program: typed commands and fonts are missing";
}

std::wstring dataFile(const wchar_t* name) {
  return joinPath(folderOf(platform().system->modulePath().c_str()), name).text();
}

}  // namespace qdr
