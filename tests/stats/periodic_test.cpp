#include <gtest/gtest.h>

#include <cmath>
#include <complex>
#include <numbers>
#include <string>
#include <vector>

#include "core/missing.h"
#include "core/random.h"
#include "stats/periodic_gls.h"
#include "stats/periodic_harmonics.h"
#include "stats/periodic_significance.h"

namespace tidemark::stats {
namespace {

constexpr double kTwoPi = 2 * std::numbers::pi;

PeriodicSeries even_series(int n, double step, double (*f)(double)) {
  std::vector<double> t, y, w(static_cast<std::size_t>(n), 1.0);
  for (int i = 0; i < n; ++i) {
    t.push_back(i * step);
    y.push_back(f(t.back()));
  }
  return periodic_series(t, y, w);
}

PeriodicSeries noise_series(int n, core::Random& random) {
  std::vector<double> t, y, w(static_cast<std::size_t>(n), 1.0);
  for (int i = 0; i < n; ++i) {
    t.push_back(i * 10.0);
    y.push_back(random.gaussian12());
  }
  return periodic_series(t, y, w);
}

// Missing concentrations and REPS 0 points are left out; the weights are 1 / SEM^2 only
// when every used SEM is positive.
TEST(PeriodicSeries, LeavesOutMissingAndUnreplicatedPoints) {
  const std::vector<float> x{0, 10, 20, 30, 40}, dy{0.5f, 0.5f, 0.25f, 1, 2};
  const std::vector<float> y{1, core::kMissingF, 3, 4, 5};
  const std::vector<float> reps{1, 1, 0, 2, 1};
  const PeriodicSeries s = periodic_series(x, y, dy, reps);
  EXPECT_EQ(s.t, (std::vector<double>{0, 30, 40}));
  EXPECT_EQ(s.index, (std::vector<int>{0, 3, 4}));
  EXPECT_EQ(s.w, (std::vector<double>{4, 1, 0.25}));
  EXPECT_EQ(s.missing, 1);
  EXPECT_EQ(s.unreplicated, 1);
  const std::vector<float> zero_sem{0.5f, 0.5f, 0.25f, 0, 2};
  const PeriodicSeries equal = periodic_series(x, y, zero_sem, reps);
  EXPECT_FALSE(equal.sem_weights);
  EXPECT_EQ(equal.w, (std::vector<double>{1, 1, 1}));
}

struct BadCase {
  const char* what;
  std::vector<double> t, y;
  PeriodogramOptions options;
  PeriodicStatus status;
  const char* says;
};

// Each refusal comes with its reason in words, and no power.
TEST(Periodogram, RefusesInputItCannotAnalyse) {
  const std::vector<double> t12{0, 10, 20, 30, 40, 50, 60, 70, 80, 90, 100, 110};
  const std::vector<double> y12{1, 3, 2, 5, 4, 2, 1, 3, 5, 2, 4, 3};
  const std::vector<BadCase> cases{
      {"no points", {}, {}, {}, PeriodicStatus::kNoPoints, "No usable points"},
      {"three points", {0, 10, 20}, {1, 2, 1}, {}, PeriodicStatus::kTooFewPoints, "at least 4"},
      {"four points with a trend", {0, 10, 20, 30}, {1, 2, 1, 3}, {.remove_trend = true},
       PeriodicStatus::kTooFewPoints, "at least 5"},
      {"constant", t12, std::vector<double>(12, 2.5), {}, PeriodicStatus::kConstantSeries,
       "constant"},
      {"a straight line with the trend removed", t12, t12, {.remove_trend = true},
       PeriodicStatus::kConstantSeries, "straight line"},
      {"longest period beyond the span", t12, y12, {.min_period = 20, .max_period = 200},
       PeriodicStatus::kBadPeriodRange, "exceeds the time span of the data 110"},
      {"shortest period below twice the interval", t12, y12, {.min_period = 15, .max_period = 100},
       PeriodicStatus::kBadPeriodRange, "below twice the median sampling interval 10"},
      {"range upside down", t12, y12, {.min_period = 80, .max_period = 40},
       PeriodicStatus::kBadPeriodRange, "0 < shortest < longest"},
      {"one trial period", t12, y12, {.periods = 1}, PeriodicStatus::kBadOption,
       "between 2 and"},
  };
  for (const BadCase& c : cases) {
    SCOPED_TRACE(c.what);
    const PeriodogramResult r =
        periodogram(periodic_series(c.t, c.y, std::vector<double>(c.t.size(), 1.0)), c.options);
    EXPECT_EQ(r.status, c.status);
    EXPECT_NE(r.message.find(c.says), std::string::npos) << r.message;
    EXPECT_TRUE(r.power.empty());
  }
}

TEST(HarmonicFit, RefusesInputItCannotFit) {
  const std::vector<double> t12{0, 10, 20, 30, 40, 50, 60, 70, 80, 90, 100, 110};
  const std::vector<double> y12{1, 3, 2, 5, 4, 2, 1, 3, 5, 2, 4, 3};
  const std::vector<double> w12(12, 1.0);
  struct Case {
    const char* what;
    int points;
    HarmonicOptions options;
    PeriodicStatus status;
    const char* says;
  };
  const Case cases[] = {
      {"period 0", 12, {.period = 0}, PeriodicStatus::kBadOption, "must be positive"},
      {"five harmonics", 12, {.period = 60, .harmonics = 5}, PeriodicStatus::kBadOption,
       "between 1 and 4"},
      {"as many points as parameters", 5, {.period = 60, .harmonics = 2},
       PeriodicStatus::kTooFewPoints, "has 5 parameters and needs at least 6"},
      {"period of the sampling interval", 12, {.period = 10}, PeriodicStatus::kBadPeriodRange,
       "collinear"},
      {"no points", 0, {.period = 60}, PeriodicStatus::kNoPoints, "No usable points"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    const auto n = static_cast<std::size_t>(c.points);
    const std::vector<double> t(t12.begin(), t12.begin() + n), y(y12.begin(), y12.begin() + n),
        w(w12.begin(), w12.begin() + n);
    const HarmonicFitResult fit = fit_harmonics(periodic_series(t, y, w), c.options);
    EXPECT_EQ(fit.status, c.status);
    EXPECT_NE(fit.message.find(c.says), std::string::npos) << fit.message;
  }
  const HarmonicFitResult constant = fit_harmonics(
      periodic_series(t12, std::vector<double>(12, 4.0), w12), {.period = 60});
  EXPECT_EQ(constant.status, PeriodicStatus::kConstantSeries);
}

// The FFT sums reproduce the direct ones on uneven times and complex weights, at the
// frequencies' both ends (where extirpolation is least accurate).
TEST(TrigSums, FastAgreesWithDirect) {
  core::Random random(7);
  std::vector<double> t;
  std::vector<std::complex<double>> h;
  double scale = 0;
  for (int i = 0; i < 500; ++i) {
    t.push_back(1000 * random.uniform());
    h.emplace_back(random.gaussian12(), random.gaussian12());
    scale += std::abs(h.back());
  }
  for (const FrequencyGrid grid : {FrequencyGrid{0.001, 0.0001, 3000}, FrequencyGrid{0, 0.002, 101},
                                   FrequencyGrid{0.2, 0.00037, 777}}) {
    std::vector<std::complex<double>> direct(static_cast<std::size_t>(grid.count)),
        fast(direct.size());
    trig_sums_direct(t, h, grid, direct);
    trig_sums_fast(t, h, grid, fast);
    double worst = 0;
    for (std::size_t k = 0; k < direct.size(); ++k) worst = std::max(worst, std::abs(direct[k] - fast[k]));
    EXPECT_LT(worst, 1e-9 * scale) << grid.count;
  }
}

// A sinusoid sampled evenly over whole cycles, at its own (Fourier) frequency: the fit
// is exact, so the power is 1; at another Fourier frequency the sums vanish: 0.
TEST(Periodogram, PureSinusoidHasPowerOneAtItsFrequency) {
  // 64 samples 10 apart, period 160 = 640 / 4: frequency index 4 of the span 640.
  const PeriodicSeries s = even_series(64, 10, [](double t) {
    return 7 + 2 * std::cos(kTwoPi * (t - 30) / 160);
  });
  // Frequencies k / 640 for k = 2 .. 32: periods 320 down to 20.
  const PeriodogramResult p =
      periodogram(s, {.min_period = 20, .max_period = 320, .periods = 31});
  ASSERT_TRUE(p.ok()) << p.message;
  EXPECT_NEAR(p.power[2], 1.0, 1e-12);
  EXPECT_NEAR(p.power[6], 0.0, 1e-12);
  EXPECT_NEAR(p.power[18], 0.0, 1e-12);
}

TEST(Peaks, TopLocalMaximaHighestFirst) {
  const std::vector<double> power{0.5, 0.1, 0.3, 0.3, 0.2, 0.9, 0.1, 0.4};
  // Maxima: 0 (0.5), 2 (0.3, plateau's first point), 5 (0.9), 7 (0.4).
  EXPECT_EQ(top_peaks(power, 10), (std::vector<int>{5, 0, 7, 2}));
  EXPECT_EQ(top_peaks(power, 2), (std::vector<int>{5, 0}));
}

TEST(Permutation, FalseAlarmIsTheShareOfCyclesAtLeastAsHigh) {
  const std::vector<double> maxima{0.1, 0.2, 0.2, 0.4};
  EXPECT_DOUBLE_EQ(permutation_fap(maxima, 0.2), 4.0 / 5.0);
  EXPECT_DOUBLE_EQ(permutation_fap(maxima, 0.3), 2.0 / 5.0);
  EXPECT_DOUBLE_EQ(permutation_fap(maxima, 0.5), 1.0 / 5.0);
  EXPECT_DOUBLE_EQ(permutation_fap(maxima, 0.0), 1.0);
}

// The same seed gives the same cycles on one thread and on four; a strong rhythm beats
// every shuffled series.
TEST(Permutation, DependsOnlyOnTheSeed) {
  const PeriodicSeries s = even_series(48, 30, [](double t) {
    return 5 + std::cos(kTwoPi * t / 240) + 0.3 * std::sin(t * t);
  });
  const PeriodogramResult p = periodogram(s, {});
  ASSERT_TRUE(p.ok()) << p.message;
  core::Random a(99), b(99);
  const PeaksResult first =
      periodic_peaks(s, p, {.peaks = 3, .cycles = 200, .parallel = {.threads = 1}}, a);
  const PeaksResult second =
      periodic_peaks(s, p, {.peaks = 3, .cycles = 200, .parallel = {.threads = 4}}, b);
  ASSERT_TRUE(first.ok());
  ASSERT_EQ(first.permutation_maxima.size(), 200u);
  EXPECT_EQ(first.permutation_maxima, second.permutation_maxima);
  EXPECT_NEAR(first.peaks[0].period, 240, 240 * 240 / (5 * 1440.0));
  EXPECT_DOUBLE_EQ(first.peaks[0].permutation_fap, 1.0 / 201);
  EXPECT_LT(first.peaks[0].fap, 1e-6);
}

// A progress callback that answers false stops the cycles: no peaks, status kCancelled.
TEST(Permutation, ACancelLeavesNoPeaks) {
  const PeriodicSeries s = even_series(48, 30, [](double t) { return 5 + std::sin(t * t); });
  const PeriodogramResult p = periodogram(s, {});
  ASSERT_TRUE(p.ok()) << p.message;
  core::Random random(1);
  const PeaksResult r = periodic_peaks(
      s, p, {.peaks = 3, .cycles = 5000, .parallel = {.progress = [](long, long) { return false; }}},
      random);
  EXPECT_EQ(r.status, PeriodicStatus::kCancelled);
  EXPECT_FALSE(r.ok());
  EXPECT_TRUE(r.peaks.empty());
}

// On white noise, the share of series whose best peak has a Baluev false-alarm
// probability below 0.05 lies near 0.05 (the full measurement over 1,000 series is the
// benchmark BM_PeriodicCalibration; this is a pinned 300).
TEST(Calibration, WhiteNoiseFalseAlarmsNearTheirLevel) {
  core::Random random(2026);
  int alarms = 0;
  constexpr int kSeries = 300;
  for (int i = 0; i < kSeries; ++i) {
    const PeriodicSeries s = noise_series(72, random);
    const PeriodogramResult p = periodogram(s, {});
    ASSERT_TRUE(p.ok());
    core::Random unused(1);
    const PeaksResult peaks = periodic_peaks(s, p, {.peaks = 1, .cycles = 0}, unused);
    if (peaks.peaks[0].fap < 0.05) ++alarms;
  }
  const double share = static_cast<double>(alarms) / kSeries;
  EXPECT_GE(share, 0.02);
  EXPECT_LE(share, 0.08);
}

// Noiseless curves whose fit is exact: one harmonic's amplitude and acrophase by
// construction; for cos(wt) + cos(2wt) the highest value 2 is at t = 0, the lowest,
// -9/8, where cos(wt) = -1/4 (the derivative sin(wt)(1 + 4 cos(wt)) vanishes).
TEST(HarmonicFit, NoiselessCurvesGiveTheirOwnShape) {
  const PeriodicSeries one = even_series(24, 1, [](double t) {
    return 3 + 2 * std::cos(kTwoPi * (t - 5) / 24);
  });
  const HarmonicFitResult a = fit_harmonics(one, {.period = 24});
  ASSERT_TRUE(a.ok()) << a.message;
  EXPECT_NEAR(a.mesor, 3, 1e-12);
  EXPECT_NEAR(a.terms[0].amplitude, 2, 1e-12);
  EXPECT_NEAR(a.terms[0].acrophase, 5, 1e-10);
  EXPECT_NEAR(a.amplitude, 2, 1e-10);
  EXPECT_NEAR(a.acrophase, 5, 1e-8);
  EXPECT_NEAR(a.nadir, 17, 1e-8);
  EXPECT_NEAR(a.percent_rhythm, 100, 1e-9);

  const PeriodicSeries two = even_series(48, 0.5, [](double t) {
    return std::cos(kTwoPi * t / 24) + std::cos(2 * kTwoPi * t / 24);
  });
  const HarmonicFitResult b = fit_harmonics(two, {.period = 24, .harmonics = 2});
  ASSERT_TRUE(b.ok()) << b.message;
  EXPECT_NEAR(b.amplitude, (2 + 9.0 / 8) / 2, 1e-10);
  EXPECT_NEAR(std::min(b.acrophase, 24 - b.acrophase), 0, 1e-6);
  const double nadir = std::acos(-0.25) * 24 / kTwoPi;
  EXPECT_NEAR(std::min(std::abs(b.nadir - nadir), std::abs(b.nadir - (24 - nadir))), 0, 1e-8);
  EXPECT_NEAR(std::min(b.terms[1].acrophase, 12 - b.terms[1].acrophase), 0, 1e-10);
}

}  // namespace
}  // namespace tidemark::stats
