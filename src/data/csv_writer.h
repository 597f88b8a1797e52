#pragma once
// Writing a data set as comma-separated text for spreadsheets (command WRITE_CSV).
#include <string>
#include <string_view>

#include "data/dataset.h"
#include "ui/ui.h"

namespace tidemark::data {

// Header cells of columns whose header is blank, in Column order.
inline constexpr std::string_view kDefaultHeaders[kColumnCount] = {"TIME", "CONC", "SEM", "REPS",
                                                                   "FX1",  "FX2",  "FX3", "FX4"};

// The CSV text of `set`: a header row from the column headers (kDefaultHeaders where
// blank), then one row per point with all eight columns, each line ended by "\n".
// A number is the shortest decimal that reads back as the same float ("0.1", "2.049",
// "1e-05"); a missing or non-finite value is an empty cell. A cell holding a comma, a
// double quote, a line break or a leading or trailing blank is enclosed in double
// quotes, its quotes doubled: SEM, pooled -> "SEM, pooled".
std::string csv_text(const DataSet& set);

// Writes csv_text(set) to `path` (see save_text); logs "WRITE CSV MODE FILE".
bool write_csv(const DataSet& set, const std::string& path, ui::Ui& ui, ui::LogSink& log);

}  // namespace tidemark::data
