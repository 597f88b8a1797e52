#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <ostream>
#include <string>

#include "stats/fit_tolerances.h"
#include "stats/lsfit2.h"
#include "stats/reference_fixture.h"

namespace tidemark::stats {
namespace {

using testing_support::FixtureBlock;
using testing_support::kIntervalInStandardErrors;
using testing_support::kRelativeStandardError;
using testing_support::kValueInStandardErrors;
using testing_support::read_fixture;

double misra(std::span<const double> p, double x, bool&) {
  return p[0] * (1 - std::exp(-p[1] * x));
}

// One model per problem of tests/fixtures/stats/lsfit2_reference.txt, named as there.
struct Problem {
  const char* name;
  PointModel model;
};

const Problem kProblems[] = {
    {"decay",
     [](std::span<const double> p, double x, bool&) { return p[0] * std::exp(-p[1] * x); }},
    {"cosinor", [](std::span<const double> p, double x,
                   bool&) { return p[0] * std::cos((x - p[1]) * 6.283185307 / 12) + p[2]; }},
    {"misra1a", misra},
    // x in thousandths: b2 is 5.5e-7, so a derivative step that did not scale with the
    // parameter would swamp it.
    {"misra1a_milli", misra},
};

void PrintTo(const Problem& problem, std::ostream* out) {
  *out << problem.name;
}

class Lsfit2Reference : public testing::TestWithParam<Problem> {};

// R's nls with analytic gradients (and, for Misra1a, NIST's certified values); LSFIT2
// fits from the fixture's start by central differences.
TEST_P(Lsfit2Reference, AgreesWithRsNls) {
  const Problem& problem = GetParam();
  const auto blocks = read_fixture("stats/lsfit2_reference.txt", "problem");
  const auto p = std::find_if(blocks.begin(), blocks.end(),
                              [&](const FixtureBlock& b) { return b.name == problem.name; });
  ASSERT_NE(p, blocks.end()) << problem.name;
  const auto x = p->numbers("x"), y = p->numbers("y"), start = p->numbers("start");
  std::vector<FitParameter> parameters;
  for (const double v : start) parameters.push_back({"p", v, true});
  const Lsfit2Result fit = lsfit2({problem.model, x, y, parameters});
  ASSERT_EQ(fit.code, Lsfit2Code::kOk) << fit.message;
  const auto value = p->numbers("value"), se = p->numbers("se");
  const auto lower = p->numbers("lower"), upper = p->numbers("upper");
  for (std::size_t j = 0; j < start.size(); ++j) {
    EXPECT_NEAR(fit.values[j], value[j], kValueInStandardErrors * se[j]) << j;
    EXPECT_NEAR(fit.standard_errors[j], se[j], kRelativeStandardError * se[j]) << j;
    EXPECT_NEAR(fit.lower[j], lower[j], kIntervalInStandardErrors * se[j]) << j;
    EXPECT_NEAR(fit.upper[j], upper[j], kIntervalInStandardErrors * se[j]) << j;
  }
  const double s = p->number("sum_of_squares");
  EXPECT_NEAR(fit.sum_of_squares, s, 1e-10 * s);
  EXPECT_NEAR(fit.variance, p->number("variance"), 1e-10 * s);
}

INSTANTIATE_TEST_SUITE_P(Problems, Lsfit2Reference, testing::ValuesIn(kProblems),
                         [](const testing::TestParamInfo<Problem>& problem) {
                           return std::string(problem.param.name);
                         });

}  // namespace
}  // namespace tidemark::stats
