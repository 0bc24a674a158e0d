#pragma once

#include <map>

#include "platform/export.h"
#include "platform/wide_string.h"

namespace qdr {

/// The typed names of commands, each with the host's number of its command. Names are kept in lower
/// case and found in any case.
class QDR_API CommandNames {
 public:
  /// Adds the names of one record: a number, then any count of names, separated by blanks and tabs.
  /// A name that is known keeps its number. Returns the number of names known.
  int addRecord(const CString& record);

  /// Adds every record of a file; a file that cannot be opened adds nothing and says nothing.
  /// Returns the number of names known.
  int addFile(const CString& path);

  /// The number of a command; 0 when the name is not known.
  unsigned long numberOf(const CString& name) const;

  /// Any name of a command, the first in order of the alphabet; empty when it has none.
  CString nameOf(unsigned long number) const;

  int count() const { return static_cast<int>(m_numbers.size()); }

 private:
  std::map<CString, unsigned> m_numbers;
};

/// Path of a file beside the host's program, built in a buffer of 128 characters: what is longer is
/// cut, and the file is then not found.
QDR_API CString pathBesideHost(const wchar_t* fileName);

/// False when that path is cut; a program then tells its user, since nothing else does.
QDR_API bool pathBesideHostFits(const wchar_t* fileName);

}  // namespace qdr
