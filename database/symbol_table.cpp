#include "database/symbol_table.h"

#include "database/auto_name.h"
#include "database/file/field_stream.h"

CQdrDbSymbolTable::CQdrDbSymbolTable(CQdrDbDatabase* database) : TypedTable(database) {
  m_classType = QdrDb::eClassSymbolTable;
}

CQdrDbSymbolTable::~CQdrDbSymbolTable() {
  for (CQdrDbTableRecord* record : m_retired)
    delete record;
}

void CQdrDbSymbolTable::initSymbolTable() {
  for (const auto& [name, id] : m_records) {
    m_retired.push_back(static_cast<CQdrDbTableRecord*>(id.getPObject()));
  }
  m_records.clear();
  m_current = nullptr;
}

CQdrDbObjectId CQdrDbSymbolTable::GetLastName(wchar_t* buffer) const {
  qdr::writeAutoName(buffer, m_nextNumber - 1);
  CQdrDbObjectId id;
  getAt(buffer, id);
  return id;
}

bool CQdrDbSymbolTable::addRefEntity(const CQdrDbObjectId& id) {
  if (classTypeOf(id.getPObject()) != QdrDb::eClassSymbolTableRecord) return false;
  const auto* named = static_cast<const CQdrDbTableRecord*>(id.getPObject());
  CQdrDbSymbolTableRecord* record = nullptr;
  if (!getRecord(named->getName(), record)) return false;
  record->addRefEntity(id);
  return true;
}

bool CQdrDbSymbolTable::removeRecord(const wchar_t* name) {
  CQdrDbSymbolTableRecord* record = nullptr;
  if (!getRecord(name, record)) return false;
  m_records.erase(CString(name));
  m_retired.push_back(record);
  onRemoved(*record);
  return true;
}

void CQdrDbSymbolTable::onAdded(CQdrDbTableRecord& record) {
  m_current = static_cast<CQdrDbSymbolTableRecord*>(&record);
  ++m_nextNumber;
}

void CQdrDbSymbolTable::save() {
  saveRecords();
  qdr::FieldWriter(file()).number(m_nextNumber);
  saveEnd();
}

void CQdrDbSymbolTable::read() {
  readRecords();
  qdr::FieldReader(file()).number(m_nextNumber);
  readEnd();
}
