#include <pwd.h>
#include <sys/types.h>
#include <time.h>
#include <unistd.h>

#include <array>
#include <filesystem>
#include <system_error>

#include "platform/system.h"
#include "platform/wide_string.h"

namespace {

constexpr long kNanosecondsPerMillisecond = 1'000'000;

std::wstring& chosenModulePath() {
  static std::wstring path;
  return path;
}

SYSTEMTIME fieldsOf(const tm& date, long nanoseconds) {
  const auto field = [](int value) { return static_cast<std::uint16_t>(value); };
  SYSTEMTIME time;
  time.wYear = field(date.tm_year + 1900);
  time.wMonth = field(date.tm_mon + 1);
  time.wDayOfWeek = field(date.tm_wday);
  time.wDay = field(date.tm_mday);
  time.wHour = field(date.tm_hour);
  time.wMinute = field(date.tm_min);
  time.wSecond = field(date.tm_sec);
  time.wMilliseconds = static_cast<std::uint16_t>(nanoseconds / kNanosecondsPerMillisecond);
  return time;
}

using Calendar = tm* (*)(const time_t*, tm*);

SYSTEMTIME timeBy(Calendar calendar) {
  timespec now = {};
  clock_gettime(CLOCK_REALTIME, &now);
  tm date = {};
  calendar(&now.tv_sec, &date);
  return fieldsOf(date, now.tv_nsec);
}

class PosixSystem : public ISystem {
 public:
  std::wstring computerName() override {
    std::array<char, 256> name = {};
    if (gethostname(name.data(), name.size() - 1) != 0) return {};
    return qdr::fromUtf8(name.data());
  }

  std::wstring userName() override {
    std::array<char, 4096> room;
    passwd entry = {};
    passwd* found = nullptr;
    if (getpwuid_r(geteuid(), &entry, room.data(), room.size(), &found) != 0 || !found) return {};
    return qdr::fromUtf8(found->pw_name);
  }

  SYSTEMTIME utcTime() override { return timeBy(gmtime_r); }
  SYSTEMTIME localTime() override { return timeBy(localtime_r); }

  std::wstring modulePath() override {
    if (!chosenModulePath().empty()) return chosenModulePath();
    std::error_code code;
    const std::filesystem::path program = std::filesystem::read_symlink("/proc/self/exe", code);
    return code ? std::wstring() : qdr::fromUtf8(program.string());
  }
};

}  // namespace

namespace qdr {

ISystem& machineSystem() {
  static PosixSystem system;
  return system;
}

void setModulePath(const std::wstring& path) {
  chosenModulePath() = path;
}

}  // namespace qdr
