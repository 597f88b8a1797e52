#include <gtest/gtest.h>

#include <cmath>
#include <string>

#include "stats/periodic_gls.h"
#include "stats/periodic_harmonics.h"
#include "stats/periodic_significance.h"
#include "stats/reference_fixture.h"

namespace tidemark::stats {
namespace {

using testing_support::FixtureBlock;
using testing_support::read_fixture;

PeriodicSeries series_of(const FixtureBlock& b) {
  const std::vector<double> t = b.numbers("t"), y = b.numbers("y"), dy = b.numbers("dy");
  std::vector<double> w;
  for (double e : dy) w.push_back(1 / (e * e));
  return periodic_series(t, y, w);
}

// tests/fixtures/stats/periodic_gls_reference.txt: astropy's LombScargle (floating mean,
// weights 1/dy^2, standard normalisation, direct sums) on uneven series; see
// scripts/gen-periodic-gls-fixtures. Powers agree to 1e-6 relative by either way of
// forming the sums.
class GlsReference : public ::testing::TestWithParam<SumMethod> {};

TEST_P(GlsReference, PowersAgreeWithAstropy) {
  const auto cases = read_fixture("stats/periodic_gls_reference.txt", "case");
  ASSERT_EQ(cases.size(), 3u);
  for (const FixtureBlock& b : cases) {
    SCOPED_TRACE(b.name);
    const PeriodogramOptions options{.min_period = b.number("min_period"),
                                     .max_period = b.number("max_period"),
                                     .periods = static_cast<int>(b.number("periods")),
                                     .remove_trend = b.number("trend") == 1,
                                     .method = GetParam()};
    const PeriodogramResult p = periodogram(series_of(b), options);
    ASSERT_TRUE(p.ok()) << p.message;
    const std::vector<double> f = b.numbers("frequency"), power = b.numbers("power");
    ASSERT_EQ(p.power.size(), power.size());
    for (std::size_t k = 0; k < power.size(); ++k) {
      EXPECT_NEAR(p.frequency[k], f[k], 1e-12 * f[k]) << k;
      // Relative to the power, with a floor where the power nearly vanishes.
      EXPECT_NEAR(p.power[k], power[k], 1e-6 * std::max(power[k], 1e-3)) << k;
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Sums, GlsReference,
                         ::testing::Values(SumMethod::kDirect, SumMethod::kFast));

// The same file's Baluev false-alarm probabilities (astropy's method="baluev").
TEST(GlsReference, BaluevProbabilitiesAgreeWithAstropy) {
  for (const FixtureBlock& b : read_fixture("stats/periodic_gls_reference.txt", "case")) {
    if (b.number("trend") == 1) continue;
    SCOPED_TRACE(b.name);
    const PeriodicSeries s = series_of(b);
    const PeriodogramResult p = periodogram(
        s, {.min_period = b.number("min_period"), .max_period = b.number("max_period"),
            .periods = static_cast<int>(b.number("periods"))});
    ASSERT_TRUE(p.ok()) << p.message;
    BaluevInputs in = baluev_inputs(s, p, false);
    // astropy puts the highest frequency on its own grid, a little off 1 / min_period.
    EXPECT_NEAR(in.max_frequency, b.number("fap_max_frequency"), 3e-3 * in.max_frequency);
    in.max_frequency = b.number("fap_max_frequency");
    const std::vector<double> z = b.numbers("fap_power"), fap = b.numbers("fap");
    for (std::size_t i = 0; i < z.size(); ++i) {
      EXPECT_NEAR(baluev_fap(z[i], in), fap[i], 1e-9 * fap[i] + 1e-300) << z[i];
      if (fap[i] > 1e-6 && fap[i] < 0.99) {
        EXPECT_NEAR(baluev_level(fap[i], in), z[i], 1e-9);
      }
    }
  }
}

// tests/fixtures/stats/periodic_fit_reference.txt: R's lm() with weights 1/dy^2 on the
// cosine and sine terms of K harmonics; see scripts/gen-periodic-fit-fixtures.
TEST(HarmonicReference, AgreesWithRsWeightedLinearModel) {
  const auto cases = read_fixture("stats/periodic_fit_reference.txt", "case");
  ASSERT_EQ(cases.size(), 7u);
  for (const FixtureBlock& b : cases) {
    SCOPED_TRACE(b.name);
    const int k = static_cast<int>(b.number("harmonics"));
    const bool trend = b.number("trend") == 1;
    const HarmonicFitResult fit =
        fit_harmonics(series_of(b), {.period = b.number("period"), .harmonics = k, .trend = trend});
    ASSERT_TRUE(fit.ok()) << fit.message;
    const std::vector<double> fitted = b.numbers("fitted"), coef = b.numbers("coefficients");
    ASSERT_EQ(fit.fitted.size(), fitted.size());
    for (std::size_t i = 0; i < fitted.size(); ++i) EXPECT_NEAR(fit.fitted[i], fitted[i], 1e-6);
    EXPECT_NEAR(fit.mesor, coef[0], 1e-6 * std::abs(coef[0]));
    if (trend) {
      EXPECT_NEAR(fit.slope, coef[1], 1e-6 * std::abs(coef[1]));
    }
    EXPECT_NEAR(fit.residual_sd, b.number("sigma"), 1e-6 * b.number("sigma"));
    EXPECT_NEAR(fit.f_statistic, b.number("f"), 1e-6 * b.number("f"));
    EXPECT_NEAR(fit.p_value, b.number("p"), 1e-6 * b.number("p"));
    EXPECT_NEAR(fit.percent_rhythm, b.number("percent"), 1e-6);
    EXPECT_NEAR(fit.mesor_upper - fit.mesor, b.number("mesor_half_width"), 1e-6);
    const auto harmonics = b.all("harmonic");
    ASSERT_EQ(static_cast<int>(harmonics.size()), k);
    for (const auto& h : harmonics) {
      const HarmonicTerm& term = fit.terms[static_cast<std::size_t>(*h[0]) - 1];
      EXPECT_NEAR(term.amplitude, *h[1], 1e-6 * *h[1]);
      EXPECT_NEAR(term.acrophase, *h[2], 1e-6 * fit.period);
      EXPECT_NEAR(term.amplitude_upper - term.amplitude, *h[3], 1e-6 * *h[3]);
      EXPECT_NEAR(term.acrophase - term.acrophase_lower, *h[4], 1e-6 * *h[4]);
    }
  }
}

}  // namespace
}  // namespace tidemark::stats
