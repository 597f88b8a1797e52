#include "shell/queue_template.h"

#include <array>

#include "core/text.h"

namespace tidemark::shell {

NameParts split_file_name(std::string_view full_name) {
  NameParts parts;
  const auto slash = full_name.find_last_of('/');
  const std::size_t base = slash == std::string_view::npos ? 0 : slash + 1;
  parts.path = std::string(full_name.substr(0, base));
  const std::string_view file = full_name.substr(base);
  const auto dot = file.find_last_of('.');
  const bool has_extension = dot != std::string_view::npos && dot > 0;
  parts.name = std::string(has_extension ? file.substr(0, dot) : file);
  parts.extension = has_extension ? std::string(file.substr(dot)) : std::string();
  return parts;
}

namespace {

struct Placeholder {
  std::string_view text;
  std::string (*value)(const NameParts&);
};

// Longest first, so that a placeholder is always tried before its prefixes.
const std::array<Placeholder, 13> kPlaceholders{{
    {"%extension%", [](const NameParts& p) { return p.extension; }},
    {"%subject%", [](const NameParts& p) { return p.subject; }},
    {"%drive%", [](const NameParts& p) { return p.drive; }},
    {"%~dpnx", [](const NameParts& p) { return p.drive + p.path + p.name + p.extension; }},
    {"%path%", [](const NameParts& p) { return p.path; }},
    {"%name%", [](const NameParts& p) { return p.name; }},
    {"%~dpn", [](const NameParts& p) { return p.drive + p.path + p.name; }},
    {"%~dp", [](const NameParts& p) { return p.drive + p.path; }},
    {"%~nx", [](const NameParts& p) { return p.name + p.extension; }},
    {"%~d", [](const NameParts& p) { return p.drive; }},
    {"%~p", [](const NameParts& p) { return p.path; }},
    {"%~n", [](const NameParts& p) { return p.name; }},
    {"%~x", [](const NameParts& p) { return p.extension; }},
}};

}  // namespace

std::string expand_template(std::string_view text, const NameParts& parts) {
  std::string out;
  out.reserve(text.size());
  std::size_t i = 0;
  while (i < text.size()) {
    bool replaced = false;
    if (text[i] == '%') {
      for (const Placeholder& p : kPlaceholders) {
        if (core::starts_with_nocase(text.substr(i), p.text)) {
          out += p.value(parts);
          i += p.text.size();
          replaced = true;
          break;
        }
      }
    }
    if (!replaced) out += text[i++];
  }
  return out;
}

}  // namespace tidemark::shell
