#include "stats/modes/concordance_mode.h"

#include <gtest/gtest.h>

#include "data/secretion_events.h"
#include "graphics/plot_parser.h"
#include "shell/session_fixture.h"
#include "stats/modes/concordance_graph.h"
#include "stats/modes/concordance_report.h"

namespace tidemark::stats {
namespace {

using testing_support::Scratch;
using testing_support::SessionFixture;
using Lines = std::vector<std::string>;

// 25 samples every 10 minutes (0 .. 240) with events at `times`.
data::DataSet with_events(const std::string& name, const std::vector<double>& times) {
  auto set = testing_support::data_set(name, name, 25);
  std::vector<data::SecretionEvent> events;
  for (double t : times) events.push_back({t, 0.0});
  data::set_secretion_events(set, events);
  return set;
}

shell::ModuleFactories concordance_only() {
  return testing_support::only_mode(4, [](int) { return make_concordance_mode(); });
}

// The listing shown after `commands` run in Concordance on sets `a` and `b`.
struct ConcordanceRun {
  std::string listing;
  SessionFixture f{concordance_only()};
  ConcordanceRun(const data::DataSet& a, const data::DataSet& b, Lines commands) {
    f.session->store().append(a);
    f.session->store().append(b);
    commands.insert(commands.begin(), "MODE Concordance");
    commands.push_back("CONCORD_VIEW");
    f.run(commands);
    listing = f.ui.texts.empty() ? "" : f.ui.texts.back();
  }
};

TEST(ConcordanceMode, TheDefaultRangeIsHalfAnIntervalEachSideWithBothEndsIncluded) {
  // A at 10, 50, 90 and B at 15, 52, 200 with Δt = 10: 15 − 10 = 5 is on the edge and
  // counts, 52 − 50 = 2 counts, 90 has no partner: 2 coincidences (by hand).
  ConcordanceRun r(with_events("a.dat", {10, 50, 90}), with_events("b.dat", {15, 52, 200}),
                   {"SET #MC Cycles = 2000", "CONCORD_CALCULATE"});
  ASSERT_FALSE(r.f.session->failed()) << testing::PrintToString(r.f.ui.shown());
  // Lines as gfortran writes them with (A,1PG15.3,A,1PG15.3,A,I5,A) and (A,I3,A,1PG15.3).
  for (const char* expected :
       {"Monte-Carlo Concordance Calculation\n",
        " A coincidence range of       -5.00     to        5.00     yielded    2 coincidence "
        "peaks\n",
        " P(#events>=  0) =        1.00    \n", " Series A: a.dat   25 points    3 peaks\n"})
    EXPECT_NE(r.listing.find(expected), std::string::npos) << expected << "\nnot in\n" << r.listing;
}

TEST(ConcordanceMode, ARangeFromAboveToBelowGivesCertaintyOfNoCoincidence) {
  ConcordanceRun r(with_events("a.dat", {10, 50}), with_events("b.dat", {10, 50}),
                   {"SET Coincidence From = 1", "SET Coincidence To = -1", "SET #MC Cycles = 500",
                    "CONCORD_CALCULATE"});
  // As gfortran writes 1.0 and 0.0 with (A,I3,A,1PG15.3).
  EXPECT_NE(r.listing.find(" P(#events=  0) =        1.00    \n"), std::string::npos) << r.listing;
  EXPECT_NE(r.listing.find(" P(#events>=  1) =        0.00    \n"), std::string::npos);
  EXPECT_NE(r.listing.find(" P(#events>=  2) =        0.00    \n"), std::string::npos);
  EXPECT_NE(r.listing.find("yielded    0 coincidence peaks"), std::string::npos);
}

TEST(ConcordanceMode, ASeriesWithoutEventsGivesTheSingleCertainRow) {
  ConcordanceRun r(with_events("a.dat", {}), with_events("b.dat", {30, 60}),
                   {"SET #MC Cycles = 100", "CONCORD_CALCULATE"});
  EXPECT_NE(r.listing.find(" P(#events=  0) =        1.00    \n"), std::string::npos) << r.listing;
  EXPECT_EQ(r.listing.find("P(#events=  1)"), std::string::npos);
  const auto log = r.f.log();
  EXPECT_NE(std::find(log.begin(), log.end(), "Concordance: P(  0)=1.0000        Sum Q=1.0000"),
            log.end());
}

TEST(ConcordanceMode, TheDialogShowsTheInitialGridThenTheTableAndBothSeries) {
  ConcordanceRun before(with_events("a.dat", {10}), with_events("b.dat", {10}), {});
  const auto module = make_concordance_mode();
  const ui::Dialog& d = module->dialog();
  const auto field = [&](const ConcordanceRun& r, const char* label) {
    return std::get<std::string>(r.f.ui.dialog_values.at(*d.find(label)));
  };
  EXPECT_EQ(field(before, "Probability Table"), kConcordanceGridInitial);
  // lo > hi: no coincidence ever, so P(0) = 1 and Q(1) = Q(2) = 0 (by hand).
  ConcordanceRun after(with_events("a.dat", {10, 50}), with_events("b.dat", {10, 50, 90}),
                       {"SET Coincidence From = 1", "SET Coincidence To = -1",
                        "SET #MC Cycles = 300", "CONCORD_CALCULATE"});
  EXPECT_EQ(field(after, "Probability Table"),
            "P(  0)=1.0000        Sum Q=1.0000\n"
            "P(  1)=0.0000        Sum Q=0.0000\n"
            "P(  2)=0.0000        Sum Q=0.0000");
  EXPECT_EQ(field(after, "A Description"), "a.dat   25 points    2 peaks");
  EXPECT_EQ(field(after, "B Description"), "b.dat   25 points    3 peaks");
}

TEST(ConcordanceMode, TheSameSeedGivesTheSameTableAndTheGraphParses) {
  const auto a = with_events("a.dat", {10, 50, 90, 130, 170});
  const auto b = with_events("b.dat", {12, 95, 140, 230});
  const Lines commands = {"SEED 17", "SET #MC Cycles = 25000", "CONCORD_CALCULATE"};
  ConcordanceRun first(a, b, commands), second(a, b, commands);
  EXPECT_EQ(first.listing, second.listing);
  const std::string source = Scratch::read(first.f.session->files().graph_path());
  for (bool on : {true, false}) {
    const auto parsed = graphics::parse_plot(
        source, {{std::string(kShowSecretionEvents), on}, {std::string(kShowCoincidences), on}});
    ASSERT_TRUE(parsed.ok()) << parsed.message;
    EXPECT_EQ(parsed.plot.panels.size(), 3u);
  }
}

TEST(ConcordanceMode, OneDataSetIsRefusedWithTheModesMessage) {
  SessionFixture f(concordance_only());
  f.session->store().append(with_events("a.dat", {10}));
  f.run({"MODE Concordance", "CONCORD_CALCULATE"});
  const std::string title = "Error Reported by Concordance: ";
  EXPECT_EQ(f.ui.shown(), (Lines{title + "Monte-Carlo Concordance requires two data sets.",
                                 title + "Therefore, please read another data set."}));
}

TEST(ConcordanceGrid, RowsShowPAndQAndTheInitialTextHasTheRowShape) {
  // P = 0.25, 0.75 gives Q = 1, 0.75 (by hand).
  EXPECT_EQ(concordance_grid_rows({{0.25, 0.75}, {1.0, 0.75}}),
            (Lines{"P(  0)=0.2500        Sum Q=1.0000", "P(  1)=0.7500        Sum Q=0.7500"}));
  EXPECT_EQ(concordance_grid_rows({{1.0}, {0.0}})[0], kConcordanceGridInitial);
}

// A cropped to its points 1..13 (times 0 .. 120): its event at 200 lies outside and is
// not counted, so of B's events at 15, 52 and 200 only 15 and 52 coincide (with 10 and
// 50, within ±5), by hand. Cropped to one point, A has no time range: too little data.
TEST(ConcordanceCrop, TheCropRangeBoundsTheEventsAndTheEnoughDataCheck) {
  data::DataSet a = with_events("a.dat", {10, 50, 200});
  a.crop_start = 1;
  a.crop_end = 13;
  ConcordanceRun r(a, with_events("b.dat", {15, 52, 200}),
                   {"SET #MC Cycles = 200", "CONCORD_CALCULATE"});
  EXPECT_NE(r.listing.find("yielded    2 coincidence peaks"), std::string::npos) << r.listing;
  EXPECT_NE(r.listing.find(" Series A: a.dat   13 points    2 peaks\n"), std::string::npos);

  a.crop_start = 5;
  a.crop_end = 5;
  ConcordanceRun one(a, with_events("b.dat", {15, 52, 200}),
                     {"SET #MC Cycles = 200", "CONCORD_CALCULATE"});
  const Lines shown = one.f.ui.shown();
  EXPECT_NE(std::find(shown.begin(), shown.end(),
                      "Error Reported by Concordance: Please get more data."),
            shown.end())
      << testing::PrintToString(shown);
}

}  // namespace
}  // namespace tidemark::stats
