#pragma once
// The formula table: formulas compiled once into numbered slots, then evaluated any
// number of times.
//
//   FunctionParser parser;
//   parser.init_functions(1);
//   const std::vector<std::string> names = {"N", "Time", "Conc"};
//   if (parser.parse_function(1, "exp(-Time/30) * Conc", names)) {
//     const double v = parser.evaluate_function(1, std::array{1.0, 10.0, 2.5});
//     if (parser.eval_error_type() != 0) show(parser.eval_error_message());
//   } else {
//     show(parser.syntax_message());
//   }
//
// One object holds what the program keeps process-wide (the table of compiled
// formulas, the message buffer of the last parse and the error type of the last
// evaluation), so that each user owns its own table. Not thread-safe: evaluation works
// on the slot's own stack.
#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "formula/compiled_formula.h"

namespace tidemark::formula {

// A syntax message of the last parse with the place it points at.
struct Diagnostic {
  std::string text;          // "*** Error in syntax of function string: ..."
  std::size_t position = 0;  // 1-based position in the formula as typed
};

class FunctionParser {
 public:
  // (Re)creates the table with `n` empty slots numbered 1 to n (none when n < 1),
  // releasing any earlier table.
  void init_functions(int n);

  // Compiles `formula` into slot i with variables[k - 1] as the name of variable k,
  // replacing what the slot held. When i is outside 1..n the message buffer reads
  // "*** Parser error: Function number <i> out of range" and nothing else happens.
  // Otherwise the formula, with "**" read as "^" and blanks removed, is checked; if
  // the check finds a fault the buffer holds the message that describes it
  // (formula/syntax_check.h, shown_message_index) and the slot stays empty. Returns true when the
  // slot was compiled.
  bool parse_function(int i, std::string_view formula, std::span<const std::string> variables);

  // Evaluates slot i with values[k - 1] as variable k (see CompiledFormula::evaluate)
  // and sets the error type: 0, or 1 to 4 with the result 0. Needs a compiled slot and
  // a value for every variable the formula reads; anything else is a programming
  // error that stops the program. Allocates nothing.
  double evaluate_function(int i, std::span<const double> values);

  // The 32-character message of the current error type, 32 blanks when it is 0.
  std::string eval_error_message() const;

  // Error type of the last evaluation: 0, or 1 to 4 (formula/eval_error.h).
  int eval_error_type() const { return error_type_; }

  // The message buffer: the message of the last parse_function, empty after success.
  const std::string& syntax_message() const { return message_; }

  // Where the syntax message points, counting characters of the formula as typed from
  // 1 (1 when there is no syntax message).
  std::size_t syntax_position() const { return message_position_; }

  // Every message of the syntax check in the last parse_function, in the order found.
  const std::vector<Diagnostic>& diagnostics() const { return diagnostics_; }

  // Number of slots.
  int size() const { return static_cast<int>(comp_.size()); }

  // Slot i (1..size()), for inspection.
  const CompiledFormula& slot(int i) const { return comp_.at(static_cast<std::size_t>(i - 1)); }

 private:
  std::vector<CompiledFormula> comp_;
  std::string message_;
  std::vector<Diagnostic> diagnostics_;
  std::size_t message_position_ = 1;
  int error_type_ = 0;
};

// A marker line for a message at `position` (1-based) of a formula shown on the line
// above it, at the same indentation: position - 1 blanks and "?".
std::string position_marker(std::size_t position);

}  // namespace tidemark::formula
