#include "data/csv_writer.h"

#include <fmt/format.h>

#include <cmath>
#include <iterator>
#include <string_view>

#include "core/missing.h"
#include "core/text.h"
#include "data/save_text.h"

namespace tidemark::data {

namespace {

void put_cell(std::string& out, std::string_view cell) {
  const bool quoted = cell.find_first_of(",\"\n\r") != std::string_view::npos ||
                      (!cell.empty() && (cell.front() == ' ' || cell.back() == ' '));
  if (!quoted) {
    out.append(cell);
    return;
  }
  out.push_back('"');
  for (char c : cell) {
    if (c == '"') out.push_back('"');
    out.push_back(c);
  }
  out.push_back('"');
}

void put_number(std::string& out, float v) {
  if (std::isfinite(v) && !core::is_missing(v)) fmt::format_to(std::back_inserter(out), "{}", v);
}

}  // namespace

std::string csv_text(const DataSet& set) {
  std::string out;
  for (int c = 0; c < kColumnCount; ++c) {
    if (c > 0) out.push_back(',');
    put_cell(out, core::is_blank(set.headers[c]) ? kDefaultHeaders[c] : set.headers[c]);
  }
  out.push_back('\n');
  for (int p = 0; p < set.size(); ++p) {
    for (int c = 0; c < kColumnCount; ++c) {
      if (c > 0) out.push_back(',');
      put_number(out, set.columns[c][p]);
    }
    out.push_back('\n');
  }
  return out;
}

bool write_csv(const DataSet& set, const std::string& path, ui::Ui& ui, ui::LogSink& log) {
  return save_text(path, csv_text(set), "WRITE CSV MODE FILE", ui, log);
}

}  // namespace tidemark::data
