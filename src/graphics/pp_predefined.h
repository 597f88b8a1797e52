#pragma once
// The ten predefined symbols that every preprocessor run starts with.
#include <ctime>
#include <string_view>

#include "graphics/pp_symbols.h"

namespace tidemark::graphics::pp {

// Rows of the predefined symbols that the preprocessor updates while it reads.
// These two and __CURRENT_PATH__ (row 2) can never be removed.
inline constexpr std::size_t kFileRow = 0;
inline constexpr std::size_t kLineRow = 1;
inline constexpr std::size_t kFixedRows = 3;

// Where the predefined values come from.
struct Environment {
  std::string_view file;          // __FILE__
  std::string_view current_path;  // __CURRENT_PATH__
  std::string_view data_path;     // __DATA_PATH__
  std::string_view root_path;     // __ROOT_PATH__
  std::tm now{};                  // local time, for __DATE__ and __TIME__
};

// Appends, in this order: __FILE__, __LINE__ ("         0"), __CURRENT_PATH__,
// __DATA_PATH__, __ROOT_PATH__, __OS__ ("MS_Windows"), __DATE__ ("YYYY-MM-DD"),
// __TIME__ ("HH:MM:SS", 24-hour), __FILE_CHAR__ ("/", the directory separator) and
// __MS_WINDOWS__ ("1").
void add_predefined(SymbolTable& symbols, const Environment& environment);

// `line` right-justified in a field of 10 characters (wider only past 10 digits),
// the value of __LINE__.
std::string_view line_field(long long line, char (&storage)[24]);

}  // namespace tidemark::graphics::pp
