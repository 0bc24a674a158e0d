#include <algorithm>
#include <cstring>
#include <limits>
#include <memory>
#include <string>

#include "database/database.h"
#include "database/file/field_stream.h"
#include "database/file/hard_id_map.h"
#include "entities/entity.h"
#include "entities/return_struct.h"
#include "platform/utf16.h"

namespace {

constexpr std::int32_t kColorIndexByLayer = 256;
constexpr std::size_t kMostNodes = std::numeric_limits<std::uint16_t>::max();
constexpr std::size_t kValueBytes = sizeof(Return_Struct::Value);

// A node of extended data as a file holds it: 32 bytes, the text of a string node behind them.
struct FileNode {
  std::int32_t code = 0;
  std::uint32_t next = 0;
  unsigned char value[kValueBytes] = {};
};
static_assert(sizeof(FileNode) == 32);

std::u16string unitsOf(const wchar_t* text) {
  std::u16string units = qdr::toUnits(text ? text : L"");
  if (units.size() > kMostNodes) {
    const bool cutsPair = (units[kMostNodes - 1] & 0xfc00) == 0xd800;
    units.resize(kMostNodes - (cutsPair ? 1 : 0));
  }
  return units;
}

void saveNode(qdr::FieldWriter& stream, const Return_Struct& node) {
  FileNode image;
  image.code = node.code;
  std::u16string text;
  if (node.code == Return_Struct::kText) {
    text = unitsOf(node.value.text);
    const auto length = static_cast<std::uint16_t>(text.size());
    std::memcpy(image.value, &length, sizeof length);
  } else if (node.code == Return_Struct::kKeyword) {
    const auto unit = static_cast<char16_t>(node.value.keyword);
    std::memcpy(image.value, &unit, sizeof unit);
  } else {
    std::memcpy(image.value, &node.value, kValueBytes);
  }
  stream.bytes(&image, sizeof image);
  if (!text.empty()) stream.bytes(text.data(), text.size() * sizeof(char16_t));
}

// The text behind a string node, for the node to own; null for one without text. What the file
// cuts off stays zero.
wchar_t* readText(qdr::FieldReader& stream, std::size_t length) {
  if (length == 0) return nullptr;
  std::u16string units(length, u'\0');
  stream.bytes(units.data(), length * sizeof(char16_t));
  const std::wstring text = qdr::fromUnits(units);
  auto* owned = new wchar_t[length + 1]();
  std::copy_n(text.data(), std::min(text.size(), length), owned);
  return owned;
}

// The next node, or null when the file ends in it.
std::unique_ptr<Return_Struct> readNode(qdr::FieldReader& stream) {
  FileNode image;
  if (!stream.bytes(&image, sizeof image)) return nullptr;
  auto node = std::make_unique<Return_Struct>();
  node->code = image.code;
  if (image.code == Return_Struct::kText) {
    std::uint16_t length = 0;
    std::memcpy(&length, image.value, sizeof length);
    node->value.text = readText(stream, length);
  } else if (image.code == Return_Struct::kKeyword) {
    char16_t unit = 0;
    std::memcpy(&unit, image.value, sizeof unit);
    node->value.keyword = unit;
  } else {
    std::memcpy(&node->value, image.value, kValueBytes);
  }
  return node;
}

void saveNodes(qdr::FieldWriter& stream, const Return_Struct* head) {
  std::size_t count = 0;
  for (const Return_Struct* node = head; node && count < kMostNodes; node = node->next)
    ++count;
  stream.number(static_cast<std::uint16_t>(count));
  for (const Return_Struct* node = head; count > 0; node = node->next, --count)
    saveNode(stream, *node);
}

Return_Struct* readNodes(qdr::FieldReader& stream) {
  std::uint16_t count = 0;
  stream.number(count);
  Return_Struct* head = nullptr;
  Return_Struct** end = &head;
  for (; count > 0; --count) {
    std::unique_ptr<Return_Struct> node = readNode(stream);
    if (!node) break;
    *end = node.release();
    end = &(*end)->next;
  }
  return head;
}

}  // namespace

void CQdrDbEntity::save() {
  qdr::FieldWriter stream(file());
  const CQdrDbColorTableRecord* color = Color();
  stream.number(m_layerId.hardId());
  stream.number(m_lineTypeId.hardId());
  stream.number(std::int32_t{color ? color->colorIndex() : kColorIndexByLayer});
  stream.number(static_cast<std::int32_t>(m_lineWeight));
  saveNodes(stream, m_xData);
}

void CQdrDbEntity::read() {
  if (!file()) return;
  qdr::FieldReader stream(file());
  std::uint64_t hardId = 0;
  std::int32_t number = 0;
  if (stream.number(hardId)) setLayer(qdr::recordByNumber(m_database->m_layerTable, hardId, L"0"));
  if (stream.number(hardId))
    setLineType(qdr::recordByNumber(m_database->m_linetypeTable, hardId, L"ByLayer"));
  if (stream.number(number)) setColor(qdr::colorByIndex(*m_database, number));
  if (stream.number(number)) setLineWeight(static_cast<QdrDb::LineWeight>(number));
  ClearXData();
  m_xData = readNodes(stream);
}

void CQdrDbEntity::ClearXData() {
  while (Return_Struct* node = m_xData) {
    m_xData = node->next;
    if (node->code == Return_Struct::kText) delete[] node->value.text;
    delete node;
  }
}
