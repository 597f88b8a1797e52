// Every calculation shared among threads, run by the headless program with one thread
// and with four (TIDEMARK_THREADS) from the same SEED: the listings and graphs must be
// byte for byte the same. The Monte-Carlo modes (ApEn, X_ApEn, Concordance) show their
// cycles in the listing; Cosine's period scan is drawn in its graph.
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

// Cluster8 gives both series of Concordance their secretion events.
const std::string kCommands =
    "SEED 4242\n" + read_native("lh_24h_10min.dat") + read_native("gh_overnight_5min.dat") +
    read_native("subject07_lh.dat") + read_native("subject07_testo.dat") +
    "SELECT LH-24h\nMODE Cluster8\nCLUSTER_CALCULATE\n"
    "SELECT S07-LH\nCLUSTER_CALCULATE\n"
    "MODE Concordance\nSET A Series = 1\nSET B Series = 3\nSET #MC Cycles = 20000\n"
    "CONCORD_CALCULATE\nCOPY_LST \"concordance.lst\"\n"
    "SELECT LH-24h\nMODE Cosine\nCOSINE_CALCULATE\nCOPY_LST \"cosine.lst\"\n"
    "COPY_GRF \"cosine.grf\"\n"
    "SELECT GH-night\nMODE ApEn\nSET MC Cycles = 150\nAPEN_CALCULATE\nCOPY_LST \"apen.lst\"\n"
    "MODE X_ApEn\nSET A Series = 3\nSET B Series = 4\nSET MC Cycles = 150\nXAPEN_CALCULATE\n"
    "COPY_LST \"xapen.lst\"\n";

TEST(ThreadCount, ListingsAndGraphsAreTheSameWithOneThreadAndWithFour) {
  if (!fs::exists(tidemark_binary())) GTEST_SKIP() << "build the tidemark program first";
  Scratch dir;
  const auto commands = dir.write("run.cmd", kCommands);
  for (const char* threads : {"1", "4"}) {
    fs::create_directories(dir / threads);
    const ProgramRun run =
        run_tidemark(dir / threads / "home", dir / threads, {"-@", commands.string()}, "",
                     {std::string("TIDEMARK_THREADS=") + threads});
    ASSERT_EQ(run.status, 0) << threads << " threads:\n" << run.err;
  }
  for (const char* file :
       {"concordance.lst", "cosine.lst", "cosine.grf", "apen.lst", "xapen.lst"}) {
    const std::string one = Scratch::read(dir / "1" / file);
    EXPECT_GT(one.size(), 200u) << file;
    EXPECT_EQ(one, Scratch::read(dir / "4" / file)) << file;
  }
}

}  // namespace
}  // namespace tidemark::testing_support
