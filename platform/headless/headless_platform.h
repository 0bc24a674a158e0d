#pragma once

#include "platform/headless/headless_input.h"
#include "platform/headless/headless_window.h"
#include "platform/headless/scripted_input.h"
#include "platform/headless/scripted_ui.h"
#include "platform/platform_context.h"
#include "platform/system.h"

namespace qdr {

/// Facts as a test sets them; times and names stand still.
class QDR_API HeadlessSystem : public ISystem {
 public:
  std::wstring computer = L"COMPUTER";
  std::wstring user = L"user";
  SYSTEMTIME utc = {2026, 1, 4, 1, 12, 0, 0, 0};
  SYSTEMTIME local = {2026, 1, 4, 1, 12, 0, 0, 0};
  /// Empty means that of the program.
  std::wstring module;

  std::wstring computerName() override { return computer; }
  std::wstring userName() override { return user; }
  SYSTEMTIME utcTime() override { return utc; }
  SYSTEMTIME localTime() override { return local; }
  std::wstring modulePath() override {
    return module.empty() ? machineSystem().modulePath() : module;
  }
};

/// Everything a script and its test need in the place of a desktop. Installed by
/// ScopedPlatform(platform.context()), it must outlive the scope.
struct QDR_API HeadlessPlatform {
  HeadlessInput input;
  ScriptedInput script{input};
  HeadlessIme ime;
  ScriptedUi ui;
  HeadlessSystem system;
  HeadlessWindows windows;
  /// The files of the machine unless a test brings others.
  IFileSystem* files = nullptr;

  PlatformContext context() { return {files, &system, &ui, &script, &input, &ime, &windows}; }
};

}  // namespace qdr
