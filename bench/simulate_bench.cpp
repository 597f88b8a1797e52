// A simulated series (1,000 samples, events drawn about every 50 minutes, three
// half-lives, 5 % noise over 3 replicates) and the combined kernel of Gold_Method
// (elimination of half-life 45 convolved with a secretion SD of 4 at 2-minute sampling).
#include <benchmark/benchmark.h>

#include "core/random.h"
#include "pulse/gold_kernel.h"
#include "pulse/simulate.h"

namespace {

using namespace tidemark::pulse;

void BM_SimulateSeries(benchmark::State& state) {
  SimulationOptions o;
  o.half_lives = 3;
  o.fixed = {0.5, 3, 4, 4, 0.3, 40, 0.2, 200};
  o.draw = true;
  o.random_events = {50, 1, 0.2};
  o.samples = 1000;
  o.interval = 2;
  o.noise_cv = 0.05;
  o.replicates = 3;
  tidemark::core::Random random(1);
  for (auto _ : state) benchmark::DoNotOptimize(simulate_series(o, random));
}
BENCHMARK(BM_SimulateSeries)->Unit(benchmark::kMicrosecond);

void BM_CombinedKernel(benchmark::State& state) {
  for (auto _ : state) benchmark::DoNotOptimize(gold_kernel(45, 4, true, 2, 1000));
}
BENCHMARK(BM_CombinedKernel)->Unit(benchmark::kMicrosecond);

}  // namespace
