#pragma once

#include <cstddef>
#include <memory>
#include <string>

#include "hostcore/drawing_host.h"
#include "platform/headless/headless_platform.h"

namespace qdr {

/// A host on the headless platform with a view of a given size: what a script plays on, and what
/// renders without a screen. Its platform is installed for as long as it lives.
class QDR_API ScriptStage {
 public:
  enum class Facts {
    machine,  ///< names and times of this machine
    fixed     ///< those of the headless system, which stand still
  };

  /// `files` is what scripts open and save in, null for the files of the machine; it outlives the
  /// stage.
  explicit ScriptStage(const HostOptions& options = {}, Facts facts = Facts::machine,
                       IFileSystem* files = nullptr);
  ~ScriptStage();
  ScriptStage(const ScriptStage&) = delete;
  ScriptStage& operator=(const ScriptStage&) = delete;

  HeadlessPlatform& platform() { return m_platform; }
  ScriptedInput& script() { return m_platform.script; }
  DrawingHost& host() { return *m_host; }
  void resizeView(CSize size);

 private:
  HeadlessPlatform m_platform;
  ScopedPlatform m_installed;
  std::unique_ptr<DrawingHost> m_host;
  std::unique_ptr<HeadlessWindow> m_viewPeer;
};

}  // namespace qdr
