#pragma once
// Matching a text against a shape: '#' stands for one digit, '@' for one capital
// letter A to Y, '*' for any run of characters (also none); every other character
// stands for itself.
//
//   matches_shape("SEED 123", "SEED #*")  ->  true
#include <cctype>
#include <string_view>

namespace tidemark::testing_support {

inline bool matches_shape(std::string_view text, std::string_view shape) {
  if (shape.empty()) return text.empty();
  if (shape.front() == '*') {
    for (std::size_t skip = 0; skip <= text.size(); ++skip) {
      if (matches_shape(text.substr(skip), shape.substr(1))) return true;
    }
    return false;
  }
  if (text.empty()) return false;
  const char c = text.front();
  const bool ok = shape.front() == '#'   ? std::isdigit(static_cast<unsigned char>(c)) != 0
                  : shape.front() == '@' ? c >= 'A' && c <= 'Y'
                                         : c == shape.front();
  return ok && matches_shape(text.substr(1), shape.substr(1));
}

}  // namespace tidemark::testing_support
