#pragma once
// One data set's row of the summary books: the results the analyses keep, each in the
// spreadsheet column (A, B, ..., Z, AA, AB, ...) that its analysis owns.
#include <map>
#include <string>
#include <string_view>

namespace tidemark::data {

struct SummaryCell {
  std::string title;  // the column's title in the book's heading row
  float value = 0;    // single precision, as the results are kept; missing allowed
  bool operator==(const SummaryCell&) const = default;
};

// Orders column letters as a spreadsheet does: shorter first, then alphabetically, so
// Z comes before AA.
struct ColumnLetterOrder {
  using is_transparent = void;
  bool operator()(std::string_view a, std::string_view b) const {
    return a.size() != b.size() ? a.size() < b.size() : a < b;
  }
};

using SummaryRow = std::map<std::string, SummaryCell, ColumnLetterOrder>;

// The column number of spreadsheet letters: A is 1, Z 26, AA 27, AP 42; 0 for a text
// that is not one to three capital letters.
int column_number(std::string_view letters);

// The letters of column `number` (1 or more): 1 is A, 27 AA.
std::string column_letters(int number);

}  // namespace tidemark::data
