#include "shell/one_shot.h"

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

#include "shell/external.h"

namespace tidemark::shell {

namespace fs = std::filesystem;

namespace {

// The file of -EDIT or -PRINT: the argument, else the user's choice.
std::string chosen_file(const CommandLine& line, Session& session, const std::string& title) {
  if (!line.argument.empty()) return line.argument;
  return session.ui().choose_file({title, "All Files (*.*)|*.*|", {}, false}).value_or("");
}

void report_problem(Session& session, std::string_view title, const std::string& problem) {
  if (!problem.empty()) session.error(title, {problem});
}

void list_help(Session& session) {
  const fs::path& folder = session.folders().help;
  std::vector<std::string> names;
  std::error_code ec;
  for (const auto& entry : fs::directory_iterator(folder, ec))
    names.push_back(entry.path().filename().string());
  std::sort(names.begin(), names.end());
  std::string text = names.empty() ? "No help documents are installed in " + folder.string() + "\n"
                                   : "Help documents in " + folder.string() + ":\n";
  for (const auto& name : names) text += "  " + name + "\n";
  session.ui().show_text("Help", text);
}

void make_default_folder(const CommandLine& line, Session& session) {
  std::string folder = line.argument;
  if (folder.empty())
    folder = session.ui().choose_folder("Select the New Default Folder").value_or("");
  std::error_code ec;
  if (folder.empty() || !fs::is_directory(folder, ec)) {
    return session.error("CD Error", {"Not a folder: " + folder});
  }
  if (session.make_default_folder(folder))
    session.comment("!CD to " + fs::absolute(folder, ec).string());
}

}  // namespace

void run_one_shot(const CommandLine& line, Session& session) {
  switch (line.one_shot) {
    case OneShot::kEdit: {
      const std::string file = chosen_file(line, session, "Select a file to edit");
      if (file.empty()) return session.error("Edit", {"No file to edit was given."});
      return report_problem(session, "Edit", edit_file(file));
    }
    case OneShot::kPrint: {
      const std::string file = chosen_file(line, session, "Select a file to print");
      if (file.empty()) return session.error("Print", {"No file to print was given."});
      return report_problem(session, "Print", print_file(file));
    }
    case OneShot::kHelp:
      return list_help(session);
    case OneShot::kCd:
      return make_default_folder(line, session);
    case OneShot::kShell:
      session.comment("!SHELL");
      return report_problem(session, "Shell", open_shell(fs::current_path()));
    case OneShot::kNone:
    case OneShot::kUsage:
    case OneShot::kVersion:
      break;
  }
}

}  // namespace tidemark::shell
