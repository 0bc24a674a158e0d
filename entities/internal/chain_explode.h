#pragma once

class CQdrDbEntity;
class CQdrGePolyline2d;

namespace qdr {

/// Adds a line or arc with the looks of `source` to its drawing for each segment of its chain, in
/// order, each with an undo step of kind 6, the first of which starts the action. The last vertex
/// of an open chain hands the entity of the last segment over once more. The caller erases the
/// source. False without a drawing and when there is no such segment.
bool explodeChain(const CQdrDbEntity& source, const CQdrGePolyline2d& chain);

}  // namespace qdr
