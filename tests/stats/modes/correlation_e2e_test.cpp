// The two-series modes run by the real headless program on command files: data sets
// read from native files (Concordance's events in their !ANSWER lines), dialog values
// through SET, listings copied with COPY_LST, and the run's history replayed to the same
// listings and graph.
#include <gtest/gtest.h>

#include "shell/program_runner.h"
#include "shell/scratch.h"

namespace tidemark::stats {
namespace {

namespace fs = std::filesystem;
using testing_support::ProgramRun;
using testing_support::run_file;
using testing_support::run_tidemark;
using testing_support::Scratch;

const fs::path kData = fs::path(TIDEMARK_FIXTURES) / "stats";

// A working folder holding the two data files.
fs::path folder_with_data(Scratch& dir, const std::string& name) {
  const fs::path folder = dir / name;
  fs::create_directories(folder);
  for (const char* file : {"pair_a.dat", "pair_b.dat"}) fs::copy_file(kData / file, folder / file);
  return folder;
}

const char* const kRun =
    "SEED 11\n"
    "READ_NATIVE \"pair_a.dat\"\n"
    "READ_NATIVE \"pair_b.dat\"\n"
    "MODE Correlation\n"
    "SET max Lag = 5\n"
    "CORR_CALCULATE\n"
    "COPY_LST \"corr.lst\"\n"
    "MODE Concordance\n"
    "SET #MC Cycles = 20000\n"
    "CONCORD_CALCULATE\n"
    "COPY_LST \"concord.lst\"\n";

TEST(TwoSeriesModes, RunFromACommandFileAndTheHistoryReplaysToTheSameFiles) {
  if (!fs::exists(testing_support::tidemark_binary())) GTEST_SKIP() << "build tidemark first";
  Scratch dir;
  const fs::path first = folder_with_data(dir, "first");
  const auto script = dir.write("run.cmd", kRun);
  const ProgramRun r = run_tidemark(dir / "home1", first, {"-@", script.string()}, "");
  ASSERT_EQ(r.status, 0) << r.err;
  const std::string corr = Scratch::read(first / "corr.lst");
  const std::string concord = Scratch::read(first / "concord.lst");
  EXPECT_NE(corr.find(" Variannce of B-series = "), std::string::npos) << corr;
  EXPECT_NE(corr.find(" Delta Time Interval =      10.000    \n"), std::string::npos);
  // Events 20, 80, 150, 200 against 24, 90, 160 within ±5: only 20 and 24 coincide (by
  // hand); ±5 as gfortran writes it with 1PG15.3.
  EXPECT_NE(concord.find("      -5.00     to        5.00     yielded    1 coincidence peaks"),
            std::string::npos)
      << concord;
  const std::string graph = Scratch::read(run_file(dir / "home1", "GRF_"));

  // Replayed from another folder: the history's CD takes it back to the first, where its
  // relative names point, and it writes the same files there again.
  fs::remove(first / "corr.lst");
  fs::remove(first / "concord.lst");
  const fs::path second = dir / "second";
  fs::create_directory(second);
  const ProgramRun replay =
      run_tidemark(dir / "home2", second, {"-@", run_file(dir / "home1", "CMD_").string()}, "");
  ASSERT_EQ(replay.status, 0) << replay.err;
  EXPECT_EQ(Scratch::read(first / "corr.lst"), corr);
  EXPECT_EQ(Scratch::read(first / "concord.lst"), concord);
  EXPECT_EQ(Scratch::read(run_file(dir / "home2", "GRF_")), graph);
}

}  // namespace
}  // namespace tidemark::stats
