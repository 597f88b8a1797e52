// LSFIT2 on a five-parameter cosinor with trend at 1,000 points, all parameters fitted
// from a start 5 % off.
#include <benchmark/benchmark.h>

#include <cmath>
#include <vector>

#include "stats/cosine.h"

namespace {

void BM_Lsfit2Cosinor(benchmark::State& state) {
  std::vector<double> t, y;
  for (int i = 1; i <= 1000; ++i) {
    t.push_back(i);
    y.push_back(3 * std::cos((i - 50) * 6.283185307 / 240) + 10 + 0.001 * i);
  }
  const tidemark::stats::CosineFlags all = {true, true, true, true, true};
  for (auto _ : state) {
    benchmark::DoNotOptimize(tidemark::stats::fit_cosine(t, y, {250, 2.8, 45, 9.5, 0}, all, 1));
  }
}
BENCHMARK(BM_Lsfit2Cosinor)->Unit(benchmark::kMillisecond);

}  // namespace
