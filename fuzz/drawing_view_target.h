#pragma once

#include <string>
#include <string_view>

#include "fuzz/demand.h"
#include "fuzz/drawing_file_target.h"
#include "fuzz/script_target.h"

namespace qdr_fuzz {

/// What a person does with a drawing: looks at it, picks what lies there, moves by grips, erases
/// all and takes it back.
inline constexpr const char* kLook =
    ".zoom visible\n.paint\n.zoom in\n.zoom extents\n.hold shift\n.click 100,75\n.click 50,40\n"
    ".hold\n.key esc\nerase\n.click 1,1\n.click 198,148\n.enter\n.undo\n.redo\n.undo\n";

/// Opens the tables of a drawing in a host with a small view. Whatever the bytes, it can be looked
/// at, changed, and saved.
inline void tryView(std::string_view tables) {
  CQdrDbObject::NextHardID = 1;
  qdr::MemoryFiles files = filesOfScripts();
  files.put(L"/a.kov", withFixedBlocks(tables));
  qdr::useDataFolder(L"/qdr");
  qdr::HostOptions options;
  options.viewSize = CSize(200, 150);
  qdr::ScriptStage stage(options, qdr::ScriptStage::Facts::fixed, &files);
  if (!stage.host().open(L"/a.kov")) return;
  qdr::ScriptPlayer(stage).play(kLook);
  demand(!stage.host().isBusy());
  stage.host().undo();
  save(stage.host().database());
}

}  // namespace qdr_fuzz
