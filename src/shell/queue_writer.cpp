#include "shell/queue_writer.h"

#include <fmt/format.h>

#include <system_error>

#include "core/file_replace.h"
#include "data/csv_cells.h"
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

QueueWriteResult write_queue(const QueuePlan& plan) {
  QueueWriteResult result;
  const auto fail = [&](std::string message) {
    result.message = std::move(message);
    return result;
  };
  std::error_code ec;
  if (fs::exists(plan.folder / "BQ_jobs.txt", ec)) {
    return fail("The folder already holds a queue: " + plan.folder.string() +
                " (run it again to finish its jobs, or choose another folder)");
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
  std::vector<std::string> jobs;
  std::string list;
  std::string manifest = "Job,Data File,Subject\n";
  for (const QueueEntry& given : plan.entries) {
    QueueEntry entry = given;
    entry.file = (plan.base / entry.file).lexically_normal().string();
    const std::string job = job_name(static_cast<int>(jobs.size()) + 1);
    if (!write(job + "_.bat", job_command_text(job, plan.template_text, entry, plan.folder), false)) {
      return result;
    }
    jobs.push_back(job);
    list += job + "\n";
    data::put_csv_cell(manifest, job);
    manifest += ',';
    data::put_csv_cell(manifest, entry.file);
    manifest += ',';
    data::put_csv_cell(manifest, entry.subject);
    manifest += '\n';
  }
  const int count = static_cast<int>(jobs.size());
  if (!write("BQ_run.sh", job_runner_script(plan.program), true) ||
      !write("BQ_worker.sh", worker_script(), true) ||
      !write("BQ_parallel.sh", parallel_script(), true) ||
      !write("BQ_progress.sh", progress_script(), true) ||
      !write("BQ_slurm.sbatch", slurm_script(fs::absolute(plan.folder).string(), count), true) ||
      !write("BQ_QUEUE.bat", windows_batch_text(jobs, "tidemark"), false) ||
      !write("BQ_jobs.csv", manifest, false) || !write("BQ_jobs.txt", list, false)) {
    return result;
  }
  result.status = QueueWriteStatus::kWritten;
  result.jobs = count;
  return result;
}

}  // namespace tidemark::shell
