#pragma once
// Values read back from the listings and logs the program wrote, for tests that run the
// program on a command file and check its numbers.
#include <cmath>
#include <cstdlib>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

namespace tidemark::testing_support {

// The lines of `text`.
inline std::vector<std::string> text_lines(const std::string& text) {
  std::vector<std::string> lines;
  std::istringstream in(text);
  for (std::string line; std::getline(in, line);) lines.push_back(line);
  return lines;
}

// The number that follows `label` where it first occurs in `text`; NaN when the label
// is not there or no number follows it.
inline double value_after(const std::string& text, std::string_view label) {
  const std::size_t at = text.find(label);
  if (at == std::string::npos) return std::nan("");
  const char* start = text.c_str() + at + label.size();
  char* end = nullptr;
  const double value = std::strtod(start, &end);
  return end == start ? std::nan("") : value;
}

// The whole numbers that follow `label` on its first line, e.g. a list of point numbers.
inline std::vector<int> integers_after(const std::string& text, std::string_view label) {
  std::vector<int> values;
  const std::size_t at = text.find(label);
  if (at == std::string::npos) return values;
  std::istringstream rest(text.substr(at + label.size(), text.find('\n', at) - at - label.size()));
  for (int v; rest >> v;) values.push_back(v);
  return values;
}

}  // namespace tidemark::testing_support
