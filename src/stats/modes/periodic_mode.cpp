#include "stats/modes/periodic_mode.h"

#include <fmt/format.h>

#include <array>
#include <fstream>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "core/file_replace.h"
#include "core/fortran_format.h"
#include "core/missing.h"
#include "data/conditioner.h"
#include "data/summary_row.h"
#include "shell/command_text.h"
#include "stats/modes/periodic_graph.h"
#include "stats/modes/periodic_report.h"
#include "stats/modes/series_edits.h"
#include "stats/periodic_gls.h"
#include "stats/periodic_harmonics.h"
#include "stats/periodic_significance.h"

namespace tidemark::stats {

namespace {

using shell::ModuleContext;
using shell::Outcome;

constexpr std::string_view kErrorTitle = "Error Reported by Periodic";

// The dialog's fields, in order.
enum Field : int {
  kShortest = 0,
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

// The results kept and their summary-book columns, AQ to BA.
constexpr int kFirstSummaryColumn = 43;
constexpr std::array<std::string_view, 11> kSummaryTitles{
    "Periodic Period",    "Periodic Power",     "Periodic FAP",     "Periodic Permutation FAP",
    "Periodic Harmonics", "Periodic MESOR",     "Periodic Amplitude", "Periodic Acrophase",
    "Periodic Nadir",     "Periodic % Rhythm",  "Periodic P"};
using PeriodicResults = std::array<float, kSummaryTitles.size()>;

double real(const ModuleContext& c, int field) {
  return std::get<double>(c.values[field]);
}
int integer(const ModuleContext& c, int field) {
  return std::get<int>(c.values[field]);
}
bool checked(const ModuleContext& c, int field) {
  return std::get<bool>(c.values[field]);
}

class PeriodicModule : public shell::Module {
 public:
  const ui::Dialog& dialog() const override { return periodic_dialog(); }
  std::string settings_file() const override { return "do_periodic.ini"; }
  std::vector<std::string> prefixes() const override { return {"PERIODIC"}; }

  Outcome calculate(ModuleContext& c) override {
    data::DataSet& set = c.store.current();
    const data::ConditionResult conditioned = data::condition(set, false, c.ui, c.log);
    if (!conditioned.ok) return Outcome::error({conditioned.message});
    const auto first = static_cast<std::size_t>(set.first_point() - 1);
    const auto count = static_cast<std::size_t>(set.last_point()) - first;
    const PeriodicSeries series =
        periodic_series(std::span(set.x()).subspan(first, count), std::span(set.y()).subspan(first, count),
                        std::span(set.dy()).subspan(first, count),
                        std::span(set.reps()).subspan(first, count));
    const bool trend = checked(c, kRemoveTrend);
    const PeriodogramResult periodogram_result =
        periodogram(series, {.min_period = real(c, kShortest),
                             .max_period = real(c, kLongest),
                             .periods = integer(c, kTrialPeriods),
                             .remove_trend = trend});
    if (!periodogram_result.ok()) return fail(c, periodogram_result.message);
    const int cycles = integer(c, kCycles);
    const PeaksResult peaks = periodic_peaks(
        series, periodogram_result, {.peaks = integer(c, kPeaks), .cycles = cycles, .remove_trend = trend},
        c.random);
    if (!peaks.ok()) return fail(c, peaks.message);
    double period = real(c, kPeriod);
    if (core::is_unset(period)) {
      if (peaks.peaks.empty()) return fail(c, "The periodogram has no peak to fit a rhythm at.");
      period = peaks.peaks.front().period;
    }
    HarmonicFitResult fit =
        fit_harmonics(series, {.period = period, .harmonics = integer(c, kHarmonics), .trend = trend});
    const PeriodicReport report{set.file_name, series, periodogram_result, peaks, cycles, fit,
                                checked(c, kClockTimes)};
    core::replace_file(c.listing, periodic_listing(report));
    core::replace_file(c.graph, periodic_graph_source({set, periodogram_result, peaks, fit}));
    c.ui.show_graph(c.graph.string());
    for (const std::string& line : periodic_log_lines(report)) c.log.log(line);
    if (!fit.ok()) {
      show_results(c, best_line(peaks), fit.message);
      return Outcome::error({fit.message});
    }
    std::ofstream(c.answers, std::ios::app) << periodic_answers(report);
    show_results(c, best_line(peaks),
                 "Amplitude =" + core::format_g15_5(fit.amplitude) + " % rhythm =" +
                     core::format_g15_5(fit.percent_rhythm));
    keep(set, peaks, fit);
    fit_ = std::move(fit);
    fit_index_ = c.store.current_index();
    return Outcome::success();
  }

