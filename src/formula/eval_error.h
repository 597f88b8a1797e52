#pragma once
// Evaluation error types and their messages.
#include <string>

namespace tidemark::formula {

// The evaluation error type: 0 after a successful evaluation, otherwise 1 to 4.
enum EvalError : int {
  kNoError = 0,
  kDivisionByZero = 1,   // a divisor is exactly 0
  kSqrtNegative = 2,     // never set: a negative square root reports kLogNegative
  kLogNegative = 3,      // the argument of log10, log or sqrt is out of range
  kAsinAcosIllegal = 4,  // the argument of asin or acos lies outside [-1, 1]
};

// Width of an evaluation error message.
inline constexpr std::size_t kEvalMessageWidth = 32;

// The message of error type 1 to 4, blank-padded to 32 characters ("Division by zero",
// "Argument of SQRT negative", "Argument of LOG negative", "Argument of ASIN or ACOS
// illegal"); 32 blanks for any other value.
std::string eval_error_text(int type);

}  // namespace tidemark::formula
