// The three optimisers on problems whose minima are known by hand.
#include <cmath>
#include <vector>

#include <gtest/gtest.h>

#include "feedback/levenberg_marquardt.h"
#include "feedback/nelder_mead.h"
#include "feedback/particle_swarm.h"

namespace tidemark::feedback {
namespace {

// Rosenbrock's function (1 - x)^2 + 100 (y - x^2)^2: minimum 0 at (1, 1).
double rosenbrock(std::span<const double> v) {
  return (1 - v[0]) * (1 - v[0]) + 100 * (v[1] - v[0] * v[0]) * (v[1] - v[0] * v[0]);
}

// (x - 3)^2 + (y + 1)^2 on [0, 2] x [0, 2]: the box's nearest point to (3, -1) is (2, 0).
double outside_bowl(std::span<const double> v) {
  return (v[0] - 3) * (v[0] - 3) + (v[1] + 1) * (v[1] + 1);
}

const std::vector<double> kLow = {-2, -1}, kHigh = {2, 3};

TEST(OptimizersTest, SwarmFindsRosenbrockValley) {
  const SearchResult r = particle_swarm(rosenbrock, std::vector<double>{-1.5, 2.5}, kLow, kHigh,
                                       {40, 300, 7, {}});
  EXPECT_NEAR(r.best[0], 1, 1e-3);
  EXPECT_NEAR(r.best[1], 1, 2e-3);
  EXPECT_EQ(r.evaluations, 40L * 301);
}

TEST(OptimizersTest, SwarmDependsOnSeedNotOnThreads) {
  SwarmOptions one{25, 60, 42, {}};
  one.parallel.threads = 1;
  SwarmOptions four = one;
  four.parallel.threads = 4;
  const SearchResult a = particle_swarm(rosenbrock, std::vector<double>{0, 0}, kLow, kHigh, one);
  const SearchResult b = particle_swarm(rosenbrock, std::vector<double>{0, 0}, kLow, kHigh, four);
  EXPECT_EQ(a.best, b.best);
  EXPECT_EQ(a.value, b.value);
  SwarmOptions other = one;
  other.seed = 43;
  EXPECT_NE(particle_swarm(rosenbrock, std::vector<double>{0, 0}, kLow, kHigh, other).best, a.best);
}

TEST(OptimizersTest, SwarmStopsWhenCancelled) {
  SwarmOptions options{20, 100, 1, {}};
  options.parallel.progress = [](long, long) { return false; };
  EXPECT_FALSE(particle_swarm(rosenbrock, std::vector<double>{0, 0}, kLow, kHigh, options).complete);
}

TEST(OptimizersTest, NelderMeadRosenbrockAndBoundedBowl) {
  const SearchResult r = nelder_mead(rosenbrock, std::vector<double>{-1.2, 1}, kLow, kHigh, {});
  EXPECT_TRUE(r.complete);
  EXPECT_NEAR(r.best[0], 1, 1e-4);
  EXPECT_NEAR(r.best[1], 1, 2e-4);
  const std::vector<double> low = {0, 0}, high = {2, 2};
  const SearchResult b = nelder_mead(outside_bowl, std::vector<double>{1, 1}, low, high, {});
  EXPECT_NEAR(b.best[0], 2, 1e-6);
  EXPECT_NEAR(b.best[1], 0, 1e-6);
  EXPECT_NEAR(b.value, 2, 1e-9);
}

TEST(OptimizersTest, LevenbergMarquardtRosenbrockAndBoundedBowl) {
  // Rosenbrock as residuals (1 - x, 10 (y - x^2)).
  const Residuals rosen = [](std::span<const double> v, std::span<double> r) {
    r[0] = 1 - v[0];
    r[1] = 10 * (v[1] - v[0] * v[0]);
    return true;
  };
  const LevenbergMarquardtResult r =
      levenberg_marquardt(rosen, 2, std::vector<double>{-1.2, 1}, kLow, kHigh, {});
  ASSERT_TRUE(r.ok) << r.message;
  EXPECT_NEAR(r.best[0], 1, 1e-6);
  EXPECT_NEAR(r.best[1], 1, 1e-6);
  const Residuals bowl = [](std::span<const double> v, std::span<double> r2) {
    r2[0] = v[0] - 3;
    r2[1] = v[1] + 1;
    return true;
  };
  const std::vector<double> low = {0, 0}, high = {2, 2};
  const LevenbergMarquardtResult b =
      levenberg_marquardt(bowl, 2, std::vector<double>{1, 1}, low, high, {});
  ASSERT_TRUE(b.ok) << b.message;
  EXPECT_DOUBLE_EQ(b.best[0], 2);
  EXPECT_DOUBLE_EQ(b.best[1], 0);
  EXPECT_TRUE(std::isnan(b.standard_errors[0]));  // on a bound: no standard error
}

TEST(OptimizersTest, LevenbergMarquardtStandardErrorOfAMean) {
  // Residuals (x - y_i) / 1 for y = 1, 2, 3, 4: x = 2.5, S = 5, s^2 = 5 / 3, J'J = 4, so
  // the standard error is sqrt(5 / 12) (the standard error of a mean, by hand).
  const Residuals mean = [](std::span<const double> v, std::span<double> r) {
    for (int i = 0; i < 4; ++i) r[i] = v[0] - (i + 1);
    return true;
  };
  const LevenbergMarquardtResult r =
      levenberg_marquardt(mean, 4, std::vector<double>{0}, std::vector<double>{-10},
                          std::vector<double>{10}, {});
  ASSERT_TRUE(r.ok);
  EXPECT_NEAR(r.best[0], 2.5, 1e-9);
  EXPECT_NEAR(r.standard_errors[0], std::sqrt(5.0 / 12), 1e-6);
}

}  // namespace
}  // namespace tidemark::feedback
