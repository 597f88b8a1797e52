// Byte code, constants and stack size of compiled formulas. The expected codes are
// written out from the table of operation codes (1 push constant, 2 negate, 3 to 7
// + - * / ^, 8 to 21 the functions abs..atan, 21 + k variable k) by compiling each
// formula by hand in postfix order.
#include <gtest/gtest.h>

#include <ostream>
#include <string>
#include <vector>

#include "formula/function_parser.h"

namespace tidemark::formula {
namespace {

const std::vector<std::string> kVariables = {"x", "y", "z"};

struct Shape {
  const char* formula;
  std::vector<std::uint8_t> code;
  std::vector<double> constants;
  std::size_t stack;
  friend void PrintTo(const Shape& c, std::ostream* os) { *os << '"' << c.formula << '"'; }
};

class ByteCode : public testing::TestWithParam<Shape> {};

TEST_P(ByteCode, CompilesToPostfixCodesWithTheDeepestStack) {
  const Shape& s = GetParam();
  FunctionParser parser;
  parser.init_functions(1);
  ASSERT_TRUE(parser.parse_function(1, s.formula, kVariables)) << parser.syntax_message();
  const CompiledFormula& c = parser.slot(1);
  EXPECT_EQ(c.byte_code, s.code);
  EXPECT_EQ(c.immed, s.constants);
  EXPECT_EQ(c.stack.size(), s.stack);
}

INSTANTIATE_TEST_SUITE_P(
    Compiler, ByteCode,
    testing::Values(
        Shape{"x+1", {22, 1, 3}, {1}, 2}, Shape{"z", {24}, {}, 1},
        // All five operators group from the left: (2^3)^2, ((1+2)+3)+4.
        Shape{"2^3^2", {1, 1, 7, 1, 7}, {2, 3, 2}, 2},
        Shape{"1+2+3+4", {1, 1, 3, 1, 3, 1, 3}, {1, 2, 3, 4}, 2},
        Shape{"1+(2+(3+4))", {1, 1, 1, 1, 3, 3, 3}, {1, 2, 3, 4}, 4},
        Shape{"x-y-z", {22, 23, 4, 24, 4}, {}, 2}, Shape{"x/y/z", {22, 23, 6, 24, 6}, {}, 2},
        // "+" binds looser than "-", "*" looser than "/": x+(y-z), x*(y/z).
        Shape{"x+y-z", {22, 23, 24, 4, 3}, {}, 3}, Shape{"x*y/z", {22, 23, 24, 6, 5}, {}, 3},
        // A leading minus negates the whole product or power, and a sum's first term.
        Shape{"-x^2", {22, 1, 7, 2}, {2}, 2}, Shape{"-x*y", {22, 23, 5, 2}, {}, 2},
        Shape{"-x+y", {22, 2, 23, 3}, {}, 2}, Shape{"-(x)", {22, 2}, {}, 1},
        Shape{"-cos(x)", {22, 17, 2}, {}, 1}, Shape{"+x", {22}, {}, 1},
        Shape{"1.5e-3+x", {1, 22, 3}, {0.0015}, 2}, Shape{"2*(-3)", {1, 1, 2, 5}, {2, 3}, 2},
        Shape{"x**2", {22, 1, 7}, {2}, 2}, Shape{"sqrt(x)*exp(y)", {22, 12, 23, 9, 5}, {}, 2}));

TEST(Compiler, EachFunctionNameCompilesToItsCode) {
  const char* names[] = {"abs",  "exp", "log10", "log", "sqrt", "sinh", "cosh",
                         "tanh", "sin", "cos",   "tan", "asin", "acos", "atan"};
  FunctionParser parser;
  parser.init_functions(1);
  std::uint8_t code = 8;  // the table lists abs as 8, then one more per name
  for (const char* name : names) {
    ASSERT_TRUE(parser.parse_function(1, std::string(name) + "(y)", kVariables));
    EXPECT_EQ(parser.slot(1).byte_code, (std::vector<std::uint8_t>{23, code})) << name;
    ++code;
  }
}

TEST(Compiler, ParsingASlotAgainReplacesItsByteCodeAndAFaultEmptiesIt) {
  FunctionParser parser;
  parser.init_functions(2);
  ASSERT_TRUE(parser.parse_function(1, "x*y", kVariables));
  ASSERT_TRUE(parser.parse_function(1, "z", kVariables));
  EXPECT_EQ(parser.slot(1).byte_code, (std::vector<std::uint8_t>{24}));
  EXPECT_FALSE(parser.parse_function(1, "z+", kVariables));
  EXPECT_FALSE(parser.slot(1).compiled());
  parser.init_functions(3);
  EXPECT_EQ(parser.size(), 3);
}

TEST(Compiler, VariableNameHoldingAnOpenParenthesisThatCannotBeReadIsAnInvalidElement) {
  // "(f(x)" passes the check with a variable named "f(x" but has no operand to push.
  const std::vector<std::string> names = {"f(x"};
  FunctionParser parser;
  parser.init_functions(1);
  EXPECT_TRUE(parser.parse_function(1, "f(x+1", names));
  EXPECT_FALSE(parser.parse_function(1, "(f(x)", names));
  EXPECT_EQ(parser.syntax_message(),
            "*** Error in syntax of function string: Invalid element: (f(x)");
}

}  // namespace
}  // namespace tidemark::formula
