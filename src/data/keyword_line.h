#pragma once
// One keyword line of a native-mode file: a line that starts with "!", whose keyword is
// matched without regard to letter case and whose value follows it, optionally after
// "=" and blanks ("!NX=1", "!header_y = LH", "!ANSWER(12) = 3.5", "!verboseOFF").
#include <string>
#include <string_view>
#include <vector>

#include "data/dataset.h"

namespace tidemark::data {

struct KeywordResult {
  enum class Effect {
    kApplied,     // the value was stored in the record
    kVerboseOn,   // "!VERBOSE ON": report each line read
    kVerboseOff,  // "!verbose" followed by "OFF"
    kUnknown,     // not a keyword of the format: the line is ignored
    kError,       // the read must stop; `messages` says why
  };
  Effect effect = Effect::kApplied;
  std::vector<std::string> messages;
};

// Applies `line` (which starts with "!") to `set`. `file_name` is the name of the file
// being read, for the messages that name it.
//
// Numbers are read from the first item of the value (up to a blank or a comma), as a
// Fortran list-directed read does, with core::read_integer / core::read_real; text
// values are the rest of the line. On failure `set` may hold the values of earlier
// lines only; the messages are those of the native-mode format:
// - !NX, !NY not 1: "!NX value was too big " + file name (or "too small ");
// - a number that cannot be read: "Native Mode Read Error Reading !DSType Field" etc.;
// - a blank text value: "!Invalid HANDLE" (etc.) and the field's read error;
// - indexed slots (!ANSWER, !REAL, !INTEGER, !STRING): "!Invalid INDEX ", "!Invalid
//   VALUE " or, when the "(i)" is malformed, "!UNKNOWN ERROR ", each followed by the
//   line, and then the field's read error;
// - a blank column header: "Native Mode Read Error Reading !Invalid VALUE " + the line.
KeywordResult apply_keyword_line(std::string_view line, std::string_view file_name, DataSet& set);

}  // namespace tidemark::data
