#pragma once

#include <vector>

#include "platform/export.h"
#include "platform/wide_string.h"

/// Names of object classes for a person, by class number up to 42; from there on the rows go their
/// own way. The tables are built in.
class QDR_API CQdrObjectNameHandler {
 public:
  CQdrObjectNameHandler();

  /// Adds the 55 class names, or the two polyline kinds, behind what is there; the argument is not
  /// used. Returns the number of rows.
  int LoadName(const CString& ignored);
  int LoadType(const CString& ignored);

  /// A row; an index outside raises the platform's invalid-argument exception.
  CString getName(int index) const;
  CString getPolyType(int index) const;

 private:
  std::vector<CString> m_names;
  std::vector<CString> m_polyTypes;
};
