// The Cosine mode's start on N = 1,000 points: the reference fit and the period scan
// (997 trial fits of Amplitude, Phase and Mean), as the mode runs it on a new series.
#include <benchmark/benchmark.h>

#include <cmath>
#include <vector>

#include "stats/cosine_start.h"

namespace {

void BM_CosinePeriodScan(benchmark::State& state) {
  const auto n = static_cast<int>(state.range(0));
  std::vector<double> t, y;
  for (int i = 1; i <= n; ++i) {
    t.push_back(10.0 * i);
    y.push_back(10 + 3 * std::cos((t.back() - 50) * 6.283185307 / 1440) + 0.3 * ((i * 7) % 5 - 2));
  }
  for (auto _ : state) benchmark::DoNotOptimize(tidemark::stats::start_cosine(t, y));
}
BENCHMARK(BM_CosinePeriodScan)->Arg(1000)->Unit(benchmark::kMillisecond);

}  // namespace
