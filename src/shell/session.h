#pragma once
// The program-wide state of one run and the services every command handler uses:
// reporting, the command history and log, questions, and where the next command comes
// from.
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/random.h"
#include "data/store.h"
#include "shell/command_files.h"
#include "shell/folders.h"
#include "shell/module.h"
#include "shell/platform.h"
#include "shell/registry.h"
#include "shell/run_files.h"
#include "ui/ui.h"

namespace tidemark::shell {

class Session;

// A part of the program that may consume commands: the graph view, the data
// spreadsheet, the simulator. Answers false when the command is not its own.
class CommandHandler {
 public:
  virtual ~CommandHandler() = default;
  virtual bool handle(std::string_view command, Session& session) = 0;
};

class Session {
 public:
  // `names` draws the run identifiers of temporary files; the program's generator for
  // Monte-Carlo work is random() and is seeded by the SEED command.
  Session(ProgramInfo program, Folders folders, Registry registry, std::unique_ptr<RunFiles> files,
          core::Random names, ui::Ui& ui, const ModuleFactories& modules);

  // Shows a message box and logs it ("TITLE: text" per line); the run's exit status
  // becomes 1.
  void error(std::string_view title, const std::vector<std::string>& lines);
  // The same for a message that is not an error.
  void inform(std::string_view title, const std::vector<std::string>& lines);
  // A failure that a lower layer has already shown and logged: the exit status becomes 1.
  void note_failure() {
    failed_ = true;
    ++failures_;
  }
  // "COMMAND IGNORED!" for a command that cannot be carried out.
  void ignore(std::string_view command);

  // Records a command carried out: the command in the history, `log_line` (when not
  // empty) in the log.
  void carried_out(std::string_view command, std::string_view log_line);
  // A comment line ("!cmd file = ...") in both the log and the history.
  void comment(std::string_view line);

  // Asks a yes/no question; when nobody can answer, takes `batch_answer` and logs it.
  bool ask(std::string_view title, std::string_view question, bool batch_answer);

  // The file or folder a command names: its argument, else the user's choice; no value
  // (and "COMMAND IGNORED!") when it has none and nobody chooses one, or when a file to
  // be written is one of the run files.
  std::optional<std::string> file_argument(std::string_view command, std::string_view name,
                                           const ui::FileRequest& request);

  // Opens a command file on top of the stack: "!cmd file = " + name on success, else
  // "Could not open command file = " + name, shown and logged. The run's own command
  // history cannot be run while it is being written.
  bool run_command_file(const std::string& name);

  // The next command: from the innermost open command file, else from the user; no
  // value at the end of input, or, under ON_ERROR STOP, once a command has failed (the
  // run has then stopped: stop_reason()).
  std::optional<std::string> next_command();

  // ON_ERROR STOP (true) or CONTINUE (false, the default): whether the run ends at the
  // first command that fails.
  void set_stop_on_error(bool stop) {
    stop_on_error_ = stop;
    failures_before_last_ = failures_;
  }
  bool stop_on_error() const { return stop_on_error_; }
  // Which command stopped the run under ON_ERROR STOP ("command 3 (run.cmd line 4):
  // READ_NATIVE \"a.dat\""); empty when none did.
  const std::string& stop_reason() const { return stop_reason_; }
  // True once the commands ran out (end of the input, Ctrl-D, or a stop on error)
  // rather than the program being ended by EXIT.
  bool input_ended() const { return input_ended_; }

  // The data sets, mode and run files, as the user's windows show them.
  ui::SessionView view() const;

  // Records `folder` (made absolute) as Default_Folder in system/registry.ini; false,
  // after "Could not write user registry" ("Serious Error"), when it cannot be written.
  bool make_default_folder(const std::filesystem::path& folder);

  // Ends the program after the current command.
  void request_exit() { exit_requested_ = true; }
  bool exit_requested() const { return exit_requested_; }
  bool failed() const { return failed_; }

  // A fresh name in temp/ (prefix + run identifier + extension), recorded in the kill
  // list.
  std::filesystem::path temporary_file(std::string_view prefix, std::string_view extension);

  // Makes the driver of mode `index` (1..14); null when the mode is not built yet.
  std::unique_ptr<Module> make_module(int index) const;
  // True when mode `index` (1..14) has a driver.
  bool mode_built(int index) const;

  const ProgramInfo& program() const { return program_; }
  const Folders& folders() const { return folders_; }
  RunFiles& files() { return *files_; }
  ui::Ui& ui() { return ui_; }
  Registry& registry() { return registry_; }
  data::Store& store() { return store_; }
  core::Random& random() { return random_; }
  CommandFiles& command_files() { return command_files_; }

  // The current mode index: 0 before any choice, then 1..14.
  int mode() const { return mode_; }
  void set_mode(int index) { mode_ = index; }

  // The graph view and the data spreadsheet answer that they are not available until
  // their handlers are set; the simulator is absent (null) until it is set.
  CommandHandler& graphics() { return *graphics_; }
  CommandHandler& spreadsheet() { return *spreadsheet_; }
  CommandHandler* simulator() { return simulator_.get(); }
  void set_graphics(std::unique_ptr<CommandHandler> h) { graphics_ = std::move(h); }
  void set_simulator(std::unique_ptr<CommandHandler> h) { simulator_ = std::move(h); }
  void set_spreadsheet(std::unique_ptr<CommandHandler> h) { spreadsheet_ = std::move(h); }

 private:
  ProgramInfo program_;
  Folders folders_;
  std::unique_ptr<RunFiles> files_;
  ui::Ui& ui_;
  const ModuleFactories& modules_;
  Registry registry_;
  core::Random random_;  // the program's one generator, seeded by SEED
  core::Random names_;   // draws the run identifiers of temporary files
  data::Store store_;
  CommandFiles command_files_;
  std::unique_ptr<CommandHandler> graphics_;
  std::unique_ptr<CommandHandler> simulator_;
  std::unique_ptr<CommandHandler> spreadsheet_;
  int mode_ = 0;
  bool exit_requested_ = false;
  bool failed_ = false;
  int failures_ = 0;  // failures reported so far
  bool stop_on_error_ = false;
  bool input_ended_ = false;
  int commands_ = 0;                // commands handed out so far
  int failures_before_last_ = 0;    // failures reported before the last command
  std::string last_command_;        // the last command handed out, with its place
  std::string stop_reason_;
};

}  // namespace tidemark::shell
