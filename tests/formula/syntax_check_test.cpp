// Syntax messages of parse_function, as the message buffer and the diagnostics show
// them. Every expected message was traced by hand through the check's steps; positions
// count characters of the formula as typed, from 1.
#include <gtest/gtest.h>

#include <ostream>
#include <string>
#include <vector>

#include "formula/function_parser.h"

namespace tidemark::formula {
namespace {

const std::string kHeader = "*** Error in syntax of function string: ";
const std::vector<std::string> kVariables = {"x", "y", "Y", "N", "a", "co", "expo"};

struct Fault {
  const char* formula;
  std::string shown;  // the message buffer
  std::size_t at;     // where the shown message points (typed position)
  friend void PrintTo(const Fault& c, std::ostream* os) { *os << '"' << c.formula << '"'; }
};

class SyntaxMessages : public testing::TestWithParam<Fault> {};

TEST_P(SyntaxMessages, MessageThatDescribesTheFaultFillsTheBufferAndTheSlotStaysEmpty) {
  const Fault& f = GetParam();
  FunctionParser parser;
  parser.init_functions(1);
  EXPECT_FALSE(parser.parse_function(1, f.formula, kVariables));
  EXPECT_EQ(parser.syntax_message(), kHeader + f.shown);
  EXPECT_EQ(parser.syntax_position(), f.at);
  EXPECT_FALSE(parser.slot(1).compiled());
}

INSTANTIATE_TEST_SUITE_P(
    Check, SyntaxMessages,
    testing::Values(
        // Ends after an operator: the header alone, at the operator.
        Fault{"x+", "", 2}, Fault{"", "", 1}, Fault{"   ", "", 1}, Fault{"-", "Missing operand", 2},
        // An operator or sign right after an operator.
        Fault{"2*-3", "Multiple operators", 3}, Fault{"-+x", "Multiple operators", 2},
        Fault{"x^*2", "Multiple operators", 3}, Fault{"sin", "Missing function argument", 4},
        Fault{"sin x", "Missing opening parenthesis", 5},
        // A variable name that begins with a function name is read as that function.
        Fault{"expo+1", "Missing opening parenthesis", 4},
        Fault{"1.2.3", "Invalid number format:  1.2.3", 1},
        Fault{"x+1e", "Invalid number format:  1e", 3},
        Fault{"x + 2.5e+", "Invalid number format:  2.5e+", 5},
        Fault{"1e999*x", "Invalid number format:  1e999", 1},
        Fault{" x + z", "Invalid element: z", 6},
        // Variables keep their letter case; function names do not.
        Fault{"X*2", "Invalid element: X", 1}, Fault{"x(1)", "Invalid element: x(1", 1},
        // An empty operand gives way to the fault that follows it ...
        Fault{"()", "Empty parentheses", 1}, Fault{")(", "Mismatched parenthesis", 1},
        // ... and is shown when nothing else was found.
        Fault{"(x+)", "Invalid element: ", 4}, Fault{"x)", "Mismatched parenthesis", 2},
        Fault{"(x", "Missing )", 3}, Fault{"sin(x", "Missing )", 6},
        Fault{"2x+1", "Missing operator", 2},
        // The check reads on past the first fault, but later consequences do not hide it.
        Fault{"2x", "Missing operator", 2}));

TEST(SyntaxCheck, ClosingBeforeOpeningReportsMismatchedParenthesisOnTheWay) {
  // ")(": an empty operand, the ")" without "(", the "(" where an operator belongs,
  // then the end where an operand belongs.
  FunctionParser parser;
  parser.init_functions(1);
  parser.parse_function(1, ")(", kVariables);
  std::vector<std::string> texts;
  for (const Diagnostic& d : parser.diagnostics()) texts.push_back(d.text);
  EXPECT_EQ(texts, (std::vector<std::string>{
                       kHeader + "Invalid element: ", kHeader + "Mismatched parenthesis",
                       kHeader + "Missing operator", kHeader}));
}

TEST(SyntaxCheck, WellFormedFormulasCompile) {
  FunctionParser parser;
  parser.init_functions(1);
  for (const char* formula :
       {"2*(-3)", "-3*2", "a**2", "EXP(x)+Log10(Y)", "x+co", "1.5e-3+x", "(((x)))", "+x", "-(x)",
        "-sin(x)^2", "2.5D+2*N", ".5+5.", "sqrt (x) * abs( -y )"}) {
    EXPECT_TRUE(parser.parse_function(1, formula, kVariables)) << formula;
    EXPECT_EQ(parser.syntax_message(), "") << formula;
    EXPECT_TRUE(parser.diagnostics().empty()) << formula;
  }
}

TEST(SyntaxCheck, SlotNumberOutsideTheTableIsReportedAndNothingElseHappens) {
  FunctionParser parser;
  parser.init_functions(2);
  ASSERT_TRUE(parser.parse_function(2, "x", kVariables));
  EXPECT_FALSE(parser.parse_function(3, "x+", kVariables));
  EXPECT_EQ(parser.syntax_message(), "*** Parser error: Function number 3 out of range");
  EXPECT_FALSE(parser.parse_function(0, "x", kVariables));
  EXPECT_EQ(parser.syntax_message(), "*** Parser error: Function number 0 out of range");
  EXPECT_TRUE(parser.diagnostics().empty());
  EXPECT_TRUE(parser.slot(2).compiled());
}

TEST(SyntaxCheck, PositionMarkerStandsUnderTheTypedCharacter) {
  EXPECT_EQ(position_marker(6), "     ?");
  EXPECT_EQ(position_marker(1), "?");
}

}  // namespace
}  // namespace tidemark::formula
