#include "shell/module_frame.h"

#include <filesystem>
#include <string>

#include "core/file_replace.h"
#include "core/text.h"
#include "shell/command_text.h"
#include "shell/file_ops.h"
#include "shell/run_file_commands.h"
#include "shell/settings_file.h"
#include "shell/shared_handler.h"

namespace tidemark::shell {

namespace fs = std::filesystem;

namespace {

// The driver of a mode that is not built yet: no fields, no settings, and a computation
// that says so.
class UnavailableModule : public Module {
 public:
  explicit UnavailableModule(const ModeInfo& info)
      : dialog_{std::string(info.name), {}}, prefix_(info.prefix) {}
  const ui::Dialog& dialog() const override { return dialog_; }
  std::string settings_file() const override { return {}; }
  std::vector<std::string> prefixes() const override { return {prefix_}; }
  Outcome calculate(ModuleContext&) override {
    return Outcome::error({"The " + dialog_.title + " mode is not available in this version."});
  }
  bool store_results() override { return false; }
  bool recall_results() override { return false; }

 private:
  ui::Dialog dialog_;
  std::string prefix_;
};

// The mode's dialog with the frame's standard buttons and the commands they issue.
ui::Dialog with_buttons(const ui::Dialog& dialog, const std::vector<std::string>& prefixes) {
  ui::Dialog shown = dialog;
  const std::string prefix = prefixes.empty() ? std::string() : core::to_upper(prefixes.front());
  shown.buttons = {{"Calculate", prefix + "_CALCULATE"},
                   {"View Results", prefix + "_VIEW"},
                   {"Print Results", prefix + "_PRINT"},
                   {"Store Results", "STORE_RESULTS"},
                   {"Recall Results", "RECALL_RESULTS"},
                   {"Save Parameters as Default", "SAVE_PARAMETERS"},
                   {"OK", "TEMP_CLOSE"}};
  return shown;
}

class Frame {
 public:
  Frame(Session& session, int index, std::unique_ptr<Module> module)
      : session_(session),
        index_(index),
        name_(mode_info(index).name),
        module_(std::move(module)),
        shown_(with_buttons(module_->dialog(), module_->prefixes())),
        listing_(session.temporary_file("LIST_", ".lst")),
        fix_(session.temporary_file(module_->fix_prefix(), ".fix")),
        values_(ui::default_values(module_->dialog())) {
    if (!module_->settings_file().empty()) {
      settings_ = session.folders().system / module_->settings_file();
      if (auto kept = read_settings(settings_, module_->dialog())) {
        values_ = std::move(kept->values);
        for (const std::string& ignored : kept->ignored) {
          session.files().log("Settings file " + settings_.string() + ": " + ignored);
        }
      }
    }
  }

  void run() {
    record_starting_values();
    session_.ui().show_dialog(shown_, values_);
    while (!session_.exit_requested() && session_.mode() == index_ && !session_.store().empty()) {
      const auto command = session_.next_command();
      if (!command) {
        session_.request_exit();
        break;
      }
      if (!handle_shared_command(*command, session_) && !handle_own(*command)) {
        session_.ignore(*command);
      }
    }
    session_.ui().close_dialog();
  }

 private:
  std::string error_title() const { return "Error Reported by " + name_; }

  ModuleContext context() {
    return {name_,
            session_.store(),
            values_,
            listing_,
            fix_,
            session_.files().answers_path(),
            session_.files().graph_path(),
            session_.files(),
            session_.ui(),
            session_.random()};
  }

  // The button command `suffix` ("_CALCULATE") of one of the mode's prefixes.
  bool is_button(std::string_view command, std::string_view suffix) const {
    for (const std::string& prefix : module_->prefixes()) {
      if (command_is(command, prefix + std::string(suffix))) return true;
    }
    return false;
  }

