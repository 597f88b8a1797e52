#pragma once
// Reading one number the way a Fortran list-directed READ accepts it, for the program's
// text files (native-mode data files, settings). The text is one item: blanks and tabs
// around it are ignored, anything else in it makes the read fail.
//
//   Real:    [sign] digits [. [digits]] [exponent]  or  [sign] . digits [exponent]
//            exponent = (E|e|D|d|Q|q) [sign] digits,  or  sign digits ("1.0-5" = 1.0E-5)
//   Integer: [sign] digits
//
//   double v;  read_real("1.0D-3", v)  ->  true, v = 0.001
//   int n;     read_integer("+5", n)   ->  true, n = 5
//   float f;   read_real("4.2O", f)    ->  false, f unchanged
//
// Where gfortran would store a non-finite value, these reads fail instead, so that no
// NaN or infinity ever enters the program's data: "NaN", "Inf" and "Infinity" are
// refused, and so is a value whose magnitude is beyond the target type ("1e999" for a
// double, "1e39" for a float). A value too small for the type reads as zero of its sign,
// as in Fortran. Repeat counts ("2*3") and the slash terminator are not accepted.
// Decimal-to-binary conversion is correctly rounded straight to the target type.
#include <string_view>

namespace tidemark::core {

// Reads a real into `value`; false, and `value` unchanged, when `text` is not one.
bool read_real(std::string_view text, double& value);
bool read_real(std::string_view text, float& value);

// Reads a 32-bit integer into `value`; false, and `value` unchanged, when `text` is not
// an integer or is outside the range of int.
bool read_integer(std::string_view text, int& value);

}  // namespace tidemark::core
