#include "stats/modes/cosine_mode.h"

#include <gtest/gtest.h>

#include <cmath>

#include "graphics/plot_parser.h"
#include "shell/session_fixture.h"

namespace tidemark::stats {
namespace {

using testing_support::Scratch;
using testing_support::SessionFixture;

shell::ModuleFactories cosine_modes() {
  return testing_support::only_mode(6, [](int) { return make_cosine_mode(); });
}

// 10 + 3 cos(2 pi (t - 50) / 240) at t = 0, 10, ..., 470, from its closed form.
data::DataSet cosinor_set() {
  data::DataSet set;
  set.file_name = "lh.dat";
  set.handle = "LH";
  for (int i = 0; i < 48; ++i) {
    const double t = 10.0 * i;
    const double y = 10 + 3 * std::cos((t - 50) * 6.283185307 / 240);
    set.push_point({static_cast<float>(t), static_cast<float>(y), 0.1f, 2, 0, 0, 0, 0});
  }
  return set;
}

class CosineMode : public testing::Test {
 protected:
  CosineMode() : f(cosine_modes()) { f.session->store().append(cosinor_set()); }
  // The listing shown by COSINE_VIEW at the end of `commands`, all in one visit to the mode.
  std::string listing_after(std::vector<std::string> commands) {
    commands.push_back("COSINE_VIEW");
    f.run(commands);
    return f.ui.texts.empty() ? "" : f.ui.texts.back();
  }
  bool logged(const std::string& line) const {
    const auto log = f.log();
    return std::find(log.begin(), log.end(), line) != log.end();
  }
  SessionFixture f;
};

TEST_F(CosineMode, CalculateRecoversTheCosinorAndListsItsParameters) {
  const std::string text = listing_after({"MODE Cosine", "SET Period = 240", "COSINE_CALCULATE"});
  ASSERT_FALSE(f.session->failed()) << testing::PrintToString(f.ui.shown());
  // Values as gfortran writes 240, 3, 50, 10 and 0 with (1PG15.5).
  for (const char* line : {"Cosine Analysis of lh.dat\n", "\nPeriod         240.00    \n",
                           "\nAmplitude      3.0000    ", "\nPhase          50.000    ",
                           "\nMean           10.000    ", "\nSlope          0.0000    \n",
                           "\n Variance = ", " with 48\n", " % variance remaining\n"}) {
    EXPECT_NE(text.find(line), std::string::npos) << line << "\n" << text;
  }
  const auto graph = graphics::parse_plot(Scratch::read(f.session->files().graph_path()));
  ASSERT_TRUE(graph.ok()) << graph.message;
  // The scan panel: trial periods t(4) .. t(48) = 30 .. 470, none above 100 %, and at
  // the series' own period of 240 nothing left (it is a noiseless cosinor).
  ASSERT_EQ(graph.plot.panels.size(), 2u);
  const graphics::Panel& scan = graph.plot.panels[1];
  EXPECT_EQ(scan.title, "Period Scan");
  ASSERT_EQ(scan.series.size(), 1u);
  const graphics::Series& rows = scan.series[0];
  ASSERT_FALSE(rows.x.empty());
  EXPECT_EQ(rows.x.front(), 30.0);
  EXPECT_EQ(rows.x.back(), 470.0);
  for (const double percent : rows.y) EXPECT_LE(percent, 100.0);
  const auto at_240 = std::find(rows.x.begin(), rows.x.end(), 240.0) - rows.x.begin();
  EXPECT_LT(rows.y.at(static_cast<std::size_t>(at_240)), 1e-6);
}

TEST_F(CosineMode, TheNextCalculateStartsFromTheLastFit) {
  f.run({"MODE Cosine", "SET Period = 240", "COSINE_CALCULATE", "COSINE_CALCULATE"});
  // The first reading of the grid holds the default amplitude (the standard deviation),
  // the second the fitted amplitude 3 (1PG15.5 as gfortran writes it).
  EXPECT_TRUE(logged("COSINE: Amplitude      3.0000     Fit = 1"));
  EXPECT_TRUE(logged("COSINE: Period         240.00     Fit = 0"));
}

TEST_F(CosineMode, TheResultFieldsShowTheListingsVarianceLinesAndTheGridTheFit) {
  const std::string text = listing_after({"MODE Cosine", "SET Period = 240", "COSINE_CALCULATE"});
  const auto& shown = f.ui.dialog_values;
  ASSERT_EQ(shown.size(), cosine_dialog().fields.size());
  const auto variance = std::get<std::string>(shown[*cosine_dialog().find("Variance")]);
  const auto remaining = std::get<std::string>(shown[*cosine_dialog().find("Remaining")]);
  EXPECT_EQ(variance.rfind(" Variance = ", 0), 0u) << variance;
  EXPECT_NE(text.find("\n" + variance + "\n"), std::string::npos) << text;
  EXPECT_NE(text.find("\n" + remaining + "\n"), std::string::npos) << text;
  // The series' own amplitude 3, phase 50 and mean 10 (its closed form) are the next
  // starting values.
  for (const auto& [label, value] : {std::pair{"Amplitude", 3.0}, {"Phase", 50.0}, {"Mean", 10.0}})
    EXPECT_NEAR(std::get<double>(shown[*cosine_dialog().find(label)]), value, 1e-4) << label;
}

TEST_F(CosineMode, OnANewDataSetTheDefaultsReplaceTheCarriedValuesButNotASetOne) {
  f.session->store().append(testing_support::data_set("gh.dat", "GH", 5));
  f.run({"SELECT LH", "MODE Cosine", "SET Period = 240", "COSINE_CALCULATE", "SET Slope = 0.5",
         "SELECT GH", "COSINE_CALCULATE"});
  // gh.dat holds y = 1 .. 5 at t = 0 .. 40 (by hand): span 40, mean 3, the standard
  // deviation about the mean sqrt(2) = 1.4142, phase 0; the slope keeps its set value.
  // Numbers as gfortran writes them with (1PG15.5).
  for (const char* line :
       {"COSINE: Period         40.000     Fit = 0", "COSINE: Amplitude      1.4142     Fit = 1",
        "COSINE: Phase          0.0000     Fit = 1", "COSINE: Mean           3.0000     Fit = 1",
        "COSINE: Slope         0.50000     Fit = 0"})
    EXPECT_TRUE(logged(line)) << line;
}

TEST_F(CosineMode, ANonPositivePeriodReportsTheEngineCode) {
  const std::string text = listing_after({"MODE Cosine", "SET Period = 0", "COSINE_CALCULATE"});
  EXPECT_TRUE(f.session->failed());
  const auto shown = f.ui.shown();
  ASSERT_FALSE(shown.empty());
  EXPECT_EQ(shown[0], "Error Reported by Cosine:  LSFIT2 return error code = 1");
  EXPECT_NE(text.find(" LSFIT2 return error code = 1\n"), std::string::npos);
  EXPECT_EQ(std::get<std::string>(f.ui.dialog_values[*cosine_dialog().find("Variance")]),
            " LSFIT2 return error code = 1");
}

TEST_F(CosineMode, SubtractResetAndStoreActOnTheConcentrations) {
  const std::vector<float> original = f.session->store().current().y();
  // Each COSINE_STORE keeps a copy of the series as it is then: without a period the
  // subtraction changes nothing; after the fit it leaves zeros.
  f.run({"MODE Cosine", "SET Period = 0", "COSINE_SUBTRACT", "COSINE_STORE", "SET Period = 240",
         "COSINE_CALCULATE", "COSINE_SUBTRACT", "COSINE_STORE", "COSINE_RESET"});
  ASSERT_FALSE(f.session->failed()) << testing::PrintToString(f.ui.shown());
  const data::Store& store = f.session->store();
  ASSERT_EQ(store.count(), 3);
  EXPECT_EQ(store.current_index(), 0);
  EXPECT_EQ(store.at(1).y(), original);
  EXPECT_EQ(store.at(2).file_name, "lh_cos.dat");
  EXPECT_EQ(store.at(2).handle, "LH_cos");
  // The fitted curve is the series itself, stored in single precision.
  for (const float y : store.at(2).y()) EXPECT_NEAR(y, 0, 1e-4);
  EXPECT_EQ(store.current().y(), original);
  // The stored copies are in no file yet; the reset set was changed twice since read.
  for (int i = 0; i < 3; ++i) EXPECT_TRUE(store.at(i).modified) << i;
}

TEST_F(CosineMode, OnlyAChangeOfTheConcentrationsMarksTheSetModified) {
  const struct {
    std::vector<std::string> commands;
    bool modified;
  } cases[] = {
      {{"SET Period = 0", "COSINE_SUBTRACT"}, false},  // the model counts as 0
      {{"SET Period = 240", "COSINE_SUBTRACT"}, true},
      {{"COSINE_RESET"}, false},  // nothing to reset
      {{"SET Period = 0", "COSINE_SUBTRACT", "COSINE_RESET"}, false},
  };
  for (const auto& c : cases) {
    SessionFixture run(cosine_modes());
    run.session->store().append(cosinor_set());
    std::vector<std::string> commands = {"MODE Cosine"};
    commands.insert(commands.end(), c.commands.begin(), c.commands.end());
    run.run(commands);
    EXPECT_EQ(run.session->store().at(0).modified, c.modified) << c.commands.back();
  }
}

// Without its sample at t = 100 the series gets that point back from the conditioner
// (REPS 0, not fitted); the period scan still tries every point's time from the fourth,
// the inserted one's included: 30, 40, ..., 470.
TEST(CosineScan, TriesThePeriodsOfThePointsTheConditionerInserted) {
  SessionFixture f(cosine_modes());
  data::DataSet set = cosinor_set();
  for (auto& column : set.columns) column.erase(column.begin() + 10);
  f.session->store().append(set);
  f.run({"MODE Cosine", "SET Period = 240", "COSINE_CALCULATE"});
  ASSERT_FALSE(f.session->failed()) << testing::PrintToString(f.ui.shown());
  const auto graph = graphics::parse_plot(Scratch::read(f.session->files().graph_path()));
  ASSERT_TRUE(graph.ok()) << graph.message;
  ASSERT_EQ(graph.plot.panels.size(), 2u);
  const std::vector<double>& periods = graph.plot.panels[1].series.at(0).x;
  ASSERT_EQ(periods.size(), 45u);
  for (std::size_t k = 0; k < periods.size(); ++k)
    EXPECT_EQ(periods[k], 30.0 + 10.0 * static_cast<double>(k));
}

}  // namespace
}  // namespace tidemark::stats
