// The Correlation mode's analysis at N = 1,000 and MAXLAG = 100 (both series'
// autocorrelations and partial autocorrelations, the cross-correlation and Kendall's tau
// at all 201 lags), and Kendall's tau alone on 1,000 pairs.
#include <benchmark/benchmark.h>

#include <cmath>
#include <vector>

#include "core/random.h"
#include "stats/correlation_analysis.h"

namespace {

constexpr int kPoints = 1000;

// Two series of Gaussian noise on a shared slow rhythm, rounded to 0.1 so that Kendall
// meets ties as assay values do.
std::pair<std::vector<double>, std::vector<double>> two_series() {
  tidemark::core::Random random(3);
  std::vector<double> a(kPoints), b(kPoints);
  for (int i = 0; i < kPoints; ++i) {
    const double rhythm = 5 * std::sin(i / 40.0);
    a[i] = std::round(10 * (20 + rhythm + random.gaussian12())) / 10;
    b[i] = std::round(10 * (15 + rhythm + random.gaussian12())) / 10;
  }
  return {a, b};
}

void BM_CorrelationAnalysis(benchmark::State& state) {
  const auto [a, b] = two_series();
  for (auto _ : state) {
    auto result = tidemark::stats::correlation_analysis(a, b, 100);
    benchmark::DoNotOptimize(result);
  }
}
BENCHMARK(BM_CorrelationAnalysis)->Unit(benchmark::kMillisecond);

void BM_KendallTau(benchmark::State& state) {
  const auto [a, b] = two_series();
  for (auto _ : state) {
    auto result = tidemark::stats::kendall_tau(a, b);
    benchmark::DoNotOptimize(result);
  }
}
BENCHMARK(BM_KendallTau)->Unit(benchmark::kMicrosecond);

}  // namespace
