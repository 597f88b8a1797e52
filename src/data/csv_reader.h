#pragma once
// Reading a comma-separated data file into the data set store (command READ_CSV).
#include <string>

#include "data/csv_import.h"
#include "data/store.h"
#include "ui/ui.h"

namespace tidemark::data {

// Reads `path` with import_csv and appends every data set it gives to `store` (the last
// becomes current); returns whether it did. A failure shows "ERROR READING DATA FILE"
// with "Could Not Read The Data File" and the reason (naming line and column), and adds
// nothing. On success logs the number of data sets and "READ CSV MODE FILE " + path.
bool read_csv(Store& store, const std::string& path, const CsvImportOptions& options, ui::Ui& ui,
              ui::LogSink& log);

}  // namespace tidemark::data
