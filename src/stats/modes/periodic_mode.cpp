#include "stats/modes/periodic_mode.h"

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
#include "shell/command_table.h"
#include "stats/modes/periodic_graph.h"
#include "stats/modes/periodic_report.h"
#include "stats/modes/series_edits.h"
#include "stats/periodic_gls.h"
#include "stats/periodic_harmonics.h"
#include "stats/periodic_significance.h"
#include "ui/work_progress.h"

namespace tidemark::stats {

namespace {

using shell::ModeResult;
using shell::ModuleContext;

constexpr std::string_view kErrorTitle = "Error Reported by Periodic";

// The dialog's fields, in dialog order (periodic_dialog).
enum Field {
  kShortest,
  kLongest,
  kTrialPeriods,
  kRemoveTrend,
  kPeaks,
  kCycles,
  kHarmonics,
  kPeriod,
  kClockTimes,
  kBestField,
  kRhythmField,
};

// The results kept in the summary book, in columns BN to BX.
constexpr int kFirstSummaryColumn = 66;
constexpr std::array<std::string_view, 11> kSummaryTitles{
    "Periodic Period",    "Periodic Power",     "Periodic FAP",     "Periodic Permutation FAP",
    "Periodic Harmonics", "Periodic MESOR",     "Periodic Amplitude", "Periodic Acrophase",
    "Periodic Nadir",     "Periodic % Rhythm",  "Periodic P"};

std::string best_line(const PeaksResult& peaks) {
  if (peaks.peaks.empty()) return "No peak";
  return "Best period =" + core::format_g15_5(peaks.peaks.front().period) +
         " FAP =" + core::format_g15_5(peaks.peaks.front().fap);
}

void show_results(ModuleContext& c, const std::string& best, const std::string& rhythm) {
  c.values[kBestField] = best;
  c.values[kRhythmField] = rhythm;
}

// A refusal before anything was computed: the listing and the log say why.
ModeResult refusal(ModuleContext& c, const std::string& message) {
  show_results(c, "", message);
  return ModeResult::failed(
      {message},
      {.listing = "Periodic Rhythm Analysis of " + c.store.current().file_name + "\n\n " + message +
                  "\n",
       .log_lines = {"PERIODIC: " + message}});
}

// The fit's results in the summary book's columns BN to BX; the peak's columns are
// missing when the periodogram had none.
data::SummaryRow summary_cells(const PeaksResult& peaks, const HarmonicFitResult& fit) {
  const bool peak = !peaks.peaks.empty();
  const PeriodicPeak best = peak ? peaks.peaks.front() : PeriodicPeak{};
  const auto of_peak = [peak](double v) { return peak ? v : core::kMissing; };
  const std::array<double, kSummaryTitles.size()> values{
      fit.period,    of_peak(best.power), of_peak(best.fap), of_peak(best.permutation_fap),
      static_cast<double>(fit.harmonics), fit.mesor,           fit.amplitude,     fit.acrophase,
      fit.nadir,     fit.percent_rhythm,  fit.p_value};
  data::SummaryRow row;
  for (std::size_t j = 0; j < values.size(); ++j) {
    row[data::column_letters(kFirstSummaryColumn + static_cast<int>(j))] = {
        std::string(kSummaryTitles[j]), static_cast<float>(values[j])};
  }
  return row;
}

// The series of the current data set's crop range.
PeriodicSeries crop_series(const data::DataSet& set) {
  const auto first = static_cast<std::size_t>(set.first_point() - 1);
  const auto count = static_cast<std::size_t>(set.last_point()) - first;
  return periodic_series(std::span(set.x()).subspan(first, count),
                         std::span(set.y()).subspan(first, count),
                         std::span(set.dy()).subspan(first, count),
                         std::span(set.reps()).subspan(first, count));
}

class PeriodicMode : public shell::Module {
 public:
  const ui::Dialog& dialog() const override { return periodic_dialog(); }
  std::string settings_file() const override { return "do_periodic.ini"; }

