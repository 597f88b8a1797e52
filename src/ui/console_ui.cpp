#include "ui/console_ui.h"

#include <iostream>

namespace tidemark::ui {

ConsoleUi::ConsoleUi() : out_(&std::cerr) {}

void ConsoleUi::message(std::string_view title, const std::vector<std::string>& lines) {
  for (const auto& line : lines) *out_ << title << ": " << line << '\n';
  out_->flush();
}

}  // namespace tidemark::ui
