// Cross-approximate entropy: one X-ApEn(1, 2) counted by every pair (direct) and fast,
// side by side; the two fast methods on their own; and the whole 1,000-cycle Monte-Carlo
// calculation of XAPEN_CALCULATE on all cores (wall time).
#include <benchmark/benchmark.h>

#include <vector>

#include "core/random.h"
#include "entropy_bench_sizes.h"
#include "stats/xapen.h"
#include "stats/xapen_monte_carlo.h"

namespace {

using tidemark::stats::CountMethod;
using tidemark::stats::MatchMethod;

std::vector<double> gaussian_series(int n, std::uint64_t seed) {
  tidemark::core::Random random(seed);
  std::vector<double> x(n);
  for (double& v : x) v = random.gaussian12();
  return x;
}

template <CountMethod method>
void BM_XApEn(benchmark::State& state) {
  const int n = static_cast<int>(state.range(0));
  const auto a = gaussian_series(n, 1), b = gaussian_series(n, 2);
  for (auto _ : state) {
    benchmark::DoNotOptimize(tidemark::stats::cross_apen(a, b, 0.2, nullptr, method));
  }
}
BENCHMARK(BM_XApEn<CountMethod::kDirect>)
    ->Name("XApEn/direct")
    ->Apply(tidemark::bench::direct_sizes);
BENCHMARK(BM_XApEn<CountMethod::kDirect>)
    ->Name("XApEn/direct")
    ->Apply(tidemark::bench::direct_once);
BENCHMARK(BM_XApEn<CountMethod::kFast>)->Name("XApEn/fast")->Apply(tidemark::bench::fast_sizes);

// The two fast counting methods alone, for the choice between them.
template <MatchMethod method>
void BM_XApEnCounts(benchmark::State& state) {
  const int n = static_cast<int>(state.range(0));
  const auto a = gaussian_series(n, 1), b = gaussian_series(n, 2);
  for (auto _ : state) {
    benchmark::DoNotOptimize(tidemark::stats::cross_counts_fast(a, b, 0.2, nullptr, method));
  }
}
BENCHMARK(BM_XApEnCounts<MatchMethod::kRunScan>)
    ->Name("XApEnCounts/run_scan")
    ->Apply(tidemark::bench::counting_sizes);
BENCHMARK(BM_XApEnCounts<MatchMethod::kBoxes>)
    ->Name("XApEnCounts/rank_space")
    ->Apply(tidemark::bench::counting_sizes);

template <CountMethod method>
void BM_XApEnCalculation(benchmark::State& state) {
  const int n = static_cast<int>(state.range(0));
  const auto a = gaussian_series(n, 1), b = gaussian_series(n, 2);
  const std::vector<double> s(n, 0.1);
  for (auto _ : state) {
    benchmark::DoNotOptimize(tidemark::stats::xapen_monte_carlo(
        a, s, b, s, 0.2, {.cycles = 1000, .seed = 3, .method = method}));
  }
}
BENCHMARK(BM_XApEnCalculation<CountMethod::kDirect>)
    ->Name("XApEnCalculation/direct")
    ->Apply(tidemark::bench::calculation_sizes);
BENCHMARK(BM_XApEnCalculation<CountMethod::kFast>)
    ->Name("XApEnCalculation/fast")
    ->Apply(tidemark::bench::calculation_sizes);

}  // namespace
