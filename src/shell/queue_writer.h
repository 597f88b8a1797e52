#pragma once
// Writing a job queue into its folder: one command file per data file, the list of
// jobs, and the scripts that run them (see queue_scripts.h).
#include <filesystem>
#include <string>
#include <vector>

#include "shell/queue_params.h"

namespace tidemark::shell {

struct QueuePlan {
  std::filesystem::path folder;      // made when missing; must not hold another queue
  std::string template_text;         // the *.tpl file's text
  std::vector<QueueEntry> entries;   // the *.par file's data files
  std::filesystem::path base;        // relative data file names are taken from here
  std::string program;               // the program the jobs start
};

// How writing a queue ended: written whole, or refused (the folder holds a queue
// already, or a folder or file could not be made; `message` says which).
enum class QueueWriteStatus { kWritten, kRefused };

struct QueueWriteResult {
  QueueWriteStatus status = QueueWriteStatus::kRefused;
  std::string message;
  int jobs = 0;
  bool already_queued = false;  // the folder held this very queue: nothing was written

  bool ok() const { return status == QueueWriteStatus::kWritten; }
};

// The command file of one job: a comment naming the data file, the expanded template,
// then WRITE_SUMMARY_BOOKS, SAVE_AS_LOG and EXIT with the job's files in `folder`.
std::string job_command_text(const std::string& job, const std::string& template_text,
                             const QueueEntry& entry, const std::filesystem::path& folder);

// Writes the queue. Every job file is complete before the list of jobs (BQ_jobs.txt)
// appears, so a queue folder with a list is a whole queue. A folder that holds the same
// queue already (the same jobs, each job's command file the same wherever the job now
// is) is left as it is, its progress kept: so the command replays from a history while
// its queue is there. A folder that holds another queue is refused.
QueueWriteResult write_queue(const QueuePlan& plan);

}  // namespace tidemark::shell
