#pragma once
// Collecting the results of a job queue into one table: every job's summary-book rows
// (one per data set) are split into one row per data set and analysis, under the titles
// of the analyses' columns, with the job's status and, for a job that failed, the name
// of its log.
#include <filesystem>
#include <string>
#include <vector>

namespace tidemark::shell {

struct JobOutcome {
  std::string job;        // "BQ_0001"
  std::string data_file;  // as the queue named it
  std::string subject;
  std::string status;     // "done", "failed (exit 1)", "running" or "not run"
  std::string log;        // the job's log, named for a job that did not finish
  std::string book;       // the job's summary-book text (done jobs only)
};

// The table, one heading row then the rows, as comma-separated text. Columns: "Job",
// "Data File", "Subject", "Data Set", "Mode", "Status", "Log", then the title of every
// result column any job filled, in the order of the summary books. A done job whose
// data set no analysis filled gives one row with no mode.
std::string merge_job_outcomes(const std::vector<JobOutcome>& jobs);

// How reading a queue's outcomes ended: read, or refused when the folder holds no queue
// or its list of jobs does not read (`message` says which).
enum class QueueCollectStatus { kRead, kRefused };

struct QueueCollectResult {
  QueueCollectStatus status = QueueCollectStatus::kRefused;
  std::string message;
  std::vector<JobOutcome> jobs;
  int done = 0;
  int failed = 0;

  bool ok() const { return status == QueueCollectStatus::kRead; }
};

// Reads the outcome of every job of the queue in `folder` from its list and job files.
QueueCollectResult read_queue_outcomes(const std::filesystem::path& folder);

}  // namespace tidemark::shell
