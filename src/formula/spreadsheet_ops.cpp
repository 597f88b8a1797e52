#include "formula/spreadsheet_ops.h"

#include <array>
#include <cmath>
#include <string>
#include <utility>
#include <vector>

#include "core/missing.h"

namespace tidemark::formula {

namespace {

constexpr const char* kTitle = "Data Spread Sheet";

SheetResult refuse(std::string line) {
  return SheetResult::failure(kTitle, {std::move(line)});
}

SheetResult too_few_rows(int kept) {
  return refuse("The result would keep " + std::to_string(kept) + " rows; at least " +
                std::to_string(kMinimumRows) + " are needed. Nothing was changed.");
}

void clear_crop(data::DataSet& set) {
  set.crop_start = core::kMissingInt;
  set.crop_end = core::kMissingInt;
}

// Keeps the rows from..to (1-based, inclusive) stepping by `step`.
SheetResult keep_rows(Grid& grid, int from, int to, int step) {
  const int kept = (to - from) / step + 1;
  if (kept < kMinimumRows) return too_few_rows(kept);
  for (auto& column : grid.set().columns) {
    std::vector<float> rows;
    for (int r = from; r <= to; r += step) rows.push_back(column[static_cast<std::size_t>(r - 1)]);
    column = std::move(rows);
  }
  clear_crop(grid.set());
  return SheetResult::success();
}

// One column's summary over the rows from..to-1 that `use` marks, skipping its own
// missing cells.
float summarise(const std::vector<float>& column, const std::vector<bool>& use, std::size_t from,
                std::size_t to, int which) {
  double sum = 0;
  double squares = 0;
  int m = 0;
  for (std::size_t i = from; i < to; ++i) {
    if (!use[i] || core::is_missing(column[i])) continue;
    sum += column[i];
    squares += double(column[i]) * column[i];
    ++m;
  }
  if (m == 0) return core::kMissingF;
  if (which == data::kReps) return static_cast<float>(sum);
  if (which == data::kDY) return static_cast<float>(std::sqrt(squares) / m);
  return static_cast<float>(sum / m);
}

// True for the columns that describe the concentration of a row: its time, its SEM and
// its replicates are averaged only over the rows whose concentration is present.
bool follows_concentration(int column) {
  return column == data::kX || column == data::kY || column == data::kDY || column == data::kReps;
}

}  // namespace

SheetResult average_rows(Grid& grid, int bin_size) {
  if (bin_size < 1) return refuse("Bin Size must be at least 1.");
  const auto n = static_cast<std::size_t>(grid.rows());
  const auto bin = static_cast<std::size_t>(bin_size);
  const std::size_t bins = (n + bin - 1) / bin;
  if (bins < kMinimumRows) return too_few_rows(static_cast<int>(bins));
  const std::vector<float>& y = grid.set().y();
  const std::vector<bool> every(n, true);
  std::vector<bool> measured(n);
  for (std::size_t i = 0; i < n; ++i) measured[i] = !core::is_missing(y[i]);
  // A bin without any concentration keeps its mean time, so that the row stays in its
  // place on the time axis; its concentration, SEM and REPS are missing.
  std::vector<bool> bin_measured(bins, false);
  for (std::size_t i = 0; i < n; ++i) bin_measured[i / bin] = bin_measured[i / bin] || measured[i];
  std::array<std::vector<float>, data::kColumnCount> averaged;
  for (int c = 0; c < data::kColumnCount; ++c) {
    const auto& column = grid.set().columns[static_cast<std::size_t>(c)];
    for (std::size_t from = 0, b = 0; from < n; from += bin, ++b) {
      const bool time_only = c == data::kX && !bin_measured[b];
      const std::vector<bool>& use = follows_concentration(c) && !time_only ? measured : every;
      averaged[static_cast<std::size_t>(c)].push_back(
          summarise(column, use, from, std::min(from + bin, n), c));
    }
  }
  grid.set().columns = std::move(averaged);
  clear_crop(grid.set());
  return SheetResult::success();
}

SheetResult select_rows(Grid& grid, int every, int start) {
  if (every < 1) return refuse("One every must be at least 1.");
  if (start < 1 || start > grid.rows()) {
    return refuse("points starting at must be a row from 1 to " + std::to_string(grid.rows()) +
                  ".");
  }
  return keep_rows(grid, start, grid.rows(), every);
}

SheetResult crop_rows(Grid& grid) {
  return keep_rows(grid, grid.set().first_point(), grid.set().last_point(), 1);
}

SheetResult shuffle_rows(Grid& grid, core::Random& random) {
  auto& columns = grid.set().columns;
  for (int i = grid.rows(); i >= 2; --i) {
    const auto j = static_cast<std::size_t>(random.uniform() * i);
    for (int c = 0; c < data::kColumnCount; ++c) {
      if (c == data::kX) continue;
      std::swap(columns[static_cast<std::size_t>(c)][static_cast<std::size_t>(i - 1)],
                columns[static_cast<std::size_t>(c)][j]);
    }
  }
  return SheetResult::success();
}

SheetResult corrupt_values(Grid& grid, int percent, core::Random& random) {
  if (percent < 0) return refuse("% must not be negative.");
  const double scale = percent / 100.0;
  for (float& y : grid.set().y()) {
    if (!core::is_missing(y)) y = static_cast<float>(y * (1.0 + scale * random.gaussian12()));
  }
  return SheetResult::success();
}

}  // namespace tidemark::formula
