// The headless program: the whole command language, no windows. Modes are registered
// here in menu order as their drivers are built; until then each answers that it is not
// available.
#include <string>
#include <vector>

#include "shell/module.h"
#include "shell/program.h"
#include "ui/console_ui.h"

int main(int argc, char** argv) {
  const std::vector<std::string> args(argv + 1, argv + argc);
  tidemark::ui::ConsoleUi console;
  static const tidemark::shell::ModuleFactories modes{};
  return tidemark::shell::run_program({"Tidemark", TIDEMARK_VERSION}, args, console, modes);
}
