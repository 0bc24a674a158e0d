#pragma once

#include <cstdint>

#include "platform/export.h"

namespace QdrDb {

/// The tag of a concrete class. The numbers are part of the drawing file; tables and their
/// records bear them too, and 32, 42 and 45 are each borne by two classes.
enum ClassType : std::int32_t {
  eClassEntity = 0,
  eClassCurve = 1,
  eClassArc = 2,
  eClassCircle = 3,
  eClassEllipse = 4,
  eClassEllipseArc = 5,
  eClassLine = 6,
  eClassPolyline = 7,
  eClassSpline = 8,
  eClassCSpline = 9,
  eClassSpiral = 10,
  eClassCobweb = 11,
  eClassBlockInsert = 12,
  eClassHatch = 13,
  eClassPoint = 14,
  eClassText = 15,  ///< also attribute definitions and attributes
  eClassRect = 16,
  eClassDimension = 17,
  eClass2LineAngularDimension = 18,
  eClass3PointAngularDimension = 19,
  eClassAlignedDimension = 20,
  eClassDiametricDimension = 21,
  eClassHorizontalDimension = 22,
  eClassLeaderDimension = 23,
  eClassRadialDimension = 24,
  eClassVerticalDimension = 25,
  eClassBox = 26,
  eClassImage = 27,  ///< reserved, no class bears it
  eClassSymbol = 28,
  eClassAttDef = 29,  ///< no object bears it
  eClassAttrib = 30,  ///< no object bears it
  eClassTextTable = 31,
  eClassBlockTable = 32,  ///< also the revision table
  eClassColorTable = 33,
  eClassDisplayTable = 34,
  eClassLayerTable = 35,
  eClassEntityTable = 36,
  eClassLTypeTable = 37,
  eClassSymbolTable = 38,
  eClassTextStyleTable = 39,
  eClassProjectInfoTable = 40,
  eClassBlockTableRecord = 42,  ///< also display records
  eClassColorTableRecord = 45,  ///< also records of the entity table
  eClassLayerTableRecord = 46,
  eClassLTypeTableRecord = 47,
  eClassSymbolTableRecord = 48,
  eClassTextStyleTableRecord = 49,
  eClassProjectInfoTableRecord = 50,
  eClassRevisionTableRecord = 51,
  eClassNone = 56,  ///< the class of no object
};

}  // namespace QdrDb

namespace qdr {

/// The name under which the entity table files a class ("LINE"; all dimensions "DIMENSION"), or
/// null for a class it does not file.
QDR_API const wchar_t* entityKeyword(QdrDb::ClassType type);

}  // namespace qdr
