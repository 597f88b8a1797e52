#include "stats/cosine.h"

#include <gtest/gtest.h>

#include <cmath>
#include <vector>

#include "core/missing.h"
#include "stats/cosine_start.h"

namespace tidemark::stats {
namespace {

constexpr double kRecovery = 1e-6;

struct Series {
  std::vector<double> t, y;
};

// A noiseless cosinor sampled at t = 1..n, written out from its closed form.
Series cosinor(int n, const CosineValues& v) {
  Series s;
  for (int i = 1; i <= n; ++i) {
    s.t.push_back(i);
    s.y.push_back(v[kAmplitude] * std::cos((i - v[kPhase]) * 6.283185307 / v[kPeriod]) + v[kMean] +
                  v[kSlope] * i);
  }
  return s;
}

void expect_values(const CosineValues& got, const CosineValues& want, double tolerance) {
  for (int j = 0; j < kCosineParameters; ++j) EXPECT_NEAR(got[j], want[j], tolerance) << j;
}

TEST(CosineFit, ANoiselessCosinorWithTrendIsRecoveredWithAllFiveParametersFitted) {
  const CosineValues truth = {24, 3, 5, 10, 0.05};
  const Series s = cosinor(72, truth);
  const CosineFit fit = fit_cosine(s.t, s.y, {23, 2, 4, 9, 0}, {true, true, true, true, true}, 1);
  ASSERT_EQ(fit.engine.code, Lsfit2Code::kOk) << fit.engine.message;
  expect_values(fit.values, truth, kRecovery);
  EXPECT_LT(fit.percent, 1e-9);
}

TEST(CosineFit, WithTheDefaultFlagsOnlyAmplitudePhaseAndMeanMove) {
  const Series s = cosinor(48, {12, 2, 3, 7, 0});
  const CosineFit fit = fit_cosine(s.t, s.y, {12, 1, 0, 6, 0}, kDefaultCosineFlags, 1);
  ASSERT_EQ(fit.engine.code, Lsfit2Code::kOk) << fit.engine.message;
  EXPECT_EQ(fit.values[kPeriod], 12.0);
  EXPECT_EQ(fit.values[kSlope], 0.0);
  expect_values(fit.values, {12, 2, 3, 7, 0}, kRecovery);
}

TEST(CosineFit, AFitEndingWithNegativeAmplitudeIsReportedPositiveWithPhaseMovedHalfAPeriod) {
  // -3 cos(2 pi (t - 17)/24) is the same curve as 3 cos(2 pi (t - 5)/24): the fit stays
  // at its start and the normalisation gives amplitude 3, phase (17 + 12) mod 24 = 5.
  const Series s = cosinor(48, {24, 3, 5, 10, 0});
  const CosineFit fit = fit_cosine(s.t, s.y, {24, -3, 17, 10, 0}, kDefaultCosineFlags, 1);
  ASSERT_EQ(fit.engine.code, Lsfit2Code::kOk) << fit.engine.message;
  EXPECT_LT(fit.engine.values[kAmplitude], 0);
  expect_values(fit.values, {24, 3, 5, 10, 0}, kRecovery);
}

TEST(CosineNormalise, AmplitudeAndPhaseFollowTheRulesInOrder) {
  // Hand derivations: amplitude sign first (phase + Period/2), then the phase brought
  // into [0, Period) by two remainders with the sign of the dividend.
  const struct {
    CosineValues in;
    double amplitude, phase;
  } cases[] = {
      {{10, 2, -2.5, 0, 0}, 2, 7.5},  // -0.25 Period -> 0.75 Period
      {{10, 2, 10, 0, 0}, 2, 0},      // one Period -> 0
      {{10, 2, 23, 0, 0}, 2, 3},     {{10, -2, 1, 0, 0}, 2, 6},
      {{10, -2, 7, 0, 0}, 2, 2},                                // 7 + 5 = 12 -> 2
      {{10, 2, -31, 0, 0}, 2, 9},    {{0, -2, 3, 0, 0}, 2, 3},  // no Period: the phase stays
  };
  for (const auto& c : cases) {
    CosineValues v = c.in;
    normalise_cosine(v);
    EXPECT_DOUBLE_EQ(v[kAmplitude], c.amplitude) << c.in[kPhase];
    EXPECT_DOUBLE_EQ(v[kPhase], c.phase) << c.in[kPhase];
  }
}

TEST(CosineFit, ANonPositivePeriodFailsWithTheModelCode) {
  const Series s = cosinor(10, {5, 1, 0, 2, 0});
  for (const double period : {0.0, -4.0}) {
    const CosineFit fit = fit_cosine(s.t, s.y, {period, 1, 0, 2, 0}, kDefaultCosineFlags, 1);
    EXPECT_EQ(fit.engine.code, Lsfit2Code::kModelFailed) << period;
  }
}

TEST(CosineSubtract, SubtractsTheWholeModelAndLeavesDataAloneWithoutAPeriod) {
  const std::vector<float> t = {1, 2, 3, 4};
  std::vector<float> y = {5, 6, static_cast<float>(core::kMissing), 8};
  subtract_cosine({0, 1, 0, 2, 0}, t, y);
  EXPECT_EQ(y, (std::vector<float>{5, 6, static_cast<float>(core::kMissing), 8}));
  // Period 4, amplitude 1, phase 0, mean 2, slope 0.5: cos(2 pi t / 4) is 0, -1, 0, 1
  // (to 1e-9, as 6.283185307 is not quite 2 pi), so the model is 2.5, 2, 3.5, 5.
  subtract_cosine({4, 1, 0, 2, 0.5}, t, y);
  const std::vector<float> want = {2.5f, 4.0f, static_cast<float>(core::kMissing), 3.0f};
  for (std::size_t i = 0; i < y.size(); ++i) EXPECT_NEAR(y[i], want[i], 1e-6) << i;
}

TEST(CosineStart, TheReferenceFitGivesTheMeanTheVarianceAndTheDefaults) {
  // y = 1, 3, 5, 7, 9 at t = 1..5 (by hand): mean 5, V0 = (16 + 4 + 0 + 4 + 16) / 5 = 8,
  // amplitude sqrt(8), period the span 4.
  const std::vector<double> t = {1, 2, 3, 4, 5}, y = {1, 3, 5, 7, 9};
  const CosineStart start = start_cosine(t, y);
  ASSERT_EQ(start.reference.code, Lsfit2Code::kOk) << start.reference.message;
  EXPECT_NEAR(start.reference_variance, 8, 1e-9);
  expect_values(start.defaults, {4, std::sqrt(8.0), 0, 5, 0}, 1e-9);
  // A fit that explains nothing beyond the mean (amplitude held at 0) leaves all of the
  // variance.
  const CosineFit mean_only = fit_cosine(t, y, {4, 0, 0, 0, 0}, {false, false, false, true, false},
                                         start.reference_variance);
  EXPECT_NEAR(mean_only.percent, 100, 1e-9);
}

TEST(CosineStart, TheScanRunsFromTheFourthPointAndNeverShowsMoreThan100) {
  const Series s = cosinor(36, {12, 2, 3, 7, 0});
  std::vector<double> noisy = s.y;
  for (std::size_t i = 0; i < noisy.size(); ++i) noisy[i] += (i % 3 == 0) ? 0.4 : -0.2;
  const CosineStart start = start_cosine(s.t, noisy);
  for (std::size_t k = 0; k < 3; ++k) EXPECT_TRUE(core::is_missing(start.scan_percent[k])) << k;
  for (std::size_t k = 3; k < s.t.size(); ++k) {
    if (core::is_missing(start.scan_percent[k])) continue;
    EXPECT_EQ(start.scan_period[k], s.t[k]);
    EXPECT_LE(start.scan_percent[k], 100.0) << k;
    EXPECT_GE(start.scan_percent[k], 0.0) << k;
  }
  // At the true period of 12 (row of t = 12) the noiseless cosinor leaves nothing.
  const CosineStart clean = start_cosine(s.t, s.y);
  EXPECT_LT(clean.scan_percent[11], 1e-9);
  EXPECT_EQ(clean.scan_period[11], 12.0);
}

// A constant series: the default amplitude (its SD) is 0, where the Phase moves
// nothing. The fit still succeeds and explains nothing: Amplitude 0, Mean the constant,
// 100 % of the variance remaining; so does every trial fit of the scan.
TEST(CosineFit, AConstantSeriesFitsWithNoCosineAndLeaves100Percent) {
  const std::vector<double> t = {1, 2, 3, 4, 5, 6, 7, 8}, flat(8, 3.0);
  const CosineStart start = start_cosine(t, flat);
  ASSERT_EQ(start.reference.code, Lsfit2Code::kOk);
  EXPECT_EQ(start.defaults[kAmplitude], 0.0);
  const CosineFit fit = fit_cosine(t, flat, start.defaults, kDefaultCosineFlags,
                                   start.reference_variance);
  ASSERT_EQ(fit.engine.code, Lsfit2Code::kOk);
  EXPECT_NEAR(fit.values[kAmplitude], 0.0, 1e-9);
  EXPECT_NEAR(fit.values[kMean], 3.0, 1e-9);
  EXPECT_EQ(fit.percent, 100.0);
  for (std::size_t k = 3; k < t.size(); ++k) EXPECT_EQ(start.scan_percent[k], 100.0) << k;
}

// A point the conditioner inserted takes no part in the fits but is still a trial
// period of the scan, which runs over every point from the fourth.
TEST(CosineStart, TheScanTriesTheTimeOfEveryPointAlsoOneNotFitted) {
  const Series s = cosinor(12, {6, 2, 1, 7, 0});
  Series fitted = s;
  fitted.t.erase(fitted.t.begin() + 5);  // t = 6 inserted: no concentration of its own
  fitted.y.erase(fitted.y.begin() + 5);
  const CosineStart start = start_cosine(fitted.t, fitted.y, s.t);
  ASSERT_EQ(start.scan_period.size(), 12u);
  for (std::size_t k = 3; k < 12; ++k) EXPECT_EQ(start.scan_period[k], s.t[k]) << k;
  // The true period 6 is the inserted point's time, and it explains everything.
  EXPECT_LT(start.scan_percent[5], 1e-9);
}

TEST(CosineStart, ThreePointsOrFewerHaveNoScanAndAConstantSeriesLeaves100) {
  const std::vector<double> t = {1, 2, 3}, y = {4, 6, 5};
  const CosineStart start = start_cosine(t, y);
  for (const double p : start.scan_percent) EXPECT_TRUE(core::is_missing(p));
  const std::vector<double> t5 = {1, 2, 3, 4, 5}, flat = {3, 3, 3, 3, 3};
  const CosineStart constant = start_cosine(t5, flat);
  EXPECT_EQ(constant.reference_variance, 0.0);
  EXPECT_EQ(percent_remaining(0.0, constant.reference_variance), 100.0);
  const std::vector<double> none;
  EXPECT_NE(start_cosine(none, none).reference.code, Lsfit2Code::kOk);
}

}  // namespace
}  // namespace tidemark::stats
