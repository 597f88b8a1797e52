#pragma once
// The data spreadsheet's grid as the shell shows it (a title line, a line of column
// labels right-aligned in cells 15 wide after the row number's 6, then one line of
// numbers per row) read back into cells for the grid of the window.
#include <string>
#include <string_view>
#include <vector>

namespace tidemark::gui {

struct SheetTable {
  std::string title;
  std::vector<std::string> labels;             // N first
  std::vector<std::vector<std::string>> rows;  // the cells' texts, N first
};

// No labels when the text is not a grid.
SheetTable read_sheet_text(std::string_view text);

}  // namespace tidemark::gui
