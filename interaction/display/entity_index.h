#pragma once

#include <cstdint>
#include <vector>

#include "database/id_set.h"
#include "geometry/box_index.h"
#include "platform/export.h"

class CQdrDbDatabase;
class CQdrDbEntity;

namespace qdr {

/// Which entities of a view may lie in an area, without a walk over all of them.
///
/// A snapshot of boxes with, beside it, the entities that have been added or have changed since:
/// those are always answered, until there are so many that the snapshot is made anew. Entities
/// whose box is not known are always answered as well. Built at the first question; answers come
/// in the order of creation, so that a test applied to them finds what the plain walk finds.
/// Names live entities only: whoever takes an entity out of the view tells the index first.
class QDR_API EntityIndex {
 public:
  /// Forgets everything; the next question builds anew.
  void clear();

  void added(const CQdrDbObjectId& id);
  void changed(const CQdrDbObjectId& id);
  void removed(const CQdrDbObjectId& id);

  /// True when so many entities are shown that asking costs less than walking.
  static bool pays(const IdSet& shown) { return shown.size() >= kWorthwhile; }

  /// Builds the snapshot over `shown`, if it is not there or out of date.
  void refresh(const IdSet& shown, const CQdrDbDatabase& database);

  /// Calls visit(id) for every entity whose drawn picture, or geometry, may overlap `area` in world
  /// units; `pixelSize` is the side of a pixel there. A visit that answers false ends the walk.
  /// `refresh` comes first.
  template <class Visit>
  void forEachIn(const Box& area, double pixelSize, Visit&& visit) const {
    const std::vector<std::uint32_t> slots = slotsIn(area, pixelSize);
    auto loose = m_loose.begin();
    for (const std::uint32_t slot : slots) {
      for (; loose != m_loose.end() && numberOf(*loose) < m_numbers[slot]; ++loose)
        if (!visit(*loose)) return;
      if (!visit(m_ids[slot])) return;
    }
    for (; loose != m_loose.end(); ++loose)
      if (!visit(*loose)) return;
  }

  /// True when no entity reaches out of `area`.
  bool allInside(const Box& area, double pixelSize) const;

 private:
  // Below this the plain walk is as fast.
  static constexpr std::size_t kWorthwhile = 256;

  // What boxes depend on beside their entities.
  struct Looks {
    std::uint64_t version = 0;
    double unitsPerWorld = 0.0;
    double linetypeScale = 0.0;
    std::uint8_t pointMode = 0;
    std::uint8_t pointSize = 0;

    bool operator==(const Looks&) const = default;
  };

  static std::uint64_t numberOf(const CQdrDbObjectId& id);
  static Looks looksOf(const CQdrDbDatabase& database);
  std::vector<std::uint32_t> slotsIn(const Box& area, double pixelSize) const;
  bool retire(const CQdrDbObjectId& id);
  void build(const IdSet& shown, const Looks& looks);

  bool m_built = false;
  Looks m_looks;
  std::vector<CQdrDbObjectId> m_ids;       // of the snapshot, in the order of creation
  std::vector<std::uint64_t> m_numbers;    // their creation numbers, which outlive them
  std::vector<std::uint8_t> m_retired;     // no more to be answered from the snapshot
  std::vector<std::uint32_t> m_unbounded;  // slots without a known box, ascending
  BoxIndex m_boxes;
  double m_pixels = 0.0;  // the most device pixels by which any picture leaves its box
  IdSet m_loose;          // added or changed since the snapshot
};

/// The box that holds an entity's drawn picture and its geometry; the empty box when it is not
/// known. `pixels` takes the device pixels by which the picture may leave it.
Box indexedBox(CQdrDbEntity& entity, double& pixels);

}  // namespace qdr
