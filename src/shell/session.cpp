#include "shell/session.h"

#include "core/text.h"
#include "shell/command_text.h"
#include "shell/not_available.h"

namespace tidemark::shell {

Session::Session(ProgramInfo program, Folders folders, Registry registry,
                 std::unique_ptr<RunFiles> files, core::Random names, ui::Ui& ui,
                 const ModuleFactories& modules)
    : program_(std::move(program)),
      folders_(std::move(folders)),
      files_(std::move(files)),
      ui_(ui),
      modules_(modules),
      registry_(std::move(registry)),
      names_(names),
      graphics_(graphics_not_available()),
      spreadsheet_(spreadsheet_not_available()) {}

void Session::error(std::string_view title, const std::vector<std::string>& lines) {
  note_failure();
  ui::report(ui_, *files_, title, lines);
}

void Session::inform(std::string_view title, const std::vector<std::string>& lines) {
  ui::report(ui_, *files_, title, lines);
}

void Session::ignore(std::string_view command) {
  error("COMMAND IGNORED!", {std::string(command)});
}

void Session::carried_out(std::string_view command, std::string_view log_line) {
  files_->history(command);
  if (!log_line.empty()) files_->log(log_line);
}

void Session::comment(std::string_view line) {
  files_->history(line);
  files_->log(line);
}

bool Session::ask(std::string_view title, std::string_view question, bool batch_answer) {
  if (const auto answer = ui_.ask(title, question)) return *answer;
  files_->log(std::string(title) + ": " + std::string(question) + " " +
              (batch_answer ? "YES" : "NO") + " (nobody to answer: the batch answer)");
  return batch_answer;
}

std::optional<std::string> Session::file_argument(std::string_view command, std::string_view name,
                                                  const ui::FileRequest& request) {
  std::string file = command_argument(command, name);
  if (file.empty()) {
    if (auto chosen = ui_.choose_file(request)) file = *chosen;
  }
  if (file.empty()) {
    ignore(command);
    return std::nullopt;
  }
  // A run file written over by a copy would lose the run's record: the program goes on
  // writing to the file it opened, which the copy has put aside.
  if (request.for_writing && files_->names_run_file(file)) {
    error("COMMAND IGNORED!",
          {std::string(command), "A file of this run cannot be written over: " + file});
    return std::nullopt;
  }
  return file;
}

bool Session::run_command_file(const std::string& name) {
  // The history and the log grow with every command read, so reading either while it is
  // written would never end.
  std::error_code ec;
  const bool growing = std::filesystem::equivalent(name, files_->history_path(), ec) ||
                       std::filesystem::equivalent(name, files_->log_path(), ec);
  if (!growing && command_files_.open(name)) {
    comment("!cmd file = " + name);
    return true;
  }
  error("Command File Error", {"Could not open command file = " + name});
  return false;
}

bool Session::make_default_folder(const std::filesystem::path& folder) {
  std::error_code ec;
  registry_.set(kDefaultFolderKey, std::filesystem::absolute(folder, ec).string());
  if (registry_.save(registry_path(folders_))) return true;
  error("Serious Error", {"Could not write user registry"});
  return false;
}

// What the user's windows show of this run between commands.
ui::SessionView Session::view() const {
  ui::SessionView v;
  for (int i = 0; i < store_.count(); ++i) {
    const data::DataSet& set = store_.at(i);
    v.data_sets.push_back({set.handle, set.file_name, set.modified});
  }
  v.current = store_.empty() ? -1 : store_.current_index();
  if (mode_ >= 1) v.mode = std::string(mode_info(mode_).name);
  v.history = files_->history_path().string();
  v.log = files_->log_path().string();
  v.answers = files_->answers_path().string();
  v.graph = files_->graph_path().string();
  return v;
}

std::optional<std::string> Session::next_command() {
  for (;;) {
    if (stop_on_error_ && failures_ > failures_before_last_) {
      stop_reason_ = last_command_.empty() ? "the start of the run" : last_command_;
      input_ended_ = true;
      return std::nullopt;
    }
    failures_before_last_ = failures_;
    std::optional<std::string> command = command_files_.next();
    const std::string position = command ? command_files_.last_position() : "typed";
    if (!command) ui_.show_session(view());
    while (!command) {
      const auto typed = ui_.next_command();
      if (!typed) break;
      command = command_of_line(*typed);
    }
    if (!command) {
      input_ended_ = true;
      return std::nullopt;
    }
    ++commands_;
    const std::string where = "command " + std::to_string(commands_) + " (" + position + ")";
    if (command->size() <= core::kLineLength) {
      last_command_ = where + ": " + *command;
      return command;
    }
    // A longer line would be cut, and the cut command (a formula without its end) would
    // be carried out as if it were whole.
    last_command_ = where + ": " + command->substr(0, 40) + "...";
    error("COMMAND IGNORED!",
          {"The line of " + where + " has " + std::to_string(command->size()) +
           " characters; a command line holds at most " + std::to_string(core::kLineLength) +
           ": " + command->substr(0, 40) + "..."});
  }
}

std::filesystem::path Session::temporary_file(std::string_view prefix, std::string_view extension) {
  auto path = temp_file_name(folders_.temp, prefix, extension, names_);
  files_->kill(path);
  return path;
}

std::unique_ptr<Module> Session::make_module(int index) const {
  const auto& factory = modules_[static_cast<std::size_t>(index - 1)];
  if (!factory) return nullptr;
  return factory(mode_info(index).variant);
}

bool Session::mode_built(int index) const {
  return static_cast<bool>(modules_[static_cast<std::size_t>(index - 1)]);
}

}  // namespace tidemark::shell
