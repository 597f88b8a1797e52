#include "stats/modes/cosine_mode.h"

#include <fmt/format.h>

#include <array>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "core/fortran_format.h"
#include "core/missing.h"
#include "data/conditioner.h"
#include "data/summary_row.h"
#include "data/variance_model.h"
#include "shell/command_table.h"
#include "stats/cosine_start.h"
#include "stats/modes/cosine_graph.h"
#include "stats/modes/cosine_listing.h"
#include "stats/modes/series_edits.h"
#include "ui/work_progress.h"

namespace tidemark::stats {

namespace {

using shell::ModeResult;
using shell::ModuleContext;

constexpr std::string_view kErrorTitle = "Error Reported by Cosine";
// The dialog's fields, in dialog order (cosine_dialog): the five starting values and
// the five fit flags, each in the engine's parameter order, then the two results.
enum Field {
  kStartPeriod,
  kStartAmplitude,
  kStartPhase,
  kStartMean,
  kStartSlope,
  kFitPeriod,
  kFitAmplitude,
  kFitPhase,
  kFitMean,
  kFitSlope,
  kVariance,
  kRemaining,
};
static_assert(kFitPeriod == static_cast<int>(kStartPeriod) + static_cast<int>(kCosineParameters));
// The results kept in the summary book: the five fitted values and the percentage
// remaining, in columns AK to AP.
constexpr int kFirstSummaryColumn = 37;
constexpr std::array<std::string_view, kCosineParameters + 1> kSummaryTitles{
    "Cosine Period", "Cosine Amplitude", "Cosine Phase",
    "Cosine Mean",   "Cosine Slope",     "Cosine % Remaining"};

// The series of the crop range as Cosine works on it: every point's time, which the
// period scan tries as a period (the points the conditioner inserted included), and the
// points a fit uses, the valid ones (a concentration above 0 and a replicate count other
// than 0, as the conditioner counts them).
struct CosineSeries {
  std::vector<double> times;
  std::vector<double> t, y;
};

CosineSeries cosine_series(const data::DataSet& set) {
  CosineSeries s;
  for (int i = set.first_point() - 1; i < set.last_point(); ++i) {
    s.times.push_back(set.x()[i]);
    if (!data::is_valid_point(set.y()[i], set.reps()[i])) continue;
    s.t.push_back(set.x()[i]);
    s.y.push_back(set.y()[i]);
  }
  return s;
}

double& starting_value(ModuleContext& c, int j) {
  return c.value<double>(kStartPeriod + j);
}

// The fit's results in the summary book's columns AK to AP.
data::SummaryRow summary_cells(const CosineFit& fit) {
  data::SummaryRow row;
  for (int j = 0; j <= kCosineParameters; ++j) {
    const double value = j < kCosineParameters ? fit.values[j] : fit.percent;
    row[data::column_letters(kFirstSummaryColumn + j)] = {std::string(kSummaryTitles[j]),
                                                          static_cast<float>(value)};
  }
  return row;
}

class CosineMode : public shell::Module {
 public:
  const ui::Dialog& dialog() const override { return cosine_dialog(); }
  std::string settings_file() const override { return "do_cosine.ini"; }

  ModeResult calculate(ModuleContext& c) override {
    if (auto problem = prepare(c)) return ModeResult::failed({*problem});
    const CosineFlags flags = read_flags(c);
    const CosineValues start = read_grid(c, flags);
    const CosineFit fit = fit_cosine(series_.t, series_.y, start, flags, start_.reference_variance);
    const data::DataSet& set = c.store.current();
    const bool fitted = fit.engine.ok();
    shell::ModeOutput output{.graph =
                                 cosine_graph_source({set, fit.values, fitted, start_.scan_period,
                                                      start_.scan_percent})};
    if (!fitted) {
      const std::string error = lsfit2_error_line(fit.engine.code);
      output.listing = cosine_error_listing(set.file_name, fit.engine);
      output.log_lines = {error};
      show_results(c, error, "");
      return ModeResult::failed({error, fit.engine.message}, std::move(output));
    }
    output.listing = cosine_listing(set.file_name, fit, flags);
    const std::string variance = cosine_variance_line(fit.engine.variance, fit.engine.points);
    const std::string remaining = cosine_remaining_line(fit.percent);
    output.log_lines = {variance, remaining};
    show_results(c, variance, remaining);
    write_grid(c, fit.values);
    output.summary = summary_cells(fit);
    return ModeResult::done(std::move(output));
  }

  bool handle(std::string_view command, ModuleContext& c) override {
    using Command = shell::NamedCommand<CosineMode, ModuleContext>;
    static constexpr std::array<Command, 3> kCommands{{
        {"COSINE_SUBTRACT",
         [](std::string_view, CosineMode& m, ModuleContext& mc) { m.subtract(mc); }},
        {"COSINE_RESET", [](std::string_view, CosineMode& m, ModuleContext& mc) { m.reset(mc); }},
        {"COSINE_STORE", [](std::string_view, CosineMode&, ModuleContext& mc) { store_copy(mc); }},
    }};
    return shell::dispatch(kCommands, command, *this, c);
  }

