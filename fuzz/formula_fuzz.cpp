// Compiles the input as a formula and evaluates it; checks that every outcome is either
// a syntax message or byte code that runs within its stack, and that evaluation ends
// with a value or an error type 1, 3 or 4 with the result 0.
//
// Input layout: when the input holds a newline, the lines before the last one are the
// variable names (at most 8) and the last line is the formula; otherwise the whole
// input is the formula over the names x, y, Y, N, a and e.
#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

#include "formula/function_parser.h"
#include "formula/opcodes.h"

namespace {

using tidemark::formula::CompiledFormula;
namespace op = tidemark::formula;

void check(bool invariant) {
  if (!invariant) std::abort();
}

// Replays the stack discipline of the byte code: every code finds its operands, the
// stack never grows past its allocated size, constants match their pushes, and one
// value is left at the end.
void check_byte_code(const CompiledFormula& c, std::size_t variable_count) {
  std::size_t depth = 0, deepest = 0, constants = 0;
  for (const std::uint8_t code : c.byte_code) {
    check(code >= op::kPushConstant);
    if (code == op::kPushConstant || code >= op::kFirstVariable) {
      check(code < op::kFirstVariable || std::size_t(code - op::kFirstVariable) < variable_count);
      constants += code == op::kPushConstant;
      deepest = std::max(deepest, ++depth);
    } else if (code >= op::kAdd && code <= op::kPower) {
      check(depth >= 2);
      --depth;
    } else {
      check(depth >= 1);
    }
  }
  check(depth == 1 && deepest == c.stack.size() && constants == c.immed.size());
}

std::vector<std::string> split_names(std::string_view text) {
  std::vector<std::string> names;
  while (names.size() < 8) {
    const std::size_t end = text.find('\n');
    names.emplace_back(text.substr(0, end));
    if (end == std::string_view::npos) break;
    text.remove_prefix(end + 1);
  }
  return names;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view input(reinterpret_cast<const char*>(data), size);
  const std::size_t last_newline = input.rfind('\n');
  const std::vector<std::string> names =
      last_newline == std::string_view::npos
          ? std::vector<std::string>{"x", "y", "Y", "N", "a", "e"}
          : split_names(input.substr(0, last_newline));
  const std::string_view formula =
      last_newline == std::string_view::npos ? input : input.substr(last_newline + 1);

  static tidemark::formula::FunctionParser parser;
  parser.init_functions(1);
  if (!parser.parse_function(1, formula, names)) {
    check(parser.syntax_message().rfind("*** ", 0) == 0);
    for (const auto& d : parser.diagnostics())
      check(d.position >= 1 && d.position <= formula.size() + 1);
    return 0;
  }
  check(parser.syntax_message().empty() && parser.diagnostics().empty());
  check_byte_code(parser.slot(1), names.size());
  static constexpr std::array<std::array<double, 8>, 3> kValues = {{
      {0, 0, 0, 0, 0, 0, 0, 0},
      {1, -1, 0.5, 2, -0.5, 3, 1e300, -1e-300},
      {-2, 1.0000001, 1e308, -7, 0.25, 100, 0, 1},
  }};
  for (const auto& values : kValues) {
    const double result = parser.evaluate_function(1, values);
    const int type = parser.eval_error_type();
    check(type == 0 || ((type == 1 || type == 3 || type == 4) && result == 0.0));
  }
  return 0;
}
