#include "shell/queue_collect.h"

#include <fmt/format.h>

#include <fstream>
#include <map>
#include <sstream>

#include "data/csv_cells.h"
#include "data/csv_table.h"
#include "data/summary_row.h"

namespace tidemark::shell {

namespace fs = std::filesystem;

namespace {

// The analysis that owns a summary-book column (docs/file-formats.md): the deconvolution
// B to I, ApEn Q to AJ, Cosine AK to AP, Cluster8 AQ to BM, Periodic BN to BX, SRQuant BY
// to DG, Concordance DH to DM, Correlation DN to DV, Gold_Method DW to EA, X_ApEn EB to
// EQ; "" for the file name and unowned columns.
std::string_view column_mode(int column) {
  if (column >= 2 && column <= 9) return "Decon";
  if (column >= 17 && column <= 36) return "ApEn";
  if (column >= 37 && column <= 42) return "Cosine";
  if (column >= 43 && column <= 65) return "Cluster8";
  if (column >= 66 && column <= 76) return "Periodic";
  if (column >= 77 && column <= 111) return "SRQuant";
  if (column >= 112 && column <= 117) return "Concordance";
  if (column >= 118 && column <= 126) return "Correlation";
  if (column >= 127 && column <= 131) return "Gold_Method";
  if (column >= 132 && column <= 147) return "X_ApEn";
  return "";
}

struct Line {
  const JobOutcome* job;
  std::string data_set;
  std::string mode;
  std::map<int, std::string> cells;  // result column -> cell text
};

}  // namespace

std::string merge_job_outcomes(const std::vector<JobOutcome>& jobs) {
  std::map<int, std::string> titles;
  std::vector<Line> lines;
  for (const JobOutcome& job : jobs) {
    const data::CsvTable book = data::split_csv(job.book);
    if (job.status != "done" || !book.ok() || book.rows.size() < 2) {
      lines.push_back({&job, "", "", {}});
      continue;
    }
    const auto& heading = book.rows.front().cells;
    for (std::size_t r = 1; r < book.rows.size(); ++r) {
      const auto& cells = book.rows[r].cells;
      std::map<std::string, Line> by_mode;
      for (std::size_t k = 1; k < cells.size(); ++k) {
        const int column = static_cast<int>(k) + 1;
        const std::string mode(column_mode(column));
        if (cells[k].empty() || mode.empty()) continue;
        if (k < heading.size()) titles.emplace(column, heading[k]);
        Line& line = by_mode.try_emplace(mode, Line{&job, cells.front(), mode, {}}).first->second;
        line.cells[column] = cells[k];
      }
      if (by_mode.empty()) lines.push_back({&job, cells.front(), "", {}});
      for (auto& [mode, line] : by_mode) lines.push_back(std::move(line));
    }
  }
  std::string out;
  const auto cell = [&out](std::string_view text, bool last) {
    data::put_csv_cell(out, text);
    out += last ? '\n' : ',';
  };
  for (const char* title : {"Job", "Data File", "Subject", "Data Set", "Mode", "Status"}) {
    cell(title, false);
  }
  cell("Log", titles.empty());
  for (auto it = titles.begin(); it != titles.end(); ++it) cell(it->second, std::next(it) == titles.end());
  for (const Line& line : lines) {
    const JobOutcome& job = *line.job;
    for (const std::string* text : {&job.job, &job.data_file, &job.subject, &line.data_set,
                                    &line.mode, &job.status}) {
      cell(*text, false);
    }
    cell(job.status == "done" ? "" : job.log, titles.empty());
    for (auto it = titles.begin(); it != titles.end(); ++it) {
      const auto found = line.cells.find(it->first);
      cell(found == line.cells.end() ? "" : found->second, std::next(it) == titles.end());
    }
  }
  return out;
}

namespace {

std::string read_text(const fs::path& file) {
  std::ifstream in(file, std::ios::binary);
  std::ostringstream text;
  text << in.rdbuf();
  return text.str();
}

}  // namespace

QueueCollectResult read_queue_outcomes(const fs::path& folder) {
  QueueCollectResult c;
  std::error_code ec;
  if (!fs::exists(folder / "BQ_jobs.csv", ec)) {
    c.message = "The folder holds no job queue: " + folder.string();
    return c;
  }
  const data::CsvTable manifest = data::split_csv(read_text(folder / "BQ_jobs.csv"));
  if (!manifest.ok()) {
    c.message = "BQ_jobs.csv: " + manifest.message;
    return c;
  }
  for (std::size_t r = 1; r < manifest.rows.size(); ++r) {
    auto cells = manifest.rows[r].cells;
    cells.resize(3);
    JobOutcome job{cells[0], cells[1], cells[2], "not run", "", ""};
    const std::string command_file = job.job + "_.bat";
    if (fs::exists(folder / "done" / command_file, ec)) {
      job.status = "done";
      job.book = read_text(folder / (job.job + ".csv"));
      ++c.done;
    } else if (fs::exists(folder / "running" / command_file, ec)) {
      job.status = "running";
    } else if (fs::exists(folder / "failed" / job.job, ec)) {
      std::string code = read_text(folder / "failed" / job.job);
      while (!code.empty() && (code.back() == '\n' || code.back() == '\r')) code.pop_back();
      job.status = "failed (exit " + code + ")";
      ++c.failed;
    }
    const fs::path log = folder / (job.job + ".log");
    job.log = (fs::exists(log, ec) ? log : folder / (job.job + ".out")).string();
    c.jobs.push_back(std::move(job));
  }
  c.status = QueueCollectStatus::kRead;
  return c;
}

}  // namespace tidemark::shell
