#include "entities/internal/pen_resolution.h"

#include <cmath>

#include "database/database.h"
#include "entities/display_units.h"
#include "entities/entity.h"
#include "platform/device_context.h"

namespace {

constexpr COLORREF kWhite = 0xffffff;
constexpr COLORREF kBlack = 0;

constexpr int kColorByBlock = 0;
constexpr int kFirstColorByLayer = 255;  // black, the last of the palette, goes by layer as well

constexpr double kWeightsPerUnit = 100.0;

CQdrDbLayerTableRecord* layerOf(const CQdrDbEntity& entity) {
  return static_cast<CQdrDbLayerTableRecord*>(entity.LayerId().getPObject());
}

COLORREF resolveColor(const CQdrDbColorTableRecord& color, const CQdrDbLayerTableRecord& layer,
                      const CDC& dc) {
  const int index = color.colorIndex();
  if (index == kColorByBlock) return dc.GetCurrentPen()->color();
  return static_cast<COLORREF>(index >= kFirstColorByLayer ? layer.getColorValue()
                                                           : color.getColor());
}

// White on white and black on black would be lost.
COLORREF keptVisible(COLORREF color, COLORREF background) {
  if (color != background) return color;
  if (color == kWhite) return kBlack;
  return color == kBlack ? kWhite : color;
}

const CQdrDbLTypeTableRecord* resolveLineType(const CQdrDbEntity& entity,
                                              const CQdrDbLayerTableRecord& layer) {
  const auto* own = static_cast<CQdrDbLTypeTableRecord*>(entity.LineTypeId().getPObject());
  if (!own || qdr::compareNoCase(own->getName(), L"ByLayer") != 0) return own;
  return static_cast<CQdrDbLTypeTableRecord*>(layer.getLinetypeId().getPObject());
}

// Below two elements a linetype is continuous.
std::vector<DWORD> dashLengths(const CQdrDbLTypeTableRecord& lineType, double scale) {
  std::vector<DWORD> lengths;
  const std::vector<double>& dashes = lineType.getDashes();
  if (dashes.size() < 2) return lengths;
  lengths.reserve(dashes.size());
  for (const double dash : dashes)
    lengths.push_back(static_cast<DWORD>(qdr::truncToInt(std::fabs(dash) * scale * _dDispScale)));
  return lengths;
}

}  // namespace

namespace qdr {

int penWidth(std::int32_t weight) {
  const double width = static_cast<std::uint32_t>(weight) / kWeightsPerUnit * _dDispScale;
  constexpr double kLimit = 9.2e18;
  if (!(std::fabs(width) < kLimit)) return 0;
  return static_cast<int>(static_cast<std::uint32_t>(static_cast<std::int64_t>(width)));
}

int penWidthOf(const CQdrDbEntity& entity, int current) {
  const std::int32_t weight = entity.LineWeight();
  if (weight == QdrDb::eWeightDefault) return current;
  const CQdrDbLayerTableRecord* layer = layerOf(entity);
  return penWidth(weight == QdrDb::eWeightByLayer && layer ? layer->getLineWeight() : weight);
}

std::optional<PenRecipe> resolvePen(const CQdrDbEntity& entity, const CDC& dc, bool inBackground) {
  const CQdrDbLayerTableRecord* layer = layerOf(entity);
  const CQdrDbColorTableRecord* color = entity.Color();
  if (!layer || !color) return std::nullopt;
  const CQdrDbLTypeTableRecord* lineType = resolveLineType(entity, *layer);
  if (!lineType) return std::nullopt;

  const COLORREF background = dc.GetBkColor();
  const CQdrDbDatabase* database = entity.database();
  PenRecipe pen;
  pen.color = inBackground ? background : keptVisible(resolveColor(*color, *layer, dc), background);
  pen.width = penWidthOf(entity, dc.GetCurrentPen()->width());
  pen.dashes = dashLengths(*lineType, database ? database->m_vars.linetypeScale : 1.0);
  return pen;
}

}  // namespace qdr
