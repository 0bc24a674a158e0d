#include "platform/platform_context.h"

#include "platform/file_system.h"
#include "platform/headless/console_ui.h"
#include "platform/headless/headless_platform.h"
#include "platform/system.h"

namespace {

template <class Interface>
Interface* chosen(Interface* given, Interface* otherwise) {
  return given ? given : otherwise;
}

PlatformContext headlessContext() {
  static qdr::ConsoleUi ui;
  static qdr::HeadlessPlatform headless;
  PlatformContext context = headless.context();
  context.files = &qdr::machineFiles();
  context.system = &qdr::machineSystem();
  context.ui = &ui;
  return context;
}

PlatformContext& current() {
  static PlatformContext context = headlessContext();
  return context;
}

}  // namespace

namespace qdr {

const PlatformContext& platform() {
  return current();
}

void installPlatform(const PlatformContext& context) {
  const PlatformContext otherwise = headlessContext();
  PlatformContext& installed = current();
  installed.files = chosen(context.files, otherwise.files);
  installed.system = chosen(context.system, otherwise.system);
  installed.ui = chosen(context.ui, otherwise.ui);
  installed.pump = chosen(context.pump, otherwise.pump);
  installed.input = chosen(context.input, otherwise.input);
  installed.ime = chosen(context.ime, otherwise.ime);
  installed.windows = chosen(context.windows, otherwise.windows);
}

ScopedPlatform::ScopedPlatform(const PlatformContext& context) : m_earlier(platform()) {
  installPlatform(context);
}

ScopedPlatform::~ScopedPlatform() {
  installPlatform(m_earlier);
}

}  // namespace qdr
