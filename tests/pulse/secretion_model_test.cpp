// The secretion-elimination model's layout, special cases and guards.
#include "pulse/secretion_model.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <vector>

#include "pulse/erf_factor.h"

namespace tidemark::pulse {
namespace {

// Written into the output before a call, to see which samples a call left untouched.
constexpr float kUntouched = -12345.0f;

struct Evaluation {
  ModelResult result;
  std::vector<float> out;
};

Evaluation evaluate(const std::vector<double>& params, ModelLayout layout,
                    const std::vector<float>& times) {
  Evaluation r{{}, std::vector<float>(times.size(), kUntouched)};
  r.result = evaluate_model(params, layout, times, r.out);
  return r;
}

TEST(ModelLayout, NamesFollowTheFixedOrderThenPositionAndLogHeightPairs) {
  struct Case {
    ModelLayout layout;
    int index;
    std::string_view name;
  };
  const Case cases[] = {
      {{1, 2}, 0, "BASAL SEC."},   {{1, 2}, 2, "SEC. SD."},  {{1, 2}, 3, "HALF-LIFE(1)"},
      {{1, 2}, 4, "POSITION"},     {{1, 2}, 7, "LogHeight"}, {{2, 1}, 4, "FRACTION(2)"},
      {{2, 1}, 5, "HALF-LIFE(2)"}, {{2, 1}, 6, "POSITION"},  {{3, 1}, 6, "FRACTION(3)"},
      {{3, 1}, 7, "HALF-LIFE(3)"}, {{3, 1}, 8, "POSITION"},  {{3, 1}, 9, "LogHeight"},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(parameter_name(c.layout, c.index), c.name) << c.layout.half_lives << " " << c.index;
  }
  // 2 + 2 half-lives fixed entries, then two per event.
  EXPECT_EQ((ModelLayout{1, 0}).size(), 4);
  EXPECT_EQ((ModelLayout{2, 0}).size(), 6);
  EXPECT_EQ((ModelLayout{3, 20}).size(), 48);
  EXPECT_DOUBLE_EQ(half_duration(2.0), 4.708);
}

TEST(SecretionModel, BasalSteadyStateIsWeightedByTheFractions) {
  // S0 = 1, no initial concentration, no events: C = 1.44269504 * sum f_j HL_j with
  // HL = 10, 100, 1000, by hand: 1 * 10 = 14.4269504;
  // (0.75 * 10 + 0.25 * 100) = 32.5 -> 46.8875888; (0.5*10 + 0.25*100 + 0.25*1000) = 280
  // -> 403.9546112.
  struct Case {
    ModelLayout layout;
    std::vector<double> params;
    float expected;
  };
  const Case cases[] = {
      {{1, 0}, {1, 0, 2, 10}, 14.4269504f},
      {{2, 0}, {1, 0, 2, 10, 0.25, 100}, 46.8875888f},
      {{3, 0}, {1, 0, 2, 10, 0.25, 100, 0.25, 1000}, 403.9546112f},
  };
  for (const Case& c : cases) {
    const Evaluation r = evaluate(c.params, c.layout, {0, 50, 5000});
    ASSERT_TRUE(r.result.ok()) << r.result.message;
    for (const float value : r.out) EXPECT_FLOAT_EQ(value, c.expected) << c.layout.half_lives;
  }
}

TEST(SecretionModel, SingleHalfLifeIsBasalLevelPlusDecayingInitialConcentration) {
  // S0 = 1.5, C0 = 4, HL = 20: C(t) = 1.5 * 20 * 1.44269504 + 4 * 2^(-t / 20), by hand
  // 43.2808512 + 4, + 4 / sqrt(2) (python: 46.10927832474619), + 1.
  const Evaluation r = evaluate({1.5, 4, 2, 20}, {1, 0}, {0, 10, 40});
  ASSERT_TRUE(r.result.ok());
  EXPECT_FLOAT_EQ(r.out[0], 47.2808512f);
  EXPECT_FLOAT_EQ(r.out[1], 46.10927832f);
  EXPECT_FLOAT_EQ(r.out[2], 44.2808512f);
}

TEST(SecretionModel, SampleAtOrBeforeTimeZeroGetsOnlyBasalAndInitialTerms) {
  // S0 = 2, C0 = 5, HL = 10 and a large event at 1 (within 6 SD of both samples):
  // C(0) = 2 * 10 * 1.44269504 + 5 = 33.8539008; C(-5) = 28.8539008 + 5 * 2^(1/2)
  // (python: 35.924968611865474).
  const Evaluation r = evaluate({2, 5, 3, 10, 1, 3}, {1, 1}, {-5, 0});
  ASSERT_TRUE(r.result.ok());
  EXPECT_FLOAT_EQ(r.out[0], 35.92496861f);
  EXPECT_FLOAT_EQ(r.out[1], 33.8539008f);
}

TEST(SecretionModel, EventActsFromSixSdBeforeItsPosition) {
  // Only an event at 100 with SD 1: nothing before 94, a positive tail from 94 on.
  const Evaluation r = evaluate({0, 0, 1, 10, 100, 3}, {1, 1}, {93.5f, 93.99f, 94, 100});
  ASSERT_TRUE(r.result.ok());
  EXPECT_EQ(r.out[0], 0.0f);
  EXPECT_EQ(r.out[1], 0.0f);
  EXPECT_GT(r.out[2], 0.0f);
  EXPECT_GT(r.out[3], r.out[2]);
}

TEST(SecretionModel, LogHeightAtOrBelowMinus35RemovesTheEventAndAbove35Fails) {
  // Only one event, at 10 with SD 1, sampled at 10 and 12.
  struct Case {
    double log_height;
    ModelStatus status;
    bool contributes;
  };
  const Case cases[] = {
      {-40, ModelStatus::kOk, false},
      {-35, ModelStatus::kOk, false},
      {-34.9, ModelStatus::kOk, true},
      {0, ModelStatus::kOk, true},
      {35, ModelStatus::kOk, true},
      {35.0001, ModelStatus::kOutsideRegion, false},
      {300, ModelStatus::kOutsideRegion, false},
  };
  for (const Case& c : cases) {
    const Evaluation r = evaluate({0, 0, 1, 10, 10, c.log_height}, {1, 1}, {10, 12});
    EXPECT_EQ(r.result.status, c.status) << c.log_height;
    if (c.status != ModelStatus::kOk) {
      EXPECT_EQ(r.result.failed_sample, 0);
      EXPECT_EQ(r.out[0], kUntouched);
    } else {
      EXPECT_EQ(r.out[0] > 0, c.contributes) << c.log_height;
    }
  }
}

TEST(SecretionModel, FirstFailingGuardStopsAndKeepsTheSamplesBeforeIt) {
  // By hand (python for the 32-bit products):
  //  - HL 1, t = -57: v = 57 * 0.69314718 = 39.509 <= 40; t = -58: v = 40.2025 > 40.
  //  - SD 10, HL 1, event at 100: a = 4.9012907, a^2 = 24.0227; at t = 40 (= 100 - 6 SD)
  //    u = 60 * 0.69314718 + 24.0227 = 65.61 > 40; t = 30 is more than 6 SD early.
  //  - S0 = 1e38, HL 100: the basal level 1.44e40 exceeds single precision.
  struct Case {
    const char* guard;
    ModelLayout layout;
    std::vector<double> params;
    std::vector<float> times;
    int failed_sample;
  };
  const Case cases[] = {
      {"initial exponent", {1, 0}, {1, 1, 1, 1}, {-57, -58, 0}, 1},
      {"convolution exponent", {1, 1}, {1, 0, 10, 1, 100, 0}, {0, 30, 40, 100}, 2},
      {"single precision", {1, 0}, {1e38, 0, 1, 100}, {0, 1}, 0},
  };
  for (const Case& c : cases) {
    const Evaluation r = evaluate(c.params, c.layout, c.times);
    EXPECT_EQ(r.result.status, ModelStatus::kOutsideRegion) << c.guard;
    EXPECT_EQ(r.result.error_flag(), 1);
    EXPECT_FALSE(r.result.message.empty());
    ASSERT_EQ(r.result.failed_sample, c.failed_sample) << c.guard;
    for (int i = 0; i < int(c.times.size()); ++i) {
      EXPECT_EQ(r.out[i] == kUntouched, i >= c.failed_sample) << c.guard << " sample " << i;
    }
  }
}

TEST(SecretionModel, InputThatCannotBeEvaluatedIsRefusedWithoutWriting) {
  constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
  struct Case {
    const char* what;
    ModelLayout layout;
    std::vector<double> params;
    std::vector<float> times;
  };
  const std::vector<float> times = {0, 10};
  const Case cases[] = {
      {"no half-life", {0, 0}, {1, 1}, times},
      {"four half-lives", {4, 0}, {1, 1, 1, 1, 0.1, 1, 0.1, 1, 0.1, 1}, times},
      {"negative event count", {1, -1}, {1, 1}, times},
      {"97 events", {1, 97}, std::vector<double>(4 + 2 * 97, 1.0), times},
      {"vector too short", {1, 1}, {1, 1, 1, 1, 5}, times},
      {"vector too long", {1, 0}, {1, 1, 1, 1, 5}, times},
      {"parameter not a number", {1, 0}, {kNaN, 1, 1, 1}, times},
      {"infinite parameter", {1, 1}, {1, 1, 1, 1, 5, HUGE_VAL}, times},
      {"infinite time", {1, 0}, {1, 1, 1, 1}, {0, HUGE_VALF}},
      {"zero SD", {1, 0}, {1, 1, 0, 1}, times},
      {"negative SD", {1, 0}, {1, 1, -2, 1}, times},
      {"zero half-life", {2, 0}, {1, 1, 1, 1, 0.5, 0}, times},
      {"negative half-life", {1, 0}, {1, 1, 1, -3}, times},
      {"half-life beyond single precision", {1, 0}, {1, 1, 1, 1e39}, times},
      {"half-life below single precision", {1, 0}, {1, 1, 1, 1e-50}, times},
      {"SD too wide for the half-life", {1, 0}, {1, 1, 1e300, 1e-30}, times},
  };
  for (const Case& c : cases) {
    const Evaluation r = evaluate(c.params, c.layout, c.times);
    EXPECT_EQ(r.result.status, ModelStatus::kInvalidInput) << c.what;
    EXPECT_FALSE(r.result.message.empty()) << c.what;
    for (const float value : r.out) EXPECT_EQ(value, kUntouched) << c.what;
  }
  const std::vector<double> params = {1, 1, 1, 1};
  std::vector<float> short_out(1);
  EXPECT_EQ(evaluate_model(params, {1, 0}, times, short_out).status, ModelStatus::kInvalidInput);
}

TEST(ErfFactor, FollowsAbramowitzStegunAndSaturatesAtSqrtPiAndZero) {
  // (sqrt(pi) / 2)(1 + erf(x)) from python's math.erf; A&S 7.1.28 errs by at most 3e-7 in
  // erf, 0.8862269 * 3e-7 in the factor.
  struct Case {
    double x, exact;
  };
  const Case cases[] = {{1, 1.633051058265185},    {-1, 0.13940279264033095},
                        {2.5, 1.7720931990702888}, {-2.5, 0.0003606518352270847},
                        {0.3, 1.1774648081097234}, {-0.3, 0.5949890427957923}};
  const AbramowitzStegunErfFactor factor;
  for (const Case& c : cases) EXPECT_NEAR(factor(c.x), c.exact, 0.8862269 * 3e-7) << c.x;
  EXPECT_EQ(factor(0), 0.88622693);
  EXPECT_EQ(factor(30), 1.77245386);
  EXPECT_EQ(factor(1e300), 1.77245386);
  EXPECT_EQ(factor(-30), 0.0);
  EXPECT_EQ(factor(-HUGE_VAL), 0.0);
}

}  // namespace
}  // namespace tidemark::pulse
