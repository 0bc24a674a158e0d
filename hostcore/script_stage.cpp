#include "hostcore/script_stage.h"

namespace {

PlatformContext contextWith(qdr::HeadlessPlatform& platform, qdr::ScriptStage::Facts facts,
                            IFileSystem* files) {
  platform.files = files;
  PlatformContext context = platform.context();
  if (facts == qdr::ScriptStage::Facts::machine) context.system = nullptr;
  return context;
}

}  // namespace

namespace qdr {

ScriptStage::ScriptStage(const HostOptions& options, Facts facts, IFileSystem* files)
    : m_installed(contextWith(m_platform, facts, files)),
      m_host(std::make_unique<DrawingHost>(options)),
      m_viewPeer(std::make_unique<HeadlessWindow>(m_host->view(), options.viewSize)) {
  m_viewPeer->setDeviceContext(&m_host->screen().dc());
  script().setView(&m_host->view(), m_viewPeer.get());
  m_host->view().SetFocus();
  m_host->viewResized();
}

// The peer goes before the window that it is bound to.
ScriptStage::~ScriptStage() {
  m_viewPeer.reset();
}

void ScriptStage::resizeView(CSize size) {
  m_viewPeer->resize(size);
  m_host->viewResized();
}

}  // namespace qdr
