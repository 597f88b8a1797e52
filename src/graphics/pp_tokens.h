#pragma once
// The next-token reader of the preprocessor's directives.
#include <string_view>

namespace tidemark::graphics::pp {

// How a token was written.
enum class TokenKind : int {
  kNone = -1,   // the rest of the line is blank: no token
  kPlain = 0,   // runs to the next blank or tab
  kQuoted = 1,  // "text": runs to the next double quote, taken without the quotes
  kAngled = 2,  // <text>: runs to the next '>', taken without the brackets
};

struct Token {
  TokenKind kind = TokenKind::kNone;
  std::string_view text;  // empty for kNone
};

// Splits the arguments of a directive line into tokens. The directive word (everything
// up to the first blank or tab) is removed first; leading blanks and tabs are skipped
// before every token. A quoted or angled token without its closing character runs to
// the end of the line, trailing blanks removed. The views point into `line`.
//
//   TokenReader r("#define PI 3.14");
//   r.next().text;  // "PI"
//   r.next().text;  // "3.14"
//   r.next().kind;  // TokenKind::kNone
class TokenReader {
 public:
  explicit TokenReader(std::string_view line);

  // The next token; successive calls return successive tokens.
  Token next();

 private:
  std::string_view rest_;
};

}  // namespace tidemark::graphics::pp
