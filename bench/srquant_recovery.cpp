// Recovery of known feedback parameters by each optimiser of the response fit.
//
// The design is a typical study: an LH-like input simulated by the pulse simulator and
// an output sampled every 10 min for 24 h (144 points, 150 to 1580 min), made from the
// input through delay 40 min, Gaussian spreading 5 min, efficacy 2, EC50 4 and Hill 3
// (held) with basal 0.2, half-life 30 min and Gaussian noise of a fixed CV
// (srquant_scenario.h). A fit succeeds when the delay is within one sampling interval
// (10 min) of the truth and EC50 and efficacy within 10 %.
//
// First table, the optimisers on one data set (scenario seed 1000 x seed): every
// optimiser fits it from the same `starts` starting points drawn uniformly within the
// bounds (the swarm seeded by the start's number). Per optimiser: success rate, how
// often it reached the reference minimum (the criterion within 1e-6 relative of the
// fit started at the truth, or lower), median relative errors, failed fits, median
// processor time per fit. Then the reference fit's own errors: what a perfect optimiser
// reaches on these data, so the rows' misses split into the optimiser's and the data's.
//
// Second table, the data alone: `realisations` data sets (seeds 1000 x seed + r, the
// first being the one above), each fitted by Levenberg-Marquardt from the truth: how
// often the best fit of a data set meets the target, whatever the optimiser.
//
//   srquant_recovery [starts = 50] [seed = 1] [noise CV = 0.05] [realisations = 50]
//                    [optimiser row 1-5 only, 0 all]
#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <ctime>
#include <optional>
#include <vector>

#include "feedback/response_fit.h"
#include "srquant_scenario.h"

namespace {

using namespace tidemark;
using namespace tidemark::feedback;

constexpr double kInterval = 10;  // the sampling interval (min)

double median(std::vector<double> v) {
  if (v.empty()) return std::nan("");
  std::sort(v.begin(), v.end());
  return v[v.size() / 2];
}

// Starting values drawn uniformly within the bounds of every fitted parameter.
void draw_starts(ResponseModel& model, core::Random& random) {
  auto draw = [&random](Bounded& b) {
    if (b.fit) b.start = b.lower + (b.upper - b.lower) * random.uniform();
  };
  for (InputModel& in : model.inputs) {
    for (Bounded* b : {&in.delay, &in.width, &in.efficacy, &in.ec50, &in.hill}) draw(*b);
  }
  for (Bounded* b : {&model.basal, &model.half_life, &model.initial}) draw(*b);
}

// One fit's distance from the truth: delay (min), EC50 and efficacy (relative).
struct Errors {
  double delay = 0, ec50 = 0, efficacy = 0;
  bool success() const { return delay <= kInterval && ec50 <= 0.10 && efficacy <= 0.10; }
};

Errors errors(const ResponseFitResult& r, const std::vector<double>& truth) {
  return {std::abs(r.values[0] - truth[0]), std::abs(r.values[3] / truth[3] - 1),
          std::abs(r.values[2] / truth[2] - 1)};
}

// The fits of one table row, summarised.
struct Tally {
  int fits = 0, success = 0, failed = 0, at_minimum = 0;
  std::vector<double> delay, ec50, efficacy, seconds;

  void add(const Errors& e) {
    delay.push_back(e.delay);
    ec50.push_back(e.ec50);
    efficacy.push_back(e.efficacy);
    if (e.success()) ++success;
  }
  std::string percent(int count) const { return fmt::format("{:.0f} %", 100.0 * count / fits); }
  std::string errors() const {
    return fmt::format("{:.2f} | {:.1f} % | {:.1f} %", median(delay), 100 * median(ec50),
                       100 * median(efficacy));
  }
};

ResponseFitResult timed_fit(const bench::Scenario& s, const ResponseModel& model,
                            Optimizer optimizer, std::uint64_t seed, Tally& tally) {
  ResponseFitOptions options;
  options.optimizer = optimizer;
  options.seed = seed;
  options.parallel.threads = 1;
  const std::clock_t begin = std::clock();
  ResponseFitResult r = fit_response(model, s.data, options);
  tally.seconds.push_back(double(std::clock() - begin) / CLOCKS_PER_SEC);
  ++tally.fits;
  if (!r.ok()) ++tally.failed;
  return r;
}

struct Named {
  const char* name;
  Optimizer optimizer;
};

}  // namespace

