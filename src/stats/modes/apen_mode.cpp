#include "stats/modes/apen_mode.h"

#include <fmt/format.h>

#include <optional>
#include <string>
#include <vector>

#include "core/missing.h"
#include "data/conditioner.h"
#include "data/variance_model.h"
#include "stats/apen_analysis.h"
#include "stats/modes/apen_graph.h"
#include "stats/modes/apen_listing.h"
#include "stats/modes/apen_summary.h"

namespace tidemark::stats {
namespace {

using shell::ModeResult;
using shell::ModuleContext;

// The dialog's fields, in dialog order (apen_dialog): the four settings, then the six
// result fields of apen_result_fields.
enum Field {
  kDifference,
  kRFraction,
  kR,
  kCycles,
  kApEnResult,
  kNoiseResult,     // also counts the cycles of the noise-added pass
  kShuffledResult,  // also counts the cycles of the shuffled pass
  kRatioResult,
  kZResult,
  kPResult,
};
constexpr std::size_t kResultFields = 6;

void show_results(ModuleContext& c, const std::vector<std::string>& fields) {
  for (std::size_t k = 0; k < kResultFields; ++k) {
    c.values[kApEnResult + k] = k < fields.size() ? fields[k] : std::string();
  }
}

std::string join_lines(const std::vector<std::string>& lines) {
  std::string text;
  for (const auto& line : lines) text += line + "\n";
  return text;
}

class ApEnMode : public shell::Module {
 public:
  const ui::Dialog& dialog() const override { return apen_dialog(); }
  std::string settings_file() const override { return "do_apen.ini"; }

  ModeResult calculate(ModuleContext& c) override {
    show_results(c, {});
    const data::ConditionResult conditioned =
        data::condition(c.store.current(), false, c.ui, c.log);
    if (!conditioned.ok()) return ModeResult::failed({conditioned.message});
    const data::DataSet& set = c.store.current();
    ApEnOptions options{.difference = c.value<bool>(kDifference),
                        .r_fraction = c.value<bool>(kRFraction),
                        .r = c.value<double>(kR),
                        .cycles = c.value<int>(kCycles)};
    options.noise_seed = c.random.next();
    options.shuffle_seed = c.random.next();
    auto noise_progress = c.ui.progress("ApEn Noise Added Cycles");
    auto shuffle_progress = c.ui.progress("ApEn Shuffled Cycles");
    options.progress = [&](int pass, int done) {
      c.values[pass == 1 ? kNoiseResult : kShuffledResult] = fmt::format(
          " {} Cycle {} of {}", pass == 1 ? "Noise Added" : "Shuffled", done, options.cycles);
      c.ui.update_dialog(apen_dialog(), c.values);
      auto& progress = pass == 1 ? noise_progress : shuffle_progress;
      return !progress || progress->update(static_cast<double>(done) / options.cycles);
    };
    const ApEnResult result = analyse_apen(apen_series(set), options);
    if (!result.ok()) return ModeResult::failed({result.message});
    show_results(c, apen_result_fields(result));
    const std::vector<std::string> lines = apen_listing(set.file_name, options.r, result);
    shell::ModeOutput output{.listing = join_lines(lines), .graph = apen_graph_source(set, result)};
    for (const auto& line : lines) output.log_lines.push_back("APEN: " + line);
    put_apen_summary(output.summary, result);
    return ModeResult::done(std::move(output));
  }
};

}  // namespace

const ui::Dialog& apen_dialog() {
  using ui::FieldKind;
  static const ui::Dialog dialog{
      "Approximate Entropy",
      {{"First Difference Detrend", FieldKind::kCheck, "OFF", "Options", {}},
       {"Use R as a Fraction of the Data's SD", FieldKind::kCheck, "ON", "Options", {}},
       {"R", FieldKind::kReal, "0.2", "Parameters", {}},
       {"MC Cycles", FieldKind::kInteger, "1000", "Parameters", {}},
       {"ApEn", FieldKind::kText, "", "Results", {}, true},
       {"Noise Added", FieldKind::kText, "", "Results", {}, true},
       {"Shuffled", FieldKind::kText, "", "Results", {}, true},
       {"Ratio", FieldKind::kText, "", "Results", {}, true},
       {"Z for Random", FieldKind::kText, "", "Results", {}, true},
       {"P for Random", FieldKind::kText, "", "Results", {}, true}}};
  return dialog;
}

WorkingSeries apen_series(const data::DataSet& set) {
  WorkingSeries series;
  for (int i = set.first_point() - 1; i < set.last_point(); ++i) {
    const float y = set.y()[i];
    const float dy = set.dy()[i];
    const bool usable = !core::is_missing(y) && data::is_valid_point(y, set.reps()[i]);
    series.x.push_back(y);
    series.s.push_back(core::is_missing(dy) ? 0.0f : dy);
    series.usable.push_back(usable ? 1 : 0);
  }
  return series;
}

std::unique_ptr<shell::Module> make_apen_mode() {
  return std::make_unique<ApEnMode>();
}

}  // namespace tidemark::stats
