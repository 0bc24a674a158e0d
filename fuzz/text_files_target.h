#pragma once

#include <cmath>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "database/database.h"
#include "database/linetype_file.h"
#include "entities/line.h"
#include "fuzz/demand.h"
#include "hostcore/data_folder.h"
#include "hostcore/prompts.h"
#include "hostcore/script_player.h"
#include "interaction/command_names.h"
#include "platform/headless/memory_files.h"

namespace qdr_fuzz {

inline constexpr const wchar_t* kLinetypeFile = L"/qdr/types.lin";
inline constexpr const wchar_t* kCommandFile = L"/qdr/QdrDb.cmd";
inline constexpr const wchar_t* kMessageFile = L"/qdr/prompts.msg";

/// Linetypes drawn of one file.
inline constexpr std::size_t kMostDrawn = 4;

/// Commands that ask for points, numbers, keywords and texts, answered with what fits and with what
/// does not.
inline constexpr const char* kDialogue =
    "line\n0,0\nx\n10,10\n5<90\n.enter\narc c\n0,0\n10,0\n90\n.key esc\ncircle\n7,7\nabc\n3\n"
    "arc\n1,1\nc\n.key esc\nerase\n.pick 10,10\n.enter\n";

/// The text as a message file with as many rows as the host wants, by telling it over and over.
inline std::string asMessages(std::string_view text) {
  std::string rows;
  for (int row = 0; row < qdr::kPromptRows && rows.size() < 65536; ++row)
    rows.append(text).append("\n");
  return rows;
}

/// Draws a line with the linetype, large and small.
inline void drawWith(qdr::ScriptStage& stage, const qdr::LinetypeOffer& offer) {
  const std::vector<double> dashes = qdr::dashesOf(offer.pattern);
  for (const double dash : dashes)
    demand(std::isfinite(dash));
  CQdrDbDatabase& drawing = stage.host().database();
  auto record = std::make_unique<CQdrDbLTypeTableRecord>(&drawing);
  record->setName(offer.name);
  record->setDescription(offer.description);
  record->setDashes(dashes);
  CQdrDbObjectId linetype;
  if (!drawing.m_linetypeTable.add(linetype, record.get())) return;
  record.release();
  auto* const line = new CQdrDbLine(&drawing);
  line->setStartPoint({0, 0});
  line->setEndPoint({100, 60});
  line->setLineType(linetype);
  CQdrDbObjectId id;
  drawing.addEntity(line, id);
  stage.host().showWindow({0, 0}, {1e5, 1e5});
  stage.host().showWindow({50, 29}, {51, 31});
}

inline void tryLinetypes(qdr::ScriptStage& stage) {
  std::vector<qdr::LinetypeOffer> offers;
  demand(qdr::readLinetypeFile(kLinetypeFile, offers));
  if (offers.size() > kMostDrawn) offers.resize(kMostDrawn);
  for (const qdr::LinetypeOffer& offer : offers)
    drawWith(stage, offer);
}

inline void tryCommandNames() {
  qdr::CommandNames names;
  const int count = names.addFile(kCommandFile);
  demand(count >= 0 && count == names.count());
  for (const unsigned long number : {0ul, 40001ul}) {
    const CString name = names.nameOf(number);
    demand(name.IsEmpty() || names.numberOf(name) == number);
  }
}

/// Reads the bytes as each of the text files a host has: linetypes, which are drawn, command names,
/// which the host knows then, and messages, which it prompts with.
inline void tryTextFiles(std::string_view text) {
  CQdrDbObject::NextHardID = 1;
  qdr::MemoryFiles files;
  files.put(kLinetypeFile, std::string(text));
  files.put(kCommandFile,
            std::string(text) + "\n40001 line\n40002 arc\n40003 circle\n40024 erase\n");
  files.put(kMessageFile, asMessages(text));
  qdr::useDataFolder(L"/qdr");
  qdr::HostOptions options;
  options.viewSize = CSize(100, 100);
  options.promptFile = kMessageFile;
  qdr::ScriptStage stage(options, qdr::ScriptStage::Facts::fixed, &files);
  tryCommandNames();
  tryLinetypes(stage);
  qdr::ScriptPlayer player(stage);
  player.play(kDialogue);
  demand(!stage.host().isBusy());
}

}  // namespace qdr_fuzz
