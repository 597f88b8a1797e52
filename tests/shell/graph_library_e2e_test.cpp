// The graph library (cairo and the libraries it needs) is loaded only by a run that
// draws a graph: a batch job that reads, analyses and lists never maps it (the dynamic
// loader's own report, LD_DEBUG=files, says which libraries a run loaded). And what a
// run drew before does not change a picture: a PNG is the same byte for byte whether
// or not the run wrote an SVG first.
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

TEST(GraphLibrary, APngIsTheSameAfterAnSvgOfTheSameRun) {
  if (!fs::exists(tidemark_binary())) GTEST_SKIP() << "build the tidemark program first";
  Scratch home, dir;
  const std::string load =
      "LOAD_GRF \"" + (fs::path(TIDEMARK_FIXTURES) / "graphics/pulse_series.grf").string() + "\"\n";
  const fs::path alone = dir.write("alone.cmd", load + "SAVE_GRF_PNG \"alone.png\"\n");
  const fs::path after =
      dir.write("after.cmd", load + "SAVE_GRF_SVG \"first.svg\"\nSAVE_GRF_PNG \"after.png\"\n");
  for (const fs::path& commands : {alone, after}) {
    const ProgramRun run = run_tidemark(home.path(), dir.path(), {"-@", commands.string()}, "");
    ASSERT_EQ(run.status, 0) << run.err;
  }
  const std::string png = Scratch::read(dir / "alone.png");
  ASSERT_FALSE(png.empty());
  EXPECT_TRUE(Scratch::read(dir / "after.png") == png) << "the PNG drawn after an SVG differs";
}

}  // namespace
}  // namespace tidemark::testing_support
