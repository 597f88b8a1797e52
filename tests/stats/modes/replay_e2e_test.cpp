// Cosine and Concordance sessions run by the real headless program on command files,
// then the run's history replayed in a fresh folder: the listings, data files, graph and
// what the program showed come out byte for byte the same.
#include <fmt/format.h>
#include <gtest/gtest.h>

#include <cmath>

#include "shell/program_runner.h"
#include "shell/scratch.h"

namespace tidemark::stats {
namespace {

namespace fs = std::filesystem;
using testing_support::Scratch;

// The command history and the graph of the run whose program folder is `home`.
struct RunFiles {
  fs::path history, graph;
  explicit RunFiles(const fs::path& home)
      : history(testing_support::run_file(home, "CMD_")),
        graph(testing_support::run_file(home, "GRF_")) {}
};

// 48 samples every 10 minutes of 10 + 3 cos(2 pi (t - 50) / 240) plus a second rhythm
// of period 120 and amplitude 1, which the fit of the first leaves in the residuals.
std::string two_rhythms() {
  std::string text = "!FILENAME = lh.dat\n!HANDLE = LH\n";
  for (int i = 0; i < 48; ++i) {
    const double t = 10.0 * i;
    const double y =
        10 + 3 * std::cos((t - 50) * 6.283185307 / 240) + std::cos((t - 20) * 6.283185307 / 120);
    text += fmt::format("{:8.1f} {:10.5f} 0.5 2\n", t, y);
  }
  return text;
}

const char* const kRun =
    "READ_NATIVE \"lh.dat\"\n"
    "MODE Cosine\n"
    "SET Period = 240\n"
    "COSINE_CALCULATE\n"
    "COPY_LST \"fit.lst\"\n"
    "COSINE_SUBTRACT\n"
    "COSINE_STORE\n"
    "SELECT LH_cos\n"
    "SET Period = 120\n"
    "COSINE_CALCULATE\n"
    "COPY_LST \"residual.lst\"\n"
    "STORE_RESULTS\n"
    "WRITE_NATIVE \"residual.dat\"\n"
    "SELECT LH\n"
    "COSINE_RESET\n"
    "RECALL_RESULTS\n"
    "COSINE_VIEW\n"
    "EXIT\n";

// Cosine: fit, subtract, store the residual series, fit it, keep and recall results,
// reset, write the stored copy.
TEST(CosineRun, FromACommandFileAndItsHistoryReplaysToTheSameFiles) {
  if (!fs::exists(testing_support::tidemark_binary())) GTEST_SKIP() << "build tidemark first";
  Scratch dir;
  for (const char* folder : {"first", "second"})
    dir.write(std::string(folder) + "/lh.dat", two_rhythms());
  const auto script = dir.write("run.cmd", kRun);
  const auto r =
      testing_support::run_tidemark(dir / "home1", dir / "first", {"-@", script.string()}, "");
  ASSERT_EQ(r.status, 0) << r.err;
  const std::string fit = Scratch::read(dir / "first" / "fit.lst");
  const std::string residual = Scratch::read(dir / "first" / "residual.lst");
  // The first fit finds amplitude 3 and phase 50 under the second rhythm; the fit of
  // the residual series the second rhythm, amplitude 1 and phase 20 (the closed forms
  // above; 48 samples span whole periods of both, so the rhythms are orthogonal). As
  // gfortran writes them with (1PG15.5).
  EXPECT_NE(fit.find("\nAmplitude      3.0000    "), std::string::npos) << fit;
  EXPECT_NE(fit.find("\nPhase          50.000    "), std::string::npos) << fit;
  EXPECT_NE(residual.find("Cosine Analysis of lh_cos.dat\n"), std::string::npos) << residual;
  EXPECT_NE(residual.find("\nAmplitude      1.0000    "), std::string::npos) << residual;
  EXPECT_NE(residual.find("\nPhase          20.000    "), std::string::npos) << residual;
  // The reset set was changed and not written; the stored copy was written.
  EXPECT_NE(r.err.find("Data set 1 (lh.dat) is modified"), std::string::npos) << r.err;
  EXPECT_EQ(r.err.find("Data set 2"), std::string::npos) << r.err;
  const std::string data = Scratch::read(dir / "first" / "residual.dat");
  const RunFiles first(dir / "home1");
  const std::string graph = Scratch::read(first.graph);

  // Replayed from another folder: the history's CD takes it back to the first, where it
  // writes the same files again.
  for (const char* file : {"fit.lst", "residual.lst", "residual.dat"})
    fs::remove(dir / "first" / file);
  const auto replay = testing_support::run_tidemark(dir / "home2", dir / "second",
                                                    {"-@", first.history.string()}, "");
  ASSERT_EQ(replay.status, 0) << replay.err;
  EXPECT_EQ(Scratch::read(dir / "first" / "fit.lst"), fit);
  EXPECT_EQ(Scratch::read(dir / "first" / "residual.lst"), residual);
  EXPECT_EQ(Scratch::read(dir / "first" / "residual.dat"), data);
  EXPECT_EQ(Scratch::read(RunFiles(dir / "home2").graph), graph);
  EXPECT_EQ(replay.out, r.out);  // the listing COSINE_VIEW showed
}

// 25 samples every 10 minutes with secretion events at `events`, as a pulse analysis
// leaves them in the answers (POSITION at answer 7 + 2e, LogHeight at 8 + 2e).
std::string with_events(const std::string& name, const std::vector<int>& events) {
  std::string text = "!FILENAME = " + name + "\n";
  for (std::size_t e = 0; e < events.size(); ++e)
    text += fmt::format("!ANSWER({}) = {}\n!ANSWER({}) = 0.5\n", 9 + 2 * e, events[e], 10 + 2 * e);
  for (int i = 0; i < 25; ++i) text += fmt::format("{} {} 0.2 2\n", 10 * i, 5 + i % 4);
  return text;
}

const char* const kConcordanceRun =
    "READ_NATIVE \"a.dat\"\n"
    "READ_NATIVE \"b.dat\"\n"
    "MODE Concordance\n"
    "SET #MC Cycles = 5000\n"
    "CONCORD_CALCULATE\n"
    "CONCORD_VIEW\n"
    "STORE_RESULTS\n"
    "SET Coincidence From = -30\n"
    "SET Coincidence To = 30\n"
    "CONCORD_CALCULATE\n"
    "COPY_LST \"wide.lst\"\n"
    "RECALL_RESULTS\n"
    "EXIT\n";

// Concordance with the default range (half a sampling interval either side) and the
// start-up seed, which the history's first line carries into the replay.
TEST(ConcordanceRun, FromACommandFileAndItsHistoryReplaysToTheSameFiles) {
  if (!fs::exists(testing_support::tidemark_binary())) GTEST_SKIP() << "build tidemark first";
  Scratch dir;
  for (const char* folder : {"first", "second"}) {
    dir.write(std::string(folder) + "/a.dat", with_events("a.dat", {20, 80, 150}));
    dir.write(std::string(folder) + "/b.dat", with_events("b.dat", {24, 85, 175}));
  }
  const auto script = dir.write("run.cmd", kConcordanceRun);
  const auto r =
      testing_support::run_tidemark(dir / "home1", dir / "first", {"-@", script.string()}, "");
  ASSERT_EQ(r.status, 0) << r.err;
  // Within -5 .. 5: 24 - 20 = 4 and 85 - 80 = 5 (the edge counts), 175 - 150 = 25 does
  // not; within -30 .. 30 it does (by hand). +-5 as gfortran writes it with 1PG15.3.
  EXPECT_NE(r.out.find("      -5.00     to        5.00     yielded    2 coincidence peaks"),
            std::string::npos)
      << r.out;
  const std::string wide = Scratch::read(dir / "first" / "wide.lst");
  EXPECT_NE(wide.find("yielded    3 coincidence peaks"), std::string::npos) << wide;
  const RunFiles first(dir / "home1");
  fs::remove(dir / "first" / "wide.lst");
  const auto replay = testing_support::run_tidemark(dir / "home2", dir / "second",
                                                    {"-@", first.history.string()}, "");
  ASSERT_EQ(replay.status, 0) << replay.err;
  EXPECT_EQ(replay.out, r.out);
  EXPECT_EQ(Scratch::read(dir / "first" / "wide.lst"), wide);  // written where the run was
  EXPECT_EQ(Scratch::read(RunFiles(dir / "home2").graph), Scratch::read(first.graph));
}

}  // namespace
}  // namespace tidemark::stats
