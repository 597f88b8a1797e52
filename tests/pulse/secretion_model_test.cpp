// The secretion-elimination model's layout, special cases and guards.
#include "pulse/secretion_model.h"

#include <gtest/gtest.h>

#include <cmath>
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
  const struct {
    ModelLayout layout;
    int index;
    std::string_view name;
  } cases[] = {{{1, 2}, 3, "HALF-LIFE(1)"}, {{1, 2}, 4, "POSITION"}, {{1, 2}, 7, "LogHeight"},
               {{2, 1}, 5, "HALF-LIFE(2)"}, {{2, 1}, 6, "POSITION"}, {{3, 1}, 6, "FRACTION(3)"},
               {{3, 1}, 8, "POSITION"},     {{3, 1}, 9, "LogHeight"}};
  for (const auto& c : cases) EXPECT_EQ(parameter_name(c.layout, c.index), c.name) << c.index;
  EXPECT_EQ((ModelLayout{3, 20}).size(), 48);
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
  const struct {
    double log_height;
    ModelStatus status;
    bool contributes;
  } cases[] = {{-40, ModelStatus::kOk, false},
               {-35, ModelStatus::kOk, false},
               {-34.9, ModelStatus::kOk, true},
               {35, ModelStatus::kOk, true},
               {35.0001, ModelStatus::kOutsideRegion, false}};
  for (const auto& c : cases) {
    const Evaluation r = evaluate({0, 0, 1, 10, 10, c.log_height}, {1, 1}, {10, 12});
    EXPECT_EQ(r.result.status, c.status) << c.log_height;
    EXPECT_EQ(r.out[0] > 0, c.contributes) << c.log_height;
  }
}

TEST(SecretionModel, FirstFailingGuardStopsAndKeepsTheSamplesBeforeIt) {
  // By hand (python for the 32-bit products):
  //  - HL 1, t = -57: v = 57 * 0.69314718 = 39.509 <= 40; t = -58: v = 40.2025 > 40.
  //  - SD 10, HL 1, event at 100: a = 4.9012907, a^2 = 24.0227; at t = 40 (= 100 - 6 SD)
  //    u = 60 * 0.69314718 + 24.0227 = 65.61 > 40; t = 30 is more than 6 SD early.
  //  - LogHeight 36 fails at the first sample.
  //  - S0 = 1e38, HL 100: the basal level 1.44e40 exceeds single precision.
  const struct {
    ModelLayout layout;
    std::vector<double> params;
    std::vector<float> times;
    int failed_sample;
  } cases[] = {{{1, 0}, {1, 1, 1, 1}, {-57, -58, 0}, 1},
               {{1, 1}, {1, 0, 10, 1, 100, 0}, {0, 30, 40, 100}, 2},
               {{1, 1}, {1, 0, 1, 10, 100, 36}, {0, 100}, 0},
               {{1, 0}, {1e38, 0, 1, 100}, {0, 1}, 0}};
  for (const auto& c : cases) {
    const Evaluation r = evaluate(c.params, c.layout, c.times);
    EXPECT_EQ(r.result.status, ModelStatus::kOutsideRegion);
    EXPECT_EQ(r.result.error_flag(), 1);
    ASSERT_EQ(r.result.failed_sample, c.failed_sample) << r.result.message;
    for (int i = 0; i < int(c.times.size()); ++i) {
      EXPECT_EQ(r.out[i] == kUntouched, i >= c.failed_sample) << r.result.message << " " << i;
    }
  }
}

TEST(SecretionModel, InputThatCannotBeEvaluatedIsRefusedWithoutWriting) {
  const std::vector<float> times = {0, 10};
  const struct {
    ModelLayout layout;
    std::vector<double> params;
    std::vector<float> times;
  } cases[] = {
      {{0, 0}, {1, 1}, times},                                 // no half-life
      {{1, 97}, std::vector<double>(4 + 2 * 97, 1.0), times},  // more than 96 events
      {{1, 1}, {1, 1, 1, 1, 5}, times},                        // vector too short
      {{1, 1}, {1, 1, 1, 1, 5, NAN}, times},                   // parameter not a number
      {{1, 0}, {1, 1, 1, 1}, {0, HUGE_VALF}},                  // infinite time
      {{1, 0}, {1, 1, 0, 1}, times},                           // zero SD
      {{2, 0}, {1, 1, 1, 1, 0.5, -3}, times},                  // negative half-life
      {{1, 0}, {1, 1, 1, 1e39}, times},                        // half-life beyond float
      {{1, 0}, {1, 1, 1e300, 1e-30}, times},                   // a^2 overflows
  };
  for (const auto& c : cases) {
    const Evaluation r = evaluate(c.params, c.layout, c.times);
    EXPECT_EQ(r.result.status, ModelStatus::kInvalidInput) << c.params.size();
    for (const float value : r.out) EXPECT_EQ(value, kUntouched) << r.result.message;
  }
}

TEST(ErfFactor, FollowsAbramowitzStegunAndSaturatesAtSqrtPiAndZero) {
  // (sqrt(pi) / 2)(1 + erf(x)) from python's math.erf; A&S 7.1.28 errs by at most 3e-7 in
  // erf, 0.8862269 * 3e-7 in the factor.
  const struct {
    double x, exact;
  } cases[] = {{1, 1.633051058265185},
               {-1, 0.13940279264033095},
               {2.5, 1.7720931990702888},
               {-2.5, 0.0003606518352270847}};
  const AbramowitzStegunErfFactor factor;
  for (const auto& c : cases) EXPECT_NEAR(factor(c.x), c.exact, 0.8862269 * 3e-7) << c.x;
  EXPECT_EQ(factor(0), 0.88622693);
  EXPECT_EQ(factor(30), 1.77245386);
  EXPECT_EQ(factor(-30), 0.0);
}

}  // namespace
}  // namespace tidemark::pulse
