// The Periodic mode's kernels: the periodogram of N = 1,000 uneven samples at 10,000
// trial periods (direct sums and FFT sums), the permutation test of 1,000 cycles at
// N = 288, the K-harmonic fit, and two measurements reported as counters: the
// calibration of the Baluev false-alarm probability on 1,000 white-noise series and the
// period-recovery error of a rhythm plus noise against N and noise (docs/periodic.md).
#include <benchmark/benchmark.h>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <vector>

#include "core/random.h"
#include "stats/periodic_gls.h"
#include "stats/periodic_harmonics.h"
#include "stats/periodic_significance.h"

namespace {

using namespace tidemark;
constexpr double kTwoPi = 2 * std::numbers::pi;

// n uneven times over n * 10 minutes (10-minute slots jittered by up to 4 minutes), a
// rhythm of amplitude `amplitude` plus Gaussian noise whose SD, the point's SEM, lies
// between 0.5 and 1.5 (weights 1 / SEM^2 that match the noise).
stats::PeriodicSeries rhythm(int n, double amplitude, double period, core::Random& random) {
  std::vector<double> t, y, w;
  for (int i = 0; i < n; ++i) {
    t.push_back(10.0 * i + 8 * (random.uniform() - 0.5));
    const double sem = 0.5 + random.uniform();
    y.push_back(5 + amplitude * std::cos(kTwoPi * t.back() / period) + sem * random.gaussian12());
    w.push_back(1 / (sem * sem));
  }
  return stats::periodic_series(t, y, w);
}

void BM_PeriodogramN1000P10000(benchmark::State& state) {
  core::Random random(1);
  const stats::PeriodicSeries s = rhythm(1000, 1, 90, random);
  const stats::PeriodogramOptions options{
      .min_period = 25, .max_period = 5000, .periods = 10000,
      .method = state.range(0) ? stats::SumMethod::kFast : stats::SumMethod::kDirect};
  for (auto _ : state) benchmark::DoNotOptimize(stats::periodogram(s, options));
}
BENCHMARK(BM_PeriodogramN1000P10000)->ArgName("fast")->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

// 288 samples (48 h every 10 minutes), the default period range and grid, 1,000 cycles,
// on one thread and on two.
void BM_PermutationN288C1000(benchmark::State& state) {
  const auto threads = static_cast<int>(state.range(0));
  core::Random random(2);
  const stats::PeriodicSeries s = rhythm(288, 0.5, 1440, random);
  const stats::PeriodogramResult p = stats::periodogram(s, {});
  state.counters["periods"] = p.grid.count;
  for (auto _ : state) {
    core::Random cycles(3);
    benchmark::DoNotOptimize(
        stats::permutation_maxima(s, p, false, 1000, cycles, {.threads = threads}));
  }
}
BENCHMARK(BM_PermutationN288C1000)->ArgName("threads")->Arg(1)->Arg(2)->Unit(benchmark::kMillisecond);

void BM_HarmonicFitN288K4(benchmark::State& state) {
  core::Random random(4);
  const stats::PeriodicSeries s = rhythm(288, 1, 1440, random);
  for (auto _ : state)
    benchmark::DoNotOptimize(stats::fit_harmonics(s, {.period = 1440, .harmonics = 4}));
}
BENCHMARK(BM_HarmonicFitN288K4)->Unit(benchmark::kMicrosecond);

// Share of 1,000 white-noise series (N from the argument, default period range) whose
// best peak has a Baluev false-alarm probability below 0.05.
void BM_PeriodicCalibration(benchmark::State& state) {
  const auto n = static_cast<int>(state.range(0));
  double share = 0;
  for (auto _ : state) {
    core::Random random(5);
    int alarms = 0;
    for (int i = 0; i < 1000; ++i) {
      const stats::PeriodicSeries s = rhythm(n, 0, 90, random);
      const stats::PeriodogramResult p = stats::periodogram(s, {});
      core::Random unused(1);
      const auto peaks = stats::periodic_peaks(s, p, {.peaks = 1, .cycles = 0}, unused);
      if (peaks.peaks[0].fap < 0.05) ++alarms;
    }
    share = alarms / 1000.0;
  }
  state.counters["share_below_0.05"] = share;
}
BENCHMARK(BM_PeriodicCalibration)->ArgName("n")->Arg(48)->Arg(144)->Arg(288)->Iterations(1)->Unit(benchmark::kMillisecond);

// Median and 90th-percentile absolute error of the best peak's period (minutes) for a
// 90-minute rhythm of amplitude 1 over 200 series, against N and the noise SD (the
// second argument, in tenths).
void BM_PeriodRecovery(benchmark::State& state) {
  const auto n = static_cast<int>(state.range(0));
  const double sd = static_cast<double>(state.range(1)) / 10.0;
  std::vector<double> errors;
  for (auto _ : state) {
    core::Random random(6);
    errors.clear();
    for (int i = 0; i < 200; ++i) {
      std::vector<double> t, y, w;
      for (int j = 0; j < n; ++j) {
        t.push_back(10.0 * j + 8 * (random.uniform() - 0.5));
        y.push_back(5 + std::cos(kTwoPi * (t.back() - 37 * i) / 90) + sd * random.gaussian12());
        w.push_back(1.0);
      }
      const stats::PeriodogramResult p =
          stats::periodogram(stats::periodic_series(t, y, w), {.min_period = 30, .max_period = 600});
      const auto best = stats::top_peaks(p.power, 1);
      errors.push_back(std::abs(p.period[best[0]] - 90));
    }
  }
  std::sort(errors.begin(), errors.end());
  state.counters["median_error"] = errors[errors.size() / 2];
  state.counters["p90_error"] = errors[errors.size() * 9 / 10];
}
BENCHMARK(BM_PeriodRecovery)
    ->ArgNames({"n", "sd10"})
    ->ArgsProduct({{72, 144, 288}, {5, 10, 20, 40}})
    ->Iterations(1)
    ->Unit(benchmark::kMillisecond);

}  // namespace
