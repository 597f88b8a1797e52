// The model's closed-form derivatives against central differences of the model, and
// against the derivatives of the complete-Gaussian closed form derived by hand.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <vector>

#include "pulse/model_gradient.h"
#include "pulse/secretion_model.h"

namespace tidemark::pulse {
namespace {

struct GradientCase {
  const char* name;
  ModelLayout layout;
  std::vector<double> params;
};

std::vector<float> sample_times() {
  std::vector<float> t;
  for (int i = 0; i < 60; ++i) t.push_back(float(5 * i));
  return t;
}

// 64-bit values of the model, for differences (the 32-bit output of evaluate_model is
// too coarse to difference).
std::vector<double> values_at(const std::vector<double>& p, const ModelLayout& layout,
                              const std::vector<float>& t) {
  std::vector<double> v(t.size()), jac(t.size() * layout.size());
  EXPECT_TRUE(evaluate_model_gradient(p, layout, t, v, jac).ok());
  return v;
}

class ModelGradient : public ::testing::TestWithParam<GradientCase> {};

TEST_P(ModelGradient, MatchesCentralDifferences) {
  const GradientCase& c = GetParam();
  const std::vector<float> t = sample_times();
  const auto width = static_cast<std::size_t>(c.layout.size());
  std::vector<double> v(t.size()), jac(t.size() * width);
  ASSERT_TRUE(evaluate_model_gradient(c.params, c.layout, t, v, jac).ok());
  // The values agree with evaluate_model to single precision.
  std::vector<float> single(t.size());
  ASSERT_TRUE(evaluate_model(c.params, c.layout, t, single).ok());
  for (std::size_t i = 0; i < t.size(); ++i) EXPECT_NEAR(v[i], single[i], 1e-6 * (1 + std::fabs(v[i])));

  for (std::size_t j = 0; j < width; ++j) {
    const double h = 1e-5 * std::max(1.0, std::fabs(c.params[j]));
    std::vector<double> plus = c.params, minus = c.params;
    plus[j] += h;
    minus[j] -= h;
    const std::vector<double> vp = values_at(plus, c.layout, t);
    const std::vector<double> vm = values_at(minus, c.layout, t);
    double scale = 0;
    for (std::size_t i = 0; i < t.size(); ++i) scale = std::max(scale, std::fabs(jac[i * width + j]));
    for (std::size_t i = 0; i < t.size(); ++i) {
      const double numeric = (vp[i] - vm[i]) / (2 * h);
      // The fractions and heights are rounded to 32 bits inside the model, so the
      // differences carry about 1e-7 / h of noise relative to the values.
      EXPECT_NEAR(jac[i * width + j], numeric, 2e-3 * scale + 1e-6)
          << c.name << " entry " << j << " sample " << i;
    }
  }
}

INSTANTIATE_TEST_SUITE_P(
    Layouts, ModelGradient,
    ::testing::Values(
        GradientCase{"one half-life", {1, 2}, {0.05, 3.0, 6.0, 45.0, 80.0, 0.2, 160.0, -0.1}},
        GradientCase{"event before the series", {1, 1}, {0.02, 1.0, 4.0, 60.0, -5.0, 0.3}},
        GradientCase{"two half-lives", {2, 2}, {0.05, 2.0, 5.0, 20.0, 0.4, 90.0, 60.0, 0.1, 200.0, 0.4}},
        GradientCase{"three half-lives",
                     {3, 1},
                     {0.05, 2.0, 8.0, 10.0, 0.3, 50.0, 0.2, 150.0, 100.0, 0.5}}),
    [](const auto& test) {
      std::string n = test.param.name;
      std::replace(n.begin(), n.end(), ' ', '_');
      std::replace(n.begin(), n.end(), '-', '_');
      return n;
    });

// Far from both ends of the integral (P >> 6 sigma, t - P >> sigma) the event integral
// is that of the complete Gaussian: G = sigma sqrt(2 pi) exp(-k d + k^2 sigma^2 / 2),
// d = t - P, whose derivatives by hand are dG/dP = k G, dG/dsigma = (1/sigma + k^2
// sigma) G and dG/dk = (k sigma^2 - d) G.
TEST(ModelGradient, CompleteGaussianClosedForm) {
  const double hl = 50, sigma = 5, p = 300, log_height = 0.5, t = 500;
  const std::vector<double> params = {0.0, 0.0, sigma, hl, p, log_height};
  const std::vector<float> times = {float(t)};
  std::vector<double> v(1), jac(6);
  ASSERT_TRUE(evaluate_model_gradient(params, {1, 1}, times, v, jac).ok());
  const double k = std::numbers::ln2 / hl;
  const double d = t - p;
  const double h = std::pow(10.0, log_height);
  const double g = sigma * std::sqrt(2 * std::numbers::pi) * std::exp(-k * d + k * k * sigma * sigma / 2);
  const double rel = 2e-6;  // the 32-bit height and the model's rounded constants
  EXPECT_NEAR(v[0], h * g, rel * h * g);
  EXPECT_NEAR(jac[kBasal], hl / std::numbers::ln2, 1e-6 * hl);
  EXPECT_NEAR(jac[kConc0], std::exp(-k * t), 1e-6);
  EXPECT_NEAR(jac[4], h * k * g, rel * h * k * g);
  EXPECT_NEAR(jac[5], std::numbers::ln10 * h * g, rel * 3 * h * g);
  const double dsigma = h * (1 / sigma + k * k * sigma) * g;
  EXPECT_NEAR(jac[kSecretionSd], dsigma, rel * std::fabs(dsigma));
  const double dhl = h * (k * sigma * sigma - d) * g * (-k / hl);
  EXPECT_NEAR(jac[kHalfLife1], dhl, rel * std::fabs(dhl));
}

TEST(ModelGradient, RefusesAJacobianOfTheWrongSize) {
  const std::vector<double> params = {0.1, 1.0, 5.0, 50.0};
  const std::vector<float> times = {0, 10};
  std::vector<double> v(2), jac(3);
  EXPECT_EQ(evaluate_model_gradient(params, {1, 0}, times, v, jac).status, ModelStatus::kInvalidInput);
}

}  // namespace
}  // namespace tidemark::pulse
