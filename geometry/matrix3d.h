#pragma once

#include "platform/export.h"

/// A 4x4 matrix stored row by row, a plain container of sixteen entries.
class QDR_API CQdrGeMatrix3d {
 public:
  /// Leaves the entries as they are.
  CQdrGeMatrix3d() {}
  CQdrGeMatrix3d(const CQdrGeMatrix3d&) = default;
  CQdrGeMatrix3d& operator=(const CQdrGeMatrix3d&) = default;
  virtual ~CQdrGeMatrix3d() = default;

  /// Entry at row and column, each 0 to 3, without a range check.
  double operator()(int row, int column) const { return m_entries[row][column]; }
  double& operator()(int row, int column) { return m_entries[row][column]; }

 private:
  double m_entries[4][4];
};
