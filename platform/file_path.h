#pragma once

#include "platform/export.h"
#include "platform/wide_string.h"

namespace qdr {

/// Paths are cut at the last '/' or '\', whichever stands further behind.

/// Everything before the last separator, without it; the root keeps its '/'. Empty when there is
/// no separator.
QDR_API CString folderOf(const wchar_t* path);

/// Everything behind the last separator.
QDR_API CString fileNameOf(const wchar_t* path);

/// The file name without its last '.' and what follows; a leading '.' cuts nothing.
QDR_API CString titleOf(const wchar_t* path);

/// What follows the last '.' of the file name; empty when it has none.
QDR_API CString extensionOf(const wchar_t* path);

/// Folder and name with one '/' between them; an empty folder adds nothing.
QDR_API CString joinPath(const wchar_t* folder, const wchar_t* name);

/// The path of an existing file: `path` itself, else the file of its folder whose name differs in
/// the case of letters only, the first by name. Empty when there is none.
QDR_API CString findFileInAnyCase(const wchar_t* path);

}  // namespace qdr
