// The kernels handed to Gold's iteration: elimination alone, and elimination convolved
// with the secretion shape.
#include "pulse/gold_kernel.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

namespace tidemark::pulse {
namespace {

TEST(CombineKernels, SumsShapeTimesEliminationOverEveryPairOfLags) {
  // Shape: SD 1, dt 2 keeps lags -2..2 (e^-2, e^-8; lag 3 has exponent -18).
  // Elimination: HL 1, dt 10 keeps lags 0..2 (exponents -6.93, -13.86; lag 3 is -20.8).
  const GoldKernel k = combine_kernels(gaussian_kernel(1, 2, 5), exponential_kernel(1, 10, 5));
  ASSERT_TRUE(k.ok());
  EXPECT_EQ(k.first_lag, -2);
  EXPECT_EQ(k.last_lag, 4);
  EXPECT_EQ(k.kernel.half_width(), 4);
  // python3: the sum over m of g(m) e(l - m) with the same 32-bit product k * 0.6931472.
  const double expected[] = {0.00033546262790251185, 0.13533561083682902,    1.0001321636799405,
                             0.13631197478379137,    0.00046857966220108916, 4.5666599513120403e-07,
                             3.1992208015795265e-10};
  for (int l = -2; l <= 4; ++l) EXPECT_NEAR(k.kernel[l], expected[l + 2], 1e-15) << "lag " << l;
  EXPECT_EQ(k.kernel[-3], 0.0);
}

// The integral of exp(-tau^2 / (2 sd^2)) exp(-k (t - tau)) over tau <= t: completing the
// square in tau gives sd sqrt(pi/2) exp(k^2 sd^2 / 2 - k t) erfc((k sd^2 - t) / (sd sqrt 2)).
double shape_elimination_integral(double sd, double half_life, double t) {
  const double k = std::numbers::ln2 / half_life;
  return sd * std::sqrt(std::numbers::pi / 2) * std::exp(k * k * sd * sd / 2 - k * t) *
         std::erfc((k * sd * sd - t) / (sd * std::numbers::sqrt2));
}

TEST(CombineKernels, ApproximatesTheContinuousConvolutionAtFineSampling) {
  // h K(l) is the rectangle rule that counts the integrand's end at tau = t in full;
  // taking off half of that end, g(t) e(0) = exp(-t^2 / (2 sd^2)), leaves the trapezoid
  // rule. Its error is (h^2 / 12) |f'(t)| to leading order, f(tau) = g(tau) e(t - tau):
  // |f'| <= max |g'| + k = e^-0.5 / sd + ln 2 / HL < 0.1, so below h^2 / 12 * 0.1.
  const double sd = 10, half_life = 20, h = 0.5;
  const GoldKernel k = gold_kernel(half_life, sd, true, h, 1000);
  ASSERT_TRUE(k.ok());
  const double tail = 1e-6 * shape_elimination_integral(sd, half_life, 0);  // the -14 cuts
  for (int l = k.first_lag; l <= k.last_lag; l += 7) {
    const double t = l * h;
    const double trapezoid = h * k.kernel[l] - h / 2 * std::exp(-t * t / (2 * sd * sd));
    EXPECT_NEAR(trapezoid, shape_elimination_integral(sd, half_life, t), h * h / 12 * 0.1 + tail)
        << "lag " << l;
  }
}

TEST(GoldKernel, EliminationAloneIsTheExponentialKernelFromLagZero) {
  const GoldKernel k = gold_kernel(1, 0, false, 1, 30);
  ASSERT_TRUE(k.ok());
  EXPECT_EQ(k.first_lag, 0);
  EXPECT_EQ(k.last_lag, 20);  // 21 * ln 2 > 14
  EXPECT_EQ(k.kernel[0], 1.0);
  EXPECT_EQ(k.kernel[-1], 0.0);
}

TEST(GoldKernel, RefusesInputsThatGiveNoKernel) {
  struct Case {
    double half_life, sd;
    bool shape;
    double dt;
    int samples;
  };
  const Case cases[] = {{0, 1, false, 1, 10},
                        {20, 0, true, 1, 10},
                        {20, 1, true, std::nan(""), 10},
                        {20, 1, true, 1, 0},
                        {-5, 1, true, 1, 10}};
  for (const Case& c : cases) {
    const GoldKernel k = gold_kernel(c.half_life, c.sd, c.shape, c.dt, c.samples);
    EXPECT_FALSE(k.ok());
    EXPECT_FALSE(k.message.empty());
  }
}

}  // namespace
}  // namespace tidemark::pulse
