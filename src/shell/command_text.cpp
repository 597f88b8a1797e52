#include "shell/command_text.h"

#include "core/text.h"

namespace tidemark::shell {

bool command_is(std::string_view command, std::string_view name) {
  return core::starts_with_nocase(core::trim(command), name);
}

std::string command_argument(std::string_view command, std::string_view name) {
  std::string_view rest = core::trim(command);
  rest = core::trim(rest.substr(std::min(name.size(), rest.size())));
  const auto open = rest.find('"');
  if (open != std::string_view::npos) {
    const auto close = rest.find('"', open + 1);
    const auto end = close == std::string_view::npos ? rest.size() : close;
    return std::string(rest.substr(open + 1, end - open - 1));
  }
  return std::string(rest);
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
