// Approximate entropy: one ApEn(m = 1, 2) by the direct and the fast counting methods
// side by side, the two fast methods on their own, and the whole calculation with its
// two 1,000-cycle Monte-Carlo passes on all cores (wall time).
#include <benchmark/benchmark.h>

#include <cmath>

#include "core/random.h"
#include "entropy_bench_sizes.h"
#include "stats/apen_analysis.h"

namespace {

using tidemark::stats::CountMethod;
using tidemark::stats::MatchMethod;

// A pulsatile series in Z-scores: a sine of period 12 samples plus Gaussian noise,
// standard errors 0.1, every point usable.
tidemark::stats::WorkingSeries series(std::int64_t n) {
  tidemark::core::Random random(42);
  tidemark::stats::WorkingSeries s;
  for (std::int64_t i = 0; i < n; ++i) {
    s.x.push_back(
        static_cast<float>(std::sin(static_cast<double>(i) * 0.5236) + 0.5 * random.gaussian12()));
    s.s.push_back(0.1f);
    s.usable.push_back(1);
  }
  tidemark::stats::to_z_scores(s);
  return s;
}

template <CountMethod method>
void BM_ApEn(benchmark::State& state) {
  const auto s = series(state.range(0));
  for (auto _ : state) {
    benchmark::DoNotOptimize(tidemark::stats::apen(s.x, s.usable, 0.2f, method));
  }
  state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(BM_ApEn<CountMethod::kDirect>)->Name("ApEn/direct")->Apply(tidemark::bench::direct_sizes);
BENCHMARK(BM_ApEn<CountMethod::kDirect>)->Name("ApEn/direct")->Apply(tidemark::bench::direct_once);
BENCHMARK(BM_ApEn<CountMethod::kFast>)->Name("ApEn/fast")->Apply(tidemark::bench::fast_sizes);

// The two fast counting methods alone, for the choice between them.
template <MatchMethod method>
void BM_ApEnCounts(benchmark::State& state) {
  const auto s = series(state.range(0));
  for (auto _ : state) {
    benchmark::DoNotOptimize(tidemark::stats::count_matches_fast_all(s.x, s.usable, 0.2f, method));
  }
}
BENCHMARK(BM_ApEnCounts<MatchMethod::kRunScan>)
    ->Name("ApEnCounts/run_scan")
    ->Apply(tidemark::bench::counting_sizes);
BENCHMARK(BM_ApEnCounts<MatchMethod::kBoxes>)
    ->Name("ApEnCounts/rank_space")
    ->Apply(tidemark::bench::counting_sizes);

// The whole calculation (data, 1,000 noise-added and 1,000 shuffled cycles) on all cores.
template <CountMethod method>
void BM_ApEnCalculate(benchmark::State& state) {
  const auto s = series(state.range(0));
  for (auto _ : state) {
    benchmark::DoNotOptimize(tidemark::stats::analyse_apen(s, {.cycles = 1000, .method = method}));
  }
}
BENCHMARK(BM_ApEnCalculate<CountMethod::kDirect>)
    ->Name("ApEnCalculate/direct")
    ->Apply(tidemark::bench::calculation_sizes);
BENCHMARK(BM_ApEnCalculate<CountMethod::kFast>)
    ->Name("ApEnCalculate/fast")
    ->Apply(tidemark::bench::calculation_sizes);

}  // namespace
