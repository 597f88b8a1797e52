// Gaussian and exponential kernels of Gold's method: their values, cuts and last lags.
#include "pulse/lag_kernel.h"

#include <gtest/gtest.h>

#include <cmath>
#include <vector>

namespace tidemark::pulse {
namespace {

constexpr double kNaN = NAN;

// Checks lags 0..values.size()-1 against `values`, the remaining lags up to L against 0,
// and each negative lag against its positive twin.
void expect_symmetric_kernel(const LagKernel& kernel, const std::vector<double>& values) {
  const int width = kernel.half_width();
  for (int k = 0; k <= width; ++k) {
    const double expected = k < int(values.size()) ? values[k] : 0.0;
    EXPECT_DOUBLE_EQ(kernel[k], expected) << "lag " << k;
    if (k > 0) {
      EXPECT_DOUBLE_EQ(kernel[-k], expected) << "lag " << -k;
    }
  }
}

TEST(GaussianKernel, FillsSymmetricLagsUntilTheExponentFallsBelowMinus14) {
  // exp(-k^2 / 2) for SD = dt = 1 (python math.exp); k = 6 gives -18 < -14.
  const std::vector<double> unit = {1.0,
                                    0.6065306597126334,
                                    0.1353352832366127,
                                    0.011108996538242306,
                                    0.00033546262790251185,
                                    3.726653172078671e-06};
  // dt / SD = 5.29 < sqrt(28) = 5.2915: lag 1 keeps exp(-13.99205) = 8.381657195409644e-07.
  struct Case {
    double sd, dt;
    int half_width;
    std::vector<double> values;
    int last_lag;
  };
  const Case cases[] = {
      {1, 1, 10, unit, 5},   {1, 1, 3, {unit.begin(), unit.begin() + 4}, 3},
      {2, 2, 5, unit, 5},    {1, 5.29, 4, {1.0, 8.381657195409644e-07}, 1},
      {1, 5.3, 4, {1.0}, 0}, {0.5, 100, 2, {1.0}, 0},
      {1, 1, 0, {1.0}, 0},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(testing::Message() << "sd " << c.sd << " dt " << c.dt << " L " << c.half_width);
    const KernelResult r = gaussian_kernel(c.sd, c.dt, c.half_width);
    ASSERT_TRUE(r.ok) << r.message;
    EXPECT_EQ(r.kernel.half_width(), c.half_width);
    EXPECT_EQ(r.last_lag, c.last_lag);
    expect_symmetric_kernel(r.kernel, c.values);
  }
}

TEST(ExponentialKernel, FillsNonNegativeLagsAndReturnsTheLastLagBeforeTheCut) {
  // HL = dt = 1: exp(-q), q = k * 0.6931472 rounded to 32 bits (python struct 'f'):
  // k = 1, 2, ..., the exponent of k = 20 is -13.8629436 and of k = 21 is -14.5560913.
  std::vector<double> halving(21);
  for (int k = 0; k <= 20; ++k) halving[k] = std::exp2(-k);
  struct Case {
    double half_life, dt;
    int half_width;
    int last_lag;
  };
  const Case cases[] = {
      {1, 1, 0, 0},
      {1, 1, 10, 10},
      {1, 1, 20, 20},
      {1, 1, 21, 20},
      {1, 1, 40, 20},
      // dt = 10, HL = 60: k = 121 gives -13.978, k = 122 gives -14.094.
      {60, 10, 500, 121},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(testing::Message()
                 << "HL " << c.half_life << " dt " << c.dt << " L " << c.half_width);
    const KernelResult r = exponential_kernel(c.half_life, c.dt, c.half_width);
    ASSERT_TRUE(r.ok) << r.message;
    EXPECT_EQ(r.last_lag, c.last_lag);
    EXPECT_EQ(r.kernel[0], 1.0);
    EXPECT_GT(r.kernel[c.last_lag], 0.0);
    if (c.last_lag < c.half_width) {
      EXPECT_EQ(r.kernel[c.last_lag + 1], 0.0);
    }
    if (c.half_life == 1) {
      // exp(-float(k * 0.6931472)) differs from 2^-k by the constant's error
      // (0.6931472 - ln 2 = 1.9e-8) and the 32-bit rounding of the product (2^-24
      // relative, q <= 14): below 1e-7 * k relative.
      for (int k = 0; k <= c.last_lag; ++k) {
        EXPECT_NEAR(r.kernel[k], halving[k], 1e-7 * k * halving[k]) << "lag " << k;
      }
    }
  }
  // Exact values from python: exp(-float32(k * float32(0.6931472))).
  const struct {
    int lag;
    double value;
  } exact[] = {{0, 1.0},
               {1, 0.49999999904767284},
               {2, 0.24999999904767284},
               {10, 0.0009765624813998606},
               {20, 9.53674280077853e-07},
               {21, 0.0},
               {-1, 0.0},
               {-30, 0.0}};
  const KernelResult r = exponential_kernel(1, 1, 30);
  for (const auto& e : exact) EXPECT_DOUBLE_EQ(r.kernel[e.lag], e.value) << "lag " << e.lag;
}

TEST(LagKernels, InputsThatAreNotPositiveFiniteOrWidthsOutOfRangeAreRefused) {
  struct Case {
    double scale, dt;
    int half_width;
  };
  const Case cases[] = {{0, 1, 5},    {-1, 1, 5},
                        {kNaN, 1, 5}, {HUGE_VAL, 1, 5},
                        {1, 0, 5},    {1, -2, 5},
                        {1, kNaN, 5}, {1, HUGE_VAL, 5},
                        {1, 1, -1},   {1, 1, kMaxKernelHalfWidth + 1}};
  for (const Case& c : cases) {
    SCOPED_TRACE(testing::Message() << c.scale << " " << c.dt << " " << c.half_width);
    const KernelResult g = gaussian_kernel(c.scale, c.dt, c.half_width);
    const KernelResult e = exponential_kernel(c.scale, c.dt, c.half_width);
    EXPECT_FALSE(g.ok);
    EXPECT_FALSE(e.ok);
    EXPECT_FALSE(g.message.empty());
    EXPECT_FALSE(e.message.empty());
  }
}

}  // namespace
}  // namespace tidemark::pulse
