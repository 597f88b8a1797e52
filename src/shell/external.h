#pragma once
// Other programs the shell starts and waits for: the text editor ($VISUAL, else
// $EDITOR), the printer job (lp) and the command shell ($SHELL).
#include <filesystem>
#include <string>
#include <vector>

namespace tidemark::shell {

struct ExternalRun {
  bool started = false;  // false when the program could not be found or started
  int status = 0;        // its exit status when it ran
};

// Runs `argv` (argv[0] searched on PATH) in `folder` (the current folder when empty),
// with the program's standard streams, and waits for it to end.
ExternalRun run_external(const std::vector<std::string>& argv,
                         const std::filesystem::path& folder = {});

// Prints a text file through lp. Empty on success, else the message to show ("No
// printer is available: the lp command was not found." and the like).
std::string print_file(const std::filesystem::path& file);

// Opens a file in the user's editor: $VISUAL, else $EDITOR (which may carry its own
// options). Empty on success, else the message to show.
std::string edit_file(const std::filesystem::path& file);

// Opens the user's shell ($SHELL, else /bin/sh) in `folder` and waits for it. Empty on
// success, else the message to show.
std::string open_shell(const std::filesystem::path& folder);

}  // namespace tidemark::shell
