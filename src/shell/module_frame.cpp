#include "shell/module_frame.h"

#include <array>
#include <filesystem>
#include <string>

#include "core/file_replace.h"
#include "core/text.h"
#include "shell/command_table.h"
#include "shell/command_text.h"
#include "shell/file_ops.h"
#include "shell/kept_results.h"
#include "shell/run_file_commands.h"
#include "shell/shown_results.h"
#include "shell/settings_file.h"
#include "shell/shared_handler.h"

namespace tidemark::shell {

namespace fs = std::filesystem;

namespace {

// The driver of a mode that is not built yet: no fields, no settings, and a computation
// that says so.
class UnavailableModule : public Module {
 public:
  explicit UnavailableModule(const ModeInfo& info) : dialog_{std::string(info.name), {}} {}
  const ui::Dialog& dialog() const override { return dialog_; }
  std::string settings_file() const override { return {}; }
  ModeResult calculate(ModuleContext&) override {
    return ModeResult::failed({"The " + dialog_.title + " mode is not available in this version."});
  }

 private:
  ui::Dialog dialog_;
};

// The mode's dialog with the frame's standard buttons and the commands they issue.
ui::Dialog with_buttons(const ui::Dialog& dialog, const std::string& prefix) {
  ui::Dialog shown = dialog;
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
        prefix_(mode_info(index).prefix),
        alias_(mode_info(index).alias.empty() ? prefix_ : std::string(mode_info(index).alias)),
        calculate_(prefix_ + "_CALCULATE"),
        print_(prefix_ + "_PRINT"),
        view_(prefix_ + "_VIEW"),
        alias_calculate_(alias_ + "_CALCULATE"),
        alias_print_(alias_ + "_PRINT"),
        alias_view_(alias_ + "_VIEW"),
        module_(std::move(module)),
        shown_(with_buttons(module_->dialog(), prefix_)),
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
      note_earlier_results(*command);
      if (!handle_shared_command(*command, session_) && !handle_own(*command)) {
        session_.ignore(*command);
      }
    }
    session_.ui().close_dialog();
  }

 private:
  using Command = NamedCommand<Frame>;

  // The frame's commands, in the order they are tried; the buttons' names begin with
  // the mode's prefix from the mode table, or with its alias.
  std::array<Command, 14> commands() const {
    return {{
        {"SET", [](std::string_view c, Frame& f) { f.set_field(c); }},
        {"SAVE_PARAMETERS", [](std::string_view c, Frame& f) { f.save_parameters(c); }},
        {calculate_, [](std::string_view c, Frame& f) { f.calculate(c); }},
        {print_, [](std::string_view c, Frame& f) { f.print(c); }},
        {view_, [](std::string_view c, Frame& f) { f.view(c); }},
        {alias_calculate_, [](std::string_view c, Frame& f) { f.calculate(c); }},
        {alias_print_, [](std::string_view c, Frame& f) { f.print(c); }},
        {alias_view_, [](std::string_view c, Frame& f) { f.view(c); }},
        {"STORE_RESULTS", [](std::string_view c, Frame& f) { f.store_results(c); }},
        {"RECALL_RESULTS", [](std::string_view c, Frame& f) { f.recall_results(c); }},
        {"TEMP_CLOSE", [](std::string_view c, Frame& f) { f.close(c); }},
        {"DIALOG", [](std::string_view c, Frame& f) { f.show_dialog_text(c); }},
        {"COPY_LST", [](std::string_view c, Frame& f) { f.copy_listing(c, "COPY_LST"); }},
        {"SAVE_AS_LST", [](std::string_view c, Frame& f) { f.copy_listing(c, "SAVE_AS_LST"); }},
    }};
  }

  // DIALOG: the dialog as text (title, fields with labels, values and kinds, buttons).
  void show_dialog_text(std::string_view command) {
    session_.ui().show_text(shown_.title, ui::dialog_text(shown_, values_));
    session_.carried_out(core::trim(command), {});
  }

  std::string error_title() const { return "Error Reported by " + name_; }

  ModuleContext context() {
    return {name_,         session_.store(), values_, fix_, session_.files(),
            session_.ui(), session_.random()};
  }

  OutputTargets targets(data::DataSet* data_set) {
    return {listing_,
            session_.files().graph_path(),
            session_.files().answers_path(),
            data_set,
            session_.files(),
            session_.ui()};
  }

  bool handle_own(std::string_view command) {
    if (dispatch(commands(), command, *this)) return true;
    // A command of the mode's own goes to the history like the buttons' commands, so
    // that a replay takes the same steps.
    const std::vector<ui::FieldValue> before = values_;
    ModuleContext c = context();
    const bool handled = module_->handle(command, c);
    show_written_fields(before);
    if (!handled) return false;
    session_.carried_out(core::trim(command), {});
    if (c.refused) session_.note_failure();
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
    const auto assignment = split_assignment(command_argument(command, "SET"), module_->dialog());
    if (!assignment) return session_.ignore(command);
    const std::string problem = assign_field(module_->dialog(), *assignment, values_);
    if (!problem.empty()) return session_.error(error_title(), {problem});
    const std::string line = set_line(*module_->dialog().find(assignment->label));
    session_.carried_out(line, line);
  }

