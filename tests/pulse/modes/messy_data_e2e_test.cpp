// The pulse modes on messy data, through the program itself: the messy fixtures hold
// missing concentrations and SDs, replicate counts of 0 and missing ones, rows out of
// order, time gaps and a crop range, so a driver that turns such a data set into the
// wrong kernel input shows wrong numbers here. Every expected value was computed by
// scripts/gen-messy-fixtures, which transcribes the published rules in Python and
// shares no code with the program.
#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <filesystem>
#include <string>
#include <vector>

#include "shell/listing_values.h"
#include "shell/program_runner.h"

namespace tidemark::pulse {
namespace {

namespace fs = std::filesystem;
using testing_support::integers_after;
using testing_support::run_tidemark;
using testing_support::Scratch;
using testing_support::text_lines;
using testing_support::value_after;

const fs::path kFixtures = fs::path(TIDEMARK_FIXTURES) / "modes";

// One run of the program: Cluster8 on messy_pulses.dat with a half-life of 1E10 (the
// outlier decay factor is then exactly 1, which makes exact ties possible), the other
// settings their defaults; Gold_Method on messy_series.dat, elimination kernel only.
class MessyPulseModes : public ::testing::Test {
 protected:
  static void SetUpTestSuite() {
    work_ = new Scratch;
    Scratch home;
    work_->write("run.cmd",
                 "READ_NATIVE \"" + (kFixtures / "messy_pulses.dat").string() + "\"\n" +
                     "MODE Cluster8\nSET Half-Life = 1E10\nCLUSTER_CALCULATE\n"
                     "COPY_LST \"cluster8.lst\"\n"
                     "READ_NATIVE \"" +
                     (kFixtures / "messy_series.dat").string() + "\"\n" +
                     "MODE Gold_Method\nSET Elimination Half-Life = 45\n"
                     "SET Kernel = Elimination Only\nGOLD_CALCULATE\nCOPY_LST \"gold.lst\"\n"
                     "COPY_BST \"answers.bst\"\nEXIT\n");
    run_ = new testing_support::ProgramRun(
        run_tidemark(home.path(), work_->path(), {"-@", "run.cmd"}, ""));
  }
  static void TearDownTestSuite() {
    delete run_;
    delete work_;
  }
  static std::string listing(const char* name) { return Scratch::read(*work_ / name); }

