// The spreadsheet's commands through the real headless program: command files in a fresh
// program folder, the data set written back out with WRITE_NATIVE and read here.
#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>
#include <string>
#include <vector>

#include "shell/program_runner.h"
#include "shell/scratch.h"

namespace tidemark::testing_support {
namespace {

namespace fs = std::filesystem;
using Lines = std::vector<std::string>;
using Column = std::vector<double>;

// Six points: TIME 0..50, Y 1..6; the crop range is rows 2 to 4.
constexpr const char* kSixPoints =
    "!FILENAME = six.dat\n!CROP_Start = 2\n!CROP_End = 4\n!header_x = TIME\n!header_y = Y\n"
    "0 1 0.1 2\n10 2 0.1 2\n20 3 0.1 2\n30 4 0.1 2\n40 5 0.1 2\n50 6 0.1 2\n";

Lines lines_of(const std::string& text) {
  Lines lines;
  std::istringstream in(text);
  for (std::string line; std::getline(in, line);) lines.push_back(line);
  return lines;
}

bool has_line(const Lines& lines, const std::string& line) {
  return std::find(lines.begin(), lines.end(), line) != lines.end();
}

class Spreadsheet : public testing::Test {
 protected:
  void SetUp() override {
    if (!fs::exists(tidemark_binary())) GTEST_SKIP() << "build the tidemark program first";
  }

  // Reads the six points, runs `commands`, then writes the data set to out.dat; each run
  // in a fresh program folder.
  ProgramRun run(const std::string& commands) {
    fs::remove_all(dir / "home");
    const auto data = dir.write("six.dat", kSixPoints);
    const auto file = dir.write("run.cmd", "READ_NATIVE \"" + data.string() + "\"\n" + commands +
                                               "WRITE_NATIVE \"out.dat\"\n");
    return run_tidemark(dir / "home", dir.path(), {"-@", file.string()}, "");
  }

  // Column `c` (0 = TIME, 1 = Y) of the data lines of out.dat.
  Column written(int c) const {
    Column values;
    for (const std::string& line : lines_of(Scratch::read(dir / "out.dat"))) {
      if (line.empty() || line[0] == '!' || line[0] == ';') continue;
      std::istringstream in(line);
      double v = 0;
      for (int i = 0; i <= c; ++i) in >> v;
      values.push_back(v);
    }
    return values;
  }

  Lines history() const {
    return lines_of(Scratch::read(testing_support::run_file(dir / "home", "CMD_")));
  }

