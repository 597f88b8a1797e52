// Gaussian and exponential kernels of Gold's method: their values, cuts and last lags.
#include "pulse/lag_kernel.h"

#include <gtest/gtest.h>

#include <cmath>
#include <vector>

namespace tidemark::pulse {
namespace {

TEST(GaussianKernel, FillsSymmetricLagsUntilTheExponentFallsBelowMinus14) {
  // exp(-k^2 / 2) for dt / SD = 1 (python math.exp); k = 6 gives -18 < -14. For
  // dt / SD = 5.29 < sqrt(28) = 5.2915 lag 1 keeps exp(-13.99205) = 8.381657195409644e-07.
  const std::vector<double> unit = {1.0,
                                    0.6065306597126334,
                                    0.1353352832366127,
                                    0.011108996538242306,
                                    0.00033546262790251185,
                                    3.726653172078671e-06};
  struct Case {
    double sd, dt;
    int half_width;
    std::vector<double> values;  // lags 0, 1, ...; the rest are 0
    int last_lag;
  };
  const Case cases[] = {
      {1, 1, 10, unit, 5},   {1, 1, 3, {unit.begin(), unit.begin() + 4}, 3},
      {2, 2, 5, unit, 5},    {1, 5.29, 4, {1.0, 8.381657195409644e-07}, 1},
      {1, 5.3, 4, {1.0}, 0}, {1, 1, 0, {1.0}, 0},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(testing::Message() << "sd " << c.sd << " dt " << c.dt << " L " << c.half_width);
    const KernelResult r = gaussian_kernel(c.sd, c.dt, c.half_width);
    ASSERT_TRUE(r.ok()) << r.message;
    EXPECT_EQ(r.last_lag, c.last_lag);
    for (int k = 0; k <= c.half_width; ++k) {
      const double expected = k < int(c.values.size()) ? c.values[k] : 0.0;
      EXPECT_DOUBLE_EQ(r.kernel[k], expected) << "lag " << k;
      EXPECT_EQ(r.kernel[-k], r.kernel[k]) << "lag " << -k;
    }
  }
}

TEST(ExponentialKernel, FillsNonNegativeLagsAndReturnsTheLastLagBeforeTheCut) {
  // HL = dt = 1: the exponent -float32(k * 0.6931472) is -13.8629 at k = 20 and -14.5561
  // at k = 21; HL 60, dt 10: -13.978 at k = 121, -14.094 at k = 122 (python, struct 'f').
  const struct {
    double half_life, dt;
    int half_width, last_lag;
  } cuts[] = {{1, 1, 0, 0}, {1, 1, 10, 10}, {1, 1, 20, 20}, {1, 1, 21, 20}, {60, 10, 500, 121}};
  for (const auto& c : cuts) {
    const KernelResult r = exponential_kernel(c.half_life, c.dt, c.half_width);
    ASSERT_TRUE(r.ok()) << r.message;
    EXPECT_EQ(r.last_lag, c.last_lag) << c.half_life << " " << c.half_width;
    EXPECT_EQ(r.kernel[0], 1.0);
  }
  // exp(-float32(k * float32(0.6931472))) from python; negative lags and lags past the
  // cut stay 0.
  const struct {
    int lag;
    double value;
  } values[] = {{1, 0.49999999904767284},
                {2, 0.24999999904767284},
                {10, 0.0009765624813998606},
                {20, 9.53674280077853e-07},
                {21, 0.0},
                {-1, 0.0}};
  const KernelResult r = exponential_kernel(1, 1, 30);
  for (const auto& v : values) EXPECT_DOUBLE_EQ(r.kernel[v.lag], v.value) << "lag " << v.lag;
}

TEST(LagKernels, InputsThatAreNotPositiveFiniteOrWidthsOutOfRangeAreRefused) {
  const struct {
    double scale, dt;
    int half_width;
  } cases[] = {{0, 1, 5}, {-1, 1, 5},  {NAN, 1, 5}, {HUGE_VAL, 1, 5},
               {1, 0, 5}, {1, NAN, 5}, {1, 1, -1},  {1, 1, kMaxKernelHalfWidth + 1}};
  for (const auto& c : cases) {
    SCOPED_TRACE(testing::Message() << c.scale << " " << c.dt << " " << c.half_width);
    EXPECT_FALSE(gaussian_kernel(c.scale, c.dt, c.half_width).ok());
    EXPECT_FALSE(exponential_kernel(c.scale, c.dt, c.half_width).ok());
  }
}

}  // namespace
}  // namespace tidemark::pulse
