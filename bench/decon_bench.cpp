// The deconvolution kernels: the model with its Jacobian, one weighted fit, AutoInit, and
// one AutoDecon of a 144-point series (10-min sampling, 24 h) with 15 events, 5 % CV.
#include <benchmark/benchmark.h>

#include <cmath>
#include <vector>

#include "core/random.h"
#include "pulse/auto_decon.h"
#include "pulse/auto_init.h"
#include "pulse/model_gradient.h"
#include "pulse/simulate.h"

namespace {

using namespace tidemark;
using namespace tidemark::pulse;

struct Series {
  SimulatedSeries truth;
  std::vector<double> c, sd;
  DeconSeries view() const { return {truth.time, c, sd}; }
};

// Half-life 60, SD 6, 15 events every 90 min.
Series fifteen_events() {
  SimulationOptions o;
  o.fixed = {2 * std::log(2.0) / 60, 1.0, 6.0, 60.0};
  for (int e = 0; e < 15; ++e) o.events.push_back({60.0 + 90.0 * e, -0.7 + 0.05 * (e % 4)});
  o.samples = 144;
  o.interval = 10;
  o.noise_cv = 0.05;
  core::Random random(7);
  Series s;
  s.truth = simulate_series(o, random);
  s.c.assign(s.truth.concentration.begin(), s.truth.concentration.end());
  s.sd.assign(s.truth.sem.begin(), s.truth.sem.end());
  return s;
}

void BM_ModelGradient(benchmark::State& state) {
  const Series s = fifteen_events();
  std::vector<double> v(s.c.size()), jac(s.c.size() * s.truth.layout.size());
  for (auto _ : state) {
    benchmark::DoNotOptimize(evaluate_model_gradient(s.truth.parameters, s.truth.layout, s.truth.time, v, jac));
  }
}
BENCHMARK(BM_ModelGradient);

void BM_DeconFit(benchmark::State& state) {
  const Series s = fifteen_events();
  ModelVector start{s.truth.layout, s.truth.parameters, std::vector<bool>(s.truth.parameters.size(), true)};
  start.values[kHalfLife1] = 50;
  for (auto _ : state) benchmark::DoNotOptimize(fit_model(s.view(), start));
}
BENCHMARK(BM_DeconFit)->Unit(benchmark::kMillisecond);

void BM_AutoInit(benchmark::State& state) {
  const Series s = fifteen_events();
  for (auto _ : state) benchmark::DoNotOptimize(auto_init(s.truth.time, s.c, s.sd));
}
BENCHMARK(BM_AutoInit)->Unit(benchmark::kMillisecond);

// The speed case: AutoInit and the whole search.
void BM_AutoDecon(benchmark::State& state) {
  const Series s = fifteen_events();
  for (auto _ : state) {
    const AutoInitResult init = auto_init(s.truth.time, s.c, s.sd);
    benchmark::DoNotOptimize(auto_decon(s.view(), auto_init_start(init)));
  }
}
BENCHMARK(BM_AutoDecon)->Unit(benchmark::kMillisecond);

}  // namespace
