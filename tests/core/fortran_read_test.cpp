#include "core/fortran_read.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string_view>

namespace tidemark::core {
namespace {

using namespace std::literals;

// Expected values: what gfortran 12 stores for `read(s, *) x` into real(8) and real(4)
// (printed with ES26.17 / ES16.8 by a throw-away program); the literals are those values.
TEST(FortranRead, AcceptsEveryFortranRealSpelling) {
  struct Case {
    std::string_view text;
    double as_double;
    float as_float;
  };
  const Case cases[] = {
      {"1.E35", 1.E35, 1.E35f},
      {"-1.E35", -1.E35, -1.E35f},
      {"1.0D-3", 1e-3, 1e-3f},
      {"1.0d-3", 1e-3, 1e-3f},
      {"+5", 5, 5},
      {".5", 0.5, 0.5f},
      {"+.5", 0.5, 0.5f},
      {"5.", 5, 5},
      {"1e5", 1e5, 1e5f},
      {"1E+5", 1e5, 1e5f},
      {"1.0+5", 1e5, 1e5f},
      {"1.0-5", 1e-5, 1e-5f},
      {"1q5", 1e5, 1e5f},
      {"007", 7, 7},
      {" \t3.5  ", 3.5, 3.5f},
      {"   -1.00000E+35", -1.E35, -1.E35f},  // a 1PG15.5 field
      {"1.00000-100", 1e-100, 0},            // 1PG15.5 drops the E of 3-digit exponents
      {"3.4028235e38", 3.4028235e38, 3.4028235e38f},
      {"1e-50", 1e-50, 0},
      {"1e-400", 0, 0},
  };
  for (const auto& c : cases) {
    double d = -7;
    float f = -7;
    EXPECT_TRUE(read_real(c.text, d) && read_real(c.text, f)) << c.text;
    EXPECT_EQ(d, c.as_double) << c.text;
    EXPECT_EQ(f, c.as_float) << c.text;
  }
  float tiny = 1;
  EXPECT_TRUE(read_real("-1e-60", tiny) && tiny == 0 && std::signbit(tiny));
}

// The first group gfortran refuses too (iostat 5010); the second it would store as NaN
// or infinity, which is refused here so that no non-finite value enters the data.
TEST(FortranRead, RefusesGarbageAndNonFiniteValuesAndLeavesTheTargetAlone) {
  const std::string_view bad[] = {"",      ".",     "+",    "-",    "e5",       "1e",    "1e+",
                                  "1..2",  "0x10",  "4.2O", "1.5e", "1+",       "1.e",   "1d",
                                  "-.e5",  "1e5.5", "1 2",  "1,2",  "1/",       "2*3",   "+-5",
                                  "1\0"sv, "NaN",   "-nan", "inf",  "Infinity", "1e999", "-1e999"};
  for (const auto text : bad) {
    double d = -7;
    float f = -7;
    EXPECT_FALSE(read_real(text, d) || read_real(text, f)) << text;
    EXPECT_TRUE(d == -7 && f == -7) << text;
  }
  // Beyond single precision only (gfortran: Infinity in real(4)); 3.4028236e38 lies past
  // the midpoint between FLT_MAX = 3.40282347E+38 and 2^128, so it rounds up.
  for (const auto text : {"1e39", "-1e39", "3.4028236e38"}) {
    double d = 0;
    float f = -7;
    EXPECT_TRUE(read_real(text, d) && !read_real(text, f) && f == -7) << text;
  }
}

// gfortran refuses "3.5", "1e5" and "2147483648" for an integer (iostat 5010).
TEST(FortranRead, IntegersTakeAnOptionalSignAndDigitsWithinInt) {
  const std::pair<std::string_view, int> good[] = {{"+5", 5},
                                                   {"007", 7},
                                                   {" 12 ", 12},
                                                   {"-0", 0},
                                                   {"2147483647", 2147483647},
                                                   {"-2147483648", -2147483647 - 1}};
  for (const auto& [text, value] : good) {
    int v = -7;
    EXPECT_TRUE(read_integer(text, v)) << text;
    EXPECT_EQ(v, value) << text;
  }
  for (const auto text :
       {"2147483648", "-2147483649", "3.5", "1e5", "", "-", "+-1", "1 2", "12a"}) {
    int v = -7;
    EXPECT_FALSE(read_integer(text, v)) << text;
    EXPECT_EQ(v, -7) << text;
  }
}

}  // namespace
}  // namespace tidemark::core
