#include <gtest/gtest.h>

#include <cmath>
#include <optional>
#include <string>

#include "stats/correlation_analysis.h"
#include "stats/reference_fixture.h"

namespace tidemark::stats {
namespace {

constexpr double kTight = 1e-12;
constexpr double kSingle = 1e-6;  // tau is single precision
// The Moran errors of the fixture are recovered from differences of R's Ljung-Box
// statistics, which costs a few digits.
constexpr double kFromDifferences = 1e-10;

using testing_support::FixtureBlock;
using testing_support::read_fixture;

// Expects a correlation the program leaves undefined exactly where R gives none.
void expect_correlation(const std::optional<double>& got, const std::optional<double>& want,
                        double tolerance, const std::string& where) {
  ASSERT_EQ(got.has_value(), want.has_value()) << where;
  if (want) {
    EXPECT_NEAR(*got, *want, tolerance) << where;
  }
}

void expect_series(const SeriesCorrelation& series, const FixtureBlock& c, const std::string& name,
                   const std::vector<double>& x, int max_lag) {
  EXPECT_NEAR(series.acf.mean, c.number("mean_" + name), kTight);
  EXPECT_NEAR(series.acf.variance, c.number("variance_" + name), kTight);
  const auto bartlett =
      autocorrelation(x, {.max_lag = max_lag, .standard_errors = kBartlettStandardErrors});
  ASSERT_TRUE(bartlett.status.ok()) << bartlett.status.message;
  for (const auto& v : c.all("acf_" + name)) {
    // lag, autocovariance, autocorrelation, Moran S.E., Bartlett S.E., PACF
    const auto k = static_cast<std::size_t>(*v[0]);
    const std::string where = c.name + " acf_" + name + " lag " + std::to_string(k);
    EXPECT_NEAR(series.acf.autocovariance[k], *v[1], kTight) << where;
    expect_correlation(series.acf.correlation[k], v[2], kTight, where);
    EXPECT_NEAR(series.acf.standard_error[k], *v[3], kFromDifferences) << where;
    EXPECT_NEAR(bartlett.standard_error[k], *v[4], kTight) << where;
    expect_correlation(series.pacf.partial[k - 1], v[5], 1e-10, where);
  }
}

// Every case of tests/fixtures/stats/correlation_reference.txt: R's acf, pacf, ccf and
// cor(method = "kendall"), mapped to this program's lags and normalisations as the
// fixture's header says.
TEST(CorrelationAnalysis, AgreesWithRAtEveryLagOfEveryReferenceCase) {
  const auto cases = read_fixture("stats/correlation_reference.txt", "case");
  ASSERT_EQ(cases.size(), 3u);
  for (const FixtureBlock& c : cases) {
    const auto a = c.numbers("a"), b = c.numbers("b");
    const int max_lag = static_cast<int>(c.number("maxlag"));
    const auto result = correlation_analysis(a, b, max_lag);
    ASSERT_TRUE(result.status.ok()) << c.name << ": " << result.status.message;
    expect_series(result.a, c, "a", a, max_lag);
    expect_series(result.b, c, "b", b, max_lag);
    for (const auto& v : c.all("ccf")) {  // lag, covariance, correlation, S.E.
      const auto i = static_cast<std::size_t>(*v[0] + max_lag);
      const std::string where = c.name + " ccf lag " + std::to_string(static_cast<int>(*v[0]));
      EXPECT_NEAR(result.cross.covariance[i], *v[1], kTight) << where;
      expect_correlation(result.cross.correlation[i], v[2], kTight, where);
      EXPECT_NEAR(result.cross_standard_error[i], *v[3], kTight) << where;
    }
    for (const auto& v : c.all("kendall")) {  // lag, na, nb, score, tau, S.E.
      const auto& k = result.kendall[static_cast<std::size_t>(*v[0] + max_lag)];
      const std::string where = c.name + " kendall lag " + std::to_string(static_cast<int>(*v[0]));
      EXPECT_EQ(k.counts.na, static_cast<long long>(*v[1])) << where;
      EXPECT_EQ(k.counts.nb, static_cast<long long>(*v[2])) << where;
      EXPECT_EQ(k.counts.score, static_cast<long long>(*v[3])) << where;
      const std::optional<double> tau = k.tau ? std::optional<double>(*k.tau) : std::nullopt;
      expect_correlation(tau, v[4], kSingle, where);
      expect_correlation(k.standard_error, v[5], kTight, where);
    }
  }
}

struct Refusal {
  std::vector<double> x;
  int max_lag;
  int standard_errors;
  std::string message;
};

TEST(Autocorrelation, RefusesBadArgumentsNamingTheirValues) {
  const std::vector<Refusal> cases = {
      {{1.0}, 1, 2, "NOBS = 1.  NOBS must be greater than or equal to 2."},
      {{1, 2, 3}, 0, 2, "MAXLAG = 0.  MAXLAG must be greater than 1 and less than NOBS = 3."},
      {{1, 2, 3}, 3, 2, "MAXLAG = 3.  MAXLAG must be greater than 1 and less than NOBS = 3."},
      {{1, 2, 3},
       2,
       3,
       "NOBS = 3, MAXLAG = 2, and ISEOPT = 3.  NOBS must be 2 or more and MAXLAG must be greater "
       "than or equal to 1 and less than NOBS.  ISEOPT must be 0, 1, or 2."},
      {{1, NAN, 3}, 1, 2, "X(2) is not a number.  Every observation must be a finite number."},
  };
  for (const auto& c : cases) {
    const auto r =
        autocorrelation(c.x, {.max_lag = c.max_lag, .standard_errors = c.standard_errors});
    EXPECT_FALSE(r.status.ok());
    EXPECT_EQ(r.status.message, c.message);
  }
}

TEST(CorrelationRoutines, CrossAndPartialRefuseLagsBelowOne) {
  const std::vector<double> x = {1, 2, 4, 3, 5};
  EXPECT_EQ(cross_correlation(x, x, 0).status.message,
            "MAXLAG = 0.  MAXLAG must be greater than 0 and less than NOBS = 5.");
  EXPECT_EQ(cross_correlation(x, x, 5).status.message,
            "MAXLAG = 5.  MAXLAG must be greater than 0 and less than NOBS = 5.");
  EXPECT_EQ(partial_autocorrelation({1.0}, 0).status.message,
            "MAXLAG = 0.  MAXLAG must be greater than or equal to 1.");
}

TEST(Autocorrelation, BartlettErrorsSumTheSquaredLowerLags) {
  // x = 1, 2, 3, 4: mean 2.5, c0 = 5/4, c1 = 5/16, so r1 = 1/4; Bartlett S.E.(1) =
  // sqrt(1/4) = 1/2 and S.E.(2) = sqrt((1 + 2/16) / 4) = 0.5303300858899106 (by hand).
  const std::vector<double> x = {1, 2, 3, 4};
  const auto r = autocorrelation(x, {.max_lag = 2, .standard_errors = kBartlettStandardErrors});
  EXPECT_NEAR(*r.correlation[1], 0.25, kTight);
  EXPECT_NEAR(r.standard_error[1], 0.5, kTight);
  EXPECT_NEAR(r.standard_error[2], std::sqrt(1.125 / 4), kTight);
}

TEST(CorrelationAnalysis, AConstantSeriesLeavesItsCorrelationsUndefined) {
  const std::vector<double> flat(6, 2.5), b = {1, 3, 2, 5, 4, 6};
  const auto r = correlation_analysis(flat, b, 2);
  ASSERT_TRUE(r.status.ok());
  EXPECT_EQ(r.a.acf.variance, 0.0);
  for (const auto& c : r.a.acf.correlation) EXPECT_FALSE(c.has_value());
  for (const auto& c : r.a.pacf.partial) EXPECT_FALSE(c.has_value());
  for (const auto& c : r.cross.correlation) EXPECT_FALSE(c.has_value());
  for (const auto& k : r.kendall) EXPECT_FALSE(k.tau.has_value());
  EXPECT_TRUE(r.b.acf.correlation[1].has_value());
}

TEST(CorrelationAnalysis, SumsThatOverflowLeaveCorrelationsUndefinedNotNaN) {
  // (±1e300)² overflows to infinity, so every quotient is infinity / infinity.
  const std::vector<double> huge = {1e300, -1e300, 1e300, -1e300, 1e300};
  const auto r = correlation_analysis(huge, huge, 2);
  ASSERT_TRUE(r.status.ok());
  for (const auto& c : r.a.acf.correlation) EXPECT_FALSE(c.has_value());
  for (const auto& c : r.cross.correlation) EXPECT_FALSE(c.has_value());
}

TEST(CorrelationAnalysis, TheLargestLagLeavesOnePairWithStandardErrorOne) {
  const std::vector<double> a = {1, 4, 2, 8, 5}, b = {3, 1, 4, 1, 5};
  const auto r = correlation_analysis(a, b, 4);
  ASSERT_TRUE(r.status.ok());
  // One pair at lag ±4: covariance (a(0) − 4)(b(4) − 2.8) / 5 = −3 × 2.2 / 5 = −1.32 and
  // (a(4) − 4)(b(0) − 2.8) / 5 = 1 × 0.2 / 5 = 0.04 (means 4 and 2.8, by hand).
  EXPECT_NEAR(r.cross.covariance.back(), -1.32, kTight);
  EXPECT_NEAR(r.cross.covariance.front(), 0.04, kTight);
  EXPECT_DOUBLE_EQ(r.cross_standard_error.front(), 1.0);
  EXPECT_DOUBLE_EQ(r.cross_standard_error.back(), 1.0);
  EXPECT_FALSE(r.kendall.back().tau.has_value());
}

TEST(KendallTau, IdenticalUntiedSeriesGiveOneWithTheClosedFormError) {
  const std::vector<double> x = {0.5, 3, 1, 7, 2, 9, 4};
  const auto k = kendall_tau(x, x);
  EXPECT_EQ(*k.tau, 1.0f);
  // n = 7: sqrt((4n + 10) / (9n (n − 1))) = sqrt(38 / 378).
  EXPECT_NEAR(*k.standard_error, std::sqrt(38.0 / 378.0), kTight);
}

TEST(KendallTau, TiesInOneSeriesCountOnlyForTheOther) {
  // a = 1, 1, 2, 3 and b = 1, 2, 3, 4: of the 6 pairs, (0,1) has dx = 0, dy ≠ 0, so
  // na = 5, nb = 6, and the 5 others are concordant: tau = 5 / sqrt(30) (by hand).
  const std::vector<double> a = {1, 1, 2, 3}, b = {1, 2, 3, 4};
  const auto k = kendall_tau(a, b);
  EXPECT_EQ(k.counts.na, 5);
  EXPECT_EQ(k.counts.nb, 6);
  EXPECT_EQ(k.counts.score, 5);
  EXPECT_NEAR(*k.tau, 5 / std::sqrt(30.0), kSingle);
}

// The pair loop of the definition, for comparison with the sorting method.
KendallCounts pair_loop(const std::vector<double>& a, const std::vector<double>& b) {
  KendallCounts c;
  for (std::size_t i = 0; i < a.size(); ++i)
    for (std::size_t j = i + 1; j < a.size(); ++j) {
      const double dx = a[i] - a[j], dy = b[i] - b[j];
      if (dx * dy != 0) {
        ++c.na, ++c.nb;
        c.score += dx * dy > 0 ? 1 : -1;
      } else {
        c.na += dx != 0;
        c.nb += dy != 0;
      }
    }
  return c;
}

TEST(KendallTau, SortingGivesThePairLoopsCountsWithManyTies) {
  unsigned state = 12345;
  auto next = [&] { return (state = state * 1103515245u + 12345u) >> 16; };
  for (int trial = 0; trial < 50; ++trial) {
    const std::size_t n = 2 + next() % 60;
    std::vector<double> a(n), b(n);
    for (std::size_t i = 0; i < n; ++i) {
      a[i] = static_cast<double>(next() % 5);
      b[i] = static_cast<double>(next() % (1 + trial % 7)) - 0.5;
    }
    const auto fast = kendall_counts(a, b), slow = pair_loop(a, b);
    EXPECT_EQ(fast.na, slow.na);
    EXPECT_EQ(fast.nb, slow.nb);
    EXPECT_EQ(fast.score, slow.score);
  }
}

}  // namespace
}  // namespace tidemark::stats
