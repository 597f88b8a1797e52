#pragma once
// Cells of comma-separated text for spreadsheets, shared by the data set and summary
// book files.
#include <string>
#include <string_view>

namespace tidemark::data {

// Appends `cell`, enclosed in double quotes with its quotes doubled when it holds a
// comma, a double quote, a line break or a leading or trailing blank:
// SEM, pooled -> "SEM, pooled".
void put_csv_cell(std::string& out, std::string_view cell);

// Appends the shortest decimal that reads back as the same float ("0.1", "2.049",
// "1e-05"); a missing or non-finite value appends nothing (an empty cell).
void put_csv_number(std::string& out, float v);

}  // namespace tidemark::data
