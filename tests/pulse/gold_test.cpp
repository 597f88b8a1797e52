// Gold's iteration: its special cases, stopping rules and failures, and the recovery of
// a secretion profile from noiseless model data.
#include "pulse/gold.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <vector>

#include "pulse/secretion_model.h"

namespace tidemark::pulse {
namespace {

// A kernel over lags -L..L with the given values at lags 0, 1, ...
LagKernel kernel_from(int half_width, const std::vector<double>& from_lag_zero) {
  LagKernel kernel(half_width);
  for (std::size_t l = 0; l < from_lag_zero.size(); ++l) kernel[int(l)] = from_lag_zero[l];
  return kernel;
}

struct Series {
  std::vector<double> c, sd;
  std::vector<int> use;
};

// Concentrations with SD 1 and every sample used unless `use` is given.
Series series(std::vector<double> c, std::vector<int> use = {}) {
  const std::size_t n = c.size();
  if (use.empty()) use.assign(n, 1);
  return {std::move(c), std::vector<double>(n, 1.0), std::move(use)};
}

GoldResult deconvolve(const Series& s, const LagKernel& kernel, GoldOptions options) {
  return gold_deconvolve({s.c, s.sd, s.use}, kernel, options);
}

TEST(Gold, DataTheModelReproducesStopAtIteration101) {
  // Once R <= 1.0E-10 every iteration stalls, and the first past 100 stops.
  //  - K(0) = 1, h = 1: the model is s itself, so the first correction makes s = c.
  //  - K(0) = K(1) = 1: m1 = s1, m2 = s1 + s2, m3 = s2 + s3. Unused sample 2 keeps
  //    s2 = 0.001 * 1000 = 1 and sample 3 converges to m3 = c3, s3 = 5 - 1 = 4 (the
  //    correction s3 -> 5 s3 / (1 + s3) contracts by 0.2 per iteration).
  const struct {
    Series s;
    std::vector<double> kernel;
    std::vector<double> secretion;
  } cases[] = {{series({1, 2.5, 7, 0.3, 1e-3, 4e4}), {1}, {1, 2.5, 7, 0.3, 1e-3, 4e4}},
               {series({2, 1000, 5}, {1, 0, 1}), {1, 1}, {2, 1, 4}}};
  for (const auto& c : cases) {
    const int last = int(c.kernel.size()) - 1;
    const GoldResult r = deconvolve(c.s, kernel_from(last, c.kernel), {0, last, 1});
    EXPECT_TRUE(r.ok()) << r.message;
    EXPECT_EQ(r.iterations, 101);
    EXPECT_LE(r.residual, kGoldResidualFloor);
    for (std::size_t i = 0; i < c.secretion.size(); ++i) {
      EXPECT_NEAR(r.secretion[i], c.secretion[i], 1e-12 * c.secretion[i]) << i;
    }
  }
}

TEST(Gold, StopsAfterFiveStalledIterationsPast100OrFailsAt3000) {
  // c = (1, c2), K(0) = K(1) = 1, SDs equal: s1 = 1 from the first correction, then
  // s2 -> c2 s2 / (1 + s2).
  //  - c2 = 1: s2 = 1 / (k + 1) after iteration k and R = 1 / (2 k^2 SD^2), from the model
  //    before the correction, improves by about 2 / k > 1.0E-4 per iteration. With SD 1 it
  //    never stalls and fails at k = 3000; with SD 500 R first falls to 1.0E-10 or below
  //    at k = 142 (2 k^2 * 250000 >= 1.0E10) and the fifth stalled iteration, 146, stops.
  //  - c2 = 0.94: s2 shrinks geometrically and R levels off at (1 - 0.94)^2 / 2; a python
  //    transcription of the stall rule on this recurrence stops at k = 147 with
  //    R = 0.0018004038034666933 and s2 = 6.325856979841125e-06.
  const struct {
    double c2, sd;
    GoldStatus status;
    int iterations;
    double s2, residual;
  } cases[] = {
      {1, 1, GoldStatus::kNoConvergence, 3000, 1 / 3001.0, 0.5 / (3000.0 * 3000.0)},
      {1, 500, GoldStatus::kConverged, 146, 1 / 147.0, 0.5 / (146.0 * 146.0 * 500.0 * 500.0)},
      {0.94, 1, GoldStatus::kConverged, 147, 6.325856979841125e-06, 0.0018004038034666933},
  };
  for (const auto& c : cases) {
    Series s = series({1, c.c2});
    s.sd.assign(2, c.sd);
    const GoldResult r = deconvolve(s, kernel_from(1, {1, 1}), {0, 1, 1});
    EXPECT_EQ(r.status, c.status) << c.c2 << " " << c.sd;
    EXPECT_EQ(r.iterations, c.iterations);
    EXPECT_DOUBLE_EQ(r.secretion[0], 1.0);
    EXPECT_NEAR(r.secretion[1], c.s2, 1e-10 * c.s2);
    EXPECT_NEAR(r.residual, c.residual, 1e-10 * c.residual);
  }
}

TEST(Gold, NoUsableSampleFailsAtTheFirstIterationWithoutCorrection) {
  const Series cases[] = {series({3, 4, 5}, {0, -1, 0}), series({})};
  for (const Series& s : cases) {
    const GoldResult r = deconvolve(s, kernel_from(0, {1}), {0, 0, 1});
    EXPECT_EQ(r.status, GoldStatus::kNoUsableSample);
    EXPECT_EQ(r.iterations, 1);
    ASSERT_EQ(r.secretion.size(), s.c.size());
    for (std::size_t i = 0; i < s.c.size(); ++i) EXPECT_EQ(r.secretion[i], 0.001 * s.c[i]);
  }
}

TEST(Gold, FailsWhereACorrectionWouldDivideByZeroOrOverflow) {
  // All fail in the first iteration:
  //  - lag 1 only: nothing reaches sample 1, whose model stays 0;
  //  - K(0) = 1e-300: m = 1e297 * 1e-300 = 1e-3, and c * s = 1e300 * 1e297 overflows;
  //  - SD 1e-300: ((0.001 - 1) / 1e-300)^2 overflows the residual.
  struct Case {
    const char* what;
    Series s;
    std::vector<double> kernel;
    GoldOptions options;
    GoldStatus status;
  };
  Series tiny_sd = series({1, 2});
  tiny_sd.sd.assign(2, 1e-300);
  const Case cases[] = {
      {"zero model", series({1, 2, 3}), {0, 1}, {1, 1, 1}, GoldStatus::kZeroModel},
      {"secretion overflow", series({1e300}), {1e-300}, {0, 0, 1}, GoldStatus::kNotFinite},
      {"residual overflow", tiny_sd, {1}, {0, 0, 1}, GoldStatus::kNotFinite},
  };
  for (const Case& c : cases) {
    const int width = int(c.kernel.size()) - 1;
    const GoldResult r = deconvolve(c.s, kernel_from(width, c.kernel), c.options);
    EXPECT_EQ(r.status, c.status) << c.what;
    EXPECT_EQ(r.iterations, 1) << c.what;
    EXPECT_FALSE(r.message.empty()) << c.what;
  }
}

TEST(Gold, InputsThatDoNotFitTogetherOrAreNotFiniteAreRefused) {
  Series bad_sd = series({1, 2});
  bad_sd.sd[1] = 0;
  Series short_use = series({1, 2});
  short_use.use.pop_back();
  const struct {
    Series s;
    GoldOptions options;
  } cases[] = {{series({1, 2}), {1, 0, 1}},         // lags reversed
               {series({1, 2}), {-3, 0, 1}},        // lag outside the kernel
               {series({1, 2}), {0, 1, NAN}},       // scale not finite
               {series({1, HUGE_VAL}), {0, 1, 1}},  // concentration not finite
               {bad_sd, {0, 1, 1}},                 // zero SD of a used sample
               {short_use, {0, 1, 1}}};             // use flags missing
  for (const auto& c : cases) {
    const GoldResult r = deconvolve(c.s, kernel_from(2, {1, 0.5}), c.options);
    EXPECT_EQ(r.status, GoldStatus::kInvalidInput) << r.message;
  }
  // The SD of an unused sample is never read.
  Series unused_zero_sd = series({1, 2}, {1, 0});
  unused_zero_sd.sd[1] = 0;
  EXPECT_TRUE(deconvolve(unused_zero_sd, kernel_from(2, {1, 0.5}), {0, 1, 1}).ok());
}

// Secretion of the model's vector at time t: S0 + sum_e 10^L_e exp(-(t - P_e)^2 / 2 SD^2).
double secretion(const std::vector<double>& p, const ModelLayout& layout, double t) {
  double s = p[kBasal];
  for (int e = 0; e < layout.events; ++e) {
    const double d = t - p[layout.position_index(e)];
    s += std::pow(10.0, p[layout.log_height_index(e)]) *
         std::exp(-d * d / (2 * p[kSecretionSd] * p[kSecretionSd]));
  }
  return s;
}

TEST(Gold, RecoversTheSecretionOfNoiselessModelData) {
  // One half-life of 20, SD 4, basal 0.5, five events; 300 samples at dt = 2 from t = 2.
  const double dt = 2, half_life = 20;
  const ModelLayout layout{1, 5};
  const std::vector<double> p = {0.5, 0,   4,   half_life, 100, 1.0, 200,
                                 1.3, 330, 1.5, 470,       1.1, 500, 1.2};
  const int n = 300;
  std::vector<float> times(n), conc(n);
  for (int i = 0; i < n; ++i) times[i] = float((i + 1) * dt);
  ASSERT_TRUE(evaluate_model(p, layout, times, conc).ok());
  const Series s = series({conc.begin(), conc.end()});
  const KernelResult k = exponential_kernel(half_life, dt, n);
  const GoldResult r = deconvolve(s, k.kernel, {0, k.last_lag, dt});
  ASSERT_TRUE(r.ok()) << r.message;

  // The discrete model m(i) = e^(-k dt) m(i-1) + dt s(i) equals the data exactly when
  // s(i) = (1/dt) * integral over (t(i-1), t(i)] of S(tau) e^(-k (t(i) - tau)) dtau, the
  // weighted average of the secretion over the preceding interval (composite Simpson,
  // 200 panels, here). So between pulses s = S0 (1 - e^(-k dt)) / (k dt) = 0.48306. Sample
  // 1 also carries the steady state reached before t = 0 and is left out. Gold stops at
  // R <= 1.0E-10 (with SD 1 a residual RMS of 1.0E-5); an error d in one model value moves
  // s by about (1 + e^(-k dt)) d / dt, and one residual may reach sqrt(N R):
  // (1.93 / 2) sqrt(300 * 1.0E-10) = 1.7E-4.
  constexpr double kTolerance = 2e-4;
  const double rate = std::numbers::ln2 / half_life;
  for (int i = 1; i < n; ++i) {
    const double t = times[i];
    constexpr int kPanels = 200;
    const double h = dt / kPanels;
    double sum = 0;
    for (int q = 0; q <= kPanels; ++q) {
      const double tau = t - dt + q * h;
      const double weight = q == 0 || q == kPanels ? 1 : (q % 2 == 1 ? 4 : 2);
      sum += weight * secretion(p, layout, tau) * std::exp(-rate * (t - tau));
    }
    EXPECT_NEAR(r.secretion[i], sum * h / 3 / dt, kTolerance) << "t = " << t;
  }
}

}  // namespace
}  // namespace tidemark::pulse
