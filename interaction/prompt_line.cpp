// The input line with its prompt, the log behind it, and the typed values between them.

#include "database/database.h"
#include "geometry/point2d.h"
#include "interaction/command_handler.h"
#include "platform/input.h"
#include "platform/window.h"

namespace {

constexpr unsigned kEraseInvalidateUpdate = 261;

CString textOf(CWnd& window) {
  CString text;
  window.GetWindowText(text);
  return text;
}

}  // namespace

void CQdrCommandHandler::readInputText() {
  if (m_msgWindow) m_inputText = textOf(*m_msgWindow);
}

void CQdrCommandHandler::SetPrompt(int id) {
  if (id < 0 || !m_msgWindow || !m_promptHandler) return;
  setMsg();
  showLine(m_promptHandler->getPrompt(id));
  m_currentPrompt = id;
}

void CQdrCommandHandler::Prompt(const CString& text) {
  if (!m_msgWindow) return;
  setMsg();
  showLine(text);
}

// Repainted at once, since the paint message would wait behind a blocked command.
void CQdrCommandHandler::showLine(const CString& text) {
  m_msgWindow->SetWindowText(text);
  m_msgWindow->SendMessage(WM_PAINT, 0, 0);
}

bool CQdrCommandHandler::setMsg() {
  if (!m_msgWindow) return true;
  bool valid = true;
  readInputText();
  if (m_currentPrompt != 0 && m_promptHandler) {
    CString answer = m_inputText;
    const CString prompt = m_promptHandler->getPrompt(m_currentPrompt);
    if (answer.Find(prompt) >= 0) answer.Delete(0, prompt.GetLength());
    if (!answer.IsEmpty()) valid = isValidValue(m_inputText);
    if (!valid) {
      CString refused;
      refused.Format(L"%s\n%s", m_inputText,
                     m_promptHandler->getPrompt(QdrDb::ePromptInvalidAnswer));
      m_inputText = refused;
    }
  }
  appendToLog(m_inputText);
  return valid;
}

void CQdrCommandHandler::appendToLog(const CString& line) {
  CString log = m_logWindow ? textOf(*m_logWindow) : m_logText;
  if (!log.IsEmpty() && log[log.GetLength() - 1] != L'\n') log += L"\n";
  log += line;
  showLog(log);
}

// The log shows `text` from now on, and the input line is empty and without a prompt.
void CQdrCommandHandler::showLog(const CString& text) {
  m_logText = text;
  m_currentPrompt = 0;
  if (m_logWindow) {
    m_logWindow->SetWindowText(text);
    m_logWindow->SendMessage(WM_VSCROLL, SB_BOTTOM, 0);
  }
  if (m_msgWindow) m_msgWindow->SetWindowText(L"");
  if (m_logWindow) m_logWindow->RedrawWindow(kEraseInvalidateUpdate);
}

void CQdrCommandHandler::SetLastCommand(unsigned long number) {
  m_lastCommand = number;
  appendToLog(m_inputText);
}

bool CQdrCommandHandler::onKeyDown(unsigned key, unsigned, unsigned) {
  if (key != VK_RETURN && key != VK_ESCAPE && key != VK_SPACE) return false;
  // A text may hold blanks: the key goes on to the input line.
  if (key == VK_SPACE && m_currentPrompt == QdrDb::ePromptText) return true;
  if (!m_msgWindow) return false;
  CString typed = textOf(*m_msgWindow);
  typed.Trim();
  if (key == VK_ESCAPE) return cancelLine(typed);
  if (typed.IsEmpty()) return RunCommand(m_lastCommand);
  setMsg();
  return runTypedCommand(typed);
}

bool CQdrCommandHandler::cancelLine(const CString& typed) {
  CString line = L"Cancel";
  if (!typed.IsEmpty()) line.Format(L"%s Cancel", typed);
  m_msgWindow->SetWindowText(line);
  m_currentPrompt = 0;
  return setMsg();
}

// An unknown name takes the place of the whole log: after a mistyped command it shows that alone.
bool CQdrCommandHandler::runTypedCommand(const CString& typed) {
  const unsigned long number = getCommandId(typed);
  if (number != 0) return RunCommand(number);
  CString refusal = typed;
  if (m_promptHandler) {
    refusal.Format(L"%s %s", m_promptHandler->getPrompt(QdrDb::ePromptUnknownCommand), typed);
  }
  showLog(refusal);
  return false;
}

void CQdrCommandHandler::onChar(unsigned, unsigned, unsigned) {}

void CQdrCommandHandler::OnComposition(WPARAM, LPARAM lParam) {
  if ((lParam & static_cast<LPARAM>(GCS_RESULTSTR)) == 0 || !m_dispWindow || !m_msgWindow) return;
  const HIMC context = ImmGetContext(m_dispWindow);
  if (!context) return;
  wchar_t committed[256] = {};
  ImmGetCompositionStringW(context, GCS_RESULTSTR, committed, sizeof committed - sizeof(wchar_t));
  CString line;
  line.Format(L"%s%s", textOf(*m_msgWindow), committed);
  m_msgWindow->SetWindowText(line);
  ImmReleaseContext(m_dispWindow, context);
}

CString CQdrCommandHandler::getInputValue() {
  CString answer = m_inputText;
  answer.Delete(0, answer.Find(L':') + 1);
  return answer.Trim();
}

bool CQdrCommandHandler::getInputValue(int& value) {
  const CString answer = getInputValue();
  const bool numeric = _isNumericValue(answer);
  value = numeric ? _wtoi(answer) : 0;
  return numeric;
}

bool CQdrCommandHandler::getInputValue(double& value) {
  const CString answer = getInputValue();
  const bool numeric = _isNumericValue(answer);
  value = numeric ? _wtof(answer) : 0.0;
  return numeric;
}

bool CQdrCommandHandler::getInputValue(CString& text) {
  text = getInputValue();
  return !text.IsEmpty();
}

bool CQdrCommandHandler::getInputValue(CQdrGePoint2d& point) {
  point.set(0.0, 0.0);
  const CString answer = getInputValue();
  const int comma = answer.Find(L',');
  if (comma < 0) return false;
  const CString x = answer.Left(comma);
  const CString y = answer.Mid(comma + 1);
  if (y.IsEmpty() || !_isNumericValue(x) || !_isNumericValue(y)) return false;
  point.set(_wtof(x), _wtof(y));
  return true;
}

bool CQdrCommandHandler::isValidValue(const CString&) {
  if (!m_promptHandler) return false;
  double real = 0.0;
  CString text;
  CQdrGePoint2d point;
  int integer = 0;
  switch (m_promptHandler->getPromptKind(static_cast<QdrDb::PromptId>(m_currentPrompt))) {
    case CQdrPromptHandler::kReal:
      return getInputValue(real);
    case CQdrPromptHandler::kText:
      return getInputValue(text);
    case CQdrPromptHandler::kPoint:
      return getInputValue(point);
    case CQdrPromptHandler::kInteger:
      return getInputValue(integer);
    default:
      return false;
  }
}
