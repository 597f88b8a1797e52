#include "graphics/pp_environment.h"

#include <cstdlib>
#include <string>

#include "core/text.h"

namespace tidemark::graphics::pp {

std::string_view environment_value(std::string_view name) {
  if (name.empty()) return {};
  const char* value = std::getenv(std::string(name).c_str());
  if (value == nullptr) return {};
  return core::rtrim(std::string_view(value).substr(0, core::kLineLength));
}

}  // namespace tidemark::graphics::pp
