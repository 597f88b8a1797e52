#include "shell/queue_params.h"

#include "core/text.h"

namespace tidemark::shell {

std::vector<QueueEntry> parse_queue_parameters(std::string_view text) {
  std::vector<QueueEntry> entries;
  std::size_t start = 0;
  while (start < text.size()) {
    const std::size_t end = std::min(text.find('\n', start), text.size());
    std::string_view line = text.substr(start, end - start);
    if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
    line = core::trim(line);
    start = end + 1;
    if (line.empty() || line.front() == '!') continue;
    const std::size_t bar = line.rfind(" | ");
    if (bar == std::string_view::npos) {
      entries.push_back({std::string(line), {}});
    } else {
      entries.push_back({std::string(core::trim(line.substr(0, bar))),
                         std::string(core::trim(line.substr(bar + 3)))});
    }
  }
  return entries;
}

}  // namespace tidemark::shell
