#include "data/csv_reader.h"

#include <fmt/format.h>

#include <fstream>
#include <sstream>

namespace tidemark::data {

bool read_csv(Store& store, const std::string& path, const CsvImportOptions& options, ui::Ui& ui,
              ui::LogSink& log) {
  const auto refuse = [&](const std::string& reason) {
    ui::report(ui, log, "ERROR READING DATA FILE", {"Could Not Read The Data File", reason});
    return false;
  };
  std::ifstream in(path, std::ios::binary);
  if (!in) return refuse("Cannot open " + path);
  std::ostringstream text;
  text << in.rdbuf();
  CsvImportResult result = import_csv(text.str(), path, options);
  if (!result.ok()) return refuse(result.message);
  for (DataSet& set : result.sets) {
    log.log(fmt::format("{} data points read ({})", set.size(), set.handle));
    store.append(std::move(set));
  }
  log.log("READ CSV MODE FILE " + path);
  return true;
}

}  // namespace tidemark::data
