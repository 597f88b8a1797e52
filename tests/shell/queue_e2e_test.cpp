// A real queue of Cluster8 jobs, written by the program and run one by one (the shared
// queue worker), on all cores through GNU parallel, and as a Slurm job array on a
// one-node cluster started for the test: all three give the same results. A job whose
// data file is missing fails alone, a rerun runs only that job, and names with blanks,
// quotes, ";", "$", "&" and a leading "-" reach the program as they are.
//
// The engines are skipped, with a message, only when their packages are not installed
// (scripts/install-deps installs them); a cluster that is installed but does not start
// fails the test.
#include <gtest/gtest.h>

#include <cstdlib>
#include <algorithm>

#include "shell/program_runner.h"

namespace tidemark::shell {
namespace {

namespace fs = std::filesystem;
using testing_support::run_tidemark;
using testing_support::Scratch;
using testing_support::tidemark_binary;

const fs::path kExample = fs::path(TIDEMARK_SOURCE_DIR) / "examples" / "lh_24h_10min.dat";
const fs::path kCluster = fs::path(TIDEMARK_SOURCE_DIR) / "scripts" / "slurm-test-cluster";
const char* const kOddName = "-odd name;$HOME&\"q\".dat";

bool installed(const std::string& program) {
  return std::system(("command -v " + program + " >/dev/null 2>&1").c_str()) == 0;
}

int shell(const std::string& command) {
  const int status = std::system(command.c_str());
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

// A study folder with three data files (one with an odd name), a template and a
// parameter file that also names a missing file.
struct Study {
  Scratch home, dir;
  Study() {
    fs::copy_file(kExample, dir / "s01.dat");
    fs::copy_file(kExample, dir / kOddName);
    dir.write("s03 lh.dat", Scratch::read(kExample));
    dir.write("jobs.tpl", "READ_NATIVE \"%~dpnx\"\nMODE Cluster8\nCLUSTER_CALCULATE\n");
    dir.write("study.par", "! three subjects and one file not yet there\ns01.dat\n" +
                               std::string(kOddName) + "\n\ns03 lh.dat\nlater.dat\n");
  }
  // Queues the jobs into `folder` and answers the program's run.
  testing_support::ProgramRun queue(const std::string& folder) {
    return run_tidemark(home.path(), dir.path(), {},
                        "QUEUE_JOBS \"jobs.tpl\" \"study.par\" \"" + folder + "\"\n");
  }
  std::string env() const { return "TIDEMARK_HOME='" + home.path().string() + "' "; }
  std::string collect(const std::string& folder) {
    const auto run = run_tidemark(home.path(), dir.path(), {},
                                  "COLLECT_JOBS \"" + (dir / folder).string() + "\" \"" +
                                      folder + ".csv\"\n");
    EXPECT_EQ(run.status, 0) << run.err;
    // The table names the queue folder in its log column: make the tables comparable.
    std::string table = Scratch::read(dir / (folder + ".csv"));
    const std::string name = (dir / folder).string();
    for (auto at = table.find(name); at != std::string::npos; at = table.find(name, at)) {
      table.replace(at, name.size(), "Q");
    }
    return table;
  }
};

TEST(QueueProgram, TheSameResultsOneByOneThroughGnuParallelAndSlurm) {
  if (!fs::exists(tidemark_binary())) GTEST_SKIP() << "build the tidemark program first";
  Study s;
  ASSERT_EQ(s.queue("serial").status, 0);
  const fs::path serial = s.dir / "serial";
  for (const char* file : {"BQ_0004_.bat", "BQ_run.sh", "BQ_parallel.sh", "BQ_worker.sh",
                           "BQ_slurm.sbatch", "BQ_QUEUE.bat", "BQ_jobs.txt", "BQ_jobs.csv"}) {
    EXPECT_TRUE(fs::exists(serial / file)) << file;
  }
  EXPECT_EQ(shell(s.env() + "'" + serial.string() + "/BQ_worker.sh' 2>/dev/null"), 0);
  const std::string one_by_one = s.collect("serial");
  // Three jobs ran; the missing file failed its job alone, and its log is named.
  EXPECT_EQ(std::count(one_by_one.begin(), one_by_one.end(), '\n'), 5) << one_by_one;
  EXPECT_NE(one_by_one.find(",Cluster8,done,,"), std::string::npos) << one_by_one;
  EXPECT_NE(one_by_one.find("BQ_0004,"), std::string::npos);
  EXPECT_NE(one_by_one.find(",failed (exit 1),Q/BQ_0004.log"), std::string::npos) << one_by_one;
  EXPECT_NE(one_by_one.find("/-odd name;$HOME&\"\"q\"\".dat\",,"), std::string::npos) << one_by_one;

  if (!installed("parallel")) {
    std::cerr << "GNU parallel is not installed (scripts/install-deps): not run through it\n";
  } else {
    ASSERT_EQ(s.queue("parallel").status, 0);
    const fs::path q = s.dir / "parallel";
    EXPECT_EQ(shell(s.env() + "'" + q.string() + "/BQ_parallel.sh' 2>'" + q.string() + ".err'"), 0);
    EXPECT_NE(Scratch::read(s.dir / "parallel.err").find("3 done, 1 failed, 0 left"),
              std::string::npos);
    EXPECT_EQ(s.collect("parallel"), one_by_one);
    // A rerun runs only the job that has not finished: the others' outputs stay as
    // they were, and the failed one now runs.
    const auto first_time = fs::last_write_time(q / "BQ_0001.out");
    fs::copy_file(kExample, s.dir / "later.dat");
    EXPECT_EQ(shell(s.env() + "'" + q.string() + "/BQ_parallel.sh' 2>'" + q.string() + ".err'"), 0);
    EXPECT_NE(Scratch::read(s.dir / "parallel.err").find("4 done, 0 failed, 0 left"),
              std::string::npos);
    EXPECT_EQ(fs::last_write_time(q / "BQ_0001.out"), first_time);
    fs::remove(s.dir / "later.dat");
  }

  if (!installed("slurmctld") || !installed("slurmd") || !installed("sbatch")) {
    std::cerr << "Slurm is not installed (scripts/install-deps): not run through a cluster\n";
    return;
  }
  Scratch cluster;
  ASSERT_EQ(shell("'" + kCluster.string() + "' start '" + cluster.path().string() + "'"), 0)
      << "the one-node Slurm cluster did not start; see " << cluster.path();
  ASSERT_EQ(s.queue("slurm").status, 0);
  const fs::path q = s.dir / "slurm";
  const int submitted = shell("SLURM_CONF='" + (cluster / "slurm.conf").string() + "' " + s.env() +
                              "timeout 120 sbatch --wait --quiet '" + q.string() +
                              "/BQ_slurm.sbatch'");
  shell("'" + kCluster.string() + "' stop '" + cluster.path().string() + "'");
  // sbatch --wait answers the worst exit status of the array; the jobs' own outcome is
  // read from the queue folder.
  EXPECT_NE(submitted, 124) << "the Slurm array did not end within 120 s";
  EXPECT_EQ(s.collect("slurm"), one_by_one);
}

TEST(QueueProgram, RefusesMissingFilesAndAnEmptyParameterFile) {
  if (!fs::exists(tidemark_binary())) GTEST_SKIP() << "build the tidemark program first";
  Scratch home, dir;
  dir.write("t.tpl", "READ_NATIVE \"%~dpnx\"\n");
  dir.write("empty.par", "! nothing yet\n\n");
  struct Case {
    const char* command;
    const char* message;
  };
  for (const Case& c : {Case{"QUEUE_JOBS \"none.tpl\" \"empty.par\" \"q\"",
                             "Queue Error: Template File Does Not Exist"},
                        Case{"QUEUE_JOBS \"t.tpl\" \"none.par\" \"q\"",
                             "Queue Error: Parameters File Does Not Exist"},
                        Case{"QUEUE_JOBS \"t.tpl\" \"empty.par\" \"q\"",
                             "Queue Error: The parameter file names no data file: nothing is "
                             "queued. empty.par"}}) {
    const auto run = run_tidemark(home.path(), dir.path(), {}, std::string(c.command) + "\n");
    EXPECT_EQ(run.status, 1);
    EXPECT_NE(run.err.find(c.message), std::string::npos) << run.err;
    EXPECT_FALSE(fs::exists(dir / "q")) << c.command;
  }
}

}  // namespace
}  // namespace tidemark::shell
