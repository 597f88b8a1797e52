#include "core/fortran_read.h"

#include <algorithm>
#include <charconv>
#include <string>
#include <system_error>

#include "core/text.h"

namespace tidemark::core {

namespace {

bool is_digit(char c) {
  return c >= '0' && c <= '9';
}
bool is_sign(char c) {
  return c == '+' || c == '-';
}
bool is_exponent_letter(char c) {
  return c == 'E' || c == 'e' || c == 'D' || c == 'd' || c == 'Q' || c == 'q';
}

// The parts of a real written in Fortran's syntax.
struct RealText {
  bool negative = false;
  std::string_view mantissa;      // digits with at most one point, at least one digit
  std::string_view exponent;      // signed digits ("-5", "+35", "12"); empty when none
  bool from_chars_ready = false;  // the text after its sign can go to from_chars as is
};

std::size_t skip_digits(std::string_view s, std::size_t i) {
  while (i < s.size() && is_digit(s[i])) ++i;
  return i;
}

bool split_real(std::string_view s, RealText& out) {
  std::size_t i = 0;
  if (i < s.size() && is_sign(s[i])) out.negative = s[i++] == '-';
  const std::size_t mantissa_start = i;
  std::size_t after = skip_digits(s, i);
  std::size_t digits = after - i;
  i = after;
  if (i < s.size() && s[i] == '.') {
    after = skip_digits(s, i + 1);
    digits += after - i - 1;
    i = after;
  }
  if (digits == 0) return false;
  out.mantissa = s.substr(mantissa_start, i - mantissa_start);
  out.from_chars_ready = true;
  if (i == s.size()) return true;
  if (is_exponent_letter(s[i])) {
    out.from_chars_ready = s[i] == 'E' || s[i] == 'e';
    ++i;
  } else if (!is_sign(s[i])) {
    return false;
  } else {
    out.from_chars_ready = false;  // "1.0-5": the exponent letter is left out
  }
  const std::size_t exponent_start = i;
  if (i < s.size() && is_sign(s[i])) ++i;
  after = skip_digits(s, i);
  if (after == i || after != s.size()) return false;
  out.exponent = s.substr(exponent_start);
  return true;
}

// Decimal exponent of the leading significant digit of a mantissa that is not zero,
// plus the written exponent (saturated): its sign tells an overflow from an underflow.
long long magnitude(const RealText& t) {
  const std::size_t point = std::min(t.mantissa.find('.'), t.mantissa.size());
  const std::size_t first = t.mantissa.find_first_not_of("0.");
  long long m = first < point ? static_cast<long long>(point - first) - 1
                              : -static_cast<long long>(first - point);
  long long e = 0;
  std::string_view digits = t.exponent;
  const bool negative = !digits.empty() && digits.front() == '-';
  if (!digits.empty() && is_sign(digits.front())) digits.remove_prefix(1);
  for (char c : digits) e = std::min(e * 10 + (c - '0'), 1'000'000'000LL);
  return m + (negative ? -e : e);
}

template <typename T>
bool read_real_as(std::string_view text, T& value) {
  const std::string_view s = trim(text);
  RealText t;
  if (!split_real(s, t)) return false;
  std::string normal;
  std::string_view body;
  if (t.from_chars_ready) {
    body = s.substr(is_sign(s.front()) ? 1 : 0);
  } else {
    normal.reserve(t.mantissa.size() + t.exponent.size() + 1);
    normal.append(t.mantissa).append(1, 'e').append(t.exponent);
    body = normal;
  }
  T v{};
  const auto [end, ec] = std::from_chars(body.data(), body.data() + body.size(), v);
  if (ec == std::errc::result_out_of_range) {
    if (magnitude(t) >= 0) return false;  // overflow: beyond the type's range
    v = 0;                                // underflow: zero, as Fortran reads it
  } else if (ec != std::errc() || end != body.data() + body.size()) {
    return false;
  }
  value = t.negative ? -v : v;
  return true;
}

}  // namespace

bool read_real(std::string_view text, double& value) {
  return read_real_as(text, value);
}

bool read_real(std::string_view text, float& value) {
  return read_real_as(text, value);
}

bool read_integer(std::string_view text, int& value) {
  std::string_view s = trim(text);
  const bool plus = !s.empty() && s.front() == '+';
  if (plus) s.remove_prefix(1);  // from_chars takes a minus sign but no plus sign
  const std::size_t digits_start = (!plus && !s.empty() && s.front() == '-') ? 1 : 0;
  if (s.size() == digits_start || skip_digits(s, digits_start) != s.size()) return false;
  int v = 0;
  const auto [end, ec] = std::from_chars(s.data(), s.data() + s.size(), v);
  if (ec != std::errc() || end != s.data() + s.size()) return false;
  value = v;
  return true;
}

}  // namespace tidemark::core
