#include "data/csv_table.h"

#include <fmt/format.h>

namespace tidemark::data {

namespace {

// The separator of the first line, counting only characters outside double quotes.
char detect_separator(std::string_view text) {
  bool quoted = false;
  bool tab = false;
  bool semicolon = false;
  for (const char c : text) {
    if (c == '"') quoted = !quoted;
    if (quoted) continue;
    if (c == '\n') break;
    semicolon = semicolon || c == ';';
    tab = tab || c == '\t';
  }
  return semicolon ? ';' : tab ? '\t' : ',';
}

bool blank_row(const CsvRow& row) {
  return row.cells.size() == 1 && row.cells.front().find_first_not_of(" \t") == std::string::npos;
}

}  // namespace

CsvTable split_csv(std::string_view text) {
  CsvTable table;
  table.separator = detect_separator(text);
  CsvRow row{1, {std::string()}};
  int line = 1;
  int column = 1;
  bool quoted = false;       // inside a quoted cell
  bool after_quote = false;  // a quoted cell has closed; only blanks may follow
  int quote_line = 0;
  int quote_column = 0;
  const auto end_row = [&] {
    if (!blank_row(row)) table.rows.push_back(std::move(row));
    row = CsvRow{line, {std::string()}};
    after_quote = false;
  };
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char c = text[i];
    if (quoted) {
      if (c == '"' && i + 1 < text.size() && text[i + 1] == '"') {
        row.cells.back() += '"';
        ++i;
        column += 2;
        continue;
      }
      if (c == '"') {
        quoted = false;
        after_quote = true;
      } else if (c != '\r' || i + 1 >= text.size() || text[i + 1] != '\n') {
        row.cells.back() += c;
      }
      if (c == '\n') {
        ++line;
        column = 1;
      } else {
        ++column;
      }
      continue;
    }
    if (c == '\r' && i + 1 < text.size() && text[i + 1] == '\n') continue;
    if (c == '\n') {
      ++line;
      column = 1;
      end_row();
      continue;
    }
    if (c == table.separator) {
      row.cells.emplace_back();
      after_quote = false;
    } else if (c == '"' && row.cells.back().find_first_not_of(" \t") == std::string::npos &&
               !after_quote) {
      row.cells.back().clear();
      quoted = true;
      quote_line = line;
      quote_column = column;
    } else if (after_quote && c != ' ' && c != '\t') {
      table.ok_ = false;
      table.message = fmt::format("Line {}, character {}: text after a closing double quote", line,
                                  column);
      return table;
    } else if (!after_quote) {
      row.cells.back() += c;
    }
    ++column;
  }
  if (quoted) {
    table.ok_ = false;
    table.message = fmt::format("Line {}, character {}: a double quote is not closed", quote_line,
                                quote_column);
    return table;
  }
  end_row();
  return table;
}

}  // namespace tidemark::data