 private:
  // Conditions the current data set and takes its usable points. On a data set not
  // seen before it runs the reference fit and the period scan, and puts their defaults
  // into the starting values the user has not set since the mode last wrote them. The
  // problem, when there is one.
  std::optional<std::string> prepare(ModuleContext& c) {
    const data::ConditionResult conditioned =
        data::condition(c.store.current(), false, c.ui, c.log);
    if (!conditioned.ok()) return conditioned.message;
    series_ = cosine_series(c.store.current());
    if (c.store.current_index() != set_index_) {
      auto progress = c.ui.progress("Cosine period scan");
      CosineStart start = start_cosine(series_.t, series_.y, series_.times,
                                       {.progress = ui::report_to(progress.get())});
      if (!start.complete) return std::string("Cosine period scan cancelled.");
      start_ = std::move(start);
      if (!start_.reference.ok()) {
        c.log.log(lsfit2_error_line(start_.reference.code));
        return lsfit2_error_line(start_.reference.code) + ": " + start_.reference.message;
      }
      set_index_ = c.store.current_index();
      CosineValues values{};
      for (int j = 0; j < kCosineParameters; ++j) {
        const double field = starting_value(c, j);
        const bool carried = core::is_unset(field) || field == written_[j];
        values[j] = carried ? start_.defaults[j] : field;
      }
      write_grid(c, values);
    }
    return std::nullopt;
  }

  // The grid's starting values, each logged as it is read with its fit flag; an unset
  // value is the data set's default.
  CosineValues read_grid(ModuleContext& c, const CosineFlags& flags) {
    CosineValues values{};
    for (int j = 0; j < kCosineParameters; ++j) {
      const double field = starting_value(c, j);
      values[j] = core::is_unset(field) ? start_.defaults[j] : field;
      c.log.log(fmt::format("COSINE: {}{} Fit = {}", kCosineNames[j], core::format_g15_5(values[j]),
                            flags[j] ? 1 : 0));
    }
    return values;
  }

  static CosineFlags read_flags(const ModuleContext& c) {
    CosineFlags flags{};
    for (int j = 0; j < kCosineParameters; ++j) flags[j] = std::get<bool>(c.values[kFitPeriod + j]);
    return flags;
  }

  // Puts `values` into the grid's starting values.
  void write_grid(ModuleContext& c, const CosineValues& values) {
    for (int j = 0; j < kCosineParameters; ++j) starting_value(c, j) = values[j];
    written_ = values;
  }

  static void show_results(ModuleContext& c, const std::string& variance,
                           const std::string& remaining) {
    c.values[kVariance] = variance;
    c.values[kRemaining] = remaining;
  }

  void subtract(ModuleContext& c) {
    if (auto problem = prepare(c)) return c.refuse(kErrorTitle, {*problem});
    const CosineValues values = read_grid(c, read_flags(c));
    if (values[kPeriod] > 0) {
      edits_.subtract(c.store, set_index_, [&values](std::span<const float> x, std::span<float> y) {
        subtract_cosine(values, x, y);
      });
    }
    if (c.store.current().modified)
      c.log.log("COSINE_SUBTRACT: the data set " + c.store.current().file_name + " is modified");
  }

  static void store_copy(ModuleContext& c) {
    const std::string name = SeriesEdits::store_copy(c.store, "_cos");
    c.log.log(fmt::format("COSINE_STORE: stored as data set {} ({})", c.store.count(), name));
  }

  void reset(ModuleContext& c) {
    if (!edits_.reset(c.store, c.store.current_index())) {
      return c.refuse(kErrorTitle, {"There is no subtracted series to reset."});
    }
    c.log.log("COSINE_RESET: the concentrations of " + c.store.current().file_name +
              " are restored");
  }

  int set_index_ = -1;
  CosineStart start_;
  CosineSeries series_;
  // The starting values the mode last wrote into the grid; a field that differs from
  // its entry was set by the user since.
  CosineValues written_ = {core::kUnset, core::kUnset, core::kUnset, core::kUnset, core::kUnset};
  SeriesEdits edits_;
};

}  // namespace

const ui::Dialog& cosine_dialog() {
  using ui::FieldKind;
  // The model's caption heads the grid of starting values.
  static const std::string kCaption = "Y=Amplitude*COS[2pi(X-Phase)/Period]+Mean+Slope*X";
  static const ui::Dialog dialog{"Cosine Analysis",
                                 {{"Period", FieldKind::kReal, "-1.0E30", kCaption, {}},
                                  {"Amplitude", FieldKind::kReal, "-1.0E30", kCaption, {}},
                                  {"Phase", FieldKind::kReal, "0", kCaption, {}},
                                  {"Mean", FieldKind::kReal, "-1.0E30", kCaption, {}},
                                  {"Slope", FieldKind::kReal, "0", kCaption, {}},
                                  {"Fit Period", FieldKind::kCheck, "OFF", "Fit", {}},
                                  {"Fit Amplitude", FieldKind::kCheck, "ON", "Fit", {}},
                                  {"Fit Phase", FieldKind::kCheck, "ON", "Fit", {}},
                                  {"Fit Mean", FieldKind::kCheck, "ON", "Fit", {}},
                                  {"Fit Slope", FieldKind::kCheck, "OFF", "Fit", {}},
                                  {"Variance", FieldKind::kText, "", "Results", {}, true},
                                  {"Remaining", FieldKind::kText, "", "Results", {}, true}}};
  return dialog;
}

std::unique_ptr<shell::Module> make_cosine_mode() {
  return std::make_unique<CosineMode>();
}

}  // namespace tidemark::stats
