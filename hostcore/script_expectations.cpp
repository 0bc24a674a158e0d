// What a script expects of the program: prompts, log, counts, points and entities.

#include <algorithm>
#include <cmath>
#include <iterator>

#include "database/database.h"
#include "entities/entity.h"
#include "geometry/tolerance.h"
#include "hostcore/internal/script_directives.h"
#include "interaction/display/display_table_record.h"
#include "interaction/object_name_handler.h"

namespace qdr {

namespace {

using Words = std::wstring_view;

std::wstring textOf(const CWnd& window) {
  CString text;
  window.GetWindowText(text);
  return text.text();
}

std::wstring quoted(const std::wstring& text) {
  return L"\"" + text + L"\"";
}

DirectiveAnswer differs(const std::wstring& what, const std::wstring& expected,
                        const std::wstring& found) {
  return failure(what + L": expected " + expected + L", found " + found);
}

std::wstring numberText(double number) {
  CString text;
  text.Format(L"%.9g", number);
  return text.text();
}

std::wstring classNameOf(const CQdrDbEntity& entity) {
  static const CQdrObjectNameHandler names;
  return names.getName(entity.classType()).text();
}

bool isNear(double a, double b) {
  return std::fabs(a - b) <= kPointTolerance * std::max(1.0, std::fabs(a));
}

// The prompt that stands in the input line, before what was typed.
DirectiveAnswer expectPrompt(ScriptStage& stage, Words words) {
  const std::wstring expected(words);
  const std::wstring line = textOf(stage.host().inputLine());
  if (!stage.host().isBusy()) return differs(L"prompt", quoted(expected), L"no running command");
  if (line.starts_with(expected)) return {};
  return differs(L"prompt", quoted(expected), quoted(line));
}

DirectiveAnswer expectIdle(ScriptStage& stage, Words) {
  if (!stage.host().isBusy()) return {};
  return failure(L"a command waits at " + quoted(textOf(stage.host().inputLine())));
}

DirectiveAnswer expectLog(ScriptStage& stage, Words words) {
  const std::wstring log = textOf(stage.host().log());
  if (log.find(words) != std::wstring::npos) return {};
  const std::size_t lastLine = log.find_last_of(L'\n', log.empty() ? 0 : log.size() - 1);
  const std::wstring last = lastLine == std::wstring::npos ? log : log.substr(lastLine + 1);
  return failure(L"the log does not hold " + quoted(std::wstring(words)) + L"; it ends in " +
                 quoted(last));
}

DirectiveAnswer expectStatus(ScriptStage& stage, Words words) {
  const std::wstring status = textOf(stage.host().statusPane());
  if (status == words) return {};
  return differs(L"status", quoted(std::wstring(words)), quoted(status));
}

// "NUMBER" of all visible entities, or "CLASS NUMBER".
DirectiveAnswer expectCount(ScriptStage& stage, Words words) {
  std::wstring className = takeWord(words);
  std::wstring word = takeWord(words);
  if (word.empty()) word.swap(className);
  double expected = 0.0;
  if (!readNumber(word, expected)) return usageFault(quoted(word) + L" is no count");
  int count = 0;
  for (const CQdrDbObjectId& id : stage.host().display().getDisplayedIdSet()) {
    const CQdrDbEntity* const entity = asEntity(id);
    if (!entity || !entity->isVisiable()) continue;
    if (className.empty() || compareNoCase(classNameOf(*entity), className) == 0) ++count;
  }
  if (count == expected) return {};
  const std::wstring what = className.empty() ? L"count" : L"count of " + className;
  return differs(what, word, std::to_wstring(count));
}

DirectiveAnswer expectPoint(ScriptStage& stage, Words words) {
  const std::wstring word = takeWord(words);
  CQdrGePoint2d expected;
  if (!readPoint(word, expected)) return usageFault(quoted(word) + L" is no point x,y");
  const CQdrGePoint2d last = stage.host().database().lastPoint();
  if (isNear(last.x, expected.x) && isNear(last.y, expected.y)) return {};
  return differs(L"last point", word, numberText(last.x) + L"," + numberText(last.y));
}

const Property* propertyOf(const PropertyMap& sheet, const std::wstring& name) {
  for (const auto& [type, groups] : sheet)
    for (const auto& [group, rows] : groups)
      for (const Property& row : rows)
        if (row.m_name.CompareNoCase(name.c_str()) == 0) return &row;
  return nullptr;
}

bool isValue(const std::wstring& found, const std::wstring& expected) {
  double a = 0.0;
  double b = 0.0;
  if (readNumber(found, a) && readNumber(expected, b)) return isNear(a, b);
  return compareNoCase(found, expected) == 0;
}

// "CLASS" of the entity added last, and any of its properties as "NAME=VALUE"; a blank in a name is
// written as "_".
DirectiveAnswer expectEntity(ScriptStage& stage, Words words) {
  CQdrDbEntity* const entity = stage.host().database().m_lastEntity;
  const std::wstring className = takeWord(words);
  if (!entity) return differs(L"entity", className, L"none");
  const std::wstring found = classNameOf(*entity);
  if (compareNoCase(found, className) != 0) return differs(L"entity", className, found);
  const PropertyMap sheet = entity->getProperty();
  for (std::wstring word = takeWord(words); !word.empty(); word = takeWord(words)) {
    const std::size_t equals = word.find(L'=');
    if (equals == std::wstring::npos) return usageFault(quoted(word) + L" is no NAME=VALUE");
    std::wstring name = word.substr(0, equals);
    std::replace(name.begin(), name.end(), L'_', L' ');
    const std::wstring value = word.substr(equals + 1);
    const Property* const property = propertyOf(sheet, name);
    if (!property) return failure(L"the " + found + L" has no property " + quoted(name));
    if (!isValue(property->m_value.text(), value))
      return differs(name, value, property->m_value.text());
  }
  return {};
}

DirectiveAnswer expectSelected(ScriptStage& stage, Words words) {
  const std::wstring word = takeWord(words);
  double expected = 0.0;
  if (!readNumber(word, expected)) return usageFault(quoted(word) + L" is no count");
  const std::size_t count = stage.host().handler().GetSelectedEntity().size();
  if (static_cast<double>(count) == expected) return {};
  return differs(L"selected", word, std::to_wstring(count));
}

DirectiveAnswer expectBox(ScriptStage& stage, Words words) {
  const auto& boxes = stage.platform().ui.boxes();
  if (boxes.empty()) return differs(L"message", quoted(std::wstring(words)), L"none");
  if (boxes.back().text.find(words) != std::wstring::npos) return {};
  return differs(L"message", quoted(std::wstring(words)), quoted(boxes.back().text));
}

struct Expectation {
  const wchar_t* name;
  DirectiveAnswer (*check)(ScriptStage& stage, Words words);
};

constexpr Expectation kExpectations[] = {
    {L"count", expectCount},   {L"entity", expectEntity},     {L"idle", expectIdle},
    {L"log", expectLog},       {L"message", expectBox},       {L"point", expectPoint},
    {L"prompt", expectPrompt}, {L"selected", expectSelected}, {L"status", expectStatus},
};

}  // namespace

DirectiveAnswer playExpectation(ScriptStage& stage, std::wstring_view words) {
  const std::wstring name = takeWord(words);
  const auto row =
      std::find_if(std::begin(kExpectations), std::end(kExpectations),
                   [&name](const Expectation& candidate) { return candidate.name == name; });
  if (row == std::end(kExpectations)) return usageFault(L"nothing expects " + quoted(name));
  return row->check(stage, words);
}

}  // namespace qdr
