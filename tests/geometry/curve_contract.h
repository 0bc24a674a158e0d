#pragma once

#include <memory>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

#include "geometry/entity2d.h"

// What every curve promises, as laws that any curve can be asked to keep.

/// A law answers what the curve did against it, empty when it was kept.
using LawCheck = std::string (*)(const CQdrGeEntity2d& curve, double tol);

enum class Law {
  kEnds,              // parameters 0 and 1 and the distances 0 and length() are the ends
  kProportion,        // parameters grow in proportion to length, which the chords confirm
  kParamOfPoint,      // paramAtPoint gives back the parameter
  kParamOfDistance,   // paramAtDist gives back the parameter, forward and backward
  kPointOfDistance,   // pointAtDist and distAtPoint give back point and distance
  kNormal,            // normals have length 1 and stand across the curve, by point as by parameter
  kIsOn,              // points of the curve are on it, points beside it are not
  kClosestPoint,      // closest points lie on the curve, no sample is nearer
  kClosestToLine,     // the same of a line: no pair of samples is nearer
  kPerpendicular,     // a point beside the curve finds its way back along the normal
  kMove,              // translation moves every point, and back
  kTurn,              // rotation turns every point, and back
  kMirror,            // mirroring twice gives the curve back, once its image
  kScale,             // scaling about a point scales points and length, and back
  kRigidTransform,    // transformBy of a rotation and shift moves every point
  kScalingTransform,  // transformBy of a scaling scales every point
  kCopy,              // copies and assignments are equal in place and independent
  kEqual,             // isEqualTo holds for a copy and fails for a moved one
  kBytes,             // saved bytes bring the curve back
  kShortBytes,        // reading a part of the bytes ends and leaves a curve that answers
};

struct LawRow {
  Law law;
  const char* name;
  LawCheck check;
};

const std::vector<LawRow>& curveLaws();

/// A law that the class does not keep, and why. The suite fails when the law is kept after all.
struct Unkept {
  Law law;
  const char* reason;
};

/// One curve under the contract; `tol` is how exact its answers are, in drawing units.
struct CurveCase {
  std::string name;
  std::shared_ptr<const CQdrGeEntity2d> curve;
  std::vector<Unkept> unkept;
  double tol = 1e-9;
};

inline void PrintTo(const CurveCase& curveCase, std::ostream* out) {
  *out << curveCase.name;
}

template <class Curve>
std::shared_ptr<const CQdrGeEntity2d> owned(const Curve& curve) {
  return std::make_shared<const Curve>(curve);
}
