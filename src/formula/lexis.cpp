#include "formula/lexis.h"

#include <algorithm>
#include <charconv>
#include <system_error>

#include "core/text.h"
#include "formula/opcodes.h"

namespace tidemark::formula {

namespace {

bool is_digit(char c) {
  return c >= '0' && c <= '9';
}
bool is_exponent_letter(char c) {
  return c == 'e' || c == 'E' || c == 'd' || c == 'D';
}
bool opens_operand(char c) {
  return is_operator(c) || c == '(';
}
char lower(char c) {
  return (c >= 'A' && c <= 'Z') ? static_cast<char>(c - 'A' + 'a') : c;
}

// Counts the digits of the run of digits and points starting at f[j]; `end` receives
// one past the run and `points` the number of points in it.
std::size_t scan_mantissa(std::string_view f, std::size_t j, std::size_t& end, int& points) {
  std::size_t digits = 0;
  points = 0;
  for (end = j; end < f.size() && (is_digit(f[end]) || f[end] == '.'); ++end) {
    if (f[end] == '.') {
      ++points;
    } else {
      ++digits;
    }
  }
  return digits;
}

}  // namespace

int function_at(std::string_view f, std::size_t j) {
  const std::string_view rest = f.substr(std::min(j, f.size()));
  for (std::size_t k = 0; k < kFunctionNames.size(); ++k) {
    const std::string_view name = kFunctionNames[k];
    if (rest.size() >= name.size() && std::equal(name.begin(), name.end(), rest.begin(),
                                                 [](char n, char c) { return n == lower(c); })) {
      return kAbs + static_cast<int>(k);
    }
  }
  return 0;
}

std::size_t function_name_length(int code) {
  return kFunctionNames[code - kAbs].size();
}

NumberScanResult scan_number(std::string_view f, std::size_t j) {
  NumberScanResult scan;
  int points = 0;
  const std::size_t digits = scan_mantissa(f, j, scan.end, points);
  bool ok = digits > 0 && points <= 1;
  if (scan.end < f.size() && is_exponent_letter(f[scan.end])) {
    ++scan.end;
    if (scan.end < f.size() && (f[scan.end] == '+' || f[scan.end] == '-')) ++scan.end;
    const std::size_t first = scan.end;
    while (scan.end < f.size() && is_digit(f[scan.end])) ++scan.end;
    ok = ok && scan.end > first;
  }
  if (!ok) return scan;
  // The Fortran exponent letters d and D read as e.
  std::string text(f.substr(j, scan.end - j));
  std::replace_if(
      text.begin(), text.end(), [](char c) { return c == 'd' || c == 'D'; }, 'e');
  const auto [ptr, ec] = std::from_chars(text.data(), text.data() + text.size(), scan.value);
  if (ptr != text.data() + text.size()) return scan;
  scan.status = ec == std::errc() ? NumberScanStatus::kRead : NumberScanStatus::kOutOfRange;
  return scan;
}

std::size_t name_end(std::string_view f, std::size_t j) {
  const std::size_t end = f.find_first_of("+-*/^) ", j);
  return end == std::string_view::npos ? f.size() : end;
}

int variable_number(std::string_view name, std::span<const std::string> variables) {
  if (name.empty()) return 0;
  const std::size_t count = std::min(variables.size(), static_cast<std::size_t>(kMaxVariables));
  for (std::size_t k = 0; k < count; ++k) {
    if (core::padded_equal(name, variables[k])) return static_cast<int>(k) + 1;
  }
  return 0;
}

bool is_binary_operator(std::string_view f, std::size_t j) {
  if (j == 0 || opens_operand(f[j - 1])) return false;
  if (!is_exponent_letter(f[j - 1]) || j + 1 >= f.size() || !is_digit(f[j + 1])) return true;
  // Walk back from the exponent letter over digits and at most one point.
  std::size_t k = j - 1;
  std::size_t digits = 0;
  int points = 0;
  while (k > 0 && (is_digit(f[k - 1]) || (f[k - 1] == '.' && points == 0))) {
    --k;
    if (f[k] == '.') {
      ++points;
    } else {
      ++digits;
    }
  }
  const bool mantissa_starts_operand = k == 0 || opens_operand(f[k - 1]);
  return !(digits > 0 && mantissa_starts_operand);
}

}  // namespace tidemark::formula
