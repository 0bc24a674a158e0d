#include "interaction/prompt_handler.h"

#include <cstddef>

#include "interaction/text_rows.h"
#include "platform/file.h"
#include "platform/system.h"

CQdrPromptHandler* _hPROMPT = nullptr;

namespace {

struct KindOfPrompts {
  CQdrPromptHandler::Kind kind;
  int first;
  int last;
};

// Ranges of prompt numbers that seek an answer of one kind; all others seek none.
constexpr KindOfPrompts kKinds[] = {
    {CQdrPromptHandler::kPoint, 1, 6},     {CQdrPromptHandler::kReal, 7, 9},
    {CQdrPromptHandler::kPoint, 10, 13},   {CQdrPromptHandler::kReal, 14, 14},
    {CQdrPromptHandler::kInteger, 15, 15}, {CQdrPromptHandler::kPoint, 18, 19},
    {CQdrPromptHandler::kPoint, 21, 26},   {CQdrPromptHandler::kReal, 27, 28},
    {CQdrPromptHandler::kText, 29, 29},    {CQdrPromptHandler::kPoint, 30, 30},
    {CQdrPromptHandler::kInteger, 32, 32}, {CQdrPromptHandler::kReal, 33, 34},
    {CQdrPromptHandler::kPoint, 38, 38},   {CQdrPromptHandler::kReal, 39, 39},
    {CQdrPromptHandler::kReal, 41, 41},    {CQdrPromptHandler::kText, 47, 47},
    {CQdrPromptHandler::kText, 51, 51},    {CQdrPromptHandler::kText, 54, 54},
};

}  // namespace

CQdrPromptHandler::CQdrPromptHandler(const CString& path) {
  if (!path.IsEmpty()) m_promptCount = LoadPrompt(path);
}

int CQdrPromptHandler::LoadPrompt(const CString& path) {
  m_prompts.push_back(m_emptyRow);
  CStdioFile file;
  if (!file.Open(path, CFile::typeText)) {
    AfxMessageBox(L"Loading message file fail.");
    return 1;
  }
  CString row;
  while (qdr::nextRow(file, row))
    m_prompts.push_back(row);
  return static_cast<int>(m_prompts.size());
}

CString CQdrPromptHandler::getPrompt(int id) const {
  if (id < 0 || static_cast<std::size_t>(id) >= m_prompts.size()) AfxThrowInvalidArgException();
  return m_prompts[static_cast<std::size_t>(id)];
}

int CQdrPromptHandler::getPromptKind(QdrDb::PromptId id) const {
  for (const KindOfPrompts& row : kKinds) {
    if (id >= row.first && id <= row.last) return row.kind;
  }
  return kNothing;
}
