#pragma once

#include <optional>

#include "geometry/circ_arc2d.h"
#include "geometry/line2d.h"
#include "geometry/vec.h"

namespace qdr {

/// One of two curves that meet in a corner, seen from there.
struct CornerLeg {
  Vec corner;
  Vec away;             ///< unit direction in which the curve leaves the corner
  Vec center;           ///< of an arc
  double radius = 0.0;  ///< of an arc, 0 for a line
  double room = 0.0;    ///< length of a line, sweep of an arc
  bool leavesCounterClockwise = false;

  bool isArc() const { return radius > 0.0; }
};

CornerLeg cornerLeg(const CQdrGeLine2d& line, bool fromStart);
CornerLeg cornerLeg(const CQdrGeCircArc2d& arc, bool fromStart);

/// An arc that rounds a corner off, and where it touches the two curves.
struct CornerFillet {
  CQdrGeCircArc2d arc;  ///< counter-clockwise
  Vec onFirst;
  Vec onSecond;
  int side = 1;  ///< 1 when the arc runs from the first leg to the second, -1 against it
};

/// The fillet of a radius in the corner of two legs, the nearest one to the corner; none when the
/// legs continue one another or leave the same way, or when one is too short.
std::optional<CornerFillet> filletCorner(const CornerLeg& first, const CornerLeg& second,
                                         double radius);

}  // namespace qdr
