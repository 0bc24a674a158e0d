#pragma once

#include <map>
#include <vector>

#include "geometry/point2d.h"

class CQdrDbCurve;
class CQdrDbEntity;
struct tagUndoEditEntity;

// What trimming and extending have in common for all curves.
namespace qdr {

/// Crossings by a key that orders them: their parameter on the curve, or a distance.
using CrossingMap = std::map<double, CQdrGePoint2d>;

/// The crossings of a curve with the boundaries, no end extended, by their parameter on the curve.
CrossingMap boundaryCrossings(CQdrDbCurve& curve, const std::vector<CQdrDbEntity*>& boundaries,
                              double tol);

/// All points in which `curve` meets the boundaries in an Intersect mode.
std::vector<CQdrGePoint2d> boundaryPoints(CQdrDbEntity& curve,
                                          const std::vector<CQdrDbEntity*>& boundaries, int mode,
                                          double tol);

/// Parameter of the point of the curve nearest to a pick.
double paramOfPick(const CQdrDbCurve& curve, const CQdrGePoint2d& pick);

/// Which part of an open curve goes.
enum class TrimPart { kNothing, kStart, kEnd, kMiddle };

/// A cut of an open curve. The start goes up to `after`; the end goes from `before` on; the middle
/// goes from `before` to `after`.
struct TrimCut {
  TrimPart part = TrimPart::kNothing;
  CrossingMap::value_type before{0.0, {}};
  CrossingMap::value_type after{0.0, {}};
};

/// The cut of a curve around the point nearest to `pick`. A pick exactly on the first crossing
/// takes the start, one exactly on the last takes the end. A boundary that touches an end of the
/// curve crosses it there like any other, so on that side it leaves a piece without length.
TrimCut chooseCut(const CQdrDbCurve& curve, const CrossingMap& crossings,
                  const CQdrGePoint2d& pick);

/// The part of a closed curve that goes, counter-clockwise.
struct RingCut {
  CQdrGePoint2d from;
  CQdrGePoint2d to;
};

/// The crossings on either side of parameter `pick`, of two or more. Past the last crossing, on the
/// first or before it, the part that goes runs over the start of the curve.
RingCut chooseRingCut(const CrossingMap& crossings, double pick);

/// Of the first and the last crossing the one whose direction from `center` is nearer to `angle`;
/// the first in a tie. There must be a crossing.
double nearerDirection(double angle, const CQdrGePoint2d& center, const CrossingMap& crossings);

/// A record of one change to an entity, the first of a user action.
tagUndoEditEntity undoRecord(const CQdrDbEntity& entity, int operation);

/// Puts a record on the log of the entity's drawing; nothing for an entity that stands in none.
void addUndo(const CQdrDbEntity& entity, tagUndoEditEntity record);

}  // namespace qdr
