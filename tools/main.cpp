// qdr: works on drawings from the command line.

#include <array>
#include <cerrno>
#include <cstring>
#include <fstream>
#include <iostream>

#include "database/file/drawing_scanner.h"
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
  errno = 0;
  std::ofstream file(path, std::ios::binary);
  file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  file.close();
  if (file) return true;
  reportTrouble(path, errno != 0 ? std::strerror(errno) : "cannot be written");
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
  }
  return exitCode;
}
