#pragma once

#include <CLI/CLI.hpp>
#include <string>

namespace qdr_tools {

/// What the program answers to whoever started it.
enum ExitCode : int {
  kSound = 0,
  kDamaged = 1,
  kNoResult = 1,
  kUsage = 2,
  kFileTrouble = 3,
  kNoMemory = 4,
};

/// Adds a verb. When the program runs it, its answer is in `exitCode`, which outlives `app`.
void addRun(CLI::App& app, int& exitCode);
void addRender(CLI::App& app, int& exitCode);
void addThumb(CLI::App& app, int& exitCode);
void addInfo(CLI::App& app, int& exitCode);
void addCheck(CLI::App& app, int& exitCode);
void addShape(CLI::App& app, int& exitCode);

/// One line to standard error: the file and the reason.
void reportTrouble(const std::string& path, const std::string& reason);

/// The bytes of a file; false when it cannot be read, and then the reason is told.
bool loadFile(const std::string& path, std::string& bytes);

/// Replaces the file; false when it cannot be written, and then the reason is told.
bool saveFile(const std::string& path, const std::string& bytes);

}  // namespace qdr_tools
