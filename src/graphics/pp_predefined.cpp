#include "graphics/pp_predefined.h"

#include <fmt/format.h>

namespace tidemark::graphics::pp {

void add_predefined(SymbolTable& symbols, const Environment& environment) {
  char line[24];
  char date[32];
  char time[32];
  const auto date_end =
      fmt::format_to_n(date, sizeof date, "{:04}-{:02}-{:02}", environment.now.tm_year + 1900,
                       environment.now.tm_mon + 1, environment.now.tm_mday);
  const auto time_end =
      fmt::format_to_n(time, sizeof time, "{:02}:{:02}:{:02}", environment.now.tm_hour,
                       environment.now.tm_min, environment.now.tm_sec);
  symbols.append("__FILE__", environment.file);
  symbols.append("__LINE__", line_field(0, line));
  symbols.append("__CURRENT_PATH__", environment.current_path);
  symbols.append("__DATA_PATH__", environment.data_path);
  symbols.append("__ROOT_PATH__", environment.root_path);
  symbols.append("__OS__", "MS_Windows");
  symbols.append("__DATE__", std::string_view(date, date_end.size));
  symbols.append("__TIME__", std::string_view(time, time_end.size));
  symbols.append("__FILE_CHAR__", "/");
  symbols.append("__MS_WINDOWS__", "1");
}

std::string_view line_field(long long line, char (&storage)[24]) {
  const auto end = fmt::format_to_n(storage, sizeof storage, "{:>10}", line);
  return {storage, end.size};
}

}  // namespace tidemark::graphics::pp
