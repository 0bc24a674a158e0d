#include "interaction/text_rows.h"

#include "platform/file.h"

namespace qdr {

bool nextRow(CStdioFile& file, CString& row) {
  CString line;
  while (file.ReadString(line)) {
    if (line.IsEmpty()) continue;
    const int end = line.Find(L';');
    const bool comment = end == 0 && line.GetLength() > 1;
    if (comment) continue;
    row = line.Left(end);
    return true;
  }
  row.Empty();
  return false;
}

}  // namespace qdr
