#pragma once

#include <limits>

/// The fixed tolerances of the kernel. There is no settable tolerance: an operation takes its own
/// as an argument or uses one of these. Lengths are in drawing units, angles in radians.
namespace qdr {

/// Equality of vectors, matrices and curves; the length up to which normalising leaves a vector
/// alone; the dx below which a mirror line counts as vertical.
inline constexpr double kVectorTolerance = 0.001;

/// Equality of 2D points by `==` and `!=`.
inline constexpr double kPointTolerance = 1e-06;

/// Equality of 3D points, and what callers pass to curve operations when they have nothing better:
/// the single-precision epsilon.
inline constexpr double kCurveTolerance = 1.1920928955078125e-07;

/// Zero test of the segment intersection: the double-precision epsilon.
inline constexpr double kSegmentTolerance = 2.220446049250313e-16;

/// How far beyond a tolerance a quick test of the segment intersection must find a point before it
/// may call it off, so that no rounding of coordinates up to a thousand million makes it differ
/// from the exact test.
inline constexpr double kCertainMargin = 1e-06;

/// Margin in radians of the angle tests of arcs, and of sweeps taken as 0 or as a full turn.
inline constexpr double kAngleTolerance = 0.001;

/// A quadratic of a line and an arc whose leading coefficient is below this has no roots.
inline constexpr double kQuadraticTolerance = 0.001;

/// Distance within which ends of two circles that touch from outside count as one point.
inline constexpr double kTouchTolerance = 0.001;

/// Ratio of the cross product to the side lengths at which three points count as collinear.
inline constexpr double kCollinearRatio = 1e-12;

/// Magnitude of an angle from which whole turns are taken off by remainder, not by steps.
inline constexpr double kHugeAngle = 1e6;

/// Bulges up to this magnitude make a straight segment.
inline constexpr double kBulgeTolerance = 0.001;

/// Vertices nearer than this make a segment of no length.
inline constexpr double kCoincidentTolerance = 0.001;

/// Ends of chains nearer than this are joined; also the play of offset clipping.
inline constexpr double kJoinTolerance = 0.002;

/// Crossings of one walk that lie nearer than this to the one before count as one.
inline constexpr double kSameHitTolerance = 0.001;

/// A polyline parameter this near to 1 means the end of the chain.
inline constexpr double kEndParamTolerance = 0.001;

/// A last bulge above this magnitude makes the closing segment of a polyline tangent to it.
inline constexpr double kClosingBulgeTolerance = 1e-05;

/// Steps left and down from the bounds of a figure to a point that is surely outside.
inline constexpr double kOutsideStepX = 0.5;
inline constexpr double kOutsideStepY = 1.0;

/// Vertices this near are one vertex to an offset, and crossings this near to a vertex are weak:
/// the length bounds the finest detail that an offset keeps.
inline constexpr double kMergeTolerance = 0.05;

/// A closing vertex this near to the last one repeats it.
inline constexpr double kRepeatTolerance = 0.005;

/// Segments up to this length have no direction to offset.
inline constexpr double kTinySegment = 1e-9;

/// Neighbours that meet within this parameter of an end of the earlier one meet at their vertex.
inline constexpr double kSharedVertexParam = 0.001;

/// Parameter on an arc that shows which way a chain goes on behind a rounded corner.
inline constexpr double kRoundingProbe = 0.2;

/// Step in parameter along a full circle that shows its direction of travel.
inline constexpr double kDirectionProbe = 0.05;

/// Sine of the angle up to which lines count as parallel and do not meet.
inline constexpr double kParallelSine = 1e-8;

/// What rounding may take from a length, as a ratio to the coordinates it comes from.
inline constexpr double kRoundingRatio = 1e-14;

/// Distance of two centres, as a ratio to the radius, up to which circles do not meet.
inline constexpr double kSameCenter = 1e-12;

/// Ends of cubic splines nearer than this are joined, and make one closed.
inline constexpr double kSplineJoinTolerance = 0.02;

/// Ends of 3D chains within this are joined.
inline constexpr double kChain3dTolerance = 0.001;

/// Ends of an ellipse nearer than this make it a whole one.
inline constexpr double kEllipseEndTolerance = 1e-07;

static_assert(kCurveTolerance == std::numeric_limits<float>::epsilon());
static_assert(kSegmentTolerance == std::numeric_limits<double>::epsilon());

}  // namespace qdr
