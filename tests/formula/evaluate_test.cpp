// Values and error types of evaluated formulas. Each expected value is worked out by
// hand from the grouping rules (noted per case); the error types follow the table of
// evaluation checks.
#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <ostream>
#include <string>
#include <vector>

#include "formula/eval_error.h"
#include "formula/function_parser.h"

namespace tidemark::formula {
namespace {

const std::vector<std::string> kVariables = {"x", "y", "a"};

struct Row {
  const char* formula;
  std::vector<double> values;  // x, y, a
  double expected;
  int error_type;
  friend void PrintTo(const Row& c, std::ostream* os) { *os << '"' << c.formula << '"'; }
};

class Evaluation : public testing::TestWithParam<Row> {};

TEST_P(Evaluation, GivesTheValueOrTheErrorTypeWithResultZero) {
  const Row& r = GetParam();
  FunctionParser parser;
  parser.init_functions(1);
  ASSERT_TRUE(parser.parse_function(1, r.formula, kVariables)) << parser.syntax_message();
  const double got = parser.evaluate_function(1, r.values);
  EXPECT_EQ(parser.eval_error_type(), r.error_type);
  EXPECT_NEAR(got, r.expected, 1e-15 * std::fabs(r.expected));
}

INSTANTIATE_TEST_SUITE_P(
    Evaluator, Evaluation,
    testing::Values(Row{"2^3^2", {}, 64, 0},         // (2^3)^2
                    Row{"-2^3^2", {}, -64, 0},       // -((2^3)^2)
                    Row{"-x^2", {3, 0, 0}, -9, 0},   // -(3^2)
                    Row{"(-x)^2", {3, 0, 0}, 9, 0},  // (-3)^2
                    Row{"8-3-2", {}, 3, 0},          // (8-3)-2
                    Row{"64/4/2", {}, 8, 0},         // (64/4)/2
                    Row{"2-3+4", {}, 3, 0},          // (2-3)+4
                    Row{"1+1e16-1e16", {}, 1, 0},    // 1+(1e16-1e16); left to right would give 0
                    Row{"1.5e-3+x", {1, 0, 0}, 1.0015, 0},  // exponent sign, not a subtraction
                    Row{"a**2", {0, 0, 3}, 9, 0}, Row{"2*(-3)", {}, -6, 0}, Row{"-3*2", {}, -6, 0},
                    Row{"LOG10(100)", {}, 2, 0}, Row{"Exp(0)+cos(0)", {}, 2, 0},
                    Row{"sqrt(x)", {-0.0, 0, 0}, 0, 0},  // -0 is not below 0
                    Row{"log(0)", {}, 0, 3}, Row{"log10(-x)", {2, 0, 0}, 0, 3},
                    Row{"sqrt(-1)", {}, 0, 3},  // a negative square root reports type 3
                    Row{"asin(1.0000001)", {}, 0, 4}, Row{"acos(-x)", {1.0000001, 0, 0}, 0, 4},
                    Row{"asin(1)*2", {}, std::numbers::pi, 0}, Row{"x/0", {5, 0, 0}, 0, 1},
                    Row{"0/x", {0, 0, 0}, 0, 1}, Row{"y/(x-x)", {2, 1, 0}, 0, 1},
                    Row{"1/(-x)", {0, 0, 0}, 0, 1},  // -0 is exactly 0
                    // The first fault in evaluation order ends the evaluation.
                    Row{"sqrt(-1)+1/0", {}, 0, 3}, Row{"1/0+sqrt(-1)", {}, 0, 1}));

TEST(Evaluator, UncheckedPowerMayReturnInfinityOrNotANumberWithoutAnError) {
  // C pow: a negative base with a non-integer exponent gives NaN, pow(0, -1) = +inf.
  FunctionParser parser;
  parser.init_functions(2);
  ASSERT_TRUE(parser.parse_function(1, "(-8)^(1/3)", kVariables));
  ASSERT_TRUE(parser.parse_function(2, "0^(-1)", kVariables));
  EXPECT_TRUE(std::isnan(parser.evaluate_function(1, std::vector<double>{})));
  EXPECT_EQ(parser.eval_error_type(), 0);
  EXPECT_EQ(parser.evaluate_function(2, std::vector<double>{}), HUGE_VAL);
  EXPECT_EQ(parser.eval_error_type(), 0);
}

TEST(Evaluator, SlotsEvaluateIndependentlyAndRepeatedly) {
  FunctionParser parser;
  parser.init_functions(2);
  ASSERT_TRUE(parser.parse_function(1, "x*y", kVariables));
  ASSERT_TRUE(parser.parse_function(2, "1/x", kVariables));
  EXPECT_EQ(parser.evaluate_function(2, std::vector<double>{0, 0, 0}), 0.0);
  EXPECT_EQ(parser.eval_error_type(), 1);
  for (double x : {1.0, 2.0, 3.0}) {
    EXPECT_EQ(parser.evaluate_function(1, std::vector<double>{x, 4, 0}), 4 * x);
    EXPECT_EQ(parser.eval_error_type(), 0);
  }
}

TEST(Evaluator, ErrorMessagesAreThirtyTwoCharacterFields) {
  const std::string expected[] = {
      "                                ", "Division by zero                ",
      "Argument of SQRT negative       ", "Argument of LOG negative        ",
      "Argument of ASIN or ACOS illegal", "                                "};
  FunctionParser parser;
  parser.init_functions(1);
  const char* formulas[] = {"x", "1/0", nullptr, "log(0)", "asin(2)"};
  for (int type = 0; type <= 5; ++type) {
    EXPECT_EQ(eval_error_text(type), expected[type]) << type;
    if (type < 5 && formulas[type]) {
      parser.parse_function(1, formulas[type], kVariables);
      parser.evaluate_function(1, std::vector<double>{1, 1, 1});
      EXPECT_EQ(parser.eval_error_message(), expected[type]) << formulas[type];
    }
  }
  EXPECT_EQ(eval_error_text(-1), expected[0]);
}

TEST(EvaluatorDeathTest, EvaluatingAnUncompiledSlotStopsTheProgram) {
  FunctionParser parser;
  parser.init_functions(1);
  EXPECT_DEATH(parser.evaluate_function(1, std::vector<double>{}), "uncompiled");
  parser.parse_function(1, "x+a", kVariables);
  EXPECT_DEATH(parser.evaluate_function(1, std::vector<double>{1, 2}), "with 2 values");
}

}  // namespace
}  // namespace tidemark::formula
