#include "interaction/object_name_handler.h"

#include <cstddef>
#include <iterator>

#include "platform/system.h"

namespace {

constexpr const wchar_t* kNames[] = {L"Entity",
                                     L"Curve",
                                     L"Arc",
                                     L"Circle",
                                     L"Ellipse",
                                     L"EllipseArc",
                                     L"Line",
                                     L"Polyline",
                                     L"Spline",
                                     L"CubicSpline",
                                     L"Spiral",
                                     L"Cobweb",
                                     L"BlockInsert",
                                     L"Hatch",
                                     L"Point",
                                     L"Text",
                                     L"Rectangle",
                                     L"Dimension",
                                     L"2LineAngularDim",
                                     L"3PointAngularDim",
                                     L"AlignedDim",
                                     L"DiametricDim",
                                     L"HorizontalDim",
                                     L"LeaderDim",
                                     L"RadialDim",
                                     L"VerticalDim",
                                     L"Box",
                                     L"Image",
                                     L"Symbol",
                                     L"AttribDefinition",
                                     L"Attribute",
                                     L"TextTable",
                                     L"BlockTable",
                                     L"ColorTable",
                                     L"DisplayTable",
                                     L"LayerTable",
                                     L"EntityTable",
                                     L"LinetypeTable",
                                     L"SymbolTable",
                                     L"TextStyleTable",
                                     L"ProjectInfoTable",
                                     L"RevisionTable",
                                     L"BlockTableRecord",
                                     L"ColorTableRecord",
                                     L"DisplayTableRecord",
                                     L"EntityTableRecord",
                                     L"LayerTableRecord",
                                     L"LinetypeTableRecord",
                                     L"SymbolTableRecord",
                                     L"TextStyleTableRecord",
                                     L"ProjectInfoTableRecord",
                                     L"RevisionTableRecord",
                                     L"CommandHandler",
                                     L"UndoHandler",
                                     L"Not Selected"};
static_assert(std::size(kNames) == 55);

constexpr const wchar_t* kPolyTypes[] = {L"None", L"Composite"};

CString rowAt(const std::vector<CString>& rows, int index) {
  if (index < 0 || static_cast<std::size_t>(index) >= rows.size()) AfxThrowInvalidArgException();
  return rows[static_cast<std::size_t>(index)];
}

}  // namespace

CQdrObjectNameHandler::CQdrObjectNameHandler() {
  LoadName(L"");
  LoadType(L"");
}

int CQdrObjectNameHandler::LoadName(const CString&) {
  m_names.insert(m_names.end(), std::begin(kNames), std::end(kNames));
  return static_cast<int>(m_names.size());
}

int CQdrObjectNameHandler::LoadType(const CString&) {
  m_polyTypes.insert(m_polyTypes.end(), std::begin(kPolyTypes), std::end(kPolyTypes));
  return static_cast<int>(m_polyTypes.size());
}

CString CQdrObjectNameHandler::getName(int index) const {
  return rowAt(m_names, index);
}

CString CQdrObjectNameHandler::getPolyType(int index) const {
  return rowAt(m_polyTypes, index);
}
