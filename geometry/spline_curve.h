#pragma once

#include <vector>

#include "geometry/point2d.h"
#include "geometry/vector2d.h"
#include "platform/export.h"

/// Evaluator of one cubic span in Hermite form: a chord and the tangents at both of its ends.
class QDR_API CSplineCurve {
 public:
  /// `step` is the length of a sample's share of the chord; one not above 0 becomes 0.5.
  explicit CSplineCurve(double step);
  virtual ~CSplineCurve() = default;

  /// Takes the span and finds its segment count: the larger component of the chord, truncated, over
  /// the step, truncated again, from 1 to 1,000,000.
  void set(const CQdrGeVector2d& chord, const CQdrGeVector2d& startTangent,
           const CQdrGeVector2d& endTangent);

  /// The larger component of a chord, truncated.
  static int reachOf(const CQdrGeVector2d& chord);

  double step() const { return m_step; }
  int segments() const { return m_segments; }

  /// Displacement from the span's start at t, 0 at its start and 1 at its end.
  CQdrGeVector2d displacementAt(double t) const;

  /// Appends the samples of the span that begins at `start`, without `start` itself when the span
  /// continues the one before.
  void appendSamples(const CQdrGePoint2d& start, bool isContinuation,
                     std::vector<CQdrGePoint2d>& points) const;

 private:
  double m_step;
  int m_segments = 1;
  double m_ax = 0.0;
  double m_ay = 0.0;
  double m_bx = 0.0;
  double m_by = 0.0;
  double m_cx = 0.0;
  double m_cy = 0.0;
};
