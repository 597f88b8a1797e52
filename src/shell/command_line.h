#pragma once
// The program's command line. The one-shot options do one action and end the program;
// they are looked for in this order, the first found wins: "-EDIT:" (or "-EDIT "
// followed by a file name), "-HELP", "-CD:" (or "-CD " and a folder), "-PRINT:" (or
// "-PRINT " and a file name), "-SHELL"; before them "--help" and "--version". Then
// "-@" or "@" followed by a command file name (directly or as the next argument; the
// option written inside double quotes counts as "-@"), and "-grf_view" followed by a
// graph source file, and "-ON_ERROR:STOP" or "-ON_ERROR:CONTINUE" (or "-ON_ERROR STOP"),
// which is carried out as the command ON_ERROR before the command file runs. Letter case
// of the options never matters.
//
//   parse_command_line({"-EDIT:notes.txt"})  ->  {OneShot::kEdit, "notes.txt"}
//   parse_command_line({"-@", "run.cmd"})    ->  command_file "run.cmd"
#include <optional>
#include <string>
#include <vector>

namespace tidemark::shell {

enum class OneShot { kNone, kUsage, kVersion, kEdit, kHelp, kCd, kPrint, kShell };

struct CommandLine {
  OneShot one_shot = OneShot::kNone;
  std::string argument;  // the file or folder of -EDIT, -CD and -PRINT; may be empty
  std::optional<std::string> command_file;  // after -@ or @ (empty when none follows)
  std::optional<std::string> graph_file;    // after -grf_view
  std::optional<std::string> on_error;      // after -ON_ERROR: ("STOP", "CONTINUE", as given)
  std::vector<std::string> unknown;         // arguments that are none of the above
};

// Reads the arguments that follow the program name.
CommandLine parse_command_line(const std::vector<std::string>& args);

// The usage text that --help prints.
std::string usage_text();

}  // namespace tidemark::shell