  static Scratch* work_;
  static testing_support::ProgramRun* run_;
};

Scratch* MessyPulseModes::work_ = nullptr;
testing_support::ProgramRun* MessyPulseModes::run_ = nullptr;

// What the Cluster8 listing shows, 1-based grid point numbers.
struct Cluster8Shown {
  std::vector<int> up, down, pulse;       // the flags of the point table
  std::vector<std::array<int, 3>> peaks;  // position, start, end
  std::vector<std::array<int, 3>> valleys;
  std::vector<int> questionable, probable;
};

// Rows "  pos (start-  end) ..." between the line that begins with `header` and the
// next line that begins with " FOUND".
std::vector<std::array<int, 3>> table_rows(const std::vector<std::string>& lines,
                                           const std::string& header) {
  std::vector<std::array<int, 3>> rows;
  bool inside = false;
  for (const std::string& line : lines) {
    if (line.starts_with(" FOUND")) inside = false;
    std::array<int, 3> r{};
    if (inside && std::sscanf(line.c_str(), "%d (%d-%d)", &r[0], &r[1], &r[2]) == 3)
      rows.push_back(r);
    if (line.starts_with(header)) inside = true;
  }
  return rows;
}

Cluster8Shown read_cluster8(const std::string& text) {
  Cluster8Shown shown;
  const std::vector<std::string> lines = text_lines(text);
  bool table = false;
  for (const std::string& line : lines) {
    if (line.starts_with(" MINIMUM SIZE OF PEAK")) table = false;
    int point = 0;
    // Point rows: I5 F7.1 F9.3 F8.3, the UP and DOWN flags (L2 each), a blank and the
    // chart, whose columns 48-49 hold "**" inside a pulse.
    if (table && line.size() > 33 && std::sscanf(line.c_str(), "%5d", &point) == 1) {
      if (line.substr(29, 2) == " T") shown.up.push_back(point);
      if (line.substr(31, 2) == " T") shown.down.push_back(point);
      if (line.size() >= 83 && line.substr(81, 2) == "**") shown.pulse.push_back(point);
    }
    if (line.starts_with("   N   TIME")) table = true;
  }
  shown.peaks = table_rows(lines, "PEAKS");
  shown.valleys = table_rows(lines, "VALLEYS");
  shown.questionable = integers_after(text, "Questionable Outliers Near Point numbers:");
  shown.probable = integers_after(text, "Probable Outliers Near Point numbers:");
  return shown;
}

// The data set read as it is, points 3..40 of the file (the crop range): grid of 40
// points at dt = 10 from time 10, points 1 and 2 copies of point 3, point 18 (missing
// concentration) the average of its neighbours, missing SDs 0 and missing REPS 1.
// Expected values: scripts/gen-messy-fixtures (Cluster8 reference). What they catch:
// - the small pulse 5-9 rises by 0.6 on points whose SD is missing; read as 0 its steps
//   are significant (UP 5, 6, DOWN 7-9), read as 1 they are not and the pulse is lost;
// - UP 38 is the last point from which a pulse is started (N - peak size); its pulse
//   closes the valley 34-38, which is lost if that loop stops one point early;
// - the last grid point (40) drops by 2.5 with SD 0.1: questionable;
// - points 31 and 32 (4.0 and 2.0, SD 0.5, 2 replicates) give t = 4 exactly, the outlier
//   T-score: not questionable (the test is strict);
// - points 12-15 (4.0 SD 1, 3.0, 2.0, 1.0 SD 2): 14 is questionable; its neighbours'
//   mean equals it exactly (so the drop is taken to lie elsewhere), and the mean of 12
//   and 14 equals point 13 exactly (so 13 is not probable either): no probable outlier.
TEST_F(MessyPulseModes, Cluster8FindsThePulsesAndOutliersOfTheCroppedGrid) {
  ASSERT_EQ(run_->status, 0) << run_->err;
  const Cluster8Shown shown = read_cluster8(listing("cluster8.lst"));
  EXPECT_EQ(shown.up, (std::vector<int>{5, 6, 11, 12, 19, 20, 21, 30, 31, 38}));
  EXPECT_EQ(shown.down, (std::vector<int>{7, 8, 9, 14, 22, 23, 24, 25, 32, 33}));
  EXPECT_EQ(shown.pulse, (std::vector<int>{5,  6,  7,  8,  11, 12, 13, 14, 19, 20, 21,
                                           22, 23, 24, 25, 30, 31, 32, 33, 38, 39, 40}));
  using Row = std::array<int, 3>;
  EXPECT_EQ(shown.peaks, (std::vector<Row>{{6, 5, 9}, {12, 11, 15}, {21, 19, 26}, {31, 30, 34}}));
  EXPECT_EQ(shown.valleys,
            (std::vector<Row>{{10, 9, 11}, {15, 15, 19}, {29, 26, 30}, {35, 34, 38}}));
  EXPECT_EQ(shown.questionable, (std::vector<int>{7, 8, 14, 22, 23, 24, 40}));
  EXPECT_EQ(shown.probable, std::vector<int>{});
}

// The data set after the conditioner: crop range 3..32 of the sorted rows, 30 points,
// gains one point at 100 and two at 250 and 260 (REPS 0), so 33 points from 20 to 340.
// Used: those with a concentration above 0 and REPS other than 0 (26); not used: 4
// and 11 (missing concentration), 6 and 19 (REPS 0), 9, 24 and 25 (inserted).
// Sampling interval: (340 - 20) / (33 - 1) = 10, by hand. R and the iteration count:
// scripts/gen-messy-fixtures (Gold's iteration with the exponential kernel, 1PG15.5).
TEST_F(MessyPulseModes, GoldDeconvolvesTheUsedPointsOfTheConditionedCropRange) {
  ASSERT_EQ(run_->status, 0) << run_->err;
  const std::string text = listing("gold.lst");
  EXPECT_EQ(value_after(text, " Sampling Interval = "), 10.0) << text;
  EXPECT_EQ(value_after(text, " Iterations = "), 101.0);
  EXPECT_NEAR(value_after(text, " R = "), 70.2312, 0.001);
  std::vector<int> not_used;
  for (const std::string& line : text_lines(text)) {
    if (line.ends_with("not used")) not_used.push_back(std::stoi(line.substr(0, 5)));
  }
  EXPECT_EQ(not_used, (std::vector<int>{4, 6, 9, 11, 19, 24, 25}));
  EXPECT_NE(text.find("\n   33     340.00 "), std::string::npos) << "the last point";
}

// The same run's answers file: after Cluster8's block, Gold_Method's, with the values of
// its listing (from scripts/gen-messy-fixtures) and one secretion line for each of the
// 26 samples used, none for the seven not used.
TEST_F(MessyPulseModes, GoldAppendsItsResultsToTheAnswersFile) {
  ASSERT_EQ(run_->status, 0) << run_->err;
  const std::string answers = listing("answers.bst");
  const std::size_t gold = answers.find("Gold_Method results for messy_series.dat\n");
  ASSERT_NE(gold, std::string::npos) << answers;
  const std::string block = answers.substr(gold);
  EXPECT_EQ(value_after(block, " Iterations = "), 101.0) << block;
  EXPECT_NEAR(value_after(block, " R = "), 70.2312, 0.001);
  int secretions = 0;
  for (const std::string& line : text_lines(block)) {
    if (line.find(" SECRETION(") == std::string::npos) continue;
    ++secretions;
    const int i = std::stoi(line.substr(line.find("TIME(") + 5));
    EXPECT_TRUE(i != 4 && i != 6 && i != 9 && i != 11 && i != 19 && i != 24 && i != 25) << line;
  }
  EXPECT_EQ(secretions, 26);
}

}  // namespace
}  // namespace tidemark::pulse