int main(int argc, char** argv) {
  const int starts = argc > 1 ? std::atoi(argv[1]) : 50;
  const auto seed = static_cast<std::uint64_t>(argc > 2 ? std::atoll(argv[2]) : 1);
  const double noise_cv = argc > 3 ? std::atof(argv[3]) : 0.05;
  const int realisations = argc > 4 ? std::atoi(argv[4]) : 50;
  const int only = argc > 5 ? std::atoi(argv[5]) : 0;
  const Named optimizers[] = {
      {"swarm, then Levenberg-Marquardt", Optimizer::kSwarmThenLevenbergMarquardt},
      {"swarm, then Nelder-Mead", Optimizer::kSwarmThenNelderMead},
      {"swarm alone", Optimizer::kSwarm},
      {"Levenberg-Marquardt alone", Optimizer::kLevenbergMarquardt},
      {"Nelder-Mead alone", Optimizer::kNelderMead},
  };

  const std::optional<bench::Scenario> scenario = bench::lh_driven(seed * 1000, 1, noise_cv);
  if (!scenario) {
    fmt::print("the scenario could not be simulated\n");
    return 1;
  }
  const bench::Scenario& s = *scenario;
  Tally unused;
  const ResponseFitResult reference =
      timed_fit(s, s.model, Optimizer::kLevenbergMarquardt, 1, unused);
  if (!reference.ok()) {
    fmt::print("the fit from the truth failed: {}\n", reference.message);
    return 1;
  }
  double lowest = reference.criterion;
  fmt::print("One data set (seed {}, noise CV {}), {} starts per optimiser\n\n", seed * 1000,
             noise_cv, starts);
  fmt::print("| optimiser | success | reaches the minimum | delay error (min) | EC50 rel. error "
             "| efficacy rel. error | failed fits | CPU s / fit |\n"
             "|---|---|---|---|---|---|---|---|\n");
  int row = 0;
  for (const Named& o : optimizers) {
    if (++row != only && only != 0) continue;
    Tally tally;
    for (int k = 0; k < starts; ++k) {
      ResponseModel model = s.model;
      core::Random random(seed * 7919 + static_cast<std::uint64_t>(k));
      draw_starts(model, random);
      const ResponseFitResult r =
          timed_fit(s, model, o.optimizer, static_cast<std::uint64_t>(k) + 1, tally);
      if (r.values.empty()) continue;  // refused or cancelled: nothing to measure
      tally.add(errors(r, s.truth));
      lowest = std::min(lowest, r.criterion);
      if (r.criterion <= reference.criterion * (1 + 1e-6)) ++tally.at_minimum;
    }
    fmt::print("| {} | {} | {} | {} | {} | {:.3f} |\n", o.name, tally.percent(tally.success),
               tally.percent(tally.at_minimum), tally.errors(), tally.failed,
               median(tally.seconds));
    std::fflush(stdout);
  }
  const Errors best = errors(reference, s.truth);
  fmt::print("\nThe minimum (Levenberg-Marquardt from the truth): criterion {:.4f}, delay "
             "error {:.2f} min, EC50 {:.2f} %, efficacy {:.2f} %: {}. Lowest criterion of "
             "any fit: {:.4f}.\n\n",
             reference.criterion, best.delay, 100 * best.ec50, 100 * best.efficacy,
             best.success() ? "within the target" : "outside the target", lowest);

  Tally data;
  for (int r = 0; r < realisations; ++r) {
    const std::optional<bench::Scenario> each =
        bench::lh_driven(seed * 1000 + static_cast<std::uint64_t>(r), 1, noise_cv);
    if (!each) continue;
    const ResponseFitResult fit = timed_fit(*each, each->model, Optimizer::kLevenbergMarquardt, 1, data);
    if (!fit.values.empty()) data.add(errors(fit, each->truth));
  }
  fmt::print("{} data sets (seeds {} to {}), each fitted from the truth\n\n", realisations,
             seed * 1000, seed * 1000 + static_cast<std::uint64_t>(realisations) - 1);
  fmt::print("| fit | success | delay error (min) | EC50 rel. error | efficacy rel. error "
             "| failed fits |\n|---|---|---|---|---|---|\n");
  fmt::print("| Levenberg-Marquardt from the truth | {} | {} | {} |\n", data.percent(data.success),
             data.errors(), data.failed);
  return 0;
}
