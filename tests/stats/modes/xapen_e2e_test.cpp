// The X_ApEn mode run by the headless program on command files, in a fresh program
// folder each: the listing of a real pair of series, its replay, and a refused pair.
#include <gtest/gtest.h>

#include "shell/program_runner.h"
#include "shell/scratch.h"

namespace tidemark::testing_support {
namespace {

namespace fs = std::filesystem;

const fs::path kExamples = fs::path(TIDEMARK_SOURCE_DIR) / "examples";

std::string read_native(const std::string& file) {
  return "READ_NATIVE \"" + (kExamples / file).string() + "\"\n";
}

class XApEnProgram : public testing::Test {
 protected:
  void SetUp() override {
    if (!fs::exists(tidemark_binary())) GTEST_SKIP() << "build the tidemark program first";
  }
  ProgramRun run(const std::string& home, const std::string& commands) {
    return run_tidemark(dir / home, dir.path(), {"-@", dir.write("run.cmd", commands).string()},
                        "");
  }
  fs::path history(const std::string& home) const { return run_file(dir / home, "CMD_"); }
  Scratch dir;
};

TEST_F(XApEnProgram, ListsTwoSeriesOfOneSubjectAndTheHistoryReplaysTheListing) {
  const ProgramRun first = run(
      "home1", "SEED 21\n" + read_native("subject07_lh.dat") + read_native("subject07_testo.dat") +
                   "MODE X_ApEn\nSET MC Cycles = 50\nXAPEN_CALCULATE\nCOPY_LST \"x.lst\"\n");
  ASSERT_EQ(first.status, 0) << first.err;
  const std::string listing = Scratch::read(dir / "x.lst");
  EXPECT_EQ(listing.rfind(" XApEn Calculation\n subject07_lh.dat  vs. subject07_testo.dat\n", 0),
            0u)
      << listing;
  EXPECT_NE(listing.find(" Summary of \"Hits\""), std::string::npos);
  fs::remove(dir / "x.lst");
  const ProgramRun replay =
      run_tidemark(dir / "home2", dir.path(), {"-@", history("home1").string()}, "");
  ASSERT_EQ(replay.status, 0) << replay.err;
  EXPECT_EQ(Scratch::read(dir / "x.lst"), listing);
}

TEST_F(XApEnProgram, SeriesOfUnequalLengthAreRefusedAndTheRunEndsWithStatusOne) {
  const ProgramRun r =
      run("home", read_native("subject07_lh.dat") + read_native("lh_24h_10min.dat") +
                      "MODE X_ApEn\nXAPEN_CALCULATE\n");
  EXPECT_EQ(r.status, 1);
  EXPECT_NE(r.err.find("Error Reported by X_ApEn: with equal numbers of data points."),
            std::string::npos)
      << r.err;
}

}  // namespace
}  // namespace tidemark::testing_support
