#include "stats/xapen_monte_carlo.h"

#include <algorithm>
#include <atomic>
#include <cmath>
#include <thread>

#include "core/random.h"
#include "stats/xapen.h"
#include "stats/xapen_surrogates.h"

namespace tidemark::stats {

namespace {

// Cycles handed out between two progress reports.
constexpr int kBlock = 25;

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
  const int cores = static_cast<int>(std::thread::hardware_concurrency());
  const int threads = std::max(1, options.threads > 0 ? options.threads : cores);
  std::vector<Scratch> scratch(threads);
  for (int first = 0; first < cycles; first += kBlock) {
    const int last = std::min(cycles, first + kBlock);
    std::atomic<int> next{first};
    auto work = [&](Scratch& s) {
      for (int c = next++; c < last; c = next++) run_cycle(a, sa, b, sb, r, options, c, s, out);
    };
    std::vector<std::jthread> pool;
    for (int t = 1; t < threads; ++t) pool.emplace_back(work, std::ref(scratch[t]));
    work(scratch[0]);
    pool.clear();  // joins
    if (options.progress && !options.progress(static_cast<double>(last) / cycles)) {
      out.cancelled = true;
      break;
    }
  }
  return out;
}

}  // namespace tidemark::stats
