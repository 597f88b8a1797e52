#include "data/csv_writer.h"

#include "core/text.h"
#include "data/csv_cells.h"
#include "data/save_text.h"

namespace tidemark::data {

std::string csv_text(const DataSet& set) {
  std::string out;
  for (int c = 0; c < kColumnCount; ++c) {
    if (c > 0) out.push_back(',');
    put_csv_cell(out, core::is_blank(set.headers[c]) ? kDefaultHeaders[c] : set.headers[c]);
  }
  out.push_back('\n');
  for (int p = 0; p < set.size(); ++p) {
    for (int c = 0; c < kColumnCount; ++c) {
      if (c > 0) out.push_back(',');
      put_csv_number(out, set.columns[c][p]);
    }
    out.push_back('\n');
  }
  return out;
}

bool write_csv(const DataSet& set, const std::string& path, ui::Ui& ui, ui::LogSink& log) {
  return save_text(path, csv_text(set), "WRITE CSV MODE FILE", ui, log);
}

}  // namespace tidemark::data
