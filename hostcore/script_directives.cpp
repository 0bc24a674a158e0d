// The directives of the script language: mouse, keys, view, log, files and settings.

#include "hostcore/internal/script_directives.h"

#include <algorithm>
#include <cmath>
#include <iterator>

#include "database/database.h"
#include "hostcore/internal/script_settings.h"
#include "interaction/display/display_table_record.h"
#include "interaction/dlg_get_value.h"

namespace qdr {

namespace {

using Words = std::wstring_view;

constexpr double kMostNumber = 2147483647.0;

struct NamedKey {
  const wchar_t* name;
  int key;
};

constexpr NamedKey kKeys[] = {{L"enter", VK_RETURN},   {L"esc", VK_ESCAPE}, {L"space", VK_SPACE},
                              {L"backspace", VK_BACK}, {L"f4", VK_F4},      {L"ctrl+c", VK_CANCEL}};

constexpr NamedKey kArrows[] = {
    {L"left", VK_LEFT}, {L"right", VK_RIGHT}, {L"up", VK_UP}, {L"down", VK_DOWN}};

struct NamedCommand {
  const wchar_t* name;
  unsigned number;
};

constexpr NamedCommand kZooms[] = {
    {L"in", 40110}, {L"out", 40111}, {L"previous", 40112}, {L"extents", 40113}, {L"all", 40114}};

struct NamedButton {
  const wchar_t* name;
  int button;
};

constexpr NamedButton kButtons[] = {
    {L"ok", IDOK}, {L"cancel", IDCANCEL}, {L"yes", IDYES}, {L"no", IDNO}};

template <class Row, std::size_t N>
const Row* rowOf(const Row (&rows)[N], const std::wstring& name) {
  const auto row = std::find_if(std::begin(rows), std::end(rows), [&name](const Row& candidate) {
    return compareNoCase(candidate.name, name) == 0;
  });
  return row == std::end(rows) ? nullptr : row;
}

DirectiveAnswer fromHost(const HostAnswer& answer) {
  if (answer) return {};
  const bool file = answer.fault == HostFault::file;
  return {file ? ScriptEnd::file : ScriptEnd::failed, answer.reason, {}};
}

DirectiveAnswer badPoint(const std::wstring& word) {
  return usageFault(L"\"" + word + L"\" is no point x,y");
}

// A world point at a pixel of the view.
bool toPixel(ScriptStage& stage, const CQdrGePoint2d& world, CPoint& pixel) {
  pixel = stage.host().display().GetDecivePoint(world);
  CRect client;
  stage.host().view().GetClientRect(&client);
  return client.PtInRect(pixel);
}

// Reads the next word as a world point and moves the mouse there.
DirectiveAnswer moveTo(ScriptStage& stage, Words& words) {
  const std::wstring word = takeWord(words);
  CQdrGePoint2d world;
  if (!readPoint(word, world)) return badPoint(word);
  CPoint pixel;
  if (!toPixel(stage, world, pixel)) return failure(word + L" lies outside the view");
  stage.script().move(pixel.x, pixel.y);
  return {};
}

DirectiveAnswer playMove(ScriptStage& stage, Words words) {
  return moveTo(stage, words);
}

DirectiveAnswer playPick(ScriptStage& stage, Words words) {
  DirectiveAnswer answer = moveTo(stage, words);
  if (answer.end == ScriptEnd::done) stage.script().click();
  return answer;
}

DirectiveAnswer playPress(ScriptStage& stage, Words words) {
  DirectiveAnswer answer = moveTo(stage, words);
  if (answer.end == ScriptEnd::done) stage.script().down();
  return answer;
}

DirectiveAnswer playRelease(ScriptStage& stage, Words words) {
  DirectiveAnswer answer = moveTo(stage, words);
  if (answer.end == ScriptEnd::done) stage.script().up();
  return answer;
}

DirectiveAnswer playDrag(ScriptStage& stage, Words words) {
  DirectiveAnswer answer = moveTo(stage, words);
  if (answer.end != ScriptEnd::done) return answer;
  stage.script().down();
  answer = moveTo(stage, words);
  stage.script().up();
  return answer;
}

// Without a point the button goes down where the mouse is.
DirectiveAnswer playRightClick(ScriptStage& stage, Words words) {
  DirectiveAnswer answer;
  if (!words.empty()) answer = moveTo(stage, words);
  if (answer.end == ScriptEnd::done) stage.script().rclick();
  return answer;
}

DirectiveAnswer playClick(ScriptStage& stage, Words words) {
  const std::wstring word = takeWord(words);
  CQdrGePoint2d pixel;
  if (!readPoint(word, pixel)) return badPoint(word);
  stage.script().click(truncToInt(pixel.x), truncToInt(pixel.y));
  return {};
}

DirectiveAnswer playKey(ScriptStage& stage, Words words) {
  const std::wstring name = takeWord(words);
  if (const NamedKey* key = rowOf(kKeys, name)) {
    stage.script().key(key->key);
  } else if (const NamedKey* arrow = rowOf(kArrows, name)) {
    stage.script().arrow(arrow->key);
  } else {
    return usageFault(L"there is no key \"" + name + L"\"");
  }
  return {};
}

DirectiveAnswer playEnter(ScriptStage& stage, Words) {
  stage.script().key(VK_RETURN);
  return {};
}

DirectiveAnswer playType(ScriptStage&, Words words) {
  return {ScriptEnd::done, {}, std::wstring(words)};
}

DirectiveAnswer playHold(ScriptStage& stage, Words words) {
  bool control = false;
  bool shift = false;
  bool alt = false;
  for (std::wstring word = takeWord(words); !word.empty(); word = takeWord(words)) {
    if (word == L"ctrl") {
      control = true;
    } else if (word == L"shift") {
      shift = true;
    } else if (word == L"alt") {
      alt = true;
    } else {
      return usageFault(L"\"" + word + L"\" is none of ctrl, shift, alt");
    }
  }
  stage.script().mods(control, shift, alt);
  return {};
}

DirectiveAnswer playLoseCapture(ScriptStage& stage, Words) {
  stage.script().loseCapture();
  return {};
}

DirectiveAnswer playPaint(ScriptStage& stage, Words) {
  stage.script().paint();
  return {};
}

DirectiveAnswer playWindow(ScriptStage& stage, Words words) {
  CQdrGePoint2d corners[2];
  for (CQdrGePoint2d& corner : corners) {
    const std::wstring word = takeWord(words);
    if (!readPoint(word, corner)) return badPoint(word);
  }
  return fromHost(stage.host().showWindow(corners[0], corners[1]));
}

DirectiveAnswer playSize(ScriptStage& stage, Words words) {
  constexpr double kMostPixels = 16384;
  double sides[2] = {};
  for (double& side : sides) {
    const std::wstring word = takeWord(words);
    if (!readNumber(word, side) || side < 0 || side > kMostPixels)
      return usageFault(L"\"" + word + L"\" is no side of 0 to 16384 pixels");
  }
  stage.resizeView(CSize(truncToInt(sides[0]), truncToInt(sides[1])));
  return {};
}

DirectiveAnswer runNumber(ScriptStage& stage, unsigned number) {
  if (stage.host().isBusy()) return failure(L"a command is running");
  stage.script().call([&stage, number] { stage.host().runCommand(number); });
  return {};
}

DirectiveAnswer playZoom(ScriptStage& stage, Words words) {
  const std::wstring name = takeWord(words);
  if (name == L"visible") return fromHost(stage.host().showExtents());
  const NamedCommand* const zoom = rowOf(kZooms, name);
  if (!zoom) return usageFault(L"there is no zoom \"" + name + L"\"");
  return runNumber(stage, zoom->number);
}

DirectiveAnswer playCommand(ScriptStage& stage, Words words) {
  const std::wstring word = takeWord(words);
  double number = 0.0;
  if (!readNumber(word, number) || number < 0 || number > kMostNumber)
    return usageFault(L"\"" + word + L"\" is no command number");
  return runNumber(stage, static_cast<unsigned>(number));
}

DirectiveAnswer playUndo(ScriptStage& stage, Words) {
  return fromHost(stage.host().undo());
}

DirectiveAnswer playRedo(ScriptStage& stage, Words) {
  return fromHost(stage.host().redo());
}

DirectiveAnswer playOption(ScriptStage& stage, Words words) {
  const std::wstring word = takeWord(words);
  double option = 0.0;
  if (!readNumber(word, option) || option < 0 || option > kMostNumber)
    return usageFault(L"\"" + word + L"\" is no mode word");
  stage.host().setNextOption(static_cast<unsigned long>(option));
  return {};
}

DirectiveAnswer playMenu(ScriptStage& stage, Words words) {
  const std::wstring word = takeWord(words);
  double item = 0.0;
  if (!readNumber(word, item) || item < 0 || item > kMostNumber)
    return usageFault(L"\"" + word + L"\" is no menu item");
  stage.platform().ui.choose(static_cast<unsigned>(item));
  return {};
}

DirectiveAnswer playAnswer(ScriptStage& stage, Words words) {
  const std::wstring name = takeWord(words);
  const NamedButton* const button = rowOf(kButtons, name);
  if (!button) return usageFault(L"there is no button \"" + name + L"\"");
  stage.platform().ui.press(button->button);
  return {};
}

DirectiveAnswer playPoint(ScriptStage& stage, Words words) {
  const std::wstring word = takeWord(words);
  CQdrGePoint2d point;
  if (!readPoint(word, point)) return badPoint(word);
  stage.host().database().setLastPoint(point);
  return {};
}

DirectiveAnswer playNew(ScriptStage& stage, Words) {
  return fromHost(stage.host().newDrawing());
}

DirectiveAnswer playOpen(ScriptStage& stage, Words words) {
  if (words.empty()) return usageFault(L"a path is missing");
  return fromHost(stage.host().open(std::wstring(words)));
}

DirectiveAnswer playSave(ScriptStage& stage, Words words) {
  if (words.empty()) return usageFault(L"a path is missing");
  return fromHost(stage.host().save(std::wstring(words)));
}

// A drawing by its number, from 1 on.
bool takeDrawing(Words& words, std::size_t& drawing) {
  double number = 0.0;
  if (!readNumber(takeWord(words), number) || number < 1 || number > kMostNumber) return false;
  drawing = static_cast<std::size_t>(number) - 1;
  return true;
}

DirectiveAnswer playBeside(ScriptStage& stage, Words words) {
  DrawingHost& host = stage.host();
  return fromHost(words.empty() ? host.addDrawing() : host.openBeside(std::wstring(words)));
}

DirectiveAnswer playDrawing(ScriptStage& stage, Words words) {
  std::size_t drawing = 0;
  if (!takeDrawing(words, drawing))
    return usageFault(L"the number of a drawing, from 1 on, is missing");
  return fromHost(stage.host().activate(drawing));
}

DirectiveAnswer playClose(ScriptStage& stage, Words words) {
  std::size_t drawing = stage.host().activeDrawing();
  if (!words.empty() && !takeDrawing(words, drawing))
    return usageFault(L"that is no number of a drawing");
  return fromHost(stage.host().closeDrawing(drawing));
}

// Without a text the dialog is left by Cancel.
DirectiveAnswer playValue(ScriptStage& stage, Words words) {
  stage.platform().ui.answer<CDlgGetValue>([value = std::wstring(words)](CDlgGetValue& dialog) {
    dialog.setValue(value.c_str());
    return value.empty() ? IDCANCEL : IDOK;
  });
  return {};
}

struct Directive {
  const wchar_t* name;
  DirectiveAnswer (*play)(ScriptStage& stage, Words words);
};

constexpr Directive kDirectives[] = {
    {L".beside", playBeside},      {L".close", playClose},      {L".drawing", playDrawing},
    {L".value", playValue},        {L".answer", playAnswer},    {L".click", playClick},
    {L".command", playCommand},    {L".drag", playDrag},        {L".enter", playEnter},
    {L".expect", playExpectation}, {L".hold", playHold},        {L".key", playKey},
    {L".layer", playLayer},        {L".lose", playLoseCapture}, {L".menu", playMenu},
    {L".move", playMove},          {L".new", playNew},          {L".open", playOpen},
    {L".option", playOption},      {L".paint", playPaint},      {L".pick", playPick},
    {L".point", playPoint},        {L".press", playPress},      {L".rclick", playRightClick},
    {L".redo", playRedo},          {L".release", playRelease},  {L".save", playSave},
    {L".set", playSetting},        {L".size", playSize},        {L".type", playType},
    {L".undo", playUndo},          {L".window", playWindow},    {L".zoom", playZoom},
};

}  // namespace

DirectiveAnswer usageFault(const std::wstring& reason) {
  return {ScriptEnd::usage, reason, {}};
}

DirectiveAnswer failure(const std::wstring& reason) {
  return {ScriptEnd::failed, reason, {}};
}

std::wstring takeWord(std::wstring_view& text) {
  std::size_t start = 0;
  while (start < text.size() && isBlank(text[start]))
    ++start;
  std::size_t end = start;
  while (end < text.size() && !isBlank(text[end]))
    ++end;
  const std::wstring word(text.substr(start, end - start));
  while (end < text.size() && isBlank(text[end]))
    ++end;
  text.remove_prefix(end);
  return word;
}

bool readNumber(const std::wstring& word, double& number) {
  const bool digits = std::any_of(word.begin(), word.end(), [](wchar_t character) {
    return character >= L'0' && character <= L'9';
  });
  const bool plain = word.find_first_not_of(L"+-.0123456789eE") == std::wstring::npos;
  const double value = _wtof(word.c_str());
  if (!digits || !plain || !std::isfinite(value)) return false;
  number = value;
  return true;
}

bool readPoint(const std::wstring& word, CQdrGePoint2d& point) {
  const std::size_t comma = word.find(L',');
  double x = 0.0;
  double y = 0.0;
  if (comma == std::wstring::npos || !readNumber(word.substr(0, comma), x)) return false;
  if (!readNumber(word.substr(comma + 1), y)) return false;
  point.set(x, y);
  return true;
}

DirectiveAnswer playDirective(ScriptStage& stage, std::wstring_view line) {
  const std::wstring name = takeWord(line);
  const Directive* const directive = rowOf(kDirectives, name);
  if (!directive) return usageFault(L"there is no directive \"" + name + L"\"");
  return directive->play(stage, line);
}

}  // namespace qdr
