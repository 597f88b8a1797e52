#pragma once
// One data line of a native-mode file: the values of one point, X Y DY REPS FX1 FX2 FX3
// FX4 in that order, separated by blanks, tabs or commas.
//
//   "0.0  2.049  0.102  2"     -> X=0, Y=2.049, DY=0.102, REPS=2, FX1..FX4 missing
//   "5,0.3,,3"                 -> DY missing (an empty comma field)
//   "5 NaN"                    -> Y missing
#include <array>
#include <string>
#include <string_view>

#include "data/dataset.h"

namespace tidemark::data {

// Parses `line` into `values`, in Column order. Returns false, with `bad_column` set to
// the first column that could not be read, when a value is not a real (see
// core::read_real) or lies beyond single precision, or when X or Y is absent.
//
// - Every "NaN" is first replaced by " -1.E35 " (so it reads as missing wherever it is).
// - An empty field, that is nothing but blanks between two commas or before a leading
//   comma, is missing (-1.E35): "1,,,2" is X=1, Y and DY missing, REPS=2.
// - Omitted trailing columns: DY and FX1..FX4 are missing, REPS is 1.
// - Values after the eighth are ignored, as a Fortran list-directed read ignores them.
// - A carriage return counts as a blank, so files with CR LF line ends read alike.
bool parse_data_line(std::string_view line, std::array<float, kColumnCount>& values,
                     Column& bad_column);

// The message for an unreadable value of point `point` (1-based) in `column`:
// "Native Mode Read Error Reading Data Y(12) Field".
std::string data_error_message(Column column, int point);

}  // namespace tidemark::data