  bool handle_own(std::string_view command) {
    if (command_is(command, "SET")) {
      set_field(command);
    } else if (command_is(command, "SAVE_PARAMETERS")) {
      save_parameters(command);
    } else if (is_button(command, "_CALCULATE")) {
      calculate(command);
    } else if (is_button(command, "_PRINT")) {
      if (listing_ready(command)) print_command(session_, command, listing_, "LST");
    } else if (is_button(command, "_VIEW")) {
      view(command);
    } else if (command_is(command, "STORE_RESULTS")) {
      keep(command, module_->store_results(), "Current Results Stored",
           "There are no current results to store.");
    } else if (command_is(command, "RECALL_RESULTS")) {
      keep(command, module_->recall_results(), "Current Results Recalled",
           "No results have been stored.");
    } else if (command_is(command, "DIALOG")) {
      session_.ui().show_text(shown_.title, ui::dialog_text(shown_, values_));
      session_.carried_out(core::trim(command), {});
    } else if (command_is(command, "TEMP_CLOSE")) {
      session_.ui().close_dialog();
      session_.carried_out(core::trim(command), {});
    } else if (command_is(command, "COPY_LST") || command_is(command, "SAVE_AS_LST")) {
      const std::string_view name = command_is(command, "COPY_LST") ? "COPY_LST" : "SAVE_AS_LST";
      copy_command(session_, command, name, listing_, "LST",
                   {"Select a name for the LST file",
                    "Listing Files (*.lst)|*.lst|All Files (*.*)|*.*|",
                    {},
                    true});
    } else {
      // A command of the mode's own goes to the history like the buttons' commands, so
      // that a replay takes the same steps.
      const std::vector<ui::FieldValue> before = values_;
      ModuleContext c = context();
      const bool handled = module_->handle(command, c);
      show_written_fields(before);
      if (!handled) return false;
      session_.carried_out(core::trim(command), {});
    }
    return true;
  }

  // Shows the dialog again when the mode wrote fields back.
  void show_written_fields(const std::vector<ui::FieldValue>& before) {
    if (values_ != before) session_.ui().update_dialog(shown_, values_);
  }

  // The history gets the value of every field the mode starts with, whether it came
  // from the settings file or the defaults, so that a replay in another program folder,
  // with other saved settings or none, calculates with the same values.
  void record_starting_values() {
    const ui::Dialog& dialog = module_->dialog();
    for (std::size_t i = 0; i < dialog.fields.size(); ++i) {
      if (!dialog.fields[i].read_only) session_.carried_out(set_line(i), {});
    }
  }

  std::string set_line(std::size_t index) const {
    const ui::Field& field = module_->dialog().fields[index];
    return "SET " + field.label + " = " + ui::format_field_value(field, values_[index]);
  }

  void set_field(std::string_view command) {
    const auto assignment = split_assignment(command_argument(command, "SET"));
    if (!assignment) return session_.ignore(command);
    const std::string problem = assign_field(module_->dialog(), *assignment, values_);
    if (!problem.empty()) return session_.error(error_title(), {problem});
    const std::string line = set_line(*module_->dialog().find(assignment->label));
    session_.carried_out(line, line);
  }

  void save_parameters(std::string_view command) {
    if (settings_.empty()) return session_.ignore(command);
    const auto written = core::replace_file(settings_, settings_text(module_->dialog(), values_));
    if (!written.ok) return session_.error(error_title(), {written.message});
    session_.carried_out(core::trim(command),
                         "Parameters saved as default in " + settings_.string());
  }

  // A calculation that reports an error is still recorded: it may have changed the data
  // set (the conditioner's inserted points) or written a listing, and a replay must take
  // the same step.
  void calculate(std::string_view command) {
    const std::vector<ui::FieldValue> before = values_;
    ModuleContext c = context();
    const Outcome outcome = module_->calculate(c);
    show_written_fields(before);
    session_.carried_out(core::trim(command), core::to_upper(core::trim(command)));
    if (!outcome.ok) session_.error(error_title(), outcome.messages);
  }

  bool listing_ready(std::string_view command) {
    std::error_code ec;
    if (fs::exists(listing_, ec)) return true;
    session_.error(error_title(), {"There are no results yet: nothing to show for " +
                                   std::string(core::trim(command))});
    return false;
  }

  void view(std::string_view command) {
    std::string text;
    if (!listing_ready(command)) return;
    if (!read_file(listing_, text))
      return session_.error(error_title(), {"Could not read the listing " + listing_.string()});
    session_.ui().show_text(name_, text);
    session_.carried_out(core::trim(command), {});
  }

  void keep(std::string_view command, bool done, const std::string& confirmation,
            const std::string& refusal) {
    if (!done) return session_.error(name_, {refusal});
    session_.inform(name_, {confirmation});
    session_.carried_out(core::trim(command), {});
  }

  Session& session_;
  int index_;
  std::string name_;
  std::unique_ptr<Module> module_;
  ui::Dialog shown_;  // the mode's dialog with the standard buttons
  fs::path listing_;
  fs::path fix_;
  fs::path settings_;
  std::vector<ui::FieldValue> values_;
};

}  // namespace

void run_module_frame(Session& session, int index) {
  auto module = session.make_module(index);
  if (!module) module = std::make_unique<UnavailableModule>(mode_info(index));
  Frame(session, index, std::move(module)).run();
}

}  // namespace tidemark::shell
