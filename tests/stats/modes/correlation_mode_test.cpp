#include "stats/modes/correlation_mode.h"

#include <gtest/gtest.h>

#include "graphics/plot_parser.h"
#include "shell/session_fixture.h"
#include "stats/modes/correlation_graph.h"

namespace tidemark::stats {
namespace {

using testing_support::Scratch;
using testing_support::SessionFixture;
using Lines = std::vector<std::string>;

// The series of tests/fixtures/stats/correlation_reference.txt, sampled every 10 minutes.
const std::vector<float> kA = {3, 1, 4, 1, 5, 9, 2, 6, 5, 3, 5, 8};
const std::vector<float> kB = {2, 7, 1, 8, 2, 8, 1, 8, 2, 8, 4, 5};

data::DataSet series(const std::string& name, const std::vector<float>& y, float step = 10) {
  data::DataSet set;
  set.file_name = name;
  set.handle = name;
  for (std::size_t i = 0; i < y.size(); ++i)
    set.push_point({step * static_cast<float>(i), y[i], 0.1f, 1.0f, 0, 0, 0, 0});
  return set;
}

shell::ModuleFactories correlation_only() {
  return testing_support::only_mode(5, [](int) { return make_correlation_mode(); });
}

class CorrelationMode : public testing::Test {
 protected:
  CorrelationMode() : f(correlation_only()) {}
  // The listing shown by CORR_VIEW after `commands`, or "" when none was shown.
  std::string listing_after(Lines commands) {
    commands.insert(commands.begin(), "MODE Correlation");
    commands.push_back("CORR_VIEW");
    f.run(commands);
    return f.ui.texts.empty() ? "" : f.ui.texts.back();
  }
  SessionFixture f;
};

TEST_F(CorrelationMode, ListsTheReferenceValuesUnderTheirHeadings) {
  f.session->store().append(series("a.dat", kA));
  f.session->store().append(series("b.dat", kB));
  const std::string text = listing_after({"SET max Lag = 4", "CORR_CALCULATE"});
  ASSERT_FALSE(f.session->failed()) << testing::PrintToString(f.ui.shown());
  // The rows are the reference values as gfortran writes them with (A,1PG15.5),
  // (I5,4(1PG15.5)), (I5,3(1PG15.5)) and (I5,1PG20.5,1PG15.5).
  EXPECT_EQ(text.rfind(" A-series = a.dat   B-series = b.dat\n Delta Time Interval = ", 0), 0u)
      << text;
  for (const char* expected : {
           " Delta Time Interval =      10.000    \n",
           "    1   -0.45370       -7.70440E-02    0.25588       -7.70440E-02\n",
           "   -4     2.2315        0.32069        0.35355    \n",
           "    0         0.17110        0.22096    \n",
           " Variance of A-series = ",
           " Variannce of B-series = ",
           " S.E. per Moran, 1947\n  Lag   Autocovar       Autocorr         S.E.           PACF\n",
           "  Lag   CrossCovar      CrossCorr        S.E.\n",
           "  Lag       Kendall's Tau       S.E.\n",
       })
    EXPECT_NE(text.find(expected), std::string::npos) << expected << "\nnot in\n" << text;
}

TEST_F(CorrelationMode, AConstantSeriesIsListedAsUndefinedNotAsANumber) {
  f.session->store().append(series("flat.dat", std::vector<float>(12, 4.0f)));
  f.session->store().append(series("b.dat", kB));
  const std::string text = listing_after({"SET max Lag = 3", "CORR_CALCULATE"});
  EXPECT_NE(text.find("      Undefined"), std::string::npos) << text;
  EXPECT_EQ(text.find("NaN"), std::string::npos) << text;
}

struct Refusal {
  const char* what;
  std::vector<data::DataSet> sets;
  Lines commands;
  Lines shown;
};

TEST_F(CorrelationMode, RefusesSetsThatDoNotPairWithTheMessagesOfTheMode) {
  const std::string title = "Error Reported by Correlation: ";
  const std::vector<Refusal> cases = {
      {"one data set",
       {series("a.dat", kA)},
       {"CORR_CALCULATE"},
       {title + "Cross-Correlation requires two data sets.",
        title + "Therefore, please read another data set."}},
      {"two lengths",
       {series("a.dat", kA), series("short.dat", {1, 2, 3, 4, 5})},
       {"CORR_CALCULATE"},
       {title + "Cross-Correlation requires two data sets",
        title + "with equal numbers of data points.", title + "Please select new data sets."}},
      {"other times",
       {series("a.dat", kA), series("b.dat", kB, 20)},
       {"CORR_CALCULATE"},
       {title + "Cross-Correlation requires two data sets", title + "with identical time values!",
        title + "Please select new data sets."}},
      {"a lag as long as the series",
       {series("a.dat", kA), series("b.dat", kB)},
       {"SET max Lag = 12", "CORR_CALCULATE"},
       {title + "Please get more data."}},
      {"a lag of zero",
       {series("a.dat", kA), series("b.dat", kB)},
       {"SET max Lag = 0", "CORR_CALCULATE"},
       {title + "MAXLAG = 0.  MAXLAG must be greater than 1 and less than NOBS = 12."}},
  };
  for (const auto& c : cases) {
    SessionFixture run(correlation_only());
    for (const auto& s : c.sets) run.session->store().append(s);
    Lines commands = c.commands;
    commands.insert(commands.begin(), "MODE Correlation");
    run.run(commands);
    EXPECT_EQ(run.ui.shown(), c.shown) << c.what;
  }
}

TEST_F(CorrelationMode, WritesAThreePanelGraphThatParses) {
  f.session->store().append(series("a.dat", kA));
  f.session->store().append(series("b.dat", kB));
  f.run({"MODE Correlation", "SET max Lag = 4", "CORR_CALCULATE"});
  const std::string source = Scratch::read(f.session->files().graph_path());
  const auto parsed = graphics::parse_plot(source);
  ASSERT_TRUE(parsed.ok()) << parsed.message;
  ASSERT_EQ(parsed.plot.panels.size(), 5u);  // three correlation panels, two series
  EXPECT_NE(source.find(std::string(kBandName)), std::string::npos);
  EXPECT_NE(source.find(std::string(kLagAxis)), std::string::npos);
}

}  // namespace
}  // namespace tidemark::stats
