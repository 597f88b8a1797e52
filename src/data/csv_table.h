#pragma once
// Splits comma-separated text as spreadsheets export it into rows of cells. The
// separator is taken from the first line: a semicolon when it holds one outside double
// quotes, else a tab when it holds one, else a comma. A cell may be enclosed in double
// quotes, with its double quotes doubled and line breaks inside; blank lines are
// skipped; CR LF line ends read as LF.
//
//   const CsvTable t = split_csv("time;LH\n0;1,5\n");
//   t.separator == ';', t.rows[1].cells == {"0", "1,5"}, t.rows[1].line == 2
#include <string>
#include <string_view>
#include <vector>

namespace tidemark::data {

struct CsvRow {
  int line = 0;  // 1-based line of the file where the row starts
  std::vector<std::string> cells;
};

struct CsvTable {
  bool ok_ = true;
  std::string message;  // why the text could not be split, naming line and column
  char separator = ',';
  std::vector<CsvRow> rows;
  bool ok() const { return ok_; }
};

CsvTable split_csv(std::string_view text);

}  // namespace tidemark::data
