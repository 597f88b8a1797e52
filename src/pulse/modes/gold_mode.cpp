#include "pulse/modes/gold_mode.h"

#include <fmt/format.h>

#include "core/fortran_format.h"
#include "core/missing.h"
#include "core/text.h"
#include "data/conditioner.h"
#include "data/secretion_events.h"
#include "pulse/gold_kernel.h"
#include "pulse/modes/gold_graph.h"
#include "pulse/modes/gold_listing.h"
#include "pulse/modes/gold_summary.h"

namespace tidemark::pulse {
namespace {

// The dialog's fields, in dialog order (gold_dialog).
enum Field { kHalfLife, kSecretionSd, kKernel };
constexpr int kShapeKernel = 1;  // the second choice of "Kernel"

const ui::Dialog& gold_dialog() {
  static const ui::Dialog dialog{
      "Gold's Method Deconvolution",
      {{"Elimination Half-Life", ui::FieldKind::kReal, "45.0", "Gold Parameters", {}},
       {"Secretion SD", ui::FieldKind::kReal, "4.0", "Gold Parameters", {}},
       {"Kernel",
        ui::FieldKind::kMenu,
        "Elimination and Secretion Shape",
        "Gold Parameters",
        {"Elimination Only", "Elimination and Secretion Shape"}}}};
  return dialog;
}

// The samples of the set's crop range, as GoldRunInput holds them. A sample takes part
// when it has a concentration above 0 and replicates (the conditioner's valid points);
// the others enter Gold's iteration with concentration 0 (so their secretion stays 0)
// and are listed as not used.
void take_samples(const data::DataSet& set, GoldRunInput& in) {
  for (int p = set.first_point(); p <= set.last_point(); ++p) {
    const std::size_t i = static_cast<std::size_t>(p - 1);
    const float y = set.y()[i];
    in.time.push_back(set.x()[i]);
    in.concentration.push_back(y);
    in.sd.push_back(set.dy()[i]);
    in.used.push_back(!core::is_missing(y) && y > 0 && set.reps()[i] != 0 ? 1 : 0);
  }
  for (const data::SecretionEvent& e : data::secretion_events(set)) {
    in.event_positions.push_back(e.position);
  }
}

// What the frame writes for a run: the listing, the graph, the answers block, the log
// line and `summary` (the cells of a converged run).
shell::ModeOutput gold_output(const GoldRun& run, data::SummaryRow summary = {}) {
  return {.listing = gold_listing(run),
          .graph = gold_graph(run),
          .answers = gold_answers(run),
          .log_lines = {fmt::format("GOLD_METHOD: {} samples, {} iterations, R = {}",
                                    run.input.time.size(), run.output.result.iterations,
                                    core::trim(core::format_g15_5(run.output.result.residual)))},
          .summary = std::move(summary)};
}

class GoldMode : public shell::Module {
 public:
  const ui::Dialog& dialog() const override { return gold_dialog(); }
  std::string settings_file() const override { return "do_gold.ini"; }

  shell::ModeResult calculate(shell::ModuleContext& c) override {
    data::DataSet& set = c.store.current();
    const data::ConditionResult conditioned = data::condition(set, false, c.ui, c.log);
    if (!conditioned.ok()) {
      return shell::ModeResult::failed(
          {"The data set could not be conditioned: " + conditioned.message});
    }
    GoldRun run;
    GoldRunInput& in = run.input;
    in.file_name = set.file_name;
    in.handle = set.handle;
    in.concentration_header = set.concentration_header();
    in.half_life = c.value<double>(kHalfLife);
    in.secretion_sd = c.value<double>(kSecretionSd);
    in.with_shape = c.value<int>(kKernel) == kShapeKernel;
    take_samples(set, in);
    const std::size_t n = in.time.size();
    in.interval = (in.time.back() - in.time.front()) / static_cast<double>(n - 1);

    const GoldKernel kernel =
        gold_kernel(in.half_life, in.secretion_sd, in.with_shape, in.interval, static_cast<int>(n));
    if (!kernel.ok())
      return shell::ModeResult::failed({"Gold Method Kernel Error: " + kernel.message});
    run.output.first_lag = kernel.first_lag;
    run.output.last_lag = kernel.last_lag;
    std::vector<double> conc(n), sd(n);
    for (std::size_t i = 0; i < n; ++i) {
      conc[i] = in.used[i] >= 1 ? in.concentration[i] : 0.0;
      sd[i] = in.used[i] >= 1 ? in.sd[i] : 1.0;
    }
    run.output.result = gold_deconvolve({conc, sd, in.used}, kernel.kernel,
                                        {kernel.first_lag, kernel.last_lag, in.interval});
    const GoldResult& result = run.output.result;
    if (result.ok()) return shell::ModeResult::done(gold_output(run, gold_summary(run)));
    // Without convergence the last estimate is still shown; other failures leave none.
    if (result.status != GoldStatus::kNoConvergence) {
      return shell::ModeResult::failed({"Gold Method Deconvolution Error: " + result.message});
    }
    return shell::ModeResult::failed({"Gold Method Convergence Error: " + result.message,
                                      "The listing holds the estimate of the last iteration."},
                                     gold_output(run));
  }
};

}  // namespace

std::unique_ptr<shell::Module> make_gold_mode() {
  return std::make_unique<GoldMode>();
}

}  // namespace tidemark::pulse
