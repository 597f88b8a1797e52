// The graph library (cairo and the libraries it needs) is loaded only by a run that
// draws a graph: a batch job that reads, analyses and lists never maps it. The dynamic
// loader's own report (LD_DEBUG=files) says which libraries a run loaded.
#include <gtest/gtest.h>

#include "shell/program_runner.h"

namespace tidemark::testing_support {
namespace {

namespace fs = std::filesystem;

const fs::path kExample = fs::path(TIDEMARK_SOURCE_DIR) / "examples" / "lh_24h_10min.dat";

TEST(GraphLibrary, IsLoadedOnlyByARunThatDrawsAGraph) {
  if (!fs::exists(tidemark_binary())) GTEST_SKIP() << "build the tidemark program first";
  Scratch home, dir;
  const std::string analysis =
      "READ_NATIVE \"" + kExample.string() + "\"\nMODE Cluster8\nCLUSTER_CALCULATE\n";
  for (const bool draw : {false, true}) {
    const fs::path commands =
        dir.write("run.cmd", analysis + (draw ? "SAVE_GRF_PNG \"graph.png\"\n" : ""));
    const ProgramRun run =
        run_tidemark(home.path(), dir.path(), {"-@", commands.string()}, "", {"LD_DEBUG=files"});
    ASSERT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(run.err.find("file=libcairo.so.2") != std::string::npos, draw) << "draw " << draw;
    EXPECT_EQ(fs::exists(dir / "graph.png"), draw);
  }
}

}  // namespace
}  // namespace tidemark::testing_support
