#include "formula/spreadsheet_formula.h"

#include <charconv>
#include <optional>
#include <string>
#include <vector>

#include "core/missing.h"
#include "core/text.h"
#include "formula/opcodes.h"

namespace tidemark::formula {

namespace {

constexpr std::size_t kLeftSideLength = 80;
constexpr const char* kParseErrorTitle = "Function Parse Error";

SheetResult parse_error(std::vector<std::string> lines) {
  return SheetResult::failure(kParseErrorTitle, std::move(lines));
}

// A row bound: blank gives `if_blank`, else a whole number written alone.
std::optional<int> read_bound(std::string_view text, int if_blank) {
  text = core::trim(text);
  if (text.empty()) return if_blank;
  int v = 0;
  const auto [end, ec] = std::from_chars(text.data(), text.data() + text.size(), v);
  if (ec != std::errc() || end != text.data() + text.size()) return std::nullopt;
  return v;
}

// The rows named by `range`, the text after the "(" of the left side; no value when it
// does not read as "first:last)" inside 1..rows.
std::optional<RowRange> read_range(std::string_view range, int rows) {
  const std::size_t colon = range.find(':');
  const std::size_t close = range.find(')');
  if (colon == std::string_view::npos || close == std::string_view::npos || close < colon ||
      !core::trim(range.substr(close + 1)).empty()) {
    return std::nullopt;
  }
  const auto first = read_bound(range.substr(0, colon), 1);
  const auto last = read_bound(range.substr(colon + 1, close - colon - 1), rows);
  if (!first || !last || *first < 1 || *first > *last || *last > rows) return std::nullopt;
  return RowRange{*first, *last};
}

// The variables (1-based) that the compiled formula reads.
std::vector<int> variables_read(const CompiledFormula& formula) {
  std::vector<int> read;
  for (const std::uint8_t code : formula.byte_code) {
    if (code >= kFirstVariable) read.push_back(code - kFirstVariable + 1);
  }
  return read;
}

// The target of the left side: the column (2..9) and rows, or the refusal.
struct Target {
  int column = 0;
  RowRange rows;
};

std::optional<Target> read_left_side(const Grid& grid, std::string_view text,
                                     SheetResult& refusal) {
  const std::string left(core::trim(core::cut(text, kLeftSideLength)));
  std::string label = left;
  Target target{0, {1, grid.rows()}};
  const std::size_t open = left.find('(');
  if (open != std::string::npos && open > 0) {
    const auto rows = read_range(std::string_view(left).substr(open + 1), grid.rows());
    if (!rows) {
      refusal = parse_error({"*** Invalid Range " + left + " Left Of Equal Sign"});
      return std::nullopt;
    }
    target.rows = *rows;
    label = core::trim(left.substr(0, open));
  }
  const auto& labels = grid.labels();
  for (std::size_t c = 0; c < labels.size() && target.column == 0; ++c) {
    if (labels[c] == label) target.column = static_cast<int>(c) + 1;
  }
  if (target.column == 0) refusal = parse_error({"*** Unknown Variable " + label});
  if (target.column == 1) refusal = parse_error({"*** N Cannot Be On Left Of Equal Sign"});
  if (target.column <= 1) return std::nullopt;
  return target;
}

}  // namespace

SheetResult assign_formula(Grid& grid, std::string_view text, FunctionParser& parser) {
  const std::size_t equal = text.find('=');
  if (equal == std::string_view::npos) return parse_error({"*** No Equal Sign"});
  SheetResult refusal;
  const auto target = read_left_side(grid, text.substr(0, equal), refusal);
  if (!target) return refusal;

  const std::string_view right = text.substr(equal + 1);
  parser.init_functions(1);
  if (!parser.parse_function(1, right, grid.labels())) {
    return parse_error(
        {parser.syntax_message(), std::string(right), position_marker(parser.syntax_position())});
  }

  const std::vector<int> read = variables_read(parser.slot(1));
  std::vector<double> row_values(kGridColumns);
  std::vector<double> results;
  results.reserve(static_cast<std::size_t>(target->rows.last - target->rows.first + 1));
  for (int r = target->rows.first; r <= target->rows.last; ++r) {
    for (int c = 1; c <= kGridColumns; ++c) row_values[c - 1] = grid.value(r, c);
    bool missing = false;
    for (const int v : read) missing = missing || core::is_missing(row_values[v - 1]);
    if (missing) {
      results.push_back(core::kMissing);
      continue;
    }
    results.push_back(parser.evaluate_function(1, row_values));
    if (parser.eval_error_type() != 0) {
      return SheetResult::failure(
          "Function Evaluation Error",
          {std::string(core::rtrim(parser.eval_error_message())), "Row " + std::to_string(r)});
    }
  }
  int stored_missing = 0;
  for (int r = target->rows.first; r <= target->rows.last; ++r) {
    grid.set_value(r, target->column, results[static_cast<std::size_t>(r - target->rows.first)]);
    if (core::is_missing(grid.value(r, target->column))) ++stored_missing;
  }
  SheetResult status = SheetResult::success();
  if (stored_missing > 0) {
    status.title = "Data Spread Sheet";
    status.lines = {std::to_string(stored_missing) + " of " +
                    std::to_string(target->rows.last - target->rows.first + 1) +
                    " rows were stored as missing (a missing input, a result that is not a "
                    "number, or one beyond the range of the column)."};
  }
  return status;
}

}  // namespace tidemark::formula
