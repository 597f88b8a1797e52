#pragma once
// Splits one line of a graph source into words: keywords, numbers and texts in double
// quotes. Blanks and tabs separate words; "!" outside quotes starts a comment that runs
// to the end of the line; inside a text two double quotes stand for one.
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tidemark::graphics {

struct Token {
  enum class Kind { kWord, kNumber, kText };
  Kind kind = Kind::kWord;
  std::string text{};  // the word as written, or the text without its quotes
  double number = 0;   // the value of a kNumber
};

// The words of `line`, or the reason it cannot be split ("unterminated text").
struct LexedLine {
  std::vector<Token> tokens{};
  std::string error{};
};
LexedLine lex_line(std::string_view line);

// The value of a decimal number written as `word`: optional sign, digits with an
// optional fraction, optional exponent; no value for anything else, and none for a
// number too large for a double.
std::optional<double> number_of(std::string_view word);

}  // namespace tidemark::graphics
