#include "core/text.h"

#include <algorithm>

namespace tidemark::core {

namespace {
bool is_space(char c) { return c == ' ' || c == '\t'; }
char upper(char c) { return (c >= 'a' && c <= 'z') ? static_cast<char>(c - 'a' + 'A') : c; }
}  // namespace

std::string_view rtrim(std::string_view s) {
  while (!s.empty() && s.back() == ' ') s.remove_suffix(1);
  return s;
}

std::string_view trim(std::string_view s) {
  while (!s.empty() && is_space(s.front())) s.remove_prefix(1);
  while (!s.empty() && is_space(s.back())) s.remove_suffix(1);
  return s;
}

bool is_blank(std::string_view s) { return rtrim(s).empty(); }

std::string to_upper(std::string_view s) {
  std::string out(s);
  std::transform(out.begin(), out.end(), out.begin(), upper);
  return out;
}

bool padded_equal(std::string_view a, std::string_view b) { return rtrim(a) == rtrim(b); }

bool starts_with_nocase(std::string_view text, std::string_view prefix) {
  if (text.size() < prefix.size()) return false;
  return std::equal(prefix.begin(), prefix.end(), text.begin(),
                    [](char p, char t) { return upper(p) == upper(t); });
}

std::string cut(std::string_view s, std::size_t n) { return std::string(s.substr(0, n)); }

}  // namespace tidemark::core
