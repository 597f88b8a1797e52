#include "graphics/pp_directives.h"

#include <array>
#include <utility>

namespace tidemark::graphics::pp {

Directive classify(std::string_view line) {
  if (line.empty() || line.front() != '#') return Directive::kNone;
  const std::size_t end = line.find_first_of(" \t");
  if (end == std::string_view::npos) return Directive::kNone;
  static constexpr std::array<std::pair<std::string_view, Directive>, 11> kWords{{
      {"#else", Directive::kElse},
      {"#endif", Directive::kEndif},
      {"#ifdef", Directive::kIfdef},
      {"#ifndef", Directive::kIfndef},
      {"#ifenvir", Directive::kIfenvir},
      {"#ifnenvir", Directive::kIfnenvir},
      {"#undef", Directive::kUndef},
      {"#define", Directive::kDefine},
      {"#environ", Directive::kEnviron},
      {"#include", Directive::kInclude},
      {"#verbose", Directive::kVerbose},
  }};
  const std::string_view word = line.substr(0, end);
  for (const auto& [text, directive] : kWords) {
    if (word == text) return directive;
  }
  return Directive::kUnknown;
}

bool is_conditional(Directive directive) {
  return directive == Directive::kIfdef || directive == Directive::kIfndef ||
         directive == Directive::kIfenvir || directive == Directive::kIfnenvir;
}

bool opens_skipped_block(std::string_view line) {
  return line.starts_with("#if");
}

}  // namespace tidemark::graphics::pp
