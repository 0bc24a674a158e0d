// qdr: works on drawings from the command line.

#include <algorithm>
#include <array>
#include <cstddef>
#include <iostream>
#include <new>

#include "database/file/drawing_scanner.h"
#include "platform/file.h"
#include "platform/wide_string.h"
#include "tools/verbs.h"

namespace qdr_tools {

void reportTrouble(const std::string& path, const std::string& reason) {
  std::cerr << "qdr: " << path << ": " << reason << "\n";
}

bool loadFile(const std::string& path, std::string& bytes) {
  std::string reason;
  if (qdr::readWholeFile(qdr::fromUtf8(path).c_str(), bytes, reason)) return true;
  reportTrouble(path, reason);
  return false;
}

bool saveFile(const std::string& path, const std::string& bytes) {
  constexpr std::size_t kMostAtOnce = 1 << 30;
  CFile file;
  if (file.Open(CString(path.c_str()), CFile::modeCreateWrite)) {
    for (std::size_t at = 0; at < bytes.size(); at += kMostAtOnce) {
      const std::size_t count = std::min(kMostAtOnce, bytes.size() - at);
      file.Write(bytes.data() + at, static_cast<unsigned>(count));
    }
    if (file.Close()) return true;
  }
  reportTrouble(path, file.lastError());
  return false;
}

}  // namespace qdr_tools

int main(int argc, char** argv) {
  using Verb = void (*)(CLI::App&, int&);
  constexpr std::array<Verb, 6> kVerbs = {qdr_tools::addRun,   qdr_tools::addRender,
                                          qdr_tools::addThumb, qdr_tools::addInfo,
                                          qdr_tools::addCheck, qdr_tools::addShape};
  CLI::App app{"Works on drawings from the command line.", "qdr"};
  app.require_subcommand(1);
  int exitCode = qdr_tools::kSound;
  for (const Verb add : kVerbs)
    add(app, exitCode);
  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& fault) {
    return app.exit(fault) == 0 ? qdr_tools::kSound : qdr_tools::kUsage;
  } catch (const std::bad_alloc&) {
    std::cerr << "qdr: memory ran out\n";
    return qdr_tools::kNoMemory;
  }
  return exitCode;
}
