#pragma once
// The summary books: one comma-separated table of every data set in the store with the
// results its analyses kept, for a spreadsheet program (command WRITE_SUMMARY_BOOKS).
#include <string>

#include "data/store.h"
#include "ui/ui.h"

namespace tidemark::data {

// The book's text. The heading row gives each column its title; column A is "File
// Name" and every result stands in the column its analysis owns, so the table opens in
// a spreadsheet with each result under its own letter (ApEn's cycle count in Q, the
// Cosine period in AK). Columns that no data set has filled stay empty up to the last
// filled one. Then one row per data set, in store order: its file name, then its
// results (an empty cell where it has none, or the result is missing). Each line ends
// with "\n". A title is the one of the first data set that fills the column.
std::string summary_book_text(const Store& store);

// Writes summary_book_text(store) to `path`, replacing the file whole; logs
// "WRITE SUMMARY BOOKS FILE", or reports the failure and returns false.
bool write_summary_book(const Store& store, const std::string& path, ui::Ui& ui, ui::LogSink& log);

}  // namespace tidemark::data
