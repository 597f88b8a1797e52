// The directives that change the symbol table or the verbose flag.
#include "graphics/pp_environment.h"
#include "graphics/pp_predefined.h"
#include "graphics/pp_run.h"
#include "graphics/pp_tokens.h"

namespace tidemark::graphics::pp {

namespace {

// A defined value that starts with a blank is stored empty, like a missing value.
std::string_view defined_value(std::string_view value) {
  return value.empty() || value.front() == ' ' ? std::string_view() : value;
}

}  // namespace

// #undef NAME: removes a symbol; unknown names and the first three rows are refused.
bool Run::undefine() {
  const int row = symbols_.find(TokenReader(record_).next().text);
  if (row < static_cast<int>(kFixedRows)) return false;
  symbols_.remove(static_cast<std::size_t>(row));
  return true;
}

// #define NAME VALUE: a new symbol; an existing or blank name is refused.
bool Run::define() {
  TokenReader tokens(record_);
  const std::string_view name = tokens.next().text;
  return symbols_.append(name, defined_value(tokens.next().text));
}

// #environ NAME: a new symbol holding the environment variable NAME, which must be set.
bool Run::define_from_environment() {
  const std::string_view name = TokenReader(record_).next().text;
  const std::string_view value = environment_value(name);
  return !value.empty() && symbols_.append(name, defined_value(value));
}

// #verbose on / #verbose off.
bool Run::set_verbose() {
  const std::string_view word = TokenReader(record_).next().text;
  if (word != "on" && word != "off") return false;
  verbose_ = word == "on";
  return true;
}

}  // namespace tidemark::graphics::pp
