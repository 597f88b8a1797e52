#include "file_filter.h"

namespace tidemark::gui {

namespace {

// "(*.ps;*.eps)" -> "(*.ps *.eps)", "(*.*)" -> "(*)".
std::string qt_patterns(std::string text) {
  for (std::size_t at; (at = text.find("*.*")) != std::string::npos;) text.replace(at, 3, "*");
  for (char& c : text) {
    if (c == ';') c = ' ';
  }
  return text;
}

}  // namespace

std::vector<std::string> name_filters(std::string_view filter) {
  std::vector<std::string> parts;
  std::size_t start = 0;
  while (start < filter.size()) {
    std::size_t bar = filter.find('|', start);
    if (bar == std::string_view::npos) bar = filter.size();
    parts.emplace_back(filter.substr(start, bar - start));
    start = bar + 1;
  }
  // Entries come in pairs: the description, then the patterns it stands for.
  std::vector<std::string> filters;
  for (std::size_t i = 0; i < parts.size(); i += 2) {
    if (parts[i].empty()) continue;
    std::string description = parts[i];
    if (description.find('(') == std::string::npos && i + 1 < parts.size())
      description += " (" + parts[i + 1] + ")";
    filters.push_back(qt_patterns(description));
  }
  return filters;
}

}  // namespace tidemark::gui
