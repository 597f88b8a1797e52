#pragma once
// What an analysis mode gives the module frame, and what it gets back. A mode describes
// its dialog as data and supplies its computation; the frame does the rest (settings
// file, SET, the command order, the output path of listing, graph, answers, log lines,
// summary-book row and secretion events, store and recall, view, print and copy of the
// listing). docs/architecture.md shows a whole mode.
#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "core/random.h"
#include "data/store.h"
#include "shell/mode_output.h"
#include "shell/modes.h"
#include "ui/dialog.h"
#include "ui/log_sink.h"
#include "ui/ui.h"

namespace tidemark::shell {

// What a computation may use: the data sets, the dialog's values (one per field, in
// field order), the mode's fix file, the log for lines written while it runs (the data
// conditioner's), the user interface for progress and the program's generator.
//
// A mode names its fields by one enum in dialog order and reads them with value():
//   enum Field { kHalfLife, kSecretionSd, kKernel };
//   const double half_life = c.value<double>(kHalfLife);
//
// A mode may write `values` back: a fit's results as the next starting values, its
// read-only result fields. The frame then shows the dialog's new values, and they hold
// until the user sets a field or the mode writes it again.
struct ModuleContext {
  std::string_view mode_name;
  data::Store& store;
  std::vector<ui::FieldValue>& values;
  const std::filesystem::path& fix;  // temp/FIX_<id>.fix
  ui::LogSink& log;
  ui::Ui& ui;
  core::Random& random;

  // The value of dialog field `field` as the field's kind holds it (double, int, bool
  // or std::string; see ui::FieldValue).
  template <typename T, typename Field>
  T& value(Field field) {
    return std::get<T>(values[static_cast<std::size_t>(field)]);
  }

  // Set when a command of the mode's own was refused: the frame then counts the command
  // as failed, as a refused frame command is (the run's exit status).
  bool refused = false;

  // Refuses a command of the mode's own: shows and logs the message, titled `title`.
  void refuse(std::string_view title, const std::vector<std::string>& lines) {
    ui::report(ui, log, title, lines);
    refused = true;
  }
};

// How a calculation ended.
enum class ModeStatus {
  kDone,
  kFailed,  // `message` says why; the output still goes out (a failed fit's listing)
};

// What a calculation gives back: its status, the error's lines (shown titled
// "Error Reported by " + mode name) and what it produced, which the frame writes out in
// both cases.
struct ModeResult {
  ModeStatus status = ModeStatus::kDone;
  std::vector<std::string> message;
  ModeOutput output;

  bool ok() const { return status == ModeStatus::kDone; }

  static ModeResult done(ModeOutput output) { return {ModeStatus::kDone, {}, std::move(output)}; }
  static ModeResult failed(std::vector<std::string> lines, ModeOutput output = {}) {
    return {ModeStatus::kFailed, std::move(lines), std::move(output)};
  }
};

class Module {
 public:
  virtual ~Module() = default;

  // The mode's dialog: title and typed fields with their defaults.
  virtual const ui::Dialog& dialog() const = 0;
  // The settings file in system/ ("do_cluster.ini"); empty for none.
  virtual std::string settings_file() const = 0;
  // The prefix of the fix file's name ("pul_FIX_" for the Pulse family).
  virtual std::string fix_prefix() const { return "FIX_"; }
  // The title of the box of a failed calculation when the mode has one of its own
  // ("CLUSTER8 ERROR"); its first line is then "Error Reported by " + mode name. Empty:
  // the box is titled "Error Reported by " + mode name.
  virtual std::string error_box_title() const { return {}; }

  // Runs the computation on the selected data set(s) and gives back what it produced;
  // writes no file itself.
  virtual ModeResult calculate(ModuleContext& context) = 0;

  // A command of the mode beyond the frame's own; false when it is not one. A mode with
  // commands of its own dispatches them through a table (shell/command_table.h).
  virtual bool handle(std::string_view, ModuleContext&) { return false; }
};

// Makes the driver of one mode; the argument is the mode's variant flag.
using ModuleFactory = std::function<std::unique_ptr<Module>(int variant)>;

// One factory per mode, in menu order; an empty factory is a mode not built yet.
using ModuleFactories = std::array<ModuleFactory, kModeCount>;

// Registers `factory` as the driver of the mode whose menu name is `name` ("Cosine").
// A name that is no mode's is a fault of the program: it throws std::invalid_argument.
void register_mode(ModuleFactories& modes, std::string_view name, ModuleFactory factory);

}  // namespace tidemark::shell
