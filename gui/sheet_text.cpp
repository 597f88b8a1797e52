#include "sheet_text.h"

#include <sstream>

#include "core/text.h"

namespace tidemark::gui {

namespace {

// The row number's cell is 6 wide, every other label's 15.
constexpr std::size_t kNumberWidth = 6;
constexpr std::size_t kCellWidth = 15;

std::vector<std::string> words(const std::string& line) {
  std::istringstream in(line);
  std::vector<std::string> out;
  for (std::string w; in >> w;) out.push_back(w);
  return out;
}

}  // namespace

SheetTable read_sheet_text(std::string_view text) {
  SheetTable table;
  std::istringstream in{std::string(text)};
  std::string line;
  if (!std::getline(in, table.title) || !std::getline(in, line) || line.size() <= kNumberWidth)
    return table;
  std::vector<std::string> labels{std::string(core::trim(line.substr(0, kNumberWidth)))};
  // A label with a blank inside still takes one cell.
  for (std::size_t at = kNumberWidth; at < line.size(); at += kCellWidth)
    labels.emplace_back(core::trim(line.substr(at, kCellWidth)));
  while (std::getline(in, line)) {
    std::vector<std::string> cells_of_row = words(line);
    if (cells_of_row.size() != labels.size()) continue;
    table.rows.push_back(std::move(cells_of_row));
  }
  table.labels = std::move(labels);
  return table;
}

}  // namespace tidemark::gui
