#pragma once

#include <string>
#include <string_view>

#include "database/database.h"
#include "database/file/drawing_scanner.h"
#include "entities/line.h"
#include "fuzz/demand.h"
#include "platform/headless/memory_file.h"

namespace qdr_fuzz {

/// The fixed blocks and the plane of a new drawing, in front of what a fuzzer thinks up: their
/// fields have no structure to get wrong, and inputs stay small.
inline std::string withFixedBlocks(std::string_view tables) {
  const QdrDbFileHeader_tag header;
  const QdrDbDrawingVars_tag vars;
  const QdrDbDimVars_tag dimVars;
  const double plane[4] = {0.0, 0.0, 1.0, 0.0};
  std::string bytes;
  bytes.append(reinterpret_cast<const char*>(&header), sizeof header);
  bytes.append(reinterpret_cast<const char*>(&vars), sizeof vars);
  bytes.append(reinterpret_cast<const char*>(&dimVars), sizeof dimVars);
  bytes.append(reinterpret_cast<const char*>(plane), sizeof plane);
  return bytes.append(tables);
}

inline void read(CQdrDbDatabase& database, const std::string& bytes) {
  qdr::MemoryFile file(bytes);
  CArchive archive(&file, CArchive::load);
  database.Read(archive);
  database.m_pFile = nullptr;
}

inline std::string save(CQdrDbDatabase& database) {
  qdr::MemoryFile file;
  CArchive archive(&file, CArchive::store);
  database.Save(archive);
  file.Close();
  database.m_pFile = nullptr;
  return file.bytes();
}

/// What a save must never bring about, whatever was read before. Values may be odd: they come from
/// the file that was read.
struct StructureDemand : qdr::DrawingVisitor {
  void onFault(const qdr::ScanFault& fault) override {
    using enum qdr::FaultKind;
    demand(fault.kind == notFinite || fault.kind == sameNumber || fault.kind == missingReference);
  }
};

/// Scans and reads the tables of a drawing. Whatever the bytes, the database can be drawn in, saved
/// and read again afterwards.
inline void tryDrawing(std::string_view tables) {
  const std::string bytes = withFixedBlocks(tables);
  qdr::DrawingVisitor nobody;
  const qdr::ScannedDrawing scanned = qdr::scanDrawing(bytes, nobody);

  CQdrDbDatabase database(false);
  read(database, bytes);
  demand(database.m_layerTable.has(L"0"));
  demand(!database.m_currentLayerId.isNull() && !database.m_currentLinetypeId.isNull());
  demand(!database.m_currentColorId.isNull() && !database.m_currentTextStyleId.isNull());
  demand(database.m_blockTable.getCurrentRecord() != nullptr);

  // A number of its own, as a host gives it; the largest number of all has none above it.
  CQdrDbObject::NextHardID = scanned.largestNumber + 1;
  const std::size_t members = database.m_blockTable.getCurrentRecord()->getNumEntity();
  CQdrDbObjectId id;
  database.addEntity(new CQdrDbLine(&database), id);
  demand(database.m_blockTable.getCurrentRecord()->getNumEntity() >= members);

  const std::string saved = save(database);
  StructureDemand structure;
  qdr::scanDrawing(saved, structure);
  CQdrDbDatabase again(false);
  read(again, saved);
}

}  // namespace qdr_fuzz
