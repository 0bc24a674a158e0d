#include "interaction/command_names.h"

#include <string>

#include "interaction/text_rows.h"
#include "platform/file.h"
#include "platform/file_path.h"
#include "platform/platform_context.h"
#include "platform/system.h"

namespace {

constexpr int kPathBuffer = 128;  // characters, with the closing 0

// Cuts the next token off the front of a record; empty when there is none.
CString takeToken(CString& record) {
  record.TrimLeft();
  int length = 0;
  while (length < record.GetLength() && !qdr::isBlank(record[length]))
    ++length;
  CString token = record.Left(length);
  record.Delete(0, length);
  return token;
}

}  // namespace

namespace qdr {

int CommandNames::addRecord(const CString& record) {
  CString rest = record;
  const auto number = static_cast<unsigned>(_wtoi(takeToken(rest)));
  for (CString name = takeToken(rest); !name.IsEmpty(); name = takeToken(rest)) {
    m_numbers.emplace(name.MakeLower(), number);
  }
  return count();
}

int CommandNames::addFile(const CString& path) {
  CStdioFile file;
  if (!file.Open(path, CFile::typeText)) return count();
  CString row;
  while (nextRow(file, row))
    addRecord(row);
  return count();
}

unsigned long CommandNames::numberOf(const CString& name) const {
  CString key = name;
  const auto found = m_numbers.find(key.MakeLower());
  return found == m_numbers.end() ? 0 : found->second;
}

CString CommandNames::nameOf(unsigned long number) const {
  for (const auto& [name, known] : m_numbers) {
    if (known == number) return name;
  }
  return {};
}

CString pathBesideHost(const wchar_t* fileName) {
  wchar_t program[kPathBuffer] = {};
  GetModuleFileNameW(nullptr, program, kPathBuffer);
  return joinPath(folderOf(program), fileName).Left(kPathBuffer - 1);
}

bool pathBesideHostFits(const wchar_t* fileName) {
  const std::wstring program = platform().system->modulePath();
  const CString whole = joinPath(folderOf(program.c_str()), fileName);
  return static_cast<int>(program.size()) < kPathBuffer && whole.GetLength() < kPathBuffer;
}

}  // namespace qdr
