#include "database/file/drawing_scanner.h"

#include <algorithm>
#include <cstring>
#include <optional>
#include <set>

#include "database/file/scan_cursor.h"
#include "database/file/shape_walk.h"
#include "platform/wide_string.h"

namespace qdr {

namespace {

constexpr std::uint64_t kNumberBytes = 8;

// Bytes of an entity that the search for the next one looks at: class type to data count.
constexpr std::uint64_t kLeadBytes = kClassTypeBytes + kBodyStartBytes;

std::string quoted(std::wstring_view name) {
  return "\"" + toUtf8(name) + "\"";
}

class Scan {
 public:
  Scan(std::string_view bytes, DrawingVisitor& visitor)
      : m_cursor(bytes), m_visitor(visitor), m_budget(kBudgetPerByte * bytes.size()) {}

  ScannedDrawing run();

 private:
  // Bytes walked again behind faults, for each byte of the file: a file made of nothing but false
  // starts is given up before its length counts twice over.
  static constexpr std::uint64_t kBudgetPerByte = 16;

  bool fixedBlocks();
  template <class Block>
  bool fixedBlock(Block& block, const char* name);
  bool table(const TableShape& shape);
  bool records(const TableShape& shape, std::uint64_t count);
  bool record(const TableShape& shape);
  bool walkRecord(const TableShape& shape, ShapeWalk& walk, std::wstring& name);
  void learn(const TableShape& shape, std::uint64_t number, const std::wstring& name);
  bool entities(const std::wstring& block);
  bool entity(const std::wstring& block);
  bool attributeDefinitions(const std::wstring& block);
  bool isTooLong(const EntityShape& shape, std::uint64_t start, const std::string& object);
  void checkMembers();
  bool tableEnd(const TableShape& shape);
  void noteObject(const ScannedObject& object);

  bool findRecord(const TableShape& shape, std::uint64_t from);
  bool looksLikeRecord(const TableShape& shape, std::uint64_t at) const;
  bool findEntity(std::uint64_t behind);
  bool startsEntity(std::uint64_t at) const;
  bool looksLikeEntity(std::uint64_t at) const;
  bool looksLikeBlockEnd(std::uint64_t at) const;
  bool spend(std::uint64_t bytes);

  void report(const ShapeWalk& walk, const std::string& object);
  void report(FaultKind kind, std::uint64_t offset, std::string object, std::string detail);
  void reportSkipped(std::uint64_t from, const std::string& object);

