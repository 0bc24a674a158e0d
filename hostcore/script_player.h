#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "hostcore/script_stage.h"
#include "platform/export.h"

namespace qdr {

/// How a script ended; the numbers are exit codes of a program that plays one.
enum class ScriptEnd : int {
  done = 0,
  failed = 1,  ///< an expectation does not hold, or a line cannot be played
  usage = 2,   ///< a line is no line of the language
  file = 3     ///< a file cannot be read or written
};

struct ScriptOutcome {
  ScriptEnd end = ScriptEnd::done;
  int line = 0;  ///< counted from 1; 0 when all went well
  std::wstring reason;

  explicit operator bool() const { return end == ScriptEnd::done; }
};

/// Plays a script of the language in docs/script.md on a stage: each line is taken when the program
/// asks for its next message, also from inside the inputs of a running command.
class QDR_API ScriptPlayer {
 public:
  explicit ScriptPlayer(ScriptStage& stage) : m_stage(stage) {}
  ScriptPlayer(const ScriptPlayer&) = delete;
  ScriptPlayer& operator=(const ScriptPlayer&) = delete;

  /// Plays UTF-8 text to its end or to the first line that fails, and ends what is running then.
  /// The stage is ready for another script afterwards.
  ScriptOutcome play(std::string_view text);

 private:
  // The input that a typed line goes to, and what of the line is still to be typed.
  struct Typing {
    std::wstring text;
    std::size_t next = 0;
    unsigned long endedBefore = 0;  ///< inputs ended when the last character was sent
    bool withEnter = false;
    bool active = false;
  };

  bool supply();
  bool typeOn();
  bool sendEnter();
  bool playNextLine();
  void playLine(std::wstring_view line);
  bool unwind();
  void stop(ScriptEnd end, const std::wstring& reason);

  ScriptStage& m_stage;
  std::vector<std::wstring> m_lines;
  std::size_t m_nextLine = 0;
  Typing m_typing;
  ScriptOutcome m_outcome;
  int m_cancels = 0;
  bool m_ending = false;
};

}  // namespace qdr
