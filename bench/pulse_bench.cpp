// The secretion-elimination model at one trial vector (1,000 samples, 20 events, three
// half-lives), as a deconvolution fit evaluates it, and Gold's method run to convergence
// on 1,000 samples.
#include <benchmark/benchmark.h>

#include <vector>

#include "core/random.h"
#include "pulse/gold.h"
#include "pulse/secretion_model.h"

namespace {

using namespace tidemark::pulse;

constexpr int kSamples = 1000;
constexpr int kEvents = 20;
constexpr double kInterval = 2.0;  // minutes between samples

std::vector<float> sample_times() {
  std::vector<float> times(kSamples);
  for (int i = 0; i < kSamples; ++i) times[i] = float((i + 1) * kInterval);
  return times;
}

// Basal 0.5, C0 3, SD 4, half-lives 4, 40 and 200 with fractions 0.3 and 0.2 (the first
// 2 + 2 * half_lives of them), and events every 100 minutes with LogHeights between 0.8
// and 1.7.
std::vector<double> model_vector(int half_lives) {
  std::vector<double> p = {0.5, 3, 4, 4, 0.3, 40, 0.2, 200};
  p.resize(static_cast<std::size_t>(2 + 2 * half_lives));
  for (int e = 0; e < kEvents; ++e) {
    p.push_back(50.0 + 100.0 * e);
    p.push_back(0.8 + 0.1 * (e % 10));
  }
  return p;
}

void BM_SecretionModel(benchmark::State& state) {
  const int half_lives = static_cast<int>(state.range(0));
  const std::vector<float> times = sample_times();
  const std::vector<double> p = model_vector(half_lives);
  std::vector<float> conc(kSamples);
  for (auto _ : state) {
    const ModelResult r = evaluate_model(p, {half_lives, kEvents}, times, conc);
    benchmark::DoNotOptimize(r);
    benchmark::DoNotOptimize(conc.data());
  }
  state.counters["evaluations_per_second"] =
      benchmark::Counter(static_cast<double>(state.iterations()), benchmark::Counter::kIsRate);
}
BENCHMARK(BM_SecretionModel)->Arg(1)->Arg(3)->Unit(benchmark::kMicrosecond);

// One-half-life model data (half-life 40) with 3 % Gaussian noise and matching SDs,
// deconvolved with its exponential kernel until Gold's stall rule stops it (noiseless
// data would improve slowly for all 3000 iterations).
void BM_GoldToConvergence(benchmark::State& state) {
  const std::vector<float> times = sample_times();
  std::vector<float> conc(kSamples);
  std::vector<double> p = model_vector(1);
  p[kHalfLife1] = 40;
  evaluate_model(p, {1, kEvents}, times, conc);
  tidemark::core::Random random(7);
  std::vector<double> c(kSamples), sd(kSamples);
  for (int i = 0; i < kSamples; ++i) {
    c[i] = conc[i] * (1 + 0.03 * random.gaussian12());
    sd[i] = 0.03 * conc[i];
  }
  const std::vector<int> use(kSamples, 1);
  const KernelResult k = exponential_kernel(40, kInterval, kSamples);
  int iterations = 0;
  bool converged = false;
  for (auto _ : state) {
    const GoldResult r = gold_deconvolve({c, sd, use}, k.kernel, {0, k.last_lag, kInterval});
    iterations = r.iterations;
    converged = r.ok();
    benchmark::DoNotOptimize(r.secretion.data());
  }
  state.counters["gold_iterations"] = iterations;
  state.counters["converged"] = converged;
  state.counters["kernel_lags"] = k.last_lag + 1;
}
BENCHMARK(BM_GoldToConvergence)->Unit(benchmark::kMillisecond);

}  // namespace
