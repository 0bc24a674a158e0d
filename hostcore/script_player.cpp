#include "hostcore/script_player.h"

#include "database/database.h"
#include "hostcore/internal/script_directives.h"

namespace {

// Inputs cancelled at the end of a script before the program itself is told to end; a command asks
// far fewer times.
constexpr int kMostCancels = 1000;

constexpr wchar_t kComment = L'#';
constexpr wchar_t kDirective = L'.';
constexpr wchar_t kByteOrderMark = 0xfeff;

std::vector<std::wstring> linesOf(std::string_view utf8) {
  const std::wstring text = qdr::fromUtf8(utf8);
  std::vector<std::wstring> lines;
  std::size_t start = !text.empty() && text.front() == kByteOrderMark ? 1 : 0;
  while (start <= text.size()) {
    const std::size_t end = std::min(text.find(L'\n', start), text.size());
    lines.push_back(text.substr(start, end - start));
    start = end + 1;
  }
  return lines;
}

}  // namespace

namespace qdr {

ScriptOutcome ScriptPlayer::play(std::string_view text) {
  m_lines = linesOf(text);
  m_nextLine = 0;
  m_typing = Typing();
  m_outcome = ScriptOutcome();
  m_cancels = 0;
  m_ending = false;
  m_stage.script().setSupply([this] { return supply(); });
  m_stage.host().run();
  m_stage.script().setSupply(nullptr);
  return m_outcome;
}

void ScriptPlayer::stop(ScriptEnd end, const std::wstring& reason) {
  m_outcome = {end, static_cast<int>(m_nextLine), reason};
  m_ending = true;
}

// Called when the program waits for a message and none is left: everything played so far has been
// taken. True when there is something to take.
bool ScriptPlayer::supply() {
  m_stage.host().view().UpdateWindow();
  const std::vector<std::wstring>& faults = m_stage.platform().ui.faults();
  if (!m_ending && !faults.empty()) stop(ScriptEnd::failed, faults.back());
  if (m_ending) return unwind();
  if (m_typing.active && typeOn()) return true;
  return playNextLine();
}

// The next character of a typed line, then its Enter. The Enter goes only to the input that took
// the last character: an input that this character ended, as a keyword does, has its answer.
bool ScriptPlayer::typeOn() {
  if (m_typing.next < m_typing.text.size()) {
    m_typing.endedBefore = m_stage.host().handler().inputsEnded();
    m_stage.script().type(std::wstring_view(m_typing.text).substr(m_typing.next++, 1));
    return true;
  }
  m_typing.active = false;
  const bool stillWaits = m_typing.endedBefore == m_stage.host().handler().inputsEnded();
  return m_typing.withEnter && stillWaits && sendEnter();
}

// While no command runs the Enter runs the one that is named.
bool ScriptPlayer::sendEnter() {
  DrawingHost& host = m_stage.host();
  if (!host.isBusy()) {
    CString typed;
    host.inputLine().GetWindowText(typed);
    if (!typed.Trim().IsEmpty() && host.handler().getCommandId(typed) == 0) {
      stop(ScriptEnd::failed, L"there is no command \"" + typed.text() + L"\"");
      return unwind();
    }
  }
  m_stage.script().key(VK_RETURN);
  return true;
}

bool ScriptPlayer::playNextLine() {
  while (m_nextLine < m_lines.size()) {
    const std::wstring& line = m_lines[m_nextLine++];
    playLine(CString(line).Trim().text());
    if (m_ending) return unwind();
    if (m_typing.active) return typeOn();
    if (m_stage.script().stepsLeft() > 0) return true;
  }
  if (m_stage.host().isBusy()) {
    CString prompt;
    m_stage.host().inputLine().GetWindowText(prompt);
    stop(ScriptEnd::failed, L"the script ends while a command waits at \"" + prompt.text() + L"\"");
  }
  m_ending = true;
  return unwind();
}

void ScriptPlayer::playLine(std::wstring_view line) {
  if (line.empty() || line.front() == kComment) return;
  if (line.front() != kDirective) {
    m_typing = {std::wstring(line), 0, 0, true, true};
    return;
  }
  const DirectiveAnswer answer = playDirective(m_stage, line);
  if (answer.end != ScriptEnd::done) stop(answer.end, answer.reason);
  if (!answer.typed.empty()) m_typing = {answer.typed, 0, 0, false, true};
}

// Ends what is running, one input at each call, and then the loop of the program. Only a command
// that does not take the cancelling is left to the quit.
bool ScriptPlayer::unwind() {
  DrawingHost& host = m_stage.host();
  if (!host.isBusy() || ++m_cancels > kMostCancels) return false;
  host.requestCancel();
  m_stage.script().message(nullptr, WM_NULL);
  return true;
}

}  // namespace qdr
