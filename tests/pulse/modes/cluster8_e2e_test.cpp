// The real program on a command file: read an example series, run Cluster8 with a
// changed field, copy the listing, write the series back with its events, and replay
// the run's history to the same listing.
#include <gtest/gtest.h>

#include "shell/program_runner.h"

namespace tidemark::pulse {
namespace {

namespace fs = std::filesystem;
using testing_support::run_tidemark;
using testing_support::Scratch;
using testing_support::tidemark_binary;

const fs::path kExample = fs::path(TIDEMARK_SOURCE_DIR) / "examples" / "lh_24h_10min.dat";

TEST(Cluster8Program, ACommandFileRunsTheModeKeepsEventsAndReplays) {
  if (!fs::exists(tidemark_binary())) GTEST_SKIP() << "build the tidemark program first";
  Scratch home, dir;
  dir.write("run.cmd", "SEED 7\nREAD_NATIVE \"" + kExample.string() +
                           "\"\nMODE Cluster8\nSET T-Score for Increase = 2.5\n"
                           "CLUSTER_CALCULATE\nCOPY_LST \"first.lst\"\n"
                           "WRITE_NATIVE \"events.dat\"\n");
  const auto first = run_tidemark(home.path(), dir.path(), {"-@", "run.cmd"}, "");
  ASSERT_EQ(first.status, 0) << first.err;
  const std::string listing = Scratch::read(dir / "first.lst");
  EXPECT_NE(listing.find("  MINUMUM T-SCORE FOR INCREASE =      2.500\n"), std::string::npos);
  EXPECT_NE(listing.find(" FOUND "), std::string::npos);
  // The first event slot (answer 9) holds the first peak's time.
  EXPECT_NE(Scratch::read(dir / "events.dat").find("!ANSWER(9) ="), std::string::npos);

  fs::path history;
  for (const auto& e : fs::directory_iterator(home / "temp"))
    if (e.path().filename().string().rfind("CMD_", 0) == 0) history = e.path();
  ASSERT_FALSE(history.empty());
  fs::remove(dir / "first.lst");
  Scratch home2;
  const auto replay = run_tidemark(home2.path(), dir.path(), {"-@", history.string()}, "");
  ASSERT_EQ(replay.status, 0) << replay.err;
  EXPECT_EQ(Scratch::read(dir / "first.lst"), listing);
}

}  // namespace
}  // namespace tidemark::pulse
