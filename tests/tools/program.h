#pragma once

#include <sys/wait.h>

#include <array>
#include <cstdio>
#include <string>

namespace qdr_test {

struct Answer {
  int exitCode = -1;
  std::string out;
};

/// Runs the shell line `before` + program + `arguments`; what the program writes to standard error
/// comes behind what it writes to standard out.
inline Answer runQdr(const std::string& arguments, const std::string& before = {}) {
  const std::string command =
      before + std::string(QDR_BINARY_DIR) + "/tools/qdr " + arguments + " 2>&1";
  Answer answer;
  std::FILE* pipe = popen(command.c_str(), "r");
  if (!pipe) return answer;
  std::array<char, 4096> buffer;
  while (const std::size_t got = std::fread(buffer.data(), 1, buffer.size(), pipe)) {
    answer.out.append(buffer.data(), got);
  }
  const int status = pclose(pipe);
  answer.exitCode = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  return answer;
}

}  // namespace qdr_test
