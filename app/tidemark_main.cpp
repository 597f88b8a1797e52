// The headless program: the whole command language, no windows, with the parts that
// components.h registers.
#include <string>
#include <vector>

#include "components.h"
#include "ui/console_ui.h"

int main(int argc, char** argv) {
  const std::vector<std::string> args(argv + 1, argv + argc);
  tidemark::ui::ConsoleUi console;
  static const tidemark::shell::Components parts = tidemark::app::registered_components();
  return tidemark::shell::run_program({"Tidemark", TIDEMARK_VERSION}, args, console, parts);
}
