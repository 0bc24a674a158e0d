#pragma once

#include <cstdint>
#include <string>
#include <unordered_set>
#include <vector>

#include "database/file/drawing_scanner.h"
#include "database/file/scan_cursor.h"

namespace qdr {

/// Numbers of the records that a file has, for the references to them.
struct KnownNumbers {
  std::unordered_set<std::uint64_t> colors;
  std::unordered_set<std::uint64_t> linetypes;
  std::unordered_set<std::uint64_t> layers;
  std::unordered_set<std::uint64_t> styles;
  std::unordered_set<std::int32_t> colorIndices;
};

/// A boundary that a hatch names; whether it is there shows when the block is complete.
struct BoundaryReference {
  std::uint64_t number;
  std::uint64_t offset;
  std::uint64_t hatch;
};

/// A fault met on a walk, without its object.
struct WalkFault {
  FaultKind kind;
  std::uint64_t offset;
  std::string detail;
};

/// Walks one object over its shape. A fault that leaves the place of the next field in doubt ends
/// the walk; the others are noted and it goes on.
class ShapeWalk {
 public:
  ShapeWalk(ScanCursor& cursor, const KnownNumbers& known) : m_cursor(cursor), m_known(known) {}

  /// The 13 bytes that every object begins with. False when the class is not `expected`.
  bool head(std::int32_t expected);

  bool fields(Shape shape);

  /// An entity without its leading class type.
  bool body(const EntityShape& shape);

  std::uint64_t number() const { return m_number; }
  std::uint8_t status() const { return m_status; }
  const std::vector<WalkFault>& faults() const { return m_faults; }
  const std::vector<BoundaryReference>& boundaries() const { return m_boundaries; }

 private:
  bool field(const FieldShape& shape);
  bool bodyOf(std::int32_t type, const EntityShape& shape);
  bool repeat(const FieldShape& shape);
  bool entityBlock();
  bool xdata();
  bool count(const FieldShape& shape);
  bool reals(const char* name, std::size_t count);
  bool reference(const char* what, const std::unordered_set<std::uint64_t>& known);
  bool take(std::size_t bytes, const char* name);
  bool cut(const char* name);
  void note(FaultKind kind, std::uint64_t offset, std::string detail);

  ScanCursor& m_cursor;
  const KnownNumbers& m_known;
  std::int32_t m_type = 0;
  std::uint64_t m_number = 0;
  std::uint8_t m_status = 0;
  std::uint64_t m_lastCount = 0;
  bool m_isInside = false;  // in a part of the object: its own number is known already
  std::vector<WalkFault> m_faults;
  std::vector<BoundaryReference> m_boundaries;
};

}  // namespace qdr
