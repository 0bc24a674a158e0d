#include "database/file/shape_walk.h"

#include <cmath>
#include <utility>

namespace qdr {

namespace {

// Faults of one object that are kept; what goes on like this is told by the first ones.
constexpr std::size_t kMostFaults = 16;

constexpr std::int32_t kTextNode = 3007;

// The least that an element of a repetition occupies.
std::size_t leastBytes(const FieldShape& shape) {
  std::size_t bytes = fixedBytes(shape.element);
  for (const FieldShape& part : shape.element) {
    if (part.kind == FieldKind::body) {
      bytes += kBodyStartBytes + fixedBytes(entityShape(part.type)->own);
    }
  }
  return bytes;
}

}  // namespace

void ShapeWalk::note(FaultKind kind, std::uint64_t offset, std::string detail) {
  if (m_faults.size() < kMostFaults) m_faults.push_back({kind, offset, std::move(detail)});
}

bool ShapeWalk::cut(const char* name) {
  note(FaultKind::cut, m_cursor.at(), std::string("the file ends inside ") + name);
  return false;
}

bool ShapeWalk::take(std::size_t bytes, const char* name) {
  return m_cursor.skip(bytes) || cut(name);
}

bool ShapeWalk::head(std::int32_t expected) {
  std::uint64_t number = 0;
  std::int32_t type = 0;
  std::uint8_t status = 0;
  if (!m_cursor.take(number)) return cut("the number");
  if (!m_cursor.take(type)) return cut("the class");
  if (type != expected) {
    note(FaultKind::wrongClass, m_cursor.at() - sizeof type,
         "class " + std::to_string(type) + " where " + std::to_string(expected) + " belongs");
    return false;
  }
  if (!m_cursor.take(status)) return cut("the status");
  if (!m_isInside) {
    m_number = number;
    m_status = status;
  }
  return true;
}

bool ShapeWalk::reals(const char* name, std::size_t count) {
  for (std::size_t i = 0; i < count; ++i) {
    double value = 0.0;
    const std::uint64_t offset = m_cursor.at();
    if (!m_cursor.take(value)) return cut(name);
    if (!std::isfinite(value)) {
      note(FaultKind::notFinite, offset, std::string(name) + " is not finite");
    }
  }
  return true;
}

bool ShapeWalk::reference(const char* what, const std::unordered_set<std::uint64_t>& known) {
  std::uint64_t number = 0;
  const std::uint64_t offset = m_cursor.at();
  if (!m_cursor.take(number)) return cut(what);
  if (number != 0 && !known.contains(number)) {
    note(FaultKind::missingReference, offset,
         std::string(what) + " " + std::to_string(number) + " is not in the file");
  }
  return true;
}

bool ShapeWalk::count(const FieldShape& shape) {
  std::uint16_t small = 0;
  std::uint32_t large = 0;
  const bool isSmall = shape.kind == FieldKind::count16;
  if (isSmall ? !m_cursor.take(small) : !m_cursor.take(large)) return cut(shape.name);
  m_lastCount = isSmall ? small : large;
  if (shape.kind == FieldKind::countSigned && static_cast<std::int32_t>(large) < 0) {
    m_lastCount = 0;
  }
  return true;
}

// The count is tested against the rest of the file before the first element is looked at.
bool ShapeWalk::repeat(const FieldShape& shape) {
  const std::uint64_t elements = m_lastCount;
  if (elements > m_cursor.left() / leastBytes(shape)) {
    note(FaultKind::badCount, m_cursor.at(),
         std::to_string(elements) + " " + shape.name + " do not fit into the file");
    return false;
  }
  for (std::uint64_t i = 0; i < elements; ++i) {
    if (!fields(shape.element)) return false;
  }
  m_lastCount = elements;
  return true;
}

bool ShapeWalk::field(const FieldShape& shape) {
  switch (shape.kind) {
    case FieldKind::byte:
      return take(1, shape.name);
    case FieldKind::shortInt:
      return take(2, shape.name);
    case FieldKind::number:
      return take(4, shape.name);
    case FieldKind::real:
      return reals(shape.name, 1);
    case FieldKind::point:
      return reals(shape.name, 2) && take(4, shape.name);
    case FieldKind::vector:
      return reals(shape.name, 2);
    case FieldKind::point3d:
      return reals(shape.name, 3);
    case FieldKind::units:
      return take(std::size_t{2} * shape.count, shape.name);
    case FieldKind::color:
      return reference(shape.name, m_known.colors);
    case FieldKind::linetype:
      return reference(shape.name, m_known.linetypes);
    case FieldKind::style:
      return reference(shape.name, m_known.styles);
    case FieldKind::boundary: {
      const BoundaryReference boundary = {m_cursor.peek<std::uint64_t>(0), m_cursor.at(), m_number};
      if (!take(sizeof boundary.number, shape.name)) return false;
      m_boundaries.push_back(boundary);
      return true;
    }
    case FieldKind::count16:
    case FieldKind::count32:
    case FieldKind::countSigned:
      return count(shape);
    case FieldKind::repeat:
      return repeat(shape);
    case FieldKind::body:
      m_isInside = true;
      return bodyOf(shape.type, *entityShape(shape.type));
    case FieldKind::bodyAgain:
      m_isInside = true;
      return bodyOf(m_type, *entityShape(shape.type));
  }
  return false;
}

bool ShapeWalk::fields(Shape shape) {
  for (const FieldShape& part : shape) {
    if (!field(part)) return false;
  }
  return true;
}

bool ShapeWalk::xdata() {
  std::uint16_t nodes = 0;
  if (!m_cursor.take(nodes)) return cut("the number of data nodes");
  for (; nodes > 0; --nodes) {
    const auto code = m_cursor.peek<std::int32_t>(0);
    const auto length = m_cursor.peek<std::uint16_t>(8);
    if (!take(kXDataNodeBytes, "a data node")) return false;
    if (code == kTextNode && !take(std::size_t{2} * length, "the text of a data node")) {
      return false;
    }
  }
  return true;
}

bool ShapeWalk::entityBlock() {
  if (!reference("layer", m_known.layers)) return false;
  if (!reference("linetype", m_known.linetypes)) return false;
  std::int32_t index = 0;
  const std::uint64_t offset = m_cursor.at();
  if (!m_cursor.take(index)) return cut("the colour index");
  if (!m_known.colorIndices.contains(index)) {
    note(FaultKind::missingReference, offset,
         "colour " + std::to_string(index) + " is not in the file");
  }
  return take(4, "the line weight") && xdata();
}

bool ShapeWalk::body(const EntityShape& shape) {
  m_type = shape.type;
  return bodyOf(shape.type, shape);
}

bool ShapeWalk::bodyOf(std::int32_t type, const EntityShape& shape) {
  if (!head(type) || !entityBlock()) return false;
  const std::uint64_t outerCount = m_lastCount;
  const bool isWhole = fields(shape.own);
  m_lastCount = outerCount;
  return isWhole;
}

}  // namespace qdr
