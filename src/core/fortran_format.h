#pragma once
// Numbers as Fortran edit descriptors write them (gfortran's output is the reference):
// Fw.d, [kP]Ew.d[Ee], [kP]Gw.d[Ee] and Iw[.m]. A value that does not fit its field
// fills the field with '*'.
//
//   format_g(3.14159, 15, 5, 0, 1)  ->  "     3.1416    "   (1PG15.5)
//   format_f(2.5, 6, 2)             ->  "  2.50"            (F6.2)
#include <string>

namespace tidemark::core {

// Fw.d
std::string format_f(double value, int w, int d);

// [scale P]Ew.d[Ee]; e = 0 means no exponent width given.
std::string format_e(double value, int w, int d, int e = 0, int scale = 0);

// [scale P]Gw.d[Ee]; e = 0 means no exponent width given. The scale factor only
// applies when the value is written in E form.
std::string format_g(double value, int w, int d, int e = 0, int scale = 0);

// Iw[.m]; m < 0 means no minimum digit count given.
std::string format_i(long long value, int w, int m = -1);

// The listing format 1PG15.5 that every listing and settings file uses for reals.
std::string format_g15_5(double value);

}  // namespace tidemark::core
