#include "formula/function_parser.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>

#include "formula/compiler.h"
#include "formula/eval_error.h"
#include "formula/syntax_check.h"
#include "formula/working_copy.h"

namespace tidemark::formula {

void FunctionParser::init_functions(int n) {
  comp_.assign(static_cast<std::size_t>(std::max(n, 0)), CompiledFormula());
}

bool FunctionParser::parse_function(int i, std::string_view formula,
                                    std::span<const std::string> variables) {
  diagnostics_.clear();
  message_position_ = 1;
  if (i < 1 || i > size()) {
    message_ = fmt::format("*** Parser error: Function number {} out of range", i);
    return false;
  }
  CompiledFormula& target = comp_[static_cast<std::size_t>(i - 1)];
  target = CompiledFormula();
  const WorkingCopy copy = make_working_copy(formula);
  std::vector<SyntaxMessage> messages = check_syntax(copy.text, variables);
  if (!messages.empty()) {
    const SyntaxMessage& shown = messages[shown_message_index(messages)];
    message_ = shown.text;
    message_position_ = copy.typed_position(shown.at);
    for (SyntaxMessage& m : messages) {
      diagnostics_.push_back({std::move(m.text), copy.typed_position(m.at)});
    }
    return false;
  }
  message_ = compile_formula(copy.text, variables, target);
  return message_.empty();
}

double FunctionParser::evaluate_function(int i, std::span<const double> values) {
  CompiledFormula* formula =
      i >= 1 && i <= size() ? &comp_[static_cast<std::size_t>(i - 1)] : nullptr;
  if (!formula || !formula->compiled() ||
      values.size() < static_cast<std::size_t>(formula->variables_used)) {
    std::fprintf(stderr, "%s:%d: formula %d evaluated uncompiled or with %zu values\n", __FILE__,
                 __LINE__, i, values.size());
    std::abort();
  }
  return formula->evaluate(values, error_type_);
}

std::string FunctionParser::eval_error_message() const {
  return eval_error_text(error_type_);
}

std::string position_marker(std::size_t position) {
  return std::string(position > 0 ? position - 1 : 0, ' ') + "?";
}

}  // namespace tidemark::formula
