#pragma once
// Environment variables as the preprocessor sees them.
#include <string_view>

namespace tidemark::graphics::pp {

// The value of the environment variable `name`, cut to core::kLineLength characters
// and without trailing blanks; empty when the variable is missing, empty or blank
// (all three count as "not set").
std::string_view environment_value(std::string_view name);

}  // namespace tidemark::graphics::pp
