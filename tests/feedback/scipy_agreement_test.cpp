// The least-squares fit against SciPy's least_squares on the same model and data.
// Fixtures: tests/fixtures/srquant/*.txt, written by scripts/gen-srquant-fixture, which
// implements the model on its own in numpy (hat-function integrals by quadrature) and
// fits it with the trust-region reflective method at tolerances 1e-15.
#include <cmath>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "feedback/response_fit.h"

namespace tidemark::feedback {
namespace {

constexpr double kCriterionAgreement = 1e-6;  // relative
constexpr double kParameterAgreement = 1e-2;  // relative to max(|value|, 1)

struct Reference {
  ResponseModel model;
  ResponseData data;
  std::vector<double> fitted;
  double criterion = 0;
};

Spreading spreading_named(const std::string& s) {
  if (s == "gaussian") return Spreading::kGaussian;
  if (s == "exponential") return Spreading::kExponential;
  return Spreading::kNone;
}

// Reads a fixture: "model", "input", "param", "criterion", then the output block and
// one block per input series.
Reference read_reference(const std::string& name) {
  std::ifstream in(std::string(TIDEMARK_FIXTURES) + "/srquant/" + name + ".txt");
  Reference r;
  std::vector<Bounded> bounds;
  std::string line;
  while (std::getline(in, line)) {
    std::istringstream words(line);
    std::string key;
    words >> key;
    if (key == "model") {
      int inputs = 0;
      std::string combination;
      words >> inputs >> combination >> r.model.eliminations;
      r.model.combination = combination == "product" ? Combination::kProduct : Combination::kSum;
    } else if (key == "input") {
      std::string spreading, dose;
      words >> spreading >> dose;
      InputModel input;
      input.spreading = spreading_named(spreading);
      input.dose = dose == "inhibitory" ? DoseResponse::kInhibitory : DoseResponse::kStimulatory;
      r.model.inputs.push_back(input);
    } else if (key == "param") {
      std::string label;
      Bounded b;
      int fit = 0;
      double fitted = 0;
      words >> label >> b.start >> b.lower >> b.upper >> fit >> fitted;
      b.fit = fit != 0;
      bounds.push_back(b);
      r.fitted.push_back(fitted);
    } else if (key == "criterion") {
      words >> r.criterion;
    } else if (key == "output") {
      std::size_t n = 0;
      words >> n;
      r.data.time.resize(n), r.data.conc.resize(n), r.data.sem.resize(n);
      for (std::size_t j = 0; j < n; ++j) in >> r.data.time[j] >> r.data.conc[j] >> r.data.sem[j];
    } else if (key == "series") {
      std::size_t index = 0, n = 0;
      words >> index >> n;
      Series s;
      s.time.resize(n), s.value.resize(n);
      for (std::size_t j = 0; j < n; ++j) in >> s.time[j] >> s.value[j];
      r.data.inputs.push_back(s);
    }
  }
  for (std::size_t i = 0; i < r.model.inputs.size(); ++i) {
    InputModel& m = r.model.inputs[i];
    Bounded* slots[] = {&m.delay, &m.width, &m.efficacy, &m.ec50, &m.hill};
    for (std::size_t k = 0; k < 5; ++k) *slots[k] = bounds[5 * i + k];
  }
  const std::size_t t = 5 * r.model.inputs.size();
  r.model.basal = bounds[t], r.model.half_life = bounds[t + 1];
  r.model.half_life_2 = bounds[t + 2], r.model.fraction_2 = bounds[t + 3];
  r.model.initial = bounds[t + 4];
  return r;
}

class ScipyAgreementTest : public ::testing::TestWithParam<const char*> {};

TEST_P(ScipyAgreementTest, LevenbergMarquardtMatchesLeastSquares) {
  const Reference ref = read_reference(GetParam());
  ASSERT_FALSE(ref.data.time.empty()) << "fixture not read";
  ResponseFitOptions options;
  options.optimizer = Optimizer::kLevenbergMarquardt;
  options.tolerance = 1e-14;
  const ResponseFitResult fit = fit_response(ref.model, ref.data, options);
  ASSERT_TRUE(fit.ok()) << fit.message;
  EXPECT_NEAR(fit.criterion, ref.criterion, kCriterionAgreement * ref.criterion);
  // Kept in the test report (--gtest_output=xml) for the documentation's figures.
  std::ostringstream difference;
  difference << std::scientific << (fit.criterion - ref.criterion) / ref.criterion;
  ::testing::Test::RecordProperty("criterion_relative_difference", difference.str());
  const std::vector<std::string> names = parameter_names(ref.model);
  for (std::size_t j = 0; j < ref.fitted.size(); ++j) {
    EXPECT_NEAR(fit.values[j], ref.fitted[j], kParameterAgreement * std::max(std::abs(ref.fitted[j]), 1.0))
        << names[j];
  }
  // The model alone at SciPy's values gives SciPy's criterion.
  const Prediction at_reference = predict(ref.model, ref.fitted, ref.data);
  ASSERT_TRUE(at_reference.ok()) << at_reference.error;
  double q = 0;
  for (std::size_t j = 0; j < ref.data.time.size(); ++j) {
    q += std::pow((at_reference.conc[j] - ref.data.conc[j]) / ref.data.sem[j], 2);
  }
  EXPECT_NEAR(q, ref.criterion, 1e-9 * ref.criterion);
}

INSTANTIATE_TEST_SUITE_P(Cases, ScipyAgreementTest,
                         ::testing::Values("one_input", "two_inputs", "inhibitory",
                                           "two_eliminations"));

}  // namespace
}  // namespace tidemark::feedback
