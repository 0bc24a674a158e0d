#include "database/linetype_file.h"

#include <cmath>

#include "platform/file.h"

namespace qdr {

namespace {

constexpr std::size_t kMostDashes = 1024;

bool isNumber(const CString& text) {
  const int first = text.FindOneOf(L"0123456789");
  if (first < 0) return false;
  const CString lead = text.Left(first);
  return lead.IsEmpty() || lead == L"-" || lead == L"+" || lead == L"." || lead == L"-." ||
         lead == L"+.";
}

// The header line behind its first character, which need not be the star that marks it.
LinetypeOffer offerOf(CString header) {
  header.Delete(0, 1);
  const int comma = header.Find(L',');
  LinetypeOffer offer;
  offer.name = comma < 0 ? header : header.Left(comma);
  if (comma >= 0) offer.description = header.Mid(comma + 1);
  return offer;
}

}  // namespace

bool readLinetypeFile(const wchar_t* path, std::vector<LinetypeOffer>& offers) {
  CStdioFile file;
  if (!file.Open(path, CFile::modeRead | CFile::typeText)) return false;
  CString line;
  while (file.ReadString(line)) {
    if (line.Find(L'*') < 0) continue;
    LinetypeOffer offer = offerOf(line);
    CString pattern;
    if (file.ReadString(pattern) && pattern.Find(L"A,") >= 0) {
      pattern.Delete(0, 2);
      offer.pattern = pattern;
    }
    offers.push_back(offer);
  }
  return true;
}

std::vector<double> dashesOf(const CString& pattern) {
  std::vector<double> dashes;
  for (int start = 0; start <= pattern.GetLength() && dashes.size() < kMostDashes;) {
    const int comma = pattern.Find(L',', start);
    const int end = comma < 0 ? pattern.GetLength() : comma;
    CString field = pattern.Mid(start, end - start);
    field.Trim();
    const double dash = _wtof(field);
    if (isNumber(field) && std::isfinite(dash)) dashes.push_back(dash);
    start = end + 1;
  }
  return dashes;
}

}  // namespace qdr
