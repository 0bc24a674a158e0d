#pragma once

#include "platform/export.h"

class IFileSystem;
class IHostUi;
class IIme;
class IInput;
class IMessagePump;
class ISystem;
class IWindows;

/// The whole outside world of the kernel. None of the parts is owned; what is null in a context
/// to be installed is taken from the headless one.
struct PlatformContext {
  IFileSystem* files = nullptr;
  ISystem* system = nullptr;
  IHostUi* ui = nullptr;
  IMessagePump* pump = nullptr;
  IInput* input = nullptr;
  IIme* ime = nullptr;
  IWindows* windows = nullptr;
};

namespace qdr {

/// The context in force; the headless one until another is installed.
QDR_API const PlatformContext& platform();

/// Puts a context in force; a program does so once, before it makes any object of the kernel.
QDR_API void installPlatform(const PlatformContext& context);

/// Puts a context in force for a scope and gives back the earlier one, for tests.
class QDR_API ScopedPlatform {
 public:
  explicit ScopedPlatform(const PlatformContext& context);
  ~ScopedPlatform();
  ScopedPlatform(const ScopedPlatform&) = delete;
  ScopedPlatform& operator=(const ScopedPlatform&) = delete;

 private:
  PlatformContext m_earlier;
};

}  // namespace qdr
