#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "database/file/drawing_blocks.h"
#include "database/file/file_shapes.h"
#include "platform/export.h"

namespace qdr {

/// What is wrong at a place of a file.
enum class FaultKind : std::uint8_t {
  foreign,           ///< the application name is not that of this system
  cut,               ///< the file ends inside a field
  unknownClass,      ///< a class type that stands for nothing
  wrongClass,        ///< the class in a head is not the one expected
  badCount,          ///< a count above what the rest of the file can hold
  notFinite,         ///< a number that is infinite or none
  missingReference,  ///< the number of a record or entity that is not in the file
  noName,            ///< a record without a name, which a reader drops
  sameName,          ///< a record of a name that the table had before, which it replaces
  sameNumber,        ///< an entity whose number another one of its block bears
  unreadable,        ///< an entity that no reader creates: what follows it in its block is lost
  badEnd,            ///< the number that closes a table is not 0
  skipped,           ///< bytes passed over on the way to the next whole object
  trailing,          ///< bytes behind the end of the last table
};

/// A word for a kind of fault, as reports spell it.
QDR_API const char* faultName(FaultKind kind);

struct ScanFault {
  FaultKind kind = FaultKind::cut;
  std::uint64_t offset = 0;  ///< of the field, from the start of the file
  std::string object;        ///< "line 4711", "layer \"Wall\"", "block table"
  std::string detail;        ///< what stands there and what should
};

/// A record, or an entity without its leading class type. The name is that of the record; for an
/// entity that of its block.
struct ScannedObject {
  TableKind table = TableKind::colors;
  std::int32_t classType = QdrDb::eClassNone;
  std::uint64_t offset = 0;
  std::uint64_t size = 0;  ///< a block ends before its first entity
  std::uint64_t number = 0;
  std::uint8_t status = 0;
  std::wstring_view name;
  std::string_view bytes;  ///< the object itself, in the bytes that were scanned
};

/// Receives what a scan comes across, in the order of the file. Views live for the call.
class QDR_API DrawingVisitor {
 public:
  virtual ~DrawingVisitor() = default;
  virtual void onTable(TableKind, std::uint64_t /*offset*/, std::uint64_t /*count*/) {}
  virtual void onRecord(const ScannedObject&) {}
  virtual void onEntity(const ScannedObject&) {}
  virtual void onFault(const ScanFault&) {}
};

/// The fixed blocks as far as the file has them, and sums.
struct QDR_API ScannedDrawing {
  QdrDbFileHeader_tag header;
  QdrDbDrawingVars_tag vars;
  QdrDbDimVars_tag dimVars;
  std::array<std::uint64_t, kTableCount> records{};  ///< whole records by table
  std::uint64_t entities = 0;                        ///< whole entities of all blocks
  std::uint64_t faults = 0;
  std::uint64_t largestNumber = 0;  ///< of a whole object
};

/// Walks the bytes of a drawing file without building a drawing. Behind a fault it goes on with the
/// next place where class type, repeated class and known size agree, if there is one. Any bytes
/// end: time is linear in their length, and memory holds no more than the numbers and names that
/// stand in them.
QDR_API ScannedDrawing scanDrawing(std::string_view bytes, DrawingVisitor& visitor);

/// The rows of the two tables that a reader drops.
struct ProjectInfoRow {
  std::wstring name;
  std::int32_t first = 0;
  std::int32_t second = 0;
  std::wstring text;
};
struct RevisionRow {
  std::wstring name;
  std::int32_t number = 0;
  std::array<std::wstring, 3> texts;
};
struct QDR_API DroppedRows {
  std::vector<ProjectInfoRow> projectInfo;
  std::vector<RevisionRow> revisions;
};
QDR_API DroppedRows scanDroppedRows(std::string_view bytes);

/// The bytes of a file. False, with the reason in `error`, when it cannot be read whole.
QDR_API bool readWholeFile(const wchar_t* path, std::string& bytes, std::string& error);

}  // namespace qdr
