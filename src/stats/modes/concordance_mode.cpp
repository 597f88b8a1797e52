#include "stats/modes/concordance_mode.h"

#include <fmt/format.h>

#include <algorithm>
#include <optional>

#include "core/missing.h"
#include "data/secretion_events.h"
#include "stats/modes/concordance_graph.h"
#include "stats/modes/concordance_report.h"
#include "stats/modes/correlation_output.h"
#include "ui/work_progress.h"

namespace tidemark::stats {
namespace {

enum Field { kASeries, kBSeries, kFrom, kTo, kCycles, kADescription, kBDescription, kTable };

// The first and last sample time of the crop range of `set`.
TimeRange time_range(const data::DataSet& set) {
  return {set.x()[static_cast<std::size_t>(set.first_point() - 1)],
          set.x()[static_cast<std::size_t>(set.last_point() - 1)]};
}

ConcordanceSeries describe(const data::DataSet& set) {
  ConcordanceSeries s{set.file_name, set.last_point() - set.first_point() + 1, {}};
  for (const auto& e : data::secretion_events(set)) s.events.push_back(e.position);
  return s;
}

class ConcordanceModule : public shell::Module {
 public:
  const ui::Dialog& dialog() const override { return dialog_; }
  std::string settings_file() const override { return "do_concord.ini"; }
  std::vector<std::string> prefixes() const override { return {"CONCORD"}; }

  shell::Outcome calculate(shell::ModuleContext& c) override {
    const int count = c.store.count();
    if (count < 2)
      return shell::Outcome::error({"Monte-Carlo Concordance requires two data sets.",
                                    "Therefore, please read another data set."});
    const int a_number = std::get<int>(c.values[kASeries]);
    const int b_number = std::get<int>(c.values[kBSeries]);
    for (const int number : {a_number, b_number})
      if (number < 1 || number > count)
        return shell::Outcome::error(
            {fmt::format("There is no data set {}: choose 1 to {}.", number, count)});
    const data::DataSet& a = c.store.at(a_number - 1);
    const data::DataSet& b = c.store.at(b_number - 1);
    const long cycles = std::get<int>(c.values[kCycles]);
    // Each series needs a time range and A a sampling interval; the cycles a count.
    if (a.size() < 2 || b.size() < 2 || cycles < 1)
      return shell::Outcome::error({"Please get more data."});
    ConcordanceReport report{describe(a), describe(b), coincidence_range(c, a), {}, cycles, {}};
    report.pairs = match_events(report.a.events, report.b.events, report.range);
    const ConcordanceDraw draw{static_cast<int>(report.a.events.size()),
                               static_cast<int>(report.b.events.size()), time_range(a),
                               time_range(b), report.range};
    std::vector<double> histogram;
    if (!run_cycles(c, draw, cycles, histogram))
      return shell::Outcome::error({"Concordance calculation cancelled."});
    report.table = probability_table(histogram, static_cast<double>(cycles));
    const auto outcome =
        write_listing_and_graph(c, concordance_listing(report), concordance_graph(report, a, b));
    if (!outcome.ok) return outcome;
    std::string table;
    for (const auto& row : concordance_grid_rows(report.table)) {
      c.log.log("Concordance: " + row);
      table += (table.empty() ? "" : "\n") + row;
    }
    c.values[kADescription] = series_description(report.a);
    c.values[kBDescription] = series_description(report.b);
    c.values[kTable] = table;
    results_.current = std::move(report);
    return outcome;
  }

  bool store_results() override { return results_.store(); }
  bool recall_results() override { return results_.recall(); }

 private:
  // The dialog's range; when either end is unset, ±0.5 Δt with Δt the spacing of the
  // first two sample times of A.
  static CoincidenceRange coincidence_range(const shell::ModuleContext& c, const data::DataSet& a) {
    const double from = std::get<double>(c.values[kFrom]), to = std::get<double>(c.values[kTo]);
    if (!core::is_unset(from) && !core::is_unset(to)) return {from, to};
    const double dt = static_cast<double>(a.x()[1]) - a.x()[0];
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

  ui::Dialog dialog_{"Monte-Carlo Concordance",
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
  shell::KeptResults<ConcordanceReport> results_;
};

}  // namespace

std::unique_ptr<shell::Module> make_concordance_module() {
  return std::make_unique<ConcordanceModule>();
}

}  // namespace tidemark::stats
