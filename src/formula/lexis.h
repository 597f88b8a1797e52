#pragma once
// Character-level rules of the formula language, shared by the syntax check and the
// compiler so that both read a formula the same way. All positions are 0-based indices
// into the blank-free working copy `f` of the formula.
#include <cstddef>
#include <span>
#include <string>
#include <string_view>

namespace tidemark::formula {

// The function whose name starts at f[j]: its operation code (kAbs..kAtan), or 0 when
// none does. Names are tried in table order; a name matches when the next characters
// of `f`, upper-case letters lowered, equal the whole name (so "EXP(x)" is exp, and a
// formula ending in "co" matches nothing).
int function_at(std::string_view f, std::size_t j);

// Length of the name of function `code` (kAbs..kAtan).
std::size_t function_name_length(int code);

// True when `c` starts a number: a digit or a decimal point.
inline bool starts_number(char c) {
  return (c >= '0' && c <= '9') || c == '.';
}

// A number read from f[j]: digits with at most one decimal point, then optionally an
// exponent letter e, E, d or D with an optional sign and at least one digit. It is
// malformed when it breaks that pattern, out of range when its value is beyond double
// range.
enum class NumberScanStatus { kRead, kMalformed, kOutOfRange };

struct NumberScanResult {
  NumberScanStatus status = NumberScanStatus::kMalformed;
  std::size_t end = 0;  // one past the last character that belongs to the number
  double value = 0.0;   // the value when ok (correctly rounded decimal-to-double)

  bool ok() const { return status == NumberScanStatus::kRead; }
};
NumberScanResult scan_number(std::string_view f, std::size_t j);

// One past the end of the variable name starting at f[j]: the next character of
// "+-*/^) " or the end of `f`. The name may be empty.
std::size_t name_end(std::string_view f, std::size_t j);

// The number k (1-based) of the first variable whose name equals `name`, compared
// letter case included and trailing blanks ignored; 0 when there is none, when `name`
// is empty, or when the match lies beyond the kMaxVariables a byte code can address.
int variable_number(std::string_view name, std::span<const std::string> variables);

// True when the "+" or "-" at f[j] is a binary operator rather than a sign. It is a
// sign at the start, after one of "+-*/^(", and as the sign of an exponent: after one
// of "eEdD", before a digit, where the exponent letter follows a mantissa (digits with
// at most one point, at least one digit) that starts the formula or follows one of
// "+-*/^(".
bool is_binary_operator(std::string_view f, std::size_t j);

}  // namespace tidemark::formula
