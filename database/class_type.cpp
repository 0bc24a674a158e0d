#include "database/class_type.h"

#include <cstddef>
#include <iterator>

namespace {

constexpr std::int32_t kFirstFiled = QdrDb::eClassArc;

// By class type from kFirstFiled on.
constexpr const wchar_t* kKeywords[] = {
    L"ARC",       L"CIRCLE",    L"ELLIPSE",   L"ELLIPSEARC", L"LINE",      L"POLYLINE",
    L"SPLINE",    L"CSPLINE",   L"SPIRAL",    nullptr,       L"INSERT",    L"HATCH",
    L"POINT",     L"TEXT",      L"RECT",      L"DIMENSION",  L"DIMENSION", L"DIMENSION",
    L"DIMENSION", L"DIMENSION", L"DIMENSION", L"DIMENSION",  L"DIMENSION", L"DIMENSION",
    L"BOX",       L"IMAGE",     L"SYMBOL",    L"ATTDEF",     L"ATTRIB",    L"TEXTTABLE",
};
static_assert(std::size(kKeywords) == QdrDb::eClassTextTable - kFirstFiled + 1);

}  // namespace

namespace qdr {

const wchar_t* entityKeyword(QdrDb::ClassType type) {
  if (type < kFirstFiled || type > QdrDb::eClassTextTable) return nullptr;
  return kKeywords[static_cast<std::size_t>(type - kFirstFiled)];
}

}  // namespace qdr
