#pragma once

#include <string>

#include "platform/export.h"

namespace qdr {

/// The folder of command names, prompts, patterns and fonts: "share/qdr" beside the folder of the
/// program, in an installed tree as in a build tree. Empty when no command names lie there.
QDR_API std::wstring findDataFolder();

/// Makes the kernel look for its data files in `folder`. Answers a line for the user when the path
/// is longer than the kernel's buffer, so that the files will not be found; else an empty one.
QDR_API std::wstring useDataFolder(const std::wstring& folder);

/// The same with the folder found; a line for the user when there is none.
QDR_API std::wstring useFoundDataFolder();

/// Path of a file in the folder in use.
QDR_API std::wstring dataFile(const wchar_t* name);

}  // namespace qdr
