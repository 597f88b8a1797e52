// The SRQuant mode run by the headless program on command files, in a fresh program
// folder each: LH driving testosterone in the bundled subject 07 and the byte-for-byte
// replay of its history.
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

class SRQuantProgram : public testing::Test {
 protected:
  void SetUp() override {
    if (!fs::exists(tidemark_binary())) GTEST_SKIP() << "build the tidemark program first";
  }
  ProgramRun run(const std::string& home, const std::string& commands) {
    return run_tidemark(dir / home, dir.path(), {"-@", dir.write("run.cmd", commands).string()},
                        "");
  }
  Scratch dir;
};

TEST_F(SRQuantProgram, FitsLhDrivingTestosteroneAndTheHistoryReplaysTheListing) {
  const ProgramRun first =
      run("home1", "SEED 7\n" + read_native("subject07_testo.dat") +
                       read_native("subject07_lh.dat") +
                       "MODE SRQuant\nSET Input 1 Data Set = 2\nSET Swarm Size = 20\n"
                       "SET Iterations = 50\n"
                       "DOSE_RESPONSE_PARAMETER \"Delay 1\" 20 0 90 FIT\n"
                       "DOSE_RESPONSE_CALCULATE\nCOPY_LST \"s.lst\"\nCOPY_GRF \"s.grf\"\n"
                       "WRITE_SUMMARY_BOOKS \"books.csv\"\n");
  ASSERT_EQ(first.status, 0) << first.err;
  const std::string listing = Scratch::read(dir / "s.lst");
  EXPECT_EQ(listing.rfind("Signal-Response Quantification of subject07_testo.dat\n", 0), 0u)
      << listing;
  // 73 samples every 10 minutes from 0 to 720; delays up to 90 reach from t = 90 on.
  EXPECT_NE(listing.find("    73 points used (missing 0, REPS 0 0)\n"
                         "          64 fitted, outside the inputs' reach 9 before and 0 after"),
            std::string::npos)
      << listing;
  EXPECT_NE(listing.find(" AIC            ="), std::string::npos) << listing;
  const std::string books = Scratch::read(dir / "books.csv");
  EXPECT_NE(books.find("SRQuant Delay 1"), std::string::npos) << books;
  const std::string graph = Scratch::read(dir / "s.grf");
  fs::remove(dir / "s.lst");
  fs::remove(dir / "s.grf");
  const ProgramRun replay =
      run_tidemark(dir / "home2", dir.path(), {"-@", run_file(dir / "home1", "CMD_").string()}, "");
  ASSERT_EQ(replay.status, 0) << replay.err;
  EXPECT_EQ(Scratch::read(dir / "s.lst"), listing);
  EXPECT_EQ(Scratch::read(dir / "s.grf"), graph);
}

// A mode command that is refused counts as a failed command, as a refused frame command
// does: the run ends with status 1 (exit statuses: 0 all carried out, 1 any refused).
TEST_F(SRQuantProgram, ARefusedModeCommandMakesTheExitStatusOne) {
  struct Case {
    const char* command;
    int status;
  };
  const Case cases[] = {
      {"DOSE_RESPONSE_PARAMETER \"Delay 1\" 20 0 90 FIT", 0},
      {"DOSE_RESPONSE_PARAMETER \"Delay 1\" 20 90 0 FIT", 1},  // lower above upper
      {"DOSE_RESPONSE_PARAMETER \"No Such\" 1 0 2 FIT", 1},
  };
  int n = 0;
  for (const Case& c : cases) {
    const ProgramRun r = run("h" + std::to_string(++n),
                             read_native("subject07_testo.dat") + "MODE SRQuant\n" +
                                 c.command + "\n");
    EXPECT_EQ(r.status, c.status) << c.command << "\n" << r.err;
  }
}

}  // namespace
}  // namespace tidemark::testing_support
