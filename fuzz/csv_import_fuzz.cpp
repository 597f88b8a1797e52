// Reads arbitrary bytes as a comma-separated data file, once with the default columns
// and once with options taken from the input's first line (so column names, subjects
// and wide lists are explored too). A read that succeeds must give well-formed data
// sets: every set has at least two points, all columns of a set have the same length,
// and no point value is a NaN or an infinity. A failed read must say why.
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "data/csv_import.h"

namespace {

using tidemark::data::CsvImportOptions;
using tidemark::data::CsvImportResult;

void check(const CsvImportResult& r) {
  if (!r.ok()) {
    if (r.message.empty() || !r.sets.empty()) std::abort();
    return;
  }
  if (r.sets.empty()) std::abort();
  for (const auto& set : r.sets) {
    if (set.size() < 2) std::abort();
    for (const auto& column : set.columns) {
      if (static_cast<int>(column.size()) != set.size()) std::abort();
      for (const float v : column) {
        if (!std::isfinite(v)) std::abort();
      }
    }
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string text(reinterpret_cast<const char*>(data), size);
  check(tidemark::data::import_csv(text, "fuzz.csv", {}));
  const std::size_t end = text.find('\n');
  CsvImportOptions options;
  std::string message;
  if (end != std::string::npos &&
      tidemark::data::parse_csv_options(text.substr(0, end), options, message)) {
    check(tidemark::data::import_csv(text.substr(end + 1), "fuzz.csv", options));
  }
  return 0;
}