  ModeResult calculate(ModuleContext& c) override {
    data::DataSet& set = c.store.current();
    const data::ConditionResult conditioned = data::condition(set, false, c.ui, c.log);
    if (!conditioned.ok()) return ModeResult::failed({conditioned.message});
    const PeriodicSeries series = crop_series(set);
    const bool trend = c.value<bool>(kRemoveTrend);
    const PeriodogramResult periodogram_result =
        periodogram(series, {.min_period = c.value<double>(kShortest),
                             .max_period = c.value<double>(kLongest),
                             .periods = c.value<int>(kTrialPeriods),
                             .remove_trend = trend});
    if (!periodogram_result.ok()) return refusal(c, periodogram_result.message);
    const int cycles = c.value<int>(kCycles);
    auto progress = c.ui.progress("Periodic permutation cycles");
    const PeaksResult peaks =
        periodic_peaks(series, periodogram_result,
                       {.peaks = c.value<int>(kPeaks),
                        .cycles = cycles,
                        .remove_trend = trend,
                        .parallel = {.progress = ui::report_to(progress.get())}},
                       c.random);
    progress.reset();
    if (peaks.status == PeriodicStatus::kCancelled) return ModeResult::failed({peaks.message});
    if (!peaks.ok()) return refusal(c, peaks.message);
    double period = c.value<double>(kPeriod);
    if (core::is_unset(period)) {
      if (peaks.peaks.empty()) return refusal(c, "The periodogram has no peak to fit a rhythm at.");
      period = peaks.peaks.front().period;
    }
    HarmonicFitResult fit = fit_harmonics(
        series, {.period = period, .harmonics = c.value<int>(kHarmonics), .trend = trend});
    const PeriodicReport report{set.file_name, series, periodogram_result, peaks, cycles, fit,
                                c.value<bool>(kClockTimes)};
    shell::ModeOutput output{.listing = periodic_listing(report),
                             .graph = periodic_graph_source({set, periodogram_result, peaks, fit}),
                             .log_lines = periodic_log_lines(report)};
    if (!fit.ok()) {
      show_results(c, best_line(peaks), fit.message);
      return ModeResult::failed({fit.message}, std::move(output));
    }
    output.answers = periodic_answers(report);
    output.summary = summary_cells(peaks, fit);
    show_results(c, best_line(peaks),
                 "Amplitude =" + core::format_g15_5(fit.amplitude) +
                     " % rhythm =" + core::format_g15_5(fit.percent_rhythm));
    fit_ = std::move(fit);
    fit_index_ = c.store.current_index();
    return ModeResult::done(std::move(output));
  }

  bool handle(std::string_view command, ModuleContext& c) override {
    using Command = shell::NamedCommand<PeriodicMode, ModuleContext>;
    static constexpr std::array<Command, 3> kCommands{{
        {"PERIODIC_SUBTRACT",
         [](std::string_view, PeriodicMode& m, ModuleContext& mc) { m.subtract(mc); }},
        {"PERIODIC_RESET",
         [](std::string_view, PeriodicMode& m, ModuleContext& mc) { m.reset(mc); }},
        {"PERIODIC_STORE",
         [](std::string_view, PeriodicMode&, ModuleContext& mc) { store_copy(mc); }},
    }};
    return shell::dispatch(kCommands, command, *this, c);
  }

 private:
  // Takes the last fit's harmonics out of the data set it was fitted on.
  void subtract(ModuleContext& c) {
    if (!fit_ || fit_index_ != c.store.current_index()) {
      return c.refuse(kErrorTitle,
                        {"There is no fitted rhythm of this data set to subtract: run "
                         "PERIODIC_CALCULATE on it first."});
    }
    const HarmonicFitResult& fit = *fit_;
    edits_.subtract(c.store, fit_index_, [&fit](std::span<const float> x, std::span<float> y) {
      subtract_rhythm(fit, x, y);
    });
    c.log.log("PERIODIC_SUBTRACT: the data set " + c.store.current().file_name + " is modified");
  }

  void reset(ModuleContext& c) {
    if (!edits_.reset(c.store, c.store.current_index())) {
      return c.refuse(kErrorTitle, {"There is no subtracted series to reset."});
    }
    c.log.log("PERIODIC_RESET: the concentrations of " + c.store.current().file_name +
              " are restored");
  }

  static void store_copy(ModuleContext& c) {
    const std::string name = SeriesEdits::store_copy(c.store, "_per");
    c.log.log(fmt::format("PERIODIC_STORE: stored as data set {} ({})", c.store.count(), name));
  }

  // The last successful fit and its data set, for PERIODIC_SUBTRACT.
  std::optional<HarmonicFitResult> fit_;
  int fit_index_ = -1;
  SeriesEdits edits_;
};

}  // namespace

const ui::Dialog& periodic_dialog() {
  using ui::FieldKind;
  static const ui::Dialog dialog{
      "Periodic Rhythm Analysis",
      {{"Shortest Period", FieldKind::kReal, "-1.0E30", "Periodogram", {}},
       {"Longest Period", FieldKind::kReal, "-1.0E30", "Periodogram", {}},
       {"Trial Periods", FieldKind::kInteger, "0", "Periodogram", {}},
       {"Remove Trend", FieldKind::kCheck, "OFF", "Periodogram", {}},
       {"Number of Peaks", FieldKind::kInteger, "5", "Significance", {}},
       {"Permutation Cycles", FieldKind::kInteger, "1000", "Significance", {}},
       {"Harmonics", FieldKind::kInteger, "1", "Rhythm Fit", {}},
       {"Period", FieldKind::kReal, "-1.0E30", "Rhythm Fit", {}},
       {"Clock Times", FieldKind::kCheck, "OFF", "Rhythm Fit", {}},
       {"Best Period", FieldKind::kText, "", "Results", {}, true},
       {"Rhythm", FieldKind::kText, "", "Results", {}, true}}};
  return dialog;
}

std::unique_ptr<shell::Module> make_periodic_mode() {
  return std::make_unique<PeriodicMode>();
}

}  // namespace tidemark::stats
