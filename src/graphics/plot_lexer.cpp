#include "graphics/plot_lexer.h"

#include <charconv>
#include <cmath>

namespace tidemark::graphics {

namespace {

bool is_blank(char c) {
  return c == ' ' || c == '\t' || c == '\r';
}
bool ends_word(char c) {
  return is_blank(c) || c == '"' || c == '!';
}
bool is_digit(char c) {
  return c >= '0' && c <= '9';
}

// True when `s` has the shape digits[.digits][(E|e)[sign]digits] with at least one
// digit before the exponent (so "inf", "nan" and hexadecimal are not numbers).
bool decimal_shape(std::string_view s) {
  std::size_t i = 0;
  int mantissa_digits = 0;
  while (i < s.size() && is_digit(s[i])) ++i, ++mantissa_digits;
  if (i < s.size() && s[i] == '.') {
    ++i;
    while (i < s.size() && is_digit(s[i])) ++i, ++mantissa_digits;
  }
  if (mantissa_digits == 0) return false;
  if (i < s.size() && (s[i] == 'E' || s[i] == 'e')) {
    ++i;
    if (i < s.size() && (s[i] == '+' || s[i] == '-')) ++i;
    const std::size_t start = i;
    while (i < s.size() && is_digit(s[i])) ++i;
    if (i == start) return false;
  }
  return i == s.size();
}

}  // namespace

std::optional<double> number_of(std::string_view word) {
  bool negative = false;
  if (!word.empty() && (word[0] == '+' || word[0] == '-')) {
    negative = word[0] == '-';
    word.remove_prefix(1);
  }
  if (!decimal_shape(word)) return std::nullopt;
  double value = 0;
  const auto [end, ec] = std::from_chars(word.data(), word.data() + word.size(), value);
  if (ec != std::errc() || end != word.data() + word.size() || !std::isfinite(value)) {
    return std::nullopt;
  }
  return negative ? -value : value;
}

LexedLine lex_line(std::string_view line) {
  LexedLine out;
  std::size_t i = 0;
  while (i < line.size()) {
    const char c = line[i];
    if (is_blank(c)) {
      ++i;
    } else if (c == '!') {
      break;
    } else if (c == '"') {
      Token t{Token::Kind::kText};
      ++i;
      for (;;) {
        if (i >= line.size()) {
          out.error = "unterminated text (closing \" missing)";
          return out;
        }
        if (line[i] == '"') {
          if (i + 1 < line.size() && line[i + 1] == '"') {
            t.text += '"';
            i += 2;
            continue;
          }
          ++i;
          break;
        }
        t.text += line[i++];
      }
      out.tokens.push_back(std::move(t));
    } else {
      const std::size_t start = i;
      while (i < line.size() && !ends_word(line[i])) ++i;
      Token t{Token::Kind::kWord, std::string(line.substr(start, i - start))};
      if (const auto v = number_of(t.text)) {
        t.kind = Token::Kind::kNumber;
        t.number = *v;
      }
      out.tokens.push_back(std::move(t));
    }
  }
  return out;
}

}  // namespace tidemark::graphics
