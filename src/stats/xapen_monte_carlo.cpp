#include "stats/xapen_monte_carlo.h"

#include <algorithm>
#include <cmath>

#include "core/random.h"
#include "stats/xapen.h"
#include "stats/xapen_surrogates.h"

namespace tidemark::stats {

namespace {

// Per-thread scratch, so a cycle allocates nothing after the first.
struct Scratch {
  std::vector<double> a, b, work;
};

void run_cycle(std::span<const double> a, std::span<const double> sa, std::span<const double> b,
               std::span<const double> sb, double r, const XApEnMonteCarloOptions& options,
               int cycle, Scratch& scratch, XApEnCycles& out) {
  core::Random random(cycle_seed(options.seed, cycle));
  noise_surrogate(a, sa, random, scratch.a);
  noise_surrogate(b, sb, random, scratch.b);
  const XApEn noise = cross_apen(scratch.a, scratch.b, r, nullptr, options.method);
  random_surrogate(a, sa, random, scratch.work, scratch.a);
  random_surrogate(b, sb, random, scratch.work, scratch.b);
  const XApEn shuffled = cross_apen(scratch.a, scratch.b, r, nullptr, options.method);
  for (int m = 0; m < 2; ++m) {
    out.noise[m][cycle] = noise.value[m];
    out.random[m][cycle] = shuffled.value[m];
  }
}

}  // namespace

std::uint64_t cycle_seed(std::uint64_t seed, int cycle) {
  std::uint64_t state = seed + static_cast<std::uint64_t>(cycle);
  return core::splitmix64(state);
}

MeanSd mean_sd(std::span<const double> values) {
  MeanSd out;
  if (values.empty()) return out;
  for (const double v : values) out.mean += v;
  out.mean /= static_cast<double>(values.size());
  if (values.size() < 2) return out;
  double squares = 0;
  for (const double v : values) squares += (v - out.mean) * (v - out.mean);
  out.sd = std::sqrt(std::abs(squares / static_cast<double>(values.size() - 1)));
  return out;
}

XApEnCycles xapen_monte_carlo(std::span<const double> a, std::span<const double> sa,
                              std::span<const double> b, std::span<const double> sb, double r,
                              const XApEnMonteCarloOptions& options) {
  const int cycles = std::max(options.cycles, 0);
  XApEnCycles out;
  for (int m = 0; m < 2; ++m) {
    out.noise[m].assign(cycles, 0.0);
    out.random[m].assign(cycles, 0.0);
  }
  std::vector<Scratch> scratch(
      static_cast<std::size_t>(core::parallel_workers(cycles, options.parallel)));
  const bool complete =
      core::parallel_for(cycles, options.parallel, [&](int worker, long first, long last) {
        for (long c = first; c < last; ++c) {
          run_cycle(a, sa, b, sb, r, options, static_cast<int>(c),
                    scratch[static_cast<std::size_t>(worker)], out);
        }
      });
  out.cancelled = !complete;
  return out;
}

}  // namespace tidemark::stats
