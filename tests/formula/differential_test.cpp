// Compares the compiler and evaluator with an independent evaluator on thousands of
// generated formulas. The cases and their expected results were written by
// scripts/gen-formula-cases, whose own parser and Python math produced the results.
#include <gtest/gtest.h>

#include <cmath>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "formula/function_parser.h"

namespace tidemark::formula {
namespace {

// Both evaluators call the same C library; the tolerance covers any rounding apart.
constexpr double kRelativeTolerance = 1e-12;

struct Case {
  std::string formula;
  std::vector<double> values;
  std::string kind;  // "value" or "error"
  double expected = 0.0;
  int error_type = 0;
};

std::vector<std::string> read_fields(std::istream& in) {
  std::vector<std::string> fields;
  for (std::string field; in >> field;) fields.push_back(field);
  return fields;
}

void load(std::vector<std::string>& variables, std::vector<Case>& cases) {
  std::ifstream file(TIDEMARK_FIXTURES "/formula/differential_cases.txt");
  ASSERT_TRUE(file) << "missing fixture";
  for (std::string line; std::getline(file, line);) {
    if (line.empty() || line[0] == '#') continue;
    if (line.rfind("variables:", 0) == 0) {
      std::istringstream names(line.substr(10));
      variables = read_fields(names);
      continue;
    }
    std::istringstream fields(line);
    Case c;
    std::string values, result;
    std::getline(fields, c.formula, '\t');
    std::getline(fields, values, '\t');
    std::getline(fields, result);
    std::istringstream value_in(values);
    for (double v; value_in >> v;) c.values.push_back(v);
    std::istringstream result_in(result);
    result_in >> c.kind;
    if (c.kind == "error") {
      result_in >> c.error_type;
    } else {
      result_in >> c.expected;
    }
    cases.push_back(c);
  }
}

TEST(Differential, GeneratedFormulasAgreeWithAnIndependentEvaluator) {
  std::vector<std::string> variables;
  std::vector<Case> cases;
  load(variables, cases);
  ASSERT_GE(cases.size(), 1000u);
  ASSERT_EQ(variables.size(), 6u);

  FunctionParser parser;
  parser.init_functions(1);
  int mismatches = 0;
  for (const Case& c : cases) {
    SCOPED_TRACE(c.formula);
    ASSERT_TRUE(parser.parse_function(1, c.formula, variables)) << parser.syntax_message();
    const double got = parser.evaluate_function(1, c.values);
    const int type = parser.eval_error_type();
    const bool agree = c.kind == "error"
                           ? type == c.error_type && got == 0.0
                           : type == 0 && std::fabs(got - c.expected) <=
                                              kRelativeTolerance * std::fabs(c.expected);
    if (!agree && ++mismatches <= 10) {
      ADD_FAILURE() << "expected " << c.kind << " "
                    << (c.kind == "error" ? c.error_type : c.expected) << ", got " << got
                    << " with error type " << type;
    }
  }
  EXPECT_EQ(mismatches, 0) << "of " << cases.size() << " cases";
}

}  // namespace
}  // namespace tidemark::formula
