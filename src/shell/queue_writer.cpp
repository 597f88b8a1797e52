#include "shell/queue_writer.h"

#include <fmt/format.h>

#include <system_error>

#include "core/file_replace.h"
#include "data/csv_cells.h"
#include "shell/file_ops.h"
#include "shell/queue_scripts.h"
#include "shell/queue_template.h"

namespace tidemark::shell {

namespace fs = std::filesystem;

std::string job_command_text(const std::string& job, const std::string& template_text,
                             const QueueEntry& entry, const fs::path& folder) {
  NameParts parts = split_file_name(entry.file);
  parts.subject = entry.subject;
  std::string text = "! job " + job + ": " + entry.file +
                     (entry.subject.empty() ? "" : " | " + entry.subject) + "\n";
  text += expand_template(template_text, parts);
  if (!text.empty() && text.back() != '\n') text += '\n';
  const auto file = [&](std::string_view extension) {
    return "\"" + (folder / (job + std::string(extension))).string() + "\"";
  };
  text += "WRITE_SUMMARY_BOOKS " + file(".csv") + "\n";
  text += "SAVE_AS_LOG " + file(".log") + "\n";
  text += "EXIT\n";
  return text;
}

namespace {

// What a queue folder holds of a plan: the jobs' names and command files, the list of
// jobs and the manifest.
struct QueueFiles {
  std::vector<std::string> jobs;
  std::vector<std::string> texts;  // each job's command file
  std::string list;
  std::string manifest = "Job,Data File,Subject\n";
};

QueueFiles queue_files(const QueuePlan& plan) {
  QueueFiles files;
  for (const QueueEntry& given : plan.entries) {
    QueueEntry entry = given;
    entry.file = (plan.base / entry.file).lexically_normal().string();
    const std::string job = job_name(static_cast<int>(files.jobs.size()) + 1);
    files.texts.push_back(job_command_text(job, plan.template_text, entry, plan.folder));
    files.jobs.push_back(job);
    files.list += job + "\n";
    data::put_csv_cell(files.manifest, job);
    files.manifest += ',';
    data::put_csv_cell(files.manifest, entry.file);
    files.manifest += ',';
    data::put_csv_cell(files.manifest, entry.subject);
    files.manifest += '\n';
  }
  return files;
}

// True when `folder` holds the queue `files` describes: the same list of jobs, and each
// job's command file the same wherever the job now is (waiting, running or done).
bool holds_queue(const fs::path& folder, const QueueFiles& files) {
  std::string text;
  if (!read_file(folder / "BQ_jobs.txt", text) || text != files.list) return false;
  if (!read_file(folder / "BQ_jobs.csv", text) || text != files.manifest) return false;
  for (std::size_t i = 0; i < files.jobs.size(); ++i) {
    const std::string name = files.jobs[i] + "_.bat";
    bool found = false;
    for (const char* sub : {"", "running", "done"}) {
      if (read_file(folder / sub / name, text)) {
        found = true;
        break;
      }
    }
    if (!found || text != files.texts[i]) return false;
  }
  return true;
}

}  // namespace

QueueWriteResult write_queue(const QueuePlan& plan) {
  QueueWriteResult result;
  const auto fail = [&](std::string message) {
    result.message = std::move(message);
    return result;
  };
  const QueueFiles files = queue_files(plan);
  const int count = static_cast<int>(files.jobs.size());
  std::error_code ec;
  if (fs::exists(plan.folder / "BQ_jobs.txt", ec)) {
    if (!holds_queue(plan.folder, files)) {
      return fail("The folder already holds another queue: " + plan.folder.string() +
                  " (run it again to finish its jobs, or choose another folder)");
    }
    result.status = QueueWriteStatus::kWritten;
    result.already_queued = true;
    result.jobs = count;
    return result;
  }
  for (const char* sub : {"", "running", "done", "failed"}) {
    fs::create_directories(plan.folder / sub, ec);
    if (ec) return fail("Cannot make the folder " + (plan.folder / sub).string() + ": " + ec.message());
  }
  const auto write = [&](const std::string& name, const std::string& text, bool executable) {
    const auto r = core::replace_file(plan.folder / name, text);
    if (!r.ok()) return fail(r.message), false;
    if (executable) {
      fs::permissions(plan.folder / name,
                      fs::perms::owner_exec | fs::perms::group_exec | fs::perms::others_exec,
                      fs::perm_options::add, ec);
    }
    return true;
  };
  for (int i = 0; i < count; ++i) {
    if (!write(files.jobs[static_cast<std::size_t>(i)] + "_.bat",
               files.texts[static_cast<std::size_t>(i)], false)) {
      return result;
    }
  }
  if (!write("BQ_run.sh", job_runner_script(plan.program), true) ||
      !write("BQ_worker.sh", worker_script(), true) ||
      !write("BQ_parallel.sh", parallel_script(), true) ||
      !write("BQ_progress.sh", progress_script(), true) ||
      !write("BQ_slurm.sbatch", slurm_script(fs::absolute(plan.folder).string(), count), true) ||
      !write("BQ_QUEUE.bat", windows_batch_text(files.jobs, "tidemark"), false) ||
      !write("BQ_jobs.csv", files.manifest, false) || !write("BQ_jobs.txt", files.list, false)) {
    return result;
  }
  result.status = QueueWriteStatus::kWritten;
  result.jobs = count;
  return result;
}

}  // namespace tidemark::shell
