// The Cosine mode's start on N = 1,000 points: the reference fit and the period scan
// (997 trial fits of Amplitude, Phase and Mean), as the mode runs it on a new series,
// on one thread and on two. Wall time is the measure: the CPU time google benchmark
// reports is that of the main thread alone.
#include <benchmark/benchmark.h>

#include <cmath>
#include <vector>

#include "stats/cosine_start.h"

namespace {

void BM_CosinePeriodScan(benchmark::State& state) {
  const auto n = static_cast<int>(state.range(0));
  const auto threads = static_cast<int>(state.range(1));
  std::vector<double> t, y;
  for (int i = 1; i <= n; ++i) {
    t.push_back(10.0 * i);
    y.push_back(10 + 3 * std::cos((t.back() - 50) * 6.283185307 / 1440) + 0.3 * ((i * 7) % 5 - 2));
  }
  for (auto _ : state)
    benchmark::DoNotOptimize(tidemark::stats::start_cosine(t, y, {.threads = threads}));
}
BENCHMARK(BM_CosinePeriodScan)
    ->ArgNames({"n", "threads"})
    ->Args({1000, 1})
    ->Args({1000, 2})
    ->UseRealTime()
    ->Unit(benchmark::kMillisecond);

}  // namespace
