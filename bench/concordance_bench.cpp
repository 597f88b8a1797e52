// Concordance's Monte-Carlo table: 100,000 cycles of 20 events per series over a day
// sampled every 10 minutes, range ±5 minutes (target: under 0.2 s), on one thread and
// on every core.
#include <benchmark/benchmark.h>

#include <vector>

#include "stats/concordance_monte_carlo.h"

namespace {

void BM_ConcordanceCycles(benchmark::State& state) {
  const auto threads = static_cast<int>(state.range(0));
  const tidemark::stats::ConcordanceDraw draw{20, 20, {0, 1440}, {0, 1440}, {-5, 5}};
  for (auto _ : state) {
    std::vector<double> histogram;
    tidemark::stats::add_cycles(draw, 42, 100'000, {.threads = threads}, histogram);
    benchmark::DoNotOptimize(histogram);
  }
}
// 1 thread, and 0 for core::default_threads().
BENCHMARK(BM_ConcordanceCycles)->Arg(1)->Arg(0)->Unit(benchmark::kMillisecond);

}  // namespace
