#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

#include "database/class_type.h"
#include "platform/export.h"

// What a drawing file holds, told as data: which fields a record or an entity has, one behind the
// other. Whoever walks a file without building a drawing goes by these lists; that they say the
// same as the field lists of the classes is tested class by class.
namespace qdr {

enum class FieldKind : std::uint8_t {
  byte,         ///< u8
  number,       ///< i32 or u32
  shortInt,     ///< u16
  real,         ///< f64
  point,        ///< x, y, tag
  vector,       ///< x, y
  point3d,      ///< x, y, z
  units,        ///< a text of `count` UTF-16 units
  color,        ///< u64, number of a colour record, 0 for none
  linetype,     ///< u64, number of a linetype record
  style,        ///< u64, number of a text style record
  boundary,     ///< u64, number of an entity of the same block
  count16,      ///< u16, for the repetitions behind it
  count32,      ///< u32
  countSigned,  ///< i32, negative is 0
  repeat,       ///< `element` as often as the last count says
  body,         ///< a whole entity of class `type` without its leading class type
  bodyAgain,    ///< a body over again under the class of its object, with the fields of `type`
};

struct FieldShape {
  FieldKind kind;
  const char* name;
  std::uint16_t count = 1;
  std::span<const FieldShape> element = {};
  QdrDb::ClassType type = QdrDb::eClassNone;
};

using Shape = std::span<const FieldShape>;

// Parts that stand at the start of every object.
inline constexpr std::size_t kHeadBytes = 13;
inline constexpr std::size_t kNameBytes = 162;
inline constexpr std::size_t kRecordStartBytes = kHeadBytes + kNameBytes;
inline constexpr std::size_t kClassTypeBytes = 4;
inline constexpr std::size_t kEntityBlockBytes = 26;
inline constexpr std::size_t kXDataNodeBytes = 32;
inline constexpr std::size_t kBodyStartBytes = kHeadBytes + kEntityBlockBytes;

/// The tables of a file in their order.
enum class TableKind : std::uint8_t {
  colors,
  linetypes,
  layers,
  textStyles,
  symbols,
  projectInfo,
  revisions,
  blocks,
};
inline constexpr std::size_t kTableCount = 8;

struct TableShape {
  TableKind kind;
  const char* name;
  QdrDb::ClassType recordClass;
  Shape ahead;   ///< before the count of records
  Shape record;  ///< behind head and name
  Shape behind;  ///< between the records and the closing 0
};

QDR_API const TableShape& tableShape(TableKind kind);

struct EntityShape {
  QdrDb::ClassType type = QdrDb::eClassNone;
  const char* name = nullptr;
  std::uint8_t status = 0;  ///< bits that every entity of the class bears
  bool readable = true;     ///< false for what a file may hold and no reader creates
  Shape own;                ///< behind the entity block
};

/// The shape of an entity class; null for a class type that never stands in a block.
QDR_API const EntityShape* entityShape(std::int32_t type);

/// Bytes of a shape without what its counts add.
constexpr std::size_t fixedBytes(Shape shape) {
  std::size_t bytes = 0;
  for (const FieldShape& field : shape) {
    switch (field.kind) {
      case FieldKind::byte:
        bytes += 1;
        break;
      case FieldKind::shortInt:
      case FieldKind::count16:
        bytes += 2;
        break;
      case FieldKind::number:
      case FieldKind::count32:
      case FieldKind::countSigned:
        bytes += 4;
        break;
      case FieldKind::real:
      case FieldKind::color:
      case FieldKind::linetype:
      case FieldKind::style:
      case FieldKind::boundary:
        bytes += 8;
        break;
      case FieldKind::point:
        bytes += 20;
        break;
      case FieldKind::vector:
        bytes += 16;
        break;
      case FieldKind::point3d:
        bytes += 24;
        break;
      case FieldKind::units:
        bytes += std::size_t{2} * field.count;
        break;
      case FieldKind::repeat:
      case FieldKind::body:
      case FieldKind::bodyAgain:
        break;
    }
  }
  return bytes;
}

}  // namespace qdr
