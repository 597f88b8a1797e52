#include "shell/queue_scripts.h"

#include <fmt/format.h>

namespace tidemark::shell {

std::string job_name(int number) { return fmt::format("BQ_{:04d}", number); }

std::string sh_quote(std::string_view text) {
  std::string out = "'";
  for (const char c : text) out += c == '\'' ? std::string("'\\''") : std::string(1, c);
  return out + "'";
}

std::string job_runner_script(const std::string& program) {
  return fmt::format(R"sh(#!/bin/sh
# Runs job $1 of this queue folder. The job is taken by renaming its command file into
# running/: a rename is atomic, so of two computers or cores only one can take a job,
# and a job already taken, or finished, is skipped. The program reads the command file
# itself: no name in it ever reaches a shell.
case $0 in /*) q=${{0%/*}} ;; *) q=$PWD/${{0%/*}} ;; esac
job=$1
program=${{TIDEMARK_PROGRAM:-{}}}
mv "$q/${{job}}_.bat" "$q/running/${{job}}_.bat" 2>/dev/null || exit 0
if "$program" -@ "$q/running/${{job}}_.bat" </dev/null >"$q/$job.out" 2>&1; then
  [ -e "$q/failed/$job" ] && rm -f "$q/failed/$job"
  mv "$q/running/${{job}}_.bat" "$q/done/${{job}}_.bat"
else
  echo "$?" >"$q/failed/$job.part" && mv "$q/failed/$job.part" "$q/failed/$job"
  mv "$q/running/${{job}}_.bat" "$q/${{job}}_.bat"
fi
exit 0
)sh",
                     sh_quote(program));
}

std::string worker_script() {
  return R"sh(#!/bin/sh
# Runs every job still waiting in this queue folder, one after the other. Start it on
# each computer (or core) that shares the folder: each job runs once.
q=$(cd "${0%/*}" && pwd) || exit 2
while read -r job; do "$q/BQ_run.sh" "$job"; done <"$q/BQ_jobs.txt"
"$q/BQ_progress.sh"
)sh";
}

std::string parallel_script() {
  return R"sh(#!/bin/sh
# Runs the jobs still waiting in this queue folder on all cores of this computer through
# GNU parallel (TIDEMARK_JOBS sets the number at once; default one per core). Jobs that
# a stopped run left in running/ go back to the queue first, so a rerun runs every job
# that has not finished, and only those.
q=$(cd "${0%/*}" && pwd) || exit 2
command -v parallel >/dev/null || { echo "GNU parallel is not installed" >&2; exit 2; }
for f in "$q"/running/BQ_*_.bat; do [ -e "$f" ] && mv "$f" "$q/"; done
"$q/BQ_progress.sh" --every-second &
progress=$!
parallel --will-cite -q -j "${TIDEMARK_JOBS:-100%}" "$q/BQ_run.sh" :::: "$q/BQ_jobs.txt"
kill "$progress" 2>/dev/null
wait "$progress" 2>/dev/null
"$q/BQ_progress.sh"
)sh";
}

std::string progress_script() {
  return R"sh(#!/bin/sh
# Prints how many jobs of this queue folder are done, failed and left. With
# --every-second it repeats the count until it is stopped, on one line when standard
# error is a terminal.
q=$(cd "${0%/*}" && pwd) || exit 2
count() { [ -e "$1" ] && echo $(($# )) || echo 0; }
line() {
  total=$(wc -l <"$q/BQ_jobs.txt")
  done=$(count "$q"/done/BQ_*_.bat)
  failed=$(count "$q"/failed/BQ_[0-9]*[0-9])
  echo "$done done, $failed failed, $((total - done - failed)) left"
}
if [ "$1" = --every-second ]; then
  while :; do
    if [ -t 2 ]; then printf '\r%s ' "$(line)" >&2; else line >&2; fi
    sleep 1
  done
fi
line >&2
)sh";
}

std::string slurm_script(const std::string& folder, int job_count) {
  return fmt::format(R"sh(#!/bin/sh
#SBATCH --job-name=tidemark-queue
#SBATCH --array=1-{}
#SBATCH --ntasks=1
#SBATCH --output=/dev/null
# One array task a job of the queue folder below; submit with "sbatch BQ_slurm.sbatch"
# (or "sbatch --wait" to wait for the whole array), and follow it with BQ_progress.sh.
q={}
exec "$q/BQ_run.sh" "$(printf 'BQ_%04d' "$SLURM_ARRAY_TASK_ID")"
)sh",
                     job_count, sh_quote(folder));
}

std::string windows_batch_text(const std::vector<std::string>& jobs, std::string_view program) {
  constexpr std::string_view kLocal = "%BATCH_DRIVE%%BATCH_PATH%\\%BATCH_CORE%";
  std::string out = "@ECHO OFF\n";
  for (const std::string& job : jobs) {
    const std::string file = job + "_.bat";
    out += fmt::format("IF a\"%BATCH_QUEUE%\" == a\"{}\" goto next\n", kLocal);
    out += fmt::format("IF NOT EXIST %BATCH_QUEUE%\\{} goto done\n", file);
    out += fmt::format("copy %BATCH_QUEUE%\\{} {}\\\n", file, kLocal);
    out += fmt::format("del %BATCH_QUEUE%\\{}\n", file);
    out += ":next\n";
    out += fmt::format("{}.exe -@ {}\\{}\n", program, kLocal, file);
    out += fmt::format("IF a\"%BATCH_QUEUE%\" == a\"{}\" goto mext\n", kLocal);
    out += fmt::format("del {}\\{}\n", kLocal, file);
    out += ":mext\n";
    out += ":done\n";
  }
  for (const std::string& job : jobs) out += "REM IF_KILL_DELETE " + job + "_.bat\n";
  return out;
}

}  // namespace tidemark::shell
