#include "feedback/response_model.h"

#include <cmath>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "feedback/input_signal.h"

namespace tidemark::feedback {
namespace {

constexpr double kExact = 1e-9;  // schemes exact for the case: only rounding is left

std::vector<double> times(double first, double last, double step) {
  std::vector<double> t;
  for (double x = first; x <= last + 1e-9; x += step) t.push_back(x);
  return t;
}

Series constant_series(double first, double last, double value) {
  Series s{times(first, last, 10), {}};
  s.value.assign(s.time.size(), value);
  return s;
}

InputModel input(Spreading spreading, DoseResponse dose) {
  InputModel in;
  in.spreading = spreading;
  in.dose = dose;
  return in;
}

// Parameters of a one-input model: delay, width, efficacy, EC50, Hill, then the tail.
std::vector<double> one_input(double delay, double width, double e, double ec50, double n,
                              double basal, double hl, double hl2, double f2, double c0) {
  return {delay, width, e, ec50, n, basal, hl, hl2, f2, c0};
}

// Constant secretion S from C0 with rate k: C(t) = S/k + (C0 - S/k) e^{-k t}
// (solution of dC/dt = S - kC by hand).
double constant_secretion(double s, double k, double c0, double t) {
  return s / k + (c0 - s / k) * std::exp(-k * t);
}

struct ConstantCase {
  const char* name;
  Spreading spreading;
  DoseResponse dose;
  double delay, width;
};

class ConstantInputTest : public ::testing::TestWithParam<ConstantCase> {};

// A constant input 4 with EC50 4 and Hill 1 drives E/2 = 3 through either dose-response,
// whatever its delay and spreading; with basal 1 the secretion is 4.
TEST_P(ConstantInputTest, OneHalfLifeFollowsClosedForm) {
  const ConstantCase& c = GetParam();
  ResponseModel model;
  model.inputs = {input(c.spreading, c.dose)};
  ResponseData data;
  // Irregular output times: most fall between grid points.
  for (int j = 0; j <= 30; ++j) data.time.push_back(10 * j + 3 * std::sin(j) + 3);
  data.inputs = {constant_series(-100, 400, 4)};
  const std::vector<double> p = one_input(c.delay, c.width, 6, 4, 1, 1, 20, 1, 0, 10);
  const Prediction pr = predict(model, p, data);
  ASSERT_TRUE(pr.ok()) << pr.error;
  const double k = std::log(2.0) / 20;
  for (std::size_t j = 0; j < data.time.size(); ++j) {
    EXPECT_NEAR(pr.conc[j], constant_secretion(4, k, 10, data.time[j] - data.time[0]), kExact * 100);
    EXPECT_NEAR(pr.secretion[j], 4, kExact);
    EXPECT_NEAR(pr.drive[0][j], 3, kExact);
  }
}

INSTANTIATE_TEST_SUITE_P(
    Inputs, ConstantInputTest,
    ::testing::Values(ConstantCase{"plain", Spreading::kNone, DoseResponse::kStimulatory, 0, 0},
                      ConstantCase{"delayed", Spreading::kNone, DoseResponse::kInhibitory, 35, 0},
                      ConstantCase{"gauss", Spreading::kGaussian, DoseResponse::kStimulatory, 10, 15},
                      ConstantCase{"expo", Spreading::kExponential, DoseResponse::kInhibitory, 0, 25}),
    [](const auto& test) { return std::string(test.param.name); });

TEST(ResponseModelTest, TwoHalfLivesSplitTheMass) {
  // Fraction f of the initial concentration and of the secretion on the second
  // compartment: C = (1 - f) C_k1 + f C_k2, each the one-compartment closed form.
  ResponseModel model;
  model.inputs = {input(Spreading::kNone, DoseResponse::kStimulatory)};
  model.eliminations = 2;
  ResponseData data;
  data.time = times(5, 605, 20);
  data.inputs = {constant_series(0, 700, 4)};
  const std::vector<double> p = one_input(0, 0, 6, 4, 1, 1, 10, 90, 0.3, 12);
  const Prediction pr = predict(model, p, data);
  ASSERT_TRUE(pr.ok()) << pr.error;
  const double k1 = std::log(2.0) / 10, k2 = std::log(2.0) / 90;
  for (std::size_t j = 0; j < data.time.size(); ++j) {
    const double t = data.time[j] - 5;
    const double expected =
        0.7 * constant_secretion(4, k1, 12, t) + 0.3 * constant_secretion(4, k2, 12, t);
    EXPECT_NEAR(pr.conc[j], expected, 1e-8 * expected);
  }
}

TEST(ResponseModelTest, ProductCombinesDrivesTimesEachOther) {
  // Drives 3 (E 6 at EC50) and 10 * 9 / (1 + 9) = 9 (E 10, x/EC50 = 3, Hill 2): 27 + basal 2.
  ResponseModel model;
  model.inputs = {input(Spreading::kNone, DoseResponse::kStimulatory),
                  input(Spreading::kNone, DoseResponse::kStimulatory)};
  model.combination = Combination::kProduct;
  ResponseData data;
  data.time = times(0, 100, 10);
  data.inputs = {constant_series(0, 100, 4), constant_series(0, 100, 6)};
  const std::vector<double> p = {0, 0, 6, 4, 1, 0, 0, 10, 2, 2, 2, 15, 1, 0, 29 / (std::log(2.0) / 15)};
  const Prediction pr = predict(model, p, data);
  ASSERT_TRUE(pr.ok()) << pr.error;
  for (std::size_t j = 0; j < data.time.size(); ++j) {
    EXPECT_NEAR(pr.secretion[j], 29, kExact);
    // Started at the steady state S / k, the concentration stays there.
    EXPECT_NEAR(pr.conc[j], p.back(), 1e-9 * p.back());
  }
}

TEST(ResponseModelTest, DelayEqualsShiftingTheInput) {
  // x(t - D) with delay D is the undelayed model of the input moved D later in time.
  ResponseModel model;
  model.inputs = {input(Spreading::kGaussian, DoseResponse::kStimulatory)};
  Series wave;
  for (double t = -200; t <= 600; t += 10) {
    wave.time.push_back(t);
    wave.value.push_back(5 + 4 * std::sin(t / 37));
  }
  Series moved = wave;
  for (double& t : moved.time) t += 30;
  ResponseData delayed{times(0, 300, 10), {}, {}, {wave}};
  ResponseData shifted{times(0, 300, 10), {}, {}, {moved}};
  const Prediction a = predict(model, one_input(30, 12, 6, 4, 2, 1, 20, 1, 0, 3), delayed);
  const Prediction b = predict(model, one_input(0, 12, 6, 4, 2, 1, 20, 1, 0, 3), shifted);
  ASSERT_TRUE(a.ok() && b.ok());
  for (std::size_t j = 0; j < a.conc.size(); ++j) EXPECT_NEAR(a.conc[j], b.conc[j], 1e-9);
}

TEST(ResponseModelTest, InputThatDoesNotCoverTheDelayedTimesIsNamed) {
  ResponseModel model;
  model.inputs = {input(Spreading::kNone, DoseResponse::kStimulatory),
                  input(Spreading::kNone, DoseResponse::kStimulatory)};
  ResponseData data{times(0, 100, 10), {}, {}, {constant_series(-50, 100, 1), constant_series(0, 100, 1)}};
  std::vector<double> p = {20, 0, 1, 1, 1, 20, 0, 1, 1, 1, 0, 10, 1, 0, 0};
  const Prediction pr = predict(model, p, data);
  EXPECT_FALSE(pr.ok());
  EXPECT_NE(pr.error.find("input 2"), std::string::npos) << pr.error;
  EXPECT_TRUE(pr.conc.empty());
  p[5] = 0;
  EXPECT_TRUE(predict(model, p, data).ok());
}

TEST(ResponseModelTest, UnusableParameterIsNamed) {
  ResponseModel model;
  model.inputs = {input(Spreading::kNone, DoseResponse::kStimulatory)};
  ResponseData data{times(0, 100, 10), {}, {}, {constant_series(0, 100, 1)}};
  const Prediction pr = predict(model, one_input(0, 0, 1, 1, 1, 0, -5, 1, 0, 0), data);
  EXPECT_NE(pr.error.find("Half-Life"), std::string::npos) << pr.error;
}

struct DoseCase {
  DoseResponse dose;
  double e, ec50, n, x, expected;  // expected by hand from E r / (1 + r) or E / (1 + r)
};

TEST(DoseResponseTest, HillFunctionValues) {
  const DoseCase cases[] = {
      {DoseResponse::kStimulatory, 10, 2, 1, 2, 5},     // half at EC50
      {DoseResponse::kStimulatory, 10, 2, 3.5, 2, 5},   // for any slope
      {DoseResponse::kInhibitory, 10, 2, 0.5, 2, 5},
      {DoseResponse::kStimulatory, 10, 2, 2, 4, 8},     // r = 4: 10 * 4 / 5
      {DoseResponse::kInhibitory, 10, 2, 2, 4, 2},      // 10 / 5
      {DoseResponse::kStimulatory, 10, 2, 1, 0, 0},
      {DoseResponse::kInhibitory, 10, 2, 1, 0, 10},
      {DoseResponse::kStimulatory, 10, 2, 1, -3, 0},    // no drive below zero
  };
  for (const DoseCase& c : cases) {
    InputModel in;
    in.dose = c.dose;
    EXPECT_NEAR(dose_response(in, c.e, c.ec50, c.n, c.x), c.expected, 1e-12)
        << "x " << c.x << " n " << c.n;
  }
}

TEST(ParameterLayoutTest, NamesAndHeldTwoEliminationParameters) {
  ResponseModel model;
  model.inputs.resize(2);
  model.inputs[0].spreading = Spreading::kGaussian;
  const std::vector<std::string> names = parameter_names(model);
  ASSERT_EQ(parameter_count(model), 15);
  EXPECT_EQ(names[0], "Delay 1");
  EXPECT_EQ(names[8], "EC50 2");
  EXPECT_EQ(names[14], "Initial");
  const std::vector<Bounded> bounds = parameter_bounds(model);
  EXPECT_TRUE(bounds[1].fit);    // width of the spread input
  EXPECT_FALSE(bounds[6].fit);   // width of an input without spreading
  EXPECT_FALSE(bounds[12].fit);  // Half-Life 2 with one elimination
  EXPECT_FALSE(bounds[13].fit);
}

// Spreading a ramp a + b u: the symmetric Gaussian gives the ramp back; the causal
// exponential of mean W gives a + b (u - W) (convolution integral by hand), up to the
// start of its recurrence 8 W early (b W e^-8 = 3.4e-4 b W).
TEST(SpreadInputTest, RampsAndConstants) {
  Series ramp;
  for (double t = 0; t <= 1000; t += 10) {
    ramp.time.push_back(t);
    ramp.value.push_back(3 + 0.5 * t);
  }
  std::vector<double> out(100);
  spread_input(ramp, Spreading::kGaussian, 20, 300, 2.5, out);
  for (std::size_t j = 0; j < out.size(); ++j) EXPECT_NEAR(out[j], 3 + 0.5 * (300 + 2.5 * double(j)), kExact * 1e3);
  spread_input(ramp, Spreading::kExponential, 20, 300, 2.5, out);
  for (std::size_t j = 0; j < out.size(); ++j) {
    EXPECT_NEAR(out[j], 3 + 0.5 * (300 + 2.5 * double(j) - 20), 0.5 * 20 * 4e-4);
  }
  // A constant, with kernel tails past both ends of the samples.
  const Series flat{{0, 50}, {7, 7}};
  for (const Spreading s : {Spreading::kGaussian, Spreading::kExponential}) {
    spread_input(flat, s, 30, 0, 2.5, {out.data(), 21});
    for (std::size_t j = 0; j < 21; ++j) EXPECT_NEAR(out[j], 7, kExact);
  }
}

}  // namespace
}  // namespace tidemark::feedback

