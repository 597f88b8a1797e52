#pragma once
// Writing a data set as a native-mode file that the reader reads back to the same
// record (see docs/file-formats.md for what round-trips exactly).
#include <string>

#include "data/dataset.h"
#include "ui/ui.h"

namespace tidemark::data {

// The file text of `set`, one "\n"-ended line each, only the fields that are set:
//   ;!FILENAME = name           (a comment: the reader names the record after the file)
//   !HANDLE = text
//   !DSType = n   !CROP_Start = n   !CROP_End = n          (when not missing)
//   !FILETYPE = text   !FILESUBTYPE = text                 (when not blank)
//   !ANSWER(i) = r  for each answer, then !REAL(i) = r, !INTEGER(i) = n, !STRING(i) = text
//                   (reals not missing and finite, integers above -32760, texts not blank)
//   !header_x = text ... !header_fx4 = text                (when not blank)
//   one line per point: X Y DY REPS FX1 FX2 FX3 FX4
// Reals are 1PG15.5 fields (core::format_g15_5); a missing or non-finite point value is
// written as -1.E35 ("   -1.00000E+35"). Integers are plain decimal. Line breaks inside
// a text become blanks. Trailing blanks are not written.
std::string native_text(const DataSet& set);

// Writes native_text(set) to `path` (see save_text); logs "WRITE NATIVE MODE FILE".
bool write_native(const DataSet& set, const std::string& path, ui::Ui& ui, ui::LogSink& log);

}  // namespace tidemark::data
