// Cross-approximate entropy: one X-ApEn(1, 2) by the direct and the fast count side by
// side, and the whole 1,000-cycle Monte-Carlo calculation of XAPEN_CALCULATE.
#include <benchmark/benchmark.h>

#include <vector>

#include "core/random.h"
#include "stats/xapen.h"
#include "stats/xapen_monte_carlo.h"

namespace {

using tidemark::stats::CrossCounts;

std::vector<double> gaussian_series(int n, std::uint64_t seed) {
  tidemark::core::Random random(seed);
  std::vector<double> x(n);
  for (double& v : x) v = random.gaussian12();
  return x;
}

template <CrossCounts (*Count)(std::span<const double>, std::span<const double>, double,
                               tidemark::stats::HitTable*)>
void BM_XApEn(benchmark::State& state) {
  const int n = static_cast<int>(state.range(0));
  const auto a = gaussian_series(n, 1), b = gaussian_series(n, 2);
  for (auto _ : state) {
    benchmark::DoNotOptimize(tidemark::stats::xapen_from_counts(Count(a, b, 0.2, nullptr), n));
  }
}
BENCHMARK(BM_XApEn<tidemark::stats::cross_counts_direct>)
    ->Name("XApEn/direct")
    ->Arg(1000)
    ->Arg(10000)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(BM_XApEn<tidemark::stats::cross_counts_fast>)
    ->Name("XApEn/fast")
    ->Arg(1000)
    ->Arg(10000)
    ->Arg(100000)
    ->Unit(benchmark::kMillisecond);

void BM_XApEnCalculation(benchmark::State& state) {
  const int n = static_cast<int>(state.range(0));
  const auto a = gaussian_series(n, 1), b = gaussian_series(n, 2);
  const std::vector<double> s(n, 0.1);
  for (auto _ : state) {
    benchmark::DoNotOptimize(tidemark::stats::xapen_monte_carlo(
        a, s, b, s, 0.2, {.cycles = 1000, .seed = 3, .threads = 0, .progress = {}}));
  }
}
BENCHMARK(BM_XApEnCalculation)->Arg(144)->Arg(1024)->Unit(benchmark::kMillisecond);

}  // namespace
