// The headless program's graph view end to end: the command line's -grf_view and
// printing through lp (a stand-in lp that keeps what it was given).
#include <gtest/gtest.h>

#include <cstdlib>

#include "shell/program_runner.h"
#include "shell/scratch.h"

namespace tidemark::testing_support {
namespace {

namespace fs = std::filesystem;

const std::string kSource = Scratch::read(fs::path(TIDEMARK_FIXTURES) / "graphics" / "styles.grf");

class GraphProgram : public ::testing::Test {
 protected:
  void SetUp() override {
    if (!fs::exists(tidemark_binary())) GTEST_SKIP() << "build the tidemark program first";
  }
  fs::path home() const { return dir / "home"; }
  Scratch dir;
};

TEST_F(GraphProgram, GrfViewDrawsTheSourceBesideItInTheDefaultFormat) {
  dir.write("graph.grf", kSource);
  const ProgramRun r = run_tidemark(home(), dir.path(), {"-grf_view", "graph.grf"}, "");
  EXPECT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(Scratch::read(dir / "graph.png").substr(0, 4), "\x89PNG");

  dir.write("home/system/grf_view.ini", "Format=SVG\n");
  const ProgramRun svg = run_tidemark(home(), dir.path(), {"-grf_view", "graph.grf"}, "");
  EXPECT_EQ(svg.status, 0) << svg.err;
  EXPECT_EQ(Scratch::read(dir / "graph.svg").substr(0, 5), "<?xml");
}

TEST_F(GraphProgram, GrfViewOfABadSourceIsReadFailedWithStatusOne) {
  dir.write("bad.grf", "PANEL \"p\"\nXAXIS \"t\" LOG RANGE 0 1\n");
  const ProgramRun r = run_tidemark(home(), dir.path(), {"-grf_view", "bad.grf"}, "");
  EXPECT_EQ(r.status, 1);
  EXPECT_NE(r.err.find("Graphics: READ FAILED\n"), std::string::npos) << r.err;
  EXPECT_NE(r.err.find("Graphics: bad.grf: line 2: XAXIS: a LOG axis needs a positive range\n"),
            std::string::npos)
      << r.err;
  EXPECT_FALSE(fs::exists(dir / "bad.png"));
}

TEST_F(GraphProgram, PrintGrfSendsPostScriptToLp) {
  dir.write("graph.grf", kSource);
  const fs::path lp = dir.write("bin/lp", "#!/bin/sh\ncp \"$1\" \"$(dirname \"$0\")/printed\"\n");
  fs::permissions(lp, fs::perms::owner_all);
  const std::string path = "PATH=" + (dir / "bin").string() + ":" + std::getenv("PATH");
  const auto commands = dir.write("run.cmd", "LOAD_GRF \"graph.grf\"\nPRINT_GRF\n");
  const ProgramRun r = run_tidemark(home(), dir.path(), {"-@", commands.string()}, "", {path});
  EXPECT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(Scratch::read(dir / "bin" / "printed").substr(0, 10), "%!PS-Adobe");
}

}  // namespace
}  // namespace tidemark::testing_support
