#include "stats/modes/xapen_mode.h"

#include <optional>

#include "core/file_replace.h"
#include "stats/modes/paired_series.h"
#include "stats/modes/xapen_graph.h"
#include "stats/modes/xapen_report.h"
#include "ui/work_progress.h"

namespace tidemark::stats {

namespace {

// The settings, then the eight read-only result fields (xapen_result_lines).
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

class XApEnModule : public shell::Module {
 public:
  const ui::Dialog& dialog() const override { return dialog_; }
  std::string settings_file() const override { return "do_xapen.ini"; }
  std::vector<std::string> prefixes() const override { return {"XAPEN"}; }

  shell::Outcome calculate(shell::ModuleContext& c) override {
    show_results(c, {});
    const int cycles = std::get<int>(c.values[kCycles]);
    if (cycles < kMinCycles) return shell::Outcome::error({"MC Cycles must be at least 2."});
    const PairedSeries s =
        select_paired_series(c.store, std::get<int>(c.values[kASeries]),
                             std::get<int>(c.values[kBSeries]), "Cross-ApEn", kXApEnMinPoints);
    if (!s.ok) return shell::Outcome::error(s.messages);
    const Standardised a = standardise(s.ya, s.sa), b = standardise(s.yb, s.sb);
    XApEnReport report{.a_name = s.a->file_name,
                       .b_name = s.b->file_name,
                       .r = std::get<double>(c.values[kR]),
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
    if (runs.cancelled) return shell::Outcome::error({"X_ApEn calculation cancelled."});
    summarize_cycles(runs, report);
    for (const auto& [path, text] : {std::pair{&c.listing, xapen_listing(report)},
                                     std::pair{&c.graph, xapen_graph(report, *s.a, *s.b)}}) {
      const auto written = core::replace_file(*path, text);
      if (!written.ok) return shell::Outcome::error({written.message});
    }
    const std::vector<std::string> lines = xapen_result_lines(report);
    for (const std::string& line : lines) c.log.log(line);
    show_results(c, lines);
    results_.current = std::move(report);
    return shell::Outcome::success();
  }

  bool store_results() override { return results_.store(); }
  bool recall_results() override { return results_.recall(); }

 private:
  ui::Dialog dialog_{"Cross-Approximate-Entropy",
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
  shell::KeptResults<XApEnReport> results_;
};

}  // namespace

std::unique_ptr<shell::Module> make_xapen_module() {
  return std::make_unique<XApEnModule>();
}

}  // namespace tidemark::stats
