#include <gtest/gtest.h>

#include <cmath>
#include <fstream>
#include <map>
#include <sstream>

#include "stats/correlation_analysis.h"

namespace tidemark::stats {
namespace {

constexpr double kTight = 1e-12;
constexpr double kSingle = 1e-6;  // tau is single precision

// The rows of tests/data/stats/correlation_reference.txt (written by
// correlation_reference.py, a plain-Python transcription of the definitions), keyed by
// their first word, each with its numbers.
std::multimap<std::string, std::vector<double>> reference_rows() {
  std::ifstream in(std::string(TIDEMARK_TEST_DATA) + "/stats/correlation_reference.txt");
  std::multimap<std::string, std::vector<double>> rows;
  for (std::string line; std::getline(in, line);) {
    if (line.empty() || line[0] == '#') continue;
    std::istringstream words(line);
    std::string key;
    words >> key;
    std::vector<double> values;
    for (std::string w; words >> w;)
      if (std::isdigit(static_cast<unsigned char>(w.back()))) values.push_back(std::stod(w));
    rows.emplace(key, values);
  }
  return rows;
}

std::vector<double> row(const std::multimap<std::string, std::vector<double>>& rows,
                        const std::string& key) {
  return rows.find(key)->second;
}

TEST(CorrelationAnalysis, AgreesWithThePythonReferenceAtEveryLag) {
  const auto rows = reference_rows();
  ASSERT_FALSE(rows.empty());
  const auto a = row(rows, "a"), b = row(rows, "b");
  const int max_lag = static_cast<int>(row(rows, "maxlag")[0]);
  const auto result = correlation_analysis(a, b, max_lag);
  ASSERT_TRUE(result.status.ok) << result.status.message;
  EXPECT_NEAR(result.a.acf.mean, row(rows, "mean_a")[0], kTight);
  EXPECT_NEAR(result.a.acf.variance, row(rows, "mean_a")[1], kTight);
  EXPECT_NEAR(result.b.acf.variance, row(rows, "mean_b")[1], kTight);
  for (const auto& [key, series] : {std::pair{"acf_a", &result.a}, std::pair{"acf_b", &result.b}}) {
    auto [first, last] = rows.equal_range(key);
    for (auto it = first; it != last; ++it) {
      const auto& v = it->second;  // lag, autocovariance, autocorrelation, S.E., PACF
      const auto k = static_cast<std::size_t>(v[0]);
      EXPECT_NEAR(series->acf.autocovariance[k], v[1], kTight) << key << " lag " << k;
      EXPECT_NEAR(*series->acf.correlation[k], v[2], kTight) << key << " lag " << k;
      EXPECT_NEAR(series->acf.standard_error[k], v[3], kTight) << key << " lag " << k;
      EXPECT_NEAR(*series->pacf.partial[k - 1], v[4], 1e-10) << key << " lag " << k;
    }
  }
  auto [c0, c1] = rows.equal_range("ccf");  // lag, covariance, correlation, S.E.
  for (auto it = c0; it != c1; ++it) {
    const auto i = static_cast<std::size_t>(it->second[0] + max_lag);
    EXPECT_NEAR(result.cross.covariance[i], it->second[1], kTight);
    EXPECT_NEAR(*result.cross.correlation[i], it->second[2], kTight);
    EXPECT_NEAR(result.cross_standard_error[i], it->second[3], kTight);
  }
  auto [k0, k1] = rows.equal_range("kendall");  // lag, na, nb, score, tau, S.E.
  for (auto it = k0; it != k1; ++it) {
    const auto& v = it->second;
    const auto& k = result.kendall[static_cast<std::size_t>(v[0] + max_lag)];
    EXPECT_EQ(k.counts.na, static_cast<long long>(v[1])) << "lag " << v[0];
    EXPECT_EQ(k.counts.nb, static_cast<long long>(v[2])) << "lag " << v[0];
    EXPECT_EQ(k.counts.score, static_cast<long long>(v[3])) << "lag " << v[0];
    EXPECT_NEAR(*k.tau, v[4], kSingle);
    EXPECT_NEAR(*k.standard_error, v[5], kTight);
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
    EXPECT_FALSE(r.status.ok);
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
  ASSERT_TRUE(r.status.ok);
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
  ASSERT_TRUE(r.status.ok);
  for (const auto& c : r.a.acf.correlation) EXPECT_FALSE(c.has_value());
  for (const auto& c : r.cross.correlation) EXPECT_FALSE(c.has_value());
}

TEST(CorrelationAnalysis, TheLargestLagLeavesOnePairWithStandardErrorOne) {
  const std::vector<double> a = {1, 4, 2, 8, 5}, b = {3, 1, 4, 1, 5};
  const auto r = correlation_analysis(a, b, 4);
  ASSERT_TRUE(r.status.ok);
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
