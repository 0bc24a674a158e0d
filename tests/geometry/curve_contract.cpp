#include "tests/geometry/curve_contract.h"

#include <cmath>
#include <functional>
#include <limits>
#include <sstream>

#include "tests/geometry/geometry_support.h"

namespace {

using CurvePtr = std::unique_ptr<CQdrGeEntity2d>;

constexpr double kTol = qdr::kCurveTolerance;
// Places inside the curve, off the vertices that a chain of equal segments would have.
constexpr double kPlaces[] = {0.03, 0.11, 0.23, 0.37, 0.52, 0.61, 0.78, 0.94};
constexpr int kSamples = 400;
const CQdrGePoint2d kPivot(3, -2);

CurvePtr copyOf(const CQdrGeEntity2d& curve) {
  return CurvePtr(curve.copy());
}

// Collects the first thing that a curve did against a law.
class Complaint {
 public:
  void number(const char* what, double at, double actual, double expected, double tol) {
    if (std::abs(actual - expected) <= tol || !m_text.empty()) return;
    std::ostringstream text;
    text.precision(17);
    text << what << " at " << at << " is " << actual << " in the place of " << expected;
    m_text = text.str();
  }
  void point(const char* what, double at, const CQdrGePoint2d& actual,
             const CQdrGePoint2d& expected, double tol) {
    if (actual.distanceTo(expected) <= tol || !m_text.empty()) return;
    std::ostringstream text;
    text.precision(17);
    text << what << " at " << at << " is " << ::testing::PrintToString(actual)
         << " in the place of " << ::testing::PrintToString(expected);
    m_text = text.str();
  }
  void holds(const char* what, double at, bool kept) { number(what, at, kept, 1, 0); }
  const std::string& text() const { return m_text; }

