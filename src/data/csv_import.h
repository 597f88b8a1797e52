#pragma once
// Turns a lab's comma-separated export into data sets. The header row names the columns;
// the options choose them by name (letter case and surrounding blanks ignored):
//
//   time      the sampling times (default: the first column not the subject's)
//   conc      one or more concentration columns; several give one data set each (wide
//             format). Default: every column not chosen for something else
//   sem, reps the standard error and replicate columns, one per concentration column
//   subject   a column that splits the rows into one data set per subject, in the order
//             the subjects first appear (long format)
//   only      keep the one subject of this name
//
// Cells: a number with a decimal point or a decimal comma ("1,5"); empty cells, "NA"
// and "NaN" (any letter case) are missing; an omitted REPS is 1. A data set needs two
// points, as a native-mode file does. Nothing is returned unless the whole file reads.
//
//   CsvImportOptions o;  o.conc = {"LH"};  o.subject = "Subject";
//   const CsvImportResult r = import_csv(text, "study.csv", o);
//   if (!r.ok()) show(r.message);  // "Line 4, column 2 (LH): "1.x" is not a number"
#include <string>
#include <string_view>
#include <vector>

#include "data/dataset.h"

namespace tidemark::data {

struct CsvImportOptions {
  std::string time;
  std::vector<std::string> conc;
  std::vector<std::string> sem;
  std::vector<std::string> reps;
  std::string subject;
  std::string only;
  bool operator==(const CsvImportOptions&) const = default;
};

struct CsvImportResult {
  bool ok_ = true;
  std::string message;
  std::vector<DataSet> sets;  // in subject order, then concentration column order
  bool ok() const { return ok_; }
};

// The data sets of `text`, each named `file_name` (with " [handle]" when the file gives
// several) and handled by its subject, its concentration column, or both ("S07 LH").
CsvImportResult import_csv(std::string_view text, const std::string& file_name,
                           const CsvImportOptions& options);

// The options of a READ_CSV command after its file name: KEY=value words separated by
// blanks (TIME, CONC, SEM, REPS, SUBJECT, ONLY; any letter case); a value may be in
// double quotes to hold blanks, and CONC, SEM and REPS take several columns separated by
// commas. False with `message` set for an unknown key or a word without "=".
bool parse_csv_options(std::string_view text, CsvImportOptions& options, std::string& message);

// The options written back as READ_CSV words, for the command history.
std::string csv_options_text(const CsvImportOptions& options);

}  // namespace tidemark::data
