#include "feedback/response_fit.h"

#include <cmath>
#include <functional>
#include <limits>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace tidemark::feedback {
namespace {

Bounded free_in(double start, double lower, double upper) { return {start, lower, upper, true}; }
Bounded held(double value) { return {value, value, value, false}; }

// An LH-like input: pulses every 90 min on a baseline, sampled every 10 min.
Series pulsatile(double first, double last) {
  Series s;
  for (double t = first; t <= last + 1e-9; t += 10) {
    const double phase = std::fmod(t + 1000, 90);
    s.time.push_back(t);
    s.value.push_back(2 + 6 * std::exp(-phase / 25));
  }
  return s;
}

// One stimulatory input with exponential spreading; truth: delay 30, width 15,
// efficacy 8, EC50 4, Hill 2, basal 0.5, half-life 40, initial 5.
struct Case {
  ResponseModel model;
  ResponseData data;
  std::vector<double> truth;
};

Case one_input_case() {
  Case c;
  InputModel in;
  in.spreading = Spreading::kExponential;
  in.delay = free_in(10, 0, 60);
  in.width = free_in(5, 1, 40);
  in.efficacy = free_in(4, 0.5, 30);
  in.ec50 = free_in(2, 0.5, 20);
  in.hill = held(2);
  c.model.inputs = {in};
  c.model.basal = free_in(1, 0, 5);
  c.model.half_life = free_in(20, 5, 200);
  c.model.half_life_2 = held(100);
  c.model.fraction_2 = held(0);
  c.model.initial = free_in(3, 0, 50);
  c.data.inputs = {pulsatile(-60, 600)};
  for (double t = 0; t <= 600; t += 10) c.data.time.push_back(t);
  c.truth = {30, 15, 8, 4, 2, 0.5, 40, 100, 0, 5};
  const Prediction p = predict(c.model, c.truth, c.data);
  c.data.conc = p.conc;
  c.data.sem.assign(p.conc.size(), 0.1);
  return c;
}

ResponseFitOptions quick(Optimizer optimizer, Criterion criterion = Criterion::kLeastSquares) {
  ResponseFitOptions o;
  o.optimizer = optimizer;
  o.criterion = criterion;
  o.swarm_size = 20;
  o.iterations = 60;
  o.seed = 5;
  return o;
}

TEST(ResponseFitTest, ChainsRecoverNoiselessTruth) {
  // The data are the model at the truth, so each least-squares chain must come back to it.
  const Case c = one_input_case();
  for (const Optimizer o : {Optimizer::kSwarmThenLevenbergMarquardt, Optimizer::kSwarmThenNelderMead}) {
    const ResponseFitResult r = fit_response(c.model, c.data, quick(o));
    ASSERT_TRUE(r.ok()) << r.message;
    EXPECT_LT(r.criterion, 1e-8);
    for (std::size_t j = 0; j < c.truth.size(); ++j) {
      EXPECT_NEAR(r.values[j], c.truth[j], 1e-3 * std::max(1.0, c.truth[j])) << "parameter " << j;
    }
    EXPECT_EQ(r.free_parameters, 7);
    EXPECT_EQ(r.points, 61);
  }
}

TEST(ResponseFitTest, HeldParametersStayAndHaveNoStandardError) {
  Case c = one_input_case();
  c.model.inputs[0].ec50 = held(3.5);  // wrong on purpose: the fit must not move it
  const ResponseFitResult r = fit_response(c.model, c.data, quick(Optimizer::kSwarmThenLevenbergMarquardt));
  ASSERT_TRUE(r.ok()) << r.message;
  EXPECT_EQ(r.values[3], 3.5);
  EXPECT_EQ(r.values[4], 2);
  EXPECT_TRUE(std::isnan(r.standard_errors[3]));
  EXPECT_TRUE(std::isfinite(r.standard_errors[0]));
}

TEST(ResponseFitTest, StandardErrorsOnlyWhenLevenbergMarquardtRanLast) {
  const Case c = one_input_case();
  const ResponseFitResult r = fit_response(c.model, c.data, quick(Optimizer::kSwarmThenNelderMead));
  ASSERT_TRUE(r.ok()) << r.message;
  for (const double se : r.standard_errors) EXPECT_TRUE(std::isnan(se));
}

TEST(ResponseFitTest, ResultDependsOnSeedNotOnThreads) {
  const Case c = one_input_case();
  ResponseFitOptions one = quick(Optimizer::kSwarm);
  one.parallel.threads = 1;
  ResponseFitOptions three = one;
  three.parallel.threads = 3;
  const ResponseFitResult a = fit_response(c.model, c.data, one);
  const ResponseFitResult b = fit_response(c.model, c.data, three);
  ASSERT_TRUE(a.ok() && b.ok());
  EXPECT_EQ(a.values, b.values);
  EXPECT_EQ(a.criterion, b.criterion);
}

TEST(ResponseFitTest, CancelStopsEveryOptimizer) {
  const Case c = one_input_case();
  for (const Optimizer o : {Optimizer::kSwarm, Optimizer::kNelderMead, Optimizer::kLevenbergMarquardt}) {
    ResponseFitOptions options = quick(o);
    options.parallel.progress = [](long, long) { return false; };
    const ResponseFitResult r = fit_response(c.model, c.data, options);
    EXPECT_EQ(r.status, ResponseFitStatus::kCancelled);
    EXPECT_TRUE(r.values.empty());
  }
}

TEST(ResponseFitTest, OtherCriteriaWithNelderMead) {
  // Least absolute and min-max are not smooth at the truth, where both are 0: the chain
  // must get most of the way there and place the delay within one sampling interval.
  const Case c = one_input_case();
  for (const Criterion k : {Criterion::kLeastAbsolute, Criterion::kMinMax}) {
    const ResponseFitResult r = fit_response(c.model, c.data, quick(Optimizer::kSwarmThenNelderMead, k));
    ASSERT_TRUE(r.ok()) << r.message;
    // Against a swarm of 2 moved once: little more than the starting values.
    ResponseFitOptions none = quick(Optimizer::kSwarm, k);
    none.iterations = 1;
    none.swarm_size = 2;
    const double barely_searched = fit_response(c.model, c.data, none).criterion;
    EXPECT_LT(r.criterion, barely_searched / 20);
    EXPECT_NEAR(r.values[0], 30, 10);
  }
}

TEST(ResponseFitTest, InformationCriteriaFromTheSumOfSquares) {
  // AIC = n ln(Q / n) + 2k, BIC = n ln(Q / n) + k ln n, from the result's own Q, n and k.
  Case c = one_input_case();
  for (std::size_t j = 0; j < c.data.conc.size(); ++j) c.data.conc[j] += j % 2 ? 0.1 : -0.1;
  const ResponseFitResult r = fit_response(c.model, c.data, quick(Optimizer::kSwarmThenLevenbergMarquardt));
  ASSERT_TRUE(r.ok()) << r.message;
  const double n = 61, k = 7;
  EXPECT_NEAR(r.aic, n * std::log(r.criterion / n) + 2 * k, 1e-9);
  EXPECT_NEAR(r.bic, n * std::log(r.criterion / n) + k * std::log(n), 1e-9);
}

struct BadCase {
  const char* name;
  std::function<void(Case&, ResponseFitOptions&)> spoil;
  ResponseFitStatus status;
  const char* said;  // a piece of the message
};

class BadRequestTest : public ::testing::TestWithParam<BadCase> {};

TEST_P(BadRequestTest, RefusedWithStatusAndMessage) {
  Case c = one_input_case();
  ResponseFitOptions o = quick(Optimizer::kSwarmThenLevenbergMarquardt);
  GetParam().spoil(c, o);
  const ResponseData before = c.data;
  const ResponseFitResult r = fit_response(c.model, c.data, o);
  EXPECT_EQ(r.status, GetParam().status);
  EXPECT_NE(r.message.find(GetParam().said), std::string::npos) << r.message;
  EXPECT_EQ(c.data.time, before.time);
}

const double kNaN = std::numeric_limits<double>::quiet_NaN();
const double kInf = std::numeric_limits<double>::infinity();

INSTANTIATE_TEST_SUITE_P(
    Statuses, BadRequestTest,
    ::testing::Values(
        BadCase{"late_input", [](Case& c, auto&) { c.data.inputs[0] = pulsatile(0, 600); },
                ResponseFitStatus::kInputsDoNotCover, "input 1"},
        BadCase{"short_input", [](Case& c, auto&) { c.data.inputs[0] = pulsatile(-60, 300); },
                ResponseFitStatus::kInputsDoNotCover, "input 1"},
        BadCase{"missing_input", [](Case& c, auto&) { c.data.inputs.clear(); },
                ResponseFitStatus::kMismatchedInputs, "input series"},
        BadCase{"one_point_input", [](Case& c, auto&) { c.data.inputs[0] = {{0}, {1}}; },
                ResponseFitStatus::kMismatchedInputs, "at least 2"},
        BadCase{"uneven_output", [](Case& c, auto&) { c.data.sem.pop_back(); },
                ResponseFitStatus::kMismatchedInputs, "SEMs"},
        BadCase{"nan_output", [](Case& c, auto&) { c.data.conc[3] = kNaN; },
                ResponseFitStatus::kBadData, "point 4"},
        BadCase{"inf_input", [](Case& c, auto&) { c.data.inputs[0].value[2] = kInf; },
                ResponseFitStatus::kBadData, "input 1"},
        BadCase{"unsorted", [](Case& c, auto&) { std::swap(c.data.time[4], c.data.time[5]); },
                ResponseFitStatus::kBadData, "do not increase"},
        BadCase{"zero_sem", [](Case& c, auto&) { c.data.sem[0] = 0; },
                ResponseFitStatus::kBadData, "SEM"},
        BadCase{"empty", [](Case& c, auto&) { c.data.time.clear(), c.data.conc.clear(), c.data.sem.clear(); },
                ResponseFitStatus::kTooFewPoints, "no points"},
        BadCase{"few_points", [](Case& c, auto&) { c.data.time.resize(6), c.data.conc.resize(6), c.data.sem.resize(6); },
                ResponseFitStatus::kTooFewPoints, "7 fitted"},
        BadCase{"crossed_bounds", [](Case& c, auto&) { c.model.inputs[0].efficacy = {4, 10, 1, true}; },
                ResponseFitStatus::kBadBounds, "Efficacy 1"},
        BadCase{"start_outside", [](Case& c, auto&) { c.model.half_life.start = 500; },
                ResponseFitStatus::kBadBounds, "Half-Life"},
        BadCase{"nan_bound", [](Case& c, auto&) { c.model.basal.upper = kNaN; },
                ResponseFitStatus::kBadBounds, "Basal"},
        BadCase{"zero_ec50", [](Case& c, auto&) { c.model.inputs[0].ec50.lower = 0; },
                ResponseFitStatus::kBadBounds, "EC50 1 must be positive"},
        BadCase{"all_held",
                [](Case& c, auto&) {
                  for (Bounded* b : {&c.model.inputs[0].delay, &c.model.inputs[0].width,
                                     &c.model.inputs[0].efficacy, &c.model.inputs[0].ec50,
                                     &c.model.basal, &c.model.half_life, &c.model.initial}) {
                    b->fit = false;
                  }
                },
                ResponseFitStatus::kNothingToFit, "held"},
        BadCase{"lm_least_absolute", [](Case&, auto& o) { o.criterion = Criterion::kLeastAbsolute; },
                ResponseFitStatus::kCriterionNotLeastSquares, "sum of squares"},
        BadCase{"lm_alone_min_max",
                [](Case&, auto& o) { o.criterion = Criterion::kMinMax, o.optimizer = Optimizer::kLevenbergMarquardt; },
                ResponseFitStatus::kCriterionNotLeastSquares, "least-squares"},
        BadCase{"tiny_swarm", [](Case&, auto& o) { o.swarm_size = 1; }, ResponseFitStatus::kBadOption, "swarm"},
        BadCase{"no_iterations", [](Case&, auto& o) { o.iterations = 0; }, ResponseFitStatus::kBadOption, "iterations"},
        BadCase{"three_eliminations", [](Case& c, auto&) { c.model.eliminations = 3; },
                ResponseFitStatus::kBadOption, "eliminations"},
        BadCase{"six_inputs", [](Case& c, auto&) { c.model.inputs.resize(6); },
                ResponseFitStatus::kBadOption, "1 to 5"}),
    [](const auto& test) { return std::string(test.param.name); });

}  // namespace
}  // namespace tidemark::feedback
