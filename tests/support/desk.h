#pragma once

#include <memory>
#include <string>
#include <vector>

#include "database/database.h"
#include "platform/device_context.h"
#include "platform/headless/headless_platform.h"
#include "platform/headless/memory_files.h"
#include "platform/software_raster.h"
#include "platform/window.h"

namespace qdr::test {

/// A drawing on a headless desk: a view of 200 x 100 pixels that shows the world from (0, 0) to
/// (200, 100) at one pixel a unit, an input line, a log and a status pane, driven by a script.
///
/// World (x, y) lies at pixel (x, 100 - y). Prompts are the rows "P1:" to "P71:", "invalid" and
/// "unknown". The view does what a host's must: it routes message 1124, hands characters to the
/// input line and keeps the command numbers it is sent.
class Desk {
 public:
  Desk();
  ~Desk();
  Desk(const Desk&) = delete;
  Desk& operator=(const Desk&) = delete;

  ScriptedInput& script() { return m_platform.script; }
  CQdrCommandHandler& handler() { return drawing->m_commandHandler; }
  CQdrDbDisplayTableRecord& record() { return *drawing->m_displayTable.getCurrentRecord(); }

  /// Runs a command and adds what it made, as a host does.
  CQdrDbEntity* run(QdrDb::CommandID id, unsigned long option = 0);
  /// Paints the drawing into the view.
  void paint();
  std::vector<Pixel> pixels() const;
  std::wstring log() const;
  std::wstring inputLine() const;
  std::wstring status() const;
  const std::vector<unsigned>& commands() const { return m_view.commands; }
  ScriptedUi& ui() { return m_platform.ui; }
  HeadlessInput& input() { return m_platform.input; }
  void resize(int width, int height);

 private:
  class View : public CView {
   public:
    LRESULT WindowProc(unsigned message, WPARAM wParam, LPARAM lParam) override;
    Desk* desk = nullptr;
    std::vector<unsigned> commands;
  };

  MemoryFiles m_files;
  HeadlessPlatform m_platform;
  ScopedPlatform m_installed;
  View m_view;
  CEditCmd m_input;
  CEdit m_log;
  CStatic m_pane;
  HeadlessWindow m_peer;
  std::shared_ptr<PixelBuffer> m_pixels;
  SoftwareRaster m_raster;
  CDC m_dc;
  std::unique_ptr<CQdrPromptHandler> m_prompts;

 public:
  std::unique_ptr<CQdrDbDatabase> drawing;
};

}  // namespace qdr::test
