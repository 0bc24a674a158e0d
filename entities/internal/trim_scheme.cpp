#include "entities/internal/trim_scheme.h"

#include <iterator>

#include "database/database.h"
#include "entities/curve.h"
#include "geometry/tolerance.h"

namespace qdr {

std::vector<CQdrGePoint2d> boundaryPoints(CQdrDbEntity& curve,
                                          const std::vector<CQdrDbEntity*>& boundaries, int mode,
                                          double tol) {
  std::vector<CQdrGePoint2d> all;
  for (CQdrDbEntity* boundary : boundaries) {
    int count = 0;
    std::vector<CQdrGePoint2d> points;
    if (boundary && curve.intersectWith(*boundary, count, points, mode, tol))
      all.insert(all.end(), points.begin(), points.end());
  }
  return all;
}

CrossingMap boundaryCrossings(CQdrDbCurve& curve, const std::vector<CQdrDbEntity*>& boundaries,
                              double tol) {
  CrossingMap crossings;
  for (const CQdrGePoint2d& point :
       boundaryPoints(curve, boundaries, CQdrGeEntity2d::kExtendNone, tol))
    crossings[curve.paramAtPoint(point, tol)] = point;
  return crossings;
}

double paramOfPick(const CQdrDbCurve& curve, const CQdrGePoint2d& pick) {
  const CQdrGePoint2d onCurve = curve.curve()->closestPointTo(pick, kCurveTolerance);
  return curve.paramAtPoint(onCurve, kCurveTolerance);
}

TrimCut chooseCut(const CQdrDbCurve& curve, const CrossingMap& crossings,
                  const CQdrGePoint2d& pick) {
  if (crossings.empty()) return {};
  const double param = paramOfPick(curve, pick);
  const auto first = crossings.begin();
  const auto last = std::prev(crossings.end());
  if (!(param > first->first)) return {.part = TrimPart::kStart, .after = *first};
  if (!(last->first > param)) return {.part = TrimPart::kEnd, .before = *last};
  const auto after = crossings.lower_bound(param);
  return {.part = TrimPart::kMiddle, .before = *std::prev(after), .after = *after};
}

RingCut chooseRingCut(const CrossingMap& crossings, double pick) {
  const auto first = crossings.begin();
  const auto after = crossings.lower_bound(pick);
  if (after == crossings.end() || after == first)
    return {.from = std::prev(crossings.end())->second, .to = first->second};
  return {.from = std::prev(after)->second, .to = after->second};
}

double nearerDirection(double angle, const CQdrGePoint2d& center, const CrossingMap& crossings) {
  const double first = center.angleTo(crossings.begin()->second);
  const double last = center.angleTo(std::prev(crossings.end())->second);
  const CQdrGeVector2d direction(angle);
  const double toFirst = direction.angleTo(CQdrGeVector2d(first));
  const double toLast = direction.angleTo(CQdrGeVector2d(last));
  return toLast < toFirst ? last : first;
}

tagUndoEditEntity undoRecord(const CQdrDbEntity& entity, int operation) {
  tagUndoEditEntity record;
  record.continued = 0;
  record.operation = operation;
  record.entityId = entity.objectId();
  return record;
}

void addUndo(const CQdrDbEntity& entity, tagUndoEditEntity record) {
  if (entity.IsDbEntity() && entity.database()) entity.database()->m_undoHandler.AddUndo(record);
}

}  // namespace qdr
