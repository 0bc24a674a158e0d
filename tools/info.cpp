// qdr info FILE: what a drawing is and what stands in it.

#include <algorithm>
#include <iostream>
#include <map>
#include <memory>
#include <nlohmann/json.hpp>

#include "database/database.h"
#include "database/file/drawing_scanner.h"
#include "database/line_weight.h"
#include "entities/entity.h"
#include "entities/rect.h"
#include "platform/headless/memory_file.h"
#include "platform/wide_string.h"
#include "tools/verbs.h"

namespace {

using nlohmann::json;

struct Options {
  std::string path;
  bool asJson = false;
};

struct Inventory : qdr::DrawingVisitor {
  void onRecord(const qdr::ScannedObject& record) override {
    names[qdr::tableShape(record.table).name].push_back(qdr::toUtf8(record.name));
  }
  void onEntity(const qdr::ScannedObject& entity) override {
    ++classes[qdr::entityShape(entity.classType)->name];
    ++blocks[qdr::toUtf8(entity.name)];
  }
  std::map<std::string, std::vector<std::string>> names;
  std::map<std::string, std::uint64_t> classes;
  std::map<std::string, std::uint64_t> blocks;
};

template <std::size_t N>
std::string textOf(const qdr::U16Field<N>& field) {
  return qdr::toUtf8(field.text());
}

json pointOf(const QdrXY& point) {
  return {point.x, point.y};
}

json boxOf(const QdrXY& min, const QdrXY& max) {
  return {{"min", pointOf(min)}, {"max", pointOf(max)}};
}

// The box around the entities of model space; null when it has none.
json extentsOf(const std::string& bytes) {
  CQdrDbDatabase database(true);
  qdr::MemoryFile file(bytes);
  CArchive archive(&file, CArchive::load);
  database.Read(archive);
  CQdrDbBlockTableRecord* space = nullptr;
  if (!database.m_blockTable.getRecord(CQdrDbBlockTable::kModelSpace, space)) return nullptr;
  json box;
  QdrXY min;
  QdrXY max;
  for (const CQdrDbObjectId& id : space->getEntitySet()) {
    auto* entity = static_cast<CQdrDbEntity*>(id.getPObject());
    const CQdrDbRect rect = entity->GetOutRect();
    const CQdrGePoint2d a = rect.LeftTop();
    const CQdrGePoint2d b = rect.RightBottom();
    const QdrXY low(std::min(a.x, b.x), std::min(a.y, b.y));
    const QdrXY high(std::max(a.x, b.x), std::max(a.y, b.y));
    min = box.is_null() ? low : QdrXY(std::min(min.x, low.x), std::min(min.y, low.y));
    max = box.is_null() ? high : QdrXY(std::max(max.x, high.x), std::max(max.y, high.y));
    box = true;
  }
  return box.is_null() ? box : boxOf(min, max);
}

json headerOf(const QdrDbFileHeader_tag& header) {
  const bool hasPicture =
      std::ranges::any_of(header.thumbnail, [](auto byte) { return byte != 0; });
  return {{"application", textOf(header.applicationName)},
          {"version", textOf(header.version)},
          {"computer", textOf(header.computerName)},
          {"user", textOf(header.userName)},
          {"title", textOf(header.title)},
          {"date", textOf(header.date)},
          {"folder", textOf(header.folder)},
          {"description", textOf(header.blockDescription)},
          {"thumbnail", hasPicture}};
}

json settingsOf(const QdrDbDrawingVars_tag& vars) {
  return {{"space", vars.currentSpace},
          {"layer", textOf(vars.currentLayer)},
          {"linetype", textOf(vars.currentLinetype)},
          {"color", vars.currentColorIndex},
          {"textStyle", textOf(vars.currentTextStyle)},
          {"lineWeight", vars.currentLineWeight},
          {"linetypeScale", vars.linetypeScale},
          {"textHeight", vars.textHeight},
          {"gridSpacing", vars.gridSpacing},
          {"basePoint", pointOf(vars.basePoint)},
          {"limits", boxOf(vars.limitsMin, vars.limitsMax)},
          {"savedExtents", boxOf(vars.extentMin, vars.extentMax)}};
}

json dimensionsOf(const QdrDbDimVars_tag& vars) {
  return {{"arrow", textOf(vars.arrow)},
          {"textStyle", textOf(vars.textStyle)},
          {"arrowSize", vars.arrowSize},
          {"textHeight", vars.textHeight},
          {"decimals", vars.lengthDecimals}};
}

// One row per line, nested by indentation: the same facts as the JSON answer.
void printText(const json& value, const std::string& name, int depth) {
  const std::string indent(static_cast<std::size_t>(2 * depth), ' ');
  if (value.is_object()) {
    std::cout << indent << name << "\n";
    for (const auto& [key, part] : value.items())
      printText(part, key, depth + 1);
    return;
  }
  std::cout << indent << name << ": ";
  if (value.is_array()) {
    const char* separator = "";
    for (const json& part : value) {
      std::cout << separator << (part.is_string() ? part.get<std::string>() : part.dump());
      separator = ", ";
    }
  } else {
    std::cout << (value.is_string() ? value.get<std::string>() : value.dump());
  }
  std::cout << "\n";
}

json describe(const std::string& path, const std::string& bytes) {
  Inventory inventory;
  const qdr::ScannedDrawing drawing = qdr::scanDrawing(bytes, inventory);
  return {{"file", path},
          {"bytes", bytes.size()},
          {"header", headerOf(drawing.header)},
          {"settings", settingsOf(drawing.vars)},
          {"dimensions", dimensionsOf(drawing.dimVars)},
          {"tables", inventory.names},
          {"entities", drawing.entities},
          {"classes", inventory.classes},
          {"blocks", inventory.blocks},
          {"extents", extentsOf(bytes)},
          {"faults", drawing.faults}};
}

int run(const Options& options) {
  constexpr std::size_t kFixedBytes = qdr::kHeaderBytes + qdr::kVarsBytes + qdr::kDimVarsBytes;
  std::string bytes;
  if (!qdr_tools::loadFile(options.path, bytes)) return qdr_tools::kFileTrouble;
  if (bytes.size() < kFixedBytes) {
    qdr_tools::reportTrouble(options.path, "too short for a drawing");
    return qdr_tools::kDamaged;
  }
  const json answer = describe(options.path, bytes);
  if (options.asJson) {
    std::cout << answer.dump(2, ' ', false, json::error_handler_t::replace) << "\n";
  } else {
    for (const auto& [key, part] : answer.items())
      printText(part, key, 0);
  }
  return qdr_tools::kSound;
}

}  // namespace

void qdr_tools::addInfo(CLI::App& app, int& exitCode) {
  const auto options = std::make_shared<Options>();
  CLI::App* verb = app.add_subcommand("info", "Tell what a drawing is and what stands in it");
  verb->add_option("FILE", options->path, "The drawing")->required();
  verb->add_flag("--json", options->asJson, "Answer as JSON");
  verb->callback([options, &exitCode] { exitCode = run(*options); });
}
