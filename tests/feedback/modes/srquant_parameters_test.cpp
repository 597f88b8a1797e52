// The parameter command's argument, what it refuses, and how settings and defaults make
// the model's parameters. Expected values are read off the command texts, or derived by
// hand from the defaults' rules (docs/srquant.md) for the series built here.
#include "feedback/modes/srquant_parameters.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

#include "feedback/modes/srquant_defaults.h"

namespace tidemark::feedback {
namespace {

struct Accepted {
  const char* argument;
  const char* name;
  Bounded value;
};

TEST(ParameterSetting, ReadsTheNameQuotedOrNotInAnyLetterCase) {
  const Accepted cases[] = {
      {"\"Delay 1\" 10 0 60 FIT", "Delay 1", {10, 0, 60, true}},
      {"  \"ec50 2\"  4.5 1e-1 20 hold ", "EC50 2", {4.5, 0.1, 20, false}},
      {"Half-Life 2 120 60 600 FIT", "Half-Life 2", {120, 60, 600, true}},
      {"half-life 45 10 120 Hold", "Half-Life", {45, 10, 120, false}},
      {"Hill 5 1 1 1 HOLD", "Hill 5", {1, 1, 1, false}},
      {"\"Fraction 2\" 0 0 1 FIT", "Fraction 2", {0, 0, 1, true}},
      {"Initial -2 -5 0 FIT", "Initial", {-2, -5, 0, true}},
  };
  for (const Accepted& c : cases) {
    const ParameterParse p = parse_parameter_setting(c.argument);
    ASSERT_TRUE(p.ok()) << c.argument << ": " << p.problem;
    EXPECT_EQ(p.setting.name, c.name) << c.argument;
    EXPECT_EQ(p.setting.value.start, c.value.start) << c.argument;
    EXPECT_EQ(p.setting.value.lower, c.value.lower) << c.argument;
    EXPECT_EQ(p.setting.value.upper, c.value.upper) << c.argument;
    EXPECT_EQ(p.setting.value.fit, c.value.fit) << c.argument;
  }
}

TEST(ParameterSetting, RefusesWhatDoesNotReadAndNamesTheParameter) {
  const std::pair<const char*, const char*> cases[] = {
      {"\"Delay 1\" 10 60 0 FIT", "Delay 1: the lower bound 60 lies above the upper bound 0."},
      {"\"Delay 1\" 70 0 60 FIT", "Delay 1: the start 70 lies outside the bounds 0 to 60."},
      {"\"EC50 1\" x 0 60 FIT", "EC50 1: \"x\" is not a number."},
      {"\"EC50 1\" 1 0 inf FIT", "EC50 1: \"inf\" is not a number."},
      {"\"Hill 1\" 1 0 5 MAYBE", "Hill 1: \"MAYBE\" is neither FIT nor HOLD."},
      {"\"Basal\" 1 0 5", "Basal: give the start, the lower bound, the upper bound and FIT or HOLD."},
      {"\"Delay 6\" 1 0 5 FIT", "There is no parameter \"Delay 6\""},
      {"Delays 1 1 0 5 FIT", "There is no parameter \"Delays\""},
      {"\"Delay 1 1 0 5 FIT", "no closing double quote"},
      {"", "There is no parameter \"\""},
  };
  for (const auto& [argument, says] : cases) {
    const ParameterParse p = parse_parameter_setting(argument);
    EXPECT_FALSE(p.ok()) << argument;
    EXPECT_NE(p.problem.find(says), std::string::npos) << argument << " -> " << p.problem;
  }
}

TEST(ParameterSettings, GoOnlyIntoTheParametersTheModelHas) {
  ResponseModel model;
  model.inputs.resize(2);
  const ParameterSettings settings{{"Delay 2", {5, 0, 9, false}},
                                   {"EC50 3", {1, 0, 2, true}},
                                   {"Initial", {3, 1, 4, true}}};
  const std::vector<std::string> applied = apply_settings(model, settings);
  EXPECT_EQ(applied, (std::vector<std::string>{"Delay 2", "Initial"}));
  EXPECT_EQ(model.inputs[1].delay.upper, 9);
  EXPECT_FALSE(model.inputs[1].delay.fit);
  EXPECT_EQ(model.initial.start, 3);
  EXPECT_EQ(model.inputs[0].delay.upper, 0);  // untouched
}

// Output: times 0, 10, ..., 160 (T = 160, h = 10), concentrations 5 + t / 10 (5 .. 21,
// R = 16); input 1: values 1 .. 9 (median 5); input 2: all 3.
TEST(DefaultParameters, FollowTheRulesForTheSpanRangeAndInputs) {
  ResponseData data;
  for (int i = 0; i <= 16; ++i) {
    data.time.push_back(10.0 * i);
    data.conc.push_back(5 + i);
    data.sem.push_back(1);
  }
  data.inputs = {{{0, 40, 80, 120, 160, 200, 240, 280, 320}, {9, 1, 8, 2, 7, 3, 6, 4, 5}},
                 {{0, 100, 200}, {3, 3, 3}}};
  ResponseModel model;
  model.inputs.resize(2);
  model.inputs[1].spreading = Spreading::kGaussian;
  model.combination = Combination::kProduct;
  put_default_parameters(model, data);
  const double k = std::numbers::ln2 / 45;
  const InputModel& a = model.inputs[0];
  const InputModel& b = model.inputs[1];
  EXPECT_DOUBLE_EQ(a.delay.start, 10);  // T / 16
  EXPECT_DOUBLE_EQ(a.delay.upper, 40);  // T / 4
  EXPECT_FALSE(a.width.fit);            // no spreading
  EXPECT_DOUBLE_EQ(b.width.start, 20);  // 2h
  EXPECT_DOUBLE_EQ(b.width.lower, 5);   // h / 2
  EXPECT_DOUBLE_EQ(b.width.upper, 20);  // T / 8
  EXPECT_DOUBLE_EQ(a.efficacy.start, 2 * 16 * k);
  EXPECT_DOUBLE_EQ(a.efficacy.upper, 20 * 16 * k);
  EXPECT_FALSE(b.efficacy.fit);  // a product's second factor
  EXPECT_EQ(b.efficacy.start, 1);
  EXPECT_EQ(a.ec50.start, 5);
  EXPECT_EQ(a.ec50.lower, 0.5);  // half the smallest value
  EXPECT_EQ(a.ec50.upper, 18);   // twice the largest
  EXPECT_DOUBLE_EQ(b.ec50.lower, 1.5);  // a constant input: its value +- 50 %
  EXPECT_DOUBLE_EQ(b.ec50.upper, 4.5);
  EXPECT_DOUBLE_EQ(model.basal.start, 5 * k);
  EXPECT_DOUBLE_EQ(model.basal.upper, 21 * std::numbers::ln2 / 10);
  EXPECT_EQ(model.half_life.start, 45);
  EXPECT_EQ(model.half_life.upper, 120);
  EXPECT_FALSE(model.half_life_2.fit);
  EXPECT_FALSE(model.fraction_2.fit);
  EXPECT_EQ(model.initial.start, 5);
  EXPECT_EQ(model.initial.upper, 42);
  for (Bounded* p : parameter_slots(model)) {
    EXPECT_LE(p->lower, p->start);
    EXPECT_LE(p->start, p->upper);
  }
}

}  // namespace
}  // namespace tidemark::feedback
