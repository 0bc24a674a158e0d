#include "geometry/internal/cspline_tangents.h"

#include <cmath>

namespace {

constexpr int kSweeps = 2;

// Rows of the tangent system: before * T[i - 1] + own * T[i] + after * T[i + 1] = right. The
// neighbours wrap round in a closed curve; in an open one the outer ones are absent.
struct Row {
  double before = 0.0;
  double own = 0.0;
  double after = 0.0;
  CQdrGeVector2d right;
};

std::vector<CQdrGeVector2d> chordsOf(const std::vector<CQdrGePoint2d>& points, bool isClosed) {
  std::vector<CQdrGeVector2d> chords;
  chords.reserve(points.size());
  for (std::size_t i = 0; i + 1 < points.size(); ++i)
    chords.push_back(points[i + 1] - points[i]);
  if (isClosed) chords.push_back(points.front() - points.back());
  return chords;
}

// Length of each chord over that of the next one; the last of an open curve has ratio 1.
std::vector<double> ratiosOf(const std::vector<CQdrGeVector2d>& chords, bool isClosed) {
  std::vector<double> ratios(chords.size(), 1.0);
  const std::size_t count = isClosed ? chords.size() : chords.size() - 1;
  for (std::size_t i = 0; i < count; ++i) {
    const double next = chords[(i + 1) % chords.size()].length();
    if (next != 0.0) ratios[i] = chords[i].length() / next;
  }
  return ratios;
}

// The row of a point between two spans.
Row innerRow(const CQdrGeVector2d& chordBefore, const CQdrGeVector2d& chordAfter,
             double ratioBefore, double ratioAfter) {
  const double square = ratioBefore * ratioBefore;
  return {1.0, 2.0 * (ratioBefore + 1.0) * ratioBefore, square * ratioAfter,
          (chordBefore + chordAfter * square) * 3.0};
}

std::vector<Row> openRows(const std::vector<CQdrGeVector2d>& chords,
                          const std::vector<double>& ratios) {
  std::vector<Row> rows{{0.0, 2.0, 2.0, chords.front() * 3.0}};
  for (std::size_t i = 1; i < chords.size(); ++i) {
    rows.push_back(innerRow(chords[i - 1], chords[i], ratios[i - 1], ratios[i]));
  }
  rows.push_back({1.0, 2.0 * ratios.back(), 0.0, chords.back() * 3.0});
  return rows;
}

std::vector<Row> closedRows(const std::vector<CQdrGeVector2d>& chords,
                            const std::vector<double>& ratios) {
  std::vector<Row> rows;
  for (std::size_t i = 0; i < chords.size(); ++i) {
    const std::size_t before = (i + chords.size() - 1) % chords.size();
    rows.push_back(innerRow(chords[before], chords[i], ratios[before], ratios[i]));
  }
  return rows;
}

// A row whose own factor is 0 keeps its tangent.
std::vector<CQdrGeVector2d> sweptTangents(const std::vector<Row>& rows) {
  const std::size_t n = rows.size();
  std::vector<CQdrGeVector2d> tangents(n);
  for (std::size_t i = 0; i < n; ++i) {
    if (rows[i].own != 0.0) tangents[i] = rows[i].right / rows[i].own;
  }
  std::vector<CQdrGeVector2d> next(tangents);
  for (int sweep = 0; sweep < kSweeps; ++sweep) {
    for (std::size_t i = 0; i < n; ++i) {
      const Row& row = rows[i];
      if (row.own == 0.0) continue;
      // Open curves have factor 0 where the neighbour wraps round.
      const CQdrGeVector2d neighbours =
          tangents[(i + n - 1) % n] * row.before + tangents[(i + 1) % n] * row.after;
      next[i] = (row.right - neighbours) / row.own;
    }
    tangents = next;
  }
  return tangents;
}

}  // namespace

qdr::CubicSpans qdr::cubicSpans(const std::vector<CQdrGePoint2d>& points, bool isClosed) {
  CubicSpans spans;
  if (points.size() < 2) return spans;
  spans.chords = chordsOf(points, isClosed);
  const std::vector<double> ratios = ratiosOf(spans.chords, isClosed);
  std::vector<CQdrGeVector2d> tangents =
      sweptTangents(isClosed ? closedRows(spans.chords, ratios) : openRows(spans.chords, ratios));
  for (std::size_t i = 0; i < spans.chords.size(); ++i) {
    spans.endTangents.push_back(tangents[(i + 1) % tangents.size()] * ratios[i]);
  }
  spans.startTangents = std::move(tangents);
  return spans;
}
