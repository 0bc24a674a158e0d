#pragma once

namespace qdr {

/// Whether a vector font in the font folder has a vertical form: the description, its first shape,
/// ends with above, below, modes and 0, and the modes are 2. Nothing else of the file is tested: a
/// missing one answers false, a foreign one by whatever byte stands at that place. A file once
/// opened stays open until the process ends.
bool isNormalFontVertical(const wchar_t* name);

/// The same for a big font, whose description lies where its first index entry says.
bool isBigFontVertical(const wchar_t* name);

}  // namespace qdr
