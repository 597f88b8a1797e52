#include "stats/modes/correlation_mode.h"

#include <fmt/format.h>

#include <algorithm>

#include "stats/modes/correlation_graph.h"
#include "stats/modes/correlation_listing.h"
#include "stats/modes/correlation_summary.h"
#include "stats/modes/paired_series.h"

namespace tidemark::stats {
namespace {

// The dialog's fields, in dialog order (correlation_dialog).
enum Field { kASeries, kBSeries, kMaxLag };

const ui::Dialog& correlation_dialog() {
  static const ui::Dialog dialog{"Cross-Correlation",
                                 {{"A Series", ui::FieldKind::kInteger, "1", "Series", {}},
                                  {"B Series", ui::FieldKind::kInteger, "2", "Series", {}},
                                  {"max Lag", ui::FieldKind::kInteger, "100", "Parameters", {}}}};
  return dialog;
}

class CorrelationMode : public shell::Module {
 public:
  const ui::Dialog& dialog() const override { return correlation_dialog(); }
  std::string settings_file() const override { return "do_corr.ini"; }

  shell::ModeResult calculate(shell::ModuleContext& c) override {
    const int a_number = c.value<int>(kASeries);
    const int b_number = c.value<int>(kBSeries);
    const int max_lag = c.value<int>(kMaxLag);
    if (auto refused = condition_pair(c.store, a_number, b_number, c.ui, c.log); !refused.empty())
      return shell::ModeResult::failed(std::move(refused));
    // More points than lags; a lag below 1 is left to the routines' own refusal.
    const PairedSeries s = select_paired_series(c.store, a_number, b_number, "Cross-Correlation",
                                                std::max(2, max_lag + 1));
    if (!s.ok()) return shell::ModeResult::failed(s.messages);
    const std::vector<double> ya(s.ya.begin(), s.ya.end()), yb(s.yb.begin(), s.yb.end());
    const CorrelationAnalysis analysis = correlation_analysis(ya, yb, max_lag);
    if (!analysis.status.ok()) return shell::ModeResult::failed({analysis.status.message});
    const int n = static_cast<int>(s.ya.size());
    return shell::ModeResult::done(
        {.listing = correlation_listing(analysis, s.a->file_name, s.b->file_name, s.delta_t),
         .graph = correlation_graph(analysis, *s.a, *s.b, n, s.delta_t),
         .log_lines = {fmt::format("Correlation: A = {}, B = {}, N = {}, max Lag = {}",
                                   s.a->file_name, s.b->file_name, n, max_lag)},
         .summary = correlation_summary(analysis)});
  }
};

}  // namespace

std::unique_ptr<shell::Module> make_correlation_mode() {
  return std::make_unique<CorrelationMode>();
}

}  // namespace tidemark::stats
