// Project info and revision rows, which a reader drops, out of the bytes of a file.

#include <algorithm>
#include <utility>

#include "database/file/drawing_scanner.h"
#include "database/file/scan_cursor.h"
#include "platform/file.h"

namespace qdr {

namespace {

constexpr std::size_t kRevisionUnits[] = {82, 256, 256};

class RowCollector : public DrawingVisitor {
 public:
  void onRecord(const ScannedObject& record) override {
    ScanCursor cursor(record.bytes, kRecordStartBytes);
    if (record.table == TableKind::projectInfo) {
      ProjectInfoRow row;
      row.name = record.name;
      cursor.take(row.first);
      cursor.take(row.second);
      cursor.takeUnits(row.text, kNameUnits);
      m_rows.projectInfo.push_back(row);
    } else if (record.table == TableKind::revisions) {
      RevisionRow row;
      row.name = record.name;
      cursor.take(row.number);
      for (std::size_t i = 0; i < row.texts.size(); ++i) {
        cursor.takeUnits(row.texts[i], kRevisionUnits[i]);
      }
      m_rows.revisions.push_back(row);
    }
  }

  DroppedRows m_rows;
};

}  // namespace

DroppedRows scanDroppedRows(std::string_view bytes) {
  RowCollector collector;
  scanDrawing(bytes, collector);
  return std::move(collector.m_rows);
}

bool readWholeFile(const wchar_t* path, std::string& bytes, std::string& error) {
  constexpr unsigned kChunk = 1U << 20;
  CFile file;
  bytes.clear();
  if (!file.Open(path, CFile::modeRead)) {
    error = file.lastError();
    return false;
  }
  while (file.bytesLeft() > 0) {
    const std::size_t before = bytes.size();
    const auto wanted = static_cast<unsigned>(std::min<std::uint64_t>(file.bytesLeft(), kChunk));
    bytes.resize(before + wanted);
    const unsigned got = file.Read(bytes.data() + before, wanted);
    bytes.resize(before + got);
    if (got < wanted) break;
  }
  error = file.lastError();
  return error.empty();
}

}  // namespace qdr
