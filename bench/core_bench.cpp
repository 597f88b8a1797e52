// Throughput of the core helpers that sit in inner loops: the listing number formats
// (a listing of 100,000 lines holds several numbers per line) and the random deviates
// of the Monte-Carlo passes.
#include <benchmark/benchmark.h>

#include <cmath>
#include <vector>

#include "core/fortran_format.h"
#include "core/missing.h"
#include "core/random.h"

namespace {

using tidemark::core::Random;

// Listing-like values: concentrations over eight decades, both signs, and a missing
// value now and then.
std::vector<double> listing_values() {
  Random random(99);
  std::vector<double> values(4096);
  for (std::size_t i = 0; i < values.size(); ++i) {
    values[i] = (i % 50 == 0) ? tidemark::core::kMissing
                              : (random.uniform() - 0.3) * std::pow(10.0, 8 * random.uniform() - 4);
  }
  return values;
}

template <typename Format>
void format_values(benchmark::State& state, Format format) {
  const auto values = listing_values();
  std::size_t i = 0;
  for (auto _ : state) {
    benchmark::DoNotOptimize(format(values[i]));
    i = (i + 1) % values.size();
  }
  state.SetItemsProcessed(state.iterations());
}

void BM_FormatG15_5(benchmark::State& state) {
  format_values(state, [](double x) { return tidemark::core::format_g15_5(x); });
}
BENCHMARK(BM_FormatG15_5);

void BM_FormatF10_2(benchmark::State& state) {
  format_values(state, [](double x) { return tidemark::core::format_f(x, 10, 2); });
}
BENCHMARK(BM_FormatF10_2);

void BM_FormatE12_4(benchmark::State& state) {
  format_values(state, [](double x) { return tidemark::core::format_e(x, 12, 4); });
}
BENCHMARK(BM_FormatE12_4);

void BM_Uniform(benchmark::State& state) {
  Random random(1);
  for (auto _ : state) benchmark::DoNotOptimize(random.uniform());
  state.SetItemsProcessed(state.iterations());
}
BENCHMARK(BM_Uniform);

void BM_Gaussian12(benchmark::State& state) {
  Random random(1);
  for (auto _ : state) benchmark::DoNotOptimize(random.gaussian12());
  state.SetItemsProcessed(state.iterations());
}
BENCHMARK(BM_Gaussian12);

}  // namespace
