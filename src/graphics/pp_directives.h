#pragma once
// Recognition of preprocessor directive lines.
#include <string_view>

namespace tidemark::graphics::pp {

enum class Directive {
  kNone,  // an ordinary line
  kElse,
  kEndif,
  kIfdef,
  kIfndef,
  kIfenvir,
  kIfnenvir,
  kUndef,
  kDefine,
  kEnviron,
  kInclude,
  kVerbose,
  kUnknown,  // a '#' word followed by a blank or tab that is none of the above
};

// The directive of `line`. A directive is a word starting with '#' in column 1 and
// followed by a blank or a tab; matching is exact and case-sensitive. A line that
// starts with '#' but has no blank or tab after its first word (for example "#else"
// at the end of the line) is not a directive but an ordinary line.
Directive classify(std::string_view line);

// True for the four conditional directives #ifdef, #ifndef, #ifenvir and #ifnenvir.
bool is_conditional(Directive directive);

// True when a line opens a nested block inside a skipped block: any line whose first
// three characters are "#if".
bool opens_skipped_block(std::string_view line);

}  // namespace tidemark::graphics::pp
