#pragma once

#include <algorithm>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>

#include "fuzz/demand.h"
#include "fuzz/drawing_file_target.h"
#include "hostcore/data_folder.h"
#include "hostcore/script_player.h"
#include "platform/headless/memory_files.h"

namespace qdr_fuzz {

inline std::string sourceFile(const std::string& path) {
  std::ifstream file(std::string(QDR_SOURCE_DIR) + "/" + path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

/// All the files a script can reach: the command names, a drawing of every kind of entity, and what
/// it saves itself. None of it is of the machine.
inline qdr::MemoryFiles filesOfScripts() {
  static const std::string names = sourceFile("data/QdrDb.cmd");
  static const std::string gallery = sourceFile("data/gallery/gallery.kov");
  qdr::MemoryFiles files;
  files.put(L"/qdr/QdrDb.cmd", names);
  files.put(L"/g.kov", gallery);
  return files;
}

/// The script without views of more than three digits a side and without values of more than three:
/// a large view has many pixels, a curve divided into many parts many lines, and each paint then
/// takes its time.
inline std::string withoutCostlyLines(std::string_view text) {
  constexpr std::size_t kFewDigits = std::string_view(".size 999 999").size();
  std::string kept;
  while (!text.empty()) {
    const std::string_view line = text.substr(0, text.find('\n'));
    text.remove_prefix(std::min(line.size() + 1, text.size()));
    const bool sizes = line.find("ize") != std::string_view::npos;
    const bool values = line.find("alue") != std::string_view::npos;
    const std::size_t most = sizes ? kFewDigits : std::string_view(".value 999").size();
    const bool isLong = line.size() > most || line.find_first_of("eE", 6) < line.size();
    if ((sizes || values) && isLong) continue;
    kept.append(line).append("\n");
  }
  return kept;
}

/// A drawing that no file brought in has no such fault; its numbers may have outgrown a double.
struct ScriptedDemand : qdr::DrawingVisitor {
  void onFault(const qdr::ScanFault& fault) override {
    demand(fault.kind == qdr::FaultKind::notFinite);
  }
};

/// Plays bytes as a script on a small view. Whatever they are, the host is idle afterwards, its log
/// can be undone and done again, and the drawing saves as one that can be read.
inline qdr::ScriptOutcome tryScript(std::string_view text) {
  CQdrDbObject::NextHardID = 1;
  qdr::MemoryFiles files = filesOfScripts();
  qdr::useDataFolder(L"/qdr");
  qdr::HostOptions options;
  options.viewSize = CSize(200, 150);
  qdr::ScriptStage stage(options, qdr::ScriptStage::Facts::fixed, &files);
  qdr::ScriptPlayer player(stage);
  const std::string script = withoutCostlyLines(text);
  const qdr::ScriptOutcome outcome = player.play(script);
  const auto lines = std::count(script.begin(), script.end(), '\n');
  demand(outcome.line >= 0 && outcome.line <= lines + 1);

  qdr::DrawingHost& host = stage.host();
  demand(!host.isBusy());
  int steps = 0;
  while (host.undo())
    ++steps;
  int again = 0;
  while (host.redo())
    ++again;
  demand(again >= steps);

  const std::string saved = save(host.database());
  ScriptedDemand structure;
  if (script.find("g.kov") == std::string::npos) qdr::scanDrawing(saved, structure);
  CQdrDbDatabase loaded(false);
  read(loaded, saved);
  return outcome;
}

}  // namespace qdr_fuzz
