#include "stats/modes/concordance_mode.h"

#include <fmt/format.h>

#include <algorithm>
#include <optional>

#include "core/missing.h"
#include "data/secretion_events.h"
#include "stats/modes/concordance_graph.h"
#include "stats/modes/concordance_report.h"
#include "stats/modes/concordance_summary.h"
#include "ui/work_progress.h"

namespace tidemark::stats {
namespace {

// The dialog's fields, in dialog order (concordance_dialog).
enum Field { kASeries, kBSeries, kFrom, kTo, kCycles, kADescription, kBDescription, kTable };

const ui::Dialog& concordance_dialog() {
  static const ui::Dialog dialog{
      "Monte-Carlo Concordance",
      {{"A Series", ui::FieldKind::kInteger, "1", "Series", {}},
       {"B Series", ui::FieldKind::kInteger, "2", "Series", {}},
       {"Coincidence From", ui::FieldKind::kReal, "-1.0E30", "Parameters", {}},
       {"Coincidence To", ui::FieldKind::kReal, "-1.0E30", "Parameters", {}},
       {"#MC Cycles", ui::FieldKind::kInteger, "100000", "Parameters", {}},
       {"A Description", ui::FieldKind::kText, "", "Series", {}, true},
       {"B Description", ui::FieldKind::kText, "", "Series", {}, true},
       {"Probability Table",
        ui::FieldKind::kText,
        std::string(kConcordanceGridInitial),
        "Probability Table",
        {},
        true}}};
  return dialog;
}

// The first and last sample time of the crop range of `set`.
TimeRange time_range(const data::DataSet& set) {
  return {set.x()[static_cast<std::size_t>(set.first_point() - 1)],
          set.x()[static_cast<std::size_t>(set.last_point() - 1)]};
}

// Points of the crop range of `set`.
int cropped_points(const data::DataSet& set) {
  return set.size() == 0 ? 0 : set.last_point() - set.first_point() + 1;
}

// The series as the concordance sees it: its crop range, and the events that lie within
// the crop range's first and last sample times.
ConcordanceSeries describe(const data::DataSet& set) {
  ConcordanceSeries s{set.file_name, cropped_points(set), {}};
  const TimeRange range = time_range(set);
  for (const auto& e : data::secretion_events(set)) {
    if (e.position >= range.first && e.position <= range.last) s.events.push_back(e.position);
  }
  return s;
}

class ConcordanceMode : public shell::Module {
 public:
  const ui::Dialog& dialog() const override { return concordance_dialog(); }
  std::string settings_file() const override { return "do_concord.ini"; }

  shell::ModeResult calculate(shell::ModuleContext& c) override {
    const int count = c.store.count();
    if (count < 2)
      return shell::ModeResult::failed({"Monte-Carlo Concordance requires two data sets.",
                                        "Therefore, please read another data set."});
    const int a_number = c.value<int>(kASeries);
    const int b_number = c.value<int>(kBSeries);
    for (const int number : {a_number, b_number})
      if (number < 1 || number > count)
        return shell::ModeResult::failed(
            {fmt::format("There is no data set {}: choose 1 to {}.", number, count)});
    const data::DataSet& a = c.store.at(a_number - 1);
    const data::DataSet& b = c.store.at(b_number - 1);
    const long cycles = c.value<int>(kCycles);
    // Each series needs a time range within its crop range and A a sampling interval;
    // the cycles a count.
    if (cropped_points(a) < 2 || cropped_points(b) < 2 || cycles < 1)
      return shell::ModeResult::failed({"Please get more data."});
    ConcordanceReport report{describe(a), describe(b), coincidence_range(c, a), {}, cycles, {}};
    report.pairs = match_events(report.a.events, report.b.events, report.range);
    const ConcordanceDraw draw{static_cast<int>(report.a.events.size()),
                               static_cast<int>(report.b.events.size()), time_range(a),
                               time_range(b), report.range};
    std::vector<double> histogram;
    if (!run_cycles(c, draw, cycles, histogram))
      return shell::ModeResult::failed({"Concordance calculation cancelled."});
    report.table = probability_table(histogram, static_cast<double>(cycles));
    shell::ModeOutput output{.listing = concordance_listing(report),
                             .graph = concordance_graph(report, a, b),
                             .summary = concordance_summary(report)};
    std::string table;
    for (const auto& row : concordance_grid_rows(report.table)) {
      output.log_lines.push_back("Concordance: " + row);
      table += (table.empty() ? "" : "\n") + row;
    }
    c.values[kADescription] = series_description(report.a);
    c.values[kBDescription] = series_description(report.b);
    c.values[kTable] = table;
    return shell::ModeResult::done(std::move(output));
  }

 private:
  // The dialog's range; when either end is unset, ±0.5 Δt with Δt the spacing of the
  // first two sample times of A's crop range.
  static CoincidenceRange coincidence_range(shell::ModuleContext& c, const data::DataSet& a) {
    const double from = c.value<double>(kFrom), to = c.value<double>(kTo);
    if (!core::is_unset(from) && !core::is_unset(to)) return {from, to};
    const auto first = static_cast<std::size_t>(a.first_point() - 1);
    const double dt = static_cast<double>(a.x()[first + 1]) - a.x()[first];
    return {-0.5 * dt, 0.5 * dt};
  }

  // The cycles from one draw of the session's generator, with their progress shown;
  // false when the user cancelled.
  static bool run_cycles(shell::ModuleContext& c, const ConcordanceDraw& draw, long cycles,
                         std::vector<double>& histogram) {
    const std::uint64_t seed = c.random.next();
    auto progress = c.ui.progress("Concordance Monte-Carlo cycles");
    return add_cycles(draw, seed, cycles, {.progress = ui::report_to(progress.get())}, histogram);
  }
};

}  // namespace

std::unique_ptr<shell::Module> make_concordance_mode() {
  return std::make_unique<ConcordanceMode>();
}

}  // namespace tidemark::stats