 private:
  std::string m_text;
};

std::vector<CQdrGePoint2d> samplesOf(const CQdrGeEntity2d& curve) {
  std::vector<CQdrGePoint2d> samples;
  for (int i = 0; i <= kSamples; ++i)
    samples.push_back(curve.pointAtParam(double(i) / kSamples));
  return samples;
}

CQdrGeVector2d tangentAt(const CQdrGeEntity2d& curve, double param) {
  const double step = 1e-5;
  return (curve.pointAtParam(param + step) - curve.pointAtParam(param - step)).normal(0.0);
}

std::string ends(const CQdrGeEntity2d& curve, double tol) {
  Complaint complaint;
  const CQdrGePoint2d start = curve.pointAtParam(0), end = curve.pointAtParam(1);
  complaint.holds("isOn", 0, curve.isOn(start, tol + kTol));
  complaint.holds("isOn", 1, curve.isOn(end, tol + kTol));
  complaint.point("pointAtDist", 0, curve.pointAtDist(0), start, tol);
  complaint.point("pointAtDist of the length", 1, curve.pointAtDist(curve.length()), end, tol);
  complaint.number("distAtParam", 1, curve.distAtParam(1), curve.length(), tol);
  return complaint.text();
}

std::string proportion(const CQdrGeEntity2d& curve, double tol) {
  Complaint complaint;
  const double length = curve.length();
  for (const double t : kPlaces) {
    complaint.number("distAtParam", t, curve.distAtParam(t), t * length, tol);
    complaint.number("length from 0", t, curve.length(0, t, kTol), t * length, tol);
    complaint.number("length to 1", t, curve.length(t, 1, kTol), (1 - t) * length, tol);
  }
  double chords = 0;
  const auto samples = samplesOf(curve);
  for (std::size_t i = 1; i < samples.size(); ++i) {
    const double chord = samples[i].distanceTo(samples[i - 1]);
    complaint.holds("a chord no longer than its part", double(i) / kSamples,
                    chord <= length / kSamples + tol);
    chords += chord;
  }
  complaint.number("sum of the chords", 1, chords, length, length * 2e-3);
  return complaint.text();
}

std::string paramOfPoint(const CQdrGeEntity2d& curve, double tol) {
  Complaint complaint;
  for (const double t : kPlaces)
    complaint.number("paramAtPoint", t, curve.paramAtPoint(curve.pointAtParam(t), tol + kTol), t,
                     tol + kTol);
  const CQdrGePoint2d beside = curve.pointAtParam(0.37) + curve.normalAtParam(0.37) * 0.1;
  complaint.number("paramAtPoint beside the curve", 0.37, curve.paramAtPoint(beside, tol + kTol),
                   -1, 0);
  return complaint.text();
}

std::string paramOfDistance(const CQdrGeEntity2d& curve, double tol) {
  Complaint complaint;
  const double length = curve.length();
  for (const double t : kPlaces) {
    complaint.number("forward", t, curve.paramAtDist(0, curve.distAtParam(t), true, kTol), t, tol);
    complaint.number("backward", t, curve.paramAtDist(1, (1 - t) * length, false, kTol), t, tol);
    complaint.number("from 0.02", t, curve.paramAtDist(0.02, (t - 0.02) * length, true, kTol), t,
                     tol);
  }
  return complaint.text();
}

std::string pointOfDistance(const CQdrGeEntity2d& curve, double tol) {
  Complaint complaint;
  for (const double t : kPlaces) {
    const CQdrGePoint2d place = curve.pointAtParam(t);
    const double dist = t * curve.length();
    complaint.point("pointAtDist", t, curve.pointAtDist(dist), place, tol);
    complaint.number("distAtPoint", t, curve.distAtPoint(place, tol + kTol), dist, tol + kTol);
  }
  return complaint.text();
}

std::string normal(const CQdrGeEntity2d& curve, double tol) {
  Complaint complaint;
  for (const double t : kPlaces) {
    const CQdrGeVector2d n = curve.normalAtParam(t);
    complaint.number("length of the normal", t, n.length(), 1, 1e-9);
    complaint.number("normal along the curve", t, n.dotProduct(tangentAt(curve, t)), 0, 1e-4 + tol);
    const CQdrGeVector2d byPoint = curve.normalAtPoint(curve.pointAtParam(t), tol + kTol);
    complaint.number("normal by point", t, (byPoint - n).length(), 0, 1e-4 + tol);
  }
  return complaint.text();
}

std::string isOn(const CQdrGeEntity2d& curve, double tol) {
  Complaint complaint;
  for (const double t : kPlaces) {
    const CQdrGePoint2d place = curve.pointAtParam(t);
    const CQdrGeVector2d across = curve.normalAtParam(t);
    complaint.holds("isOn", t, curve.isOn(place, tol + kTol));
    complaint.holds("not isOn beside", t, !curve.isOn(place + across * 0.01, 0.001));
    complaint.holds("isOn beside within tolerance", t, curve.isOn(place + across * 0.01, 0.011));
  }
  return complaint.text();
}

std::string closestPoint(const CQdrGeEntity2d& curve, double tol) {
  Complaint complaint;
  Random random(20240611);
  const auto samples = samplesOf(curve);
  for (int i = 0; i < 60; ++i) {
    const CQdrGePoint2d probe = random.point(15);
    const CQdrGePoint2d closest = curve.closestPointTo(probe, kTol);
    const double distance = closest.distanceTo(probe);
    complaint.holds("closest point on the curve", i, curve.isOn(closest, tol + kTol));
    complaint.number("distanceTo", i, curve.distanceTo(probe, kTol), distance, tol);
    for (const CQdrGePoint2d& sample : samples)
      complaint.holds("no sample nearer", i, distance <= sample.distanceTo(probe) + tol);
  }
  return complaint.text();
}

std::string closestToLine(const CQdrGeEntity2d& curve, double tol) {
  Complaint complaint;
  Random random(20240612);
  const auto samples = samplesOf(curve);
  for (int i = 0; i < 60; ++i) {
    const CQdrGeLine2d line(random.point(15), random.point(15));
    CQdrGePoint2d onLine;
    const CQdrGePoint2d closest = curve.closestPointTo(line, onLine, kTol);
    const double distance = closest.distanceTo(onLine);
    complaint.holds("closest point on the curve", i, curve.isOn(closest, tol + kTol));
    complaint.holds("its partner on the line", i, line.isOn(onLine, tol + kTol));
    complaint.number("distanceTo", i, curve.distanceTo(line, kTol), distance, tol);
    for (const CQdrGePoint2d& sample : samples)
      complaint.holds("no sample nearer", i, distance <= line.distanceTo(sample, kTol) + tol);
  }
  return complaint.text();
}

std::string perpendicular(const CQdrGeEntity2d& curve, double tol) {
  Complaint complaint;
  for (const double t : kPlaces) {
    const CQdrGePoint2d foot = curve.pointAtParam(t);
    const CQdrGePoint2d beside = foot + curve.normalAtParam(t) * 0.01;
    CQdrGeVector2d fromFoot;
    complaint.holds("perpVecFromPoint", t, curve.perpVecFromPoint(beside, fromFoot, kTol));
    complaint.point("foot", t, beside - fromFoot, foot, 1e-5 + tol);
  }
  return complaint.text();
}

// Asks that `change` takes every point of the curve where `image` takes it, with the parameters
// kept or all reversed, and that `undo` brings them back.
std::string changesAs(const CQdrGeEntity2d& curve, double tol,
                      const std::function<void(CQdrGeEntity2d&)>& change,
                      const std::function<CQdrGePoint2d(CQdrGePoint2d)>& image,
                      const std::function<void(CQdrGeEntity2d&)>& undo, double factor = 1.0) {
  Complaint complaint;
  const CurvePtr changed = copyOf(curve);
  change(*changed);
  const bool runsBack = changed->pointAtParam(0.11).distanceTo(image(curve.pointAtParam(0.11))) >
                        changed->pointAtParam(0.89).distanceTo(image(curve.pointAtParam(0.11)));
  for (const double t : kPlaces)
    complaint.point("image", t, changed->pointAtParam(runsBack ? 1 - t : t),
                    image(curve.pointAtParam(t)), factor * tol);
  complaint.number("length", 1, changed->length(), curve.length() * factor, factor * tol);
  undo(*changed);
  for (const double t : kPlaces)
    complaint.point("back", t, changed->pointAtParam(t), curve.pointAtParam(t), tol);
  return complaint.text();
}

std::string move(const CQdrGeEntity2d& curve, double tol) {
  const CQdrGeVector2d way(40, -7);
  return changesAs(
      curve, tol, [&](CQdrGeEntity2d& c) { c.translateBy(way); },
      [&](CQdrGePoint2d p) { return p + way; }, [&](CQdrGeEntity2d& c) { c.translateBy(-way); });
}

std::string turn(const CQdrGeEntity2d& curve, double tol) {
  return changesAs(
      curve, tol, [](CQdrGeEntity2d& c) { c.rotateBy(0.7, kPivot); },
      [](CQdrGePoint2d p) { return p.rotateBy(0.7, kPivot); },
      [](CQdrGeEntity2d& c) { c.rotateBy(-0.7, kPivot); });
}

std::string mirror(const CQdrGeEntity2d& curve, double tol) {
  const CQdrGeLine2d axis = lineOf(1, 1, 5, 3);
  return changesAs(
      curve, tol, [&](CQdrGeEntity2d& c) { c.mirror(axis); },
      [&](CQdrGePoint2d p) { return p.mirror(axis); }, [&](CQdrGeEntity2d& c) { c.mirror(axis); });
}

std::string scale(const CQdrGeEntity2d& curve, double tol) {
  return changesAs(
      curve, tol, [](CQdrGeEntity2d& c) { c.scaleBy(2.5, kPivot); },
      [](CQdrGePoint2d p) { return p.scaleBy(2.5, kPivot); },
      [](CQdrGeEntity2d& c) { c.scaleBy(0.4, 0.4, kPivot); }, 2.5);
}

std::string transformsBy(const CQdrGeEntity2d& curve, double tol, const CQdrGeMatrix2d& m) {
  return changesAs(
      curve, tol, [&](CQdrGeEntity2d& c) { c.transformBy(m); },
      [&](CQdrGePoint2d p) { return p.transformBy(m); },
      [&](CQdrGeEntity2d& c) { c.transformBy(m.inverse()); }, m.scale());
}

std::string rigidTransform(const CQdrGeEntity2d& curve, double tol) {
  CQdrGeMatrix2d m(true);
  m.setToRotation(0.7, kPivot).setToTranslation({4, 5});
  return transformsBy(curve, tol, m);
}

std::string scalingTransform(const CQdrGeEntity2d& curve, double tol) {
  return transformsBy(curve, tol, CQdrGeMatrix2d::scaling(2.5, kPivot));
}

std::string copyLaw(const CQdrGeEntity2d& curve, double tol) {
  Complaint complaint;
  const CurvePtr copied = copyOf(curve);
  if (!copied) return "no copy";
  const CurvePtr assigned = copyOf(curve);
  assigned->translateBy({3, 3});
  *assigned = *copied;
  complaint.number("kind", 0, copied->type(), curve.type(), 0);
  const std::string bytes = bytesOf(curve);
  complaint.holds("bytes of the copy", 0, bytesOf(*copied) == bytes);
  complaint.holds("bytes of the assigned", 0, bytesOf(*assigned) == bytes);
  copied->translateBy({3, 3});
  complaint.holds("source is independent", 0, bytesOf(curve) == bytes);
  complaint.holds("assigned is independent", 0, bytesOf(*assigned) == bytes);
  for (const double t : kPlaces)
    complaint.point("assigned", t, assigned->pointAtParam(t), curve.pointAtParam(t), tol);
  return complaint.text();
}

std::string equal(const CQdrGeEntity2d& curve, double) {
  Complaint complaint;
  const CurvePtr other = copyOf(curve);
  complaint.holds("isEqualTo of a copy", 0, curve.isEqualTo(*other, 0.001) && curve == *other);
  other->translateBy({0.01, 0});
  complaint.holds("not isEqualTo of a moved copy", 0, !curve.isEqualTo(*other, 0.001));
  return complaint.text();
}

std::string bytesLaw(const CQdrGeEntity2d& curve, double tol) {
  Complaint complaint;
  const std::string bytes = bytesOf(curve);
  const CurvePtr other = copyOf(curve);
  other->rotateBy(1.0, kPivot);
  complaint.holds("bytes differ after a turn", 0, bytesOf(*other) != bytes);
  readBytes(*other, bytes + "behind");
  complaint.holds("bytes read and saved", 0, bytesOf(*other) == bytes);
  for (const double t : kPlaces)
    complaint.point("read", t, other->pointAtParam(t), curve.pointAtParam(t), tol);
  return complaint.text();
}

std::string shortBytes(const CQdrGeEntity2d& curve, double) {
  Complaint complaint;
  const std::string bytes = bytesOf(curve);
  for (std::size_t size = 0; size < bytes.size(); size += 3) {
    const CurvePtr other = copyOf(curve);
    readBytes(*other, bytes.substr(0, size));
    // A curve read in part must still answer, whatever it answers.
    const std::string again = bytesOf(*other);
    complaint.holds("bytes after a short read", double(size), again.size() <= bytes.size());
    complaint.holds("the part that was there", double(size), !again.empty());
  }
  return complaint.text();
}

}  // namespace

const std::vector<LawRow>& curveLaws() {
  static const std::vector<LawRow> laws = {
      {Law::kEnds, "ends", ends},
      {Law::kProportion, "proportion", proportion},
      {Law::kParamOfPoint, "parameter of a point", paramOfPoint},
      {Law::kParamOfDistance, "parameter of a distance", paramOfDistance},
      {Law::kPointOfDistance, "point of a distance", pointOfDistance},
      {Law::kNormal, "normal", normal},
      {Law::kIsOn, "isOn", isOn},
      {Law::kClosestPoint, "closest point", closestPoint},
      {Law::kClosestToLine, "closest to a line", closestToLine},
      {Law::kPerpendicular, "perpendicular", perpendicular},
      {Law::kMove, "move", move},
      {Law::kTurn, "turn", turn},
      {Law::kMirror, "mirror", mirror},
      {Law::kScale, "scale", scale},
      {Law::kRigidTransform, "rigid transform", rigidTransform},
      {Law::kScalingTransform, "scaling transform", scalingTransform},
      {Law::kCopy, "copy", copyLaw},
      {Law::kEqual, "equal", equal},
      {Law::kBytes, "bytes", bytesLaw},
      {Law::kShortBytes, "short bytes", shortBytes},
  };
  return laws;
}
