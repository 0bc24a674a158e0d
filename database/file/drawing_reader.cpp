// Reads a drawing over the default records of a fresh database. Nothing in it is compared or
// trusted; a short file leaves what it misses.

#include "database/database.h"
#include "database/file/field_stream.h"

namespace {

// The record of a name, else the fallback, else null. The id starts null: only then does a table
// look a name up in upper and lower case as well.
CQdrDbObjectId namedRecord(const CQdrDbTable& table, const wchar_t* name, const wchar_t* fallback) {
  CQdrDbObjectId id;
  if (!table.getAt(name, id)) table.getAt(fallback, id);
  return id;
}

template <class Record, class Table>
void makeCurrent(CQdrDbObjectId& current, Table& table, const wchar_t* name,
                 const wchar_t* fallback) {
  current = namedRecord(table, name, fallback);
  table.setCurrentRecord(static_cast<Record*>(current.getPObject()));
}

const wchar_t* spaceName(std::int16_t space) {
  if (space == 0) return CQdrDbBlockTable::kModelSpace;
  return space == 1 ? CQdrDbBlockTable::kPaperSpace : L"";
}

}  // namespace

void CQdrDbDatabase::Read(CArchive& archive) {
  m_pFile = archive.GetFile();
  if (!m_pFile) return;
  m_hardIds.clear();
  qdr::readRaw(m_pFile, &m_header, sizeof m_header);
  qdr::readRaw(m_pFile, &m_vars, sizeof m_vars);
  qdr::readRaw(m_pFile, &m_dimVars, sizeof m_dimVars);
  m_plane.read(m_pFile);
  CQdrDbTable* const tables[] = {&m_colorTable,     &m_linetypeTable, &m_layerTable,
                                 &m_textStyleTable, &m_symbolTable,   &m_projectInfoTable,
                                 &m_revisionTable,  &m_blockTable};
  for (CQdrDbTable* table : tables)
    table->read();
  m_hardIds.clear();

  m_blockTable.SetCurentSpace(spaceName(m_vars.currentSpace));
  makeCurrent<CQdrDbLayerTableRecord>(m_currentLayerId, m_layerTable,
                                      m_vars.currentLayer.text().c_str(), L"0");
  makeCurrent<CQdrDbLTypeTableRecord>(m_currentLinetypeId, m_linetypeTable,
                                      m_vars.currentLinetype.text().c_str(), L"ByLayer");
  CString color;
  color.Format(L"%d", m_vars.currentColorIndex);
  makeCurrent<CQdrDbColorTableRecord>(m_currentColorId, m_colorTable, color, L"256");
  makeCurrent<CQdrDbTextStyleTableRecord>(m_currentTextStyleId, m_textStyleTable,
                                          m_vars.currentTextStyle.text().c_str(), L"STANDARD");
}
