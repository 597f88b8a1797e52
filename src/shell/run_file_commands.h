#pragma once
// The COPY_, SAVE_AS_ and PRINT_ families: copies and printouts of the run files (log,
// answers, command history, graph) and of a mode's listing.
#include <filesystem>
#include <string_view>

#include "shell/session.h"
#include "ui/ui.h"

namespace tidemark::shell {

// Copies `source` to the file the command names (or the user chooses through
// `request`). On success the history gets the command with the target in double quotes
// and the log "<kind> file copied to <target>" (or `log_text` + " " + target); on failure "<kind>
// file did not copy!" with "Did not copy!" and "error =" + the system's error code. `kind` is
// "LOG", "BST", "CMD", "GRF" or "LST".
void copy_command(Session& session, std::string_view command, std::string_view name,
                  const std::filesystem::path& source, std::string_view kind,
                  const ui::FileRequest& request, std::string_view log_text = {});

// Prints `source` through lp; logged "<kind> file printed", or the reason it was not.
void print_command(Session& session, std::string_view command, const std::filesystem::path& source,
                   std::string_view kind);

// The run-file commands of the shared handler (COPY_LOG, SAVE_AS_CMD, PRINT_BST,
// SAVE_GRF_ASCII, ...); false when the command is none of them.
bool handle_run_file_command(std::string_view command, Session& session);

}  // namespace tidemark::shell
