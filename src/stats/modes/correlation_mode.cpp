#include "stats/modes/correlation_mode.h"

#include <fmt/format.h>

#include <algorithm>
#include <optional>

#include "data/conditioner.h"
#include "stats/modes/correlation_graph.h"
#include "stats/modes/correlation_listing.h"
#include "stats/modes/correlation_output.h"
#include "stats/modes/paired_series.h"

namespace tidemark::stats {
namespace {

enum Field { kASeries, kBSeries, kMaxLag };

class CorrelationModule : public shell::Module {
 public:
  const ui::Dialog& dialog() const override { return dialog_; }
  std::string settings_file() const override { return "do_corr.ini"; }
  std::vector<std::string> prefixes() const override { return {"CORR"}; }

  shell::Outcome calculate(shell::ModuleContext& c) override {
    const int a_number = std::get<int>(c.values[kASeries]);
    const int b_number = std::get<int>(c.values[kBSeries]);
    const int max_lag = std::get<int>(c.values[kMaxLag]);
    if (auto refused = condition_both(c, a_number, b_number)) return *refused;
    // More points than lags; a lag below 1 is left to the routines' own refusal.
    const PairedSeries s = select_paired_series(c.store, a_number, b_number, "Cross-Correlation",
                                                std::max(2, max_lag + 1));
    if (!s.ok) return shell::Outcome::error(s.messages);
    const std::vector<double> ya(s.ya.begin(), s.ya.end()), yb(s.yb.begin(), s.yb.end());
    CorrelationAnalysis analysis = correlation_analysis(ya, yb, max_lag);
    if (!analysis.status.ok) return shell::Outcome::error({analysis.status.message});
    const int n = static_cast<int>(s.ya.size());
    const auto outcome =
        write_listing_and_graph(c, correlation_listing(analysis, s.delta_t),
                                correlation_graph(analysis, *s.a, *s.b, n, s.delta_t));
    if (!outcome.ok) return outcome;
    c.log.log(fmt::format("Correlation: A = {}, B = {}, N = {}, max Lag = {}", s.a->file_name,
                          s.b->file_name, n, max_lag));
    results_.current = std::move(analysis);
    return outcome;
  }

  bool store_results() override { return results_.store(); }
  bool recall_results() override { return results_.recall(); }

 private:
  // Passes the two chosen data sets through the data conditioner (inserted points stay
  // in the stored sets); an error when either does not pass. Numbers that name no data
  // set are left to the pairing's refusal.
  static std::optional<shell::Outcome> condition_both(shell::ModuleContext& c, int a_number,
                                                      int b_number) {
    for (const int number : {a_number, b_number}) {
      if (c.store.count() < 2 || number < 1 || number > c.store.count()) return std::nullopt;
      data::DataSet& set = c.store.at(number - 1);
      if (!data::condition(set, false, c.ui, c.log).ok)
        return shell::Outcome::error({fmt::format(
            "Data set {} ({}) did not pass the data conditioner.", number, set.file_name)});
    }
    return std::nullopt;
  }

  ui::Dialog dialog_{"Cross-Correlation",
                     {{"A Series", ui::FieldKind::kInteger, "1", "Series", {}},
                      {"B Series", ui::FieldKind::kInteger, "2", "Series", {}},
                      {"max Lag", ui::FieldKind::kInteger, "100", "Parameters", {}}}};
  shell::KeptResults<CorrelationAnalysis> results_;
};

}  // namespace

std::unique_ptr<shell::Module> make_correlation_module() {
  return std::make_unique<CorrelationModule>();
}

}  // namespace tidemark::stats