namespace tidemark::feedback {
namespace {

// The grid's only approximation, the piecewise-linear secretion between grid points,
// measured against a grid twenty times finer: the same input function given at 0.5-min
// spacing (its own straight lines resampled) shrinks the grid step from 2.5 to 0.125 min.
TEST(ResponseModelTest, GridErrorWellBelowAssayNoise) {
  Series coarse;
  for (double t = -100; t <= 600; t += 10) {
    coarse.time.push_back(t);
    coarse.value.push_back(2 + 6 * std::exp(-std::fmod(t + 1000, 80) / 12));
  }
  Series fine;
  for (double t = -100; t <= 600; t += 0.5) {
    fine.time.push_back(t);
    fine.value.push_back(0);
  }
  interpolate_increasing(coarse, -100, 0.5, fine.value);
  ResponseModel model;
  model.inputs = {input(Spreading::kGaussian, DoseResponse::kStimulatory)};
  const ResponseData a{times(0, 500, 10), {}, {}, {coarse}};
  const ResponseData b{times(0, 500, 10), {}, {}, {fine}};
  const std::vector<double> p = one_input(33.7, 4, 2, 4, 3, 0.2, 20, 1, 0, 10);
  const Prediction pa = predict(model, p, a);
  const Prediction pb = predict(model, p, b);
  ASSERT_TRUE(pa.ok() && pb.ok());
  double worst = 0;
  for (std::size_t j = 0; j < pa.conc.size(); ++j) {
    worst = std::max(worst, std::abs(pa.conc[j] / pb.conc[j] - 1));
  }
  ::testing::Test::RecordProperty("largest_relative_grid_error", std::to_string(worst));
  // A fourfold rise within one sample through Hill 3: about 0.5 %, a tenth of 5 % noise.
  EXPECT_LT(worst, 1e-2);
}

}  // namespace
}  // namespace tidemark::feedback
