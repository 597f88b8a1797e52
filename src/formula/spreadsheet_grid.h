#pragma once
// The data spreadsheet's grid: a working copy of one data set seen as numbered rows and
// labelled columns. Column 1 is "N", the row number, which nothing writes; columns 2 to
// 9 are the data set's point columns X, Y, DY, REPS, FX1..FX4 in that order.
//
//   Grid grid = make_grid(store.current());
//   grid.value(3, 1)   // 3.0, the row number of row 3
//   grid.labels()[2]   // the concentration column's label, e.g. "LH"
#include <string>
#include <string_view>
#include <vector>

#include "data/dataset.h"

namespace tidemark::formula {

// Number of grid columns: N and the eight point columns.
inline constexpr int kGridColumns = 1 + data::kColumnCount;
// Longest column label; longer headers are cut.
inline constexpr std::size_t kLabelLength = 10;

// The two kinds of cell. An integer column takes a real result rounded to the nearest
// whole number (halves away from zero).
enum class CellKind { kInteger, kReal };

// Outcome of a spreadsheet operation: done, or refused with a message box (title and
// lines) that the caller shows; a refused operation has changed nothing. An operation
// that was done may carry a note for the user in its title and lines.
enum class SheetStatus { kDone, kRefused };

struct SheetResult {
  SheetStatus status = SheetStatus::kDone;
  std::string title;
  std::vector<std::string> lines;

  bool ok() const { return status == SheetStatus::kDone; }
  static SheetResult success() { return {}; }
  static SheetResult failure(std::string title, std::vector<std::string> lines) {
    return {SheetStatus::kRefused, std::move(title), std::move(lines)};
  }
};

class Grid {
 public:
  // A copy of `set`; the labels are its column headers without surrounding blanks, cut
  // to 10 characters, and for a blank header "TIME", "CONC", "SEM", "REPS", "FX1" ...
  // "FX4".
  explicit Grid(data::DataSet set);

  int rows() const { return set_.size(); }
  // The labels of columns 1..9 in column order (index 0 is "N").
  const std::vector<std::string>& labels() const { return labels_; }
  static CellKind kind(int column);

  // The cell of row `row` (1-based) in column `column` (1..9), as stored: single
  // precision, missing values included; column 1 gives the row number.
  double value(int row, int column) const;
  // Stores `v` into a data column (2..9): rounded to single precision, and first to a
  // whole number in an integer column. A non-finite value, or one beyond the range of
  // the column, is stored as missing.
  void set_value(int row, int column, double v);

  // The working copy itself, for the operations that reshape it.
  data::DataSet& set() { return set_; }
  const data::DataSet& set() const { return set_; }

 private:
  data::DataSet set_;
  std::vector<std::string> labels_;
};

// The grid as text: a title line, a line of right-aligned labels, then one line per row:
// N as I6, integer columns as I11, real columns as 1PG15.5 (missing cells as "NaN", the
// text the native reader takes for a missing value).
std::string grid_text(const Grid& grid);

// Writes the grid's points and crop range back into `target`, which keeps its headers,
// names and result slots, and marks it modified ("Accept Changes").
void write_back(const Grid& grid, data::DataSet& target);

}  // namespace tidemark::formula
