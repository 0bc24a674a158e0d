#pragma once

#include <string>
#include <string_view>

#include "hostcore/script_player.h"

namespace qdr {

/// What came of a directive: steps added to the script, or text to be typed without an Enter.
struct DirectiveAnswer {
  ScriptEnd end = ScriptEnd::done;
  std::wstring reason;
  std::wstring typed;
};

/// Carries out one line that begins with a dot.
DirectiveAnswer playDirective(ScriptStage& stage, std::wstring_view line);

/// Carries out the rest of an expectation.
DirectiveAnswer playExpectation(ScriptStage& stage, std::wstring_view arguments);

/// Cuts the next word off the front; empty when there is none.
std::wstring takeWord(std::wstring_view& text);

/// Reads "x,y" or one number, and nothing else; false leaves the output alone.
bool readPoint(const std::wstring& word, CQdrGePoint2d& point);
bool readNumber(const std::wstring& word, double& number);

DirectiveAnswer usageFault(const std::wstring& reason);
DirectiveAnswer failure(const std::wstring& reason);

}  // namespace qdr
