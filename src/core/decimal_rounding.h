#pragma once
// Correctly rounded decimal digits of a binary double: the first step of every Fortran
// number edit. The digits are those of the exact binary value rounded half to even, as
// gfortran writes them under its default rounding mode.
#include <fmt/format.h>

#include <string_view>

namespace tidemark::core::detail {

// A non-negative decimal number: a digit string with the decimal point after `point`
// digits, value = 0.d1 d2 d3 ... × 10^point. `point` may be negative or beyond the last
// digit; positions outside the string read as zero.
struct Decimal {
  fmt::basic_memory_buffer<char, 64> digits;
  int point = 0;

  // The digit at string position i (0 = first), '0' outside the string.
  char digit(int i) const {
    return (i >= 0 && i < static_cast<int>(digits.size())) ? digits[static_cast<std::size_t>(i)]
                                                           : '0';
  }
};

// `magnitude` (finite, >= 0) rounded to `count` >= 1 significant digits: exactly `count`
// digits with d1 != '0', or `count` zeros with point 1 when `magnitude` is zero.
//   round_significant(99999.5, 5)  ->  digits "10000", point 6
void round_significant(double magnitude, int count, Decimal& out);

// `magnitude` (finite, >= 0) rounded to a whole multiple of 10^place (place < 0 keeps
// -place decimals).
//   round_at_place(0.005, -2)  ->  0.01     round_at_place(5000, 4)  ->  0 (tie to even)
void round_at_place(double magnitude, int place, Decimal& out);

}  // namespace tidemark::core::detail
