// LSFIT2 with the model's own derivatives: the cosinor's closed-form gradient, and fits
// that reach the same optimum as with central differences.
#include <gtest/gtest.h>

#include <cmath>
#include <vector>

#include "stats/cosine.h"
#include "stats/lsfit2.h"

namespace tidemark::stats {
namespace {

// How far the fits with and without the gradient may end apart: both stop where a step
// lowers S by at most 1e-12 of S, within about 1e-6 standard errors of the optimum.
constexpr double kSameOptimum = 1e-7;

TEST(CosineGradient, MatchesTheDerivativesWorkedOutByHand) {
  // Period 4, Amplitude 2, Phase 0 at t = 1: theta = 6.283185307 / 4 = pi/2 to 1e-10, so
  // sin = 1 and cos = 0: dPeriod = 2 * 1 * (pi/2) / 4 = pi/4, dAmplitude = 0,
  // dPhase = 2 * 2pi/4 = pi, dMean = 1, dSlope = t. At t = 3 (theta = 3pi/2, sin = -1)
  // the sine terms change sign and dPeriod triples.
  const struct {
    CosineValues p;
    double t;
    CosineValues want;
  } cases[] = {
      {{4, 2, 0, 5, 0.5}, 1, {M_PI / 4, 0, M_PI, 1, 1}},
      {{4, 2, 0, 5, 0.5}, 3, {-3 * M_PI / 4, 0, -M_PI, 1, 3}},
      {{4, 2, 2, 5, 0.5}, 3, {M_PI / 4, 0, M_PI, 1, 3}},  // t - Phase = 1 again
  };
  for (const auto& c : cases) {
    CosineValues gradient{};
    bool failed = false;
    const double y = cosine_gradient(c.p, c.t, gradient, failed);
    EXPECT_FALSE(failed);
    EXPECT_EQ(y, cosine_model(c.p, c.t, failed));
    for (int j = 0; j < kCosineParameters; ++j) EXPECT_NEAR(gradient[j], c.want[j], 1e-8) << j;
  }
  CosineValues gradient{};
  bool failed = false;
  const CosineValues no_period = {0, 2, 0, 5, 0};
  cosine_gradient(no_period, 1, gradient, failed);
  EXPECT_TRUE(failed);
}

// A noisy cosinor with trend, 120 points; the noise is a fixed pattern.
struct Noisy {
  std::vector<double> t, y;
  Noisy() {
    for (int i = 1; i <= 120; ++i) {
      t.push_back(i);
      y.push_back(3 * std::cos((i - 7) * 6.283185307 / 24) + 10 + 0.02 * i +
                  0.3 * ((i * 37) % 11 - 5) / 5.0);
    }
  }
};

TEST(Lsfit2Gradient, ReachesTheOptimumThatCentralDifferencesReach) {
  const Noisy s;
  const std::vector<FitParameter> start = {{"Period", 23, true},
                                           {"Amplitude", 2, true},
                                           {"Phase", 5, true},
                                           {"Mean", 9, true},
                                           {"Slope", 0, true}};
  const Lsfit2Result differences = lsfit2({cosine_model, s.t, s.y, start});
  const Lsfit2Result derivatives = lsfit2({cosine_model, s.t, s.y, start, {}, cosine_gradient});
  ASSERT_EQ(differences.code, Lsfit2Code::kOk) << differences.message;
  ASSERT_EQ(derivatives.code, Lsfit2Code::kOk) << derivatives.message;
  for (std::size_t j = 0; j < start.size(); ++j) {
    const double se = differences.standard_errors[j];
    EXPECT_NEAR(derivatives.values[j], differences.values[j], kSameOptimum * se) << j;
    EXPECT_NEAR(derivatives.standard_errors[j], se, 1e-6 * se) << j;
  }
  EXPECT_NEAR(derivatives.sum_of_squares, differences.sum_of_squares,
              1e-12 * differences.sum_of_squares);
}

TEST(Lsfit2Gradient, AGradientThatFailsEndsTheFitWithTheModelCode) {
  const Noisy s;
  const PointGradient failing = [](std::span<const double>, double x, std::span<double>,
                                   bool& failed) {
    failed = x > 60;
    return 0.0;
  };
  const Lsfit2Result fit = lsfit2({cosine_model,
                                   s.t,
                                   s.y,
                                   {{"Period", 24, false},
                                    {"Amplitude", 2, true},
                                    {"Phase", 5, true},
                                    {"Mean", 9, true},
                                    {"Slope", 0, false}},
                                   {},
                                   failing});
  EXPECT_EQ(fit.code, Lsfit2Code::kModelFailed);
  EXPECT_EQ(fit.message, "The model could not be evaluated at x = 61");
}

}  // namespace
}  // namespace tidemark::stats
