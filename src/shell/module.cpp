#include "shell/module.h"

#include <stdexcept>

namespace tidemark::shell {

void register_mode(ModuleFactories& modes, std::string_view name, ModuleFactory factory) {
  const auto index = find_mode(name);
  if (!index) throw std::invalid_argument("no mode is named " + std::string(name));
  modes[static_cast<std::size_t>(*index - 1)] = std::move(factory);
}

}  // namespace tidemark::shell
