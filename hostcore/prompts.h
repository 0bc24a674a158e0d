#pragma once

#include <memory>
#include <string>

#include "interaction/prompt_handler.h"
#include "platform/export.h"

namespace qdr {

/// Rows that commands ask for, row 0 included. With fewer of them a command would throw.
inline constexpr int kPromptRows = 74;

/// The prompts of a message file; an empty path means the built-in ones. A file that lacks rows or
/// cannot be opened gives the built-in prompts and a line for the user in `complaint`.
QDR_API std::unique_ptr<CQdrPromptHandler> loadPrompts(const std::wstring& path,
                                                       std::wstring& complaint);

}  // namespace qdr
