#include "history_options.h"

#include <string>

namespace tidemark::gui {

namespace {

constexpr std::string_view kCommand = "GRF_OPTION \"";

// One recorded line: GRF_OPTION "label" ON|OFF.
void apply_line(std::string_view line, graphics::OptionStates& states) {
  if (!line.starts_with(kCommand)) return;
  const std::size_t close = line.rfind('"');
  if (close < kCommand.size()) return;
  const std::string_view state = line.substr(close + 1);
  const std::string label(line.substr(kCommand.size(), close - kCommand.size()));
  if (state == " ON") states[label] = true;
  if (state == " OFF") states[label] = false;
}

}  // namespace

void apply_option_lines(std::string_view history, graphics::OptionStates& states) {
  while (!history.empty()) {
    const std::size_t end = history.find('\n');
    std::string_view line = history.substr(0, end);
    if (line.ends_with('\r')) line.remove_suffix(1);
    apply_line(line, states);
    if (end == std::string_view::npos) break;
    history.remove_prefix(end + 1);
  }
}

}  // namespace tidemark::gui
