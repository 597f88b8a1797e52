#pragma once
// Substitution of symbol values into an ordinary line.
#include <string>

#include "graphics/pp_symbols.h"

namespace tidemark::graphics::pp {

// Most replacements of one symbol in one line. A line of core::kLineLength characters
// holds at most that many occurrences; only a value that keeps forming new occurrences
// with the text around it can need more.
inline constexpr int kMaxReplacements = 1024;

// Replaces the symbols of `symbols` in `line`, one symbol after the other in row order.
// Each occurrence of a name (anywhere, also inside a longer word) is replaced by the
// value (an empty value deletes the name), the line is cut to core::kLineLength
// characters, and the search for the same name starts again at the beginning of the
// line. A symbol whose value contains its own name is the exception: each of its
// occurrences is replaced once and the search goes on after the inserted value, so
// the replacement cannot feed itself.
//
// Returns false, leaving `line` part-substituted, when one symbol needs more than
// kMaxReplacements replacements.
//
//   rows A="x A", B="1":  "A B" -> "x A 1"
bool substitute(std::string& line, const SymbolTable& symbols);

}  // namespace tidemark::graphics::pp
