#include "graphics/pp_substitute.h"

#include <array>

#include "core/text.h"

namespace tidemark::graphics::pp {

namespace {

using CharSet = std::array<bool, 256>;

unsigned char byte(char c) {
  return static_cast<unsigned char>(c);
}

// The characters present in `line`: a name whose first character is absent cannot
// occur, which spares the search for most symbols on most lines.
void collect_chars(const std::string& line, CharSet& present) {
  present.fill(false);
  for (const char c : line) present[byte(c)] = true;
}

// Replaces every occurrence of one symbol; returns the number of replacements made,
// or -1 when there would be more than kMaxReplacements.
int replace_symbol(std::string& line, const Symbol& symbol) {
  const bool self_referencing = symbol.value.find(symbol.name) != std::string::npos;
  int count = 0;
  std::size_t from = 0;
  for (std::size_t at = line.find(symbol.name); at != std::string::npos;
       at = line.find(symbol.name, from)) {
    if (++count > kMaxReplacements) return -1;
    line.replace(at, symbol.name.size(), symbol.value);
    if (line.size() > core::kLineLength) line.resize(core::kLineLength);
    from = self_referencing ? at + symbol.value.size() : 0;
  }
  return count;
}

}  // namespace

bool substitute(std::string& line, const SymbolTable& symbols) {
  CharSet present;
  collect_chars(line, present);
  for (const Symbol& symbol : symbols.rows()) {
    if (!present[byte(symbol.name.front())]) continue;
    const int count = replace_symbol(line, symbol);
    if (count < 0) return false;
    if (count > 0) collect_chars(line, present);
  }
  return true;
}

}  // namespace tidemark::graphics::pp