  bool store_results() override { return results_.store(); }
  bool recall_results() override { return results_.recall(); }

  bool handle(std::string_view command, ModuleContext& c) override {
    if (shell::command_is(command, "PERIODIC_SUBTRACT")) {
      subtract(c);
    } else if (shell::command_is(command, "PERIODIC_RESET")) {
      if (!edits_.reset(c.store, c.store.current_index())) {
        ui::report(c.ui, c.log, kErrorTitle, {"There is no subtracted series to reset."});
      } else {
        c.log.log("PERIODIC_RESET: the concentrations of " + c.store.current().file_name +
                  " are restored");
      }
    } else if (shell::command_is(command, "PERIODIC_STORE")) {
      const std::string name = SeriesEdits::store_copy(c.store, "_per");
      c.log.log(fmt::format("PERIODIC_STORE: stored as data set {} ({})", c.store.count(), name));
    } else {
      return false;
    }
    return true;
  }

 private:
  static std::string best_line(const PeaksResult& peaks) {
    if (peaks.peaks.empty()) return "No peak";
    return "Best period =" + core::format_g15_5(peaks.peaks.front().period) +
           " FAP =" + core::format_g15_5(peaks.peaks.front().fap);
  }

  // A refusal before anything was computed: the listing and the log say why.
  static Outcome fail(ModuleContext& c, const std::string& message) {
    core::replace_file(c.listing,
                       "Periodic Rhythm Analysis of " + c.store.current().file_name + "\n\n " +
                           message + "\n");
    c.log.log("PERIODIC: " + message);
    show_results(c, "", message);
    return Outcome::error({message});
  }

  static void show_results(ModuleContext& c, const std::string& best, const std::string& rhythm) {
    c.values[kBestField] = best;
    c.values[kRhythmField] = rhythm;
  }

  void keep(data::DataSet& set, const PeaksResult& peaks, const HarmonicFitResult& fit) {
    const bool peak = !peaks.peaks.empty();
    const PeriodicPeak best = peak ? peaks.peaks.front() : PeriodicPeak{};
    const auto value = [peak](double v) { return static_cast<float>(peak ? v : core::kMissing); };
    const PeriodicResults results{
        static_cast<float>(fit.period),  value(best.power), value(best.fap),
        value(best.permutation_fap),     static_cast<float>(fit.harmonics),
        static_cast<float>(fit.mesor),   static_cast<float>(fit.amplitude),
        static_cast<float>(fit.acrophase), static_cast<float>(fit.nadir),
        static_cast<float>(fit.percent_rhythm), static_cast<float>(fit.p_value)};
    for (std::size_t j = 0; j < results.size(); ++j) {
      set.summary[data::column_letters(kFirstSummaryColumn + static_cast<int>(j))] = {
          std::string(kSummaryTitles[j]), results[j]};
    }
    results_.current = results;
  }

  void subtract(ModuleContext& c) {
    if (!fit_ || fit_index_ != c.store.current_index()) {
      return ui::report(c.ui, c.log, kErrorTitle,
                        {"There is no fitted rhythm of this data set to subtract: run "
                         "PERIODIC_CALCULATE on it first."});
    }
    const HarmonicFitResult& fit = *fit_;
    edits_.subtract(c.store, fit_index_, [&fit](std::span<const float> x, std::span<float> y) {
      subtract_rhythm(fit, x, y);
    });
    c.log.log("PERIODIC_SUBTRACT: the data set " + c.store.current().file_name + " is modified");
  }

  std::optional<HarmonicFitResult> fit_;
  int fit_index_ = -1;
  SeriesEdits edits_;
  shell::KeptResults<PeriodicResults> results_;
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

std::unique_ptr<shell::Module> make_periodic_module(int) {
  return std::make_unique<PeriodicModule>();
}

}  // namespace tidemark::stats