  void save_parameters(std::string_view command) {
    if (settings_.empty()) return session_.ignore(command);
    const auto written = core::replace_file(settings_, settings_text(module_->dialog(), values_));
    if (!written.ok()) return session_.error(error_title(), {written.message});
    session_.carried_out(core::trim(command),
                         "Parameters saved as default in " + settings_.string());
  }

  // Runs the calculation and writes what it produced through the output path. A
  // calculation that reports an error is still recorded: it may have changed the data
  // set (the conditioner's inserted points) or written a listing, and a replay must take
  // the same step.
  void calculate(std::string_view command) {
    const std::vector<ui::FieldValue> before = values_;
    ModuleContext c = context();
    const ModeResult result = module_->calculate(c);
    const int set = result.output.data_set.value_or(session_.store().current_index());
    const OutputResult written = write_output(result.output, targets(&session_.store().at(set)));
    on_show_.calculated(result.ok(), result.output, session_.store().at(set).file_name);
    results_.take(result.output, session_.store(), set, values_);
    show_written_fields(before);
    session_.carried_out(core::trim(command), core::to_upper(core::trim(command)));
    if (!result.ok()) report_failure(result.message);
    if (!written.ok()) session_.error(error_title(), written.message);
  }

  // The box of a failed calculation: the mode's own title with "Error Reported by " +
  // mode name as its first line, or that text as the title.
  void report_failure(const std::vector<std::string>& lines) {
    const std::string title = module_->error_box_title();
    if (title.empty()) return session_.error(error_title(), lines);
    std::vector<std::string> shown{error_title()};
    shown.insert(shown.end(), lines.begin(), lines.end());
    session_.error(title, shown);
  }

  bool listing_ready(std::string_view command) {
    std::error_code ec;
    if (fs::exists(listing_, ec)) return true;
    session_.error(error_title(), {"There are no results yet: nothing to show for " +
                                   std::string(core::trim(command))});
    return false;
  }

  void print(std::string_view command) {
    if (listing_ready(command)) print_command(session_, command, listing_, "LST");
  }

  void view(std::string_view command) {
    std::string text;
    if (!listing_ready(command)) return;
    if (!read_file(listing_, text))
      return session_.error(error_title(), {"Could not read the listing " + listing_.string()});
    session_.ui().show_text(name_, text);
    session_.carried_out(core::trim(command), {});
  }

  void store_results(std::string_view command) {
    if (!results_.store()) return session_.error(name_, {"There are no current results to store."});
    session_.inform(name_, {"Current Results Stored"});
    session_.carried_out(core::trim(command), {});
  }

  // Brings the stored results back on show: listing, graph, result fields and what
  // they left on the data set.
  void recall_results(std::string_view command) {
    const std::vector<ui::FieldValue> before = values_;
    const auto written =
        results_.recall(targets(nullptr), session_.store(), module_->dialog(), values_);
    if (!written) return session_.error(name_, {"No results have been stored."});
    on_show_.recalled(results_.shown_set_name());
    show_written_fields(before);
    session_.inform(name_, {"Current Results Recalled"});
    session_.carried_out(core::trim(command), {});
    if (!written->ok()) session_.error(error_title(), written->message);
  }

  // A copy or export of the listing or graph that an earlier calculation left on show,
  // after the last calculation failed, says whose results they are before it goes on.
  void note_earlier_results(std::string_view command) {
    const std::string line = on_show_.earlier_results_line(command);
    if (!line.empty()) session_.inform(name_, {line});
  }

  void close(std::string_view command) {
    session_.ui().close_dialog();
    session_.carried_out(core::trim(command), {});
  }

  void copy_listing(std::string_view command, std::string_view name) {
    copy_command(session_, command, name, listing_, "LST",
                 {"Select a name for the LST file",
                  "Listing Files (*.lst)|*.lst|All Files (*.*)|*.*|",
                  {},
                  true});
  }

  Session& session_;
  int index_;
  std::string name_;
  std::string prefix_;
  std::string alias_;  // the second prefix, or the prefix again
  std::string calculate_, print_, view_;  // the names of the buttons' commands
  std::string alias_calculate_, alias_print_, alias_view_;
  std::unique_ptr<Module> module_;
  ui::Dialog shown_;  // the mode's dialog with the standard buttons
  fs::path listing_;
  fs::path fix_;
  fs::path settings_;
  std::vector<ui::FieldValue> values_;
  KeptResults results_;
  ShownResults on_show_;  // whose results the listing and graph show
};

}  // namespace

void run_module_frame(Session& session, int index) {
  auto module = session.make_module(index);
  if (!module) module = std::make_unique<UnavailableModule>(mode_info(index));
  Frame(session, index, std::move(module)).run();
}

}  // namespace tidemark::shell
