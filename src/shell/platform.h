#pragma once
// What the platform tells about itself for the log header, and the date and time of
// the run files' first lines.
#include <ctime>
#include <string>
#include <string_view>

namespace tidemark::shell {

// The program's name and version, as the run files' first lines show them.
struct ProgramInfo {
  std::string name;     // "Tidemark"
  std::string version;  // "0.1.0"
};

// The computer name: $COMPUTERNAME when set, else the host name uname reports.
std::string computer_name();

// product + " Version " + version + " (Build " + build + ")".
std::string os_description(std::string_view product, std::string_view version,
                           std::string_view build);

// The running system's description from uname: its name, release and version.
std::string os_description();

// Date and time with "/" and ":" between their fields: "2026/11/21" and "05:34:04".
struct Stamp {
  std::string date;
  std::string time;
};
Stamp stamp(const std::tm& local);
Stamp stamp_now();

// The tail of every run file's first line: name, version, date and " at " time.
// "Tidemark 0.1.0 2026/11/21 at 05:34:04".
std::string created_by(const ProgramInfo& program, const Stamp& when);

}  // namespace tidemark::shell
