#include "stats/modes/apen_mode.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "graphics/plot_parser.h"
#include "shell/session_fixture.h"

namespace tidemark::stats {
namespace {

using testing_support::data_set;
using testing_support::Scratch;
using testing_support::SessionFixture;
using Lines = std::vector<std::string>;

shell::ModuleFactories apen_modes() {
  return testing_support::only_mode(1, [](int) { return make_apen_mode(); });
}

class ApEnMode : public testing::Test {
 protected:
  ApEnMode() : f(apen_modes()) { f.session->store().append(data_set("lh.dat", "LH", 5)); }
  Lines listing(const Lines& settings) {
    Lines commands = {"SEED 5", "MODE ApEn"};
    commands.insert(commands.end(), settings.begin(), settings.end());
    commands.insert(commands.end(), {"APEN_CALCULATE", "ApEn_VIEW"});
    f.run(commands);
    EXPECT_FALSE(f.session->failed()) << testing::PrintToString(f.ui.shown());
    return f.ui.first_text_lines();
  }
  SessionFixture f;
};

// The series 1, 2, 3, 4, 5 in Z-scores has spacing 1 / sqrt(2.5) = 0.63 > R = 0.2: each
// template matches only itself, Φ(m) = ln(1 / (6 − m)), ApEn(1) = ln(4/5) = -0.22314,
// ApEn(2) = ln(3/4) = -0.28768 (gfortran (1PG15.5)). Every shuffle keeps the values
// distinct, so each shuffled ApEn equals the data's: Ratio 1, SD 0, Z undefined
// (division by an SD of 0), P = 1.
TEST_F(ApEnMode, ListingOfASeriesWithoutMatchesBetweenTemplates) {
  const Lines lines = listing({"SET MC Cycles = 3"});
  ASSERT_EQ(lines.size(), 20u);
  EXPECT_EQ(lines[0], "ApEn Calculation on lh.dat");
  EXPECT_EQ(lines[1], " Data were converted to Z-scores.");
  EXPECT_EQ(lines[2], " R =  0.20 with 3 Monte-Carlo cycles");
  EXPECT_EQ(lines[3], "ApEn(1,0.20,5) =    -0.22314    ");
  EXPECT_EQ(lines[4], "ApEn(2,0.20,5) =    -0.28768    ");
  EXPECT_EQ(lines[5], " Noise Added = ");
  EXPECT_EQ(lines[6].rfind("Noise Added ApEn(1,0.20,5) = ", 0), 0u);
  EXPECT_EQ(lines[8], " Shuffled = ");
  EXPECT_EQ(lines[9], "Shuffled ApEn(1,0.20,5) =    -0.22314     +/-      0.0000    ");
  EXPECT_EQ(lines[11], " Ratio = ");
  EXPECT_EQ(lines[12].rfind("Ratio ApEn(1,0.20,5) =      1.0000     +/- ", 0), 0u);
  EXPECT_EQ(lines[14], " Z for Random = ");
  EXPECT_EQ(lines[15], "Z for Random ApEn(1,0.20,5) =       Undefined");
  EXPECT_EQ(lines[17], " P for Random = ");
  EXPECT_EQ(lines[19], "P for Random ApEn(2,0.20,5) =      1.0000    ");
}

// The same series: each result field holds its group's figures for m = 1 and m = 2 as
// the listing above has them; during the passes the second and third fields count the
// cycles, and both passes report their progress to the ui up to the whole.
TEST_F(ApEnMode, ResultFieldsShowTheFiguresAndCountTheCyclesDuringThePasses) {
  listing({"SET MC Cycles = 3"});
  const auto field = [&](std::size_t k) { return std::get<std::string>(f.ui.dialog_values[k]); };
  EXPECT_EQ(field(4), " ApEn = -0.22314 (m=1), -0.28768 (m=2)");
  EXPECT_EQ(field(5).rfind(" Noise Added = ", 0), 0u);
  EXPECT_EQ(field(6), " Shuffled = -0.22314 +/- 0.0000 (m=1), -0.28768 +/- 0.0000 (m=2)");
  EXPECT_EQ(field(7).rfind(" Ratio = 1.0000 +/- ", 0), 0u);
  EXPECT_EQ(field(8), " Z for Random = Undefined (m=1), Undefined (m=2)");
  EXPECT_EQ(field(9), " P for Random = 1.0000 (m=1), 1.0000 (m=2)");
  Lines counted;
  for (const auto& values : f.ui.updated_values) {
    for (std::size_t k : {5u, 6u}) {
      const std::string text = std::get<std::string>(values[k]);
      if (text.find("Cycle") != std::string::npos) counted.push_back(text);
    }
  }
  ASSERT_FALSE(counted.empty());
  EXPECT_NE(std::find(counted.begin(), counted.end(), " Noise Added Cycle 3 of 3"), counted.end());
  EXPECT_EQ(counted.back(), " Shuffled Cycle 3 of 3");
  EXPECT_EQ(f.ui.progress_titles, (Lines{"ApEn Noise Added Cycles", "ApEn Shuffled Cycles"}));
  ASSERT_FALSE(f.ui.progress_fractions.empty());
  EXPECT_EQ(f.ui.progress_fractions.back(), 1.0);
}

// do_apen.ini keeps the four settings and no result; when one of the four does not
// read, all four take their defaults.
TEST(ApEnSettings, TheFileHoldsTheFourSettingsAndABadItemKeepsOnlyItsDefault) {
  SessionFixture first(apen_modes());
  first.session->store().append(data_set("lh.dat", "LH", 5));
  first.run({"MODE ApEn", "SET R = 0.5", "SET MC Cycles = 7", "SAVE_PARAMETERS"});
  const auto file = first.session->folders().system / "do_apen.ini";
  std::istringstream saved(Scratch::read(file));
  Lines items;
  for (std::string line; std::getline(saved, line);) items.push_back(line);
  ASSERT_EQ(items.size(), 4u) << Scratch::read(file);

  SessionFixture second(apen_modes());
  second.session->store().append(data_set("lh.dat", "LH", 5));
  const auto kept = second.session->folders().system / "do_apen.ini";
  std::filesystem::copy_file(file, kept);
  second.run({"MODE ApEn"});
  EXPECT_EQ(std::get<int>(second.ui.dialog_values[3]), 7);

  SessionFixture third(apen_modes());
  third.session->store().append(data_set("lh.dat", "LH", 5));
  std::string text = Scratch::read(file);
  text.replace(text.find("0.5"), 3, "half");
  std::ofstream(third.session->folders().system / "do_apen.ini") << text;
  third.run({"MODE ApEn"});
  // The bad item keeps its default; the rest of the file still counts.
  EXPECT_EQ(std::get<double>(third.ui.dialog_values[2]), 0.2);
  EXPECT_EQ(std::get<int>(third.ui.dialog_values[3]), 7);
}

TEST_F(ApEnMode, DifferencingAndAbsoluteRAreNotedAndShortenTheSeries) {
  const Lines lines = listing({"SET MC Cycles = 2", "SET First Difference Detrend = ON",
                               "SET Use R as a Fraction of the Data's SD = OFF", "SET R = 0.5"});
  ASSERT_GE(lines.size(), 4u);
  EXPECT_EQ(lines[1], " Data were first differenced.");
  EXPECT_EQ(lines[2], " R =  0.50 with 2 Monte-Carlo cycles");
  // Differences of 1 .. 5 are all 1: a constant series of 4 points, ApEn 0.
  EXPECT_EQ(lines[3], "ApEn(1,0.50,4) =      0.0000    ");
}

TEST_F(ApEnMode, TooFewCyclesAreRefusedWithTheModesTitle) {
  f.run({"MODE ApEn", "SET MC Cycles = 1", "APEN_CALCULATE"});
  EXPECT_EQ(f.ui.shown(), (Lines{"Error Reported by ApEn: The number of Monte-Carlo cycles must "
                                 "be between 2 and 1000000."}));
}

// The series 1 .. 5 again: ApEn and P for Random as the listing above has them, each
// pair a note under the page title.
TEST_F(ApEnMode, TheGraphSourceParsesWithTheValuesAsNotes) {
  listing({"SET MC Cycles = 3"});
  const std::string source = Scratch::read(f.session->files().graph_path());
  const graphics::PlotParseResult plot = graphics::parse_plot(source);
  ASSERT_TRUE(plot.ok()) << plot.message;
  EXPECT_EQ(plot.plot.title, "Approximate Entropy");
  EXPECT_EQ(plot.plot.notes, (Lines{"ApEn(1) = -0.22314   P for Random = 1.0000",
                                    "ApEn(2) = -0.28768   P for Random = 1.0000"}));
}

TEST(ApEnReplay, TheHistoryReproducesTheListingByteForByte) {
  Scratch out;
  SessionFixture first(apen_modes());
  first.session->store().append(data_set("lh.dat", "LH", 30));
  first.run({"SEED 17", "MODE ApEn", "SET MC Cycles = 40", "SET R = 0.5", "APEN_CALCULATE",
             "COPY_LST \"" + (out / "first.lst").string() + "\""});
  const std::string listing = Scratch::read(out / "first.lst");
  std::filesystem::remove(out / "first.lst");
  SessionFixture second(apen_modes());
  second.session->store().append(data_set("lh.dat", "LH", 30));
  second.session->random().seed(1);
  second.run({"@ \"" + first.session->files().history_path().string() + "\""});
  EXPECT_FALSE(second.session->failed()) << testing::PrintToString(second.ui.shown());
  EXPECT_EQ(Scratch::read(out / "first.lst"), listing);
}

}  // namespace
}  // namespace tidemark::stats
