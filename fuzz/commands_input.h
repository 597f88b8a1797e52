#pragma once
// How commands_fuzz reads one input: typed commands, and files to place in the working
// folder before the run. A line "#FILE name" begins a file and "#END" ends it; the lines
// between are the file's text (a data file, a graph source, a command file). Every other
// line is a typed command.
//
// The bounds on the text, so that one input stays fast and cannot reach beyond the
// working folder (commands_fuzz.cpp adds a time budget for the calculations and a
// length bound for the deconvolution modes):
// - only the first kMaxCommands typed commands are kept;
// - a SET of a field whose label names cycles (the Monte-Carlo cycle counts of ApEn,
//   X_ApEn and Concordance), or of SRQuant's "Swarm Size" or "Iterations", to a whole
//   number above kMaxCycles refuses the input;
// - a SIMULATE of more than kMaxSamples samples refuses the input: Cosine's period scan
//   fits a trial at every sample time, so its work grows with the square of the points
//   (at 100000 samples, over an hour);
// - a line holding ".." or a "/" after anything but a name character or ")" refuses the
//   input, so every path it can name is relative and stays inside the folder;
// - a file name is made of name characters only, and the files together hold at most one
//   "@" command, so that a file running itself nests at most ten deep, one file a level.
#include <cctype>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "core/fortran_read.h"
#include "core/text.h"
#include "pulse/modes/simulate_arguments.h"
#include "shell/command_text.h"
#include "shell/settings_file.h"

namespace tidemark::fuzzing {

inline constexpr std::size_t kMaxCommands = 64;
inline constexpr int kMaxCycles = 50;
inline constexpr int kMaxSamples = 1000;

struct CommandsInput {
  std::string commands;                                    // one per line
  std::vector<std::pair<std::string, std::string>> files;  // name and text
};

inline bool name_character(char c) {
  return std::isalnum(static_cast<unsigned char>(c)) || c == '_' || c == '-' || c == '.';
}

// True when every path the line can name stays below the working folder.
inline bool stays_inside(std::string_view line) {
  if (line.find("..") != std::string_view::npos) return false;
  for (std::size_t i = 0; i < line.size(); ++i) {
    if (line[i] == '/' && (i == 0 || !(name_character(line[i - 1]) || line[i - 1] == ')')))
      return false;
  }
  return true;
}

// False for a SET of a cycle count, swarm size or iteration count above kMaxCycles; the
// label and the value are read as the module frame reads them.
inline bool cycles_bounded(std::string_view line) {
  if (!shell::command_is(line, "SET")) return true;
  const auto assignment = shell::split_assignment(shell::command_argument(line, "SET"));
  if (!assignment) return true;
  const std::string label = core::to_upper(core::trim(assignment->label));
  if (label.find("CYCLES") == std::string::npos && label != "SWARM SIZE" && label != "ITERATIONS")
    return true;
  int cycles = 0;
  return !core::read_integer(assignment->value, cycles) || cycles <= kMaxCycles;
}

// False for a SIMULATE of more than kMaxSamples samples, as the simulator reads it.
inline bool samples_bounded(std::string_view line) {
  const std::string_view command = core::trim(line);
  if (!shell::command_is(command, "SIMULATE")) return true;
  const pulse::SimulateArgumentsResult parsed = pulse::parse_simulate_arguments(command.substr(8));
  return !parsed.ok() || parsed.request.options.samples <= kMaxSamples;
}

inline bool file_name(std::string_view name) {
  if (name.empty()) return false;
  for (const char c : name) {
    if (!name_character(c)) return false;
  }
  return true;
}

// The input split into commands and files; no value when the input is refused.
inline std::optional<CommandsInput> read_commands_input(std::string_view input) {
  CommandsInput read;
  std::size_t commands = 0;
  int runs_in_files = 0;
  bool in_file = false;
  while (!input.empty()) {
    const std::size_t end = input.find('\n');
    const std::string_view line = input.substr(0, end);
    input.remove_prefix(end == std::string_view::npos ? input.size() : end + 1);
    if (!stays_inside(line) || !cycles_bounded(line) || !samples_bounded(line)) return std::nullopt;
    if (in_file) {
      if (line == "#END") {
        in_file = false;
      } else {
        if (shell::command_is(line, "@") && ++runs_in_files > 1) return std::nullopt;
        read.files.back().second.append(line).push_back('\n');
      }
    } else if (line.starts_with("#FILE ")) {
      const std::string_view name = core::trim(line.substr(6));
      if (!file_name(name)) return std::nullopt;
      read.files.emplace_back(std::string(name), std::string());
      in_file = true;
    } else if (commands++ < kMaxCommands) {
      read.commands.append(line).push_back('\n');
    }
  }
  return read;
}

}  // namespace tidemark::fuzzing
