#pragma once
// Helpers for the fixed-length, blank-padded text fields of the program. Strings are
// held without their padding; these give the observable effects of the padding:
// significant length, length limits, and comparison that ignores trailing blanks.
#include <cstddef>
#include <string>
#include <string_view>

namespace tidemark::core {

// Longest text line the program keeps; longer results are cut to this length.
inline constexpr std::size_t kLineLength = 1024;

// The text without its trailing blanks (the significant part of a padded field).
std::string_view rtrim(std::string_view s);

// The text without leading and trailing blanks and tabs.
std::string_view trim(std::string_view s);

// True when the text holds nothing but blanks (or nothing at all).
bool is_blank(std::string_view s);

// ASCII upper case of the text.
std::string to_upper(std::string_view s);

// True when `a` and `b` are equal once both are blank-padded to the same length.
bool padded_equal(std::string_view a, std::string_view b);

// True when `text` begins with `prefix`, letter case ignored (command matching).
bool starts_with_nocase(std::string_view text, std::string_view prefix);

// The text cut to at most `n` characters.
std::string cut(std::string_view s, std::size_t n);

}  // namespace tidemark::core
