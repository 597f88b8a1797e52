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

// Cycles done between two progress reports.
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
  std::atomic<int> next{0};
  std::atomic<int> done{0};
  std::atomic<bool> stop{false};
  // Each thread takes the next cycle not yet taken until none is left; the calling
  // thread takes its share too and reports progress between its cycles.
  auto run_next = [&](Scratch& s) {
    const int c = next++;
    if (c >= cycles || stop) return false;
    run_cycle(a, sa, b, sb, r, options, c, s, out);
    ++done;
    return true;
  };
  std::vector<std::jthread> pool;
  for (int t = 1; t < threads; ++t) {
    pool.emplace_back([&, t] {
      while (run_next(scratch[t])) {
      }
    });
  }
  int reported = 0;
  auto report = [&](int now) {
    reported = now;
    if (options.progress && !options.progress(static_cast<double>(now) / cycles)) stop = true;
  };
  while (run_next(scratch[0])) {
    if (done - reported >= kBlock) report(done);
  }
  pool.clear();  // joins
  if (!stop && reported < cycles) report(cycles);
  out.cancelled = stop;
  return out;
}

}  // namespace tidemark::stats
