#pragma once
// The blank-free working copy of a formula, with the map back to the text as typed.
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace tidemark::formula {

// Longest formula kept: a longer text is cut to this many characters, as the
// fixed-length text field that holds a typed line would cut it.
inline constexpr std::size_t kMaxFormulaLength = 1024;

struct WorkingCopy {
  std::string text;                   // the formula with "**" as "^" and no blanks
  std::vector<std::size_t> position;  // position[j]: 1-based position of text[j] as typed

  // The typed position of working-copy index `j`; an index at or past the end maps to
  // one past the last kept character (1 for a formula with nothing in it).
  std::size_t typed_position(std::size_t j) const;
};

// Cuts `typed` to kMaxFormulaLength characters, replaces every "**" (left to right) by
// "^ " so that a double asterisk is the power operator, then removes all blanks,
// recording for each kept character its position in `typed`.
WorkingCopy make_working_copy(std::string_view typed);

}  // namespace tidemark::formula
