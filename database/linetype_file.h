#pragma once

#include <vector>

#include "platform/export.h"
#include "platform/wide_string.h"

namespace qdr {

/// A linetype as a ".lin" file offers it: "*NAME,description" on one line, "A,1,-0.5" on the next.
struct LinetypeOffer {
  CString name;
  CString description;
  CString pattern;  ///< behind "A,": lengths between commas; empty when the next line has none
};

/// Appends the linetypes of a file. False when it cannot be opened, and then `offers` stays.
QDR_API bool readLinetypeFile(const wchar_t* path, std::vector<LinetypeOffer>& offers);

/// The lengths of a pattern: strokes positive, gaps negative. What is no number is left out, and so
/// is all behind the first 1024 lengths.
QDR_API std::vector<double> dashesOf(const CString& pattern);

}  // namespace qdr
