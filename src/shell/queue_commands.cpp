#include "shell/queue_commands.h"

#include <fmt/format.h>

#include <array>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "core/file_replace.h"
#include "shell/command_table.h"
#include "shell/command_text.h"
#include "shell/queue_collect.h"
#include "shell/queue_writer.h"

namespace tidemark::shell {

namespace {

namespace fs = std::filesystem;

// The quoted argument `index`, else the user's choice; empty when there is neither.
std::string argument_or_choice(const std::vector<std::string>& arguments, std::size_t index,
                               Session& session, const ui::FileRequest& request) {
  if (index < arguments.size()) return arguments[index];
  return session.ui().choose_file(request).value_or(std::string());
}

std::optional<std::string> read_whole(const std::string& file) {
  std::ifstream in(file, std::ios::binary);
  if (!in) return std::nullopt;
  std::ostringstream text;
  text << in.rdbuf();
  return text.str();
}

// QUEUE_JOBS "template.tpl" "parameters.par" "queue folder". Without a folder the user
// is asked whether to use the shared queue ($BATCH_QUEUE); otherwise, and in a batch,
// the queue goes to "<parameter file name>_queue" in the current folder.
void queue_jobs(std::string_view command, Session& session) {
  const std::vector<std::string> arguments = quoted_arguments(command, "QUEUE_JOBS");
  const std::string tpl = argument_or_choice(
      arguments, 0, session,
      {"Select the Template File", std::string(kTemplateFilter), {}, false});
  const auto tpl_text = tpl.empty() || fs::is_directory(tpl) ? std::nullopt : read_whole(tpl);
  if (!tpl_text) return session.error("Queue Error", {"Template File Does Not Exist"});
  const std::string par = argument_or_choice(
      arguments, 1, session,
      {"Select the Parameter File", std::string(kParameterFilter), {}, false});
  const auto par_text = par.empty() || fs::is_directory(par) ? std::nullopt : read_whole(par);
  if (!par_text) return session.error("Queue Error", {"Parameters File Does Not Exist"});

  QueuePlan plan;
  plan.entries = parse_queue_parameters(*par_text);
  if (plan.entries.empty()) {
    return session.error("Queue Error",
                         {"The parameter file names no data file: nothing is queued. " + par});
  }
  const char* shared = std::getenv("BATCH_QUEUE");
  if (arguments.size() > 2) {
    plan.folder = arguments[2];
  } else if (session.ask(kQueueDialogTitle, "Place the jobs in the shared queue (BATCH_QUEUE)?", false)) {
    if (shared == nullptr || *shared == '\0') {
      return session.error("Queue Error", {"BATCH_QUEUE names no shared queue folder"});
    }
    plan.folder = shared;
  } else {
    plan.folder = fs::path(par).stem().string() + "_queue";
  }
  std::error_code ec;
  plan.base = fs::current_path(ec);
  plan.folder = fs::absolute(plan.folder, ec).lexically_normal();
  plan.template_text = *tpl_text;
  plan.program = fs::read_symlink("/proc/self/exe", ec).string();
  const bool in_shared = shared != nullptr && *shared != '\0' &&
                         fs::absolute(shared, ec).lexically_normal() == plan.folder;
  session.files().log(in_shared ? "QUEUE YES " : "QUEUE NO ");

  const QueueWriteResult written = write_queue(plan);
  if (!written.ok()) return session.error("Queue Error", {written.message});
  const std::string done = fmt::format("{} jobs {} in {}", written.jobs,
                                       written.already_queued ? "already queued" : "queued",
                                       plan.folder.string());
  session.carried_out(
      fmt::format("QUEUE_JOBS \"{}\" \"{}\" \"{}\"", tpl, par, plan.folder.string()), done);
  session.inform(kQueueDialogTitle,
                 {done, "Run them with BQ_parallel.sh, BQ_worker.sh or sbatch BQ_slurm.sbatch"});
}

// COLLECT_JOBS "queue folder" "table.csv": the results of every job as one table.
void collect_jobs(std::string_view command, Session& session) {
  const std::vector<std::string> arguments = quoted_arguments(command, "COLLECT_JOBS");
  if (arguments.size() < 2) return session.ignore(command);
  const fs::path folder = arguments[0];
  const QueueCollectResult c = read_queue_outcomes(folder);
  if (!c.ok()) return session.error("Queue Error", {c.message});
  const auto written = core::replace_file(arguments[1], merge_job_outcomes(c.jobs));
  if (!written.ok()) return session.error("Queue Error", {written.message});
  const int left = static_cast<int>(c.jobs.size()) - c.done - c.failed;
  session.carried_out(command_with_file("COLLECT_JOBS", arguments[0]) + " \"" + arguments[1] + "\"",
                      fmt::format("COLLECT JOBS {}: {} done, {} failed, {} left", arguments[1],
                                  c.done, c.failed, left));
}

constexpr std::array<NamedCommand<Session>, 2> kCommands{{
    {"QUEUE_JOBS", queue_jobs},
    {"COLLECT_JOBS", collect_jobs},
}};

}  // namespace

bool handle_queue_command(std::string_view command, Session& session) {
  return dispatch(kCommands, command, session);
}

}  // namespace tidemark::shell
