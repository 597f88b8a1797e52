#include "core/fortran_format.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <iterator>
#include <string_view>

#include "core/decimal_rounding.h"

namespace tidemark::core {

namespace {

using detail::Decimal;

std::string stars(int w) {
  return std::string(static_cast<std::size_t>(std::max(w, 0)), '*');
}

// Scale factors beyond this are refused, which keeps every digit count bounded.
constexpr int kMaxScale = 1000;

// Whether Fortran accepts the descriptor's numbers. A field that cannot hold the d
// decimals or the e exponent digits is left to the overflow rule.
bool valid_descriptor(int w, int d, int e, int scale) {
  return w >= 1 && d >= 0 && e >= 0 && scale >= -kMaxScale && scale <= kMaxScale;
}

// `text` right-justified in a field of width w, or '*'s when it does not fit.
std::string right_justify(std::string_view text, int w) {
  if (static_cast<int>(text.size()) > w) return stars(w);
  std::string out(static_cast<std::size_t>(w) - text.size(), ' ');
  out += text;
  return out;
}

// Infinity and NaN as gfortran writes them.
std::string non_finite(double value, int w) {
  if (std::isnan(value)) return right_justify("NaN", w);
  if (value > 0) return right_justify(w >= 8 ? "Infinity" : "Inf", w);
  return right_justify(w >= 9 ? "-Infinity" : "-Inf", w);
}

// Opens a right-justified field of width w holding an optional '-', a "0" before the
// decimal point when `zero`, and `body` further characters: writes the blanks, the sign
// and the zero to `out`. The zero is dropped when the field is too narrow for it and
// `zero_optional`. False when the text does not fit.
bool open_field(bool negative, bool zero, bool zero_optional, int body, int w, std::string& out) {
  int length = (negative ? 1 : 0) + (zero ? 1 : 0) + body;
  if (length > w && zero && zero_optional) {
    zero = false;
    --length;
  }
  if (length > w) return false;
  out.assign(static_cast<std::size_t>(w - length), ' ');
  if (negative) out += '-';
  if (zero) out += '0';
  return true;
}

// F layout "[-]iii.ddd" of `dec` with `decimals` digits after its point, right-justified
// in width w. A zero integer part is written "0", dropped when the field is too narrow
// for it unless there are no decimals.
std::string lay_out_fixed(bool negative, const Decimal& dec, int decimals, int w) {
  int first = 0;
  while (first < dec.point && dec.digit(first) == '0') ++first;
  const int integer_digits = std::max(dec.point - first, 0);
  std::string out;
  if (!open_field(negative, integer_digits == 0, decimals > 0, integer_digits + 1 + decimals, w,
                  out)) {
    return stars(w);
  }
  for (int i = first; i < dec.point; ++i) out += dec.digit(i);
  out += '.';
  for (int i = 0; i < decimals; ++i) out += dec.digit(dec.point + i);
  return out;
}

// The exponent part of the E form: "E+nn", "+nnn" when no width e is given, or "E+"
// followed by e digits. Empty when the exponent does not fit.
fmt::basic_memory_buffer<char, 16> exponent_text(int exponent, int e) {
  fmt::basic_memory_buffer<char, 16> text;
  const int magnitude = std::abs(exponent);
  const char sign = exponent < 0 ? '-' : '+';
  if (e == 0) {
    if (magnitude <= 99) {
      fmt::format_to(std::back_inserter(text), "E{}{:02d}", sign, magnitude);
    } else if (magnitude <= 999) {
      fmt::format_to(std::back_inserter(text), "{}{:03d}", sign, magnitude);
    }
  } else if (e >= 10 || magnitude < static_cast<int>(std::lround(std::pow(10.0, e)))) {
    fmt::format_to(std::back_inserter(text), "E{}{:0{}d}", sign, magnitude, e);
  }
  return text;
}

// E layout of `dec`, which holds the value's significant digits (d + k of them for
// k <= 0, d + 1 for k > 0); `zero` marks a zero value, whose exponent is written as 0.
std::string lay_out_exponent(bool negative, bool zero, const Decimal& dec, int d, int e, int k,
                             int w) {
  const auto exponent = exponent_text(zero ? 0 : dec.point - k, e);
  if (exponent.size() == 0) return stars(w);
  const int mantissa = k > 0 ? d + 2 : d + 1;  // without the "0" before the point
  std::string out;
  if (!open_field(negative, k <= 0, true, mantissa + static_cast<int>(exponent.size()), w, out)) {
    return stars(w);
  }
  if (k <= 0) {
    out += '.';
    out.append(static_cast<std::size_t>(-k), '0');
    for (int i = 0; i < d + k; ++i) out += dec.digit(i);
  } else {
    for (int i = 0; i < k; ++i) out += dec.digit(i);
    out += '.';
    for (int i = k; i <= d; ++i) out += dec.digit(i);
  }
  out.append(exponent.data(), exponent.size());
  return out;
}

// The E form of a finite value.
std::string exponent_form(double value, int w, int d, int e, int k) {
  if (d >= w || e >= w || k <= -d || k > d + 1) return stars(w);
  Decimal dec;
  detail::round_significant(std::fabs(value), k > 0 ? d + 1 : d + k, dec);
  return lay_out_exponent(std::signbit(value), value == 0, dec, d, e, k, w);
}

// The decimal exponent X that selects G's F form, 0 <= X <= d, or -1 for the E form.
// gfortran compares |value| in double arithmetic with the boundaries
// b(X) = 10^X × (1 - 0.5 / 10^d), i.e. 10^X less half a unit in the d-th digit: X is the
// smallest with |value| < b(X), and |value| < b(-1) = 0.1 × (1 - 0.5 / 10^d) gives the
// E form. These boundaries are themselves rounded, so a value within an ulp of one may
// take the other form than its correctly rounded digits suggest (0.999995 in G15.5 is
// "1.0000"). Zero takes X = 1.
int g_exponent(double magnitude, int d) {
  if (magnitude == 0) return 1;
  double power = 1;  // 10^X, exact up to 10^22
  for (int i = 0; i < d; ++i) power *= 10;
  const double factor = 1 - 0.5 / power;
  if (magnitude < 0.1 * factor || magnitude >= power * factor) return -1;
  int exponent = 0;
  for (power = 1; magnitude >= power * factor; power *= 10) ++exponent;
  return exponent;
}

}  // namespace

std::string format_f(double value, int w, int d, int scale) {
  if (!valid_descriptor(w, d, 0, scale)) return stars(w);
  if (!std::isfinite(value)) return non_finite(value, w);
  if (d >= w) return stars(w);
  const double magnitude = std::fabs(value);
  // With w or more integer digits the field overflows; skip rounding such values.
  if (magnitude >= std::pow(10.0, w - scale)) return stars(w);
  Decimal dec;
  detail::round_at_place(magnitude, -(d + scale), dec);
  dec.point += scale;
  return lay_out_fixed(std::signbit(value), dec, d, w);
}

std::string format_e(double value, int w, int d, int e, int scale) {
  if (!valid_descriptor(w, d, e, scale)) return stars(w);
  if (!std::isfinite(value)) return non_finite(value, w);
  return exponent_form(value, w, d, e, scale);
}

std::string format_g(double value, int w, int d, int e, int scale) {
  if (!valid_descriptor(w, d, e, scale)) return stars(w);
  if (!std::isfinite(value)) return non_finite(value, w);
  if (d >= w || e >= w) return stars(w);
  const int exponent = d == 0 ? -1 : g_exponent(std::fabs(value), d);
  if (exponent < 0) return exponent_form(value, w, d, e, scale);
  const int blanks = e == 0 ? 4 : e + 2;
  std::string out = format_f(value, w - blanks, d - exponent);
  if (out.empty() || out.front() == '*') return stars(w);
  out.append(static_cast<std::size_t>(blanks), ' ');
  return out;
}

std::string format_i(long long value, int w, int m) {
  if (w < 1 || m > w) return stars(w);
  const unsigned long long magnitude = value < 0 ? 0ULL - static_cast<unsigned long long>(value)
                                                 : static_cast<unsigned long long>(value);
  char digits[24];
  int count =
      static_cast<int>(std::to_chars(digits, digits + sizeof digits, magnitude).ptr - digits);
  if (m == 0 && value == 0) count = 0;
  const int shown = std::max(count, m);
  const int length = (value < 0 ? 1 : 0) + shown;
  if (length > w) return stars(w);
  std::string out(static_cast<std::size_t>(w - length), ' ');
  if (value < 0) out += '-';
  out.append(static_cast<std::size_t>(shown - count), '0');
  out.append(digits, static_cast<std::size_t>(count));
  return out;
}

std::string format_g15_5(double value) {
  return format_g(value, 15, 5, 0, 1);
}

}  // namespace tidemark::core
