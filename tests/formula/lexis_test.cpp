// Number syntax, the sign-or-operator decision and function-name matching. Expected
// values are the decimal numbers as written, read by hand.
#include "formula/lexis.h"

#include <gtest/gtest.h>

#include <ostream>
#include <string>

namespace tidemark::formula {
namespace {

struct NumberCase {
  const char* text;
  std::size_t end;
  bool ok;
  double value;
  friend void PrintTo(const NumberCase& c, std::ostream* os) { *os << '"' << c.text << '"'; }
};

class NumberSyntax : public testing::TestWithParam<NumberCase> {};

TEST_P(NumberSyntax, ReadsDigitsOnePointAndAnExponentWithDigits) {
  const NumberCase& c = GetParam();
  const NumberScanResult scan = scan_number(c.text, 0);
  EXPECT_EQ(scan.end, c.end);
  EXPECT_EQ(scan.ok(), c.ok);
  if (c.ok) {
    EXPECT_DOUBLE_EQ(scan.value, c.value);
  }
}

INSTANTIATE_TEST_SUITE_P(
    Lexis, NumberSyntax,
    testing::Values(NumberCase{"1.5e-3+x", 6, true, 0.0015}, NumberCase{"2.5D+2", 6, true, 250.0},
                    NumberCase{"4d0", 3, true, 4.0}, NumberCase{"3E2)", 3, true, 300.0},
                    NumberCase{".5", 2, true, 0.5}, NumberCase{"5.", 2, true, 5.0},
                    NumberCase{"1e-310", 6, true, 1e-310}, NumberCase{"1.2.3", 5, false, 0},
                    NumberCase{".", 1, false, 0}, NumberCase{".e5", 3, false, 0},
                    NumberCase{"1e", 2, false, 0}, NumberCase{"1e+x", 3, false, 0},
                    NumberCase{"1e999", 5, false, 0}, NumberCase{"1e-999", 6, false, 0}));

struct SignCase {
  const char* text;
  std::size_t at;
  bool binary;
  friend void PrintTo(const SignCase& c, std::ostream* os) { *os << '"' << c.text << '"'; }
};

class SignOrOperator : public testing::TestWithParam<SignCase> {};

TEST_P(SignOrOperator, ExponentSignsAndLeadingSignsAreNotOperators) {
  const SignCase& c = GetParam();
  EXPECT_EQ(is_binary_operator(c.text, c.at), c.binary) << c.text << " at " << c.at;
}

INSTANTIATE_TEST_SUITE_P(Lexis, SignOrOperator,
                         testing::Values(SignCase{"-3", 0, false}, SignCase{"(-3", 1, false},
                                         SignCase{"2*(+x", 3, false}, SignCase{"x-3", 1, true},
                                         SignCase{"1.5e-3", 4, false}, SignCase{"2*1E+5", 4, false},
                                         SignCase{"(.5d-1", 4, false}, SignCase{"2e-x", 2, true},
                                         SignCase{"x2e-3", 3, true}, SignCase{"a.5e-3", 4, true},
                                         SignCase{"1.2.3e-4", 6, true}, SignCase{"(e-3", 2, true},
                                         SignCase{"x)-1", 2, true}));

TEST(Lexis, FunctionNamesMatchInTableOrderIgnoringLetterCase) {
  // Operation codes from the table of codes: log10 = 10, log = 11, sinh = 13, sin = 16,
  // asin = 19, atan = 21, exp = 9.
  EXPECT_EQ(function_at("log10(x)", 0), 10);
  EXPECT_EQ(function_at("log(x)", 0), 11);
  EXPECT_EQ(function_at("LOG1(x)", 0), 11);
  EXPECT_EQ(function_at("Sinh(x)", 0), 13);
  EXPECT_EQ(function_at("sin(x)", 0), 16);
  EXPECT_EQ(function_at("x*ASIN(x)", 2), 19);
  EXPECT_EQ(function_at("atan", 0), 21);
  EXPECT_EQ(function_at("Exposure", 0), 9);
  EXPECT_EQ(function_at("x+co", 2), 0);
  EXPECT_EQ(function_at("x", 5), 0);
}

TEST(Lexis, VariablesMatchWholeNamesWithLetterCaseAndIgnoreTrailingBlanks) {
  const std::string names[] = {"Conc      ", "conc", "x", "x"};
  EXPECT_EQ(variable_number("Conc", names), 1);
  EXPECT_EQ(variable_number("conc", names), 2);
  EXPECT_EQ(variable_number("x", names), 3);
  EXPECT_EQ(variable_number("Con", names), 0);
  EXPECT_EQ(variable_number("", names), 0);
  EXPECT_EQ(name_end("Conc1+2", 0), 5u);
  EXPECT_EQ(name_end("f(x)", 0), 3u);
}

}  // namespace
}  // namespace tidemark::formula
