#pragma once

#include "geometry/tolerance.h"
#include "platform/export.h"

class CQdrGeLine2d;
class CQdrGePoint2d;
class CQdrGeVector2d;

/// A 3x3 matrix stored row by row that acts on column vectors (x, y, 1): the translation is the
/// third column. Angles turn counter-clockwise. A plain value of nine doubles.
class QDR_API CQdrGeMatrix2d {
 public:
  static const CQdrGeMatrix2d kIdentity;

  /// The identity, or with false all zeros.
  explicit constexpr CQdrGeMatrix2d(bool identity) : m_entries{} {
    if (identity) m_entries[0][0] = m_entries[1][1] = m_entries[2][2] = 1.0;
  }

  /// Entry at row and column, each 0 to 2, without a range check.
  constexpr double operator()(int row, int column) const { return m_entries[row][column]; }
  constexpr double& operator()(int row, int column) { return m_entries[row][column]; }

  /// The matrix product this x m.
  CQdrGeMatrix2d operator*(const CQdrGeMatrix2d& m) const;
  CQdrGeMatrix2d& operator*=(const CQdrGeMatrix2d& m);

  /// this = m x this.
  CQdrGeMatrix2d& preMultBy(const CQdrGeMatrix2d& m);

  /// this = a x b; either may be this matrix.
  CQdrGeMatrix2d& setToProduct(const CQdrGeMatrix2d& a, const CQdrGeMatrix2d& b);

  /// The setTo... forms compose: this = X x this with X the static form of the same name. Only
  /// from the identity is the result X itself.
  CQdrGeMatrix2d& setToTranslation(const CQdrGeVector2d& v);
  CQdrGeMatrix2d& setToRotation(double angle, const CQdrGePoint2d& center);
  CQdrGeMatrix2d& setToScaling(double s, const CQdrGePoint2d& center);
  CQdrGeMatrix2d& setToScaling(double sx, double sy, const CQdrGePoint2d& center);
  CQdrGeMatrix2d& setToSlant(double angle, const CQdrGePoint2d& point,
                             const CQdrGeVector2d& direction);
  CQdrGeMatrix2d& setToMirroring(const CQdrGePoint2d& point);
  CQdrGeMatrix2d& setToMirroring(const CQdrGeLine2d& line);

  static CQdrGeMatrix2d translation(const CQdrGeVector2d& v);
  static CQdrGeMatrix2d rotation(double angle, const CQdrGePoint2d& center);
  static CQdrGeMatrix2d scaling(double s, const CQdrGePoint2d& center);
  static CQdrGeMatrix2d scaling(double sx, double sy, const CQdrGePoint2d& center);

  /// Shear along `direction` that leaves the line through `point` in that direction fixed and
  /// leans its normal by `angle`. An angle outside the open quarter turn either way gives the
  /// identity.
  static CQdrGeMatrix2d slant(double angle, const CQdrGePoint2d& point,
                              const CQdrGeVector2d& direction);

  /// Half turn about the point.
  static CQdrGeMatrix2d mirroring(const CQdrGePoint2d& point);

  /// Reflection in the line. A line whose |dx| is below 0.001 counts as vertical through its end.
  static CQdrGeMatrix2d mirroring(const CQdrGeLine2d& line);

  /// The inverse by LU decomposition with partial pivoting on row-scaled entries; all zeros when
  /// the matrix cannot be decomposed.
  CQdrGeMatrix2d inverse() const;
  CQdrGeMatrix2d& invert();

  CQdrGeMatrix2d transpose() const;
  CQdrGeMatrix2d& transposeIt();

  /// The determinant, right when the bottom row is (0, 0, 1): its middle term takes b1 c0 in the
  /// place of b2 c0, and files and callers were made with that.
  double det() const;

  /// |det()| <= tol.
  bool isSingular(double tol = qdr::kVectorTolerance) const;

  /// Length of the longer of the first two columns, their third entries left out.
  double scale() const;

  /// Writes or reads the translation column only.
  CQdrGeMatrix2d& setTranslation(const CQdrGeVector2d& v);
  CQdrGeVector2d translation() const;

  /// Overwrites the matrix: columns xAxis, yAxis, origin, and bottom row (0, 0, 1).
  CQdrGeMatrix2d& setCoordSystem(const CQdrGePoint2d& origin, const CQdrGeVector2d& xAxis,
                                 const CQdrGeVector2d& yAxis);
  void getCoordSystem(CQdrGePoint2d& origin, CQdrGeVector2d& xAxis, CQdrGeVector2d& yAxis) const;

  /// m00 m01 + m01 m11 <= tol: signed, and with m01 in both products. No test of orthogonality in
  /// general; it stands so.
  bool isScaledOrtho(double tol = qdr::kVectorTolerance) const;

  /// The same answer as isScaledOrtho; the lengths of the axes play no part.
  bool isUniScaledOrtho(double tol = qdr::kVectorTolerance) const;

  /// True when every entry differs by less than `tol`, strictly.
  bool isEqualTo(const CQdrGeMatrix2d& m, double tol = qdr::kVectorTolerance) const;

  /// isEqualTo with 0.001.
  bool operator==(const CQdrGeMatrix2d& m) const;

 protected:
  /// Decomposes `a` in place into unit lower and upper triangle of its row permutation, and
  /// records the pivot row of each column. False, with `a` half done, for a singular matrix.
  static bool LU_Decompose(double a[3][3], int index[3]);

  /// Solves for the right side `b` in place, from the results of LU_Decompose.
  static void LU_Backsub(const double a[3][3], const int index[3], double b[3]);

 private:
  double m_entries[3][3];
};

inline constexpr CQdrGeMatrix2d CQdrGeMatrix2d::kIdentity{true};

static_assert(sizeof(CQdrGeMatrix2d) == 9 * sizeof(double));
