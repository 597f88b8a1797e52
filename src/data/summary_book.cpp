#include "data/summary_book.h"

#include <vector>

#include "data/csv_cells.h"
#include "data/save_text.h"

namespace tidemark::data {

namespace {

// Column A holds the file name; analyses fill columns from B on.
constexpr int kFileNameColumn = 1;

// The title of every column up to the last one filled, index 0 for column A.
std::vector<std::string> column_titles(const Store& store) {
  std::vector<std::string> titles{"File Name"};
  std::vector<bool> titled{true};
  for (int i = 0; i < store.count(); ++i) {
    for (const auto& [letters, cell] : store.at(i).summary) {
      const int column = column_number(letters);
      if (column <= kFileNameColumn) continue;
      if (static_cast<int>(titles.size()) < column) {
        titles.resize(column);
        titled.resize(column, false);
      }
      if (!titled[column - 1]) {
        titles[column - 1] = cell.title;
        titled[column - 1] = true;
      }
    }
  }
  return titles;
}

}  // namespace

std::string summary_book_text(const Store& store) {
  const std::vector<std::string> titles = column_titles(store);
  std::string out;
  for (std::size_t c = 0; c < titles.size(); ++c) {
    if (c > 0) out.push_back(',');
    put_csv_cell(out, titles[c]);
  }
  out.push_back('\n');
  for (int i = 0; i < store.count(); ++i) {
    const DataSet& set = store.at(i);
    put_csv_cell(out, set.file_name);
    for (std::size_t c = 1; c < titles.size(); ++c) {
      out.push_back(',');
      const auto cell = set.summary.find(column_letters(static_cast<int>(c) + 1));
      if (cell != set.summary.end()) put_csv_number(out, cell->second.value);
    }
    out.push_back('\n');
  }
  return out;
}

bool write_summary_book(const Store& store, const std::string& path, ui::Ui& ui, ui::LogSink& log) {
  return save_text(path, summary_book_text(store), "WRITE SUMMARY BOOKS FILE", ui, log);
}

}  // namespace tidemark::data