  ScanCursor m_cursor;
  DrawingVisitor& m_visitor;
  ScannedDrawing m_result;
  KnownNumbers m_known;
  std::set<std::wstring> m_names;               // of the table under way
  std::vector<std::uint64_t> m_members;         // of the block under way
  std::vector<BoundaryReference> m_boundaries;  // of the block under way
  bool m_blockEnded = false;                    // the entities of the block ended behind a fault
  FaultKind m_lastFault = FaultKind::cut;
  std::uint64_t m_budget;
};

void Scan::report(FaultKind kind, std::uint64_t offset, std::string object, std::string detail) {
  ++m_result.faults;
  m_lastFault = kind;
  m_visitor.onFault({kind, offset, std::move(object), std::move(detail)});
}

void Scan::report(const ShapeWalk& walk, const std::string& object) {
  for (const WalkFault& fault : walk.faults()) {
    report(fault.kind, fault.offset, object, fault.detail);
  }
}

void Scan::reportSkipped(std::uint64_t from, const std::string& object) {
  report(FaultKind::skipped, from, object,
         std::to_string(m_cursor.at() - from) + " bytes passed over");
}

bool Scan::spend(std::uint64_t bytes) {
  const bool isAffordable = bytes <= m_budget;
  m_budget -= std::min(bytes, m_budget);
  return isAffordable;
}

template <class Block>
bool Scan::fixedBlock(Block& block, const char* name) {
  const std::uint64_t bytes = std::min<std::uint64_t>(m_cursor.left(), sizeof block);
  std::memcpy(static_cast<void*>(&block), m_cursor.bytes().data() + m_cursor.at(), bytes);
  if (m_cursor.skip(sizeof block)) return true;
  report(FaultKind::cut, m_cursor.at(), name, "the file ends inside it");
  return false;
}

bool Scan::fixedBlocks() {
  if (!fixedBlock(m_result.header, "header")) return false;
  if (m_result.header.applicationName.text() != L"K-Ova") {
    report(FaultKind::foreign, 0, "header",
           "application name " + quoted(m_result.header.applicationName.text()));
  }
  if (!fixedBlock(m_result.vars, "settings")) return false;
  if (!fixedBlock(m_result.dimVars, "dimension settings")) return false;
  KnownNumbers none;
  ShapeWalk walk(m_cursor, none);
  static constexpr FieldShape kPlane[] = {{FieldKind::real, "a"},
                                          {FieldKind::real, "b"},
                                          {FieldKind::real, "c"},
                                          {FieldKind::real, "d"}};
  const bool isWhole = walk.fields(kPlane);
  report(walk, "plane");
  return isWhole;
}

ScannedDrawing Scan::run() {
  // A reader has these colours whether the file brings them or not.
  m_known.colorIndices = {0, 1, 2, 3, 4, 5, 6, 7, 256};
  bool goesOn = fixedBlocks();
  for (std::size_t i = 0; goesOn && i < kTableCount; ++i) {
    goesOn = table(tableShape(static_cast<TableKind>(i)));
  }
  const bool isTold = !goesOn && m_lastFault == FaultKind::cut;
  if (m_cursor.left() > 0 && !isTold) {
    report(goesOn ? FaultKind::trailing : FaultKind::skipped, m_cursor.at(), "file",
           std::to_string(m_cursor.left()) +
               (goesOn ? " bytes behind the end" : " bytes up to the end cannot be told"));
  }
  return std::move(m_result);
}

bool Scan::table(const TableShape& shape) {
  const std::string object = std::string(shape.name) + " table";
  const std::uint64_t start = m_cursor.at();
  m_names.clear();
  KnownNumbers none;
  ShapeWalk ahead(m_cursor, none);
  const bool hasAhead = ahead.fields(shape.ahead);
  report(ahead, object);
  std::uint16_t count = 0;
  if (!hasAhead) return false;
  if (!m_cursor.take(count)) {
    report(FaultKind::cut, m_cursor.at(), object, "the file ends inside the count of records");
    return false;
  }
  m_visitor.onTable(shape.kind, start, count);
  return records(shape, count) && tableEnd(shape);
}

bool Scan::tableEnd(const TableShape& shape) {
  const std::string object = std::string(shape.name) + " table";
  KnownNumbers none;
  ShapeWalk behind(m_cursor, none);
  const bool hasBehind = behind.fields(shape.behind);
  report(behind, object);
  if (!hasBehind) return false;
  std::uint16_t end = 0;
  const std::uint64_t offset = m_cursor.at();
  if (!m_cursor.take(end)) {
    report(FaultKind::cut, offset, object, "the file ends before the closing 0");
    return false;
  }
  if (end != 0) {
    report(FaultKind::badEnd, offset, object, std::to_string(end) + " where 0 closes the table");
  }
  return true;
}

bool Scan::records(const TableShape& shape, std::uint64_t count) {
  for (; count > 0; --count) {
    const std::uint64_t start = m_cursor.at();
    if (record(shape)) continue;
    if (m_cursor.left() == 0 || !findRecord(shape, start + 1)) return false;
    reportSkipped(start, std::string(shape.name) + " table");
  }
  return true;
}

bool Scan::walkRecord(const TableShape& shape, ShapeWalk& walk, std::wstring& name) {
  static constexpr FieldShape kName[] = {{FieldKind::units, "the name", 81}};
  if (!walk.head(shape.recordClass)) return false;
  ScanCursor nameCursor = m_cursor;
  if (!walk.fields(kName)) return false;
  nameCursor.takeUnits(name, kNameUnits);
  return walk.fields(shape.record);
}

// False when the place of what follows is in doubt.
bool Scan::record(const TableShape& shape) {
  const std::uint64_t start = m_cursor.at();
  std::wstring name;
  ShapeWalk walk(m_cursor, m_known);
  const bool isWhole = walkRecord(shape, walk, name);
  const std::string object = std::string(shape.name) + " " + quoted(name);
  report(walk, object);
  if (!isWhole) return false;
  if (name.empty()) {
    report(FaultKind::noName, start + kHeadBytes, object, "a record without a name is dropped");
  } else if (!m_names.insert(name).second) {
    report(FaultKind::sameName, start + kHeadBytes, object, "replaces an earlier record");
  }
  learn(shape, walk.number(), name);
  const std::uint64_t size = m_cursor.at() - start;
  const ScannedObject found = {
      shape.kind,    shape.recordClass, start, size,
      walk.number(), walk.status(),     name,  m_cursor.bytes().substr(start, size)};
  noteObject(found);
  ++m_result.records[static_cast<std::size_t>(shape.kind)];
  m_visitor.onRecord(found);
  return shape.kind != TableKind::blocks || (entities(name) && attributeDefinitions(name));
}

void Scan::noteObject(const ScannedObject& object) {
  m_result.largestNumber = std::max(m_result.largestNumber, object.number);
}

void Scan::learn(const TableShape& shape, std::uint64_t number, const std::wstring& name) {
  switch (shape.kind) {
    case TableKind::colors:
      m_known.colors.insert(number);
      if (const int index = _wtoi(name.c_str()); std::to_wstring(index) == name) {
        m_known.colorIndices.insert(index);
      }
      break;
    case TableKind::linetypes:
      m_known.linetypes.insert(number);
      break;
    case TableKind::layers:
      m_known.layers.insert(number);
      break;
    case TableKind::textStyles:
      m_known.styles.insert(number);
      break;
    default:
      break;
  }
}

bool Scan::entities(const std::wstring& block) {
  m_members.clear();
  m_boundaries.clear();
  m_blockEnded = false;
  std::uint32_t count = 0;
  if (!m_cursor.take(count)) {
    report(FaultKind::cut, m_cursor.at(), "block " + quoted(block),
           "the file ends inside the count of entities");
    return false;
  }
  if (count > m_cursor.left() / kLeadBytes) {
    report(FaultKind::badCount, m_cursor.at() - sizeof count, "block " + quoted(block),
           std::to_string(count) + " entities do not fit into the file");
  }
  for (; count > 0 && !m_blockEnded; --count) {
    const std::uint64_t start = m_cursor.at();
    if (entity(block)) continue;
    if (m_cursor.left() == 0 || !findEntity(start)) return false;
    reportSkipped(start, "block " + quoted(block));
  }
  checkMembers();
  return true;
}

// False when the place of what follows is in doubt.
bool Scan::entity(const std::wstring& block) {
  const std::uint64_t start = m_cursor.at();
  std::int32_t type = 0;
  if (!m_cursor.take(type)) {
    report(FaultKind::cut, start, "block " + quoted(block), "the file ends inside a class type");
    m_cursor.moveTo(m_cursor.bytes().size());
    return false;
  }
  const EntityShape* shape = entityShape(type);
  if (!shape) {
    report(FaultKind::unknownClass, start, "block " + quoted(block),
           "class " + std::to_string(type) + " is no entity");
    return false;
  }
  ShapeWalk walk(m_cursor, m_known);
  const bool isWhole = walk.body(*shape);
  const std::string object = std::string(shape->name) + " " + std::to_string(walk.number());
  report(walk, object);
  if (!isWhole || isTooLong(*shape, start, object)) {
    spend(m_cursor.at() - start);
    return false;
  }
  if (!shape->readable) {
    report(FaultKind::unreadable, start, object, "no reader creates it; what follows is lost");
  }
  m_members.push_back(walk.number());
  m_boundaries.insert(m_boundaries.end(), walk.boundaries().begin(), walk.boundaries().end());
  const std::uint64_t offset = start + kClassTypeBytes;
  const std::uint64_t size = m_cursor.at() - offset;
  const ScannedObject found = {
      TableKind::blocks, type,          offset, size,
      walk.number(),     walk.status(), block,  m_cursor.bytes().substr(offset, size)};
  noteObject(found);
  ++m_result.entities;
  m_visitor.onEntity(found);
  return true;
}

// A wrong count swallows what follows. It shows where an entity of variable size is followed by
// neither an entity nor the end of its block.
bool Scan::isTooLong(const EntityShape& shape, std::uint64_t start, const std::string& object) {
  const std::uint64_t least = kLeadBytes + fixedBytes(shape.own);
  if (m_cursor.at() - start == least || m_cursor.left() < kLeadBytes) return false;
  if (startsEntity(m_cursor.at()) || looksLikeBlockEnd(m_cursor.at())) return false;
  report(FaultKind::badCount, start, object, "neither an entity nor the end of the block follows");
  return true;
}

bool Scan::attributeDefinitions(const std::wstring& block) {
  std::uint32_t count = 0;
  const std::uint64_t offset = m_cursor.at();
  if (!m_cursor.take(count)) {
    report(FaultKind::cut, offset, "block " + quoted(block),
           "the file ends inside the count of attribute definitions");
    return false;
  }
  if (count == 0) return true;
  report(FaultKind::badCount, offset, "block " + quoted(block),
         std::to_string(count) + " attribute definitions where there are none");
  return false;
}

// What shows when all entities of a block are known.
void Scan::checkMembers() {
  std::ranges::sort(m_members);
  for (auto twin = std::ranges::adjacent_find(m_members); twin != m_members.end();
       twin = std::adjacent_find(twin + 1, m_members.end())) {
    report(FaultKind::sameNumber, m_cursor.at(), "entity " + std::to_string(*twin),
           "two entities of a block bear this number");
  }
  for (const BoundaryReference& boundary : m_boundaries) {
    if (std::ranges::binary_search(m_members, boundary.number)) continue;
    report(FaultKind::missingReference, boundary.offset, "hatch " + std::to_string(boundary.hatch),
           "boundary " + std::to_string(boundary.number) + " is not in its block");
  }
}

bool Scan::looksLikeRecord(const TableShape& shape, std::uint64_t at) const {
  const ScanCursor here(m_cursor.bytes(), at);
  if (here.left() < kRecordStartBytes + fixedBytes(shape.record)) return false;
  if (here.peek<std::int32_t>(kNumberBytes) != shape.recordClass) return false;
  ScanCursor name(m_cursor.bytes(), at + kHeadBytes);
  std::wstring text;
  name.takeUnits(text, kNameUnits);
  const auto isPrintable = [](wchar_t letter) { return letter >= L' '; };
  return !text.empty() && text.size() < kNameUnits && std::ranges::all_of(text, isPrintable);
}

// Moves to the next record of the table from a place on. False when there is none.
bool Scan::findRecord(const TableShape& shape, std::uint64_t from) {
  const std::uint64_t size = m_cursor.bytes().size();
  for (std::uint64_t at = from; at + kRecordStartBytes <= size; ++at) {
    if (!spend(1)) return false;
    if (!looksLikeRecord(shape, at)) continue;
    m_cursor.moveTo(at);
    return true;
  }
  return false;
}

// The class of an entity, repeated in its head. Its status may be damaged all the same.
bool Scan::startsEntity(std::uint64_t at) const {
  const ScanCursor here(m_cursor.bytes(), at);
  const auto type = here.peek<std::int32_t>(0);
  const EntityShape* shape = entityShape(type);
  if (!shape || here.peek<std::int32_t>(kClassTypeBytes + kNumberBytes) != type) return false;
  return here.left() >= kLeadBytes + fixedBytes(shape->own);
}

bool Scan::looksLikeEntity(std::uint64_t at) const {
  if (!startsEntity(at)) return false;
  const ScanCursor here(m_cursor.bytes(), at);
  const EntityShape* shape = entityShape(here.peek<std::int32_t>(0));
  const auto status = here.peek<std::uint8_t>(kClassTypeBytes + kNumberBytes + kClassTypeBytes);
  return (status & shape->status) == shape->status;
}

// Behind the last entity: no attribute definitions, then the end of the table or the next block.
bool Scan::looksLikeBlockEnd(std::uint64_t at) const {
  constexpr std::uint64_t kCountBytes = 4;
  constexpr std::uint64_t kEndBytes = 2;
  const ScanCursor here(m_cursor.bytes(), at);
  if (here.left() < kCountBytes + kEndBytes || here.peek<std::uint32_t>(0) != 0) return false;
  if (here.left() == kCountBytes + kEndBytes) return here.peek<std::uint16_t>(kCountBytes) == 0;
  return looksLikeRecord(tableShape(TableKind::blocks), at + kCountBytes);
}

// Moves to the next entity behind a place, or to the end of the block, which may be that place.
// False when there is none.
bool Scan::findEntity(std::uint64_t behind) {
  const std::uint64_t size = m_cursor.bytes().size();
  for (std::uint64_t at = behind; at < size; ++at) {
    if (!spend(1)) return false;
    const bool isEntity = at > behind && looksLikeEntity(at);
    m_blockEnded = !isEntity && looksLikeBlockEnd(at);
    if (!isEntity && !m_blockEnded) continue;
    m_cursor.moveTo(at);
    return true;
  }
  return false;
}

}  // namespace

const char* faultName(FaultKind kind) {
  static constexpr const char* kNames[] = {
      "foreign",           "cut",     "unknown class", "wrong class", "bad count",  "not finite",
      "missing reference", "no name", "same name",     "same number", "unreadable", "bad end",
      "skipped",           "trailing"};
  return kNames[static_cast<std::size_t>(kind)];
}

ScannedDrawing scanDrawing(std::string_view bytes, DrawingVisitor& visitor) {
  return Scan(bytes, visitor).run();
}

}  // namespace qdr
