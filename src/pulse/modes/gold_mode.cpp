#include "pulse/modes/gold_mode.h"

#include <fmt/format.h>

#include <optional>

#include "core/file_replace.h"
#include "core/fortran_format.h"
#include "core/missing.h"
#include "core/text.h"
#include "data/conditioner.h"
#include "data/secretion_events.h"
#include "pulse/gold_kernel.h"
#include "pulse/modes/gold_graph.h"
#include "pulse/modes/gold_listing.h"

namespace tidemark::pulse {
namespace {

// Dialog fields, in order.
enum Field { kHalfLife, kSecretionSd, kKernel };
constexpr int kShapeKernel = 1;  // the second choice of "Kernel"

// The samples of the set's crop range, as GoldRun holds them. A sample takes part when
// it has a concentration above 0 and replicates (the conditioner's valid points); the
// others enter Gold's iteration with concentration 0 (so their secretion stays 0) and
// are listed as not used.
void take_samples(const data::DataSet& set, GoldRun& run) {
  for (int p = set.first_point(); p <= set.last_point(); ++p) {
    const std::size_t i = static_cast<std::size_t>(p - 1);
    const float y = set.y()[i];
    run.time.push_back(set.x()[i]);
    run.concentration.push_back(y);
    run.sd.push_back(set.dy()[i]);
    run.used.push_back(!core::is_missing(y) && y > 0 && set.reps()[i] != 0 ? 1 : 0);
  }
  for (const data::SecretionEvent& e : data::secretion_events(set)) {
    run.event_positions.push_back(e.position);
  }
}

class GoldMode : public shell::Module {
 public:
  const ui::Dialog& dialog() const override { return dialog_; }
  std::string settings_file() const override { return "do_gold.ini"; }
  std::vector<std::string> prefixes() const override { return {"GOLD"}; }

  shell::Outcome calculate(shell::ModuleContext& c) override {
    data::DataSet& set = c.store.current();
    const data::ConditionResult conditioned = data::condition(set, false, c.ui, c.log);
    if (!conditioned.ok) {
      return shell::Outcome::error(
          {"The data set could not be conditioned: " + conditioned.message});
    }
    GoldRun run;
    run.file_name = set.file_name;
    run.handle = set.handle;
    run.concentration_header = set.concentration_header();
    run.half_life = std::get<double>(c.values[kHalfLife]);
    run.secretion_sd = std::get<double>(c.values[kSecretionSd]);
    run.with_shape = std::get<int>(c.values[kKernel]) == kShapeKernel;
    take_samples(set, run);
    const std::size_t n = run.time.size();
    run.interval = (run.time.back() - run.time.front()) / static_cast<double>(n - 1);

    const GoldKernel kernel = gold_kernel(run.half_life, run.secretion_sd, run.with_shape,
                                          run.interval, static_cast<int>(n));
    if (!kernel.ok) return shell::Outcome::error({"Gold Method Kernel Error: " + kernel.message});
    run.first_lag = kernel.first_lag;
    run.last_lag = kernel.last_lag;
    std::vector<double> conc(n), sd(n);
    for (std::size_t i = 0; i < n; ++i) {
      conc[i] = run.used[i] >= 1 ? run.concentration[i] : 0.0;
      sd[i] = run.used[i] >= 1 ? run.sd[i] : 1.0;
    }
    run.result = gold_deconvolve({conc, sd, run.used}, kernel.kernel,
                                 {kernel.first_lag, kernel.last_lag, run.interval});
    // Without convergence the last estimate is still shown; other failures leave none.
    if (!run.result.ok() && run.result.status != GoldStatus::kNoConvergence) {
      return shell::Outcome::error({"Gold Method Deconvolution Error: " + run.result.message});
    }
    if (auto failed = write(run, c)) return *failed;
    c.log.log(fmt::format("GOLD_METHOD: {} samples, {} iterations, R = {}", n,
                          run.result.iterations,
                          core::trim(core::format_g15_5(run.result.residual))));
    const bool converged = run.result.ok();
    results_.current = std::move(run);
    if (!converged) {
      return shell::Outcome::error({"Gold Method Convergence Error: " + results_.current->result.message,
                                    "The listing holds the estimate of the last iteration."});
    }
    return shell::Outcome::success();
  }

  bool store_results() override { return results_.store(); }
  bool recall_results() override { return results_.recall(); }

 private:
  // Writes the listing and the graph source; the error when one cannot be written.
  static std::optional<shell::Outcome> write(const GoldRun& run, shell::ModuleContext& c) {
    for (const auto& [path, text] :
         {std::pair{&c.listing, gold_listing(run)}, std::pair{&c.graph, gold_graph(run)}}) {
      const core::ReplaceResult written = core::replace_file(*path, text);
      if (!written.ok) return shell::Outcome::error({written.message});
    }
    return std::nullopt;
  }

  ui::Dialog dialog_{
      "Gold's Method Deconvolution",
      {{"Elimination Half-Life", ui::FieldKind::kReal, "45.0", "Gold Parameters", {}},
       {"Secretion SD", ui::FieldKind::kReal, "4.0", "Gold Parameters", {}},
       {"Kernel",
        ui::FieldKind::kMenu,
        "Elimination and Secretion Shape",
        "Gold Parameters",
        {"Elimination Only", "Elimination and Secretion Shape"}}}};
  shell::KeptResults<GoldRun> results_;
};

}  // namespace

std::unique_ptr<shell::Module> make_gold_mode() {
  return std::make_unique<GoldMode>();
}

}  // namespace tidemark::pulse
