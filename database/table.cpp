#include "database/table.h"

#include <algorithm>
#include <cstddef>
#include <cwchar>
#include <functional>
#include <iterator>
#include <limits>
#include <vector>

#include "database/database.h"
#include "database/table_iterator.h"
#include "platform/file.h"

namespace {

bool assignFound(const CQdrDbTable::Records& records, const CString& name, CQdrDbObjectId& out) {
  const auto found = records.find(name);
  if (found == records.end()) return false;
  out = found->second;
  return true;
}

bool hasName(const CQdrDbTableRecord& record) {
  return record.getName()[0] != L'\0';
}

}  // namespace

CQdrDbTable::CQdrDbTable(CQdrDbDatabase* database) : CQdrDbObject(database) {}

CQdrDbTable::~CQdrDbTable() {
  deleteRecords();
}

void CQdrDbTable::deleteRecords() {
  // A record that was renamed behind the table's back and added again stands here twice.
  std::vector<CQdrDbObject*> records;
  records.reserve(m_records.size());
  for (const auto& [name, id] : m_records)
    records.push_back(id.getPObject());
  m_records.clear();
  std::sort(records.begin(), records.end(), std::less<CQdrDbObject*>());
  records.erase(std::unique(records.begin(), records.end()), records.end());
  for (CQdrDbObject* record : records)
    delete record;
}

bool CQdrDbTable::getAt(const wchar_t* name, CQdrDbObjectId& out, bool) const {
  if (!name) return false;
  CString key(name);
  if (assignFound(m_records, key, out)) return true;
  if (!out.isNull()) return false;
  key.MakeUpper();
  if (assignFound(m_records, key, out)) return true;
  key.MakeLower();
  return assignFound(m_records, key, out);
}

bool CQdrDbTable::getAt(std::uint64_t hardId, CQdrDbObjectId& out, bool) const {
  for (const auto& [name, id] : m_records) {
    out = id;
    if (id == hardId) return true;
  }
  return false;
}

bool CQdrDbTable::getRecord(const wchar_t* name, CQdrDbTableRecord*& out, bool) const {
  if (!name) return false;
  const auto found = m_records.find(CString(name));
  if (found == m_records.end() || found->second.isNull()) return false;
  out = static_cast<CQdrDbTableRecord*>(found->second.getPObject());
  return true;
}

bool CQdrDbTable::has(const wchar_t* name) const {
  return name && m_records.contains(CString(name));
}

bool CQdrDbTable::has(const CQdrDbObjectId& id) const {
  return std::ranges::any_of(m_records, [&](const auto& entry) { return entry.second == id; });
}

bool CQdrDbTable::add(CQdrDbTableRecord* record) {
  CQdrDbObjectId id;
  return add(id, record);
}

bool CQdrDbTable::add(CQdrDbObjectId& out, CQdrDbTableRecord* record) {
  if (!record || !hasName(*record)) return false;
  const CQdrDbObjectId id = record->objectId();
  out = id;
  if (id.isNull()) return false;
  const auto [place, isNew] = m_records.try_emplace(CString(record->getName()), id);
  if (!isNew && place->second == id) return true;
  if (!isNew) replace(place->second, *record);
  onAdded(*record);
  return true;
}

// `place` names the old record and is to name the new one.
void CQdrDbTable::replace(CQdrDbObjectId& place, CQdrDbTableRecord& record) {
  auto* replaced = static_cast<CQdrDbTableRecord*>(place.getPObject());
  place = record.objectId();
  onReplaced(*replaced, record);
  if (isPartOfDatabase()) m_database->m_undoHandler.replaceRecord(replaced, &record);
  delete replaced;
}

void CQdrDbTable::reName(CQdrDbTableRecord* record, wchar_t* newName) {
  if (!record || !newName || !*newName) return;
  const auto filed = m_records.find(CString(record->getName()));
  if (filed == m_records.end() || filed->second != record) return;
  const CString wanted = CString(newName).Left(static_cast<int>(CQdrDbTableRecord::kNameSize) - 1);
  const auto holder = m_records.find(wanted);
  if (holder != m_records.end() && holder->second != record) return;
  record->setName(newName);
  const CString taken(record->getName());
  if (taken == filed->first || m_records.contains(taken)) return;
  const CQdrDbObjectId id = record->objectId();
  m_records.erase(filed);
  m_records.emplace(taken, id);
}

bool CQdrDbTable::newIterator(CQdrDbTableIterator*& iterator, bool atStart) {
  iterator = new CQdrDbTableIterator(this);
  iterator->start(atStart);
  return true;
}

bool CQdrDbTable::removeAndDelete(const wchar_t* name) {
  if (!name) return false;
  const auto found = m_records.find(CString(name));
  if (found == m_records.end()) return false;
  auto* record = static_cast<CQdrDbTableRecord*>(found->second.getPObject());
  m_records.erase(found);
  onRemoved(*record);
  if (isPartOfDatabase()) m_database->m_undoHandler.forgetRecord(record);
  delete record;
  return true;
}

void CQdrDbTable::onReplaced(CQdrDbTableRecord&, CQdrDbTableRecord&) {}

void CQdrDbTable::onRemoved(CQdrDbTableRecord&) {}

// A database holds its tables by value: a table is its own exactly when it lies inside it.
bool CQdrDbTable::isPartOfDatabase() const {
  if (!m_database || m_database->isClosing()) return false;
  const auto* table = reinterpret_cast<const std::byte*>(this);
  const auto* begin = reinterpret_cast<const std::byte*>(m_database);
  return !std::less<>()(table, begin) && std::less<>()(table, begin + sizeof(*m_database));
}

void CQdrDbTable::save() {
  saveRecords();
  saveEnd();
}

void CQdrDbTable::read() {
  readRecords();
  readEnd();
}

void CQdrDbTable::saveRecords() {
  CFile* stream = file();
  if (!stream) return;
  constexpr std::size_t kMost = std::numeric_limits<std::uint16_t>::max();
  const auto isLive = [](const auto& entry) { return !entry.second.isErased(); };
  const auto live = static_cast<std::size_t>(std::ranges::count_if(m_records, isLive));
  const auto count = static_cast<std::uint16_t>(std::min(live, kMost));
  stream->Write(&count, sizeof count);
  std::size_t left = count;
  for (const auto& [name, id] : m_records) {
    if (left == 0) return;
    if (id.isErased()) continue;
    id.save();
    --left;
  }
}

void CQdrDbTable::readRecords() {
  CFile* stream = file();
  if (!stream) return;
  std::uint16_t count = 0;
  stream->Read(&count, sizeof count);
  for (std::uint16_t i = 0; i < count && stream->bytesLeft() > 0; ++i) {
    CQdrDbTableRecord* record = newRecord();
    if (!record) return;
    record->read();
    record->setOwnerId(objectId());
    if (!add(record)) {
      delete record;
    } else if (isPartOfDatabase()) {
      m_database->hardIds().noteRead(*record);
    }
  }
  if (isPartOfDatabase()) m_database->hardIds().complete(*this);
}

void CQdrDbTable::saveEnd() {
  constexpr std::uint16_t kEnd = 0;
  if (CFile* stream = file()) stream->Write(&kEnd, sizeof kEnd);
}

void CQdrDbTable::readEnd() {
  std::uint16_t ignored = 0;
  if (CFile* stream = file()) stream->Read(&ignored, sizeof ignored);
}
