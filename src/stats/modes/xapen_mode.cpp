#include "stats/modes/xapen_mode.h"

#include <cmath>

#include "stats/apen_analysis.h"

#include "stats/modes/paired_series.h"
#include "stats/modes/xapen_graph.h"
#include "stats/modes/xapen_report.h"
#include "stats/modes/xapen_summary.h"
#include "ui/work_progress.h"

namespace tidemark::stats {

namespace {

// The dialog's fields, in dialog order: the settings, then the eight read-only result
// fields (xapen_result_lines).
enum Field { kASeries, kBSeries, kCycles, kR, kFirstResult };
constexpr int kResultFields = 8;

void show_results(shell::ModuleContext& c, const std::vector<std::string>& lines) {
  for (int k = 0; k < kResultFields; ++k) {
    c.values[kFirstResult + k] = k < static_cast<int>(lines.size()) ? lines[k] : std::string();
  }
}

// Fewer cycles leave the SDs without a divisor.
constexpr int kMinCycles = 2;

ui::Field result_field(const char* label) {
  return {label, ui::FieldKind::kText, "", "Results", {}, true};
}

const ui::Dialog& xapen_dialog() {
  static const ui::Dialog dialog{"Cross-Approximate-Entropy",
                                 {{"A Series", ui::FieldKind::kInteger, "1", "Series", {}},
                                  {"B Series", ui::FieldKind::kInteger, "2", "Series", {}},
                                  {"MC Cycles", ui::FieldKind::kInteger, "1000", "Parameters", {}},
                                  {"R", ui::FieldKind::kReal, "0.200", "Parameters", {}},
                                  result_field("XApEn(1)"),
                                  result_field("+Noise XApEn(1)"),
                                  result_field("Random XApEn(1)"),
                                  result_field("Ratio XApEn(1)"),
                                  result_field("XApEn(2)"),
                                  result_field("+Noise XApEn(2)"),
                                  result_field("Random XApEn(2)"),
                                  result_field("Ratio XApEn(2)")}};
  return dialog;
}

class XApEnMode : public shell::Module {
 public:
  const ui::Dialog& dialog() const override { return xapen_dialog(); }
  std::string settings_file() const override { return "do_xapen.ini"; }

  shell::ModeResult calculate(shell::ModuleContext& c) override {
    show_results(c, {});
    const int cycles = c.value<int>(kCycles);
    if (cycles < kMinCycles) return shell::ModeResult::failed({"MC Cycles must be at least 2."});
    const double r = c.value<double>(kR);
    if (!std::isfinite(r) || r < 0) return shell::ModeResult::failed({std::string(kNegativeRLine)});
    const int a_number = c.value<int>(kASeries), b_number = c.value<int>(kBSeries);
    if (auto refused = condition_pair(c.store, a_number, b_number, c.ui, c.log); !refused.empty())
      return shell::ModeResult::failed(std::move(refused));
    const PairedSeries s =
        select_paired_series(c.store, a_number, b_number, "Cross-ApEn", kXApEnMinPoints);
    if (!s.ok()) return shell::ModeResult::failed(s.messages);
    const Standardised a = standardise(s.ya, s.sa), b = standardise(s.yb, s.sb);
    XApEnReport report{.a_name = s.a->file_name,
                       .b_name = s.b->file_name,
                       .r = r,
                       .n = static_cast<int>(a.x.size()),
                       .cycles = cycles,
                       .data = {},
                       .noise = {},
                       .random = {},
                       .ratio = {},
                       .hits = HitTable(static_cast<int>(a.x.size()))};
    report.data = cross_apen(a.x, b.x, report.r, &report.hits);
    auto progress = c.ui.progress("X_ApEn Monte-Carlo cycles");
    const XApEnCycles runs =
        xapen_monte_carlo(a.x, a.s, b.x, b.s, report.r,
                          {.cycles = cycles,
                           .seed = c.random.next(),
                           .parallel = {.progress = ui::report_to(progress.get())}});
    if (runs.cancelled) return shell::ModeResult::failed({"X_ApEn calculation cancelled."});
    summarize_cycles(runs, report);
    const std::vector<std::string> lines = xapen_result_lines(report);
    show_results(c, lines);
    return shell::ModeResult::done({.listing = xapen_listing(report),
                                    .graph = xapen_graph(report, *s.a, *s.b),
                                    .log_lines = lines,
                                    .summary = xapen_summary(report)});
  }
};

}  // namespace

std::unique_ptr<shell::Module> make_xapen_mode() {
  return std::make_unique<XApEnMode>();
}

}  // namespace tidemark::stats
