// The closed-form model against quadrature of its convolution integral, over random
// parameter vectors with one to three half-lives (tests/fixtures/pulse/model_quadrature.txt).
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <fstream>
#include <numbers>
#include <string>
#include <vector>

#include "pulse/erf_factor.h"
#include "pulse/model_evaluation.h"
#include "pulse/secretion_model.h"

namespace tidemark::pulse {
namespace {

// In the narrow cases (every half-life at least twice the secretion SD, every event
// whole inside the series) the model as written stays within this fraction of the series
// maximum of quadrature: its Abramowitz-Stegun erf errs by up to 3e-7.
constexpr double kNarrowModelTolerance = 1e-6;
// With an exact erf the closed form must agree with quadrature to this relative error at
// every sample.
constexpr double kClosedFormTolerance = 1e-6;
// Relative error allowed for the 32-bit fractions, heights and output.
constexpr double kSinglePrecisionTolerance = 2e-7;
// Abramowitz and Stegun 7.1.28: |erf error| <= 3e-7, so E = (sqrt(pi) / 2)(1 + erf) errs
// by at most 0.8862269 * 3e-7.
constexpr double kFactorError = 0.8862269 * 3e-7;

// E(x) = (sqrt(pi) / 2) (1 + erf(x)) with the C library's erf.
struct ExactErfFactor {
  double operator()(double x) const {
    return 0.5 * std::sqrt(std::numbers::pi) * (1 + std::erf(x));
  }
};

struct QuadratureCase {
  bool narrow = false;
  ModelLayout layout;
  std::vector<double> params;
  std::vector<float> times;
  std::vector<double> expected;
};

template <typename T>
std::vector<T> read_row(std::istream& in, int count) {
  std::vector<T> row(static_cast<std::size_t>(count));
  for (T& v : row) in >> v;
  return row;
}

// The cases written by scripts/gen-secretion-model-cases.
std::vector<QuadratureCase> read_cases() {
  std::ifstream in(TIDEMARK_FIXTURES "/pulse/model_quadrature.txt");
  std::vector<QuadratureCase> cases;
  std::string line;
  while (in.peek() == '#') std::getline(in, line);
  QuadratureCase c;
  std::string kind;
  int samples = 0;
  while (in >> kind >> c.layout.half_lives >> c.layout.events >> samples) {
    c.narrow = kind == "narrow";
    c.params = read_row<double>(in, c.layout.size());
    c.times = read_row<float>(in, samples);
    c.expected = read_row<double>(in, samples);
    cases.push_back(c);
  }
  return cases;
}

const std::vector<QuadratureCase>& cases() {
  static const std::vector<QuadratureCase> all = read_cases();
  return all;
}

// Fraction f_j (j 0-based): f2 and f3 as given, f1 = 1 - f2 - f3.
double fraction(const QuadratureCase& c, int j) {
  if (j > 0) return c.params[kFraction2 + 2 * (j - 1)];
  double rest = 0;
  for (int other = 1; other < c.layout.half_lives; ++other) rest += fraction(c, other);
  return 1 - rest;
}

// How far the model's approximations can move it at time t. The initial-concentration
// term f_j C0 exp(v), v = -k_j t, takes v in 32 bits, off by up to (|v| + 1) 2^-24
// relative after the exponential; each event term
// f_j 10^L_e (E(x_t) - E(x_0)) exp(u) sigma sqrt(2) by 2 kFactorError exp(u) sigma sqrt(2)
// in magnitude, with u = (k_j sigma)^2 / 2 - (t - P_e) k_j, k_j = ln 2 / HL_j, for the
// events that act at t (t > 0, t >= P_e - 6 sigma, L_e > -35).
double erf_error_bound(const QuadratureCase& c, double t) {
  const std::vector<double>& p = c.params;
  const double sigma = p[kSecretionSd];
  double bound = 0;
  for (int j = 0; j < c.layout.half_lives; ++j) {
    const double f = std::fabs(fraction(c, j));
    const double k = std::numbers::ln2 / p[kHalfLife1 + 2 * j];
    const double v = -k * t;
    bound += f * std::fabs(p[kConc0] * std::exp(v)) * (std::fabs(v) + 1) * 0x1p-24;
    for (int e = 0; e < c.layout.events; ++e) {
      const double position = p[c.layout.position_index(e)];
      const double log_height = p[c.layout.log_height_index(e)];
      if (t <= 0 || t < position - 6 * sigma || log_height <= -35) continue;
      const double u = k * k * sigma * sigma / 2 - (t - position) * k;
      bound += f * std::pow(10.0, log_height) * 2 * kFactorError * std::exp(u) * sigma *
               std::numbers::sqrt2;
    }
  }
  return bound;
}

// Evaluates every case (only the narrow ones if `narrow_only`) with `Factor` as E(x) and
// expects each sample i within tolerance(case, i) of quadrature.
template <typename Factor, typename Tolerance>
void expect_quadrature(bool narrow_only, Tolerance tolerance) {
  ASSERT_EQ(cases().size(), 150u);
  for (std::size_t n = 0; n < cases().size(); ++n) {
    const QuadratureCase& c = cases()[n];
    if (narrow_only && !c.narrow) continue;
    std::vector<float> model(c.times.size());
    const ModelResult r = detail::evaluate_model_with<Factor>(c.params, c.layout, c.times, model);
    ASSERT_TRUE(r.ok()) << r.message;
    for (std::size_t i = 0; i < model.size(); ++i) {
      EXPECT_NEAR(model[i], c.expected[i], tolerance(c, i)) << "case " << n << " sample " << i;
    }
  }
}

TEST(ModelQuadrature, ModelAsWrittenMatchesQuadratureWithinAMillionthOfTheMaximumForNarrowEvents) {
  expect_quadrature<AbramowitzStegunErfFactor>(true, [](const QuadratureCase& c, std::size_t) {
    return kNarrowModelTolerance * *std::max_element(c.expected.begin(), c.expected.end());
  });
}

TEST(ModelQuadrature, ModelAsWrittenStaysWithinThePropagatedErfErrorEverywhere) {
  expect_quadrature<AbramowitzStegunErfFactor>(false, [](const QuadratureCase& c, std::size_t i) {
    return kSinglePrecisionTolerance * std::fabs(c.expected[i]) + erf_error_bound(c, c.times[i]);
  });
}

TEST(ModelQuadrature, ClosedFormWithExactErfMatchesQuadratureAtEverySample) {
  expect_quadrature<ExactErfFactor>(false, [](const QuadratureCase& c, std::size_t i) {
    return kClosedFormTolerance * std::fabs(c.expected[i]);
  });
}

}  // namespace
}  // namespace tidemark::pulse
