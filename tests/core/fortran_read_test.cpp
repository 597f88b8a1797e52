#include "core/fortran_read.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string_view>

namespace tidemark::core {
namespace {

// Expected values: what gfortran 12 stores for `read(s, *) d` into real(8), real(4)
// and integer (a throw-away program printed them with ES26.17 / ES16.8 / I12); the
// literals below are those decimal values, which C++ rounds the same way.
struct RealCase {
  const char* text;
  double as_double;
  float as_float;
};

TEST(FortranRead, AcceptsEveryFortranRealSpelling) {
  const RealCase cases[] = {
      {"1.E35", 1.E35, 1.E35f},
      {"-1.E35", -1.E35, -1.E35f},
      {"1.0D-3", 1.0e-3, 1.0e-3f},
      {"1.0d-3", 1.0e-3, 1.0e-3f},
      {"+5", 5.0, 5.0f},
      {".5", 0.5, 0.5f},
      {"+.5", 0.5, 0.5f},
      {"5.", 5.0, 5.0f},
      {"1e5", 1e5, 1e5f},
      {"1E+5", 1e5, 1e5f},
      {"1.0+5", 1e5, 1e5f},
      {"1.0-5", 1e-5, 1e-5f},
      {"1q5", 1e5, 1e5f},
      {"5e-1", 0.5, 0.5f},
      {"007", 7.0, 7.0f},
      {" \t3.5  ", 3.5, 3.5f},
      {"   -1.00000E+35", -1.E35, -1.E35f},  // a 1PG15.5 field as the writer gives it
      {"1.00000-100", 1e-100, 0.0f},         // 1PG15.5 drops the E for 3-digit exponents
      {"3.4028235e38", 3.4028235e38, 3.4028235e38f},
      {"1e-50", 1e-50, 0.0f},
      {"1e-400", 0.0, 0.0f},
  };
  for (const auto& c : cases) {
    double d = -7;
    float f = -7;
    EXPECT_TRUE(read_real(c.text, d)) << c.text;
    EXPECT_TRUE(read_real(c.text, f)) << c.text;
    EXPECT_EQ(d, c.as_double) << c.text;
    EXPECT_EQ(f, c.as_float) << c.text;
  }
}

TEST(FortranRead, UnderflowKeepsTheSignOfZero) {
  float f = 1;
  ASSERT_TRUE(read_real("-1e-60", f));
  EXPECT_EQ(f, 0.0f);
  EXPECT_TRUE(std::signbit(f));
}

// The first group gfortran refuses too (iostat 5010); the second it would store as NaN
// or infinity, which the program refuses so that no non-finite value enters its data.
TEST(FortranRead, RefusesGarbageAndNonFiniteValuesAndLeavesTheTargetAlone) {
  using namespace std::literals;
  const std::string_view bad[] = {
      "",       ".",    "+",  "-",     "e5",  "1e",   "1e+",   "1..2",     "0x10",  "4.2O",
      "1.5abc", "1.5e", "1+", "1.e",   "1d",  "-.e5", "1e5.5", "1 2",      "1,2",   "1/",
      "2*3",    "+-5",  "1E", "1\0"sv, "NaN", "-nan", "inf",   "Infinity", "1e999", "-1e999"};
  for (const std::string_view text : bad) {
    double d = -7;
    float f = -7;
    EXPECT_FALSE(read_real(text, d)) << text;
    EXPECT_FALSE(read_real(text, f)) << text;
    EXPECT_EQ(d, -7);
    EXPECT_EQ(f, -7);
  }
}

TEST(FortranRead, ValuesBeyondSinglePrecisionAreRefusedOnlyForFloat) {
  // gfortran stores Infinity for these in real(4); FLT_MAX is 3.40282347E+38 and
  // 3.4028236e38 lies past the midpoint to the next power of two, so it rounds up.
  for (const char* text : {"1e39", "-1e39", "3.4028236e38"}) {
    double d = 0;
    float f = -7;
    EXPECT_TRUE(read_real(text, d)) << text;
    EXPECT_FALSE(read_real(text, f)) << text;
    EXPECT_EQ(f, -7);
  }
}

TEST(FortranRead, IntegersTakeAnOptionalSignAndDigitsWithinInt) {
  struct Case {
    const char* text;
    bool ok;
    int value;
  };
  // gfortran: 5010 for "3.5", "1e5", "2147483648"; the rest as listed.
  const Case cases[] = {{"+5", true, 5},
                        {"007", true, 7},
                        {" 12 ", true, 12},
                        {"-0", true, 0},
                        {"2147483647", true, 2147483647},
                        {"-2147483648", true, -2147483647 - 1},
                        {"2147483648", false, 0},
                        {"-2147483649", false, 0},
                        {"3.5", false, 0},
                        {"1e5", false, 0},
                        {"", false, 0},
                        {"-", false, 0},
                        {"+-1", false, 0},
                        {"1 2", false, 0},
                        {"12a", false, 0}};
  for (const auto& c : cases) {
    int v = -7;
    EXPECT_EQ(read_integer(c.text, v), c.ok) << c.text;
    EXPECT_EQ(v, c.ok ? c.value : -7) << c.text;
  }
}

}  // namespace
}  // namespace tidemark::core
