#include "pulse/modes/cluster8_mode.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "data/secretion_events.h"
#include "graphics/plot_parser.h"
#include "pulse/modes/cluster8_graph.h"
#include "pulse/modes/cluster8_listing.h"
#include "shell/session_fixture.h"

namespace tidemark::pulse {
namespace {

using testing_support::Scratch;
using testing_support::SessionFixture;
using Lines = std::vector<std::string>;

// One pulse: times 10..120, means 1 1 1 1 10 10 10 1 1 1 1 1, SD 0.1, duplicates.
// Worked by hand with the default settings (peak 2, nadir 2, T 2): UP at 4, 5, 6 and
// DOWN at 7, 8, 9 (every t above 60); PULSE 4..9, so one peak from 4 to 10 with largest
// 10 at 5, width 60, pre- and post-nadir means 1, peak mean 34/7: LARGEST% 1000,
// MEAN% 485.7, AREA (34/7 - 1) * 60 = 231.429, increase 9. No valley closes. The drop
// 10 -> 1 at point 8 is questionable (t = (10 * 0.870551 - 1) / 0.1 = 77), not probable
// (t(7,9) = (10 * 0.757858 - 1) / 0.1 = 65.8 and t(6,8) likewise exceed 4).
data::DataSet one_pulse() {
  data::DataSet set;
  set.file_name = "pulse.dat";
  set.handle = "P";
  const float means[] = {1, 1, 1, 1, 10, 10, 10, 1, 1, 1, 1, 1};
  for (int i = 0; i < 12; ++i)
    set.push_point({10.0f * static_cast<float>(i + 1), means[i], 0.1f, 2.0f, 0, 0, 0, 0});
  return set;
}

shell::ModuleFactories cluster8_only() {
  return testing_support::only_mode(3, [](int) { return make_cluster8_mode(); });
}

class Cluster8Mode : public testing::Test {
 protected:
  Cluster8Mode() : f(cluster8_only()) { f.session->store().append(one_pulse()); }
  // Runs `commands` in the mode, then copies its listing and returns it.
  std::string run_and_list(std::vector<std::string> commands) {
    commands.insert(commands.begin(), "MODE Cluster8");
    commands.push_back("COPY_LST \"" + (out / "c.lst").string() + "\"");
    f.run(commands);
    return Scratch::read(out / "c.lst");
  }
  Scratch out;
  SessionFixture f;
};

TEST_F(Cluster8Mode, APulseBecomesOneSecretionEventWithItsListedRow) {
  const std::string text = run_and_list({"CLUSTER_CALCULATE"});
  ASSERT_FALSE(f.session->failed()) << testing::PrintToString(f.ui.shown());
  const auto events = data::secretion_events(f.session->store().current());
  ASSERT_EQ(events.size(), 1u);
  EXPECT_DOUBLE_EQ(events[0].position, 50.0);
  // log10(9) = 0.9542425 (python3).
  EXPECT_NEAR(events[0].log_height, 0.9542425, 1e-6);
  EXPECT_NE(text.find("\n    5 (    4-   10)    60.0   10.000  1000.0   485.7  231.429    9.000\n"
                      " FOUND     1 PEAKS\nVALLEYS\n"),
            std::string::npos)
      << text;
  EXPECT_NE(text.find(" FOUND     0 VALLEYS\n Questionable Outliers Near Point numbers:    8\n"
                      " Probable Outliers Near Point numbers:\n"),
            std::string::npos)
      << text;
  const std::string answers = Scratch::read(f.session->files().answers_path());
  EXPECT_NE(answers.find(" POSITION(1) =      50.000    "), std::string::npos) << answers;
}

TEST_F(Cluster8Mode, TheVersionLineNamesTheDataSet) {
  const std::string text = run_and_list({"CLUSTER_CALCULATE"});
  EXPECT_NE(text.find("\n  Cluster Program Version 8.0 (Tidemark) on pulse.dat\n"), std::string::npos)
      << text;
}

TEST_F(Cluster8Mode, AFailedRunIsReportedAndKeepsThePreviousEvents) {
  const std::string text =
      run_and_list({"CLUSTER_CALCULATE", "SET # Points for Peak = 11", "CLUSTER_CALCULATE"});
  EXPECT_EQ(f.ui.shown(), (Lines{"CLUSTER8 ERROR: Error Reported by Cluster8",
                                 "CLUSTER8 ERROR: NOT ENOUGH DATA POINTS FOR PASS 3"}));
  EXPECT_EQ(data::secretion_events(f.session->store().current()).size(), 1u);
  EXPECT_NE(text.find("  PEAK SIZE =    11\n  MINUMUM T-SCORE FOR INCREASE =      2.000\n"),
            std::string::npos)
      << text;
}

TEST(Cluster8Listing, StripChartMarksMeanAndBothSdEnds) {
  // lo 0, hi 10: columns truncate(x / 10 * 44 + 1.01) = 18, 23, 27 for 4, 5, 6 (by hand).
  std::string expected(45, ' ');
  expected[17] = expected[22] = expected[26] = '*';
  EXPECT_EQ(strip_chart(5, 1, 0, 10, true), expected + " ***");
  EXPECT_EQ(strip_chart(5, 1, 0, 10, false), expected + " *  ");
  // A flat series (hi = lo) puts every mark in column 1.
  EXPECT_EQ(strip_chart(3, 0, 3, 3, false).substr(0, 2), "* ");
}

TEST(Cluster8Listing, PassOneLinesUseTheirFormats) {
  const std::vector<Cluster8Sample> s{
      {4, 1, 30, 2}, {5, 1, 40, 2}, {6, 1, 50, 2}, {7, 1, 60, 2}, {8, 1, 70, 2}};
  const std::string text = cluster8_listing(run_cluster8(s, {}), {}, "test.dat");
  // F10.2 / I5 / F9.1 as gfortran writes 10, 1, 20 and 10.
  EXPECT_EQ(text.substr(0, text.find("  Cluster Program")),
            "Time Between Data Points =      10.00\n"
            " Missing data point     1 at time =      10.00\n"
            " Missing data point     2 at time =      20.00\n"
            " Data Point     1 Added at time =      10.0\n"
            " Data Point     2 Added at time =      20.0\n");
}

TEST(Cluster8Graph, TheSourceParsesWithAndWithoutItsOptions) {
  const data::DataSet set = one_pulse();
  std::vector<Cluster8Sample> samples;
  for (int k = 0; k < set.size(); ++k) samples.push_back({set.y()[k], 0.1f, set.x()[k], 2.0f});
  const std::string source = cluster8_graph(set, run_cluster8(samples, {}), {});
  // The default half-life and T-score (50 and 4) in 1PG15.5; the pulse gives questionable
  // outliers (drawn as a series) but no probable ones (a note). Each line is a note of
  // its option, so an option switched off leaves none behind.
  const std::vector<std::string> notes = {
      "Outlier were tested with a Half-Life of 50.000 and a critical T-score of 4.0000",
      "No Probable Outliers Were Found."};
  const struct {
    bool parameters, outliers;
    std::vector<std::string> notes;
  } kCases[] = {{true, true, notes},
                {false, true, {notes[1]}},
                {true, false, {notes[0]}},
                {false, false, {}}};
  for (const auto& c : kCases) {
    const auto parsed = graphics::parse_plot(source, {{kShowCluster8Results, c.outliers},
                                                      {kShowParameters, c.parameters},
                                                      {kShowOutliers, c.outliers}});
    ASSERT_TRUE(parsed.ok()) << parsed.message;
    EXPECT_EQ(parsed.plot.notes, c.notes);
    for (const auto& text : parsed.plot.page_texts) EXPECT_EQ(text.y, 0.01);  // the footer only
  }
  EXPECT_NE(source.find("\"Questionable Outliers\""), std::string::npos);
}

// Drawn in the order written: the outlier circles (larger) come before the peak and
// nadir triangles, so that they never hide them; the y axis says the data's header.
TEST(Cluster8Graph, TrianglesAreDrawnOverTheOutlierCirclesAndTheYAxisIsTheHeader) {
  data::DataSet set = one_pulse();
  set.headers[data::kY] = "LH";
  std::vector<Cluster8Sample> samples;
  for (int k = 0; k < set.size(); ++k) samples.push_back({set.y()[k], 0.1f, set.x()[k], 2.0f});
  const auto parsed = graphics::parse_plot(cluster8_graph(set, run_cluster8(samples, {}), {}));
  ASSERT_TRUE(parsed.ok()) << parsed.message;
  const graphics::Panel& panel = parsed.plot.panels.at(0);
  EXPECT_EQ(panel.y_axis.label, "LH");
  std::vector<std::string> names;
  for (const graphics::Series& s : panel.series) names.push_back(s.name);
  const auto at = [&](const char* name) {
    return std::find(names.begin(), names.end(), name) - names.begin();
  };
  ASSERT_LT(at("Questionable Outliers"), static_cast<long>(names.size()));
  EXPECT_LT(at("Questionable Outliers"), at("Peaks"));
  EXPECT_LT(at("Questionable Outliers"), at("Nadirs"));
}

}  // namespace
}  // namespace tidemark::pulse
