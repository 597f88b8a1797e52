#pragma once
// Reading of one record (one text line) from a preprocessor input file.
#include <istream>
#include <string>

namespace tidemark::graphics::pp {

// Reads the next line of `in` into `record` and returns true; returns false at the end
// of the file (or on a read error) when nothing is left. The line ending ("\n" or
// "\r\n") is not kept, and a line longer than core::kLineLength is cut to that length
// (the rest of the line is skipped: one record is one line).
bool read_record(std::istream& in, std::string& record);

}  // namespace tidemark::graphics::pp
