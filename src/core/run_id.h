#pragma once
// Run identifiers: the 20 random capital letters that name each run file and
// temporary file.
#include <string>

#include "core/random.h"

namespace tidemark::core {

inline constexpr int kRunIdLength = 20;

// Each letter is the alphabet's letter at position int(1 + 25 u), u uniform on [0, 1),
// clamped to 1..26; since u never reaches 1, 'Z' never occurs.
std::string run_identifier(Random& random);

}  // namespace tidemark::core
