#include "shell/shared_handler.h"

#include <unistd.h>

#include <array>
#include <charconv>
#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include "core/text.h"
#include "shell/command_help.h"
#include "shell/command_table.h"
#include "shell/command_text.h"
#include "shell/data_commands.h"
#include "shell/queue_commands.h"
#include "shell/modes.h"
#include "shell/run_file_commands.h"

namespace tidemark::shell {

namespace fs = std::filesystem;

namespace {

// CD "folder": the working (default data) folder for the rest of the run.
void change_folder(std::string_view command, Session& session) {
  std::string folder = command_argument(command, "CD");
  if (folder.empty()) {
    if (auto chosen = session.ui().choose_folder("Select the New Default Folder?"))
      folder = *chosen;
  }
  if (folder.empty()) return session.ignore(command);
  std::error_code ec;
  fs::current_path(folder, ec);
  if (ec) return session.error("CD Error", {"Could not change to the folder " + folder});
  session.carried_out(command_with_file("CD", folder), "!CD to " + fs::current_path(ec).string());
}

// @ "file": runs a command file. Its commands go to the history one by one as they are
// carried out, so the history records "!cmd file = " as a comment instead of the @.
void run_file(std::string_view command, Session& session) {
  const ui::FileRequest request{
      "Select the batch command file", "Batch Files (*.bat)|*.bat|All Files (*.*)|*.*|", {}, false};
  if (const auto file = session.file_argument(command, "@", request)) {
    session.run_command_file(*file);
  }
}

// One line per data set changed in this run and not written since, which ending the
// program would lose.
std::vector<std::string> unsaved_sets(const data::Store& store) {
  std::vector<std::string> lines;
  for (int i = 0; i < store.count(); ++i) {
    if (!store.at(i).modified) continue;
    lines.push_back("Data set " + std::to_string(i + 1) + " (" + store.at(i).file_name +
                    ") is modified and has not been written (WRITE_NATIVE).");
  }
  return lines;
}

void warn_unsaved(Session& session) {
  const std::vector<std::string> unsaved = unsaved_sets(session.store());
  if (!unsaved.empty()) session.inform("Terminate the Program", unsaved);
}

void exit_program(std::string_view command, Session& session) {
  warn_unsaved(session);
  if (!session.ask("Terminate the Program", "Are You Sure?", true)) return;
  session.carried_out(core::trim(command), "EXIT");
  session.request_exit();
}

// The mode named in the command, else the one the user picks from the mode list.
std::optional<int> named_or_chosen_mode(std::string_view command, Session& session) {
  const std::string name = command_argument(command, "MODE");
  if (!name.empty()) return find_mode(name);
  std::vector<std::string> names;
  for (int i = 1; i <= kModeCount; ++i) names.push_back(padded_mode_name(i));
  const auto item = session.ui().choose_item(kModeListTitle, kModeListPrompt, names);
  if (!item) return std::nullopt;
  return static_cast<int>(*item) + 1;
}

void choose_mode(std::string_view command, Session& session) {
  const auto index = named_or_chosen_mode(command, session);
  if (!index) return session.ignore(command);
  session.set_mode(*index);
  const std::string chosen = "MODE " + std::string(mode_info(*index).name);
  session.carried_out(chosen, chosen);
  if (!session.mode_built(*index)) {
    session.error("Mode Not Available", {"The " + std::string(mode_info(*index).name) +
                                         " mode is not available in this version."});
  }
}

void seed(std::string_view command, Session& session) {
  const std::string text = command_argument(command, "SEED");
  std::uint64_t value = 0;
  const auto [end, ec] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (text.empty() || ec != std::errc() || end != text.data() + text.size()) {
    return session.ignore(command);
  }
  session.random().seed(value);
  const std::string line = "SEED " + std::to_string(value);
  session.carried_out(line, line);
}

// ON_ERROR STOP / ON_ERROR CONTINUE.
void on_error(std::string_view command, Session& session) {
  const std::string choice = core::to_upper(command_argument(command, "ON_ERROR"));
  if (choice != "STOP" && choice != "CONTINUE") return session.ignore(command);
  session.set_stop_on_error(choice == "STOP");
  const std::string line = "ON_ERROR " + choice;
  session.carried_out(line, line);
}

// Where one name begins another, the longer one comes first.
constexpr std::array<NamedCommand<Session>, 7> kCommands{{
    {"CD", change_folder},
    {"@", run_file},
    {"EXIT", exit_program},
    {"HELP", show_help},
    {"MODE", choose_mode},
    {"ON_ERROR", on_error},
    {"SEED", seed},
}};

}  // namespace

void end_of_input(Session& session) {
  if (!session.stop_reason().empty()) {
    session.error("Run Stopped", {"ON_ERROR STOP: the run stops after the failure of " +
                                  session.stop_reason()});
  }
  warn_unsaved(session);
  session.files().log("EXIT (end of input)");
}

bool handle_shared_command(std::string_view command, Session& session) {
  if (handle_data_command(command, session)) return true;
  if (handle_queue_command(command, session)) return true;
  if (handle_run_file_command(command, session)) return true;
  if (dispatch(kCommands, command, session)) return true;
  // Then, in this order: the graph view, the simulator, the data spreadsheet.
  if (session.graphics().handle(command, session)) return true;
  if (session.simulator() != nullptr && session.simulator()->handle(command, session)) return true;
  return session.spreadsheet().handle(command, session);
}

}  // namespace tidemark::shell
