// Cluster8 on 10,000 samples: a series of pulses every 90 minutes sampled every
// 10 minutes, with the default settings.
#include <benchmark/benchmark.h>

#include <cmath>
#include <vector>

#include "pulse/cluster8.h"

namespace {

std::vector<tidemark::pulse::Cluster8Sample> pulsatile_series(int n) {
  std::vector<tidemark::pulse::Cluster8Sample> s;
  for (int k = 0; k < n; ++k) {
    const float t = 10.0f * static_cast<float>(k + 1);
    const float phase = std::fmod(t, 90.0f);
    const float mean = 2.0f + 5.0f * std::exp(-phase / 45.0f) + 0.2f * std::sin(0.7f * t);
    s.push_back({mean, 0.1f * mean, t, 2.0f});
  }
  return s;
}

void BM_Cluster8_10000(benchmark::State& state) {
  const auto samples = pulsatile_series(10'000);
  const tidemark::pulse::Cluster8Settings settings;
  for (auto _ : state) {
    auto result = tidemark::pulse::run_cluster8(samples, settings);
    benchmark::DoNotOptimize(result);
  }
}
BENCHMARK(BM_Cluster8_10000)->Unit(benchmark::kMillisecond);

}  // namespace