  Scratch dir;
};

const Column kOriginalY = {1, 2, 3, 4, 5, 6};

TEST_F(Spreadsheet, RangeAssignmentIsWrittenBackByUpdateAndRecorded) {
  const ProgramRun r = run("SPREADSHEET_FUNCTION= Y(3:) = 0\nSPREADSHEET_UPDATE\n");
  EXPECT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(written(1), (Column{1, 2, 0, 0, 0, 0}));
  const Lines h = history();
  EXPECT_TRUE(has_line(h, "SPREADSHEET_FUNCTION= Y(3:) = 0"));
  EXPECT_TRUE(has_line(h, "SPREADSHEET_UPDATE"));
}

TEST_F(Spreadsheet, ChangesNotAcceptedAreDroppedByFinish) {
  const ProgramRun r = run("SPREADSHEET_FUNCTION= Y = 0\nSPREADSHEET_FINISH\nSPREADSHEET_UPDATE\n");
  EXPECT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(written(1), kOriginalY);
}

TEST_F(Spreadsheet, OpeningPrintsTheGridWithTheWorkingValues) {
  const ProgramRun r = run("SPREADSHEET_FUNCTION= Y(1:1) = 1/3\nSPREADSHEET\n");
  EXPECT_EQ(r.status, 0) << r.err;
  const Lines out = lines_of(r.out);
  // Rows as gfortran writes (I6,1PG15.5,1PG15.5,1PG15.5,I15) of 1, 0.0, 1/3, 0.1, 2.
  EXPECT_TRUE(has_line(out, "Data Spread Sheet: six.dat, 6 rows")) << r.out;
  const std::string row1 = "     1     0.0000        0.33333        0.10000                  2";
  EXPECT_TRUE(std::any_of(out.begin(), out.end(), [&](const std::string& l) {
    return l.rfind(row1, 0) == 0;
  })) << r.out;
  EXPECT_TRUE(has_line(history(), "SPREADSHEET"));
}

TEST_F(Spreadsheet, ReshapingCommandsUseTheSpinValuesSetWithSet) {
  struct Case {
    const char* commands;
    Column time, y;
  };
  // By hand from TIME 0..50, Y 1..6 and crop rows 2..4.
  const Case cases[] = {
      {"SET Bin Size = 3\nSPREADSHEET_AVERAGE\n", {10, 40}, {2, 5}},
      {"SPREADSHEET_AVERAGE\n", {5, 25, 45}, {1.5, 3.5, 5.5}},
      {"SET One every = 2\nSET points starting at = 2\nSPREADSHEET_SELECT\n",
       {10, 30, 50},
       {2, 4, 6}},
      {"SPREADSHEET_CROP\n", {10, 20, 30}, {2, 3, 4}},
      {"SET % = 0\nSPREADSHEET_CORRUPT\n", {0, 10, 20, 30, 40, 50}, kOriginalY},
  };
  for (const Case& c : cases) {
    const ProgramRun r = run(std::string(c.commands) + "SPREADSHEET_UPDATE\n");
    EXPECT_EQ(r.status, 0) << c.commands << r.err;
    EXPECT_EQ(written(0), c.time) << c.commands;
    EXPECT_EQ(written(1), c.y) << c.commands;
    for (const std::string& line : lines_of(c.commands)) {
      EXPECT_TRUE(has_line(history(), line)) << line;
    }
  }
}

TEST_F(Spreadsheet, CommandsReachTheSpreadsheetFromAModesFrame) {
  // ApEn has no field named "Bin Size", so SET inside its frame sets the spin value.
  run("MODE ApEn\nSET Bin Size = 3\nSPREADSHEET_AVERAGE\nSPREADSHEET_UPDATE\n");
  EXPECT_EQ(written(1), (Column{2, 5}));
  EXPECT_TRUE(has_line(history(), "SET Bin Size = 3"));
}

TEST_F(Spreadsheet, ShuffleAndCorruptDependOnlyOnTheSeed) {
  const std::string commands =
      "SEED 11\nSPREADSHEET_SHUFFLE\nSPREADSHEET_CORRUPT\nSPREADSHEET_UPDATE\n";
  ASSERT_EQ(run(commands).status, 0);
  const Column first = written(1);
  ASSERT_EQ(run(commands).status, 0);
  EXPECT_EQ(written(1), first);
  EXPECT_EQ(written(0), (Column{0, 10, 20, 30, 40, 50}));
  EXPECT_NE(first, kOriginalY);
}

TEST_F(Spreadsheet, RefusedCommandsChangeNothingAndAreNotRecorded) {
  struct Case {
    const char* command;
    const char* message;  // as shown on standard error, "TITLE: text"
  };
  // The program's messages; the reshapes are impossible on 6 rows.
  const Case cases[] = {
      {"SPREADSHEET_FUNCTION= N = 2*N",
       "Function Parse Error: *** N Cannot Be On Left Of Equal Sign"},
      {"SPREADSHEET_FUNCTION= Y 2", "Function Parse Error: *** No Equal Sign"},
      {"SPREADSHEET_FUNCTION= Y = 1/(N-4)", "Function Evaluation Error: Division by zero"},
      {"SET Bin Size = two",
       "Data Spread Sheet: \"two\" is not a valid value for the field \"Bin Size\" (a whole "
       "number)"},
      {"SET Bin Size = 6\nSPREADSHEET_AVERAGE",
       "Data Spread Sheet: The result would keep 1 rows; at least 2 are needed. Nothing was "
       "changed."},
      {"SET points starting at = 9\nSPREADSHEET_SELECT",
       "Data Spread Sheet: points starting at must be a row from 1 to 6."},
  };
  for (const Case& c : cases) {
    const ProgramRun r = run(std::string(c.command) + "\nSPREADSHEET_UPDATE\n");
    EXPECT_EQ(r.status, 1) << c.command;
    EXPECT_TRUE(has_line(lines_of(r.err), c.message)) << c.command << "\n" << r.err;
    EXPECT_EQ(written(1), kOriginalY) << c.command;
    const Lines h = history();
    EXPECT_FALSE(has_line(h, lines_of(c.command).back())) << c.command;
  }
}

// "SPREADSHEET" opens the grid only as the whole word (any letter case); a longer word
// that begins with it and names no spreadsheet command is nobody's.
TEST_F(Spreadsheet, OnlyTheWholeWordOpensTheGrid) {
  const ProgramRun r = run("spreadsheet\nSPREADSHEETS\n");
  EXPECT_TRUE(has_line(history(), "SPREADSHEET")) << r.err;
  EXPECT_FALSE(has_line(history(), "SPREADSHEETS"));
  EXPECT_TRUE(has_line(lines_of(r.err), "COMMAND IGNORED!: SPREADSHEETS")) << r.err;
}

TEST_F(Spreadsheet, WithoutADataSetTheSpreadsheetSaysSo) {
  const auto file = dir.write("run.cmd", "SPREADSHEET\nSPREADSHEET_FUNCTION= Y = 1\n");
  const ProgramRun r = run_tidemark(dir / "home", dir.path(), {"-@", file.string()}, "");
  EXPECT_EQ(r.status, 1);
  EXPECT_TRUE(has_line(
      lines_of(r.err),
      "Data Spread Sheet: There is no data set for the spreadsheet: read a data set first."))
      << r.err;
}

// The grid belongs to the data set it was opened on, as it was then: a data set read
// after RESET at the same place, another data set made current, or the same data set
// changed by another command is never written over with the grid's rows.
TEST_F(Spreadsheet, AGridIsNeverWrittenOverAnotherOrAChangedDataSet) {
  dir.write("b.dat", "!FILENAME = b.dat\n!header_y = Y\n0 7 0.1 2\n10 8 0.1 2\n20 9 0.1 2\n");
  const std::string read_b = "READ_NATIVE \"" + (dir / "b.dat").string() + "\"\n";
  const std::string read_six = "READ_NATIVE \"" + (dir / "six.dat").string() + "\"\n";
  struct Case {
    std::string commands;
    Column y;  // the concentrations of the current data set written at the end
    std::string message;
  };
  const std::string gone = "Data Spread Sheet: The spreadsheet was opened on six.dat, which ";
  const Case cases[] = {
      {"SPREADSHEET_FUNCTION= Y = 1000+N\nRESET\n" + read_b + "SPREADSHEET\nSPREADSHEET_UPDATE\n",
       {7, 8, 9},
       gone + "is gone: the grid is opened again from the current data set."},
      {"SPREADSHEET_FUNCTION= Y = 1000+N\n" + read_b + "SPREADSHEET_UPDATE\n",
       {7, 8, 9},
       gone + "is no longer the current data set: nothing was written, and the grid is opened "
              "again from the current data set."},
      // An accepted change, then the data set changed by a second read of its file into
      // a new data set made current and selected back: the first data set itself is
      // unchanged, so its grid still writes.
      {"SPREADSHEET_FUNCTION= Y = 2*Y\nSPREADSHEET_UPDATE\n" + read_six +
           "SELECT six.dat\nSPREADSHEET_FUNCTION= Y(1:1) = 0\nSPREADSHEET_UPDATE\n",
       {0, 4, 6, 8, 10, 12},
       ""},
  };
  for (const Case& c : cases) {
    const ProgramRun r = run(c.commands);
    EXPECT_EQ(written(1), c.y) << c.commands;
    if (!c.message.empty()) {
      EXPECT_TRUE(has_line(lines_of(r.err), c.message)) << c.commands << "\n" << r.err;
    }
  }
}

// The same data set changed by another command since the grid was opened (Cosine's
// subtraction of its model) is not put back to the grid's values.
TEST_F(Spreadsheet, AnUpdateAfterTheDataSetChangedIsRefused) {
  // The six points without a crop range, so that Cosine takes all of them.
  fs::remove_all(dir / "home");
  const std::string six = kSixPoints;
  const auto data =
      dir.write("free.dat", "!FILENAME = free.dat\n" + six.substr(six.find("!header_x")));
  const auto file = dir.write(
      "run.cmd", "READ_NATIVE \"" + data.string() +
                     "\"\nSPREADSHEET_FUNCTION= Y = 2*Y\nSPREADSHEET_UPDATE\nMODE Cosine\n"
                     "SET Period = 60\nSET Amplitude = 1\nSET Mean = 1\nCOSINE_SUBTRACT\n"
                     "SPREADSHEET_UPDATE\nWRITE_NATIVE \"out.dat\"\n");
  const ProgramRun r = run_tidemark(dir / "home", dir.path(), {"-@", file.string()}, "");
  EXPECT_EQ(r.status, 1) << r.err;
  EXPECT_TRUE(has_line(lines_of(r.err),
                       "Data Spread Sheet: The spreadsheet was opened on free.dat, which has "
                       "changed since: nothing was written, and the grid is opened again from "
                       "the current data set."))
      << r.err;
  // 2*Y minus the model 1*cos(2 pi t/60) + 1 at t = 0, 10, ..., 50 (by hand: cos 0 = 1,
  // cos 60deg = 0.5, cos 120deg = -0.5, cos 180deg = -1, ...), not 2*Y again.
  const Column expected = {0, 2.5, 5.5, 8, 9.5, 10.5};
  const Column got = written(1);
  ASSERT_EQ(got.size(), expected.size());
  for (std::size_t i = 0; i < got.size(); ++i) EXPECT_NEAR(got[i], expected[i], 1e-4) << i;
}

// A command line over 1024 characters is refused whole, naming the line: a sum of 700
// ones is not cut to a shorter sum and stored.
TEST_F(Spreadsheet, ALineLongerThanACommandLineIsRefusedNotCut) {
  std::string sum = "1";
  for (int i = 1; i < 700; ++i) sum += "+1";
  const ProgramRun r = run("SPREADSHEET_FUNCTION= Y = " + sum + "\nSPREADSHEET_UPDATE\n");
  EXPECT_EQ(r.status, 1);
  EXPECT_EQ(written(1), kOriginalY);
  const std::string where = "command 2 (" + (dir / "run.cmd").string() + " line 2)";
  EXPECT_NE(r.err.find("COMMAND IGNORED!: The line of " + where + " has 1425 characters; a "
                       "command line holds at most 1024: SPREADSHEET_FUNCTION= Y = 1+1+1+1+1+1+"),
            std::string::npos)
      << r.err;
}

// Rows stored as missing are counted for the user.
TEST_F(Spreadsheet, RowsStoredAsMissingAreCounted) {
  const ProgramRun r = run("SPREADSHEET_FUNCTION= Y = (N-4)^0.5\nSPREADSHEET_FINISH\n");
  EXPECT_TRUE(has_line(lines_of(r.err),
                       "Data Spread Sheet: 3 of 6 rows were stored as missing (a missing input, a "
                       "result that is not a number, or one beyond the range of the column)."))
      << r.err;
}

}  // namespace
}  // namespace tidemark::testing_support
