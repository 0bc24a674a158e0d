#pragma once

#include "platform/export.h"
#include "platform/wide_string.h"

class CStdioFile;

namespace qdr {

/// The next row of a text file whose rows end at a ";".
///
/// An empty line is skipped, and so is a line that begins with ";" and goes on behind it: a
/// comment. Every other line is cut at its first ";"; a line without one is an empty row, and so is
/// a line that holds only ";". False at the end of the file, and then `row` is empty.
bool nextRow(CStdioFile& file, CString& row);

}  // namespace qdr
