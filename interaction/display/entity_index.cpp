#include "interaction/display/entity_index.h"

#include <algorithm>
#include <limits>

#include "database/database.h"
#include "database/entity_access.h"
#include "entities/arc.h"
#include "entities/display_units.h"
#include "entities/drawn_box.h"
#include "entities/entity_cast.h"

namespace {

// A snapshot is made anew when this many entities stand beside it, and an eighth of it more.
constexpr std::size_t kMostLoose = 1024;

}  // namespace

namespace qdr {

Box indexedBox(CQdrDbEntity& entity, double& pixels) {
  const DrawnBox drawn = drawnBox(entity);
  if (!drawn.known) return {};
  pixels = drawn.pixels;
  Box box{drawn.minX, drawn.minY, drawn.maxX, drawn.maxY};
  // An arc is drawn as a polygon inside it, and picked by itself.
  if (const auto* arc = entityAs<CQdrDbArc>(&entity)) {
    const Vec center = toVec(arc->Center());
    box.add(boxOfPoint(center).inflated(arc->Radius()));
  }
  return box;
}

std::uint64_t EntityIndex::numberOf(const CQdrDbObjectId& id) {
  return id.getPObject()->getCreatedTime();
}

EntityIndex::Looks EntityIndex::looksOf(const CQdrDbDatabase& database) {
  return {.version = database.looksVersion(),
          .unitsPerWorld = _dDispScale,
          .linetypeScale = database.m_vars.linetypeScale,
          .pointMode = database.m_vars.pointMode,
          .pointSize = database.m_vars.pointSize};
}

void EntityIndex::clear() {
  m_built = false;
  m_ids.clear();
  m_numbers.clear();
  m_retired.clear();
  m_unbounded.clear();
  m_boxes = BoxIndex();
  m_loose.clear();
}

// Takes an entity out of the snapshot; false when it does not stand there.
bool EntityIndex::retire(const CQdrDbObjectId& id) {
  const auto found = std::lower_bound(m_numbers.begin(), m_numbers.end(), numberOf(id));
  if (found == m_numbers.end() || *found != numberOf(id)) return false;
  const auto slot = static_cast<std::size_t>(found - m_numbers.begin());
  if (m_retired[slot] != 0 || m_ids[slot] != id) return false;
  m_retired[slot] = 1;
  return true;
}

void EntityIndex::added(const CQdrDbObjectId& id) {
  if (m_built) insertId(m_loose, id);
}

void EntityIndex::changed(const CQdrDbObjectId& id) {
  if (m_built && retire(id)) insertId(m_loose, id);
}

void EntityIndex::removed(const CQdrDbObjectId& id) {
  if (!m_built) return;
  retire(id);
  eraseId(m_loose, id);
}

void EntityIndex::refresh(const IdSet& shown, const CQdrDbDatabase& database) {
  const Looks looks = looksOf(database);
  const bool current =
      m_built && looks == m_looks && m_loose.size() <= kMostLoose + m_ids.size() / 8;
  if (!current) build(shown, looks);
}

void EntityIndex::build(const IdSet& shown, const Looks& looks) {
  clear();
  m_looks = looks;
  m_ids.reserve(shown.size());
  m_numbers.reserve(shown.size());
  std::vector<Box> boxes;
  boxes.reserve(shown.size());
  m_pixels = 0.0;
  for (const CQdrDbObjectId& id : shown) {
    CQdrDbEntity* const entity = asEntity(id);
    if (!entity) continue;
    double pixels = 0.0;
    const Box box = indexedBox(*entity, pixels);
    if (!(box.minX <= box.maxX)) m_unbounded.push_back(static_cast<std::uint32_t>(m_ids.size()));
    m_pixels = std::max(m_pixels, pixels);
    m_ids.push_back(id);
    m_numbers.push_back(numberOf(id));
    boxes.push_back(box);
  }
  m_retired.assign(m_ids.size(), 0);
  m_boxes = BoxIndex(std::move(boxes), BoxIndex::Order::hilbert);
  m_built = true;
}

std::vector<std::uint32_t> EntityIndex::slotsIn(const Box& area, double pixelSize) const {
  std::vector<std::uint32_t> slots;
  for (const std::uint32_t slot : m_unbounded)
    if (m_retired[slot] == 0) slots.push_back(slot);
  m_boxes.forEachOverlap(area.inflated(m_pixels * pixelSize), [&](std::size_t slot) {
    if (m_retired[slot] == 0) slots.push_back(static_cast<std::uint32_t>(slot));
    return true;
  });
  std::sort(slots.begin(), slots.end());
  return slots;
}

bool EntityIndex::allInside(const Box& area, double pixelSize) const {
  const Box inner = area.inflated(-m_pixels * pixelSize);
  const Box bounds = m_boxes.bounds();
  return inner.minX <= bounds.minX && inner.minY <= bounds.minY && inner.maxX >= bounds.maxX &&
         inner.maxY >= bounds.maxY;
}

}  // namespace qdr
