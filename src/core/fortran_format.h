#pragma once
// Numbers as Fortran edit descriptors write them (gfortran's output is the reference):
// [kP]Fw.d, [kP]Ew.d[Ee], [kP]Gw.d[Ee] and Iw[.m]. A value that does not fit its field
// fills the field with '*'.
//
//   format_g(3.14159, 15, 5, 0, 1)  ->  "     3.1416    "   (1PG15.5)
//   format_f(2.5, 6, 2)             ->  "  2.50"            (F6.2)
//
// Common rules (docs/number-formats.md has the full table):
// - Digits are the exact binary value rounded half to even (gfortran's default mode).
// - A negative value keeps its '-' even when it rounds to zero ("-0.00"), and so does -0.
// - The zero before the decimal point of a value below 1 is dropped when the field is
//   otherwise too narrow (F4.2 of -0.5 is "-.50"); with no decimals it is never dropped.
// - Infinity is written "Infinity" (from width 8, 9 when negative) or "Inf"; NaN is
//   "NaN"; right-justified, '*' when even the short form does not fit.
// - A descriptor that Fortran rejects (w < 1, d < 0, e < 0, or for the E form a scale
//   factor outside -d < k < d + 2) gives a field of '*' (empty when w < 1).
#include <string>

namespace tidemark::core {

// [scale P]Fw.d: value × 10^scale rounded to d decimals, "[-]iii.ddd" right-justified.
std::string format_f(double value, int w, int d, int scale = 0);

// [scale P]Ew.d[Ee]; e = 0 means no exponent width given. With the value written as
// 0.D1D2... × 10^X, the mantissa is "0." + (-k zeros) + d + k digits for k <= 0, and
// k digits + "." + d - k + 1 digits for k > 0; the exponent is X - k (0 for a zero
// value). Without Ee the exponent is "E+nn" up to 99 and "+nnn" above (the 'E' dropped);
// with Ee it is "E+" and e digits, '*' when it needs more.
//   format_e(-0.5, 12, 4)      ->  " -0.5000E+00"   (E12.4)
//   format_e(1e100, 12, 4)     ->  "  0.1000+101"
std::string format_e(double value, int w, int d, int e = 0, int scale = 0);

// [scale P]Gw.d[Ee]; e = 0 means no exponent width given. Zero, and |value| in
// [b(-1), b(d)) with b(X) = 10^X × (1 - 0.5 / 10^d) computed in double arithmetic, take
// the F form F(w-n).(d-X) followed by n blanks (n = 4, or e + 2 with Ee), X the smallest
// with |value| < b(X) (zero: X = 1); all other values, and all when d = 0, the E form
// [scale P]Ew.d[Ee]. The scale factor only applies when the value is written in E form.
//   format_g(99999.4, 15, 5)   ->  "     99999.    "
//   format_g(99999.5, 15, 5)   ->  "    0.10000E+06"
std::string format_g(double value, int w, int d, int e = 0, int scale = 0);

// Iw[.m]; m < 0 means no minimum digit count given. At least m digits, zero-padded;
// I w.0 writes the value 0 as blanks.
std::string format_i(long long value, int w, int m = -1);

// The listing format 1PG15.5 that every listing and settings file uses for reals.
//   format_g15_5(99999.5)  ->  "    9.99995E+04"   (the E form carries 6 digits)
std::string format_g15_5(double value);

}  // namespace tidemark::core
