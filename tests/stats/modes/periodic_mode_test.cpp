#include "stats/modes/periodic_mode.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <string>
#include <numbers>

#include "graphics/plot_parser.h"
#include "shell/session_fixture.h"

namespace tidemark::stats {
namespace {

using testing_support::Scratch;
using testing_support::SessionFixture;

// Two days every 10 minutes (times in minutes from midnight) of
// 10 + 3 cos(2 pi (t - 480) / 1440) plus a small deterministic wobble; its peak is at
// 08:00 by construction.
data::DataSet circadian_set(bool flat = false) {
  data::DataSet set;
  set.file_name = "cortisol.dat";
  set.handle = "CORT";
  for (int i = 0; i < 288; ++i) {
    const double t = 10.0 * i;
    const double wobble = 0.2 * std::sin(1.7 * i * i);
    const double y = flat ? 5 : 10 + 3 * std::cos(2 * std::numbers::pi * (t - 480) / 1440) + wobble;
    set.push_point({static_cast<float>(t), static_cast<float>(y), 0.5f, 2, 0, 0, 0, 0});
  }
  return set;
}

class PeriodicMode : public testing::Test {
 protected:
  explicit PeriodicMode(bool flat = false)
      : f(testing_support::only_mode(9, [](int) { return make_periodic_mode(); })) {
    f.session->store().append(circadian_set(flat));
  }
  std::string listing_after(std::vector<std::string> commands) {
    commands.push_back("PERIODIC_VIEW");
    f.run(commands);
    return f.ui.texts.empty() ? "" : f.ui.texts.back();
  }
  SessionFixture f;
};

TEST_F(PeriodicMode, FindsTheDailyRhythmAndListsItsPeakAndFit) {
  const std::string text = listing_after({"SEED 5", "MODE Periodic", "SET Permutation Cycles = 99",
                                          "SET Harmonics = 2", "SET Clock Times = ON",
                                          "SET Period = 1440", "PERIODIC_CALCULATE"});
  ASSERT_FALSE(f.session->failed()) << testing::PrintToString(f.ui.shown());
  for (const char* part : {"Periodic Rhythm Analysis of cortisol.dat\n", "Points used =    288",
                           "weights 1/SEM^2", " Permutation cycles = 99\n",
                           "with 2 harmonic(s)", "Acrophase of the curve", "(08:00)",
                           "Zero-amplitude F"}) {
    EXPECT_NE(text.find(part), std::string::npos) << part << "\n" << text;
  }
  // The best peak is the day, to within a grid step (1440^2 / span / 5).
  const auto& shown = f.ui.dialog_values;
  ASSERT_EQ(shown.size(), periodic_dialog().fields.size());
  const auto best = std::get<std::string>(shown[*periodic_dialog().find("Best Period")]);
  ASSERT_TRUE(best.starts_with("Best period =")) << best;
  EXPECT_NEAR(std::stod(best.substr(13)), 1440, 1440.0 * 1440 / 2870 / 5) << best;
  const data::SummaryRow& row = f.session->store().current().summary;
  ASSERT_TRUE(row.contains("BN"));
  EXPECT_EQ(row.at("BN").title, "Periodic Period");
  EXPECT_EQ(row.at("BN").value, 1440);
  EXPECT_EQ(row.at("BX").title, "Periodic P");
  // The one shuffle that cannot beat the data: 1 / (1 + 99).
  EXPECT_NEAR(row.at("BQ").value, 0.01f, 1e-6);
  EXPECT_NEAR(row.at("BU").value, 480, 5);  // acrophase, minutes
  const auto log = f.log();
  EXPECT_TRUE(std::any_of(log.begin(), log.end(), [](const std::string& l) {
    return l.starts_with("PERIODIC: best period =");
  }));
  EXPECT_NE(Scratch::read(f.session->files().answers_path()).find("Periodic results for cortisol.dat"),
            std::string::npos);
  const auto graph = graphics::parse_plot(Scratch::read(f.session->files().graph_path()));
  ASSERT_TRUE(graph.ok()) << graph.message;
  ASSERT_EQ(graph.plot.panels.size(), 2u);
  EXPECT_EQ(graph.plot.panels[1].title, "Periodogram");
}

// Input the kernels refuse: the message titled for the mode, the data set unchanged.
TEST_F(PeriodicMode, RefusesWhatItCannotAnalyseAndLeavesTheDataAlone) {
  const std::vector<float> original = f.session->store().current().y();
  struct Case {
    std::vector<std::string> settings;
    std::string says;
  };
  const Case cases[] = {
      {{"SET Longest Period = 99999"}, "exceeds the time span of the data"},
      {{"SET Shortest Period = 5"}, "below twice the median sampling interval"},
      {{"SET Harmonics = 7"}, "between 1 and 4"},
      {{"SET Number of Peaks = 0"}, "number of peaks"},
      {{"SET Period = -3"}, "must be positive"},
  };
  for (const Case& c : cases) {
    SessionFixture run(testing_support::only_mode(9, [](int) { return make_periodic_mode(); }));
    run.session->store().append(circadian_set());
    std::vector<std::string> commands{"MODE Periodic", "SET Permutation Cycles = 0"};
    commands.insert(commands.end(), c.settings.begin(), c.settings.end());
    commands.push_back("PERIODIC_CALCULATE");
    run.run(commands);
    const auto shown = run.ui.shown();
    ASSERT_FALSE(shown.empty()) << c.says;
    EXPECT_TRUE(shown.back().starts_with("Error Reported by Periodic: ")) << shown.back();
    EXPECT_NE(shown.back().find(c.says), std::string::npos) << shown.back();
    EXPECT_EQ(run.session->store().current().y(), original);
    EXPECT_FALSE(run.session->store().current().modified);
  }
}

class FlatSeries : public PeriodicMode {
 protected:
  FlatSeries() : PeriodicMode(true) {}
};

TEST_F(FlatSeries, ConstantConcentrationsHaveNoRhythm) {
  f.run({"MODE Periodic", "PERIODIC_CALCULATE"});
  const auto shown = f.ui.shown();
  ASSERT_FALSE(shown.empty());
  EXPECT_EQ(shown.back(),
            "Error Reported by Periodic: The series is constant: it has no rhythm to seek.");
  EXPECT_FALSE(f.session->store().current().summary.contains("BN"));
}

// Subtracting takes the harmonics out and keeps the level; a second calculation finds
// almost no rhythm at the day; reset brings the series back; store keeps a copy.
TEST_F(PeriodicMode, SubtractResetAndStoreActOnTheConcentrations) {
  const std::vector<float> original = f.session->store().current().y();
  f.run({"MODE Periodic", "PERIODIC_SUBTRACT", "SET Permutation Cycles = 0", "SET Period = 1440",
         "PERIODIC_CALCULATE", "PERIODIC_SUBTRACT", "PERIODIC_STORE", "PERIODIC_CALCULATE"});
  ASSERT_FALSE(f.ui.shown().empty());
  EXPECT_NE(f.ui.shown().front().find("There is no fitted rhythm of this data set to subtract"),
            std::string::npos);
  const data::Store& store = f.session->store();
  ASSERT_EQ(store.count(), 2);
  EXPECT_EQ(store.at(1).file_name, "cortisol_per.dat");
  EXPECT_TRUE(store.at(0).modified);
  double mean = 0;
  for (float y : store.at(0).y()) mean += y / 288.0;
  EXPECT_NEAR(mean, 10, 0.05);  // the MESOR stays
  EXPECT_LT(store.at(0).summary.at("BT").value, 0.05);  // amplitude left at the day
  SessionFixture again(testing_support::only_mode(9, [](int) { return make_periodic_mode(); }));
  again.session->store().append(circadian_set());
  again.run({"MODE Periodic", "SET Permutation Cycles = 0", "PERIODIC_CALCULATE",
             "PERIODIC_SUBTRACT", "PERIODIC_RESET"});
  EXPECT_EQ(again.session->store().at(0).y(), original);
}

// The frame keeps what a calculation left (summary cells, result fields) and a recall
// writes it back over a later calculation's; the cycles show their progress.
TEST_F(PeriodicMode, StoredResultsComeBackOverALaterCalculation) {
  f.run({"SEED 3", "MODE Periodic", "SET Permutation Cycles = 20", "SET Period = 1440",
         "PERIODIC_CALCULATE", "STORE_RESULTS", "SET Period = 720", "PERIODIC_CALCULATE",
         "RECALL_RESULTS"});
  ASSERT_FALSE(f.session->failed()) << testing::PrintToString(f.ui.shown());
  EXPECT_EQ(f.session->store().current().summary.at("BN").value, 1440);
  const std::string recalled =
      std::get<std::string>(f.ui.dialog_values[*periodic_dialog().find("Rhythm")]);
  EXPECT_TRUE(recalled.starts_with("Amplitude =")) << recalled;
  EXPECT_NE(std::find(f.ui.progress_titles.begin(), f.ui.progress_titles.end(),
                      "Periodic permutation cycles"),
            f.ui.progress_titles.end());
}

}  // namespace
}  // namespace tidemark::stats
