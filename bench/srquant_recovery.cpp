// Recovery of known feedback parameters by each optimiser of the response fit.
//
// Per run: an LH-like input simulated by the pulse simulator, an output made from it
// through delay 40 min, Gaussian spreading 5 min, efficacy 2, EC50 4 and Hill 3 (held)
// with basal 0.2, half-life 30 min and 5 % noise (srquant_scenario.h); the fit starts
// from values drawn uniformly within the bounds. A run succeeds when the delay is within
// one sampling interval (10 min) of the truth and EC50 and efficacy within 10 %. Prints a
// Markdown table row per optimiser: success rate, median relative errors, median
// processor time per fit. A last row fits from the true values, so its errors are those
// the noise leaves whatever the optimiser.
//   srquant_recovery [runs = 50] [seed = 1] [optimiser row 1-6 only, 0 all] [noise CV = 0.05]
#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <ctime>
#include <cstdlib>
#include <vector>

#include "feedback/response_fit.h"
#include "srquant_scenario.h"

namespace {

using namespace tidemark;
using namespace tidemark::feedback;

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

struct Named {
  const char* name;
  Optimizer optimizer;
  bool from_truth = false;  // the reference row: what the noise alone leaves
};

}  // namespace

int main(int argc, char** argv) {
  const int runs = argc > 1 ? std::atoi(argv[1]) : 50;
  const auto seed = static_cast<std::uint64_t>(argc > 2 ? std::atoll(argv[2]) : 1);
  const int only = argc > 3 ? std::atoi(argv[3]) : 0;
  const double noise_cv = argc > 4 ? std::atof(argv[4]) : 0.05;
  const Named optimizers[] = {
      {"swarm, then Levenberg-Marquardt", Optimizer::kSwarmThenLevenbergMarquardt},
      {"swarm, then Nelder-Mead", Optimizer::kSwarmThenNelderMead},
      {"swarm alone", Optimizer::kSwarm},
      {"Levenberg-Marquardt alone", Optimizer::kLevenbergMarquardt},
      {"Nelder-Mead alone", Optimizer::kNelderMead},
      {"Levenberg-Marquardt from the truth", Optimizer::kLevenbergMarquardt, true},
  };
  fmt::print("| optimiser | success | delay error (min) | EC50 rel. error | efficacy rel. error "
             "| failed fits | CPU s / fit |\n|---|---|---|---|---|---|---|\n");
  int row = 0;
  for (const Named& o : optimizers) {
    if (++row != only && only != 0) continue;
    std::vector<double> delay_error, ec50_error, efficacy_error, seconds;
    int success = 0, failed = 0;
    for (int run = 0; run < runs; ++run) {
      bench::Scenario s = bench::lh_driven(seed * 1000 + static_cast<std::uint64_t>(run), 1, noise_cv);
      if (!s.ok) {
        ++failed;
        continue;
      }
      core::Random starts(seed * 7919 + static_cast<std::uint64_t>(run));
      if (!o.from_truth) draw_starts(s.model, starts);
      ResponseFitOptions options;
      options.optimizer = o.optimizer;
      options.seed = seed + static_cast<std::uint64_t>(run);
      options.parallel.threads = 1;
      const std::clock_t begin = std::clock();
      const ResponseFitResult r = fit_response(s.model, s.data, options);
      seconds.push_back(double(std::clock() - begin) / CLOCKS_PER_SEC);
      if (!r.ok()) {
        ++failed;
        continue;
      }
      const double d = std::abs(r.values[0] - s.truth[0]);
      const double e = std::abs(r.values[2] / s.truth[2] - 1);
      const double c = std::abs(r.values[3] / s.truth[3] - 1);
      delay_error.push_back(d);
      efficacy_error.push_back(e);
      ec50_error.push_back(c);
      if (d <= 10 && c <= 0.10 && e <= 0.10) ++success;
    }
    fmt::print("| {} | {:.0f} % | {:.2f} | {:.1f} % | {:.1f} % | {} | {:.3f} |\n", o.name,
               100.0 * success / runs, median(delay_error), 100 * median(ec50_error),
               100 * median(efficacy_error), failed, median(seconds));
    std::fflush(stdout);
  }
  return 0;
}
