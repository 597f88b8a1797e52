#pragma once
// The Monte-Carlo passes of cross-approximate entropy and their summaries. Each cycle
// builds a noise-added surrogate of both series and a random (resampled, noise-added)
// surrogate of both, and takes X-ApEn(1) and X-ApEn(2) of each pair with the data's r.
// Cycle c draws from its own generator seeded from `seed` and c, so the results depend on
// the seed alone, whatever the number of threads that share the cycles (core::parallel_for).
#include <array>
#include <cstdint>
#include <span>
#include <vector>

#include "core/parallel.h"
#include "stats/template_matches.h"

namespace tidemark::stats {

// Mean and SD of NC values: SD = sqrt(|sum (v - mean)^2 / (NC - 1)|); SD 0 for NC < 2.
struct MeanSd {
  double mean = 0;
  double sd = 0;
};
MeanSd mean_sd(std::span<const double> values);

struct XApEnCycles {
  // [m - 1][cycle]: X-ApEn(m) of the noise-added and of the random surrogates.
  std::array<std::vector<double>, 2> noise;
  std::array<std::vector<double>, 2> random;
  bool cancelled = false;
};

struct XApEnMonteCarloOptions {
  int cycles = 1000;
  std::uint64_t seed = 1;
  CountMethod method = CountMethod::kFast;  // both give the same values
  // The threads and the progress of the cycles; a cancel stops the passes.
  core::ParallelOptions parallel{};
};

// Runs the passes on the standardised series a, b (errors sa, sb) at tolerance r.
// Cycles not run when cancelled are left at 0.
XApEnCycles xapen_monte_carlo(std::span<const double> a, std::span<const double> sa,
                              std::span<const double> b, std::span<const double> sb, double r,
                              const XApEnMonteCarloOptions& options);

// The seed of cycle c's generator: SplitMix64 applied to seed + c.
std::uint64_t cycle_seed(std::uint64_t seed, int cycle);

}  // namespace tidemark::stats
