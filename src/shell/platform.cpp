#include "shell/platform.h"

#include <fmt/format.h>
#include <sys/utsname.h>

#include <cstdlib>

namespace tidemark::shell {

std::string computer_name() {
  if (const char* name = std::getenv("COMPUTERNAME"); name != nullptr && *name != '\0') {
    return name;
  }
  utsname u{};
  if (uname(&u) == 0) return u.nodename;
  return "unknown";
}

std::string os_description(std::string_view product, std::string_view version,
                           std::string_view build) {
  return fmt::format("{} Version {} (Build {})", product, version, build);
}

std::string os_description() {
  utsname u{};
  if (uname(&u) != 0) return os_description("unknown", "unknown", "unknown");
  return os_description(u.sysname, u.release, u.version);
}

Stamp stamp(const std::tm& t) {
  return {fmt::format("{:04}/{:02}/{:02}", t.tm_year + 1900, t.tm_mon + 1, t.tm_mday),
          fmt::format("{:02}:{:02}:{:02}", t.tm_hour, t.tm_min, t.tm_sec)};
}

Stamp stamp_now() {
  const std::time_t now = std::time(nullptr);
  std::tm local{};
  localtime_r(&now, &local);
  return stamp(local);
}

std::string created_by(const ProgramInfo& program, const Stamp& when) {
  return fmt::format("{} {} {} at {}", program.name, program.version, when.date, when.time);
}

}  // namespace tidemark::shell
