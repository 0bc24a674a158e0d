#include "hostcore/internal/script_settings.h"

#include <algorithm>
#include <iterator>
#include <memory>

#include "database/database.h"

namespace qdr {

namespace {

// A setting is a byte or a number, within bounds.
struct Setting {
  const wchar_t* name;
  std::uint8_t QdrDbDrawingVars_tag::*byte;
  double QdrDbDrawingVars_tag::*number;
  double least;
  double most;
};

constexpr double kMostLength = 1e6;

constexpr Setting kSettings[] = {
    {L"ortho", &QdrDbDrawingVars_tag::snapOrtho, nullptr, 0, 1},
    {L"grid", &QdrDbDrawingVars_tag::gridVisible, nullptr, 0, 1},
    {L"gridsnap", &QdrDbDrawingVars_tag::snapGrid, nullptr, 0, 1},
    {L"gripsnap", &QdrDbDrawingVars_tag::snapGrip, nullptr, 0, 1},
    {L"nodesnap", &QdrDbDrawingVars_tag::snapGridPoint, nullptr, 0, 1},
    {L"polar", &QdrDbDrawingVars_tag::polarReadout, nullptr, 0, 1},
    {L"griddivisions", &QdrDbDrawingVars_tag::gridDivisions, nullptr, 1, 255},
    {L"pickbox", &QdrDbDrawingVars_tag::pickBoxSize, nullptr, 1, 255},
    {L"gridspacing", nullptr, &QdrDbDrawingVars_tag::gridSpacing, 0.001, kMostLength},
    {L"linetypescale", nullptr, &QdrDbDrawingVars_tag::linetypeScale, 0.001, kMostLength},
    {L"textheight", nullptr, &QdrDbDrawingVars_tag::textHeight, 0.001, kMostLength},
};

const Setting* settingOf(const std::wstring& name) {
  const auto row = std::find_if(std::begin(kSettings), std::end(kSettings),
                                [&name](const Setting& setting) { return setting.name == name; });
  return row == std::end(kSettings) ? nullptr : row;
}

CQdrDbObjectId newLayer(CQdrDbDatabase& database, const std::wstring& name,
                        const CQdrDbObjectId& color, const CQdrDbObjectId& linetype) {
  auto layer = std::make_unique<CQdrDbLayerTableRecord>(&database);
  layer->setOwnerId(database.LayerTable());
  layer->setName(name.c_str());
  layer->setColorId(color);
  layer->setLinetypeId(linetype);
  CQdrDbObjectId id;
  if (database.m_layerTable.add(id, layer.get())) layer.release();
  return id;
}

}  // namespace

DirectiveAnswer playSetting(ScriptStage& stage, std::wstring_view words) {
  if (stage.host().isBusy()) return failure(L"a command is running");
  const std::wstring name = takeWord(words);
  const Setting* const setting = settingOf(name);
  if (!setting) return usageFault(L"there is no setting \"" + name + L"\"");
  const std::wstring word = takeWord(words);
  double value = 0.0;
  if (!readNumber(word, value) || value < setting->least || value > setting->most)
    return usageFault(L"\"" + word + L"\" is no value of " + name);
  QdrDbDrawingVars_tag& vars = stage.host().database().m_vars;
  if (setting->byte) {
    vars.*setting->byte = static_cast<std::uint8_t>(value);
  } else {
    vars.*setting->number = value;
  }
  stage.host().setModified();
  stage.host().repaint();
  return {};
}

DirectiveAnswer playLayer(ScriptStage& stage, std::wstring_view words) {
  if (stage.host().isBusy()) return failure(L"a command is running");
  CQdrDbDatabase& database = stage.host().database();
  const std::wstring name = takeWord(words);
  const std::wstring colorName = takeWord(words);
  const std::wstring linetypeName = takeWord(words);
  if (name.empty()) return usageFault(L"the name of a layer is missing");
  CQdrDbObjectId layer;
  if (!database.m_layerTable.getAt(name.c_str(), layer)) {
    CQdrDbObjectId color;
    CQdrDbObjectId linetype;
    if (!database.m_colorTable.getAt(colorName.empty() ? L"7" : colorName.c_str(), color))
      return failure(L"there is no colour \"" + colorName + L"\"");
    const wchar_t* const wanted = linetypeName.empty() ? L"CONTINUOUS" : linetypeName.c_str();
    if (!database.m_linetypeTable.getAt(wanted, linetype))
      return failure(L"there is no linetype \"" + linetypeName + L"\"");
    layer = newLayer(database, name, color, linetype);
  }
  if (layer.isNull()) return failure(L"there is no layer \"" + name + L"\"");
  database.m_currentLayerId = layer;
  database.m_layerTable.setCurrentRecord(static_cast<CQdrDbLayerTableRecord*>(layer.getPObject()));
  stage.host().setModified();
  return {};
}

}  // namespace qdr
