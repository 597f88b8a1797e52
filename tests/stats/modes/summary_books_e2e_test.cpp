// The summary books written by the headless program after an analysis: ApEn's results
// under their letters for the set it ran on, empty cells for a set it did not, and a
// history that replays the book byte for byte.
#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

#include "shell/program_runner.h"
#include "shell/scratch.h"

namespace tidemark::testing_support {
namespace {

namespace fs = std::filesystem;

const fs::path kExamples = fs::path(TIDEMARK_SOURCE_DIR) / "examples";

std::vector<std::string> split(const std::string& line) {
  std::vector<std::string> cells;
  std::string cell;
  bool quoted = false;
  for (char c : line) {
    if (c == '"') {
      quoted = !quoted;
    } else if (c == ',' && !quoted) {
      cells.push_back(cell);
      cell.clear();
    } else {
      cell.push_back(c);
    }
  }
  cells.push_back(cell);
  return cells;
}

std::vector<std::string> lines_of(const std::string& text) {
  std::vector<std::string> lines;
  std::istringstream in(text);
  for (std::string line; std::getline(in, line);) lines.push_back(line);
  return lines;
}

class SummaryBooks : public testing::Test {
 protected:
  void SetUp() override {
    if (!fs::exists(tidemark_binary())) GTEST_SKIP() << "build the tidemark program first";
  }
  fs::path history(const std::string& home) const { return run_file(dir / home, "CMD_"); }
  Scratch dir;
};

TEST_F(SummaryBooks, ApEnFillsColumnsQToAJOfTheSetItRanOn) {
  const std::string commands =
      "SEED 3\nREAD_NATIVE \"" + (kExamples / "lh_24h_10min.dat").string() +
      "\"\nMODE ApEn\nSET MC Cycles = 20\nAPEN_CALCULATE\n"
      "READ_NATIVE \"" +
      (kExamples / "gh_overnight_5min.dat").string() + "\"\nWRITE_SUMMARY_BOOKS \"books.csv\"\n";
  const ProgramRun first =
      run_tidemark(dir / "home1", dir.path(), {"-@", dir.write("run.cmd", commands).string()}, "");
  ASSERT_EQ(first.status, 0) << first.err;
  const std::string book = Scratch::read(dir / "books.csv");
  const std::vector<std::string> lines = lines_of(book);
  ASSERT_EQ(lines.size(), 3u) << book;
  // A to AJ: 36 columns. Q (17th) the cycles, R the tolerance, AJ the last title.
  const std::vector<std::string> titles = split(lines[0]);
  ASSERT_EQ(titles.size(), 36u);
  EXPECT_EQ(titles[0], "File Name");
  EXPECT_EQ(titles[1], "");
  EXPECT_EQ(titles[16], "ApEn # MC Cycles");
  EXPECT_EQ(titles[35], "P for ApEn(2,R,,)");
  const std::vector<std::string> lh = split(lines[1]);
  ASSERT_EQ(lh.size(), 36u);
  EXPECT_EQ(lh[0], (kExamples / "lh_24h_10min.dat").filename().string());
  EXPECT_EQ(lh[16], "20");
  EXPECT_EQ(lh[17], "0.2");
  for (int c = 18; c < 36; ++c) EXPECT_FALSE(lh[c].empty()) << titles[c];
  const std::vector<std::string> gh = split(lines[2]);
  ASSERT_EQ(gh.size(), 36u);
  for (int c = 1; c < 36; ++c) EXPECT_TRUE(gh[c].empty()) << titles[c];

  fs::remove(dir / "books.csv");
  const ProgramRun replay =
      run_tidemark(dir / "home2", dir.path(), {"-@", history("home1").string()}, "");
  ASSERT_EQ(replay.status, 0) << replay.err;
  EXPECT_EQ(Scratch::read(dir / "books.csv"), book);
}

TEST_F(SummaryBooks, CosineFillsColumnsAKToAPWithTheFittedValues) {
  // With the defaults the period is held at the time span of the series (0 to 1440
  // minutes) and the slope at 0, so those two cells are known without the fit.
  const std::string commands = "SEED 3\nREAD_NATIVE \"" +
                               (kExamples / "lh_24h_10min.dat").string() +
                               "\"\nMODE Cosine\nCOSINE_CALCULATE\n"
                               "WRITE_SUMMARY_BOOKS \"books.csv\"\n";
  const ProgramRun r =
      run_tidemark(dir / "home", dir.path(), {"-@", dir.write("run.cmd", commands).string()}, "");
  ASSERT_EQ(r.status, 0) << r.err;
  const std::vector<std::string> lines = lines_of(Scratch::read(dir / "books.csv"));
  ASSERT_EQ(lines.size(), 2u);
  const std::vector<std::string> titles = split(lines[0]);
  const std::vector<std::string> lh = split(lines[1]);
  ASSERT_EQ(titles.size(), 42u);  // A to AP
  ASSERT_EQ(lh.size(), 42u);
  const char* expected[] = {"Cosine Period", "Cosine Amplitude", "Cosine Phase",
                            "Cosine Mean",   "Cosine Slope",     "Cosine % Remaining"};
  for (int j = 0; j < 6; ++j) {
    EXPECT_EQ(titles[36 + j], expected[j]);
    EXPECT_FALSE(lh[36 + j].empty()) << expected[j];
  }
  EXPECT_EQ(lh[36], "1440");
  EXPECT_EQ(lh[40], "0");
  for (int c = 1; c < 36; ++c) EXPECT_TRUE(lh[c].empty()) << c;
}

TEST_F(SummaryBooks, WithNoDataSetTheCommandIsIgnoredAndNoFileWritten) {
  const ProgramRun r = run_tidemark(
      dir / "home", dir.path(),
      {"-@", dir.write("run.cmd", "WRITE_SUMMARY_BOOKS \"books.csv\"\n").string()}, "");
  EXPECT_EQ(r.status, 1);
  EXPECT_NE(r.err.find("COMMAND IGNORED!"), std::string::npos) << r.err;
  EXPECT_FALSE(fs::exists(dir / "books.csv"));
}

}  // namespace
}  // namespace tidemark::testing_support
