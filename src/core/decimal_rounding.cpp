#include "core/decimal_rounding.h"

#include <fmt/compile.h>

#include <iterator>

namespace tidemark::core::detail {

namespace {

// The exact decimal expansion of any double has at most 767 significant digits, so
// scientific text with more digits than this is the exact value. fmt (like glibc's
// printf) rounds correctly, half to even on exact ties, at any precision.
constexpr int kExactDigits = 780;

using Text = fmt::basic_memory_buffer<char, 128>;

// Reads fmt's scientific text "d.ddde+xx" (or "de+xx") into `out`.
void read_scientific(const Text& text, Decimal& out) {
  out.digits.clear();
  std::size_t i = 0;
  for (; text[i] != 'e'; ++i) {
    if (text[i] != '.') out.digits.push_back(text[i]);
  }
  const bool negative = text[i + 1] == '-';
  int exponent = 0;
  for (i += 2; i < text.size(); ++i) exponent = exponent * 10 + (text[i] - '0');
  out.point = (negative ? -exponent : exponent) + 1;
}

// Reads fmt's fixed text "iii.fff" (or "iii") into `out`.
void read_fixed(const Text& text, Decimal& out) {
  out.digits.clear();
  out.point = static_cast<int>(text.size());
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '.') {
      out.point = static_cast<int>(i);
    } else {
      out.digits.push_back(text[i]);
    }
  }
}

// Rounds the exact digits in `out` to their first `keep` digits, half to even.
void round_digits(int keep, Decimal& out) {
  const int size = static_cast<int>(out.digits.size());
  if (keep >= size) return;
  if (keep < 0) {
    out.digits.clear();
    return;
  }
  const char next = out.digit(keep);
  bool sticky = false;
  for (int i = keep + 1; i < size && !sticky; ++i) sticky = out.digit(i) != '0';
  const bool last_odd = keep > 0 && (out.digit(keep - 1) - '0') % 2 == 1;
  const bool up = next > '5' || (next == '5' && (sticky || last_odd));
  out.digits.resize(static_cast<std::size_t>(keep));
  if (!up) return;
  int i = keep - 1;
  for (; i >= 0 && out.digits[static_cast<std::size_t>(i)] == '9'; --i) {
    out.digits[static_cast<std::size_t>(i)] = '0';
  }
  if (i >= 0) {
    ++out.digits[static_cast<std::size_t>(i)];
    return;
  }
  // Carry out of the first digit: 0.99.. × 10^p becomes 0.10.. × 10^(p+1).
  if (keep == 0) out.digits.push_back('0');
  out.digits[0] = '1';
  ++out.point;
}

}  // namespace

void round_significant(double magnitude, int count, Decimal& out) {
  Text text;
  fmt::format_to(std::back_inserter(text), FMT_COMPILE("{:.{}e}"), magnitude, count - 1);
  read_scientific(text, out);
}

void round_at_place(double magnitude, int place, Decimal& out) {
  Text text;
  if (place <= 0) {
    fmt::format_to(std::back_inserter(text), FMT_COMPILE("{:.{}f}"), magnitude, -place);
    read_fixed(text, out);
    return;
  }
  // Rounding left of the decimal point: fmt has no negative precision, so round the
  // exact expansion here.
  if (magnitude == 0) {
    out.digits.clear();
    out.point = 0;
    return;
  }
  fmt::format_to(std::back_inserter(text), FMT_COMPILE("{:.{}e}"), magnitude, kExactDigits);
  read_scientific(text, out);
  round_digits(out.point - place, out);
}

}  // namespace tidemark::core::detail
