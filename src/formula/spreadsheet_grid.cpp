#include "formula/spreadsheet_grid.h"

#include <cmath>
#include <limits>

#include "core/fortran_format.h"
#include "core/missing.h"
#include "core/text.h"

namespace tidemark::formula {

namespace {

constexpr int kNumberWidth = 6;  // the N column
constexpr int kCellWidth = 15;   // every other column
constexpr std::array<std::string_view, data::kColumnCount> kDefaultLabels = {
    "TIME", "CONC", "SEM", "REPS", "FX1", "FX2", "FX3", "FX4"};
// The largest whole number an integer cell holds; beyond it a result is missing.
constexpr double kLargestInteger = 2147483647.0;

std::vector<float>& column_of(data::DataSet& set, int column) {
  return set.columns[static_cast<std::size_t>(column - 2)];
}

std::string right_aligned(std::string_view text, int width) {
  const auto w = static_cast<std::size_t>(width);
  return text.size() >= w ? std::string(text)
                          : std::string(w - text.size(), ' ') + std::string(text);
}

std::string cell_text(const Grid& grid, int row, int column) {
  const double v = grid.value(row, column);
  if (core::is_missing(v)) return right_aligned("NaN", kCellWidth);
  if (Grid::kind(column) == CellKind::kInteger && v == std::trunc(v) &&
      std::fabs(v) <= kLargestInteger) {
    return core::format_i(static_cast<long long>(v), kCellWidth);
  }
  return core::format_g15_5(v);
}

}  // namespace

Grid::Grid(data::DataSet set) : set_(std::move(set)) {
  labels_.emplace_back("N");
  for (int c = 0; c < data::kColumnCount; ++c) {
    const std::string_view header = core::trim(set_.headers[static_cast<std::size_t>(c)]);
    labels_.push_back(core::cut(
        header.empty() ? kDefaultLabels[static_cast<std::size_t>(c)] : header, kLabelLength));
  }
}

CellKind Grid::kind(int column) {
  return column == 1 || column == 2 + data::kReps ? CellKind::kInteger : CellKind::kReal;
}

double Grid::value(int row, int column) const {
  if (column == 1) return row;
  return set_.columns[static_cast<std::size_t>(column - 2)][static_cast<std::size_t>(row - 1)];
}

void Grid::set_value(int row, int column, double v) {
  if (kind(column) == CellKind::kInteger) v = std::round(v);
  const bool fits = std::isfinite(v) && std::fabs(v) <= (kind(column) == CellKind::kInteger
                                                             ? kLargestInteger
                                                             : std::numeric_limits<float>::max());
  column_of(set_, column)[static_cast<std::size_t>(row - 1)] =
      fits ? static_cast<float>(v) : core::kMissingF;
}

std::string grid_text(const Grid& grid) {
  std::string text =
      "Data Spread Sheet: " + grid.set().file_name + ", " + std::to_string(grid.rows()) + " rows\n";
  text += right_aligned(grid.labels()[0], kNumberWidth);
  for (int c = 2; c <= kGridColumns; ++c) text += right_aligned(grid.labels()[c - 1], kCellWidth);
  text += '\n';
  for (int r = 1; r <= grid.rows(); ++r) {
    text += core::format_i(r, kNumberWidth);
    for (int c = 2; c <= kGridColumns; ++c) text += cell_text(grid, r, c);
    text += '\n';
  }
  return text;
}

void write_back(const Grid& grid, data::DataSet& target) {
  target.columns = grid.set().columns;
  target.crop_start = grid.set().crop_start;
  target.crop_end = grid.set().crop_end;
  target.modified = true;
}

}  // namespace tidemark::formula
