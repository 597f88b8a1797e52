#pragma once
// What an analysis mode gives the module frame. A mode describes its dialog as data and
// supplies its computation; the frame does the rest (settings file, SET, the command
// order, listing and fix files, store and recall, view, print and copy of the listing).
#include <array>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/random.h"
#include "data/store.h"
#include "shell/modes.h"
#include "ui/dialog.h"
#include "ui/log_sink.h"
#include "ui/ui.h"

namespace tidemark::shell {

// What a computation may use: the data sets, the dialog's values (one per field, in
// field order), the mode's temporary files and the run's answers and graph files.
//
// A mode may write `values` back: a fit's results as the next starting values, its
// read-only result fields. The frame then shows the dialog's new values, and they hold
// until the user sets a field or the mode writes it again.
struct ModuleContext {
  std::string_view mode_name;
  data::Store& store;
  std::vector<ui::FieldValue>& values;
  const std::filesystem::path& listing;  // temp/LIST_<id>.lst
  const std::filesystem::path& fix;      // temp/FIX_<id>.fix
  const std::filesystem::path& answers;  // the run's BST_<id>.BST
  const std::filesystem::path& graph;    // the run's GRF_<id>.grf
  ui::LogSink& log;
  ui::Ui& ui;
  core::Random& random;
};

// How a computation ended: ok, or the lines of the error message that the frame shows
// titled "Error Reported by " + mode name.
struct Outcome {
  bool ok = true;
  std::vector<std::string> messages;

  static Outcome success() { return {}; }
  static Outcome error(std::vector<std::string> lines) { return {false, std::move(lines)}; }
};

class Module {
 public:
  virtual ~Module() = default;

  // The mode's dialog: title and typed fields with their defaults.
  virtual const ui::Dialog& dialog() const = 0;
  // The settings file in system/ ("do_cluster.ini"); empty for none.
  virtual std::string settings_file() const = 0;
  // The prefixes of the mode's button commands without the "_" ("CLUSTER" for
  // CLUSTER_CALCULATE, CLUSTER_PRINT and CLUSTER_VIEW). Letter case does not matter.
  virtual std::vector<std::string> prefixes() const = 0;
  // The prefix of the fix file's name ("pul_FIX_" for the Pulse family).
  virtual std::string fix_prefix() const { return "FIX_"; }

  // Runs the computation on the selected data set(s): writes the listing, log lines,
  // answers and graph, and keeps the results as the current ones.
  virtual Outcome calculate(ModuleContext& context) = 0;

  // Keeps the current results aside, or brings the kept ones back as current; false
  // when there is nothing to keep or nothing kept.
  virtual bool store_results() = 0;
  virtual bool recall_results() = 0;

  // A command of the mode beyond the frame's own; false when it is not one.
  virtual bool handle(std::string_view, ModuleContext&) { return false; }
};

// The results of a mode's last calculation and the set kept aside by STORE_RESULTS, which
// RECALL_RESULTS brings back as current.
template <typename Result>
class KeptResults {
 public:
  std::optional<Result> current;  // empty until a calculation succeeds

  // Keeps the current results aside; false when there are none.
  bool store() {
    if (!current) return false;
    kept_ = current;
    return true;
  }
  // Makes the kept results current; false when none were kept.
  bool recall() {
    if (!kept_) return false;
    current = kept_;
    return true;
  }

 private:
  std::optional<Result> kept_;
};

// Makes the driver of one mode; the argument is the mode's variant flag.
using ModuleFactory = std::function<std::unique_ptr<Module>(int variant)>;

// One factory per mode, in menu order; an empty factory is a mode not built yet.
using ModuleFactories = std::array<ModuleFactory, kModeCount>;

}  // namespace tidemark::shell
