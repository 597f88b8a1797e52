#pragma once
// The texts that run a job queue, written into the queue folder beside the jobs. A job
// "BQ_0001" is the command file "BQ_0001_.bat"; it waits in the queue folder, is taken by
// renaming it into running/, and ends in done/ or, after a failure (with its exit status
// in failed/BQ_0001), back in the queue folder for the next run. Its output goes to
// "BQ_0001.out", its log to "BQ_0001.log", its summary-book rows to "BQ_0001.csv".
//
//   BQ_run.sh JOB      runs one job (POSIX shell; skips a job already taken or done)
//   BQ_worker.sh       runs every job still waiting, one after the other: start it on
//                      each computer that shares the queue folder
//   BQ_parallel.sh     runs the waiting jobs on all cores through GNU parallel
//   BQ_slurm.sbatch    the same as a Slurm job array, one array task a job
//   BQ_progress.sh     prints "12 done, 1 failed, 987 left"
//   BQ_QUEUE.bat       the queue as a Windows batch text
#include <string>
#include <string_view>
#include <vector>

namespace tidemark::shell {

// "BQ_0001" for job 1.
std::string job_name(int number);

// `text` in single quotes for a POSIX shell ('it'\''s'), so that no character in it is
// ever interpreted.
std::string sh_quote(std::string_view text);

std::string job_runner_script(const std::string& program);
std::string worker_script();
std::string parallel_script();
std::string progress_script();
// `folder` is the queue folder's absolute name: Slurm runs a copy of the script.
std::string slurm_script(const std::string& folder, int job_count);

// The Windows batch text: per job, the lines that take it from %BATCH_QUEUE% into this
// computer's work folder (skipped when another computer took it), start the program on
// it and delete the local copy; then "REM IF_KILL_DELETE " lines naming the job files.
std::string windows_batch_text(const std::vector<std::string>& jobs, std::string_view program);

}  // namespace tidemark::shell
