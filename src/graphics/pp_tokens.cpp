#include "graphics/pp_tokens.h"

#include "core/text.h"

namespace tidemark::graphics::pp {

namespace {

bool is_blank_or_tab(char c) {
  return c == ' ' || c == '\t';
}

std::string_view skip_blanks(std::string_view s) {
  while (!s.empty() && is_blank_or_tab(s.front())) s.remove_prefix(1);
  return s;
}

std::size_t first_blank_or_tab(std::string_view s) {
  return s.find_first_of(" \t");
}

}  // namespace

TokenReader::TokenReader(std::string_view line) {
  const std::size_t end = first_blank_or_tab(line);
  rest_ = end == std::string_view::npos ? std::string_view() : skip_blanks(line.substr(end));
}

Token TokenReader::next() {
  rest_ = skip_blanks(rest_);
  if (rest_.empty()) return {};
  Token token;
  std::size_t end = 0;       // end of the token's text
  std::size_t consumed = 0;  // characters removed from the line, closing character included
  const char open = rest_.front();
  if (open == '"' || open == '<') {
    token.kind = open == '"' ? TokenKind::kQuoted : TokenKind::kAngled;
    rest_.remove_prefix(1);
    end = rest_.find(open == '"' ? '"' : '>');
    if (end == std::string_view::npos) {
      token.text = core::rtrim(rest_);
      rest_ = {};
      return token;
    }
    consumed = end + 1;
  } else {
    token.kind = TokenKind::kPlain;
    end = first_blank_or_tab(rest_);
    if (end == std::string_view::npos) end = rest_.size();
    consumed = end;
  }
  token.text = rest_.substr(0, end);
  rest_.remove_prefix(consumed);
  return token;
}

}  // namespace tidemark::graphics::pp
