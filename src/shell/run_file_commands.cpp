#include "shell/run_file_commands.h"

#include <array>
#include <string>

#include "shell/command_text.h"
#include "shell/external.h"
#include "shell/file_ops.h"

namespace tidemark::shell {

namespace fs = std::filesystem;

namespace {

enum class RunFile { kLog, kAnswers, kHistory, kGraph };

enum class Action { kCopy, kPrint };

struct RunFileCommand {
  std::string_view name;
  Action action;
  RunFile file;
  std::string_view kind;
  std::string_view chooser_title;  // for a copy without a target
  std::string_view filter;
  std::string_view log_text;  // the log line's text before the target, when not the default
};

constexpr std::string_view kAllFiles = "All Files (*.*)|*.*|";
constexpr std::string_view kGrfFilter = "ASCII Graphic Files (*.grf)|*.grf|All Files (*.*)|*.*|";

constexpr std::array<RunFileCommand, 11> kCommands{{
    {"SAVE_AS_LOG", Action::kCopy, RunFile::kLog, "LOG", "Select a name for the LOG file",
     kAllFiles, ""},
    {"SAVE_AS_BST", Action::kCopy, RunFile::kAnswers, "BST", "Select a name for the BST file",
     kAllFiles, ""},
    {"SAVE_AS_CMD", Action::kCopy, RunFile::kHistory, "CMD",
     "Select a name for the command history file", kAllFiles, ""},
    {"SAVE_GRF_ASCII", Action::kCopy, RunFile::kGraph, "GRF",
     "Select a name for the ASCII Graphics file", kGrfFilter, "SAVE THE GRAPHICS AS ASCII"},
    {"COPY_LOG", Action::kCopy, RunFile::kLog, "LOG", "Select a name for the LOG file", kAllFiles,
     ""},
    {"COPY_BST", Action::kCopy, RunFile::kAnswers, "BST", "Select a name for the BST file",
     kAllFiles, ""},
    {"COPY_CMD", Action::kCopy, RunFile::kHistory, "CMD",
     "Select a name for the command history file", kAllFiles, ""},
    {"COPY_GRF", Action::kCopy, RunFile::kGraph, "GRF", "Select a name for the ASCII Graphics file",
     kAllFiles, ""},
    {"PRINT_LOG", Action::kPrint, RunFile::kLog, "LOG", "", "", ""},
    {"PRINT_BST", Action::kPrint, RunFile::kAnswers, "BST", "", "", ""},
    {"PRINT_CMD", Action::kPrint, RunFile::kHistory, "CMD", "", "", ""},
}};

const fs::path& run_file(Session& session, RunFile file) {
  switch (file) {
    case RunFile::kLog:
      return session.files().log_path();
    case RunFile::kAnswers:
      return session.files().answers_path();
    case RunFile::kHistory:
      return session.files().history_path();
    case RunFile::kGraph:
      break;
  }
  return session.files().graph_path();
}

}  // namespace

void copy_command(Session& session, std::string_view command, std::string_view name,
                  const fs::path& source, std::string_view kind, const ui::FileRequest& request,
                  std::string_view log_text) {
  const auto target = session.file_argument(command, name, request);
  if (!target) return;
  std::string reason;
  const int code = copy_file(source, *target, reason);
  const std::string what = std::string(kind) + " file";
  if (code != 0) {
    session.error("Did not copy!",
                  {what + " did not copy!", "error =" + std::to_string(code), reason});
    return;
  }
  const std::string logged =
      log_text.empty() ? what + " copied to " + *target : std::string(log_text) + " " + *target;
  session.carried_out(command_with_file(name, *target), logged);
}

void print_command(Session& session, std::string_view command, const fs::path& source,
                   std::string_view kind) {
  const std::string what = std::string(kind) + " file";
  const std::string problem = print_file(source);
  if (!problem.empty()) {
    session.error("Print " + what, {problem});
    return;
  }
  session.carried_out(command, what + " printed");
}

bool handle_run_file_command(std::string_view command, Session& session) {
  for (const RunFileCommand& c : kCommands) {
    if (!command_is(command, c.name)) continue;
    const fs::path& source = run_file(session, c.file);
    if (c.action == Action::kPrint) {
      print_command(session, command, source, c.kind);
    } else {
      ui::FileRequest request{std::string(c.chooser_title), std::string(c.filter), {}, true};
      copy_command(session, command, c.name, source, c.kind, request, c.log_text);
    }
    return true;
  }
  return false;
}

}  // namespace tidemark::shell
