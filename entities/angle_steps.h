#pragma once

class CQdrDbEntity;
struct tagUndoEditEntity;

// Angles of arcs in the undo log. They travel as unit vectors, which loses their last bits and
// whole turns; the angle itself stands beside the vector, in `point.x`.
namespace qdr {

void storeAngle(tagUndoEditEntity& record, double angle);

/// The angle of the vector; the one beside it where that is not 0 and has the same direction.
double storedAngle(const tagUndoEditEntity& record);

/// Records the angle of an end, 0 the start and 1 the end, as the first step of an action.
void recordAngle(const CQdrDbEntity& entity, int end, double angle);

}  // namespace qdr
