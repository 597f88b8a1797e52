#include "shell/command_text.h"

#include "core/text.h"

namespace tidemark::shell {

bool command_is(std::string_view command, std::string_view name) {
  return core::starts_with_nocase(core::trim(command), name);
}

namespace {

// The double quote that closes the one at `open`: the first one followed by a blank or
// the end of the text, so that a file name may hold double quotes ("a"b.dat"); else the
// next one; else the end of the text.
std::size_t closing_quote(std::string_view text, std::size_t open) {
  for (auto q = text.find('"', open + 1); q != std::string_view::npos; q = text.find('"', q + 1)) {
    if (q + 1 == text.size() || text[q + 1] == ' ' || text[q + 1] == '\t') return q;
  }
  const auto next = text.find('"', open + 1);
  return next == std::string_view::npos ? text.size() : next;
}

}  // namespace

std::string command_argument(std::string_view command, std::string_view name) {
  std::string_view rest = core::trim(command);
  rest = core::trim(rest.substr(std::min(name.size(), rest.size())));
  const auto open = rest.find('"');
  if (open != std::string_view::npos) {
    const auto end = closing_quote(rest, open);
    return std::string(rest.substr(open + 1, end - open - 1));
  }
  return std::string(rest);
}

std::string text_after_argument(std::string_view command, std::string_view name) {
  std::string_view rest = core::trim(command);
  rest = core::trim(rest.substr(std::min(name.size(), rest.size())));
  const auto open = rest.find('"');
  if (open == std::string_view::npos) return {};
  const auto end = closing_quote(rest, open);
  return end >= rest.size() ? std::string() : std::string(core::trim(rest.substr(end + 1)));
}

std::vector<std::string> quoted_arguments(std::string_view command, std::string_view name) {
  std::string_view rest = core::trim(command);
  rest = rest.substr(std::min(name.size(), rest.size()));
  std::vector<std::string> arguments;
  for (auto open = rest.find('"'); open != std::string_view::npos; open = rest.find('"')) {
    const auto end = closing_quote(rest, open);
    arguments.emplace_back(rest.substr(open + 1, end - open - 1));
    rest = end >= rest.size() ? std::string_view() : rest.substr(end + 1);
  }
  return arguments;
}

std::optional<std::string> command_of_line(std::string_view line) {
  if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
  const std::string_view text = core::trim(line);
  if (text.empty() || text.front() == '!') return std::nullopt;
  return std::string(text);
}

std::string command_with_file(std::string_view name, std::string_view file) {
  std::string text(name);
  text += " \"";
  text += file;
  text += '"';
  return text;
}

}  // namespace tidemark::shell
