#include "data/csv_cells.h"

#include <fmt/format.h>

#include <cmath>
#include <iterator>

#include "core/missing.h"

namespace tidemark::data {

void put_csv_cell(std::string& out, std::string_view cell) {
  const bool quoted = cell.find_first_of(",\"\n\r") != std::string_view::npos ||
                      (!cell.empty() && (cell.front() == ' ' || cell.back() == ' '));
  if (!quoted) {
    out.append(cell);
    return;
  }
  out.push_back('"');
  for (char c : cell) {
    if (c == '"') out.push_back('"');
    out.push_back(c);
  }
  out.push_back('"');
}

void put_csv_number(std::string& out, float v) {
  if (std::isfinite(v) && !core::is_missing(v)) fmt::format_to(std::back_inserter(out), "{}", v);
}

}  // namespace tidemark::data
