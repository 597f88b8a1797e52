#include <string>

#include "ui/ui.h"

namespace tidemark::ui {

void report(Ui& ui, LogSink& log, std::string_view title, const std::vector<std::string>& lines) {
  ui.message(title, lines);
  for (const auto& line : lines) {
    std::string entry(title);
    entry += ": ";
    entry += line;
    log.log(entry);
  }
}

}  // namespace tidemark::ui
